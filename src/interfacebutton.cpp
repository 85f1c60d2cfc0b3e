// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "interfacebutton.h"

#include "base/bundledpicture.h"

#include <QBitmap>
#include <QEvent>
#include <QStyleOption>
#include <QStylePainter>

#include <cmath>

InterfaceButton::InterfaceButton(Dictionary *words)
    : dict(words)
{
}

void InterfaceButton::set_icon(const QString &path)
{
    const QPixmap picture = bundledPicture(path);
    icon.addPixmap(picture, QIcon::Active, QIcon::On);
    icon.addPixmap(grayPixmap(picture), QIcon::Normal, QIcon::Off);
    setIcon(icon);
}

QPixmap InterfaceButton::grayPixmap(const QPixmap &source)
{
    QPixmap gray = QPixmap::fromImage(source.toImage().convertToFormat(QImage::Format_Grayscale8));
    gray.setMask(source.mask());
    return gray;
}

void InterfaceButton::paintEvent(QPaintEvent *event)
{
    QStyleOptionButton option;
    initStyleOption(&option);
    if (!takeGround(option)) {
        PictureButton::paintEvent(event);
        return;
    }
    // The parts of QStyle::CE_PushButton in its order: ground, label, focus.
    QStylePainter painter(this);
    painter.drawPixmap(0, 0, m_ground);
    prepareLabel(option, painter);
    QStyleOptionButton label(option);
    label.rect = style()->subElementRect(QStyle::SE_PushButtonContents, &option, this);
    painter.drawControl(QStyle::CE_PushButtonLabel, label);
    if (option.state & QStyle::State_HasFocus) {
        QStyleOptionFocusRect focus;
        focus.QStyleOption::operator=(option);
        focus.rect = style()->subElementRect(QStyle::SE_PushButtonFocusRect, &option, this);
        painter.drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
}

void InterfaceButton::changeEvent(QEvent *event)
{
    m_ground = QPixmap();
    m_groundSize = QSize();
    PictureButton::changeEvent(event);
}

bool InterfaceButton::takeGround(const QStyleOptionButton &option)
{
    const qreal ratio = devicePixelRatioF();
    const bool asBefore = m_groundSize == size() && m_groundState == option.state;
    if (!asBefore)
        m_ground = QPixmap();
    m_groundSize = size();
    m_groundState = option.state;
    // Most grounds are painted once, at the start or while the window is dragged larger: those are
    // not worth a picture. Where a unit is no whole number of pixels, it would stand between them.
    if (!asBefore || ratio != std::floor(ratio))
        return false;
    if (m_ground.isNull() || m_ground.devicePixelRatioF() != ratio) {
        m_ground = QPixmap(size() * ratio);
        m_ground.setDevicePixelRatio(ratio);
        m_ground.fill(Qt::transparent);
        QPainter painter(&m_ground);
        style()->drawControl(QStyle::CE_PushButtonBevel, &option, &painter, this);
    }
    return true;
}
