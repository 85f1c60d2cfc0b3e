// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "datetime_lbl.h"
#include "extras/tooltips.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "plotview.h"
#include "settingsdata.h"
#include "test_files.h"
#include "threetracestest.h"
#include "window_actions.h"
#include "window_state.h"

#include <QDir>
#include <QHelpEvent>
#include <QLabel>
#include <QPushButton>
#include <QToolTip>
#include <QtTest>

namespace {

/// Rests the pointer on \a control.
void rest(QWidget *control)
{
    const QPoint at = control->rect().center();
    QHelpEvent event(QEvent::ToolTip, at, control->mapToGlobal(at));
    QCoreApplication::sendEvent(control, &event);
}

/// The lines of the tooltip of \a control.
QStringList shownOn(QWidget *control)
{
    rest(control);
    QTextDocument document;
    document.setHtml(QToolTip::isVisible() ? QToolTip::text() : QString());
    const QString text = document.toPlainText();
    return text.isEmpty() ? QStringList() : text.split(QLatin1Char('\n'));
}

QString line(const char *text)
{
    return QString::fromUtf8(text);
}

/// All widgets of the window except frames and the background.
QVector<QWidget *> controlsOf(const MainWindowProbe &probe)
{
    QVector<QWidget *> controls;
    const auto children
        = probe.centralWidget()->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget *child : children)
        if (child->isVisible() && child->metaObject() != &QFrame::staticMetaObject
            && child != probe.Plot_View())
            controls.append(child);
    return controls;
}

} // namespace

class TestExtrasTooltips : public ThreeTracesTest
{
    Q_OBJECT

private slots:
    void cleanup()
    {
        QToolTip::hideText();
        QTRY_VERIFY(!QToolTip::isVisible());
    }

    void everyControlHasATooltipInBothLanguages()
    {
        MainWindow &window = openThree();
        const QVector<QWidget *> controls = controlsOf(probe());
        // The row of the cursors, files and slots, the right column, dials and parameters.
        QCOMPARE(controls.size(), 5 + 7 + 10 + 12);
        const MainWindowProbe &p = probe();
        const QVector<QWidget *> typed{
            p.curA_button(),     p.curB_button(),     p.KU_button(),
            p.H_offset_button(), p.V_offset_button(), p.scale_button()
        };
        QVector<QStringList> english;
        for (QWidget *control : controls) {
            english.append(shownOn(control));
            QVERIFY2(!english.last().isEmpty(), qPrintable(control->objectName()));
            QCOMPARE(english.last().contains(line("Right click: type a value")),
                     typed.contains(control));
        }
        QCOMPARE(shownOn(probe().logo_lbl()),
                 QStringList{ line("Velkor " VELKOR_VERSION "; a click tells about Qt") });
        // A damaged language code leaves English.
        window.settings()->current_language = QString(1000000, QLatin1Char('_'));
        QCOMPARE(shownOn(probe().scale_down_button()).first(), line("Magnifies"));
        setLanguage("ru_RU");
        static const QRegularExpression cyrillic(QStringLiteral("[а-я]"));
        for (int i = 0; i < controls.size(); ++i) {
            const QStringList russian = shownOn(controls[i]);
            QCOMPARE(russian.size(), english[i].size());
            QVERIFY(russian.first().contains(cyrillic));
        }
        // The plot and the background between the controls have no tooltip.
        for (QWidget *silent : { static_cast<QWidget *>(probe().Plot_View()->viewport()),
                                 static_cast<QWidget *>(&window) }) {
            cleanup();
            QCOMPARE(shownOn(silent), QStringList());
        }
    }

    void fontGrowsWithTheWindow()
    {
        MainWindow &window = openThree();
        for (const QSize size : { QSize(1280, 800), QSize(800, 500) }) {
            window.resize(size);
            WindowFixture::settle();
            rest(probe().smooth_button());
            QCOMPARE(QToolTip::font().pointSize(), probe().smooth_button()->font().pointSize());
        }
    }

    void slotShowsItsFileItsSizeAndTheDateOfTheMeasurement()
    {
        openThree();
        LegendButton *button = probe().selected_rfg()[1];
        const QStringList facts = shownOn(button);
        QCOMPARE(facts.size(), 5);
        QCOMPARE(facts[1], line("Key: 2"));
        QCOMPARE(facts[2], QDir::toNativeSeparators(fixture->path(QStringLiteral("t2.tdr"))));
        QCOMPARE(facts[3], line("Size: 37775 bytes"));
        QVERIFY(facts[4].startsWith(QLatin1String("Measured: ") + button->date));
        QVERIFY(facts[4].endsWith(QLatin1String(" 09:05:07")));
    }

    void slotShowsMissingTraceFileOrDate()
    {
        MainWindow &window
            = openWith(*fixture, { TraceBuilder(), TraceBuilder().date(2024, 13, 40) });
        const auto facts = [&](int slot) {
            return extras::tooltipOf(window, probe().selected_rfg()[slot])
                .split(QLatin1Char('\n'))
                .mid(2);
        };
        QCOMPARE(facts(2), QStringList{ line("No trace in this slot") });
        QCOMPARE(facts(1).at(2), line("No date of the measurement in the file"));
        writeFile(fixture->path(QStringLiteral("t1.tdr")), "short");
        QCOMPARE(facts(0).at(1), line("Size: 5 bytes"));
        QVERIFY(QFile::remove(fixture->path(QStringLiteral("t1.tdr"))));
        QCOMPARE(facts(0).at(1), line("The file does not exist any more"));
        // A slot also counts as loaded when its file could not be read.
        window.add_Selected_RFG(fixture->path(QStringLiteral("never.tdr")), 3);
        QCOMPARE(facts(3), QStringList{ line("The file could not be read") });
    }

