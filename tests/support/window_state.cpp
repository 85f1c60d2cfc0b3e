// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "window_state.h"

#include "cont_dial.h"
#include "contrast.h"
#include "curarrow.h"
#include "datetime_lbl.h"
#include "mainwindowprobe.h"

#include <QAbstractButton>
#include <QAction>
#include <QDebug>
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

/// Adds the line "name: values".
template <typename... Values>
void add(QStringList &lines, const QString &name, const Values &...values)
{
    QString line = name + QLatin1String(": ");
    QDebug out(&line);
    out << qSetRealNumberPrecision(17);
    (out << ... << values);
    lines.append(line);
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

void addChart(const MainWindowProbe &probe, QStringList &lines)
{
    const auto names = seriesNames(probe);
    const auto order = probe.Plot_Chart()->series();
    for (QAbstractSeries *series : order) {
        const auto *line = static_cast<const QXYSeries *>(series);
        const QVector<QPointF> points = qtcompat::pointsOf(*line);
        auto hash = qHash(0);
        for (const QPointF &point : points)
            hash = qHash(point.y(), qHash(point.x(), hash));
        const auto axes = series->attachedAxes();
        add(lines, names.value(series), line->isVisible(), points.size(), "points", hash,
            line->pen(), line->pen().widthF(), line->opacity(), axes.size(), "axes",
            axes.contains(probe.cust_axisX()), axes.contains(probe.cust_axisY()));
    }
    add(lines, QStringLiteral("plot area"), probe.Plot_Chart()->plotArea());
    add(lines, QStringLiteral("range"), probe.cust_axisX()->min(), probe.cust_axisX()->max(),
        probe.cust_axisY()->min(), probe.cust_axisY()->max());
    add(lines, QStringLiteral("scene items"), probe.Plot_Scene()->items().size());
}

void addText(const QString &name, const QGraphicsSimpleTextItem &item, QStringList &lines)
{
    add(lines, name, item.isVisible(), item.text(), item.font(), "at", item.pos());
}

void addScene(const MainWindowProbe &probe, QStringList &lines)
{
    addText(QStringLiteral("title"), probe.chart_title(), lines);
    addText(QStringLiteral("cursor step"), probe.cursor_step_lbl(), lines);
    const auto addPair = [&lines](const QString &name, const QGraphicsLineItem &line,
                                  const QGraphicsSimpleTextItem &label) {
        // A hidden pair is updated before it is shown, so its values do not count.
        if (!line.isVisible() && !label.isVisible()) {
            add(lines, name, "hidden");
            return;
        }
        addText(name, label, lines);
        add(lines, name, line.isVisible(), line.x(), line.line());
    };
    for (int i = 0; i < constants::gridLines; ++i)
        addPair(QStringLiteral("grid %1").arg(i), probe.axis_lines()[i], probe.axis_lbl()[i]);
    for (int i = 0; i < constants::gridEdges; ++i)
        addPair(QStringLiteral("edge %1").arg(i), probe.axis_0_lines()[i], probe.axis_0_lbl()[i]);
    for (const CurArrow *marker : { probe.cur_arrowA(), probe.cur_arrowB() })
        add(lines, QStringLiteral("marker"), int{ marker->id }, marker->color,
            marker->cur_arrow1.isVisible(), marker->pos, marker->scale, marker->cur_lbl.x(),
            marker->group->zValue());
}

void addControls(const MainWindow &window, QStringList &lines)
{
    const auto buttons = window.findChildren<QAbstractButton *>();
    for (const QAbstractButton *button : buttons)
        add(lines, QStringLiteral("button"), button->text(), button->isChecked(),
            button->isEnabled(), button->font());
    const auto entries = window.findChildren<QAction *>();
    for (const QAction *entry : entries)
        add(lines, QStringLiteral("entry"), entry->text(), entry->isChecked(), entry->isEnabled());
    const auto labels = window.findChildren<QLabel *>();
    for (const QLabel *label : labels)
        if (qobject_cast<const DateTime_lbl *>(label) == nullptr)
            add(lines, QStringLiteral("label"), label->text());
    const auto dials = window.findChildren<Cont_dial *>();
    for (const Cont_dial *dial : dials)
        add(lines, QStringLiteral("dial"), dial->titleText, dial->trueValue, dial->trueMin,
            dial->trueMax, ", position", dial->value(), dial->maximum());
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

/// Places of the markers' letters in both pictures. Qt rounds the edges of outlined letters
/// differently from one repaint to the next.
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

} // namespace

QStringList stateOf(MainWindow &window)
{
    const MainWindowProbe probe(window);
    QStringList lines;
    addChart(probe, lines);
    addScene(probe, lines);
    add(lines, QStringLiteral("cursors"), probe.cursor_A_pos(), probe.cursor_A_pos_Y(),
        probe.cursor_B_pos(), probe.cursor_B_pos_Y(), probe.Cur_flag(), "scroll",
        probe.scrollfactorX(), "scale", probe.master_scale());
    add(lines, QStringLiteral("slots"), probe.rfg_read_index(), "selected", probe.rfg_ID(),
        "master", probe.rfg_master_ID(), probe.master_is_set());
    add(lines, QStringLiteral("wheel"), probe.zoom_wheel_flag());
    addControls(window, lines);
    return lines;
}

QStringList outfitOf(const MainWindow &window)
{
    QStringList lines;
    const auto widgets = window.findChildren<QWidget *>();
    for (const QWidget *widget : widgets)
        add(lines, QStringLiteral("widget"), widget->metaObject()->className(),
            widget->objectName(), widget->toolTip());
    const auto menus = window.findChildren<QMenu *>();
    for (const QMenu *menu : menus) {
        const auto entries = menu->actions();
        for (const QAction *entry : entries)
            add(lines, QStringLiteral("entry"), entry->text(), entry->shortcut());
    }
    add(lines, QStringLiteral("actions"), window.findChildren<QAction *>().size());
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
    const QString folder = QCoreApplication::applicationDirPath();
    one.save(folder + QStringLiteral("/one.png"));
    other.save(folder + QStringLiteral("/other.png"));
    return QStringLiteral("%1 pixels differ by up to %2 within %3,%4 %5x%6; see one.png and "
                          "other.png in %7")
        .arg(pixels)
        .arg(most)
        .arg(where.x())
        .arg(where.y())
        .arg(where.width())
        .arg(where.height())
        .arg(folder);
}

QString staleOf(MainWindow &window)
{
    const QImage screen = screenOf(window);
    // The platform returns one pixel of the backing store per device-independent unit of the
    // window.
    const QImage fresh = freshPictureOf(window).copy(screen.rect());
    const double scale = window.devicePixelRatioF();
    QRegion letters;
    for (const QRect &letter : lettersOf(window))
        letters += QRect(letter.topLeft() * scale, letter.size() * scale);
    return differenceOf(screen, fresh, letters);
}
