// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QPushButton>

#include <tuple>

class QStyleOptionButton;
class QStylePainter;

/// A push button with four pixels between picture and caption. A caption that is too wide is broken
/// into lines. If it still does not fit, its font is smaller. text() stays as it was set. A
/// disabled button dims its picture as much as its caption.
class PictureButton : public QPushButton
{
    Q_OBJECT

public:
    using QPushButton::QPushButton;

protected:
    void paintEvent(QPaintEvent *event) override;

    /// Prepares picture and caption in \a option, and the font of \a painter, for the style.
    void prepareLabel(QStyleOptionButton &option, QStylePainter &painter);

private:
    using Padding = std::tuple<qint64, bool, bool>; ///< key of the picture, dimmed, mirrored
    void pad(QStyleOptionButton &option);

    QIcon m_padded; ///< picture as it is drawn
    Padding m_padding{ 0, false, false }; ///< key of \c m_padded
};
