// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// \file
/// The one window of the viewer. It owns all state and every named operation; each operation has
/// one room, a source file of its own:
///
/// | File | Room |
/// |---|---|
/// | mainwindow.cpp | construction as a list of steps, start, close, geometry, dial settings |
/// | window/controls.cpp | the controls themselves, created in a fixed order |
/// | window/layout.cpp | groups and ids, layouts, icons, chart menu |
/// | window/wiring.cpp | every connection and event filter |
/// | window/texts.cpp | retranslation and captions built in more than one place |
/// | window/style.cpp | style sheet and its watcher |
/// | window/files.cpp | trace slots: reading, loading, emptying, resetting |
/// | window/selection.cpp | selected trace, visibility, master |
/// | window/chart.cpp | chart construction, trace points, smoothing, difference, raising |
/// | window/axes.cpp | grid lines, labels, title |
/// | window/range.cpp | scale, scroll, shifts, velocity factor |
/// | window/params.cpp | parameter selection, parameter dial |
/// | window/cursors.cpp | cursor model, readouts, going to a cursor |
/// | window/input.cpp | the event filter and one handler per watched object and event |
/// | window/dialogs.cpp | the entry dialogs that a right click opens |
///
/// What can be computed without a widget is in calc/.

#include "calc/cursor_level.h"
#include "calc/trace_points.h"
#include "mainwindow_parts.h"
#include "mainwindow_state.h"

#include <QMainWindow>

class QAbstractButton;
class QMouseEvent;
class QWheelEvent;

