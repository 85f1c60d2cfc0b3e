// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

/// \file
/// All differences between Qt 5 and Qt 6. No other file asks for the version.

#include <QCoreApplication>
#include <QPointF>
#include <QString>
#include <QVariant>
#include <QVector>
#include <QtGlobal>

// Only for programs that link widgets.
#ifdef QT_WIDGETS_LIB
#include <QIcon>
#include <QPixmap>
#include <QWidget>
#endif

#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)

QT_BEGIN_NAMESPACE
class QAbstractSeries;
class QChart;
class QLineSeries;
class QSplineSeries;
class QValueAxis;
class QXYSeries;
QT_END_NAMESPACE

/// The chart classes are in this namespace in Qt 5, and in the global one in Qt 6.
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

/// Size type of containers: int in Qt 5, qsizetype in Qt 6.
using Size = decltype(QVector<QPointF>().size());

/// Type of the data that QMimeData::retrieveData() is asked for.
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
using DataType = QVariant::Type;
#else
using DataType = QMetaType;
#endif

/// Position of \a event, a QDropEvent or a subclass, in the widget.
template <typename Event> QPoint placeOf(const Event &event)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return event.position().toPoint();
#else
    return event.pos();
#endif
}

/// All points of \a series, a QXYSeries, implicitly shared.
template <typename Series> QVector<QPointF> pointsOf(const Series &series)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    return series.points();
#else
    return series.pointsVector();
#endif
}

/// \a bytes of a settings file in the default encoding of QSettings. The viewer writes ASCII only.
inline QString settingsText(const QByteArray &bytes)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return QString::fromLatin1(bytes.constData(), bytes.size());
#else
    return QString::fromUtf8(bytes);
#endif
}

#ifdef QT_WIDGETS_LIB
/// The picture of \a icon for a \a size in device-independent pixels, on the screen of \a widget.
inline QPixmap pixmapOf(const QIcon &icon, const QWidget &widget, QSize size,
                        QIcon::State state = QIcon::Off)
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return icon.pixmap(widget.window()->windowHandle(), size, QIcon::Normal, state);
#else
    return icon.pixmap(size, widget.devicePixelRatioF(), QIcon::Normal, state);
#endif
}
#endif

/// Turns on high-DPI scaling, which Qt 6 always has. Call it before the application is created.
inline void followScaleOfScreen()
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
#endif
}

}
