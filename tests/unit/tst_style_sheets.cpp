// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "testfiles.h"

#include <QPushButton>
#include <QRegularExpression>
#include <QtTest>

namespace {

const QString builtIn = QStringLiteral(":/style/style_2.qss");
const QString older = QStringLiteral(":/style/style_1.qss");

QString textOf(const QString &path)
{
    return QString::fromUtf8(contentOf(path));
}

/// The rules of a sheet in their order, one in each line, without comments.
QString rulesOf(const QString &path)
{
    static const QRegularExpression comment(QStringLiteral("/\\*.*?\\*/"),
                                            QRegularExpression::DotMatchesEverythingOption);
    return textOf(path).remove(comment).simplified().replace(QStringLiteral("} "),
                                                             QStringLiteral("}\n"));
}

QStringList warnings;

void keepWarning(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type != QtDebugMsg)
        warnings.append(text);
}

} // namespace

class TestStyleSheets : public QObject
{
    Q_OBJECT

private slots:
    void builtInSheetHasItsRulesInOrder()
    {
        QCOMPARE(rulesOf(builtIn),
                 QStringLiteral(R"(
QWidget { background: rgb(64, 65, 66); color: rgb(230, 230, 230); }
QTabBar::tab { color: rgb(64, 65, 66); }
QMenu::item:selected { background: rgb(80, 85, 90); }
QMenu::item:checked, QMenu::item:unchecked { }
QMenu::item:disabled { color: rgb(150, 150, 150); }
QChart { background: rgb(180, 100, 200); color: rgb(180, 100, 200); }
QGraphicsView { background: rgb(80, 100, 200); color: rgb(180, 100, 200); }
QGraphicsScene { background: rgb(80, 150, 100); color: rgb(180, 100, 100); }
QDial { color: rgb(64, 65, 66); font-weight: bold; }
QPushButton:disabled { color: rgb(150, 150, 150); }
QPushButton#ScaleDown:disabled { }
InterfaceButton:pressed:checked { background: rgb(110, 115, 120); }
InterfaceButton:hover:!checked { background: rgb(80, 85, 90); }
InterfaceButton:pressed:hover:!checked { background: rgb(80, 85, 90); }
InterfaceButton:checked, QPushButton:checked { background: rgb(100, 105, 110); }
QLabel#delta { color: rgb(255, 255, 0); font-weight: 500; }
LegendButton:checked, LegendButton:pressed { border-style: inset; border-width: 4px; }
LegendButton:!checked { border-style: outset; border-width: 2px; }
LegendButton#rfg_1 { border-color: rgb(0, 255, 0); }
LegendButton#rfg_2 { border-color: rgb(0, 255, 255); }
LegendButton#rfg_3 { border-color: rgb(255, 0, 255); }
LegendButton#rfg_4 { border-color: rgb(255, 0, 0); }
LegendButton#rfg_5 { border-color: rgb(255, 255, 0); }
LegendButton#rfg_6 { border-color: rgb(0, 0, 255); }
LegendButton[vis="false"] { border-width: 0px; }
LegendButton[vis="false"]:hover { border-width: 1px; }
LegendButton[mast="true"] { font-weight: 500; font-style: oblique; color: rgb(255, 255, 255); }
)")
                     .trimmed());
    }

    void olderSheetHasItsRulesInOrder()
    {
        QString expected = QStringLiteral(R"(
QWidget { background: rgb(64, 65, 66); color: rgb(230, 230, 230); }
QChart { background: rgb(180, 100, 200); color: rgb(180, 100, 200); }
QGraphicsView { background: rgb(80, 100, 200); color: rgb(180, 100, 200); }
QGraphicsScene { background: rgb(80, 150, 200); }
QPushButton:disabled { color: rgb(150, 150, 150); }
)")
                               .trimmed();
        int slot = 0;
        for (const char *colour :
             { "0, 128, 0", "180, 200, 50", "225, 150, 40", "100, 80, 225", "180, 80, 25" })
            expected += QStringLiteral("\nQPushButton#rfg_%1 { border-style: outset; "
                                       "border-width: 3px; border-color: rgb(%2); }"
                                       "\nQPushButton#rfg_%1:checked { background: rgb(90, 110, "
                                       "110); border-style: inset; }")
                            .arg(++slot)
                            .arg(QLatin1String(colour));
        QCOMPARE(rulesOf(older), expected);
    }

    void qtReadsTheSheetsWithoutAWarning()
    {
        for (const QString &path : { builtIn, older }) {
            QWidget window;
            QPushButton button(&window);
            const QtMessageHandler former = qInstallMessageHandler(keepWarning);
            window.setStyleSheet(textOf(path));
            button.ensurePolished();
            qInstallMessageHandler(former);
            QCOMPARE(warnings, QStringList());
            const QPalette palette = button.palette();
            QCOMPARE(palette.color(QPalette::Button), QColor(64, 65, 66));
            QCOMPARE(palette.color(QPalette::Active, QPalette::ButtonText), QColor(230, 230, 230));
            button.setEnabled(false);
            QCOMPARE(button.palette().color(QPalette::Disabled, QPalette::ButtonText),
                     QColor(150, 150, 150));
        }
    }

    // A size in a sheet would override the sizes that the window sets by code. Any other font
    // property in a sheet does not.
    void sheetsSetNoFontSize()
    {
        for (const QString &path : { builtIn, older })
            QVERIFY(!rulesOf(path).contains(QRegularExpression(QStringLiteral("font(-size)?:"))));
        QWidget window;
        QPushButton button(&window);
        QFont font = button.font();
        font.setPointSize(23);
        button.setFont(font);
        window.setStyleSheet(textOf(builtIn));
        button.ensurePolished();
        QCOMPARE(button.font().pointSize(), 23);
    }
};

QTEST_MAIN(TestStyleSheets)
#include "tst_style_sheets.moc"
