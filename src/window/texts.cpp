// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow.h"

#include "calc/readout.h"
#include "cont_dial.h"
#include "dictionary.h"
#include "interfacebutton.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "settingsmenu.h"

#include <QAction>
#include <QInputDialog>
#include <QLabel>
#include <QLocale>
#include <QPushButton>

namespace {

void nameDialogButtons(const MainWindowParts &parts)
{
    parts.input_dialog->setOkButtonText(parts.d->OK_STR);
    parts.input_dialog->setCancelButtonText(parts.d->CANCEL_STR);
}

void retranslateButtons(const MainWindowParts &parts)
{
    parts.legend_button->setText(parts.d->FILES_STR + QStringLiteral("..."));
    parts.settings_button->setText(parts.d->SETTINGS_STR + QStringLiteral("..."));
    parts.settingsMenu->retranslateUI();
    parts.difference_button->setText(parts.d->DIFF_MODE_STR);
    parts.smooth_button->setText(MainWindow::tr("Smooth"));
    parts.reset_all_button->setText(MainWindow::tr("Reset All"));
    nameDialogButtons(parts);
    // Repeated after the queued LanguageChange event, on which the dialog sets the untranslated
    // texts of Qt.
    QMetaObject::invokeMethod(
        parts.input_dialog, [&parts] { nameDialogButtons(parts); }, Qt::QueuedConnection);
    parts.curA_nav_button->setText(QStringLiteral("A"));
    parts.curB_nav_button->setText(QStringLiteral("B"));
    parts.curA_action->setText(parts.d->CURSOR_A_STR);
    parts.curB_action->setText(parts.d->CURSOR_B_STR);
    parts.cur_wheel_action->setText(parts.d->CURSORS_MOVE_STR);
    parts.scale_wheel_action->setText(parts.d->SCALE_CHG_STR);
}

} // namespace

void MainWindow::retranslateUi()
{
    d->setStrings();
    retranslateButtons(*this);
    // The names of the slots contain the word "RFG".
    for (int slot = 0; slot < constants::slotCount; ++slot)
        rfg_DATA[slot].name = slotTitle(slot);

    if (rfg_read_index != 0)
        rfgSelect_slot(rfg_ID);
    else
        voidInterface();
    for (int slot = 0; slot < constants::slotCount; ++slot) {
        setRfgButtonText(slot);
        selected_rfg[slot]->retranslateUI();
    }
    // The title of an empty slot is the name of its button, which has just been translated.
    if (!isLoaded(rfg_ID))
        rfgSelect_slot(rfg_ID);
}

void MainWindow::voidInterface()
{
    curA_button->setText(
        cursorReadout(d->CURSOR_A_STR, count_to_distance(cursor_A_pos), constants::noLevel));
    curB_button->setText(
        cursorReadout(d->CURSOR_B_STR, count_to_distance(cursor_B_pos), constants::noLevel));

    gain_button->setText(d->GAIN_STR);
    average_button->setText(d->AVERAGE_STR);
    V_offset_button->setText(d->V_OFFSET_STR);
    pulse_width_button->setText(d->PULSE_W_STR);
    pulse_amplitude_button->setText(d->PULSE_A_STR);
    impedance_button->setText(d->IMPEDANCE_STR);
    H_offset_button->setText(d->H_OFFSET_STR);
    setCaption(KU_button, d->KU_STR, kuText());
    setCaption(scale_button, d->SCALE_STR, scaleText());

    delta_lbl->setText(d->DELTA_STR + QStringLiteral(" = ") + count_to_distance(0));
}

void MainWindow::setParameterTexts()
{
    const rfg_SHOWN &trace = rfg_DATA[rfg_ID];
    // Copied, because fields of a packed record must not be bound to references.
    const Protocol_VX840::CH_PARAMS_t params = trace.f_p_840.ch.params;
    setCaption(gain_button, d->GAIN_STR, QString::number(int{ params.gain }));
    setCaption(KU_button, d->KU_STR, kuText());
    setCaption(average_button, d->AVERAGE_STR, QString::number(int{ params.average }));
    setCaption(V_offset_button, d->V_OFFSET_STR, QString::number(trace.offset));
    setCaption(pulse_width_button, d->PULSE_W_STR,
               QString::number(quint32{ params.pulse_width }) + d->TIME_SUFFIX_STR);
    setCaption(pulse_amplitude_button, d->PULSE_A_STR,
               QString::number(int{ params.pulse_amplitude }) + d->VOLTAGE_SUFFIX_STR);
    setCaption(impedance_button, d->IMPEDANCE_STR, QString::number(int{ params.impedance }));
    setCaption(H_offset_button, d->H_OFFSET_STR, count_to_distance(trace.scroll));
    setCaption(scale_button, d->SCALE_STR, scaleText());
}

void MainWindow::setCaption(QAbstractButton *button, const QString &word, const QString &value)
{
    button->setText(word + QLatin1Char('\n') + value);
}

void MainWindow::setDialText(Cont_dial *dial, const QString &text)
{
    // Not setText: it repaints at once, with all pending updates of the plot. The scene would then
    // lose the former places of its moved items.
    if (dial->titleText == text)
        return;
    dial->titleText = text;
    dial->update();
}

QString MainWindow::cursorReadout(const QString &name, const QString &distance, int level) const
{
    return QStringLiteral("%1\n x = %2\n y = %3").arg(name, distance, count_to_level(level));
}

QString MainWindow::scaleText() const
{
    // "m" in every language: the caption is a scale mark of the instrument, not a distance.
    return calc::scaleText(scale_dist);
}

QString MainWindow::kuText() const
{
    return calc::kuText(master_params.KU);
}

QString MainWindow::slotTitle(int id) const
{
    return d->RFG_STR + QStringLiteral(" %1").arg(id + 1);
}

QString MainWindow::measurementDateText(int id) const
{
    return QLocale::system().toString(rfg_DATA[id].date, QLocale::ShortFormat);
}