    void pathIsShownAsItIsWritten()
    {
        const QString odd = fixture->trace(line("<b>Т & %1  &lt;.tdr"), TraceBuilder());
        QString folder;
        for (int i = 0; i < 4; ++i)
            folder += QString(60, QLatin1Char('a' + char(i))) + QLatin1Char('/');
        QVERIFY(QDir(fixture->path(QString())).mkpath(folder));
        const QString longPath = fixture->trace(folder + QLatin1String("t.tdr"), TraceBuilder());
        MainWindow &window = openThree();
        window.add_Selected_RFG(odd, 0);
        QCOMPARE(shownOn(probe().selected_rfg()[0]).value(2), QDir::toNativeSeparators(odd));
        window.add_Selected_RFG(longPath, 0);
        cleanup();
        const QStringList facts = shownOn(probe().selected_rfg()[0]);
        QVERIFY(facts.size() > 6);
        for (const QString &fact : facts)
            QVERIFY(fact.size() <= 100);
        QVERIFY(facts.mid(2).join(QString()).startsWith(QDir::toNativeSeparators(longPath)));
        // A letter of two UTF-16 units stays on one line.
        for (const char *begin : { "", "x" }) {
            const QString plugs = line(begin) + line("\xf0\x9f\x94\x8c").repeated(50);
            window.add_Selected_RFG(fixture->trace(plugs, TraceBuilder()), 0);
            for (const QString &fact :
                 extras::tooltipOf(window, probe().selected_rfg()[0]).split(QLatin1Char('\n')))
                QVERIFY(!fact.back().isHighSurrogate());
        }
    }

    void readingHasAllItsDigits()
    {
        MainWindow &window = openThree();
        window.KU_change(1.5);
        window.cursorSetup_slot(100);
        // 100 counts of 1.25 ns at 0.18737028625 m / 1.5 each. Slot 2 has two counts per sample, so
        // this is sample 50, and is shifted 9 levels up.
        const QStringList reading{ line("12.491352416666667 m"), line("125 ns") };
        QCOMPARE(shownOn(probe().curA_button()).mid(3), reading + QStringList{ line("Level: 9") });
        QCOMPARE(shownOn(probe().cursor_dial()).mid(2), reading + QStringList{ line("Level: 9") });
        QCOMPARE(shownOn(probe().curB_button()).mid(3),
                 (QStringList{ line("0 m"), line("0 ns"), line("Level: 9") }));
        QCOMPARE(shownOn(probe().delta_lbl()).mid(1), reading);
        // And with B on the right of A.
        window.cursorSelect_slot(MainWindow::CURSOR_B);
        window.cursorSetup_slot(200);
        QCOMPARE(shownOn(probe().delta_lbl()).mid(1), reading);
        window.cursorSelect_slot(MainWindow::CURSOR_A);
        window.cursorSetup_slot(60000);
        QCOMPARE(shownOn(probe().curA_button()).last(), line("No level here"));
        window.cursorSelect_slot(MainWindow::DELTA);
        QCOMPARE(shownOn(probe().cursor_dial()).size(), 2);
    }

    void parameterShowsRangeStepAndValue()
    {
        MainWindow &window = openThree();
        window.settings()->param_dial_speed = 70;
        const QString turn = line("Steps per turn of the dial: 70");
        QCOMPARE(shownOn(probe().KU_button()).mid(3),
                 (QStringList{ line("From 1 to 10, 0.001 per step"), turn, line("Now: 1.49896228"),
                               line("Velocity factor v/c = 1/KU: 0.667") }));
        QCOMPARE(shownOn(probe().V_offset_button()).mid(3),
                 (QStringList{ line("From -256 to 256 levels, one level per step"), turn,
                               line("Now: 9") }));
        window.H_Offset_change(20);
        const QStringList shift = shownOn(probe().H_offset_button()).mid(4);
        QCOMPARE(shift.first(), turn);
        QVERIFY(shift.last().startsWith(QLatin1String("Now: 2.50000")));
        QVERIFY(shift.last().endsWith(QLatin1String(" = 25 ns")));
        const QStringList scale = shownOn(probe().scale_button()).mid(3);
        QCOMPARE(scale[0], line("From 31.25 m to 8000 m; each step doubles or halves it"));
        QCOMPARE(scale[1], line("Steps per turn of the dial: 8"));
        QVERIFY(scale[2].endsWith(QLatin1String(" = 625 ns")));
        for (ParamButton *button :
             { probe().KU_button(), probe().V_offset_button(), probe().scale_button() }) {
            button->click();
            QCOMPARE(shownOn(probe().param_dial()).mid(2), shownOn(button).mid(3));
        }
        QTest::mouseClick(probe().selected_rfg()[4], Qt::LeftButton);
        for (QWidget *button : { probe().V_offset_button(), probe().H_offset_button() })
            QCOMPARE(shownOn(button).mid(3),
                     QStringList{ line("Nothing to shift: no trace in this slot") });
    }

    void tooltipChangesNothing()
    {
        MainWindow &window = openThree();
        WindowFixture::settle();
        const QStringList before = stateOf(window);
        const auto widgets = window.findChildren<QWidget *>();
        for (QWidget *widget : widgets)
            if (widget->window() == &window)
                rest(widget);
        // The label of the tooltip is a child of the window while it is visible.
        cleanup();
        WindowFixture::settle();
        QCOMPARE(stateOf(window), before);
        QCOMPARE(window.findChildren<QWidget *>(), widgets);
    }
};

QTEST_MAIN(TestExtrasTooltips)
#include "tst_extras_tooltips.moc"
