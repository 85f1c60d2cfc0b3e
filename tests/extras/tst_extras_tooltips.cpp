// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/catalogue.h"
#include "cont_dial.h"
#include "extras/tooltips.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "settingsdata.h"
#include "testfiles.h"
#include "threetraces.h"
#include "windowactions.h"
#include "windowstate.h"

#include <QDir>
#include <QHelpEvent>
#include <QLabel>
#include <QPushButton>
#include <QToolTip>
#include <QtTest>

namespace {

/// Rests the pointer on \a control, as the toolkit tells of it.
void rest(QWidget *control)
{
    const QPoint at = control->rect().center();
    QHelpEvent event(QEvent::ToolTip, at, control->mapToGlobal(at));
    QCoreApplication::sendEvent(control, &event);
}

/// What the tooltip says that is shown at this moment.
QStringList shownFacts()
{
    QTextDocument document;
    document.setHtml(QToolTip::isVisible() ? QToolTip::text() : QString());
    QString text = document.toPlainText();
    return text.isEmpty() ? QStringList() : text.split(QLatin1Char('\n'));
}

QString line(const char *text)
{
    return QString::fromUtf8(text);
}

/// Everything that the extras can say, each as the catalogue knows it.
const char *const sources[] = {
    "Steps in a turn of the dial: %1",
    "Now: %1",
    "No trace in this slot",
    "The file could not be read",
    "Size: %1 bytes",
    "The file is not there any more",
    "Date of test: %1",
    "No date of test in the file",
    "Nothing to shift: no trace in this slot",
    "Recorded with the trace; the dial leaves it as it is",
    "The dial sets the velocity factor from %1 to %2,\nby %3 a step, for all traces",
    "The dial shifts the selected trace up or down,\nfrom %1 to %2 levels, one a step",
    "The dial shifts the selected trace along the cable,\n"
    "in whole samples; the wheel over it by one sample a notch",
    "The dial sets the scale from %1 to %2;\neach step shows twice as much or half of it",
    "In view at this velocity factor: %1",
    "No level here",
    "Level: %1",
};

} // namespace

class TestExtrasTooltips : public QObject
{
    Q_OBJECT

private slots:
    void cleanup();
    void aSlotTellsItsFileItsSizeAndTheDateOfTheTest();
    void aSlotTellsWhatIsMissing();
    void aPathIsShownAsItIsWritten();
    void aLongPathIsShownWhole();
    void aReadingTellsItsFullPrecision();
    void theVelocityFactorTellsAllItsDigits();
    void parametersTellWhatTheDialWouldDo();
    void theDialsTellWhatTheyTurn();
    void readOnlyParametersSaySo();
    void otherControlsSayNothing();
    void withoutExtrasNothingIsSaid();
    void factsSpeakTheLanguageOfTheWindow();
    void aTooltipChangesNothing();
};

void TestExtrasTooltips::cleanup()
{
    QToolTip::hideText();
    QTRY_VERIFY(!QToolTip::isVisible());
}

void TestExtrasTooltips::aSlotTellsItsFileItsSizeAndTheDateOfTheTest()
{
    WindowFixture fixture;
    openThree(fixture);
    LegendButton *button = fixture.probe().selected_rfg()[1];
    rest(button);
    const QStringList facts = shownFacts();
    QCOMPARE(facts.size(), 3);
    QCOMPARE(facts[0], QDir::toNativeSeparators(fixture.path(QStringLiteral("t2.tdr"))));
    QCOMPARE(facts[1], line("Size: 37775 bytes"));
    // As the button and the title have it.
    QVERIFY(facts[2].startsWith(QLatin1String("Date of test: ") + button->date));
    QVERIFY(facts[2].endsWith(QLatin1String(" 09:05:07")));
}

void TestExtrasTooltips::aSlotTellsWhatIsMissing()
{
    WindowFixture fixture;
    MainWindow &window = openWith(fixture, { TraceBuilder(), TraceBuilder().date(2024, 13, 40) });
    const MainWindowProbe &probe = fixture.probe();
    const auto facts = [&](int slot) {
        return extras::factsAbout(window, probe.selected_rfg()[slot]).split(QLatin1Char('\n'));
    };
    QCOMPARE(facts(2), QStringList{ line("No trace in this slot") });
    QCOMPARE(facts(1).at(2), line("No date of test in the file"));
    writeFile(fixture.path(QStringLiteral("t1.tdr")), "short");
    QCOMPARE(facts(0).at(1), line("Size: 5 bytes"));
    QVERIFY(QFile::remove(fixture.path(QStringLiteral("t1.tdr"))));
    QCOMPARE(facts(0).at(1), line("The file is not there any more"));
    // A slot counts as loaded whether its file could be read or not.
    window.add_Selected_RFG(fixture.path(QStringLiteral("never.tdr")), 3);
    QCOMPARE(facts(3), QStringList{ line("The file could not be read") });
}

