// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "contrast.h"
#include "each.h"
#include "settingsfixture.h"
#include "test_files.h"

#include <QCheckBox>
#include <QHash>
#include <QStyleOption>
#include <QTabBar>
#include <QTabWidget>
#include <QtTest>

#include <algorithm>

namespace {

struct TabColours
{
    QColor ground; ///< most frequent colour of the tab
    double contrast; ///< largest contrast of another colour to it
};

TabColours coloursOf(const QImage &picture)
{
    QHash<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            ++counts[picture.pixel(x, y)];
    const QRgb ground = std::max_element(counts.cbegin(), counts.cend()).key();
    double best = 1.0;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it)
        best = std::max(best, contrast(it.key(), ground));
    return { QColor(ground), best };
}

QByteArray builtIn(int style)
{
    return contentOf(QStringLiteral(":/style/style_%1.qss").arg(style));
}

} // namespace

/// The tabs of the settings dialog with different style sheets.
class TestSettingsMenuLook : public QObject
{
    Q_OBJECT

private slots:
    void tabsAreReadableAndKeepTheirOwnBackground()
    {
        struct Row
        {
            const char *name;
            QByteArray sheet;
            QColor ground; ///< that the sheet gives to tabs, if any
            double contrast = 4.5;
        };
        SettingsFixture f;
        QTabBar *bar = f.menu.tabs->tabBar();
        each<Row>(
            {
                { "built-in sheet", builtIn(2), {} },
                { "older sheet", builtIn(1), {} },
                { "no sheet", {}, {} },
                { "changed copy of the built-in sheet",
                  "/* QTabBar::tab { background: white } */" + builtIn(2) + "QLabel { color: red }",
                  {} },
                { "white captions on black",
                  "QWidget { background: black; color: white } QTabBar::tab { color: white }",
                  {} },
                { "black captions on white",
                  "QWidget { background: white } QTabBar::tab { color: black }",
                  {} },
                { "light captions on a dark background of their own",
                  builtIn(2) + "QTabBar::tab { color: #f0f0c8; background: #14143c }",
                  QColor(0x14, 0x14, 0x3c) },
                { "dark captions on a dark background of their own",
                  "QTabBar::tab { background-color: #1e1e1e; color: #1e1e1e }",
                  QColor(0x1e, 0x1e, 0x1e), 1.0 },
                { "built-in sheet again", builtIn(2), {} },
            },
            [&](const Row &row) {
                f.live.current_CSS = QString::fromLatin1(row.sheet);
                f.menu.setStyleSheet(f.live.current_CSS);
                f.open();
                for (const int current : { 0, 1 }) {
                    f.menu.tabs->setCurrentIndex(current);
                    for (const int tab : { 0, 1 }) {
                        // The frame may have any colour.
                        const QRect inside = bar->tabRect(tab).adjusted(4, 4, -4, -4);
                        QVERIFY(!inside.isEmpty());
                        const TabColours colours = coloursOf(bar->grab(inside).toImage());
                        QVERIFY(colours.contrast >= row.contrast);
                        QVERIFY(!row.ground.isValid() || colours.ground == row.ground);
                    }
                }
            });
    }

    void uncheckedBoxesContrastWithTheirBackground()
    {
        for (const char *sheet : { ":/style/style_2.qss", ":/style/style_1.qss" }) {
            SettingsFixture f;
            f.live.current_CSS_path = QLatin1String(sheet);
            f.live.parse_CSS();
            f.menu.setStyleSheet(f.live.current_CSS);
            f.open();
            const QCheckBox *box = f.menu.files_settings_check;
            QVERIFY(!box->isChecked());
            QStyleOptionButton option;
            option.initFrom(box);
            const QRect indicator
                = box->style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, box);
            const QImage picture = f.menu.files_settings_check->grab().toImage();
            const QRgb ground = picture.pixel(picture.width() - 1, 0);
            for (const QPoint side : { QPoint(indicator.left(), indicator.center().y()),
                                       QPoint(indicator.right(), indicator.center().y()),
                                       QPoint(indicator.center().x(), indicator.top()),
                                       QPoint(indicator.center().x(), indicator.bottom()) })
                QVERIFY(contrast(picture.pixel(side), ground) >= 3.0);
        }
    }

    void sheetThatDrawsCheckBoxesKeepsThem()
    {
        SettingsFixture f;
        f.live.current_CSS = QStringLiteral(
            "QCheckBox::indicator { width: 20px; height: 20px; background: rgb(1, 2, 3); }");
        f.menu.setStyleSheet(f.live.current_CSS);
        f.open();
        const QImage picture = f.menu.files_settings_check->grab().toImage();
        QCOMPARE(picture.pixel(0, picture.height() / 2), qRgb(1, 2, 3));
    }
};

QTEST_MAIN(TestSettingsMenuLook)
#include "tst_settingsmenu_look.moc"
