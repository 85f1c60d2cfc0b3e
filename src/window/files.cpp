// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow.h"

#include "base/program_files.h"
#include "calc/tdr_record.h"
#include "dictionary.h"
#include "legendbutton.h"
#include "settingsdata.h"

#include <QButtonGroup>
#include <QDataStream>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLocale>
#include <QPushButton>

using Protocol_VX840::TDR_FILE_t;

namespace {

constexpr int slotMask = 63; ///< one bit per trace slot

} // namespace

bool MainWindowState::isSlot(int id)
{
    return id >= 0 && id < constants::slotCount;
}

bool MainWindowState::isLoaded(int id) const
{
    return isSlot(id) && checkbit(rfg_read_index, id);
}

int MainWindowState::stepOf(int id) const
{
    return calc::usableStep(rfg_DATA[id].coef_from_min);
}

bool MainWindowState::masterExists() const
{
    // Not master_is_set: it is still false while setMasterID draws the differences.
    return isSlot(rfg_master_ID);
}

bool MainWindowState::drawsDifferences() const
{
    return diff_flag == MainWindowModes::DIFF && masterExists();
}

bool MainWindowState::isDrawnAsDifference(int id) const
{
    return drawsDifferences() && id != rfg_master_ID;
}

int MainWindowState::cursorStep() const
{
    if (!masterExists())
        return 1;
    const bool selectedCounts = diff_flag == MainWindowModes::NORMAL && isLoaded(rfg_ID);
    return stepOf(selectedCounts ? rfg_ID : rfg_master_ID);
}

bool MainWindow::read_rfg_DATA(const QString &path, int id)
{
    if (!isSlot(id))
        return false;
    QFile file(path);
    if (!program_files::openRegularFile(file))
        return false;
    QByteArray bytes(static_cast<int>(sizeof(TDR_FILE_t)), Qt::Uninitialized);
    QDataStream stream(&file);
    stream.setByteOrder(QDataStream::LittleEndian);
    const int size = stream.readRawData(
        bytes.data(), static_cast<int>(program_files::lengthToRead(file, bytes.size())));

    rfg_SHOWN &trace = rfg_DATA[id];
    // A short file overwrites the start of the record; the rest keeps the previous trace's bytes.
    // No error is shown: a partial trace is more useful in the field than a message box.
    calc::fillRecord(bytes.constData(), size, trace.f_p_840);
    const auto params = trace.f_p_840.ch.params;
    trace.coef_from_min = calc::countsPerSample(params.sample_minstep);
    trace.scroll = calc::initialScroll(params.shiftX, trace.coef_from_min);
    trace.offset = params.shiftY;
    trace.date = calc::measurementDate(trace.f_p_840);
    trace.time = calc::measurementTime(trace.f_p_840);

    const QFileInfo info(path);
    trace.full_path = path;
    trace.dir_name = info.dir().dirName();
    trace.file_name = info.baseName();
    trace.name = slotTitle(id);
    return true;
}

void MainWindow::files_slot()
{
    const QStringList chosen = QFileDialog::getOpenFileNames(
        this, tr("Select RFG files to open"), settingsData->last_folder, tr("rfg (*.tdr)"), nullptr,
        QFileDialog::ReadOnly);
    if (!chosen.isEmpty())
        openFiles(chosen);
}

void MainWindow::openFiles(const QStringList &files)
{
    const QStringList taken = files.mid(0, constants::slotCount);
    rfg_read_index = 0;
    for (int slot = 0; slot < taken.size(); ++slot) {
        rfg_read_index = setbit(rfg_read_index, slot);
        settingsData->current_files[slot] = taken[slot];
    }
    settingsData->last_folder = QFileInfo(taken.last()).path();
    settingsData->read_index = rfg_read_index;
    show_AllSelected_RFGs(rfg_read_index);
}

void MainWindow::show_AllSelected_RFGs(state_index mask)
{
    rfg_read_index = mask & slotMask;
    for (int slot = 0; slot < constants::slotCount; ++slot)
        if (isLoaded(slot)) {
            // The result is ignored: a trace whose file is gone keeps its slot.
            read_rfg_DATA(settingsData->current_files[slot], slot);
            load_rfg(slot);
        } else {
            rfg_DATA[slot].coef_from_min = 1;
        }
    for (int slot = 0; slot < constants::slotCount; ++slot) {
        RFG_visibleToggle(slot, isLoaded(slot));
        selected_rfg[slot]->menuEnable(isLoaded(slot));
        setRfgButtonText(slot);
    }
    if (rfg_read_index == 0) {
        master_is_set = false;
        selectTrace(0);
        return;
    }
    const int former = rfg_master_ID;
    rfg_master_ID = settingsData->master_ID;
    master_is_set = false;
    rfg_ID = isSlot(rfg_master_ID) ? rfg_master_ID : 0;
    // setMasterID does not know the former master, so the former mark is removed here.
    if (former != rfg_ID)
        unmarkMaster(former);
    setMasterID(rfg_ID);
    selectTrace(rfg_ID);
}

