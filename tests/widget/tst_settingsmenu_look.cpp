// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "contrast.h"
#include "settingsfixture.h"

#include <QCheckBox>
#include <QHash>
#include <QStyleOption>
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

    void untickedBoxesStandOutFromTheirGround()
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

    void aSheetThatDrawsTheBoxesKeepsThem()
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
