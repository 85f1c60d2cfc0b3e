// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ini_text.h"
#include "testfiles.h"

#include <QRandomGenerator>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

#include <cctype>

namespace {

/// What QSettings wrote, as our writer is to write it. Qt 6 leaves letters beyond ASCII as they
/// are, in UTF-8. Ours stay escapes with either toolkit, so that each reads the files of the other.
QByteArray withEscapedLetters(const QByteArray &written)
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
    QByteArray text;
    bool afterNumber = false;
    for (const QChar c : QString::fromUtf8(written)) {
        const bool digit = c.unicode() < 0x7f && std::isxdigit(c.unicode()) != 0;
        afterNumber = c.unicode() >= 0x7f || (afterNumber && digit);
        text += afterNumber ? "\\x" + QByteArray::number(c.unicode(), 16)
                            : QByteArray(1, static_cast<char>(c.unicode()));
    }
    return text;
#else
    return written;
#endif
}

/// What QSettings writes to a new file for one string of the general section.
QByteArray toolkitText(const QString &value)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("toolkit.ini"));
    {
        QSettings ini(path, QSettings::IniFormat);
        ini.setValue(QStringLiteral("key"), value);
    }
    return withEscapedLetters(contentOf(path));
}

QString randomText(QRandomGenerator &random)
{
    const QString alphabet = QStringLiteral("aF7 @;,=\"\\\n\r\t\a\x01\x7f(Я€)%/") + QChar(0);
    QString text;
    for (int left = random.bounded(12); left > 0; --left) {
        text += alphabet.at(random.bounded(alphabet.size()));
    }
    return text;
}

} // namespace

class TestIniText : public QObject
{
    Q_OBJECT

private slots:
    void nothingSetIsAnEmptyText()
    {
        QCOMPARE(IniText().bytes(), QByteArray());
    }

    void aGroupWithoutKeysLeavesNoTrace()
    {
        IniText ini;
        ini.beginGroup(QStringLiteral("Dials"));
        QCOMPARE(ini.bytes(), QByteArray());
    }

