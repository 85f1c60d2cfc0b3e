// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "windowstate.h"

#include "cont_dial.h"
#include "contrast.h"
#include "curarrow.h"
#include "datetime_lbl.h"
#include "mainwindowprobe.h"

#include <QAbstractButton>
#include <QAction>
#include <QDir>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QGuiApplication>
#include <QHash>
#include <QLabel>
#include <QMenu>
#include <QPainter>
#include <QScreen>

#include <algorithm>

QT_CHARTS_USE_NAMESPACE

namespace {

constexpr int letterRounding = 64; ///< of 255, for the edges of an outlined letter

QString numbers(std::initializer_list<double> values)
{
    QStringList texts;
    for (const double value : values)
        texts.append(QString::number(value, 'g', 17));
    return texts.join(QLatin1Char(' '));
}

QHash<const QObject *, QString> seriesNames(const MainWindowProbe &probe)
{
    QHash<const QObject *, QString> names{
        { probe.axisX(), QStringLiteral("axisX") },
        { probe.cursor_A(), QStringLiteral("cursor_A") },
        { probe.cursor_B(), QStringLiteral("cursor_B") },
        { probe.cursor_A_add(), QStringLiteral("cursor_A_add") },
        { probe.cursor_B_add(), QStringLiteral("cursor_B_add") },
    };
    for (int slot = 0; slot < constants::slotCount; ++slot) {
        names.insert(probe.rfg_series()[slot], QStringLiteral("rfg_series[%1]").arg(slot));
        names.insert(probe.rfg_series_sp()[slot], QStringLiteral("rfg_series_sp[%1]").arg(slot));
    }
    return names;
}

QString seriesLine(const MainWindowProbe &probe, const QXYSeries &series)
{
    const QVector<QPointF> points = qtcompat::pointsOf(series);
    auto hash = qHash(0);
    for (const QPointF &point : points)
        hash = qHash(point.y(), qHash(point.x(), hash));
    QStringList axes;
    const auto attached = const_cast<QXYSeries &>(series).attachedAxes();
    for (const QAbstractAxis *axis : attached)
        axes.append(axis == probe.cust_axisX()       ? QStringLiteral("x")
                        : axis == probe.cust_axisY() ? QStringLiteral("y")
                                                     : QStringLiteral("?"));
    const QPen pen = series.pen();
    return QStringLiteral("%1, %2 points %3, axes %4, pen %5 %6 %7, opacity %8")
        .arg(series.isVisible() ? QStringLiteral("visible") : QStringLiteral("hidden"))
        .arg(points.size())
        .arg(hash)
        .arg(axes.join(QLatin1Char(' ')), pen.color().name(QColor::HexArgb))
        .arg(pen.widthF())
        .arg(pen.style())
        .arg(series.opacity());
}

void addChart(const MainWindowProbe &probe, QStringList &lines)
{
    const auto names = seriesNames(probe);
    const auto order = probe.Plot_Chart()->series();
    for (const QAbstractSeries *series : order)
        lines.append(names.value(series, QStringLiteral("unknown series")) + QLatin1String(": ")
                     + seriesLine(probe, *qobject_cast<const QXYSeries *>(series)));
    const QRectF plot = probe.Plot_Chart()->plotArea();
    lines.append(QStringLiteral("plot area: ")
                 + numbers({ plot.x(), plot.y(), plot.width(), plot.height() }));
    lines.append(QStringLiteral("range: ")
                 + numbers({ probe.cust_axisX()->min(), probe.cust_axisX()->max(),
                             probe.cust_axisY()->min(), probe.cust_axisY()->max() }));
    lines.append(QStringLiteral("scene items: %1").arg(probe.Plot_Scene()->items().size()));
}

void addText(const QString &name, const QGraphicsSimpleTextItem &item, QStringList &lines)
{
    lines.append(QStringLiteral("%1: %2 '%3' %4 at %5")
                     .arg(name, item.isVisible() ? QStringLiteral("shown") : QStringLiteral("-"),
                          item.text(), item.font().toString(), numbers({ item.x(), item.y() })));
}

void addScene(const MainWindowProbe &probe, QStringList &lines)
{
    addText(QStringLiteral("title"), probe.chart_title(), lines);
    addText(QStringLiteral("cursor step"), probe.cursor_step_lbl(), lines);
    const auto addPair = [&lines](const QString &name, const QGraphicsLineItem &line,
                                  const QGraphicsSimpleTextItem &label) {
        // A hidden pair is set before it is shown.
        if (!line.isVisible() && !label.isVisible()) {
            lines.append(name + QLatin1String(": hidden"));
            return;
        }
        addText(name, label, lines);
        lines.append(QStringLiteral("%1 line: %2 %3")
                         .arg(name)
                         .arg(line.isVisible())
                         .arg(numbers({ line.x(), line.line().y1(), line.line().y2() })));
    };
    for (int i = 0; i < constants::gridLines; ++i)
        addPair(QStringLiteral("grid %1").arg(i), probe.axis_lines()[i], probe.axis_lbl()[i]);
    for (int i = 0; i < constants::gridEdges; ++i)
        addPair(QStringLiteral("edge %1").arg(i), probe.axis_0_lines()[i], probe.axis_0_lbl()[i]);
    for (const CurArrow *marker : { probe.cur_arrowA(), probe.cur_arrowB() })
        lines.append(QStringLiteral("marker %1: %2 %3 %4")
                         .arg(int{ marker->id })
                         .arg(marker->color.name())
                         .arg(marker->cur_arrow1.isVisible())
                         .arg(numbers({ double{ marker->pos }, double{ marker->scale },
                                        marker->cur_lbl.x(), marker->group->zValue() })));
}

void addControls(const MainWindow &window, QStringList &lines)
{
    const auto buttons = window.findChildren<QAbstractButton *>();
    for (const QAbstractButton *button : buttons)
        lines.append(QStringLiteral("button '%1': checked %2, enabled %3, font %4")
                         .arg(button->text())
                         .arg(button->isChecked())
                         .arg(button->isEnabled())
                         .arg(button->font().toString()));
    const auto entries = window.findChildren<QAction *>();
    for (const QAction *entry : entries)
        lines.append(QStringLiteral("entry '%1': ticked %2, enabled %3")
                         .arg(entry->text())
                         .arg(entry->isChecked())
                         .arg(entry->isEnabled()));
    const auto labels = window.findChildren<QLabel *>();
    for (const QLabel *label : labels)
        if (qobject_cast<const DateTime_lbl *>(label) == nullptr)
            lines.append(QStringLiteral("label '%1'").arg(label->text()));
    const auto dials = window.findChildren<Cont_dial *>();
    for (const Cont_dial *dial : dials)
        lines.append(QStringLiteral("dial '%1': %2 of %3..%4, position %5 of %6")
                         .arg(dial->titleText)
                         .arg(dial->trueValue)
                         .arg(dial->trueMin)
                         .arg(dial->trueMax)
                         .arg(dial->value())
                         .arg(dial->maximum()));
}

QImage withoutClock(const QPixmap &picture, MainWindow &window)
{
    QImage image = picture.toImage().convertToFormat(QImage::Format_RGB32);
    const QWidget *clock = MainWindowProbe(window).date_bar();
    // The picture is in pixels, the place of the clock in device-independent units.
    image.setDevicePixelRatio(window.devicePixelRatioF());
    QPainter(&image).fillRect(QRect(clock->mapTo(&window, QPoint()), clock->size()), Qt::black);
    return image;
}

} // namespace

