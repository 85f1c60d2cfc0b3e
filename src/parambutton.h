// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "interfacebutton.h"

/// Checkable button of one acquisition parameter.
class ParamButton : public InterfaceButton
{
    Q_OBJECT

public:
    /// \a parameter is a MainWindow::PARAMETER_MODE, or 9 for the reserve button. \a words is not
    /// kept: \c dict is null.
    ParamButton(Dictionary *words, char parameter);

    char id = 0; ///< the parameter

    /// The same width for every parameter, so that their columns are equal in every language.
    QSize sizeHint() const override;

    /// The button filters its own events and lets all of them pass.
    bool eventFilter(QObject *watched, QEvent *event) override;
};