    void sectionsAndKeysStandInTheToolkitsOrder()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("toolkit.ini"));
        {
            QSettings ini(path, QSettings::IniFormat);
            ini.setValue(QStringLiteral("language"), QStringLiteral("en_US"));
            ini.setValue(QStringLiteral("CSS"), QStringLiteral("C:\\a b.qss"));
            ini.setValue(QStringLiteral("WorkFolders/folder2"), QStringLiteral("b"));
            ini.setValue(QStringLiteral("WorkFolders/folder1"), QString());
            ini.setValue(QStringLiteral("PrevFiles/MasterId"), -1);
            ini.setValue(QStringLiteral("PrevFiles/StateIndex"), 63);
            ini.setValue(QStringLiteral("WindowState/geometry"),
                         QByteArray("\x01\xd9\x00g\xff\n", 6));
            ini.setValue(QStringLiteral("WindowState/windowState"), QByteArray());
        }
        IniText ini;
        ini.setValue(QStringLiteral("language"), QStringLiteral("en_US"));
        ini.setValue(QStringLiteral("CSS"), QStringLiteral("C:\\a b.qss"));
        ini.beginGroup(QStringLiteral("WorkFolders"));
        ini.setValue(QStringLiteral("folder2"), QStringLiteral("b"));
        ini.setValue(QStringLiteral("folder1"), QString());
        ini.beginGroup(QStringLiteral("PrevFiles"));
        ini.setValue(QStringLiteral("MasterId"), -1);
        ini.setValue(QStringLiteral("StateIndex"), 63);
        ini.beginGroup(QStringLiteral("WindowState"));
        ini.setValue(QStringLiteral("geometry"), QByteArray("\x01\xd9\x00g\xff\n", 6));
        ini.setValue(QStringLiteral("windowState"), QByteArray());
        QCOMPARE(ini.bytes(), contentOf(path));
    }

    void stringsAreWrittenAsTheToolkitWritesThem_data()
    {
        QTest::addColumn<QString>("value");
        QTest::newRow("empty") << QString();
        QTest::newRow("path") << QStringLiteral("/home/u/a.tdr");
        QTest::newRow("backslashes") << QStringLiteral("D:\\x\\n.tdr");
        QTest::newRow("comma") << QStringLiteral("a,b");
        QTest::newRow("leading blank") << QStringLiteral(" a");
        QTest::newRow("trailing blank") << QStringLiteral("a ");
        QTest::newRow("at sign") << QStringLiteral("@home");
        QTest::newRow("looks like an object") << QStringLiteral("@Variant(x)");
        QTest::newRow("all that has a letter of its own") << QStringLiteral("a\a\b\f\n\r\t\v\"\\z");
        QTest::newRow("digit after a number") << QStringLiteral("\x01\x66\x31g1");
        QTest::newRow("Russian") << QStringLiteral("Документы");
        QTest::newRow("null character") << QString(QChar(0)) + QLatin1Char('7');
    }

    void stringsAreWrittenAsTheToolkitWritesThem()
    {
        QFETCH(QString, value);
        IniText ini;
        ini.setValue(QStringLiteral("key"), value);
        QCOMPARE(ini.bytes(), toolkitText(value));
        QVERIFY(!holdsSerialisedObject(ini.bytes()));
    }

    void randomStringsAreWrittenAsTheToolkitWritesThem()
    {
        QRandomGenerator random(20260101);
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("toolkit.ini"));
        IniText text;
        {
            QSettings ini(path, QSettings::IniFormat);
            for (int i = 1000; i < 4000; ++i) {
                const QString key = QStringLiteral("key%1").arg(i);
                const QString value = randomText(random);
                ini.setValue(key, value);
                text.setValue(key, value);
            }
        }
        const QList<QByteArray> lines = text.bytes().split('\n');
        const QList<QByteArray> expected = withEscapedLetters(contentOf(path)).split('\n');
        QCOMPARE(lines.size(), expected.size());
        for (int i = 0; i < lines.size(); ++i) {
            QCOMPARE(lines.at(i), expected.at(i));
        }
    }

    // Of either toolkit, and of its successor: the settings move along when the program does.
    void lettersBeyondAsciiAreReadBack()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("ours.ini"));
        const QString text = QStringLiteral("/дом/Яa7/naïve – €.tdr");
        const QByteArray record("\x01\xd9\x00g\xff\n", 6);
        IniText ini;
        ini.setValue(QStringLiteral("text"), text);
        ini.setValue(QStringLiteral("record"), record);
        writeFile(path, ini.bytes());
        const QSettings read(path, QSettings::IniFormat);
        QCOMPARE(read.value(QStringLiteral("text")).toString(), text);
        QCOMPARE(read.value(QStringLiteral("record")).toByteArray(), record);
    }

    void serialisedObjectsAreFound_data()
    {
        QTest::addColumn<QByteArray>("ini");
        QTest::addColumn<bool>("found");
        QTest::newRow("nothing") << QByteArray() << false;
        QTest::newRow("plain") << QByteArray("a=@Variant(x)") << true;
        QTest::newRow("date") << QByteArray("a=@DateTime(x)") << true;
        QTest::newRow("item of a list") << QByteArray("a=b, @Variant(x)") << true;
        QTest::newRow("quoted in pieces") << QByteArray("a=\"@Var\" \"iant(x)\"") << true;
        QTest::newRow("hexadecimal") << QByteArray("a=\\x40Variant(x)") << true;
        QTest::newRow("hexadecimal beyond 16 bits") << QByteArray("a=\\x10040Variant(x)") << true;
        QTest::newRow("octal") << QByteArray("a=\\100Variant(x)") << true;
        QTest::newRow("unknown escape") << QByteArray("a=@Var\\qiant(x)") << true;
        QTest::newRow("broken line") << QByteArray("a=@Var\\\niant(x)") << true;
        QTest::newRow("byte-order mark") << QByteArray("a=\xef\xbb\xbf@Variant(x)") << true;
        QTest::newRow("escaped string") << QByteArray("a=@@Variant(x)") << false;
        QTest::newRow("inside a path") << QByteArray("a=/b/@Variant(x)/c") << false;
        QTest::newRow("byte array") << QByteArray("a=@ByteArray(x)") << false;
        QTest::newRow("backslash at the end") << QByteArray("a=\\") << false;
        QTest::newRow("number at the end") << QByteArray("a=\\x4") << false;
    }

    void serialisedObjectsAreFound()
    {
        QFETCH(QByteArray, ini);
        QTEST(holdsSerialisedObject(ini), "found");
    }
};

QTEST_GUILESS_MAIN(TestIniText)
#include "tst_ini_text.moc"
