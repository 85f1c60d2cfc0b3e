// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dictionary.h"
#include "legendbutton.h"

#include <QAction>
#include <QMenu>
#include <QPointer>
#include <QSignalSpy>
#include <QStyle>
#include <QtTest>

#include <memory>

class TestLegendButton : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        words.reset(new Dictionary(nullptr));
        button.reset(new LegendButton(words.get(), 2));
    }

    void newButtonIsHiddenAndNoMaster()
    {
        QCOMPARE(int(button->id), 2);
        QCOMPARE(button->contextMenu->title(), QStringLiteral("rfg_3"));
        QVERIFY(!button->mast());
        QVERIFY(!button->vis());
        QVERIFY(button->isCheckable());
        QCOMPARE(button->contentsMargins(), QMargins(11, 0, 11, 0));
        QCOMPARE(button->contextMenuPolicy(), Qt::CustomContextMenu);
        QCOMPARE(button->contextMenu->minimumSize(), QSize(100, 100));
    }

    void menuHasItsOrder()
    {
        QList<QAction *> actions = button->contextMenu->actions();
        QVERIFY(actions.value(3) && actions.takeAt(3)->isSeparator());
        QCOMPARE(actions,
                 (QList<QAction *>{ button->load_action, button->reset_action, button->clear_action,
                                    button->master_action, button->visible_action }));
        for (const QAction *action : own())
            QCOMPARE(action->isCheckable(), action == button->visible_action);
        QVERIFY(button->visible_action->isIconVisibleInMenu());
    }

    void actionsHaveTheirIcons()
    {
        const auto shows = [](const QAction *action, const char *path, QIcon::Mode mode) {
            return action->icon().pixmap(64, mode).toImage()
                == QPixmap(QString::fromLatin1(path)).toImage();
        };
        QVERIFY(shows(button->load_action, "://icons/rest_64/load", QIcon::Normal));
        QVERIFY(shows(button->reset_action, "://icons/rest_64/reset", QIcon::Normal));
        QVERIFY(shows(button->reset_action, "://icons/rest_64/reset_disable", QIcon::Disabled));
        QVERIFY(shows(button->clear_action, "://icons/rest_64/clear", QIcon::Normal));
        const QIcon up = button->style()->standardIcon(QStyle::SP_ArrowUp);
        QCOMPARE(button->master_action->icon().pixmap(16).toImage(), up.pixmap(16).toImage());
        for (const QAction *action : own())
            QVERIFY(!action->icon().pixmap(32).isNull());
        // All buttons share the icons.
        const LegendButton other(words.get(), 3);
        const auto keyOf
            = [](const QAction &action) { return action.icon().pixmap(64).cacheKey(); };
        QCOMPARE(keyOf(*other.load_action), keyOf(*button->load_action));
        QCOMPARE(keyOf(*other.clear_action), keyOf(*button->clear_action));
    }

    void requestsCarryTheSlotAndChangeNothing()
    {
        QStringList requests;
        const auto log = [&requests](const char *name) {
            return [&requests, name](char id) {
                requests += QStringLiteral("%1 %2").arg(QLatin1String(name)).arg(int(id));
            };
        };
        connect(button.get(), &LegendButton::load_signal, log("load"));
        connect(button.get(), &LegendButton::reset_signal, log("reset"));
        connect(button.get(), &LegendButton::clear_signal, log("clear"));
        connect(button.get(), &LegendButton::master_signal, log("master"));
        connect(button.get(), &LegendButton::contextMenu_signal, log("menu"));
        connect(button.get(), &LegendButton::visible_signal, [&](char id, bool wanted) {
            requests += QStringLiteral("visible %1 %2").arg(int(id)).arg(wanted);
        });
        for (QAction *action : own())
            action->trigger();
        const QPoint place(3, 3);
        QContextMenuEvent rightClick(QContextMenuEvent::Mouse, place, button->mapToGlobal(place));
        QCoreApplication::sendEvent(button.get(), &rightClick);
        QCOMPARE(requests.join(QLatin1Char('|')),
                 QStringLiteral("load 2|reset 2|clear 2|visible 2 1|master 2|menu 2"));
        QVERIFY(!button->mast());
        QVERIFY(!button->vis());
        QVERIFY(!button->visible_action->isChecked());
        QVERIFY(!button->contextMenu->isVisible());
        requests.clear();
        button->setVis(true);
        button->visible_action->trigger();
        QCOMPARE(requests, QStringList{ QStringLiteral("visible 2 0") });
        QVERIFY(button->vis());
        QVERIFY(button->visible_action->isChecked());
    }

    void settersEmitTheirChangeAndNoRequest()
    {
        const QSignalSpy visible(button.get(), &LegendButton::visible_signal);
        const QSignalSpy master(button.get(), &LegendButton::master_signal);
        const QSignalSpy visChanged(button.get(), &LegendButton::visChanged);
        const QSignalSpy mastChanged(button.get(), &LegendButton::mastChanged);
        button->setVis(true);
        button->setVis(true);
        button->setMast(true);
        QCOMPARE(visible.count() + master.count(), 0);
        QCOMPARE(visChanged.count(), 2);
        QCOMPARE(visChanged.at(0).at(0).toBool(), true);
        QCOMPARE(mastChanged.count(), 1);
        QVERIFY(button->visible_action->isChecked());
    }

    void signalsOfTheSlotAreDeclaredInTheirOrder()
    {
        const QMetaObject &meta = LegendButton::staticMetaObject;
        QByteArrayList names;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i)
            names += meta.method(i).methodSignature();
        QCOMPARE(names.join(' '),
                 QByteArray("load_signal(char) reset_signal(char) clear_signal(char) "
                            "visible_signal(char,bool) master_signal(char) "
                            "contextMenu_signal(char) visChanged(bool) mastChanged(bool)"));
    }

    void sheetsAreAppliedAgainWithTheProperties()
    {
        QWidget window;
        window.setStyleSheet(
            QStringLiteral("LegendButton { border: none; background: rgb(1, 1, 1); }"
                           "LegendButton[vis=\"true\"] { background: rgb(0, 200, 0); }"
                           "LegendButton[mast=\"true\"] { background: rgb(0, 0, 200); }"
                           "LegendButton[other=\"true\"] { background: rgb(200, 0, 0); }"));
        LegendButton *child = button.release();
        child->setParent(&window);
        child->resize(40, 40);
        window.resize(60, 60);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        const auto colour = [&] { return window.grab().toImage().pixelColor(5, 5); };
        QCOMPARE(colour(), QColor(1, 1, 1));
        child->setVis(true);
        QCOMPARE(colour(), QColor(0, 200, 0));
        child->setMast(true);
        QCOMPARE(colour(), QColor(0, 0, 200));
        child->setMast(false);
        QCOMPARE(colour(), QColor(0, 200, 0));
        child->setProperty("vis", false);
        QCOMPARE(colour(), QColor(1, 1, 1));
        // The sheets are applied even if the value does not change.
        child->setProperty("other", true);
        child->setVis(false);
        QCOMPARE(colour(), QColor(200, 0, 0));
        child->setProperty("other", false);
        child->setMast(false);
        QCOMPARE(colour(), QColor(1, 1, 1));
    }

    void actionsAreDeletedWithTheButton()
    {
        QVector<QPointer<QAction>> actions;
        for (QAction *action : own()) {
            QCOMPARE(action->parent(), nullptr);
            actions += action;
        }
        button.reset();
        for (const QPointer<QAction> &action : actions)
            QVERIFY(action.isNull());
    }

private:
    QList<QAction *> own() const
    {
        return { button->load_action, button->reset_action, button->clear_action,
                 button->visible_action, button->master_action };
    }

    std::unique_ptr<Dictionary> words;
    std::unique_ptr<LegendButton> button;
};

QTEST_MAIN(TestLegendButton)
#include "tst_legendbutton.moc"
