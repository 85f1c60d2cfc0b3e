// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "each.h"
#include "inputevents.h"
#include "invariants.h"
#include "parambutton.h"
#include "settingsdata.h"
#include "windowtest.h"

#include <QButtonGroup>
#include <QPushButton>
#include <QRandomGenerator>
#include <QtTest>

#include <cmath>
#include <limits>

namespace {

constexpr float notANumber = std::numeric_limits<float>::quiet_NaN();
constexpr float infinite = std::numeric_limits<float>::infinity();

struct Row
{
    const char *name;
    TraceBuilder trace;
};

/// Traces with fields out of bounds. tst_trace_corpus has what each of them shows.
std::vector<Row> badTraces()
{
    const auto filled = [](char byte) { return TraceBuilder().raw(0, QByteArray(37775, byte)); };
    return {
        { "step 0", TraceBuilder().minstep(0.0F) },
        { "step below one count", TraceBuilder().minstep(0.3F) },
        { "step negative and huge", TraceBuilder().minstep(-1e30F) },
        { "step infinite", TraceBuilder().minstep(infinite) },
        { "step not a number", TraceBuilder().minstep(notANumber) },
        { "delay 2^31", TraceBuilder().delay(0x80000000U) },
        { "largest delay", TraceBuilder().delay(0xFFFFFFFFU) },
        { "largest delay and step", TraceBuilder().delay(0xFFFFFFFFU).minstep(1e30F) },
        { "shift 2^32 - 1", TraceBuilder().shiftX(0xFFFFFFFFU).minstep(5.0F) },
        { "shift 2^31", TraceBuilder().shiftX(0x80000000U) },
        { "shift and step that wrap", TraceBuilder().shiftX(0x80000000U).minstep(5.0F) },
        { "factor not a number", TraceBuilder().ku(notANumber) },
        { "factor negative", TraceBuilder().ku(-2.0F) },
        { "factor huge", TraceBuilder().ku(1e30F) },
        { "all bytes 0", filled('\0') },
        { "all bytes 7F", filled('\x7F') },
        { "all bytes 80", filled('\x80') },
        { "all bytes FF", filled('\xFF') },
    };
}

} // namespace

class TestBadTraces : public WindowTest
{
    Q_OBJECT

private:
    /// Calls every operation that computes points, positions and texts, also with extreme values.
    void exercise()
    {
        constexpr int largest = std::numeric_limits<int>::max();
        constexpr int smallest = std::numeric_limits<int>::min();
        for (const int slot : { 0, 1, 5 }) {
            probe().rfg_buttons()->button(slot)->setChecked(true);
            for (const int parameter : { 1, 3, 7, 8 })
                probe().down_buttons()->button(parameter)->setChecked(true);
            for (const int column : { 0, 1, 249, 64000, -5, largest })
                window().cursorSetup_slot(column);
            for (const int shift : { 7, -7, 64001, smallest })
                window().H_Offset_change(shift);
            window().V_Offset_change(largest);
            window().setMasterID(slot);
        }
        for (const int scale : { 8, 0 }) {
            input::click(probe().difference_button());
            input::click(probe().smooth_button());
            window().scale_change(scale);
            window().gotoCursor(MainWindow::CURSOR_A);
            window().plotScroll(scale == 8 ? 1 : -1);
        }
        window().KU_change(2.0);
        WindowFixture::settle();
        window().grab();
    }

    void verifyExercised(const QVector<TraceBuilder> &traces, int master = 0)
    {
        openOn(traces, master);
        exercise();
        QCOMPARE(brokenInvariants(window()), QStringList());
        QCOMPARE(probe().rfg_read_index(), (1 << traces.size()) - 1);
        for (const auto *series : probe().rfg_series()) {
            const auto points = qtcompat::pointsOf(*series);
            for (const QPointF &point : points)
                QVERIFY(std::isfinite(point.x()) && std::abs(point.y()) <= 33000.0);
        }
        QVERIFY(QApplication::activeModalWidget() == nullptr);
    }

private slots:
    void aBadMasterLeavesTheWindowConsistent()
    {
        each(badTraces(), [this](const Row &row) {
            verifyExercised({ row.trace, TraceBuilder().samples(5) });
        });
    }

    void aBadTraceBesideAGoodMasterLeavesTheWindowConsistent()
    {
        each(badTraces(), [this](const Row &row) {
            verifyExercised({ TraceBuilder().samples(5), row.trace });
        });
    }

    void randomRecordsLeaveTheWindowConsistent()
    {
        for (quint32 seed = 1; seed <= 4; ++seed) {
            QRandomGenerator random(seed);
            QVector<TraceBuilder> traces;
            for (int slot = 0; slot < 6; ++slot) {
                QByteArray bytes(37775, Qt::Uninitialized);
                for (char &byte : bytes)
                    byte = static_cast<char>(random.bounded(256));
                traces.append(TraceBuilder().raw(0, bytes));
            }
            verifyExercised(traces, static_cast<int>(seed % 6));
        }
    }
};

QTEST_MAIN(TestBadTraces)
#include "tst_bad_traces.moc"
