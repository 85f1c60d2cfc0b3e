// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// \file
/// The window of the viewer, which owns all state. Each section below is implemented in the source
/// file named in its heading. Computations that need no widget are in calc/.

#include "calc/trace_points.h"
#include "calc/view_range.h"
#include "mainwindow_parts.h"
#include "mainwindow_state.h"

#include <QMainWindow>

class QAbstractButton;
class QMouseEvent;
class QWheelEvent;

/// Main window: a chart of up to six traces against distance, two cursors, two dials. Slots are
/// numbered 0 to 5; operations ignore other numbers unless they say otherwise. The horizontal unit
/// is the count, 1.25 ns of echo time; metres are counts times \c dist_coef.
class MainWindow : public QMainWindow,
                   public MainWindowModes,
                   private MainWindowParts,
                   private MainWindowState
{
    Q_OBJECT

public:
    // ---- Construction, start, close (mainwindow.cpp) ----
    /// Builds the window and restores the previous run from the settings file, traces included.
    /// Invalid content of that file is ignored.
    explicit MainWindow(QWidget *parent = nullptr);
    ~MainWindow() override;

    /// The live settings, owned by the window.
    SettingsData *settings() const;
    /// Writes the sizes of window, central widget, plot view and chart to the debug log.
    void reportSizes() const;
    const MainWindowParts &parts() const;
    const MainWindowState &state() const;

signals:
    /// Reserved for new data of slot \a id. Never emitted.
    void rfg_update(int id);

public slots:
    /// Restores window geometry and state from the settings. Damaged values, and a geometry of more
    /// than four times the size of the desktop, are ignored.
    void setWindowGeometry();
    /// Sets the speeds of both dials from the settings. A dial that sets the scale keeps its speed.
    void setDialSettings();

protected:
    /// Saves the settings. Before the first save, backs up the former settings file.
    void closeEvent(QCloseEvent *event) override;

private:
    void interface_init();
    void storeWindowGeometry();

    // ---- Controls (window/controls.cpp) ----
    void createControls();
    void createDialsAndDialogs();
    void createChartObjects();

    // ---- Layout, groups, icons, chart menu (window/layout.cpp) ----
    void setWindowSizes();
    void buildLayouts();
    void fillButtonGroups();
    void setUpDials();
    void buildChartMenu();
    void decorateControls();

    // ---- Wiring (window/wiring.cpp) ----
    void connectControls();
    void installEventFilters();
    /// Runs the settings dialog on its settings page.
    void openSettings();

    // ---- Texts (window/texts.cpp) ----
public slots:
    /// Sets every text from the current translation. May run twice for one language change.
    void retranslateUi();
    /// Sets the texts of the controls for an empty selected slot.
    void voidInterface();

private:
    void setParameterTexts();
    static void setCaption(QAbstractButton *button, const QString &word, const QString &value);
    static void setDialText(Cont_dial *dial, const QString &text);
    QString cursorReadout(const QString &name, const QString &distance, int level) const;
    QString scaleText() const;
    QString kuText() const;
    QString measurementDateText(int id) const;

    // ---- Style (window/style.cpp) ----
public slots:
    /// Applies the current style sheet, or none if it is refused. Makes the background of chart and
    /// scene near-black.
    void set_CSS();
    /// Makes the file at \a path the current style sheet; an unreadable file gives an empty one.
    /// Watches a replaced sheet again, and the folder of a missing one.
    void CSS_watcher_slot(const QString &path);

private:
    void watchStyleSheet();

    // ---- Trace slots (window/files.cpp) ----
public slots:
    /// Asks for trace files and opens them.
    void files_slot();
    /// Asks for one trace file for slot \a id.
    void loadSingle_slot(int id);
    /// Empties slot \a id. Its record stays; the bit in \c rfg_read_index is cleared.
    void remove_Selected_RFG(int id);
    /// Reads the slots of \a mask from the paths in the settings and empties the others. A slot
    /// whose file cannot be read keeps its old record.
    void show_AllSelected_RFGs(state_index mask);
    /// Reads slot \a id again, which drops its shifts. For the master, does \c reset_slot.
    void resetCurrent_slot(int id);
    /// Scrolls to count 0, leaves difference mode and reads every loaded slot again.
    void reset_slot();
    /// Shows date and time on the trace button of slot \a id, without decoding BCD. Unused.
    void parse_T_Name(int id);

public:
    /// Reads the file \a path into slot \a id. False, and the slot unchanged, when it is no regular
    /// file or cannot be opened. A short file overwrites the start of the record.
    bool read_rfg_DATA(const QString &path, int id);
    /// Reads the file \a path into slot \a id. Marks the slot as loaded even when that fails.
    void add_Selected_RFG(const QString &path, int id);
    /// Opens \a file in slot \a id; file dialogs then start in its folder.
    void openFile(const QString &file, int id);
    /// Opens the first six of \a files, at least one, from slot 0 on and empties the other slots.
    void openFiles(const QStringList &files);
    /// Reserved for add-on data of slot \a id. Opens nothing.
    void write_rfg_DATA(int id);

    // ---- Selection, visibility, master (window/selection.cpp) ----
public slots:
    /// Selects slot \a id: shows its parameters and title, raises its series.
    void rfgSelect_slot(int id);
    /// Shows or hides the trace of slot \a id and sets the icon of its button.
    void RFG_visibleToggle(int id, bool visible);
    /// Makes slot \a id the master; a number that is no slot means slot 0. The record of the slot
    /// sets scale, view range and KU.
    void setMasterID(int id);
    /// Opens the menu of slot \a id at the corner of its button.
    void rfgMenuRequested_slot(int id);

public:
    /// Slot of the master; -1 before the first one.
    int getMasterID() const;
    /// Raises the series of the selected slot above all but the cursors and makes their pens thick.
    void seriaIsSelected();
    /// The name of slot \a id: "RFG 1".
    QString slotTitle(int id) const;
    /// Sets text and name of the trace button of slot \a id.
    void setRfgButtonText(int id);
    /// Shows or hides slot \a id and, if it is the master, chooses the master again.
    void addremove_aux(int id, bool shown);
    /// Reserved for a legend text; always empty.
    QString rfgLegend(int id) const;

private:
    void selectTrace(int id);
    void unmarkMaster(int id);

    // ---- Chart (window/chart.cpp) ----
public slots:
    /// Draws traces as splines through their samples, or as steps.
    void setSmoothFlag(bool on);
    /// Draws every trace except the master as its difference from the master.
    void setDiff_flag(bool on);

public:
    /// Computes the points of slot \a id and sets them in its visible series.
    void load_rfg(int id);
    /// Raises \a series above all others.
    void seriesUp(QtCharts::QXYSeries *series);
    /// The trace of slot \a id as it is drawn. Refers to the record of the slot.
    calc::TraceRef traceRef(int id) const;
    /// Distance text of \a count counts at the current KU: "1.00 m".
    QString count_to_distance(int count) const;
    /// Text of a level; empty for 129, which means "no level".
    QString count_to_level(int level) const;

private:
    void buildChart();
    /// Draws slot \a id after a change of its samples or shifts; all traces if they depend on it.
    void redraw(int id);
    /// Draws the traces of all loaded slots again.
    void redrawLoaded();

    // ---- Axes, grid, title (window/axes.cpp) ----
public:
    /// Adds grid lines and labels to the scene, below the traces. Called once.
    void axisCreate();
    /// Places the grid in \a plot and its labels under it in \a chart, both in scene coordinates.
    void axisSetup(QRectF plot, QRectF chart);
    /// Shows the grid lines and labels of the view range.
    void setXAxis();

private:
    void setChartFonts();
    QRectF plotInScene() const;

    // ---- View range: scale, scroll, shifts, KU (window/range.cpp) ----
public slots:
    /// Scrolls by \a step counts. A step past an end is refused.
    void plotScroll(int step);
    /// Sets the zoom exponent, clamped to 0..8, and shows 250 * 2^exponent counts from count 0 on.
    void scale_change(int scaleN);
    /// Sets the horizontal shift of the selected trace: \a value counts, clamped to -64000..64000
    /// and truncated to whole samples.
    void H_Offset_change(int value);
    /// Sets the vertical shift of the selected trace in levels, clamped to -256..256.
    void V_Offset_change(int value);
    /// Sets KU (speed of light over speed in the cable), clamped to 1..10. NaN counts as 1.
    void KU_change(double ku);

public:
    /// Shows the counts from \a min to \a max.
    void setPlotRange(int min, int max);
    /// Resizes the chart until its plot is \c trueWidth pixels wide. Unused.
    void plotCorrection();

private:
    void showScale();
    void zoomAtCursor(int scaleN);
    void updateStepLabel();
    calc::Range viewRange() const;
    int checkedParameter() const;

    // ---- Parameters (window/params.cpp) ----
public slots:
    /// Assigns the parameter dial to parameter \a id. A read-only parameter leaves the dial as is.
    void paramSelect_slot(int id);
    /// Sets the checked parameter to the dial value \a x.
    void paramSetup_slot(int x);

public:
    /// Sets the caption of the parameter dial. In an empty slot only KU and scale show \a value.
    void setParamDialText(const QString &title, const QString &value);

    // ---- Cursors (window/cursors.cpp) ----
public slots:
    /// Moves the active cursor to \a column counts, clamped to the chart and rounded down to a
    /// sample of the selected trace. Does nothing in delta mode.
    void cursorSetup_slot(int column);
    /// Makes cursor \a mode the active one: 1 is A, 2 is B, any other number none.
    void cursorSelect_slot(int mode);

public:
    /// Writes the readouts of the active cursor.
    void cursorInfo_update();
    /// Updates both cursors after a change of the data, the active one last.
    void cursors_update();
    /// Centres the view on cursor \a which, as far as the ends allow; on count 0 for other numbers.
    void gotoCursor(int which);
    /// True when cursor \a which lies in the view range.
    bool isCursor_visible(int which) const;
    void setCursorDialText(const QString &text);
    /// Places the step label in the top right corner of the plot.
    void set_cur_step_lbl();
    /// Column of cursor \a which in counts; 0 for any other number.
    int cursorPosition(int which) const;

private:
    /// As \c cursorSetup_slot, but keeps the drawing order.
    void moveCursor(int column);
    /// Series of both cursors in drawing order, the active one last. None in delta mode.
    QVector<QtCharts::QXYSeries *> cursorSeries() const;

    // ---- Input (window/input.cpp) ----
public:
    /// Handles events of the chart and of some controls. Consumes none.
    bool eventFilter(QObject *watched, QEvent *event) override;
    /// Moves the active cursor by \a notches samples: those of the selected trace, or in difference
    /// mode of the master if its step is larger.
    void cursorWheel(int notches);
    /// Changes the checked parameter by \a notches; a notch of the horizontal shift is one sample.
    void paramWheel(int notches);

private:
    void filterViewport(QEvent *event);
    void filterControls(QObject *watched, QEvent *event);
    void scaleInterface();
    void plotMouseMove(const QMouseEvent *event);
    void plotMousePress(const QMouseEvent *event);
    void plotWheel(const QWheelEvent *event);

    // ---- Entry dialogs (window/dialogs.cpp) ----
public:
    /// Asks for the value that \a button shows. Does nothing for a control without an entry dialog.
    void openEntryDialog(const QObject *button);

private:
    friend class MainWindowProbe;
    QWidget *centralWidget = nullptr; ///< hides QMainWindow::centralWidget()
};
