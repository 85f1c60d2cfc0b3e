// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "test_files.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTranslator>
#include <QtEndian>
#include <QtTest>

namespace {

struct Message
{
    const char *context;
    const char *source;
    const char *russian;
};

constexpr int wordsOfTheDictionary = 37; ///< tst_dictionary tests them

const Message messages[] = {
    { "MainWindow", "Date", "Дата" },
    { "MainWindow", "RFG", "РФГ" },
    { "MainWindow", "Reset All", "Сбросить всё" },
    { "MainWindow", "Select RFG file to open", "Выбор файла рефлектограммы для загрузки" },
    { "MainWindow", "Select RFG files to open", "Выбор файлов рефлектограммы для загрузки" },
    { "MainWindow", "Smooth", "Сглаживание" },
    { "MainWindow", "Time", "Время" },
    { "MainWindow", "rfg (*.tdr)", "рфг файлы (*.tdr)" },
    { "SettingsMenu", "Colors", "Цвета" },
    { "SettingsMenu", "Cursor dial speed", "Скорость энкодера курсоров" },
    { "SettingsMenu", "Defines step number per dial turn",
      "Определяет количество шагов за оборот энкодера" },
    { "SettingsMenu", "Dials", "Энкодеры" },
    { "SettingsMenu", "Dials speed", "Скорость энкодеров" },
    { "SettingsMenu", "Load default", "По умолчанию" },
    { "SettingsMenu", "Parameter dial speed", "Скорость энкодера параметров" },
    { "SettingsMenu", "Reload starting", "Загрузить стартовые" },
    { "SettingsMenu", "Save as", "Сохранить как" },
    { "SettingsMenu", "Select settings file to load", "Выбор файла настроек для загрузки" },
    { "SettingsMenu", "Window size", "Размер окна" },
    { "SettingsMenu", "settings (*.ini)", "файлы настроек (*.ini)" },
};

/// One section of a compiled catalogue; empty when it has none with this \a tag. A catalogue is a
/// magic of 16 bytes and then sections of tag, length and bytes.
QByteArray section(const QString &path, uchar tag)
{
    const QByteArray bytes = contentOf(path);
    int at = 16;
    while (at + 5 <= bytes.size()) {
        const int length = int(qFromBigEndian<quint32>(bytes.constData() + at + 1));
        if (uchar(bytes.at(at)) == tag)
            return bytes.mid(at + 5, length);
        at += 5 + length;
    }
    return {};
}

constexpr uchar hashesTag = 0x42; ///< one hash and one offset, 8 bytes together, for each message
constexpr uchar dependenciesTag = 0x96;

int messageCount(const QString &path)
{
    return static_cast<int>(section(path, hashesTag).size()) / 8;
}

/// The text of a file in UTF-8.
QString textOf(const QString &path)
{
    return QString::fromUtf8(contentOf(path));
}

/// Concatenates adjacent literals: "text" "that goes on".
QString joined(const QString &literals)
{
    static const QRegularExpression literal(QStringLiteral("\"((?:[^\"\\\\]|\\\\.)*)\""));
    QString text;
    for (auto all = literal.globalMatch(literals); all.hasNext();)
        text += all.next().captured(1);
    return text.replace(QLatin1String("\\n"), QLatin1String("\n"))
        .replace(QLatin1String("\\\""), QLatin1String("\""));
}

/// Texts that the sources in \a folder mark for the catalogue of \a context.
QSet<QString> markedIn(const QString &folder, const QString &context)
{
    const QRegularExpression mark(
        QStringLiteral("QT_TRANSLATE_NOOP\\(\\s*\"%1\",\\s*((?:\"(?:[^\"\\\\]|\\\\.)*\"\\s*)+)\\)")
            .arg(context));
    QSet<QString> texts;
    const QDir sources(folder);
    const QStringList files = sources.entryList({ QStringLiteral("*.cpp") }, QDir::Files);
    for (const QString &file : files)
        for (auto all = mark.globalMatch(textOf(sources.filePath(file))); all.hasNext();)
            texts.insert(joined(all.next().captured(1)));
    return texts;
}

/// Placeholders in \a text, "%1" for example, with repetitions.
QStringList placesIn(const QString &text)
{
    static const QRegularExpression place(QStringLiteral("%\\d"));
    QStringList places;
    for (auto all = place.globalMatch(text); all.hasNext();)
        places.append(all.next().captured());
    places.sort();
    return places;
}

} // namespace

class TestCatalogues : public QObject
{
    Q_OBJECT

private slots:
    void russianCatalogueHasEachTextAndNoOther()
    {
        QTranslator translator;
        QVERIFY(translator.load(QStringLiteral("Velkor_ru_RU"), QStringLiteral(":/l10n")));
        for (const Message &message : messages)
            QCOMPARE(translator.translate(message.context, message.source),
                     QString::fromUtf8(message.russian));
        QCOMPARE(messageCount(QStringLiteral(":/l10n/Velkor_ru_RU.qm")),
                 int(std::size(messages)) + wordsOfTheDictionary);
    }

    // Every text falls back to the English of the source.
    void englishCatalogueIsEmpty()
    {
        QTranslator translator;
        QVERIFY(translator.load(QStringLiteral("Velkor_en_US"), QStringLiteral(":/l10n")));
        QVERIFY(translator.isEmpty());
        QCOMPARE(messageCount(QStringLiteral(":/l10n/Velkor_en_US.qm")), 0);
    }

    // Qt's own dialogs stay English on purpose: the catalogues that this one names are not shipped.
    void catalogueOfQtOnlyNamesOthers()
    {
        const QString path = QStringLiteral(":/l10n/qt_ru.qm");
        QVERIFY(QFile::exists(path));
        QCOMPARE(messageCount(path), 0);
        QStringList names;
        QDataStream stream(section(path, dependenciesTag));
        while (!stream.atEnd()) {
            QString name;
            stream >> name;
            names.append(name);
        }
        const QStringList expected{ QStringLiteral("qtbase_ru"), QStringLiteral("qtscript_ru"),
                                    QStringLiteral("qtmultimedia_ru"),
                                    QStringLiteral("qtxmlpatterns_ru") };
        QCOMPARE(names, expected);
        QTranslator translator;
        QVERIFY(!translator.load(QStringLiteral("qt_ru"), QStringLiteral(":/l10n")));
        QVERIFY(translator.isEmpty());
    }

    // The catalogues of accessibility and, if they are built, of the extras.
    void eachTextOutsideTheWindowIsTranslatedAndNoOther()
    {
        const QString ending = QStringLiteral("_ru_RU.qm");
        const QDir catalogues(QStringLiteral(":/catalogues"));
        const QStringList names = catalogues.entryList({ QLatin1Char('*') + ending });
        QVERIFY(names.contains(QStringLiteral("Accessibility_ru_RU.qm")));
        for (const QString &name : names) {
            const QString context = name.chopped(ending.size());
            const QSet<QString> marked
                = markedIn(QStringLiteral(VELKOR_ROOT "/src/") + context.toLower(), context);
            QVERIFY(marked.size() > 10);
            QCOMPARE(messageCount(catalogues.filePath(name)), int(marked.size()));
            QTranslator translator;
            QVERIFY(translator.load(catalogues.filePath(name)));
            for (const QString &text : marked) {
                const QString russian
                    = translator.translate(context.toUtf8().constData(), text.toUtf8().constData());
                QVERIFY2(!russian.isEmpty() && russian != text, qPrintable(text));
                QCOMPARE(placesIn(russian), placesIn(text));
            }
        }
    }
};

QTEST_GUILESS_MAIN(TestCatalogues)
#include "tst_catalogues.moc"
