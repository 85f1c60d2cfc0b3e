// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/style_text.h"
#include "test_files.h"

#include <QTemporaryDir>
#include <QtTest>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace {

QString repeated(const char *text, int times)
{
    return QString::fromLatin1(text).repeated(times);
}

/// The first of \a sheets, in quotes, whose answer is not \a expected; empty when there is none.
QString wrongAnswer(const QStringList &sheets, bool expected)
{
    for (const QString &sheet : sheets)
        if (style_text::isAcceptable(sheet) != expected)
            return QLatin1Char('"') + sheet.left(80) + QLatin1Char('"');
    return {};
}

QStringList texts(std::initializer_list<const char *> sheets)
{
    QStringList result;
    for (const char *sheet : sheets)
        result += QString::fromUtf8(sheet);
    return result;
}

} // namespace

/// Which style sheets are applied.
class TestStyleText : public QObject
{
    Q_OBJECT

private slots:
    void ordinarySheetsAreAccepted()
    {
        QStringList sheets = texts({
            "",
            "QLabel { color: red }",
            "color: red",
            "QLabel { lineedit-password-character: 9679; font: 900 12pt \"1942 report\" }",
            "QLabel[text=\"12345678\"], QLabel#n12345678 { color: #12345678 }",
            "QLabel { background: qlineargradient(x1:0, y1:0, x2:1, y2:0.5, stop:0 red) }",
            "QLabel { font-family: \"\\5b8b\\4f53\", 'a\\'b' } InfoBar { color: red }",
            "QDialog { button-layout: 3 }",
            "QLabel { font-size: 1.5em }",
            "QLabel { border-radius: 999px; border-image: url(:/pix/logo.png) 400 400 }",
            "/* qproperty-text: \"\"; min-width: 40000px; \" ' url(/dev/zero) */ * { color: red }",
            "QLabel { image: url(/20240101/no/such/picture.png) }",
            "QLabel { image: url(:/pix/logo.png) }",
            "QLabel { image: url(\"pix/my logo (2).png\") }",
            "QLabel { image: url(/) }",
            // Syntax errors are left to Qt.
            "QLabel { image: url(((",
            "QLabel { image: url(\"/a",
            "QLabel { color: red } \"",
            "QLabel { color: red } /* and so on",
            "url(\\",
            "} ) ] ; {{ ,, \\q \\110000",
        });
        for (const char *path : { ":/style/style_1.qss", ":/style/style_2.qss" })
            sheets += QString::fromLatin1(contentOf(QString::fromLatin1(path)));
        QCOMPARE(wrongAnswer(sheets, true), QString());
    }

    void propertiesOfWidgetsAndNumbersThatAreNotFiniteAreRefused()
    {
        const QStringList sheets = texts({
            "QDial { qproperty-minimum: 100 }",
            "* { qproperty-styleSheet: \"* { color: red }\" }",
            "qproperty-minimum: 100",
            "QDial { QProperty-minimum: 100 }",
            "QDial { q\\property-minimum: 100 }",
            "QDial { \\71property-minimum: 100 }",
            "QDial { qproperty\\00002Dminimum: 100 }",
            "QDial { x: \"\\\\\"; qproperty-minimum: 100; y: \"\" }",
            "QDial { x: \\\" \"/*\"; qproperty-minimum: 100; y: \"*/\" }",
            "@a { \" /* \n } QDial { qproperty-minimum: 100 }",
            "/* \\d800 */ QDial { qproperty-minimum: 100 }",
            "/**/QDial/*/*/{/* \" */qproperty-minimum: 100 }",
            // Numbers that are not finite.
            "* { background: qradialgradient(cx:nan, cy:0) }",
            "* { background: qradialgradient(cx:0, cy:-inf) }",
            "* { background: qradialgradient(cx:\"NaN\", cy:0) }",
            "* { background: qradialgradient(cx:\\69nf, cy:0) }",
            "* { background: qradialgradient(cx:\\00005c69nf, cy:0) }",
            "* { background: qradialgradient(fx:1e300) }",
            "* { background: qradialgradient(fx:\" 1e+300 \") }",
            "* { min-width: infpx }",
            "* { min-width: .5e9px }",
            "* { min-width: 4e4px }",
            "* { min-width: 1e999 }",
        });
        QCOMPARE(wrongAnswer(sheets, false), QString());
    }

