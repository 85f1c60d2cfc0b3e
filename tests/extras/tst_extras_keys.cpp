// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/extras.h"
#include "windowactions.h"

#include <QtTest>

namespace {

/// As a Russian keyboard sends it: the letter that is printed on the key.
void pressRussian(QWidget *widget, char16_t letter, Qt::KeyboardModifiers modifiers = {})
{
    QTest::sendKeyEvent(QTest::Click, widget, Qt::Key(letter), QString(QChar(letter)), modifiers);
}

} // namespace

/// Keys pressed on the window as its user would press them.
class TestExtrasKeys : public QObject
{
    Q_OBJECT

private slots:
    void theLettersOfTheCursorsChooseThem();
    void aRussianKeyboardHasTheSameKeys();
};

void TestExtrasKeys::theLettersOfTheCursorsChooseThem()
{
    WindowFixture fixture;
    MainWindow &window = openWith(fixture, { TraceBuilder() });
    extras::attach(window);
    QTest::keyClick(&window, Qt::Key_B);
    QCOMPARE(fixture.probe().Cur_flag(), MainWindow::CURSOR_B);
    QTest::keyClick(&window, Qt::Key_A);
    QCOMPARE(fixture.probe().Cur_flag(), MainWindow::CURSOR_A);
}

void TestExtrasKeys::aRussianKeyboardHasTheSameKeys()
{
    WindowFixture fixture;
    MainWindow &window = openWith(fixture, { TraceBuilder() });
    extras::attach(window);
    pressRussian(&window, u'И');
    QCOMPARE(fixture.probe().Cur_flag(), MainWindow::CURSOR_B);
    pressRussian(&window, u'Ф');
    QCOMPARE(fixture.probe().Cur_flag(), MainWindow::CURSOR_A);
}

QTEST_MAIN(TestExtrasKeys)
#include "tst_extras_keys.moc"
