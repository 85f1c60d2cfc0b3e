// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPalette>
#include <QProxyStyle>
#include <QVector>

/// The style that Qt chooses for the application, with the bevel of a button drawn once for each
/// size and state. Qt's Fusion style keeps a picture of every bevel and finds it by the identity of
/// the palette. A style sheet makes a new copy of the palette at each painting, so with Qt 5 no
/// picture is ever found: bevels take a fifth of the time of a resize. Here equal palettes are one.
class SharedBevels : public QProxyStyle
{
public:
    using QProxyStyle::QProxyStyle;

    /// The one of the application, which owns it.
    static SharedBevels *instance();

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget = nullptr) const override;

private:
    /// The palette equal to \a palette that was seen first.
    QPalette shared(const QPalette &palette) const;

    mutable QVector<QPalette> m_palettes; ///< no two of them equal
};
