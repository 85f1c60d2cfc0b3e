// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/ini_text.h"
#include "each.h"
#include "test_files.h"

#include <QElapsedTimer>
#include <QRandomGenerator>
#include <QSettings>
#include <QTemporaryDir>
#include <QtTest>

#include <cctype>

namespace {

/// \a written by QSettings with the escapes that IniWriter uses in both versions of Qt: Qt 6 writes
/// letters beyond ASCII as UTF-8.
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

QString randomText(QRandomGenerator &random)
{
    const QString alphabet = QStringLiteral("aF7 @;,=\"\\\n\r\t\a\x01\x7f(Я€)%/") + QChar(0);
    QString text;
    for (int left = random.bounded(12); left > 0; --left)
        text += alphabet.at(random.bounded(alphabet.size()));
    return text;
}

/// A random INI text of tokens that QSettings treats specially.
QByteArray randomIni(QRandomGenerator &random)
{
    static const QByteArrayList pieces
        = QByteArray("[General]\n|[Dials]|[dials]\n|[|]|\n|\r\n|\n\n|language=|cursorSpeed = |"
                     "Dials/cursorSpeed=|=|;|\"|\\|\\\n|\\\r\n|\\x|\\x41|\\1018|\\n|\\'|\\q|,| |"
                     "\t|a|17|@|@@|@ByteArray(|@String(|@Invalid()|)|%41")
              .split('|');
    QByteArray text;
    for (int left = random.bounded(12); left > 0; --left)
        text += pieces.at(random.bounded(int(pieces.size())));
    return text;
}

} // namespace

class TestIniText : public QObject
{
    Q_OBJECT

private slots:
    void noValuesGiveAnEmptyText()
    {
        IniWriter ini;
        ini.beginGroup(QStringLiteral("Dials"));
        QCOMPARE(ini.bytes(), QByteArray());
    }

