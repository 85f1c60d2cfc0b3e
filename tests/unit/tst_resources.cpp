// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/constants.h"

#include <QDirIterator>
#include <QFile>
#include <QSettings>
#include <QTemporaryDir>
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
        // Qt's own files are in folders that begin with "q".
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
    void theBundleHoldsEachKindInItsNumber()
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

    void bothFormsOfAPathNameTheSameFile()
    {
        const QByteArray once = contents(QStringLiteral(":/style/style_2.qss"));
        QVERIFY(!once.isEmpty());
        QCOMPARE(contents(QStringLiteral("://style/style_2.qss")), once);
    }

    // UTF-16, big-endian with a mark. Readers stop at the first empty line: the languages behind it
    // have no catalogues yet.
    void theLanguageListOffersTwoLanguages()
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

    void theFactorySettingsKeepTheirLines()
    {
        const QByteArray bytes = contents(constants::defaultSettings);
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

    void theFactorySettingsReadBack()
    {
        const QSettings settings(constants::defaultSettings, QSettings::IniFormat);
        QCOMPARE(settings.status(), QSettings::NoError);
        QCOMPARE(settings.allKeys().size(), 8);
        const auto value = [&settings](const char *key) {
            return settings.value(QString::fromLatin1(key)).toByteArray();
        };
        QCOMPARE(value("language"), QByteArray("en_US"));
        QCOMPARE(value("CSS"), QByteArray(":/style/style_2.qss"));
        QCOMPARE(value("PrevFiles/StateIndex"), QByteArray("0"));
        QCOMPARE(value("PrevFiles/MasterId"), QByteArray("0"));
        QCOMPARE(value("Dials/cursorSpeed"), QByteArray("100"));
        QCOMPARE(value("Dials/paramSpeed"), QByteArray("100"));
        QCOMPARE(value("WindowState/geometry"), factoryGeometry());
        QCOMPARE(value("WindowState/windowState"), factoryWindowState());
    }

    // So a file that the program saved can replace the factory file.
    void theByteArraysAreWrittenAsQtWritesThem()
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
