// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include <QFile>
#include <QPushButton>
#include <QRegularExpression>
#include <QtTest>

namespace {

struct Rule
{
    QString selector;
    QStringList properties;
};

QString sheetText(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// The sheet in its order, without comments and with single blanks. Braces are never nested here.
QVector<Rule> rulesOf(QString sheet)
{
    static const QRegularExpression comment(QStringLiteral("/\\*.*?\\*/"),
                                            QRegularExpression::DotMatchesEverythingOption);
    static const QRegularExpression rule(QStringLiteral("([^{}]+)\\{([^{}]*)\\}"));
    sheet.remove(comment);
    QVector<Rule> rules;
    auto matches = rule.globalMatch(sheet);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        Rule found{ match.captured(1).simplified(), {} };
        for (const QString &property : match.captured(2).split(QLatin1Char(';'))) {
            if (!property.trimmed().isEmpty())
                found.properties.append(property.simplified());
        }
        rules.append(found);
    }
    return rules;
}

struct ExpectedRule
{
    const char *selector;
    const char *properties;
};

const ExpectedRule defaultSheet[] = {
    { "QWidget", "background: rgb(64, 65, 66); color: rgb(230, 230, 230)" },
    { "QTabBar::tab", "color: rgb(64, 65, 66)" },
    { "QMenu::item:selected", "background: rgb(80, 85, 90)" },
    { "QMenu::item:checked, QMenu::item:unchecked", "" },
    { "QMenu::item:disabled", "color: rgb(150, 150, 150)" },
    { "QChart", "background: rgb(180, 100, 200); color: rgb(180, 100, 200)" },
    { "QGraphicsView", "background: rgb(80, 100, 200); color: rgb(180, 100, 200)" },
    { "QGraphicsScene", "background: rgb(80, 150, 100); color: rgb(180, 100, 100)" },
    { "QDial", "color: rgb(64, 65, 66); font-weight: bold" },
    { "QPushButton:disabled", "color: rgb(150, 150, 150)" },
    { "QPushButton#ScaleDown:disabled", "" },
    { "InterfaceButton:pressed:checked", "background: rgb(110, 115, 120)" },
    { "InterfaceButton:hover:!checked", "background: rgb(80, 85, 90)" },
    { "InterfaceButton:pressed:hover:!checked", "background: rgb(80, 85, 90)" },
    { "InterfaceButton:checked, QPushButton:checked", "background: rgb(100, 105, 110)" },
    { "QLabel#delta", "color: rgb(255, 255, 0); font-weight: 500" },
    { "LegendButton:checked, LegendButton:pressed", "border-style: inset; border-width: 4px" },
    { "LegendButton:!checked", "border-style: outset; border-width: 2px" },
    { "LegendButton#rfg_1", "border-color: rgb(0, 255, 0)" },
    { "LegendButton#rfg_2", "border-color: rgb(0, 255, 255)" },
    { "LegendButton#rfg_3", "border-color: rgb(255, 0, 255)" },
    { "LegendButton#rfg_4", "border-color: rgb(255, 0, 0)" },
    { "LegendButton#rfg_5", "border-color: rgb(255, 255, 0)" },
    { "LegendButton#rfg_6", "border-color: rgb(0, 0, 255)" },
    { "LegendButton[vis=\"false\"]", "border-width: 0px" },
    { "LegendButton[vis=\"false\"]:hover", "border-width: 1px" },
    { "LegendButton[mast=\"true\"]",
      "font-weight: 500; font-style: oblique; color: rgb(255, 255, 255)" },
};

const ExpectedRule olderSheet[] = {
    { "QWidget", "background: rgb(64, 65, 66); color: rgb(230, 230, 230)" },
    { "QChart", "background: rgb(180, 100, 200); color: rgb(180, 100, 200)" },
    { "QGraphicsView", "background: rgb(80, 100, 200); color: rgb(180, 100, 200)" },
    { "QGraphicsScene", "background: rgb(80, 150, 200)" },
    { "QPushButton:disabled", "color: rgb(150, 150, 150)" },
    { "QPushButton#rfg_1",
      "border-style: outset; border-width: 3px; border-color: rgb(0, 128, 0)" },
    { "QPushButton#rfg_1:checked", "background: rgb(90, 110, 110); border-style: inset" },
    { "QPushButton#rfg_2",
      "border-style: outset; border-width: 3px; border-color: rgb(180, 200, 50)" },
    { "QPushButton#rfg_2:checked", "background: rgb(90, 110, 110); border-style: inset" },
    { "QPushButton#rfg_3",
      "border-style: outset; border-width: 3px; border-color: rgb(225, 150, 40)" },
    { "QPushButton#rfg_3:checked", "background: rgb(90, 110, 110); border-style: inset" },
    { "QPushButton#rfg_4",
      "border-style: outset; border-width: 3px; border-color: rgb(100, 80, 225)" },
    { "QPushButton#rfg_4:checked", "background: rgb(90, 110, 110); border-style: inset" },
    { "QPushButton#rfg_5",
      "border-style: outset; border-width: 3px; border-color: rgb(180, 80, 25)" },
    { "QPushButton#rfg_5:checked", "background: rgb(90, 110, 110); border-style: inset" },
};

template <std::size_t Count>
void compareRules(const QString &path, const ExpectedRule (&expected)[Count])
{
    constexpr int count = int(Count);
    const QVector<Rule> rules = rulesOf(sheetText(path));
    for (int i = 0; i < count && i < rules.size(); ++i) {
        QCOMPARE(rules.at(i).selector, QString::fromLatin1(expected[i].selector));
        QCOMPARE(rules.at(i).properties.join(QStringLiteral("; ")),
                 QString::fromLatin1(expected[i].properties));
    }
    QCOMPARE(rules.size(), count);
}

QStringList complaints;

void keepComplaint(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type != QtDebugMsg)
        complaints.append(text);
}

} // namespace