    void lengthsAreBounded()
    {
        struct Row
        {
            const char *declaration; ///< with the length as %1
            double largest;
            double step;
        };
        for (const Row &row : {
                 Row{ "min-width: %1px", 4096, 1 },
                 Row{ "min-width: %1", 4096, 1 },
                 Row{ "min-width: %1%", 4096, 1 },
                 Row{ "min-width: -%1PX", 4096, 1 },
                 Row{ "min-width: \"%1px\"", 4096, 1 },
                 Row{ "min-width: url(%1px)", 4096, 1 },
                 Row{ "min-width: %1p\\78", 4096, 1 },
                 Row{ "min-width: \\+%1px", 4096, 1 },
                 Row{ "min-width: 1px; color: rgb(%1pt)", 4096, 1 },
                 Row{ "spacing: %1pt", 4096, 1 },
                 Row{ "max-height: %1em", 32, 0.5 },
                 Row{ "border-radius: %1px", 4096, 1 },
                 Row{ "PADDING-left: 1px %1", 256, 1 },
                 Row{ "margin: f([;)a:1];) %1", 256, 1 },
                 Row{ "border: %1px solid red", 256, 1 },
                 Row{ "font: bold %1px \"a\"", 128, 1 },
                 Row{ "font-size: %1pt", 128, 1 },
                 Row{ "button-layout: %1", 3, 1 },
                 Row{ "x: %1", 1e6, 0.5 },
                 Row{ "background: qradialgradient(cx:-%1)", 1e6, 0.5 },
                 Row{ "background: qradialgradient(cx:\"%1\")", 1e6, 0.5 },
             }) {
            const auto sheet = [&](double length) {
                return QStringLiteral("* { %1 }")
                    .arg(QString::fromLatin1(row.declaration).arg(length, 0, 'f', 1));
            };
            QVERIFY2(style_text::isAcceptable(sheet(row.largest)), row.declaration);
            QVERIFY2(!style_text::isAcceptable(sheet(row.largest + row.step)), row.declaration);
        }
    }

    void filesThatMayBlockAreRefused()
    {
        const QTemporaryDir folder;
        writeFile(folder.filePath(QStringLiteral("picture.png")), "not really a picture");
        writeFile(folder.filePath(QStringLiteral("empty.png")), {});
        const auto filledIn = [&](const char *argument) {
            return QStringLiteral("image: %1")
                .arg(QString::fromLatin1(argument).replace(QLatin1Char('~'), folder.path()));
        };
        QVERIFY(style_text::isAcceptable(filledIn("url(~/picture.png)")));
        QVERIFY(!style_text::isAcceptable(filledIn("url(~/empty.png)")));
#ifdef Q_OS_UNIX
        for (const char *name :
             { "pipe", "ending.png", "a(b)", "[)];", "two words", "pair@2x.png", "bare@9x" })
            QCOMPARE(mkfifo(QFile::encodeName(folder.filePath(QLatin1String(name))), 0600), 0);
        QVERIFY(QFile::link(folder.filePath(QStringLiteral("pipe")),
                            folder.filePath(QStringLiteral("link"))));
        for (const char *argument : {
                 "url(~/pipe)",        "url(\"~/pipe\")",    "url('~/pipe')",
                 "url( \n ~/pipe\t)",  "url(/* a */~/pipe)", "none; a: url(x) url(~/pipe)",
                 "url(~/pipe",         "url(x url(~/pipe))", "u\\72l(~/pipe)",
                 "ur\\6C(~/pipe)",     "u\\rl(~/pipe)",      "url(~/pip\\65)",
                 "url(~/\\000070ipe)", "url(~/ending)",      "url(~/a(b))",
                 "url(~/[)];)",        "url(~/two words)",   "url(~/pair.png)",
                 "url(~/bare)",        "url(~/link)",        "url(/dev/zero)",
             })
            QVERIFY2(!style_text::isAcceptable(filledIn(argument)), argument);
#endif
    }

