// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "contrast.h"
#include "settingsfixture.h"

#include <QHash>
#include <QTabBar>
#include <QTabWidget>
#include <QtTest>

#include <algorithm>

namespace {

/// The best contrast of any point of \a picture against the colour that most of it has.
double captionContrast(const QImage &picture)
{
    QHash<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x)
            ++counts[picture.pixel(x, y)];
    const auto ground = std::max_element(counts.cbegin(), counts.cend());
    double best = 1.0;
    for (auto it = counts.cbegin(); it != counts.cend(); ++it)
        best = std::max(best, contrast(it.key(), ground.key()));
    return best;
}

} // namespace

/// Whether the dialog can be read, whatever sheet the window wears.
class TestSettingsMenuLook : public QObject
{
    Q_OBJECT

private slots:
    void tabCaptionsStandOutFromTheirGround_data()
    {
        QTest::addColumn<QString>("sheet");
        QTest::newRow("built-in sheet") << QStringLiteral(":/style/style_2.qss");
        QTest::newRow("older sheet") << QStringLiteral(":/style/style_1.qss");
        QTest::newRow("no sheet") << QString();
    }

    void tabCaptionsStandOutFromTheirGround()
    {
        QFETCH(QString, sheet);
        SettingsFixture f;
        f.live.current_CSS_path = sheet;
        f.live.parse_CSS();
        QCOMPARE(f.live.current_CSS.isEmpty(), sheet.isEmpty());
        f.menu.setStyleSheet(f.live.current_CSS);
        f.open();
        QTabWidget *tabs = f.menu.tabs;
        const QTabBar *bar = tabs->findChild<QTabBar *>();
        for (int current = 0; current < tabs->count(); ++current) {
            tabs->setCurrentIndex(current);
            const QImage picture = tabs->grab().toImage();
            for (int page = 0; page < tabs->count(); ++page) {
                // Without the frame, which may have any colour.
                const QRect inside = bar->tabRect(page).adjusted(4, 4, -4, -4);
                QVERIFY(!inside.isEmpty());
                QVERIFY(captionContrast(picture.copy(inside.translated(bar->pos()))) > 4.5);
            }
        }
    }
};

QTEST_MAIN(TestSettingsMenuLook)
#include "tst_settingsmenu_look.moc"
