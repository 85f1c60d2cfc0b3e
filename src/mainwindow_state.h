// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "base/constants.h"
#include "base/qtcompat.h"
#include "miscfunc.h"
#include "protocol_vx840.h"
#include "rfg_shown.h"

#include <QBrush>
#include <QCursor>
#include <QFileSystemWatcher>
#include <QPen>
#include <QPointF>
#include <QVector>

/// Ids of buttons, markers and modes.
struct MainWindowModes
{
    /// Cursor that the cursor dial moves; also the ids of the cursor buttons and markers.
    enum CURSOR_MODE {
        DELTA = 0, ///< none
        CURSOR_A = 1,
        CURSOR_B = 2,
    };

    /// Acquisition parameters; also the ids of their buttons.
    enum PARAMETER_MODE {
        GAIN = 0,
        KU = 1, ///< shortening factor, c/v
        AVERAGE = 2,
        V_OFFSET = 3,
        PULSE_WIDTH = 4,
        PULSE_AMPLITUDE = 5,
        IMPEDANCE = 6,
        H_OFFSET = 7,
        SCALE = 8,
    };

    /// Traces are drawn as they are, or as their difference from the master.
    enum DIFF_MODE {
        NORMAL = 0,
        DIFF = 1,
    };
};

/// Mutable state of the window, grouped as the source files are. Code that changes a value must
/// also update the widgets that show it.
struct MainWindowState
{
    // ---- Layout ----
    float trueWidth = 0.0F; ///< width of the plot area in pixels, as last measured
    float plotLeft = 0.0F; ///< scene x of the plot area's left edge
    float font_size = 0.0F; ///< base font size in points; 0 before the first resize

    // ---- Style ----
    QFileSystemWatcher CSS_watcher;
    QString watchedStyleSheet; ///< empty when nothing is watched

    // ---- Trace slots ----
    rfg_SHOWN rfg_DATA[constants::slotCount];
    state_index rfg_read_index = 0; ///< one bit per loaded slot

    /// True when \a id is the number of a slot, 0 to 5.
    static bool isSlot(int id);
    bool isLoaded(int id) const;
    /// Counts per sample of slot \a id, bounded to 1..64000 for drawing, dividing and snapping.
    int stepOf(int id) const;

    // ---- Selection and master ----
    int rfg_ID = 0; ///< selected slot
    int rfg_master_ID = constants::noMaster;
    bool master_is_set = false;
    Protocol_VX840::CH_PARAMS_t master_params = {}; ///< only KU and sample_minstep are kept

    /// True when \c rfg_master_ID is a slot, loaded or not. Otherwise no difference is drawn and
    /// the master's step is not used.
    bool masterExists() const;
    /// True when traces other than the master are drawn as their difference from it.
    bool drawsDifferences() const;
    /// True when slot \a id is drawn as its difference from the master.
    bool isDrawnAsDifference(int id) const;
    /// Step of the cursor in counts: the step of the selected trace, or of the master in difference
    /// mode and for an empty slot; 1 without a master.
    int cursorStep() const;

    // ---- Chart ----
    bool smooth_rfg_flag = false;
    MainWindowModes::DIFF_MODE diff_flag = MainWindowModes::NORMAL;
    QVector<QPointF> points; ///< buffer for the step form
    QVector<QPointF> points_sp; ///< buffer for the spline form
    int x_length = constants::xLength; ///< widest extent in counts
    QPen m_pen;
    QBrush m_brush;

    // ---- View range ----
    int master_scale = 0; ///< zoom exponent 0..8; the view is 250 * 2^master_scale counts wide
    float scale_dist = 31.25F; ///< caption of the scale, metres
    int scrollfactorX = 0; ///< left edge of the view, counts
    float KU_min = constants::minKU;
    float KU_max = constants::maxKU;
    double dist_coef_0 = constants::distCoef0; ///< metres per count at the speed of light
    double dist_coef = 0.0; ///< metres per count at the current KU; 0 until KU is set

    // ---- Parameters ----
    MainWindowModes::PARAMETER_MODE parameter_flag
        = MainWindowModes::V_OFFSET; ///< unused; the checked button decides

    // ---- Cursors ----
    MainWindowModes::CURSOR_MODE Cur_flag
        = MainWindowModes::CURSOR_A; ///< cursor that the dial drives
    MainWindowModes::CURSOR_MODE Cur_flag_true
        = MainWindowModes::CURSOR_A; ///< the active cursor; stays the same while
                                     ///< cursors_update() changes Cur_flag
    int cursor_A_pos = 0; ///< counts
    int cursor_B_pos = 0;
    int cursor_A_pos_Y = 0; ///< sample steps, or 129
    int cursor_B_pos_Y = 0;

    // ---- Input ----
    bool zoom_wheel_flag = false; ///< the wheel changes the scale instead of moving cursors
    int mp = 0; ///< last mouse x in chart coordinates
    QCursor chart_cursor_plot;
};
