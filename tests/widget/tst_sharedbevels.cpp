// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/sharedbevels.h"

#include <QPushButton>
#include <QSet>
#include <QStyleFactory>
#include <QStyleOption>
#include <QtTest>

namespace {

/// Notes the palettes that bevels are drawn with.
class Palettes : public QProxyStyle
{
public:
    Palettes()
        : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion")))
    {
    }

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override
    {
        if (element == PE_PanelButtonCommand) {
            identities.insert(option->palette.cacheKey());
            grounds.append(option->palette.color(QPalette::Button));
        }
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }

    mutable QSet<qint64> identities;
    mutable QVector<QColor> grounds;
};

void paint(QPushButton &button, const QString &ground)
{
    button.setStyleSheet(QStringLiteral("QPushButton { background: %1 }").arg(ground));
    button.grab();
    button.grab();
}

} // namespace

class TestSharedBevels : public QObject
{
    Q_OBJECT

private slots:
    void bevelsOfOneColourHaveOnePalette()
    {
        auto *palettes = new Palettes;
        SharedBevels style(palettes);
        QPushButton first;
        QPushButton second;
        first.setStyle(&style);
        second.setStyle(&style);
        paint(first, QStringLiteral("#806040"));
        paint(second, QStringLiteral("#806040"));
        QCOMPARE(palettes->identities.size(), 1);
        QCOMPARE(palettes->grounds, QVector<QColor>(4, QColor(0x80, 0x60, 0x40)));

        // As many colours as a user's sheet may have, and the first again.
        palettes->grounds.clear();
        for (int red = 0; red < 40; ++red)
            paint(first, QStringLiteral("rgb(%1, 0, 0)").arg(red));
        paint(first, QStringLiteral("#806040"));
        for (int red = 0; red < 40; ++red)
            QCOMPARE(palettes->grounds.mid(2 * red, 2), QVector<QColor>(2, QColor(red, 0, 0)));
        QCOMPARE(palettes->grounds.last(), QColor(0x80, 0x60, 0x40));
    }

    void anApplicationHasOneOfItsOwnStyle()
    {
        QApplication::setStyle(QStringLiteral("Windows"));
        QCOMPARE(SharedBevels::instance(), SharedBevels::instance());
        QCOMPARE(SharedBevels::instance()->parent(), qApp);
        QCOMPARE(SharedBevels::instance()->baseStyle()->objectName(),
                 QApplication::style()->objectName());
    }
};

QTEST_MAIN(TestSharedBevels)
#include "tst_sharedbevels.moc"
