// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// \file
/// What Qt 5 and Qt 6 call by different names, all of it. Everywhere else the sources speak to both
/// in the same words; which of the two it is, the build decides.

#include <QCoreApplication>
#include <QIcon>
#include <QPixmap>
#include <QPointF>
#include <QString>
#include <QVector>
#include <QWindow>
#include <QtGlobal>

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)

QT_BEGIN_NAMESPACE
class QAbstractSeries;
class QChart;
class QLineSeries;
class QSplineSeries;
class QValueAxis;
class QXYSeries;
QT_END_NAMESPACE

/// Qt 6 keeps the charts among all its other classes; here they have a room of their own, as in
/// Qt 5.
namespace QtCharts {
using QT_PREPEND_NAMESPACE(QAbstractSeries);
using QT_PREPEND_NAMESPACE(QChart);
using QT_PREPEND_NAMESPACE(QLineSeries);
using QT_PREPEND_NAMESPACE(QSplineSeries);
using QT_PREPEND_NAMESPACE(QValueAxis);
using QT_PREPEND_NAMESPACE(QXYSeries);
}
#define QT_CHARTS_USE_NAMESPACE using namespace QtCharts;

#endif

namespace qtcompat {

/// What containers count in: int, since Qt 6 a number as wide as a pointer.
using Size = decltype(QVector<QPointF>().size());

/// Where in the widget \a event, a QDropEvent or what comes before it, takes place.
template <typename Event> QPoint placeOf(const Event &event)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return event.position().toPoint();
#else
    return event.pos();
#endif
}

/// All points of \a series, a QXYSeries, shared with it and not copied.
template <typename Series> QVector<QPointF> pointsOf(const Series &series)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return series.points();
#else
    return series.pointsVector();
#endif
}

/// What the toolkit takes \a bytes for that stand in a settings file as they are. It writes none
/// beyond ASCII itself.
inline QString settingsText(const QByteArray &bytes)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return QString::fromLatin1(bytes);
#else
    return QString::fromUtf8(bytes);
#endif
}

/// What \a icon shows in \a window in \a size units, in the pixels that are there for it.
inline QPixmap pixmapOf(const QIcon &icon, QWindow *window, QSize size)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return icon.pixmap(window, size);
#else
    return icon.pixmap(size, window->devicePixelRatio());
#endif
}

/// Lets the toolkit scale the window and its pictures with the screen, as Qt 6 does by itself. To
/// be called before there is an application.
inline void followScaleOfScreen()
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
#endif
}

}
