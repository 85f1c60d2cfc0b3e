// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "test_files.h"

#include <QDirIterator>
#include <QRegularExpression>
#include <QSettings>
#include <QtTest>

namespace {

const auto factorySettings = QStringLiteral(":/ini/settings_default.ini");

/// Record of a window of 800 x 500 at (560, 259) inside its frame, on a screen 1920 wide.
QByteArray factoryGeometry()
{
    return QByteArray::fromHex("01d9d0cb 0003 0000 00000228 000000e5 00000557 000002fe"
                               "00000230 00000103 0000054f 000002f6 00000000 00 00 00000780"
                               "00000230 00000103 0000054f 000002f6");
}

/// Version 0, no docks, a central area of 800 x 500.
QByteArray factoryWindowState()
{
    return QByteArray::fromHex("000000ff 00000000 fd 00000000 00000320 000001f4"
                               "00000004 00000004 00000008 00000008 fc 00000000");
}

QStringList bundledFiles()
{
    QStringList files;
    QDirIterator all(QStringLiteral(":/"), QDir::Files, QDirIterator::Subdirectories);
    while (all.hasNext()) {
        const QString path = all.next();
        // Qt's own files are in folders that begin with "q".
        if (!path.startsWith(QLatin1String(":/q")))
            files.append(path);
    }
    return files;
}

const QString builtIn = QStringLiteral(":/style/style_2.qss");
const QString older = QStringLiteral(":/style/style_1.qss");

/// The rules of a sheet in their order, one in each line, without comments.
QString rulesOf(const QString &path)
{
    static const QRegularExpression comment(QStringLiteral("/\\*.*?\\*/"),
                                            QRegularExpression::DotMatchesEverythingOption);
    return QString::fromUtf8(contentOf(path))
        .remove(comment)
        .simplified()
        .replace(QStringLiteral("} "), QStringLiteral("}\n"));
}

} // namespace

/// The files that are compiled in.
class TestResources : public QObject
{
    Q_OBJECT

private slots:
    void bundleHoldsTheNumberOfFilesOfEachKind()
    {
        const auto count = [](const char *pattern) {
            const QRegularExpression expression(QString::fromLatin1(pattern));
            return static_cast<int>(bundledFiles().filter(expression).size());
        };
        QCOMPARE(count("^:/l10n/[^/]+\\.(qm|ini)$"), 4);
        QCOMPARE(count("^:/style/style_[12]\\.qss$"), 2);
        QCOMPARE(count("^:/ini/settings_default\\.ini$"), 1);
        QCOMPARE(count("^:/data/data0[0-4]\\.bin$"), 5);
        QCOMPARE(count("^:/(icons|pix)/([^/]+_64/)?[^/]+\\.(png|ico)$"), 45);
        QCOMPARE(count("^:/sharp/(icons|pix)/([^/]+_64/)?[^/]+@2x\\.png$"), 35);
        QCOMPARE(count("^:/catalogues/Accessibility_[^/]+\\.qm$"), 2);
        QCOMPARE(count("^:/(?!sharp/|catalogues/|docs/)"), 57); // nothing else
    }

    // The list is UTF-16, big-endian, with a byte order mark. Readers stop at the first empty line:
    // the languages after it have no catalogues yet.
    void languageListOffersTwoLanguages()
    {
        const QByteArray bytes = contentOf(QStringLiteral(":/l10n/translation.ini"));
        QCOMPARE(bytes.size(), 162);
        QCOMPARE(bytes.left(2), QByteArray("\xFE\xFF"));
        QString text;
        for (int i = 2; i < bytes.size(); i += 2)
            text.append(QChar(uchar(bytes.at(i + 1)), uchar(bytes.at(i))));
        QCOMPARE(text,
                 QStringLiteral("en_US English\r\nru_RU Русский\r\n\r\n\r\n"
                                "es_ES Español\r\nfr_FR Français\r\nde_DE Deutsch\r\n"));
    }

    void factorySettingsHaveTheExpectedLines()
    {
        const QByteArray bytes = contentOf(factorySettings);
        QCOMPARE(bytes.size(), 478);
        QVERIFY(bytes.endsWith("\r\n"));
        QCOMPARE(bytes.count('\n'), bytes.count("\r\n"));
        QByteArray lines;
        for (const QByteArray &line : bytes.split('\n'))
            lines += line.trimmed().split('(').first() + '\n';
        QCOMPARE(lines,
                 QByteArray("[General]\nlanguage=en_US\nCSS=:/style/style_2.qss\n\n"
                            "[WorkFolders]\n\n"
                            "[PrevFiles]\nStateIndex=0\nMasterId=0\n\n"
                            "[WindowState]\ngeometry=@ByteArray\nwindowState=@ByteArray\n\n"
                            "[Dials]\ncursorSpeed=100\nparamSpeed=100\n\n"));
    }

    void factorySettingsHoldGeometryAndState()
    {
        const QSettings settings(factorySettings, QSettings::IniFormat);
        QCOMPARE(settings.status(), QSettings::NoError);
        QCOMPARE(settings.allKeys().size(), 8);
        QCOMPARE(settings.value(QStringLiteral("WindowState/geometry")), factoryGeometry());
        QCOMPARE(settings.value(QStringLiteral("WindowState/windowState")), factoryWindowState());
    }

    void dataFilesHaveOneSizeAndDiffer()
    {
        QSet<QByteArray> seen;
        for (int i = 0; i < 5; ++i) {
            const QByteArray bytes = contentOf(QStringLiteral(":/data/data0%1.bin").arg(i));
            QCOMPARE(bytes.size(), 493);
            seen.insert(bytes);
        }
        QCOMPARE(seen.size(), 5);
    }

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
};

QTEST_GUILESS_MAIN(TestResources)
#include "tst_resources.moc"