void TestExtrasTooltips::aPathIsShownAsItIsWritten()
{
    WindowFixture fixture;
    const QString path = fixture.trace(QString::fromUtf8("<b>Т & %1  &lt;.tdr"), TraceBuilder());
    MainWindow &window = openThree(fixture);
    window.add_Selected_RFG(path, 0);
    rest(fixture.probe().selected_rfg()[0]);
    QCOMPARE(shownFacts().value(0), QDir::toNativeSeparators(path));
}

void TestExtrasTooltips::aLongPathIsShownWhole()
{
    WindowFixture fixture;
    QString folder;
    for (int i = 0; i < 4; ++i)
        folder += QString(60, QLatin1Char('a' + char(i))) + QLatin1Char('/');
    QVERIFY(QDir(fixture.path(QString())).mkpath(folder));
    const QString path = fixture.trace(folder + QLatin1String("t.tdr"), TraceBuilder());
    MainWindow &window = openThree(fixture);
    window.add_Selected_RFG(path, 0);
    rest(fixture.probe().selected_rfg()[0]);
    const QStringList facts = shownFacts();
    QVERIFY(facts.size() > 4);
    for (const QString &fact : facts)
        QVERIFY(fact.size() <= 100);
    QVERIFY(facts.join(QString()).startsWith(QDir::toNativeSeparators(path)));
}

void TestExtrasTooltips::aReadingTellsItsFullPrecision()
{
    WindowFixture fixture;
    MainWindow &window = openThree(fixture);
    const MainWindowProbe &probe = fixture.probe();
    window.KU_change(1.5);
    window.cursorSetup_slot(100);
    rest(probe.curA_button());
    // 100 counts of 1.25 ns at 0.18737028625 m / 1.5 each. The samples of slot 2 are two counts
    // wide, 50 of them before this one, and it is lifted by 9.
    QCOMPARE(shownFacts(),
             (QStringList{ line("12.491352416666667 m"), line("125 ns"), line("Level: 9") }));
    rest(probe.curB_button());
    QCOMPARE(shownFacts(), (QStringList{ line("0 m"), line("0 ns"), line("Level: 9") }));
    rest(probe.delta_lbl());
    QCOMPARE(shownFacts(), (QStringList{ line("12.491352416666667 m"), line("125 ns") }));
    window.cursorSetup_slot(60000);
    QCOMPARE(extras::factsAbout(window, probe.curA_button()).split(QLatin1Char('\n')).last(),
             line("No level here"));
}

void TestExtrasTooltips::theVelocityFactorTellsAllItsDigits()
{
    WindowFixture fixture;
    openThree(fixture);
    rest(fixture.probe().KU_button());
    QCOMPARE(shownFacts(),
             (QStringList{ line("The dial sets the velocity factor from 1 to 10,"),
                           line("by 0.001 a step, for all traces"),
                           line("Steps in a turn of the dial: 100"), line("Now: 1.49896228") }));
}

void TestExtrasTooltips::parametersTellWhatTheDialWouldDo()
{
    WindowFixture fixture;
    MainWindow &window = openThree(fixture);
    const MainWindowProbe &probe = fixture.probe();
    window.settings()->param_dial_speed = 70;
    rest(probe.V_offset_button());
    QCOMPARE(shownFacts(),
             (QStringList{ line("The dial shifts the selected trace up or down,"),
                           line("from -256 to 256 levels, one a step"),
                           line("Steps in a turn of the dial: 70"), line("Now: 9") }));
    window.H_Offset_change(20);
    rest(probe.H_offset_button());
    QCOMPARE(shownFacts().mid(2, 1), QStringList{ line("Steps in a turn of the dial: 70") });
    QVERIFY(shownFacts().value(3).startsWith(QLatin1String("Now: 2.50000")));
    QCOMPARE(shownFacts().value(4), line("25 ns"));
    rest(probe.scale_button());
    QCOMPARE(shownFacts().value(0), line("The dial sets the scale from 31.25 m to 8000 m;"));
    QCOMPARE(shownFacts().value(2), line("Steps in a turn of the dial: 8"));
    QCOMPARE(shownFacts().value(4), line("625 ns"));

    QTest::mouseClick(probe.selected_rfg()[4], Qt::LeftButton);
    for (QWidget *button : { static_cast<QWidget *>(probe.V_offset_button()),
                             static_cast<QWidget *>(probe.H_offset_button()) }) {
        rest(button);
        QCOMPARE(shownFacts(), QStringList{ line("Nothing to shift: no trace in this slot") });
    }
}

