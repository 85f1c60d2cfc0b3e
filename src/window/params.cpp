// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow.h"

#include "calc/view_range.h"
#include "cont_dial.h"
#include "dictionary.h"
#include "settingsdata.h"

namespace {

/// Limits and value of the parameter dial; \c speed in steps per turn.
struct DialSetup
{
    bool startsAtZero;
    int min;
    int max;
    int value;
    int speed;
};

void setUp(Cont_dial &dial, const DialSetup &setup)
{
    dial.zeroOff = setup.startsAtZero;
    dial.trueMin = setup.min;
    dial.trueMax = setup.max;
    dial.trueValue = setup.value;
    dial.setAccuracy(setup.speed);
    // QDial takes the value modulo its range; trueValue holds the real one.
    dial.setValue(setup.value);
}

} // namespace

void MainWindow::paramSelect_slot(int id)
{
    const rfg_SHOWN &trace = rfg_DATA[rfg_ID];
    const int speed = settingsData->param_dial_speed;
    switch (id) {
    case KU:
        setUp(*param_dial,
              { true, 0, calc::dialOfKU(KU_max), calc::dialOfKU(master_params.KU), speed });
        setParamDialText(d->KU_STR, kuText());
        break;
    case V_OFFSET:
        setUp(*param_dial,
              { false, -constants::verticalOffsetLimit, constants::verticalOffsetLimit,
                trace.offset, speed });
        setParamDialText(d->V_OFFSET_STR, count_to_level(trace.offset));
        break;
    case H_OFFSET:
        setUp(*param_dial, { false, -x_length, x_length, trace.scroll, speed });
        setParamDialText(d->H_OFFSET_STR, count_to_distance(trace.scroll));
        break;
    case SCALE:
        // At the user's speed a tenth of a turn would cross all nine zoom exponents.
        setUp(*param_dial,
              { true, constants::minScale, constants::maxScale, master_scale,
                constants::scaleDialSpeed });
        setParamDialText(d->SCALE_STR, scaleText());
        break;
    default:
        // A read-only parameter or none: the dial keeps its range and value.
        break;
    }
}

void MainWindow::paramSetup_slot(int x)
{
    switch (checkedParameter()) {
    case KU:
        KU_change(calc::kuOfDial(x));
        // Stored even in an empty slot, because KU belongs to the view.
        rfg_DATA[rfg_ID].f_p_840.ch.params.KU = master_params.KU;
        break;
    case V_OFFSET:
        if (isLoaded(rfg_ID))
            V_Offset_change(x);
        break;
    case H_OFFSET:
        if (isLoaded(rfg_ID))
            H_Offset_change(x);
        break;
    case SCALE:
        scale_change(x);
        break;
    default:
        break;
    }
}

void MainWindow::setParamDialText(const QString &title, const QString &value)
{
    const int parameter = checkedParameter();
    // KU and scale belong to the view; an empty slot has no other value.
    const bool hasValue = isLoaded(rfg_ID) || parameter == KU || parameter == SCALE;
    setDialText(param_dial, title + QLatin1Char('\n') + (hasValue ? value : QString()));
}
