// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "fourier.h"

#include <QtTest>

#include <cmath>

using instrument::inverseTransform;

class TestFourier : public QObject
{
    Q_OBJECT

private slots:
    void oneSpectralLineGivesAWave()
    {
        std::vector<std::complex<double>> values(8);
        values[1] = 1.0;
        inverseTransform(values);
        QVERIFY(std::abs(values[0] - 1.0) < 1.0e-15);
        QVERIFY(std::abs(values[2] - std::complex<double>(0.0, 1.0)) < 1.0e-15);
        QVERIFY(std::abs(values[4] + 1.0) < 1.0e-15);
        QVERIFY(std::abs(values[7] - std::complex<double>(std::sqrt(0.5), -std::sqrt(0.5)))
                < 1.0e-15);
    }

    void otherLengthsThanPowersOfTwoAreUnchanged()
    {
        std::vector<std::complex<double>> values{ 1.0, 2.0, 3.0 };
        const std::vector<std::complex<double>> before = values;
        inverseTransform(values);
        QVERIFY(values == before);
    }
};

QTEST_APPLESS_MAIN(TestFourier)
#include "tst_fourier.moc"
