// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "peer_window.h"

#include "cont_dial.h"
#include "datetime_lbl.h"
#include "dictionary.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "peer_plot.h"

#include <QFile>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

constexpr int parameters = 10;

// The viewer's own stretch factors.
constexpr int sideShare = 14;
constexpr int middleShare = 52;
constexpr int buttonShare = 3;
constexpr int navigationShare = 9;

QFrame *sunkenLine()
{
    auto *line = new QFrame;
    line->setFrameShape(QFrame::HLine);
    line->setFrameShadow(QFrame::Sunken);
    return line;
}

} // namespace

PeerWindow::PeerWindow(PeerPlot *peerPlot)
    : words(new Dictionary(this))
    , parameterDial(new Cont_dial)
    , cursorDial(new Cont_dial)
    , plot(peerPlot)
{
    auto *middle = new QHBoxLayout;
    middle->addLayout(leftColumn(), sideShare);
    middle->addWidget(plot->widget(), middleShare);
    middle->addLayout(rightColumn(), sideShare);
    auto *bottom = new QHBoxLayout;
    bottom->addWidget(parameterDial, sideShare);
    bottom->addLayout(parameterGrid(), middleShare);
    bottom->addWidget(cursorDial, sideShare);

    auto *area = new QWidget(this);
    auto *rows = new QVBoxLayout(area);
    rows->addLayout(topRow(), 5);
    rows->addLayout(middle, 33);
    rows->addLayout(bottom, 12);
    setCentralWidget(area);
    QFile sheet(constants::defaultStyle);
    if (sheet.open(QIODevice::ReadOnly))
        setStyleSheet(QString::fromLatin1(sheet.readAll()));
    retranslate();
}

PeerWindow::~PeerWindow() = default;

QLayout *PeerWindow::topRow()
{
    auto *logo = new QLabel;
    logo->setPixmap(QPixmap(constants::logoPicture)
                        .scaled(constants::logoWidth, constants::logoHeight, Qt::KeepAspectRatio));
    logo->setAlignment(Qt::AlignCenter);
    delta = new QLabel;
    delta->setAlignment(Qt::AlignCenter);
    for (InterfaceButton *&button : cursorButtons) {
        button = new InterfaceButton(words);
        button->set_icon(QStringLiteral("://icons/rest_64/cursorA"));
        button->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    }
    auto *clock = new QVBoxLayout;
    clock->addWidget(new DateTime_lbl);
    auto *row = new QHBoxLayout;
    row->addWidget(logo, sideShare);
    row->addWidget(cursorButtons[0], 13);
    row->addWidget(delta, 26);
    row->addWidget(cursorButtons[1], 13);
    row->addLayout(clock, sideShare);
    return row;
}

QPushButton *PeerWindow::plainButton()
{
    auto *button = new QPushButton;
    button->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    plainButtons.append(button);
    return button;
}

QLayout *PeerWindow::leftColumn()
{
    auto *column = new QVBoxLayout;
    column->setSpacing(0);
    column->addWidget(plainButton(), buttonShare);
    column->addWidget(sunkenLine(), 1, Qt::AlignVCenter);
    for (int slot = 0; slot < constants::slotCount; ++slot) {
        auto *button = new LegendButton(words, static_cast<char>(slot));
        button->QPushButton::setIcon(QIcon(QPixmap(QString(constants::slotIcon).arg(slot + 1))));
        traceButtons.append(button);
        column->addWidget(button, buttonShare);
        column->addWidget(sunkenLine(), 0);
    }
    return column;
}

QLayout *PeerWindow::rightColumn()
{
    auto *column = new QVBoxLayout;
    column->setSpacing(0);
    column->addWidget(plainButton(), buttonShare);
    column->addWidget(sunkenLine(), 1);
    for (int i = 0; i < 3; ++i)
        column->addWidget(plainButton(), buttonShare);
    column->addWidget(sunkenLine(), 1);
    auto *navigation = new QGridLayout;
    navigation->setSpacing(0);
    for (int i = 0; i < 6; ++i)
        navigation->addWidget(plainButton(), i / 2, i % 2);
    column->addLayout(navigation, navigationShare);
    return column;
}

QGridLayout *PeerWindow::parameterGrid()
{
    auto *grid = new QGridLayout;
    grid->setSpacing(0);
    for (int i = 0; i < parameters; ++i) {
        auto *button = new ParamButton(words, static_cast<char>(i));
        button->set_icon(QStringLiteral("://icons/rest_64/gain"));
        parameterButtons.append(button);
        grid->addWidget(button, i / 5, i % 5);
    }
    return grid;
}

void PeerWindow::retranslate()
{
    words->setStrings();
    for (QPushButton *button : plainButtons)
        button->setText(words->SETTINGS_STR);
    for (LegendButton *button : traceButtons) {
        button->setText(words->RFG_STR + QStringLiteral(" %1\n05.03.24").arg(button->id + 1));
        button->retranslateUI();
    }
    for (ParamButton *button : parameterButtons)
        button->setText(words->GAIN_STR + QStringLiteral("\n30"));
}

int PeerWindow::points() const
{
    const int extent
        = qMin(width() * constants::fontWidthNumerator / constants::fontWidthDenominator, height());
    return qMax(1, static_cast<int>(extent * constants::fontShare));
}

void PeerWindow::resizeEvent(QResizeEvent *event)
{
    QMainWindow::resizeEvent(event);
    scale();
}

void PeerWindow::scale()
{
    QFont common = font();
    if (common.pointSize() == points())
        return;
    common.setPointSize(points());
    setFont(common);
    QFont large = common;
    large.setPointSize(2 * points());
    delta->setFont(large);
    const QSize small(2 * points(), 2 * points());
    for (ParamButton *button : parameterButtons)
        button->setIconSize(small);
    for (InterfaceButton *button : cursorButtons)
        button->setIconSize(small);
    for (LegendButton *button : traceButtons)
        button->setIconSize(small * 3 / 2);
}