void MainWindow::loadSingle_slot(int id)
{
    const QString file = QFileDialog::getOpenFileName(this, tr("Select RFG file to open"),
                                                      settingsData->last_folder, tr("rfg (*.tdr)"),
                                                      nullptr, QFileDialog::ReadOnly);
    if (!file.isEmpty())
        openFile(file, id);
}

void MainWindow::openFile(const QString &file, int id)
{
    settingsData->last_folder = QFileInfo(file).path();
    add_Selected_RFG(file, id);
}

void MainWindow::add_Selected_RFG(const QString &path, int id)
{
    if (!isSlot(id))
        return;
    read_rfg_DATA(path, id);
    rfg_read_index = setbit(rfg_read_index, id);
    settingsData->current_files[id] = rfg_DATA[id].full_path;
    settingsData->read_index = rfg_read_index;
    selected_rfg[id]->menuEnable(true);
    RFG_visibleToggle(id, true);
    setRfgButtonText(id);
    if (id == rfg_master_ID || !master_is_set)
        setMasterID(id);
    redraw(id);
    rfgSelect_slot(rfg_ID);
}

void MainWindow::remove_Selected_RFG(int id)
{
    if (!isSlot(id))
        return;
    rfg_read_index = unsetbit(rfg_read_index, id);
    settingsData->read_index = rfg_read_index;
    rfg_DATA[id].coef_from_min = calc::countsPerSample(master_params.sample_minstep);
    selected_rfg[id]->menuEnable(false);
    RFG_visibleToggle(id, false);
    setRfgButtonText(id);
    const int lowest = firstbit(rfg_read_index);
    // Even when the slot of the master was already empty.
    if (!isSlot(lowest))
        master_is_set = false;
    else if (id == rfg_master_ID)
        setMasterID(lowest);
    // Also when no trace is left: the controls can still show values of the old master.
    if (id == rfg_ID || !isSlot(lowest))
        rfgSelect_slot(rfg_ID);
}

void MainWindow::resetCurrent_slot(int id)
{
    if (!isSlot(id))
        return;
    if (id == rfg_master_ID) {
        reset_slot();
        return;
    }
    // A copy: read_rfg_DATA assigns full_path.
    const QString path = rfg_DATA[id].full_path;
    read_rfg_DATA(path, id);
    load_rfg(id);
    if (id == rfg_ID)
        rfgSelect_slot(id);
}

void MainWindow::reset_slot()
{
    plotScroll(-viewRange().min);
    diff_flag = NORMAL;
    difference_button->setChecked(false);
    show_AllSelected_RFGs(rfg_read_index);
}

void MainWindow::write_rfg_DATA(int id)
{
    const QDir folder(qEnvironmentVariable(constants::developerFolderVariable));
    const QString name = folder.filePath(QStringLiteral("Velkor_add/data0%1.bin").arg(id));
    // Add-on data has no format yet, so nothing is opened.
    Q_UNUSED(name)
}

void MainWindow::parse_T_Name(int id)
{
    if (!isSlot(id))
        return;
    const auto date = rfg_DATA[id].f_p_840.ch.test_date;
    const auto time = rfg_DATA[id].f_p_840.ch.test_time;
    // Unlike elsewhere, the bytes are not decoded from BCD. This function is not called.
    const QDate day(date.RTC_Year + constants::centuryStart, date.RTC_Month, date.RTC_Date);
    const QTime clock(time.RTC_Hours, time.RTC_Minutes, time.RTC_Seconds);
    QAbstractButton *button = rfg_buttons->button(id);
    button->setEnabled(true);
    button->setText(tr("Date") + QLatin1Char(' ')
                    + QLocale::system().toString(day, QLocale::ShortFormat) + QLatin1Char('\n')
                    + tr("Time") + QLatin1Char(' ') + clock.toString(Qt::TextDate));
}
