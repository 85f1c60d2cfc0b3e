// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/constants.h"

#include <QDirIterator>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
#include <QTextStream>
#include <QtTest>

namespace {

QByteArray contents(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// A window of 800 x 500 at (560, 259) inside its frame, on a screen 1920 wide.
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
        // The toolkit keeps files of its own in the same tree, all in folders named with a "q".
        if (!path.startsWith(QLatin1String(":/q")))
            files.append(path);
    }
    return files;
}

} // namespace

class TestResources : public QObject
{
    Q_OBJECT

private slots:
    void theBundleHoldsEachKindInItsNumber_data()
    {
        QTest::addColumn<QString>("pattern");
        QTest::addColumn<int>("count");
        QTest::newRow("catalogues and list") << "^:/l10n/[^/]+\\.(qm|ini)$" << 4;
        QTest::newRow("style sheets") << "^:/style/style_[12]\\.qss$" << 2;
        QTest::newRow("factory settings") << "^:/ini/settings_default\\.ini$" << 1;
        QTest::newRow("data files") << "^:/data/data0[0-4]\\.bin$" << 5;
        QTest::newRow("pictures") << "^:/(icons|pix)/([^/]+_64/)?[^/]+\\.(png|ico)$" << 45;
        QTest::newRow("finer pictures") << "^:/sharp/(icons|pix)/([^/]+_64/)?[^/]+@2x\\.png$" << 35;
        QTest::newRow("what is spoken") << "^:/catalogues/Accessibility_[^/]+\\.qm$" << 2;
        QTest::newRow("nothing else") << "^:/(?!sharp/|catalogues/|docs/)" << 57;
    }

    void theBundleHoldsEachKindInItsNumber()
    {
        QFETCH(QString, pattern);
        const QStringList found = bundledFiles().filter(QRegularExpression(pattern));
        QTEST(static_cast<int>(found.size()), "count");
    }

    void bothFormsOfAPathNameTheSameFile()
    {
        const QByteArray once = contents(QStringLiteral(":/style/style_2.qss"));
        QVERIFY(!once.isEmpty());
        QCOMPARE(contents(QStringLiteral("://style/style_2.qss")), once);
    }

    void theLanguageListIsBigEndianWithAMark()
    {
        const QByteArray bytes = contents(constants::languageFile);
        QCOMPARE(bytes.size(), 162);
        QCOMPARE(bytes.left(2), QByteArray("\xFE\xFF"));
        QString text;
        for (int i = 2; i < bytes.size(); i += 2)
            text.append(QChar(uchar(bytes.at(i + 1)), uchar(bytes.at(i))));
        QCOMPARE(text,
                 QStringLiteral("en_US English\r\nru_RU Русский\r\n\r\n\r\n"
                                "es_ES Español\r\nfr_FR Français\r\nde_DE Deutsch\r\n"));
    }

    // Whoever reads up to the first empty line must not be offered a language without a catalogue.
    void twoLanguagesStandBeforeTheFirstEmptyLine()
    {
        QFile file(constants::languageFile);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QTextStream stream(&file);
        QCOMPARE(stream.readLine(), QStringLiteral("en_US English"));
        QCOMPARE(stream.readLine(), QStringLiteral("ru_RU Русский"));
        QCOMPARE(stream.readLine(), QString());
        QCOMPARE(stream.readLine(), QString());
        QCOMPARE(stream.readLine(), QStringLiteral("es_ES Español"));
    }

    void theFactorySettingsKeepTheirLines()
    {
        const QByteArray bytes = contents(constants::defaultSettings);
        QCOMPARE(bytes.size(), 478);
        QVERIFY(bytes.endsWith("\r\n"));
        QCOMPARE(bytes.count('\n'), bytes.count("\r\n"));
        QList<QByteArray> lines;
        for (const QByteArray &line : bytes.split('\n'))
            lines.append(line.trimmed().split('(').first());
        const QList<QByteArray> expected{ "[General]",
                                          "language=en_US",
                                          "CSS=:/style/style_2.qss",
                                          "",
                                          "[WorkFolders]",
                                          "",
                                          "[PrevFiles]",
                                          "StateIndex=0",
                                          "MasterId=0",
                                          "",
                                          "[WindowState]",
                                          "geometry=@ByteArray",
                                          "windowState=@ByteArray",
                                          "",
                                          "[Dials]",
                                          "cursorSpeed=100",
                                          "paramSpeed=100",
                                          "" };
        QCOMPARE(lines, expected);
    }

    void theFactorySettingsReadBack_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QByteArray>("value");
        QTest::newRow("language") << "language" << QByteArray("en_US");
        QTest::newRow("style") << "CSS" << QByteArray(":/style/style_2.qss");
        QTest::newRow("files") << "PrevFiles/StateIndex" << QByteArray("0");
        QTest::newRow("master") << "PrevFiles/MasterId" << QByteArray("0");
        QTest::newRow("cursor dial") << "Dials/cursorSpeed" << QByteArray("100");
        QTest::newRow("parameter dial") << "Dials/paramSpeed" << QByteArray("100");
        QTest::newRow("geometry") << "WindowState/geometry" << factoryGeometry();
        QTest::newRow("window state") << "WindowState/windowState" << factoryWindowState();
    }

    void theFactorySettingsReadBack()
    {
        QFETCH(QString, key);
        const QSettings settings(constants::defaultSettings, QSettings::IniFormat);
        QCOMPARE(settings.status(), QSettings::NoError);
        QCOMPARE(settings.allKeys().size(), 8);
        QTEST(settings.value(key).toByteArray(), "value");
    }

    // A file saved by the program and the factory file look alike, so one can be copied to the
    // other.
    void theByteArraysAreWrittenAsTheToolkitWritesThem()
    {
        QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("saved.ini"));
        {
            QSettings settings(path, QSettings::IniFormat);
            settings.setValue(QStringLiteral("geometry"), factoryGeometry());
            settings.setValue(QStringLiteral("windowState"), factoryWindowState());
        }
        const QByteArray factory = contents(constants::defaultSettings);
        int compared = 0;
        for (const QByteArray &line : contents(path).split('\n')) {
            if (!line.contains("@ByteArray"))
                continue;
            QVERIFY2(factory.contains(line.trimmed()), line.constData());
            ++compared;
        }
        QCOMPARE(compared, 2);
    }

    void theDataFilesAreOfOneSizeAndAllDifferent()
    {
        QSet<QByteArray> seen;
        for (int i = 0; i < 5; ++i) {
            const QByteArray bytes = contents(QStringLiteral(":/data/data0%1.bin").arg(i));
            QCOMPARE(bytes.size(), 493);
            seen.insert(bytes);
        }
        QCOMPARE(seen.size(), 5);
    }
};

QTEST_GUILESS_MAIN(TestResources)
#include "tst_resources.moc"
