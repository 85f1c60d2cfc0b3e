// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "windowactions.h"

#include "dialoganswer.h"
#include "legendbutton.h"

#include <QAbstractButton>
#include <QAction>
#include <QButtonGroup>
#include <QGraphicsScene>
#include <QPushButton>
#include <QtTest>

namespace {

/// True when the picture on \a button is that of the resource \a path.
bool showsPicture(const QAbstractButton *button, const QString &path)
{
    const QPixmap wanted(path);
    const QPixmap shown = button->icon().pixmap(wanted.size());
    return !wanted.isNull() && shown.toImage() == wanted.toImage();
}

} // namespace

MainWindow &openWith(WindowFixture &fixture, const QVector<TraceBuilder> &traces, int master)
{
    QStringList paths;
    for (int i = 0; i < traces.size(); ++i)
        paths.append(fixture.trace(QStringLiteral("t%1.tdr").arg(i + 1), traces[i]));
    fixture.close();
    WindowFixture::removeSettings();
    if (!paths.isEmpty())
        WindowFixture::writePreviousRun(paths, master);
    return fixture.open();
}

bool chooseFiles(const WindowFixture &fixture, const QStringList &paths)
{
    const auto answer
        = paths.isEmpty() ? answerDialog(cancelDialog) : answerDialog(typeFileNames(paths));
    QTest::mouseClick(fixture.probe().legend_button(), Qt::LeftButton);
    WindowFixture::settle();
    return answer->served();
}

bool loadInto(const WindowFixture &fixture, int slot, const QString &path)
{
    const auto answer
        = path.isEmpty() ? answerDialog(cancelDialog) : answerDialog(typeFileName(path));
    fixture.probe().selected_rfg()[slot]->load_action->trigger();
    WindowFixture::settle();
    return answer->served();
}

QList<QGraphicsItem *> stacked(QGraphicsScene &scene)
{
    // Without an index the scene knows its items only in the order in which they came.
    const QGraphicsScene::ItemIndexMethod method = scene.itemIndexMethod();
    scene.setItemIndexMethod(QGraphicsScene::BspTreeIndex);
    QList<QGraphicsItem *> items = scene.items(Qt::AscendingOrder);
    scene.setItemIndexMethod(method);
    return items;
}

bool showsVisible(const WindowFixture &fixture, int slot, bool master)
{
    const QString path = QStringLiteral("://icons/canal_64/canal_%1").arg(slot + 1);
    return showsPicture(fixture.probe().rfg_buttons()->button(slot),
                        master ? path + QLatin1Char('M') : path);
}

bool showsHidden(const WindowFixture &fixture, int slot)
{
    return showsPicture(fixture.probe().rfg_buttons()->button(slot),
                        QStringLiteral("://icons/canal_64/Canal_Disabled"));
}