QStringList stateOf(MainWindow &window)
{
    const MainWindowProbe probe(window);
    QStringList lines;
    addChart(probe, lines);
    addScene(probe, lines);
    lines.append(QStringLiteral("cursors: %1 (%2), %3 (%4), active %5, scroll %6, scale %7")
                     .arg(probe.cursor_A_pos())
                     .arg(probe.cursor_A_pos_Y())
                     .arg(probe.cursor_B_pos())
                     .arg(probe.cursor_B_pos_Y())
                     .arg(probe.Cur_flag())
                     .arg(probe.scrollfactorX())
                     .arg(probe.master_scale()));
    lines.append(QStringLiteral("slots: %1, selected %2, master %3 (%4)")
                     .arg(probe.rfg_read_index())
                     .arg(probe.rfg_ID())
                     .arg(probe.rfg_master_ID())
                     .arg(probe.master_is_set()));
    lines.append(QStringLiteral("wheel: %1").arg(probe.zoom_wheel_flag()));
    addControls(window, lines);
    return lines;
}

QStringList outfitOf(const MainWindow &window)
{
    QStringList lines;
    const auto widgets = window.findChildren<QWidget *>();
    for (const QWidget *widget : widgets)
        lines.append(QStringLiteral("widget: %1 '%2' tooltip '%3'")
                         .arg(QLatin1String(widget->metaObject()->className()),
                              widget->objectName(), widget->toolTip()));
    const auto menus = window.findChildren<QMenu *>();
    for (const QMenu *menu : menus) {
        const auto entries = menu->actions();
        for (const QAction *entry : entries)
            lines.append(QStringLiteral("entry: '%1' key '%2'")
                             .arg(entry->text(), entry->shortcut().toString()));
    }
    lines.append(QStringLiteral("actions: %1").arg(window.findChildren<QAction *>().size()));
    return lines;
}

