// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPalette>
#include <QProxyStyle>
#include <QVector>

/// The style of the application, which draws the bevel of a button once per size, state and
/// colour. Qt's Fusion style caches the picture of a bevel under the identity of the palette. A
/// style sheet copies the palette at each painting, so with Qt 5 the cache never hits, and bevels
/// took a fifth of a resize. This class passes the first of all equal palettes to that style.
class SharedBevels : public QProxyStyle
{
public:
    using QProxyStyle::QProxyStyle;

    /// The only instance, owned by the application, which must exist. It draws with the style of
    /// the application at the first call, or with Qt's default if the name of that is unknown.
    static SharedBevels *instance();

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget = nullptr) const override;

private:
    /// The palette equal to \a palette that was seen first.
    QPalette shared(const QPalette &palette) const;

    mutable QVector<QPalette> m_palettes; ///< no two of them equal
};
