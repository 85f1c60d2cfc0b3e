// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "window_actions.h"

#include "dialoganswer.h"
#include "legendbutton.h"

#include <QAction>
#include <QGraphicsScene>
#include <QInputDialog>
#include <QPushButton>
#include <QtTest>

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

void answerEntry(QWidget *button, const std::function<void(QInputDialog &)> &answer)
{
    const auto server = answerDialog([&answer](QDialog &dialog) {
        answer(dynamic_cast<QInputDialog &>(dialog));
        if (dialog.isVisible())
            dialog.reject();
    });
    QTest::mousePress(button, Qt::RightButton);
    if (!server->served())
        qFatal("no entry dialog");
}

QList<QGraphicsItem *> stacked(QGraphicsScene &scene)
{
    // Without an index the scene lists its items in the order of their creation only.
    const QGraphicsScene::ItemIndexMethod method = scene.itemIndexMethod();
    scene.setItemIndexMethod(QGraphicsScene::BspTreeIndex);
    QList<QGraphicsItem *> items = scene.items(Qt::AscendingOrder);
    scene.setItemIndexMethod(method);
    return items;
}
