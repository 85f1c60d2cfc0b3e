// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow.h"

#include "base/bundled_picture.h"
#include "calc/tdr_record.h"
#include "calc/view_range.h"
#include "dictionary.h"
#include "legendbutton.h"
#include "serieslayer.h"
#include "settingsdata.h"

#include <QButtonGroup>
#include <QMenu>

QT_CHARTS_USE_NAMESPACE

namespace {

constexpr double thinTracePen = 1.0; ///< width of the traces that are not selected
constexpr QLatin1String slotIcon = constants::latin1("://icons/canal_64/canal_%1");
constexpr QLatin1String masterSlotIcon = constants::latin1("://icons/canal_64/canal_%1M");
constexpr QLatin1String hiddenSlotIcon = constants::latin1("://icons/canal_64/Canal_Disabled");

void setSlotIcon(LegendButton *button, bool isVisible, bool isMaster)
{
    QString path = isMaster ? masterSlotIcon : slotIcon;
    path = isVisible ? path.arg(button->id + 1) : QString(hiddenSlotIcon);
    button->setIcon(QIcon(bundledPicture(path)));
}

} // namespace

void MainWindow::rfgSelect_slot(int id)
{
    if (!isSlot(id))
        return;
    rfg_ID = id;
    updateStepLabel();
    if (isLoaded(id)) {
        seriaIsSelected();
        const rfg_SHOWN &trace = rfg_DATA[id];
        chart_title.setText(trace.file_name + QStringLiteral(", /") + trace.dir_name
                            + QStringLiteral(", ") + measurementDateText(id) + QLatin1Char(' ')
                            + trace.time.toString(Qt::TextDate));
        setParameterTexts();
    } else {
        voidInterface();
        chart_title.setText(selected_rfg[id]->name);
    }
    paramSelect_slot(checkedParameter());
    cursors_update();
}

void MainWindow::selectTrace(int id)
{
    // Checking the button selects the slot. A button that is checked already emits no signal.
    QAbstractButton *button = rfg_buttons->button(id);
    if (button->isChecked())
        rfgSelect_slot(id);
    else
        button->setChecked(true);
}

void MainWindow::seriaIsSelected()
{
    for (int slot = 0; slot < constants::slotCount; ++slot)
        for (QXYSeries *series : { static_cast<QXYSeries *>(rfg_series[slot]),
                                   static_cast<QXYSeries *>(rfg_series_sp[slot]) }) {
            QPen pen = series->pen();
            pen.setWidthF(slot == rfg_ID ? constants::tracePen : thinTracePen);
            series->setPen(pen);
        }
    // Raised together with the cursors, so that selecting the same slot again changes no order.
    seriesLayer->raise(QVector<QXYSeries *>{ rfg_series[rfg_ID], rfg_series_sp[rfg_ID] }
                       + cursorSeries());
}

void MainWindow::setRfgButtonText(int id)
{
    if (!isSlot(id))
        return;
    const QString title = slotTitle(id);
    QString text = title + QLatin1Char('\n') + d->EMPTY_STR;
    selected_rfg[id]->date.clear();
    if (isLoaded(id)) {
        const QString name = rfg_DATA[id].name;
        selected_rfg[id]->date = measurementDateText(id);
        // The name is empty when the file was never read.
        text = (name.isEmpty() ? title : name) + QLatin1Char('\n') + selected_rfg[id]->date;
    }
    rfg_buttons->button(id)->setText(text);
    selected_rfg[id]->setName(title);
}

void MainWindow::RFG_visibleToggle(int id, bool visible)
{
    if (!isSlot(id))
        return;
    if (smooth_rfg_flag)
        rfg_series_sp[id]->setVisible(visible);
    else
        rfg_series[id]->setVisible(visible);
    setSlotIcon(selected_rfg[id], visible, id == rfg_master_ID);
    selected_rfg[id]->setVis(visible);
}

void MainWindow::setMasterID(int id)
{
    const int previous = rfg_master_ID;
    rfg_master_ID = isSlot(id) ? id : 0;
    if (rfg_master_ID == previous && master_is_set)
        return;
    if (previous != rfg_master_ID)
        unmarkMaster(previous);
    LegendButton *button = selected_rfg[rfg_master_ID];
    button->setMast(true);
    setSlotIcon(button, button->vis(), true);
    settingsData->master_ID = static_cast<signed char>(rfg_master_ID);

    const auto params = rfg_DATA[rfg_master_ID].f_p_840.ch.params;
    const float formerKU = master_params.KU;
    master_params.sample_minstep = params.sample_minstep;
    for (int slot = 0; slot < constants::slotCount; ++slot)
        if (!isLoaded(slot))
            rfg_DATA[slot].coef_from_min = calc::countsPerSample(params.sample_minstep);
    if (diff_flag == DIFF)
        redrawLoaded();

    const int exponent = calc::exponentForMinstep(params.sample_minstep);
    const calc::Range range = calc::rangeFromDelay(params.delay, calc::clampedScale(exponent));
    // Not scale_change: it would first show the range from count 0.
    master_scale = calc::clampedScale(exponent);
    setPlotRange(range.min, range.max);
    showScale();
    // A record of zeros has the same KU as master_params at the start; without the second test
    // dist_coef would stay 0.
    if (!(params.KU == formerKU) || !(dist_coef > 0.0))
        KU_change(double{ params.KU });
    master_is_set = true;
}

int MainWindow::getMasterID() const
{
    return rfg_master_ID;
}

void MainWindow::unmarkMaster(int id)
{
    // -1 before the first master; the settings can give any other number.
    if (!isSlot(id))
        return;
    selected_rfg[id]->setMast(false);
    // setMast(false) enables "Set as Master", which an empty slot must not offer.
    selected_rfg[id]->menuEnable(isLoaded(id));
    setSlotIcon(selected_rfg[id], selected_rfg[id]->vis(), false);
}

void MainWindow::addremove_aux(int id, bool shown)
{
    if (!isSlot(id))
        return;
    RFG_visibleToggle(id, shown);
    setRfgButtonText(id);
    if (id == rfg_master_ID)
        setMasterID(shown ? id : firstbit(rfg_read_index));
}

void MainWindow::rfgMenuRequested_slot(int id)
{
    if (!isSlot(id))
        return;
    QMenu *menu = selected_rfg[id]->contextMenu;
    menu->setFont(font());
    menu->exec(mapToGlobal(selected_rfg[id]->geometry().topRight()));
}

QString MainWindow::rfgLegend(int id) const
{
    Q_UNUSED(id)
    return {};
}