    // Qt loaded a picture of 2000 x 2000 pixels once for each widget, which took 4 GB.
    void pixelsOfPicturesAreBounded()
    {
        const QTemporaryDir folder;
        const auto filledIn = [&](const char *sheet, int height) {
            const QString path = folder.filePath(QStringLiteral("%1.png").arg(height));
            QImage picture(1024, height, QImage::Format_Mono);
            picture.fill(0);
            picture.save(path);
            return QString::fromLatin1(sheet).arg(path);
        };
        const char *one = "QLabel { image: url(%1) }";
        const char *two = "QLabel { image: url(%1); border-image: url(%1) 3 }";
        QVERIFY(style_text::isAcceptable(filledIn(one, 2048)));
        QVERIFY(!style_text::isAcceptable(filledIn(one, 2049)));
        QVERIFY(style_text::isAcceptable(filledIn(two, 1024)));
        QVERIFY(!style_text::isAcceptable(filledIn(two, 1025)));
    }

    void sizeIsBounded()
    {
        const QString largest(256 * 1024, QLatin1Char(' '));
        QVERIFY(style_text::isAcceptable(largest));
        QVERIFY(!style_text::isAcceptable(largest + QLatin1Char(' ')));
    }

    // Each limit costs Qt about 2 s or some hundred megabytes.
    void workForQtIsBounded()
    {
        struct Row
        {
            const char *begin;
            const char *repeated;
            const char *end;
            int most; ///< repetitions that are accepted
        };
        for (const Row &row : {
                 Row{ "", "QLabel{}", "", 16384 },
                 Row{ "", "QPushButton#a{}", "", 16384 },
                 Row{ "", "*{}", "", 3276 },
                 Row{ "", "/**/ QLabel::item:!hover > A *{}", "", 3276 },
                 Row{ "", "QLabel [a]{}", "", 3276 },
                 Row{ "", "QWidget{}", "", 3276 },
                 Row{ "", "QPushButton:hover{}", "", 3276 },
                 Row{ "", "@media screen{*{}", "", 2730 },
                 Row{ "QLabel{", "a:b;", "}", 16383 },
                 Row{ "*{", "a:b;", "}", 3275 },
                 Row{ "A,B,C{", "a:b;", "}", 5459 },
                 Row{ "A,B,C,D,E,F{", "a:b;", "}", 3272 },
                 Row{ "", "a:b;", "", 3276 },
                 Row{ "QLabel{} ", "a:b;", "", 3276 },
                 Row{ "QLabel{", "image:url(x);", "}", 496 },
                 Row{ "*{", "image:url(x);", "}", 99 },
                 Row{ "", "*,", "*{}", 180 },
                 Row{ "*{font-family:a", ",a", "}", 80 },
             }) {
            const auto sheet = [&](int times) {
                return QLatin1String(row.begin) + repeated(row.repeated, times)
                    + QLatin1String(row.end);
            };
            QVERIFY2(style_text::isAcceptable(sheet(row.most)), row.repeated);
            QVERIFY2(!style_text::isAcceptable(sheet(row.most + 1)), row.repeated);
        }
    }

    void largeSheetsOfOrdinaryRulesAreAccepted()
    {
        const QStringList sheets{
            repeated("QLabel { color: rgb(4, 5, 6); }\n", 8000),
            repeated("QPushButton#one:hover, QPushButton#two {\n    background: rgb(4, 5, 6);\n"
                     "    border: 1px solid #0a0b0c;\n    padding: 4px;\n}\n",
                     1800),
            repeated("/* two, three; four { five } */\n", 8000),
            QStringLiteral("QLabel { color: red }") + repeated(" ;", 100000),
            QLatin1Char('*') + repeated(":enabled", 30000) + QStringLiteral("{ color: red }"),
            QLatin1Char('*') + repeated("[enabled=\"true\"]", 16000) + QStringLiteral("{}"),
            QStringLiteral("* { font:") + repeated(" bold", 50000) + QLatin1Char('}'),
        };
        QCOMPARE(wrongAnswer(sheets, true), QString());
    }
};

QTEST_MAIN(TestStyleText)
#include "tst_style_text.moc"