class TestStyleSheets : public QObject
{
    Q_OBJECT

private slots:
    void theDefaultSheetHasItsRulesInOrder()
    {
        compareRules(QStringLiteral(":/style/style_2.qss"), defaultSheet);
    }

    void theOlderSheetHasItsRulesInOrder()
    {
        compareRules(QStringLiteral(":/style/style_1.qss"), olderSheet);
    }

    void theToolkitUnderstandsTheSheets_data()
    {
        QTest::addColumn<QString>("path");
        QTest::newRow("default") << ":/style/style_2.qss";
        QTest::newRow("older") << ":/style/style_1.qss";
    }

    void theToolkitUnderstandsTheSheets()
    {
        QFETCH(QString, path);
        QWidget window;
        QPushButton button(&window);
        complaints.clear();
        const QtMessageHandler former = qInstallMessageHandler(keepComplaint);
        window.setStyleSheet(sheetText(path));
        button.ensurePolished();
        qInstallMessageHandler(former);
        QCOMPARE(complaints, QStringList());
        QCOMPARE(button.palette().color(QPalette::Button), QColor(64, 65, 66));
        QCOMPARE(button.palette().color(QPalette::Active, QPalette::ButtonText),
                 QColor(230, 230, 230));
        button.setEnabled(false);
        QCOMPARE(button.palette().color(QPalette::Disabled, QPalette::ButtonText),
                 QColor(150, 150, 150));
    }

    // Fonts follow the size of the window; a size in a sheet would beat every one set by code.
    void noSheetSetsAFontSize()
    {
        for (const char *path : { ":/style/style_2.qss", ":/style/style_1.qss" }) {
            const QString text = sheetText(QString::fromLatin1(path));
            QVERIFY(!text.isEmpty());
            QVERIFY(!text.contains(QLatin1String("font-size")));
            QVERIFY(!text.contains(QLatin1String("font:")));
        }
    }

    void aFontSetByCodeSurvivesTheSheet()
    {
        QWidget window;
        QPushButton button(&window);
        QFont font = button.font();
        font.setPointSize(23);
        button.setFont(font);
        window.setStyleSheet(sheetText(QStringLiteral(":/style/style_2.qss")));
        button.ensurePolished();
        QCOMPARE(button.font().pointSize(), 23);
    }
};

QTEST_MAIN(TestStyleSheets)
#include "tst_style_sheets.moc"
