// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "threetracestest.h"

#include "extras/extras.h"
#include "invariants.h"

#include <QtTest>

MainWindow &ThreeTracesTest::openThree(bool attached)
{
    const auto ramp = [](int i) { return i % 50; };
    MainWindow &window = openOn({ TraceBuilder().samples(ramp).shiftX(3).delay(8),
                                  TraceBuilder().samples(ramp).minstep(2.5F).shiftY(9),
                                  TraceBuilder().samples(3).minstep(5.0F) },
                                1);
    m_three = &window;
    if (attached)
        extras::attach(window);
    window.plotScroll(100);
    window.cursorSetup_slot(222);
    return window;
}

void ThreeTracesTest::cleanup()
{
    const QStringList broken = m_three ? brokenInvariants(*m_three) : QStringList();
    WindowTest::cleanup();
    QCOMPARE(broken.join(QLatin1Char(0x0a)), QString());
}

void press(QWidget *widget, int key, Qt::KeyboardModifiers modifiers, const QString &text)
{
    QTest::sendKeyEvent(QTest::Click, widget, Qt::Key(key), text, modifiers);
}