void TestExtrasTooltips::theDialsTellWhatTheyTurn()
{
    WindowFixture fixture;
    MainWindow &window = openThree(fixture);
    const MainWindowProbe &probe = fixture.probe();
    for (ParamButton *button :
         { probe.KU_button(), probe.V_offset_button(), probe.scale_button() }) {
        button->click();
        QCOMPARE(extras::factsAbout(window, probe.param_dial()),
                 extras::factsAbout(window, button));
    }
    for (InterfaceButton *button : { probe.curB_button(), probe.curA_button() }) {
        button->click();
        QCOMPARE(extras::factsAbout(window, probe.cursor_dial()),
                 extras::factsAbout(window, button));
    }
    window.cursorSelect_slot(MainWindow::DELTA);
    QCOMPARE(extras::factsAbout(window, probe.cursor_dial()), QString());
}

void TestExtrasTooltips::readOnlyParametersSaySo()
{
    WindowFixture fixture;
    openThree(fixture);
    const MainWindowProbe &probe = fixture.probe();
    for (QWidget *button :
         { probe.gain_button(), probe.average_button(), probe.pulse_width_button(),
           probe.pulse_amplitude_button(), probe.impedance_button() }) {
        rest(button);
        QCOMPARE(shownFacts(),
                 QStringList{ line("Recorded with the trace; the dial leaves it as it is") });
    }
}

void TestExtrasTooltips::otherControlsSayNothing()
{
    WindowFixture fixture;
    MainWindow &window = openThree(fixture);
    const MainWindowProbe &probe = fixture.probe();
    QWidget *const silent[] = { probe.logo_lbl(),
                                probe.legend_button(),
                                probe.settings_button(),
                                probe.Plot_View(),
                                probe.Plot_View()->viewport(),
                                probe.reserve_button(),
                                probe.scale_up_button(),
                                &window };
    for (QWidget *control : silent) {
        rest(control);
        QVERIFY(!QToolTip::isVisible());
    }
}

void TestExtrasTooltips::withoutExtrasNothingIsSaid()
{
    WindowFixture fixture;
    MainWindow &window = openThree(fixture, false);
    const auto controls = window.findChildren<QWidget *>();
    for (QWidget *control : controls) {
        QCOMPARE(control->toolTip(), QString());
        rest(control);
        QVERIFY(!QToolTip::isVisible());
    }
}

void TestExtrasTooltips::factsSpeakTheLanguageOfTheWindow()
{
    WindowFixture fixture;
    MainWindow &window = openThree(fixture);
    SettingsData &settings = *window.settings();
    const auto ofEmptySlot
        = [&] { return extras::factsAbout(window, fixture.probe().selected_rfg()[5]); };
    settings.current_language = QStringLiteral("ru_RU");
    settings.setTranslation();
    QCOMPARE(ofEmptySlot(), line("В этой ячейке нет рефлектограммы"));
    const Catalogue russian(window.settings(), QLatin1String("Extras"));
    for (const char *source : sources) {
        const QString text = russian.text(source);
        QVERIFY2(text != QString::fromUtf8(source), source);
        QCOMPARE(text.count(QLatin1Char('%')), QString::fromUtf8(source).count(QLatin1Char('%')));
        QCOMPARE(text.count(QLatin1Char('\n')), QString::fromUtf8(source).count(QLatin1Char('\n')));
    }
    rest(fixture.probe().curA_button());
    QVERIFY(shownFacts().value(0).endsWith(line(" м")));
    settings.current_language = QStringLiteral("en_US");
    settings.setTranslation();
    QCOMPARE(ofEmptySlot(), line("No trace in this slot"));
    const Catalogue english(window.settings(), QLatin1String("Extras"));
    for (const char *source : sources)
        QCOMPARE(english.text(source), QString::fromUtf8(source));
    settings.current_language = QString(1000000, QLatin1Char('_'));
    QCOMPARE(ofEmptySlot(), line("No trace in this slot"));
    settings.current_language = QStringLiteral("en_US");
}

void TestExtrasTooltips::aTooltipChangesNothing()
{
    WindowFixture fixture;
    MainWindow &window = openThree(fixture);
    WindowFixture::settle();
    const QStringList before = stateOf(window);
    const auto controls = window.findChildren<QWidget *>();
    for (QWidget *control : controls)
        if (control->window() == &window)
            rest(control);
    // While it is shown, the tooltip itself is a label more.
    cleanup();
    WindowFixture::settle();
    QCOMPARE(stateOf(window), before);
    QCOMPARE(window.findChildren<QWidget *>(), controls);
}

QTEST_MAIN(TestExtrasTooltips)
#include "tst_extras_tooltips.moc"
