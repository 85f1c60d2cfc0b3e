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

    void aNewButtonIsHiddenAndNoMaster()
    {
        QCOMPARE(int(button->id), 2);
        QCOMPARE(button->objectName(), QStringLiteral("rfg_3"));
        QCOMPARE(button->name, QStringLiteral("rfg_3"));
        QCOMPARE(button->contextMenu->title(), QStringLiteral("rfg_3"));
        QVERIFY(!button->mast());
        QVERIFY(!button->vis());
        QVERIFY(button->master_action->isEnabled());
        QVERIFY(button->isCheckable());
        QCOMPARE(button->date, QString());
        QCOMPARE(button->vis_icon, nullptr);
        QCOMPARE(button->dict, words.get());
        QCOMPARE(button->parent(), nullptr);
        QCOMPARE(button->contentsMargins(), QMargins(11, 0, 11, 0));
        QCOMPARE(button->sizePolicy().horizontalPolicy(), QSizePolicy::Preferred);
        QCOMPARE(button->sizePolicy().verticalPolicy(), QSizePolicy::Preferred);
        QCOMPARE(button->contextMenuPolicy(), Qt::CustomContextMenu);
        QCOMPARE(button->contextMenu->parent(), button.get());
        QCOMPARE(button->contextMenu->minimumSize(), QSize(100, 100));
    }

    void theSlotsAreNamedFromOne_data()
    {
        QTest::addColumn<int>("slot");
        QTest::addColumn<QString>("name");
        QTest::newRow("first") << 0 << QStringLiteral("rfg_1");
        QTest::newRow("last") << 5 << QStringLiteral("rfg_6");
    }

    void theSlotsAreNamedFromOne()
    {
        QFETCH(int, slot);
        const LegendButton other(words.get(), static_cast<char>(slot));
        QTEST(other.objectName(), "name");
        QTEST(other.name, "name");
    }

    void theMenuHasItsOrder()
    {
        const QList<QAction *> actions = button->contextMenu->actions();
        QCOMPARE(actions.size(), 6);
        QCOMPARE(actions.at(0), button->load_action);
        QCOMPARE(actions.at(1), button->reset_action);
        QCOMPARE(actions.at(2), button->clear_action);
        QVERIFY(actions.at(3)->isSeparator());
        QCOMPARE(actions.at(4), button->master_action);
        QCOMPARE(actions.at(5), button->visible_action);
        QVERIFY(button->visible_action->isCheckable());
        QVERIFY(button->visible_action->isIconVisibleInMenu());
        QVERIFY(!button->load_action->isCheckable());
    }

    void everyActionHasItsPicture()
    {
        for (const QAction *action : own()) {
            QVERIFY(!action->icon().pixmap(32).isNull());
            QCOMPARE(action->parent(), nullptr);
        }
        const auto picture = [](const QString &path) { return QPixmap(path).toImage(); };
        const QIcon reset = button->reset_action->icon();
        QCOMPARE(reset.pixmap(64).toImage(), picture(QStringLiteral("://icons/rest_64/reset")));
        QCOMPARE(reset.pixmap(64, QIcon::Disabled).toImage(),
                 picture(QStringLiteral("://icons/rest_64/reset_disable")));
        QCOMPARE(button->load_action->icon().pixmap(64).toImage(),
                 picture(QStringLiteral("://icons/rest_64/load")));
        QCOMPARE(button->clear_action->icon().pixmap(64).toImage(),
                 picture(QStringLiteral("://icons/rest_64/clear")));
        const QIcon up = button->style()->standardIcon(QStyle::SP_ArrowUp);
        QCOMPARE(button->master_action->icon().pixmap(16).toImage(), up.pixmap(16).toImage());
    }

    void allSlotsShareTheirPictures()
    {
        const LegendButton other(words.get(), 3);
        const auto keyOf
            = [](const QAction &action) { return action.icon().pixmap(64).cacheKey(); };
        QCOMPARE(keyOf(*other.load_action), keyOf(*button->load_action));
        QCOMPARE(keyOf(*other.clear_action), keyOf(*button->clear_action));
    }

    void theTextsComeWithTheFirstRetranslation()
    {
        for (const QAction *action : own()) {
            QCOMPARE(action->text(), QString());
        }
        words->setStrings();
        button->retranslateUI();
        QStringList texts;
        for (const QAction *action : own()) {
            texts << action->text();
        }
        QCOMPARE(texts.join(QLatin1Char('|')),
                 QStringLiteral("Load|Reset|Clear|set Visible|Set as Master"));
    }

    void theNameIsTheTitleOfTheMenu()
    {
        button->setText(QStringLiteral("caption"));
        button->setName(QStringLiteral("cable 7"));
        QCOMPARE(button->name, QStringLiteral("cable 7"));
        QCOMPARE(button->contextMenu->title(), QStringLiteral("cable 7"));
        QCOMPARE(button->text(), QStringLiteral("caption"));
        QCOMPARE(button->objectName(), QStringLiteral("rfg_3"));
    }

    void actionsAskWithTheNumberOfTheSlot()
    {
        QSignalSpy load(button.get(), &LegendButton::load_signal);
        QSignalSpy reset(button.get(), &LegendButton::reset_signal);
        QSignalSpy clear(button.get(), &LegendButton::clear_signal);
        QSignalSpy master(button.get(), &LegendButton::master_signal);
        QSignalSpy visible(button.get(), &LegendButton::visible_signal);
        QSignalSpy menu(button.get(), &LegendButton::contextMenu_signal);
        const QList<QPair<QAction *, QSignalSpy *>> requests{
            { button->load_action, &load },
            { button->reset_action, &reset },
            { button->clear_action, &clear },
            { button->master_action, &master },
        };
        int asked = 0;
        for (const auto &request : requests) {
            request.first->trigger();
            ++asked;
            QCOMPARE(request.second->count(), 1);
            QCOMPARE(request.second->at(0).at(0).value<char>(), char(2));
            QCOMPARE(load.count() + reset.count() + clear.count() + master.count(), asked);
        }
        QCOMPARE(visible.count() + menu.count(), 0);
        QVERIFY(!button->mast());
    }

    void visibilityIsAskedForTheOtherWayRound_data()
    {
        QTest::addColumn<bool>("shown");
        QTest::newRow("shown") << true;
        QTest::newRow("hidden") << false;
    }

    void visibilityIsAskedForTheOtherWayRound()
    {
        QFETCH(bool, shown);
        button->setVis(shown);
        QSignalSpy spy(button.get(), &LegendButton::visible_signal);
        button->visible_action->trigger();
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.at(0).at(0).value<char>(), char(2));
        QCOMPARE(spy.at(0).at(1).toBool(), !shown);
        // Nobody answered: nothing has changed, the check mark included.
        QCOMPARE(button->vis(), shown);
        QCOMPARE(button->visible_action->isChecked(), shown);
    }

    void theCheckMarkFollowsTheAnswer()
    {
        connect(button.get(), &LegendButton::visible_signal, button.get(),
                [this](char, bool wanted) { button->setVis(wanted); });
        button->visible_action->trigger();
        QVERIFY(button->vis());
        QVERIFY(button->visible_action->isChecked());
        button->visible_action->trigger();
        QVERIFY(!button->vis());
        QVERIFY(!button->visible_action->isChecked());
    }

    void settersNeverAsk()
    {
        QSignalSpy visible(button.get(), &LegendButton::visible_signal);
        QSignalSpy master(button.get(), &LegendButton::master_signal);
        QSignalSpy visChanged(button.get(), &LegendButton::visChanged);
        QSignalSpy mastChanged(button.get(), &LegendButton::mastChanged);
        button->setVis(true);
        button->setVis(true);
        button->setMast(true);
        QCOMPARE(visible.count() + master.count(), 0);
        QCOMPARE(visChanged.count(), 2);
        QCOMPARE(visChanged.at(0).at(0).toBool(), true);
        QCOMPARE(mastChanged.count(), 1);
        QVERIFY(button->visible_action->isChecked());
    }

    void aMasterIsNotMadeMasterAgain()
    {
        button->setMast(true);
        QVERIFY(button->mast());
        QVERIFY(!button->master_action->isEnabled());
        button->setMast(false);
        QVERIFY(button->master_action->isEnabled());
    }

    void enablingTheMenuEnablesTheMasterEntryOnAMaster()
    {
        button->setMast(true);
        button->menuEnable(true);
        QVERIFY(button->master_action->isEnabled());
    }

    void anEmptySlotCanStillBeLoaded()
    {
        button->menuEnable(false);
        QVERIFY(button->load_action->isEnabled());
        for (const QAction *action : { button->reset_action, button->clear_action,
                                       button->visible_action, button->master_action }) {
            QVERIFY(!action->isEnabled());
        }
        button->menuEnable(true);
        for (const QAction *action : own()) {
            QVERIFY(action->isEnabled());
        }
    }

    void aRightClickAsksForTheMenu()
    {
        QSignalSpy spy(button.get(), &LegendButton::contextMenu_signal);
        const QPoint place(3, 3);
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, button->mapToGlobal(place));
        QCoreApplication::sendEvent(button.get(), &event);
        QCOMPARE(spy.count(), 1);
        QCOMPARE(spy.at(0).at(0).value<char>(), char(2));
        QVERIFY(!button->contextMenu->isVisible());
    }

    void theSignalsStandInTheirOrder()
    {
        const QMetaObject &meta = LegendButton::staticMetaObject;
        QStringList names;
        for (int i = meta.methodOffset(); i < meta.methodCount(); ++i) {
            names << QString::fromLatin1(meta.method(i).methodSignature());
        }
        QCOMPARE(names.join(QLatin1Char(' ')),
                 QStringLiteral("load_signal(char) reset_signal(char) clear_signal(char) "
                                "visible_signal(char,bool) master_signal(char) "
                                "contextMenu_signal(char) visChanged(bool) mastChanged(bool)"));
    }

    void sheetsSeeTheProperties()
    {
        QWidget window;
        window.setStyleSheet(
            QStringLiteral("LegendButton { border: none; background: rgb(1, 1, 1); }"
                           "LegendButton[vis=\"true\"] { background: rgb(0, 200, 0); }"
                           "LegendButton[mast=\"true\"] { background: rgb(0, 0, 200); }"));
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
    }

    void theActionsDieWithTheButton()
    {
        QList<QPointer<QAction>> actions;
        for (QAction *action : own()) {
            actions << action;
        }
        button.reset();
        for (const QPointer<QAction> &action : actions) {
            QVERIFY(action.isNull());
        }
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
