// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "picturebutton.h"

#include "base/qtcompat.h"

#include <QFontInfo>
#include <QStyleOption>
#include <QStylePainter>

#include <algorithm>

namespace {

constexpr int styleGap = 2; ///< pixels that a style leaves between picture and caption
constexpr int extraGap = 2;
/// Opacity of the picture on a disabled button. The text of the button has half its contrast, too.
constexpr double dimmedOpacity = 0.5;
constexpr int margin = 4; ///< pixels at either side, the frame of the button included
constexpr double minFontPixels = 6.0;

/// \a text with its first line broken at blanks where it is wider than \a width.
QString wrapped(const QString &text, const QFontMetrics &metrics, int width)
{
    const auto end = text.indexOf(QLatin1Char('\n'));
    const QStringList words = text.left(end).split(QLatin1Char(' '));
    QString result;
    QString line;
    for (const QString &word : words) {
        const QString longer = line.isEmpty() ? word : line + QLatin1Char(' ') + word;
        if (line.isEmpty() || metrics.horizontalAdvance(longer) <= width) {
            line = longer;
            continue;
        }
        result += line + QLatin1Char('\n');
        line = word;
    }
    return result + line + (end < 0 ? QString() : text.mid(end));
}

} // namespace

void PictureButton::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    QStyleOptionButton option;
    initStyleOption(&option);
    QStylePainter painter(this);
    prepareLabel(option, painter);
    painter.drawControl(QStyle::CE_PushButton, option);
}

void PictureButton::prepareLabel(QStyleOptionButton &option, QStylePainter &painter)
{
    const QSize room = style()->subElementRect(QStyle::SE_PushButtonContents, &option, this).size();
    int width = std::min(room.width(), option.rect.width() - 2 * margin);
    if (!option.icon.isNull() && !option.text.isEmpty()) {
        pad(option);
        width -= option.iconSize.width() + styleGap;
    }
    option.text = wrapped(option.text, option.fontMetrics, width);
    const QSize needed = option.fontMetrics.size(Qt::TextShowMnemonic, option.text);
    const double factor = std::min(double(width) / std::max(1, needed.width()),
                                   double(room.height()) / std::max(1, needed.height()));
    if (factor >= 1.0)
        return;
    QFont font = painter.font();
    const QFontInfo current(font);
    font.setPointSizeF(current.pointSizeF()
                       * std::max(factor, minFontPixels / std::max(1, current.pixelSize())));
    painter.setFont(font);
    option.fontMetrics = painter.fontMetrics();
}

void PictureButton::pad(QStyleOptionButton &option)
{
    const bool isDimmed = !option.state.testFlag(QStyle::State_Enabled);
    const bool isMirrored = option.direction == Qt::RightToLeft;
    const QIcon::State state = option.state.testFlag(QStyle::State_On) ? QIcon::On : QIcon::Off;
    const QPixmap picture = qtcompat::pixmapOf(option.icon, *this, option.iconSize, state);
    const qreal ratio = picture.devicePixelRatio();
    const QSize size = picture.size() / ratio + QSize(extraGap, 0);
    const Padding wanted{ picture.cacheKey(), isDimmed, isMirrored };
    if (m_padding != wanted) {
        m_padding = wanted;
        QPixmap padded(size * ratio);
        padded.setDevicePixelRatio(ratio);
        padded.fill(Qt::transparent);
        QPainter painter(&padded);
        painter.setOpacity(isDimmed ? dimmedOpacity : 1.0);
        painter.drawPixmap(isMirrored ? extraGap : 0, 0, picture);
        painter.end();
        m_padded = QIcon();
        // Without a picture for disabled buttons the style would make one.
        for (const QIcon::Mode mode : { QIcon::Normal, QIcon::Disabled })
            m_padded.addPixmap(padded, mode);
    }
    option.icon = m_padded;
    option.iconSize = size;
}
