// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "stopwatch.h"

#include "viewersubject.h"

#include <QEvent>

namespace {

constexpr auto timeout = std::chrono::milliseconds(500); ///< for an operation that paints nothing

/// Events whose handling concerns the receiver alone. Others, a click for example, run the
/// operation.
bool concernsReceiverOnly(QEvent::Type type)
{
    switch (type) {
    case QEvent::Paint:
    case QEvent::LayoutRequest:
    case QEvent::Resize:
    case QEvent::Move:
    case QEvent::Polish:
    case QEvent::PolishRequest:
    case QEvent::StyleChange:
    case QEvent::FontChange:
    case QEvent::PaletteChange:
        return true;
    default:
        return false;
    }
}

double microseconds(std::chrono::steady_clock::duration time)
{
    return std::chrono::duration<double, std::micro>(time).count();
}

} // namespace

Cost Stopwatch::measure(ViewerSubject &subject, const std::function<void()> &operation)
{
    m_plot = &subject.plot();
    m_canvas = &subject.canvas();
    m_plotPaints = 0;
    m_paints = 0;
    m_plotTime = {};
    m_inPlot = true;
    const Clock::time_point start = Clock::now();
    m_since = start;

    operation();
    const bool remote = platformName() == QLatin1String("xcb");
    int before = 0;
    do {
        before = m_paints;
        turn();
        if (m_paints == before && remote)
            sync();
    } while (m_paints != before || (m_plotPaints == 0 && Clock::now() - start < timeout));

    enter(true);
    m_plot = nullptr;
    return { microseconds(m_since - start), microseconds(m_plotTime), m_plotPaints };
}

void Stopwatch::settle()
{
    for (int i = 0; i < 3; ++i) {
        turn();
        sync();
    }
}

void Stopwatch::turn()
{
    processEvents();
    // The item of a removed series is painted until its deferred delete.
    sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void Stopwatch::enter(bool plot)
{
    const Clock::time_point moment = Clock::now();
    if (m_inPlot)
        m_plotTime += moment - m_since;
    m_since = moment;
    m_inPlot = plot;
}

bool Stopwatch::notify(QObject *receiver, QEvent *event)
{
    if (m_plot == nullptr || !receiver->isWidgetType() || !concernsReceiverOnly(event->type()))
        return QApplication::notify(receiver, event);

    if (event->type() == QEvent::Paint) {
        ++m_paints;
        if (receiver == m_canvas)
            ++m_plotPaints;
    }
    const bool before = m_inPlot;
    const auto *widget = static_cast<const QWidget *>(receiver);
    enter(widget == m_plot || m_plot->isAncestorOf(widget));
    const bool result = QApplication::notify(receiver, event);
    enter(before);
    return result;
}
