// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "settingsdefaults.h"
#include "testfiles.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QtTest>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

/// Settings files that no run of the viewer leaves behind.
class TestSettingsDamage : public QObject
{
    Q_OBJECT

private slots:
    void init()
    {
        folder.reset(new QTemporaryDir);
        path = folder->filePath(QStringLiteral("a.ini"));
    }

    void strangeFilesAreSafe_data()
    {
        QTest::addColumn<QByteArray>("bytes");
        QTest::addColumn<bool>("defaults");
        QTest::newRow("empty") << QByteArray() << true;
        QTest::newRow("nulls") << QByteArray(4096, '\0') << true;
        QTest::newRow("no sections") << QByteArray(70000, '\xff') << true;
        QTest::newRow("open section") << QByteArray("[General\nlanguage") << true;
        QTest::newRow("backslashes") << QByteArray(5001, '\\') << true;
        QTest::newRow("ten megabytes") << QByteArray(10 * 1024 * 1024, 'a') << true;
        QTest::newRow("many keys") << QByteArray("a=1\n").repeated(500000) << true;
        QTest::newRow("wrong types") << QByteArray("[General]\nlanguage=@Size(1 2)\nCSS=a, b\n"
                                                   "[PrevFiles]\nStateIndex=1, 2\n"
                                                   "[WindowState]\ngeometry=@Rect(1)\n"
                                                   "[Dials]\ncursorSpeed=fast\n")
                                     << false;
        // A list of lists without end, and one of two thousand million items.
        QTest::newRow("nested objects") << "[General]\nlanguage=@Variant("
                + QByteArray("\\0\\0\\0\\x9\\0\\0\\0\\x1").repeated(200000)
                + ")\n" << true;
        QTest::newRow("an enormous object")
            << QByteArray("[Mine]\nx=@Variant(\\0\\0\\0\\x9\\x7f\\xff\\xff\\xff)\n") << true;
    }

    void strangeFilesAreSafe()
    {
        QFETCH(QByteArray, bytes);
        QFETCH(bool, defaults);
        writeFile(path, bytes);
        SettingsData data(nullptr);
        data.loadSettings(path, 63);
        if (defaults) {
            expectDefaults(data);
        } else {
            QCOMPARE(data.current_CSS_path, QString());
            QCOMPARE(data.cursor_dial_speed, 0);
            QCOMPARE(data.read_index, 0);
        }
        data.saveSettings(path, 32);
        QVERIFY(contentOf(path).startsWith("[Dials]"));
    }

    void randomBytesAreSafe()
    {
        QRandomGenerator random(7);
        const QByteArray parts[] = { "[General]\n",
                                     "language=",
                                     "CSS=",
                                     "[Dials]\n",
                                     "cursorSpeed=",
                                     "@ByteArray(",
                                     "@Rect(1 2 3 4)",
                                     "\\x",
                                     "\"",
                                     "\n",
                                     ",",
                                     ";",
                                     "%",
                                     "=",
                                     "[",
                                     "geometry=" };
        for (int i = 0; i < 100; ++i) {
            QByteArray bytes;
            while (bytes.size() < 400) {
                bytes += parts[random.bounded(16)];
                bytes += static_cast<char>(random.bounded(256));
            }
            path = folder->filePath(QString::number(i));
            writeFile(path, bytes);
            SettingsData data(nullptr);
            QCOMPARE(data.loadSettings(path, 63), false);
            data.saveSettings(path, 63);
            SettingsData again(nullptr);
            again.loadSettings(path, 63);
            QCOMPARE(again.current_language, data.current_language);
            QCOMPARE(again.window_geometry, data.window_geometry);
        }
    }

#ifdef Q_OS_UNIX
    void aPlaceThatIsNoRegularFileIsNeitherReadNorWritten()
    {
        QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
        for (const QString &place : { path, folder->path(), QString() }) {
            SettingsData data(nullptr);
            data.loadSettings(place, 63);
            expectDefaults(data);
            data.saveSettings(place, 63);
        }
        QVERIFY(!QFileInfo(path).isFile());
        QCOMPARE(QDir(folder->path()).entryList(QDir::System | QDir::Files).size(), 1);
    }

    void aLockFileHoldsNothingUp()
    {
        QVERIFY(QDir().mkdir(path + QStringLiteral(".lock")));
        SettingsData data(nullptr);
        data.saveSettings(path, 32);
        QCOMPARE(contentOf(path), QByteArray("[Dials]\ncursorSpeed=100\nparamSpeed=100\n"));
    }
#endif

private:
    QScopedPointer<QTemporaryDir> folder;
    QString path;
};

QTEST_GUILESS_MAIN(TestSettingsDamage)
#include "tst_settings_damage.moc"