QImage screenOf(MainWindow &window)
{
    return withoutClock(QGuiApplication::primaryScreen()->grabWindow(window.winId()), window);
}

QImage freshPictureOf(MainWindow &window)
{
    return withoutClock(window.grab(), window);
}

QRegion lettersOf(MainWindow &window)
{
    const MainWindowProbe probe(window);
    const QGraphicsView *view = probe.Plot_View();
    QRegion letters;
    for (const CurArrow *marker : { probe.cur_arrowA(), probe.cur_arrowB() }) {
        const QRect inView = view->mapFromScene(marker->cur_lbl.sceneBoundingRect()).boundingRect();
        // The bounding rectangle of a letter does not include its pen.
        letters += QRect(view->viewport()->mapTo(&window, inView.topLeft()), inView.size())
                       .adjusted(-2, -2, 2, 2);
    }
    return letters;
}

QString differenceOf(const QImage &one, const QImage &other, const QRegion &letters)
{
    if (one.size() != other.size())
        return QStringLiteral("the sizes differ");
    int pixels = 0;
    int most = 0;
    QRect where;
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x) {
            const int found = apart(one.pixel(x, y), other.pixel(x, y));
            if (found == 0 || (found <= letterRounding && letters.contains(QPoint(x, y))))
                continue;
            ++pixels;
            most = std::max(most, found);
            where |= QRect(x, y, 1, 1);
        }
    if (pixels == 0)
        return {};
    const QDir folder(QCoreApplication::applicationDirPath());
    one.save(folder.filePath(QStringLiteral("one.png")));
    other.save(folder.filePath(QStringLiteral("other.png")));
    return QStringLiteral(
               "%1 pixels differ by up to %2 within %3,%4 %5x%6; see %7/one.png, other.png")
        .arg(pixels)
        .arg(most)
        .arg(where.x())
        .arg(where.y())
        .arg(where.width())
        .arg(where.height())
        .arg(folder.path());
}

QString staleOf(MainWindow &window)
{
    const QImage screen = screenOf(window);
    // The platform gives as many pixels of the backing store as the window has units.
    const QImage fresh = freshPictureOf(window).copy(screen.rect());
    const double scale = window.devicePixelRatioF();
    QRegion letters;
    for (const QRect &letter : lettersOf(window))
        letters += QRect(letter.topLeft() * scale, letter.size() * scale);
    return differenceOf(screen, fresh, letters);
}
