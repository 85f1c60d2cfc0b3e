// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialoganswer.h"
#include "extras/keys.h"
#include "extras/tooltips.h"
#include "threetracestest.h"
#include "window_state.h"

#include <QKeyEvent>
#include <QRegularExpression>
#include <QSet>
#include <QSettings>
#include <QtTest>

namespace {

/// A key with modifiers as Qt and, with few exceptions, the page writes it: "Shift+F2".
QString nameOf(int key, Qt::KeyboardModifiers modifiers)
{
    return QKeySequence(key | int(modifiers)).toString();
}

QStringList sorted(const QSet<QString> &names)
{
    QStringList list = names.values();
    list.sort();
    return list;
}

/// The keys that a cell of the page names: "N, P", "Ctrl++, Ctrl+-", ", and .", "1 to 6".
QSet<QString> keysOfCell(const QString &cell)
{
    static const QRegularExpression between(
        QStringLiteral("(?<=.)(?:, (?!and |и )| and | or | и | или )(?=.)"));
    static const QRegularExpression range(QStringLiteral("^(?:от )?(\\d)(?: to | до )(\\d)$"));
    QSet<QString> names;
    const QStringList parts = cell.split(between);
    for (QString name : parts) {
        const auto found = range.match(name);
        if (!found.hasMatch())
            names.insert(name.replace(QLatin1String("Page "), QLatin1String("Pg"))
                             .replace(QLatin1String("Delete"), QLatin1String("Del")));
        else
            for (int i = found.captured(1).toInt(); i <= found.captured(2).toInt(); ++i)
                names.insert(QString::number(i));
    }
    return names;
}

QString pageIn(const char *language)
{
    QFile file(QStringLiteral(VELKOR_MANUAL_SOURCES "/%1/keys.md").arg(QLatin1String(language)));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// The keys of the window that \a page names.
QSet<QString> keysOfPage(const QString &page)
{
    QSet<QString> names;
    // Tables with another column are about dialogs, other tables about the pointer.
    static const QRegularExpression head(QStringLiteral("^\\| (Key|Клавиша) \\| [^|]* \\|$"));
    static const QRegularExpression row(QStringLiteral("^\\| (.+?) \\| [^|]* \\|$"));
    bool inTable = false;
    const QStringList lines = page.split(QLatin1Char('\n'));
    for (const QString &line : lines) {
        const auto found = row.match(line);
        if (!found.hasMatch())
            inTable = inTable && line.startsWith(QLatin1String("|-"));
        else if (head.match(line).hasMatch())
            inTable = true;
        // Alt+F4 is a key of the desktop.
        else if (inTable && !found.captured(1).startsWith(QLatin1String("Alt+F4")))
            names += keysOfCell(found.captured(1));
    }
    return names;
}

/// Every key of a keyboard with English letters, without the marks that are typed with Shift.
QVector<int> allKeys()
{
    QVector<int> keys;
    for (int key = Qt::Key_Space; key <= Qt::Key_AsciiTilde; ++key)
        if (!QStringLiteral("<>{}=").contains(QChar(key)))
            keys.append(key);
    for (int key = Qt::Key_Escape; key <= Qt::Key_PageDown; ++key)
        keys.append(key);
    for (int key = Qt::Key_F1; key <= Qt::Key_F12; ++key)
        keys.append(key);
    return keys;
}

/// The keys, with their modifiers, that have an effect when \a control of \a window has the focus.
/// They are pressed one after the other; dialogs that open are cancelled.
QSet<QString> keysThatCount(MainWindow &window, const QObject *control)
{
    QSet<QString> counting;
    const QVector<int> keys = allKeys();
    for (const int key : keys) {
        // The digits and "+" need Shift on some keyboards and mean the same with it.
        const bool either = key == Qt::Key_Plus || (key >= Qt::Key_0 && key <= Qt::Key_9);
        for (const Qt::KeyboardModifiers modifiers :
             { Qt::KeyboardModifiers(Qt::NoModifier), Qt::KeyboardModifiers(Qt::ShiftModifier),
               Qt::KeyboardModifiers(Qt::ControlModifier), Qt::KeyboardModifiers(Qt::AltModifier),
               Qt::ControlModifier | Qt::ShiftModifier }) {
            const auto answer = answerDialog(cancelDialog);
            const QKeyEvent event(QEvent::KeyPress, key, modifiers);
            if (extras::keyPressed(window, event, control))
                counting.insert(nameOf(key, either ? modifiers & ~Qt::ShiftModifier : modifiers));
            WindowFixture::settle();
        }
    }
    return counting;
}

/// The keys that the tooltips of the controls name, in a line of their own.
QStringList keysInTooltips(const MainWindow &window)
{
    QStringList names;
    const auto widgets = window.findChildren<QWidget *>();
    for (const QWidget *widget : widgets) {
        const QString line = extras::tooltipOf(window, widget).section(QLatin1Char('\n'), 1, 1);
        if (widget->isVisible() && line.startsWith(QLatin1String("Key: ")))
            names += line.mid(5).split(QStringLiteral(" and "));
    }
    return names;
}

QStringList namesOfSettings()
{
    return QSettings(WindowFixture::settingsFile(), QSettings::IniFormat).allKeys();
}

} // namespace

/// Compares the manual's page of keys with the keys, and checks the window after their use.
class TestExtrasPageOfKeys : public ThreeTracesTest
{
    Q_OBJECT

private slots:
    void pageNamesEachKeyAndNoOtherAndTooltipsNameSome()
    {
        MainWindow &window = openThree();
        const QStringList inTooltips = keysInTooltips(window);
        const QSet<QString> counting = keysThatCount(window, &window);
        QCOMPARE(inTooltips.size(), 27);
        for (const QString &name : inTooltips)
            QVERIFY2(counting.contains(name), qPrintable(name));
        for (const char *language : { "en", "ru" }) {
            const QSet<QString> named = keysOfPage(pageIn(language));
            QCOMPARE(sorted(named - counting), QStringList());
            QCOMPARE(sorted(counting - named), QStringList());
        }
        QCOMPARE(sorted(keysThatCount(window, probe().Plot_View()) - counting),
                 QStringList({ QStringLiteral("Down"), QStringLiteral("Left"),
                               QStringLiteral("Right"), QStringLiteral("Shift+Left"),
                               QStringLiteral("Shift+Right"), QStringLiteral("Up") }));
    }

    void keysLeaveNoObjectsOrSettingsBehind()
    {
        openThree(false);
        fixture->close();
        const QStringList kept = namesOfSettings();

        MainWindow &window = openThree();
        const auto outfit = [&window] {
            QStringList lines = outfitOf(window);
            lines.sort();
            return lines;
        };
        const QStringList before = outfit();
        QVERIFY(!keysThatCount(window, probe().Plot_View()).isEmpty());
        QTRY_COMPARE_WITH_TIMEOUT(outfit(), before, 15000);
        fixture->close();
        QCOMPARE(namesOfSettings(), kept);
    }
};

QTEST_MAIN(TestExtrasPageOfKeys)
#include "tst_extras_page_of_keys.moc"
