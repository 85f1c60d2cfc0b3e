// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/screen_scale.h"

#include <QApplication>
#include <QScreen>
#include <QtTest>

/// The factor by which the user has the program enlarged.
class TestScaleFactor : public QObject
{
    Q_OBJECT

private slots:
    void aFactorThatIsNoScaleCountsAsUnset()
    {
        struct Factor
        {
            const char *text;
            double ratio;
        };
        for (const Factor &factor :
             { Factor{ "inf", 1.0 }, Factor{ "-inf", 1.0 }, Factor{ "nan", 1.0 },
               Factor{ "1e999", 1.0 }, Factor{ "0", 1.0 }, Factor{ "0.09", 1.0 },
               Factor{ "1e-300", 1.0 }, Factor{ "-2", 1.0 }, Factor{ "two", 1.0 },
               Factor{ "50", 1.0 }, Factor{ "", 1.0 }, Factor{ "0.1", 0.1 }, Factor{ "1.5", 1.5 },
               Factor{ "10", 10.0 } }) {
            qputenv("QT_SCALE_FACTOR", factor.text);
            int argc = 1;
            char name[] = "velkor";
            char *argv[] = { name, nullptr };
            const auto application = screen_scale::makeApplication(argc, argv);
            const double ratio = QGuiApplication::primaryScreen()->devicePixelRatio();
            QVERIFY2(qAbs(ratio - factor.ratio) < 1e-6, factor.text);
        }
    }
};

QTEST_APPLESS_MAIN(TestScaleFactor)
#include "tst_scale_factor.moc"
