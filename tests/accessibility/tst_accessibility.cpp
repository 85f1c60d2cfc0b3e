// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "accessibility/accessibility.h"
#include "cont_dial.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "settingsmenu.h"
#include "window_actions.h"
#include "window_state.h"
#include "windowtest.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QInputDialog>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QtTest>

namespace {

QAccessibleInterface *interfaceOf(QObject *control)
{
    QAccessibleInterface *found = QAccessible::queryAccessibleInterface(control);
    if (found == nullptr)
        qFatal("no accessible interface of a %s", control->metaObject()->className());
    return found;
}

QString nameOf(QObject *control)
{
    return interfaceOf(control)->text(QAccessible::Name);
}

/// The label as a screen reader finds it: by the relation to a label if there is one, else the
/// name.
QString labelOf(QObject *control)
{
    const auto relations = interfaceOf(control)->relations(QAccessible::Label);
    for (const auto &relation : relations)
        return relation.first->text(QAccessible::Name);
    return nameOf(control);
}

QString descriptionOf(QObject *control)
{
    return interfaceOf(control)->text(QAccessible::Description);
}

/// Name and description, as a screen reader reads them, without line breaks.
QString readOut(QObject *control)
{
    return (nameOf(control) + QLatin1String(" | ") + descriptionOf(control)).simplified();
}

} // namespace

/// Names, descriptions and actions of the window and its controls for a screen reader.
class TestAccessibility : public WindowTest
{
    Q_OBJECT

private:
    void openAndAttach()
    {
        openOn({ TraceBuilder().samples(17).ku(1.5F), TraceBuilder().date(2025, 7, 9) });
        accessibility::attach(window());
    }
    /// All visible controls and labels of the window.
    QVector<QWidget *> controls() const
    {
        QVector<QWidget *> found;
        const auto all = probe().centralWidget()->findChildren<QWidget *>();
        for (QWidget *widget : all)
            if (widget->isVisible() && widget != viewport()
                && (widget->focusPolicy() != Qt::NoFocus || qobject_cast<QLabel *>(widget)))
                found.append(widget);
        return found;
    }
    /// The settings dialog after it is shown, with its focus.
    QImage pictureOfSettings() const
    {
        QDialog *dialog = probe().settingsMenu();
        dialog->show();
        WindowFixture::settle();
        QImage picture = dialog->grab().toImage();
        dialog->hide();
        return picture;
    }

private slots:
    // tst_screen_reader tests the texts of each control at the start.
    void readingsFollowTheWindow()
    {
        openAndAttach();
        window().cursorSetup_slot(16);
        QCOMPARE(readOut(probe().curA_button()), QStringLiteral("Cursor A x = 2.00 m y = 17 |"));
        QCOMPARE(readOut(probe().delta_lbl()),
                 QString::fromUtf8("Δ = 2.00 m | Distance between the cursors"));
        QCOMPARE(readOut(probe().cursor_dial()), QStringLiteral("Cursor A 2.00 m | Cursor dial"));
        const QString plot = readOut(probe().Plot_View());
        QVERIFY(plot.startsWith(probe().chart_title().text()));
        QVERIFY(plot.endsWith(probe().cursor_step_lbl().text() + QLatin1String(" | Plot")));
        // The plot is one accessible object.
        QCOMPARE(interfaceOf(probe().Plot_View())->childCount(), 0);
        QVERIFY(interfaceOf(probe().Plot_View())->child(0) == nullptr);
    }

    void everyControlHasAName()
    {
        openAndAttach();
        auto all = controls();
        QCOMPARE(all.size(), 35);
        const auto inDialog = probe().settingsMenu()->findChildren<QWidget *>();
        for (QWidget *control : inDialog)
            if ((qobject_cast<QAbstractButton *>(control) || qobject_cast<QComboBox *>(control)
                 || qobject_cast<QSpinBox *>(control))
                // The arrows of the tabs are never in use.
                && !control->objectName().startsWith(QLatin1String("Scroll")))
                all.append(control);
        QCOMPARE(all.size(), 35 + 16);
        for (const char *language : { "en_US", "ru_RU", "es_ES" }) { // the last has no texts
            setLanguage(language);
            for (QWidget *control : std::as_const(all))
                QVERIFY2(!nameOf(control).trimmed().isEmpty(), control->metaObject()->className());
        }
    }

