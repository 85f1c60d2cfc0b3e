// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/screen_scale.h"
#include "cont_dial.h"
#include "contrast.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "window_state.h"
#include "windowtest.h"

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QtTest>

#include <cmath>

namespace {

// An edge between two pixels may be rounded to either, and font sizes are rounded differently in
// each version of Qt.
constexpr double unitsOff = 4.0;

double wantedFactor()
{
    return qEnvironmentVariable("QT_SCALE_FACTOR").toDouble();
}

bool isNear(const QRectF &one, const QRectF &other)
{
    return std::abs(one.left() - other.left()) <= unitsOff
        && std::abs(one.top() - other.top()) <= unitsOff
        && std::abs(one.right() - other.right()) <= unitsOff
        && std::abs(one.bottom() - other.bottom()) <= unitsOff;
}

/// Sharpness of \a picture: the sum of the differences of all neighbours in its rows.
double steepness(const QImage &picture)
{
    double sum = 0.0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 1; x < picture.width(); ++x) {
            const double step = apart(picture.pixel(x, y), picture.pixel(x - 1, y));
            sum += step * step;
        }
    return sum;
}

/// \a widget as on a screen with one pixel for each unit.
QImage coarsePicture(QWidget &widget)
{
    QImage picture(widget.size(), QImage::Format_RGB32);
    widget.render(&picture);
    return picture;
}

} // namespace

/// The window on a screen with several pixels per device-independent unit: its size in units is the
/// same, and it is drawn at full resolution.
class TestScreenScale : public WindowTest
{
    Q_OBJECT

private:
    QRect placeOf(const QWidget *control) const
    {
        return { control->mapTo(&window(), QPoint()), control->size() };
    }
    QVector<QAbstractButton *> buttonsWithIcons() const
    {
        QVector<QAbstractButton *> found;
        const auto all = window().findChildren<QAbstractButton *>();
        for (QAbstractButton *button : all)
            if (button->window() == &window() && !button->icon().isNull())
                found.append(button);
        return found;
    }

private slots:
    void init()
    {
        startOver();
        QVector<TraceBuilder> traces;
        for (int number = 0; number < constants::slotCount; ++number)
            traces.append(TraceBuilder()
                              .samples([number](int i) { return (i * (number + 3)) % 97 - 48; })
                              .shiftY(qint16(number * 6 - 15)));
        openOn(traces);
    }

    void everythingIsPlacedAsWithoutAScale()
    {
        QCOMPARE(window().devicePixelRatioF(), wantedFactor());
        QCOMPARE(window().size(), QSize(800, 500));
        QCOMPARE(window().grab().size(), QSize(800, 500) * wantedFactor());
        const QPair<const QWidget *, QRect> places[] = {
            { probe().Plot_View(), QRect(150, 68, 500, 310) },
            { probe().legend_button(), QRect(9, 68, 135, 40) },
            { probe().selected_rfg()[5], QRect(9, 335, 135, 40) },
            { probe().scale_down_button(), QRect(723, 248, 68, 43) },
            { probe().cursor_dial(), QRect(656, 384, 135, 107) },
        };
        for (const auto &place : places) {
            const QRect now = placeOf(place.first);
            QVERIFY2(isNear(now, place.second),
                     qPrintable(QStringLiteral("%1,%2 %3x%4")
                                    .arg(now.x())
                                    .arg(now.y())
                                    .arg(now.width())
                                    .arg(now.height())));
        }
        QVERIFY(isNear(probe().Plot_Chart()->plotArea(), QRectF(59.7, 36.5, 429.9, 255.5)));
        QCOMPARE(probe().selected_rfg()[0]->iconSize(), QSize(27, 27));
    }

    void iconsAndLogoAreDrawnInPixelsNotEnlarged()
    {
        const auto buttons = buttonsWithIcons();
        QCOMPARE(buttons.size(), 23);
        // In the larger window icons have more pixels than the pictures for a scale of 1.
        for (const QSize size : { QSize(800, 500), QSize(1200, 750) }) {
            window().resize(size);
            WindowFixture::settle();
            for (const QAbstractButton *button : buttons) {
                const QPixmap icon
                    = qtcompat::pixmapOf(button->icon(), *button, button->iconSize());
                QCOMPARE(icon.devicePixelRatioF(), wantedFactor());
                QCOMPARE(icon.size(), button->iconSize() * wantedFactor());
            }
        }
        const QPixmap logo = probe().logo_lbl()->pixmap(Qt::ReturnByValue);
        QCOMPARE(logo.devicePixelRatioF(), wantedFactor());
        const QSizeF size = QSizeF(logo.size()) / wantedFactor();
        QVERIFY(std::abs(size.width() - 121.0) <= unitsOff);
        QVERIFY(std::abs(size.height() - 50.0) <= unitsOff);
    }

    void textsAreDrawnInPixelsNotEnlarged()
    {
        QWidget *const texts[]
            = { probe().delta_lbl(), probe().legend_button(), probe().KU_button(),
                probe().cursor_dial(), probe().Plot_View() };
        for (QWidget *control : texts) {
            const QImage fine = control->grab().toImage();
            const QImage coarse = coarsePicture(*control);
            const QImage enlarged
                = coarse.scaled(fine.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
            if (wantedFactor() == 1.0)
                QCOMPARE(fine.convertToFormat(QImage::Format_RGB32), coarse);
            else
                QVERIFY(steepness(fine) > 1.2 * steepness(enlarged));
        }
    }

    void movingCursorLeavesNoStalePixels()
    {
        for (int step = 0; step < 12; ++step) {
            window().cursorSetup_slot(40 + step * 11);
            WindowFixture::settle();
        }
        QCOMPARE(staleOf(window()), QString());
    }

    void panAndZoomLeaveNoStalePixels()
    {
        for (int step = 0; step < 8; ++step) {
            if (step % 2 == 0)
                window().plotScroll(20);
            else
                window().scale_change(step / 2);
            WindowFixture::settle();
        }
        QCOMPARE(staleOf(window()), QString());
    }
};

int main(int argc, char **argv)
{
    const auto application = screen_scale::makeApplication(argc, argv);
    TestScreenScale test;
    QTEST_SET_MAIN_SOURCE_PATH
    return QTest::qExec(&test, argc, argv);
}

#include "tst_screen_scale.moc"
