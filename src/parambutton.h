// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "interfacebutton.h"

/// Checkable button of one acquisition parameter.
class ParamButton : public InterfaceButton
{
    Q_OBJECT

public:
    /// \a parameter is the number that the window gives the parameter, 0 to 9. \a words is not
    /// kept: the window writes the captions, so \c dict is null here.
    ParamButton(Dictionary *words, char parameter);

    char id = 0; ///< the parameter

    /// The same width for every parameter, so that their columns are equal in every language.
    QSize sizeHint() const override;

    /// The button filters its own events and lets all of them pass.
    bool eventFilter(QObject *watched, QEvent *event) override;
};