    void fileIsWrittenAsByQSettings()
    {
        const QByteArray record("\x01\xd9\x00g\xff\n", 6);
        const auto fill = [&record](auto &ini) {
            ini.setValue(QStringLiteral("language"), QStringLiteral("en_US"));
            ini.setValue(QStringLiteral("CSS"), QStringLiteral("C:\\a b.qss"));
            ini.beginGroup(QStringLiteral("WindowState"));
            ini.setValue(QStringLiteral("geometry"), record);
            ini.setValue(QStringLiteral("windowState"), QByteArray());
            ini.setValue(QStringLiteral("folder"), QString());
            ini.setValue(QStringLiteral("StateIndex"), 63);
            ini.setValue(QStringLiteral("MasterId"), -1);
        };
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("qt.ini"));
        {
            QSettings expected(path, QSettings::IniFormat);
            fill(expected);
        }
        IniWriter ini;
        fill(ini);
        QCOMPARE(ini.bytes(), contentOf(path));
    }

    void keysAreInInsertionOrderOnWindowsAndSortedElsewhere()
    {
        IniWriter ini;
        ini.setValue(QStringLiteral("language"), 1);
        ini.setValue(QStringLiteral("CSS"), 2);
        ini.beginGroup(QStringLiteral("WorkFolders"));
        ini.setValue(QStringLiteral("lastFolder"), 3);
        ini.beginGroup(QStringLiteral("Dials"));
        ini.setValue(QStringLiteral("paramSpeed"), 4);
        const auto lines = [&ini](IniWriter::Order order) {
            return ini.bytes(order)
                .replace("\r\n", "\n")
                .replace("\n\n", "\n")
                .split('\n')
                .join('|');
        };
        QCOMPARE(
            lines(IniWriter::AsSet),
            QByteArray(
                "[General]|language=1|CSS=2|[WorkFolders]|lastFolder=3|[Dials]|paramSpeed=4|"));
        QCOMPARE(
            lines(IniWriter::Sorted),
            QByteArray(
                "[General]|CSS=2|language=1|[Dials]|paramSpeed=4|[WorkFolders]|lastFolder=3|"));
    }

    void stringsAreWrittenAsByQSettingsAndReadBack()
    {
        QStringList values{ QString(),
                            QStringLiteral("/home/u/a.tdr"),
                            QStringLiteral("D:\\x\\n.tdr"),
                            QStringLiteral("a,b"),
                            QStringLiteral(" a "),
                            QStringLiteral("a\t"),
                            QStringLiteral("@home"),
                            QStringLiteral("@Variant(x)"),
                            QStringLiteral("/b,@DateTime(x)"),
                            QStringLiteral("a\a\b\f\n\r\t\v\"\\z"),
                            QStringLiteral("\x01\x66\x31g1"),
                            QStringLiteral("Документы – €"),
                            QString(QChar(0)) + QLatin1Char('7') };
        QRandomGenerator random(20260101);
        while (values.size() < 3000)
            values.append(randomText(random));

        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("qt.ini"));
        const auto key = [](int i) { return QStringLiteral("key%1").arg(10000 + i); };
        IniWriter written;
        {
            QSettings ini(path, QSettings::IniFormat);
            for (int i = 0; i < values.size(); ++i) {
                ini.setValue(key(i), values.at(i));
                written.setValue(key(i), values.at(i));
            }
        }
        const QByteArrayList lines = written.bytes().split('\n');
        const QByteArrayList expected = withEscapedLetters(contentOf(path)).split('\n');
        QCOMPARE(lines.size(), expected.size());
        for (int i = 0; i < lines.size(); ++i)
            QCOMPARE(lines.at(i), expected.at(i));
        const IniReader read(written.bytes());
        for (int i = 0; i < values.size(); ++i)
            QCOMPARE(read.value(key(i)).toString(), values.at(i));
    }

    void anyTextIsReadAsByQSettings()
    {
        QRandomGenerator random(20260102);
        const QTemporaryDir folder;
        for (int i = 0; i < 5000; ++i) {
            const QByteArray bytes = randomIni(random);
            // A new name each time, because QSettings caches by name.
            const QString path = folder.filePath(QString::number(i));
            writeFile(path, bytes);
            QSettings expected(path, QSettings::IniFormat);
            IniReader read(bytes);
            const auto compare = [&](const char *group, const char *key) {
                const QString name = QLatin1String(group) + QLatin1String(key);
                const QString missing = QStringLiteral("missing");
                const QVariant wanted = expected.value(name, missing);
                const QVariant got = read.value(QLatin1String(key), missing);
                // IniReader reads any line break inside quotes as \n.
                QVERIFY2(got.toString().remove(QLatin1Char('\r'))
                             == wanted.toString().remove(QLatin1Char('\r')),
                         bytes.constData());
                QVERIFY2(got.toByteArray().replace("\r", "")
                             == wanted.toByteArray().replace("\r", ""),
                         bytes.constData());
                QVERIFY2(got.toInt() == wanted.toInt(), bytes.constData());
            };
            compare("", "language");
            read.beginGroup(QStringLiteral("Dials"));
            compare("Dials/", "cursorSpeed");
            if (QTest::currentTestFailed())
                return;
        }
    }

    void serialisedObjectCountsAsMissingAndOtherKeysAreRead()
    {
        struct Row
        {
            const char *name;
            QByteArray value;
            QString expected;
        };
        const QString fallback = QStringLiteral("fallback");
        each<Row>({ { "object", "@Variant(x)", fallback },
                    { "date", "@DateTime(x)", fallback },
                    { "quoted in pieces", "\"@Var\" \"iant(x)\"", fallback },
                    { "escaped", "\\x10040Var\\q\\\niant(x)", fallback },
                    { "octal", "\\100Variant(x)", fallback },
                    { "in a list", "b, @Variant(x)", QString() },
                    { "string", "@@Variant(x)", QStringLiteral("@Variant(x)") },
                    { "inside a path", "/b/@Variant(x)/c", QStringLiteral("/b/@Variant(x)/c") },
                    { "not closed", "@Variant(x", QStringLiteral("@Variant(x") },
                    { "list of lists",
                      "@Variant(" + QByteArray("\\0\\0\\0\\x9\\0\\0\\0\\x1").repeated(200000) + ")",
                      fallback },
                    { "2^31 items", "@Variant(\\0\\0\\0\\x9\\x7f\\xff\\xff\\xff)", fallback } },
                  [&](const Row &row) {
                      const IniReader ini("before=1\nx=" + row.value + "\nafter=2\n");
                      QCOMPARE(ini.value(QStringLiteral("x"), fallback).toString(), row.expected);
                      QCOMPARE(ini.value(QStringLiteral("before")).toInt(), 1);
                      QCOMPARE(ini.value(QStringLiteral("after")).toInt(), 2);
                  });
    }

    void readingTimeIsLinear()
    {
        constexpr int size = 4 << 20;
        QByteArray keys;
        while (keys.size() < size)
            keys += QByteArray::number(keys.size(), 36) + "=1\n";
        for (const QByteArray &text : { keys, QByteArray(size, ' '), QByteArray(size, '"'),
                                        QByteArray(";\n").repeated(size / 2) }) {
            QElapsedTimer clock;
            clock.start();
            const IniReader ini(text);
            // Half a second in a release build.
            QVERIFY2(clock.elapsed() < 10000, text.left(10).constData());
        }
    }
};

QTEST_GUILESS_MAIN(TestIniText)
#include "tst_ini_text.moc"
