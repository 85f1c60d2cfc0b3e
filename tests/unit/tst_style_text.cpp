// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/style_text.h"
#include "testfiles.h"

#include <QTemporaryDir>
#include <QtTest>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

/// What the toolkit gets of a sheet, and what not.
class TestStyleText : public QObject
{
    Q_OBJECT

private slots:
    void aSheetThatNamesNoSpecialFileStaysAsItIs_data()
    {
        QTest::addColumn<QString>("sheet");
        const auto row
            = [](const char *name, const QString &sheet) { QTest::newRow(name) << sheet; };
        row("empty", {});
        row("no file", QStringLiteral("QWidget { color: red } /* url of nothing */"));
        row("missing", QStringLiteral("QWidget { image: url(/no/such/picture.png) }"));
        row("resource", QStringLiteral("QWidget { image: url(:/pix/logo.png) }"));
        row("relative", QStringLiteral("QWidget { image: url(\"pix/my logo.png\") }"));
        row("folder", QStringLiteral("QWidget { image: url(/) }"));
        row("brackets left open", QStringLiteral("QWidget { image: url((("));
        row("quote left open", QStringLiteral("QWidget { image: url(\"/a"));
        row("backslash at the end", QStringLiteral("url(\\"));
        row("escapes", QStringLiteral("\\75\\72\\6c(\\2f) \\110000 \\q \\00041"));
        row("property", QStringLiteral("QLabel { qproperty-text: \"<img src='/no/such'>\" }"));
        row("zero characters", QString(QChar(0)) + QStringLiteral("url(\"a") + QChar(0));
    }

    void aSheetThatNamesNoSpecialFileStaysAsItIs()
    {
        QFETCH(QString, sheet);
        QCOMPARE(style_text::withoutPipes(sheet), sheet);
    }

    void aPictureStays()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("a.png"));
        writeFile(path, "not really a picture");
        const QString sheet = QStringLiteral("QWidget { image: url(%1) }").arg(path);
        QCOMPARE(style_text::withoutPipes(sheet), sheet);
    }

    void anEmptyFileIsTakenOut()
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("a.png"));
        writeFile(path, {});
        QCOMPARE(style_text::withoutPipes(QStringLiteral("QWidget { image: url(%1) }").arg(path)),
                 QStringLiteral("QWidget { image: url() }"));
    }

#ifdef Q_OS_UNIX
    void aPipeIsTakenOut_data()
    {
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("after");
        const auto row = [](const char *name, const char *before, const char *after) {
            QTest::newRow(name) << QString::fromLatin1(before) << QString::fromLatin1(after);
        };
        row("bare", "QWidget { image: url(PIPE) } QLabel { color: red }",
            "QWidget { image: url() } QLabel { color: red }");
        row("quoted", "QWidget { image: url(\"PIPE\") }", "QWidget { image: url(\"\") }");
        row("single quotes", "image: url('PIPE')", "image: url('')");
        row("blanks around", "image: url( \n PIPE\t)", "image: url( \n \t)");
        row("twice", "a: url(PIPE); b: url(PIPE)", "a: url(); b: url()");
        row("never closed", "image: url(PIPE", "image: url(");
        row("one inside the other", "a: url(x url(PIPE))", "a: url(x url())");
        row("escaped function", "image: u\\72l(PIPE)", "image: u\\72l()");
        row("escaped function, capital digits", "image: ur\\6C(PIPE)", "image: ur\\6C()");
        row("escaped letter", "image: u\\rl(PIPE)", "image: u\\rl()");
        row("escaped path", "image: url(FOLDER/pip\\65)", "image: url()");
        row("escaped path, six digits", "image: url(FOLDER/\\000070ipe)", "image: url()");
        row("without its ending", "image: url(FOLDER/ending)", "image: url()");
        row("bracket in the name", "image: url(FOLDER/a(b))", "image: url()");
        row("picture in a text", "QLabel { qproperty-text: \"<img src='PIPE'>\" }",
            "QLabel { qproperty-text: \"<img src=''>\" }");
        row("a device", "image: url(/dev/zero)", "image: url()");
        row("a link", "image: url(FOLDER/link)", "image: url()");
    }

    void aPipeIsTakenOut()
    {
        QFETCH(QString, before);
        QFETCH(QString, after);
        const QTemporaryDir folder;
        for (const char *name : { "pipe", "ending.png", "a(b)" }) {
            const QString path = folder.filePath(QString::fromLatin1(name));
            QCOMPARE(mkfifo(QFile::encodeName(path).constData(), 0600), 0);
        }
        const QString pipe = folder.filePath(QStringLiteral("pipe"));
        QVERIFY(QFile::link(pipe, folder.filePath(QStringLiteral("link"))));
        const auto filledIn = [&](QString text) {
            return text.replace(QStringLiteral("PIPE"), pipe)
                .replace(QStringLiteral("FOLDER"), folder.path());
        };
        QCOMPARE(style_text::withoutPipes(filledIn(before)), filledIn(after));
    }
#endif

    void aSheetOfTenThousandPartsIsTheLargest()
    {
        QVERIFY(style_text::isReasonable({}));
        QVERIFY(style_text::isReasonable(QByteArray(4 << 20, ' ')));
        QVERIFY(style_text::isReasonable(QByteArray(10000, '{')));
        for (const char part : { '{', ';', ',', '\\', '(' })
            QVERIFY(!style_text::isReasonable(QByteArray(10001, part)));
    }

    void theBuiltInSheetsAreReasonable()
    {
        for (const char *path : { ":/style/style_1.qss", ":/style/style_2.qss" }) {
            const QByteArray sheet = contentOf(QString::fromLatin1(path));
            QVERIFY(sheet.size() > 100);
            QVERIFY(style_text::isReasonable(sheet));
            QCOMPARE(style_text::withoutPipes(QString::fromLatin1(sheet)),
                     QString::fromLatin1(sheet));
        }
    }
};

QTEST_GUILESS_MAIN(TestStyleText)
#include "tst_style_text.moc"