    void editorsHaveAName()
    {
        openAndAttach();
        const MainWindowProbe &p = probe();
        for (const char *language : { "en_US", "ru_RU" }) {
            setLanguage(language);
            // Each kind of editor follows each other kind, because the dialog is always the same
            // object.
            for (QPushButton *button : QVector<QPushButton *>{
                     p.KU_button(), p.V_offset_button(), p.scale_button(), p.H_offset_button(),
                     p.V_offset_button(), p.scale_button(), p.curB_button() }) {
                QString title;
                QStringList labels;
                answerEntry(button, [&](QInputDialog &dialog) {
                    title = dialog.windowTitle();
                    const auto widgets = dialog.findChildren<QWidget *>();
                    for (QWidget *editor : widgets)
                        if (editor->isVisible()
                            && (qobject_cast<QAbstractSpinBox *>(editor)
                                || qobject_cast<QComboBox *>(editor)))
                            labels.append(labelOf(editor));
                });
                QCOMPARE(labels.size(), 1);
                QVERIFY2(labels.first().startsWith(title)
                             && labels.first().contains(QLatin1String(" : [")),
                         qPrintable(labels.first()));
            }
        }
    }

    void textsFollowTheLanguage()
    {
        openAndAttach();
        QStringList english;
        const auto all = controls();
        for (QWidget *control : all)
            english.append(readOut(control));
        setLanguage("ru_RU");
        for (int i = 0; i < all.size(); ++i)
            QVERIFY2(readOut(all.at(i)) != english.at(i), qPrintable(english.at(i)));
        QCOMPARE(readOut(probe().legend_button()), QStringLiteral("Открыть файлы рефлектограмм |"));
        QVERIFY(
            readOut(probe().delta_lbl()).endsWith(QStringLiteral("| Расстояние между курсорами")));
        QCOMPARE(labelOf(probe().settingsMenu()->language_select), QStringLiteral("Язык"));
        setLanguage("en_US");
        for (int i = 0; i < all.size(); ++i)
            QCOMPARE(readOut(all.at(i)), english.at(i));
    }

    void descriptionOfATraceNamesHiddenAndMaster()
    {
        openAndAttach();
        LegendButton *first = probe().selected_rfg()[0];
        LegendButton *second = probe().selected_rfg()[1];
        window().show_AllSelected_RFGs(1);
        QCOMPARE(descriptionOf(second), QStringLiteral("Trace 2"));
        window().show_AllSelected_RFGs(3);
        second->visible_action->trigger();
        QCOMPARE(descriptionOf(second), QStringLiteral("Trace 2, hidden"));
        second->visible_action->trigger();
        second->master_action->trigger();
        QCOMPARE(descriptionOf(second), QStringLiteral("Trace 2, master"));
        QCOMPARE(descriptionOf(first), QStringLiteral("Trace 1"));
        second->clear_action->trigger();
        QCOMPARE(descriptionOf(second), QStringLiteral("Trace 2"));
        QCOMPARE(descriptionOf(first), QStringLiteral("Trace 1, master"));
    }

    void buttonIsPressedByItsAccessibleAction()
    {
        openAndAttach();
        const auto act = [](QObject *button, const QString &action) {
            interfaceOf(button)->actionInterface()->doAction(action);
            WindowFixture::settle();
        };
        act(probe().smooth_button(), QAccessibleActionInterface::toggleAction());
        QVERIFY(probe().smooth_rfg_flag());
        act(probe().scale_up_button(), QAccessibleActionInterface::pressAction());
        QCOMPARE(probe().master_scale(), 1);
    }

    void dialIsSetByItsAccessibleValueWithinItsLimits()
    {
        openAndAttach();
        QAccessibleValueInterface *dial = interfaceOf(probe().cursor_dial())->valueInterface();
        QCOMPARE(dial->minimumValue().toInt(), probe().cursor_dial()->trueMin);
        QCOMPARE(dial->maximumValue().toInt(), probe().cursor_dial()->trueMax);
        QCOMPARE(dial->minimumStepSize().toInt(), 1);
        dial->setCurrentValue(24);
        QCOMPARE(probe().cursor_A_pos(), 24);
        QCOMPARE(dial->currentValue().toInt(), 24);
        dial->setCurrentValue(-5);
        QCOMPARE(probe().cursor_A_pos(), 0);
        const Cont_dial &shift = *probe().param_dial();
        for (const int limit : { shift.trueMin, shift.trueMax }) {
            interfaceOf(probe().param_dial())->valueInterface()->setCurrentValue(2 * limit);
            QCOMPARE(shift.trueValue, limit);
        }
    }

    void attachingChangesNeitherPictureNorState()
    {
        openOn({ TraceBuilder().samples([](int i) { return i % 90; }), TraceBuilder() });
        for (const char *language : { "en_US", "ru_RU" }) {
            fixture->open();
            setLanguage(language);
            WindowFixture::settle();
            const QImage without = freshPictureOf(window());
            const QStringList state = stateOf(window());
            const QImage dialog = pictureOfSettings();
            accessibility::attach(window());
            WindowFixture::settle();
            QCOMPARE(freshPictureOf(window()), without);
            QCOMPARE(stateOf(window()), state);
            QCOMPARE(pictureOfSettings(), dialog);
        }
    }
};

QTEST_MAIN(TestAccessibility)
#include "tst_accessibility.moc"
