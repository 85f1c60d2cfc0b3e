// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/sharedbevels.h"

#include <QApplication>
#include <QPointer>
#include <QStyleOptionButton>

namespace {

constexpr int maxPalettes = 16; ///< more than a usual sheet has; a full list is cleared

} // namespace

SharedBevels *SharedBevels::instance()
{
    static QPointer<SharedBevels> style;
    if (!style) {
        style = new SharedBevels(QApplication::style()->objectName());
        style->setParent(qApp);
    }
    return style;
}

void SharedBevels::drawPrimitive(PrimitiveElement element, const QStyleOption *option,
                                 QPainter *painter, const QWidget *widget) const
{
    const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option);
    if (element != PE_PanelButtonCommand || !button) {
        QProxyStyle::drawPrimitive(element, option, painter, widget);
        return;
    }
    QStyleOptionButton bevel(*button);
    bevel.palette = shared(button->palette);
    QProxyStyle::drawPrimitive(element, &bevel, painter, widget);
}

QPalette SharedBevels::shared(const QPalette &palette) const
{
    const auto index = m_palettes.indexOf(palette);
    if (index >= 0)
        return m_palettes[index];
    if (m_palettes.size() == maxPalettes)
        m_palettes.clear();
    m_palettes.append(palette);
    return palette;
}