/// The viewer's window: six trace slots over one another on a chart against distance, two cursors,
/// two dials. Slots are numbered 0 to 5; operations ignore other numbers unless they say otherwise.
/// The horizontal unit is the count, 1.25 ns of echo time; metres are counts times \c dist_coef.
class MainWindow : public QMainWindow,
                   public MainWindowModes,
                   private MainWindowParts,
                   private MainWindowState
{
    Q_OBJECT

public:
    // ---- Construction, start, close (mainwindow.cpp) ----
    /// Builds the whole window, restores the previous run from its settings file and reads the
    /// traces named there. Nothing in that file can make it fail; what makes no sense is ignored.
    explicit MainWindow(QWidget *parent = nullptr);
    ~MainWindow() override;

    /// The live settings. Owned by the window.
    SettingsData *settings() const;
    /// Writes the sizes of window, central widget, plot view and chart to the debug log.
    void reportSizes() const;
    /// What the window is made of and what it remembers, for others to look at and press.
    const MainWindowParts &parts() const;
    const MainWindowState &state() const;

signals:
    /// Declared for a slot's new data; nothing emits or connects it.
    void rfg_update(int id);

public slots:
    /// Restores window geometry and state from the settings. A damaged geometry, or one more than
    /// four times as large as the desktop, leaves the window where it is; a damaged state changes
    /// nothing.
    void setWindowGeometry();
    /// Gives both dials their speeds from the settings. The scale keeps its own speed.
    void setDialSettings();

protected:
    /// Stores geometry and state, keeps the very first settings file as a backup, saves.
    void closeEvent(QCloseEvent *event) override;

private:
    void interface_init();
    void storeWindowGeometry();

    // ---- Controls (window/controls.cpp) ----
    void createControls();

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
    /// Sets every text anew from the current translation. May run twice for one language change.
    void retranslateUi();
    /// Texts of the controls when the selected slot is empty.
    void voidInterface();

private:
    void retranslateButtons();
    void nameDialogButtons();
    void setParameterTexts();
    /// Two-line caption: the word over the value.
    static void setCaption(QAbstractButton *button, const QString &word, const QString &value);
    /// Sets the caption of \a dial, to be painted with the next repaint.
    static void setDialText(Cont_dial *dial, const QString &text);
    QString cursorReadout(const QString &name, const QString &distance, int level) const;
    QString scaleText() const;
    QString velocityText() const;
    QString slotTitle(int id) const;
    QString measurementDateText(int id) const;

    // ---- Style (window/style.cpp) ----
public slots:
    /// Applies the current style sheet, or none when it is not acceptable, and paints chart and
    /// scene near-black.
    void set_CSS();
    /// Makes the file at \a path the current style sheet, an empty one when it cannot be read. The
    /// watched file is watched again when it was replaced, its folder while it is missing.
    void CSS_watcher_slot(const QString &path);

private:
    void watchStyleSheet();
    void styleFolderChanged();

    // ---- Trace slots (window/files.cpp) ----
public slots:
    /// Asks for traces and fills the slots from the first one on; slots past the choice are
    /// emptied. At most six files are taken. Cancelling changes nothing.
    void files_slot();
    /// Asks for one trace for slot \a id. Cancelling changes nothing.
    void loadSingle_slot(int id);
    /// Empties slot \a id; its record stays, only the slot mask says that it is empty.
    void remove_Selected_RFG(int id);
    /// Reads every slot of \a mask from the paths in the settings and empties the others. Bits
    /// above slot 5 are ignored. A file that cannot be read leaves its slot with its old record.
    void show_AllSelected_RFGs(state_index mask);
    /// Reads slot \a id again, which drops its shifts; for the master the whole view is reset.
    void resetCurrent_slot(int id);
    /// Scrolls to count 0, leaves difference mode and reads every loaded slot again.
    void reset_slot();
    /// Date and time on the trace button of slot \a id, bytes not taken as BCD. Called by nothing.
    void parse_T_Name(int id);

public:
    /// Reads the file \a path into slot \a id. False, and the slot untouched, when it cannot be
    /// opened or is no regular file. A short file fills the record as far as it goes.
    bool read_rfg_DATA(const QString &path, int id);
    /// Puts the file \a path into slot \a id, whether it can be read or not.
    void add_Selected_RFG(const QString &path, int id);
    /// Replaces the traces of all slots by the first six of \a files, at least one, from slot 1 on.
    void openFiles(const QStringList &files);
    /// Hook for add-on data of slot \a id: forms the file's name and opens nothing.
    void write_rfg_DATA(int id);

private:
    int emptySlotStep() const;
    void loadAllTraces();

    // ---- Selection, visibility, master (window/selection.cpp) ----
public slots:
    /// Selects slot \a id: its parameters, title, series on top, cursors.
    void rfgSelect_slot(int id);
    /// Shows or hides the trace of slot \a id and gives its legend button the matching icon.
    void RFG_visibleToggle(int id, bool visible);
    /// Makes slot \a id the master; any number outside 1..5 means slot 0. Its sample step sets
    /// scale and range, its record the velocity factor.
    void setMasterID(int id);
    /// Opens the menu of slot \a id at the corner of its legend button.
    void rfgMenuRequested_slot(int id);

public:
    /// Slot of the master, -1 before there was one.
    int getMasterID() const;
    /// Raises the series of the selected slot above all but those of the cursors, and draws them
    /// with the thick pen.
    void seriaIsSelected();
    /// Sets the text of the trace button and the name of slot \a id.
    void setRfgButtonText(int id);
    /// Shows or hides slot \a id and repairs the master in one step.
    void addremove_aux(int id, bool shown);
    /// Reserved for a legend text; always empty.
    QString rfgLegend(int id) const;

private:
    void selectTrace(int id);
    void unmarkMaster(int id);
    void markMaster(int id);
    void setSlotIcon(int id, QLatin1String path);

    // ---- Chart (window/chart.cpp) ----
public slots:
    /// Draws traces as splines through their samples, or as steps. Filters nothing.
    void setSmoothFlag(bool on);
    /// Draws every trace but the master as its difference from the master.
    void setDiff_flag(bool on);

public:
    /// Rebuilds the points of slot \a id and hands them to its visible series in one piece.
    void load_rfg(int id);
    /// Raises \a series above all others.
    void seriesUp(QtCharts::QXYSeries *series);
    /// Distance text of \a count counts at the current velocity factor: "1.00 m".
    QString count_to_distance(int count) const;
    /// Text of a level in sample steps; empty for 129, which stands for "no level".
    QString count_to_level(int level) const;

private:
    void buildChart();
    void createChartAxes();
    void createChartTexts();
    void addTraceSeries();
    void addCursorSeries();
    calc::TraceRef traceRef(int id) const;

    // ---- Axes, grid, title (window/axes.cpp) ----
public:
    /// Puts grid lines, labels and texts into the scene, under the traces. Called once.
    void axisCreate();
    /// Lays the grid out for the plot area and chart rectangle, both in scene coordinates.
    void axisSetup(QRectF plot, QRectF chart);
    /// Chooses the metre step for the visible range and shows the lines and labels it needs.
    void setXAxis();

private:
    void setAxisFonts();
    void placeTitle();
    int titlePoints() const;
    QRectF plotInScene() const;

    // ---- View range: scale, scroll, shifts, velocity factor (window/range.cpp) ----
public slots:
    /// Scrolls by \a step counts; a step that would pass an end is refused whole.
    void plotScroll(int step);
    /// Zoom exponent, clamped to 0..8: the view becomes 250 * 2^exponent counts from count 0 on.
    void scale_change(int scaleN);
    /// Horizontal shift of the selected trace in counts, clamped to one view of the widest scale,
    /// cut to whole samples.
    void H_Offset_change(int value);
    /// Vertical shift of the selected trace in sample steps, clamped to -256..256.
    void V_Offset_change(int value);
    /// Velocity factor (speed of light over speed in the cable), clamped to 1..10; not a number
    /// counts as below.
    void KU_change(double ku);

public:
    /// Shows the counts from \a min to \a max.
    void setPlotRange(int min, int max);
    /// Resizes the chart until its plot is \c trueWidth pixels wide. Kept for callers to come.
    void plotCorrection();

private:
    void redrawAfterShift();
    void showScale();
    void zoomAtCursor(int scaleN);
    void updateMarkers(int min, int max);
    void updateStepLabel();
    int axisMin() const;
    int axisMax() const;
    int checkedParameter() const;

    // ---- Parameters (window/params.cpp) ----
public slots:
    /// Makes the parameter dial adjust parameter \a id. Read-only parameters leave the dial as
    /// it is.
    void paramSelect_slot(int id);
    /// Applies dial value \a x to the checked parameter.
    void paramSetup_slot(int x);

public:
    /// Caption of the parameter dial. Parameters of a trace show no value while the selected slot
    /// is empty.
    void setParamDialText(const QString &title, const QString &value);

private:
    struct DialSetup;
    void setUpParamDial(const DialSetup &setup);

    // ---- Cursors (window/cursors.cpp) ----
public slots:
    /// Moves the active cursor to \a column counts, clamped to the chart and snapped down to a
    /// whole sample of the selected trace. Nothing happens in delta mode.
    void cursorSetup_slot(int column);
    /// Makes cursor \a mode the active one; any number but 1 and 2 means none.
    void cursorSelect_slot(int mode);

public:
    void cursorInfo_update();
    /// Recomputes both cursors after the data under them changed, the active one last.
    void cursors_update();
    /// Scrolls the view so that cursor \a which is in its middle, as far as the ends allow. Any
    /// other number goes to count 0.
    void gotoCursor(int which);
    /// True when cursor \a which lies in the visible range.
    bool isCursor_visible(int which) const;
    void setCursorDialText(const QString &text);
    /// Puts the step label into the top right corner of the plot.
    void set_cur_step_lbl();
    /// Column of cursor \a which in counts; 0 for any other number.
    int cursorPosition(int which) const;

private:
    calc::CursorPoint pointUnder(int column) const;
    /// As cursorSetup_slot, but leaves the drawing order as it is.
    void moveCursor(int column);
    void showCursor(const calc::CursorPoint &point);
    /// Both series of cursor \a which, as drawn: the level below the line. None in delta mode.
    QVector<QtCharts::QXYSeries *> cursorSeries(int which) const;
    /// The series of both cursors as drawn, the active one on top. None in delta mode.
    QVector<QtCharts::QXYSeries *> cursorSeries() const;
    void colourCursors();

    // ---- Input (window/input.cpp) ----
public:
    /// Looks at the events of the chart and of some controls, and consumes none.
    bool eventFilter(QObject *watched, QEvent *event) override;
    /// Moves the active cursor by \a notches samples of the selected trace, in difference mode of
    /// the coarser of that trace and the master.
    void cursorWheel(int notches);
    /// Changes the checked parameter by \a notches steps of the dial, the horizontal shift by
    /// samples of the selected trace.
    void paramWheel(int notches);

private:
    void filterViewport(QEvent *event);
    void filterControls(QObject *watched, QEvent *event);
    void scaleInterface();
    void scaleMarkers(float ratio);
    void plotMouseMove(const QMouseEvent *event);
    void plotMousePress(const QMouseEvent *event);
    void plotWheel(const QWheelEvent *event);
    void setPointerShape(Qt::CursorShape shape);

    // ---- Entry dialogs (window/dialogs.cpp) ----
    void openEntryDialog(const QObject *button);

    friend class MainWindowProbe;
    QWidget *centralWidget = nullptr; ///< here, not among the parts: it hides the base's function
};
