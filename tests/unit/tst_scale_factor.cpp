// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/screen_scale.h"

#include <QApplication>
#include <QScreen>
#include <QtTest>

/// The scale factor that the user sets in QT_SCALE_FACTOR.
class TestScaleFactor : public QObject
{
    Q_OBJECT

private slots:
    void invalidFactorCountsAsUnset()
    {
        const QByteArrayList scales{ "0.1", "1.5", "10" };
        const QByteArrayList others{ "inf",    "-inf", "nan", "1e999", "0", "0.09",
                                     "1e-300", "-2",   "two", "50",    "" };
        for (const QByteArray &text : scales + others) {
            qputenv("QT_SCALE_FACTOR", text);
            int argc = 1;
            char name[] = "velkor";
            char *argv[] = { name, nullptr };
            const auto application = screen_scale::makeApplication(argc, argv);
            const double ratio = QGuiApplication::primaryScreen()->devicePixelRatio();
            const double expected = scales.contains(text) ? text.toDouble() : 1.0;
            QVERIFY2(qAbs(ratio - expected) < 1e-6, text.constData());
        }
    }
};

QTEST_APPLESS_MAIN(TestScaleFactor)
#include "tst_scale_factor.moc"
