// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDir>
#include <QFile>
#include <QHash>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <QtTest>

namespace {

QString contentOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

/// The literals of "text" "that goes on", put together.
QString joined(const QString &literals)
{
    static const QRegularExpression literal(QStringLiteral("\"((?:[^\"\\\\]|\\\\.)*)\""));
    QString text;
    for (auto all = literal.globalMatch(literals); all.hasNext();)
        text += all.next().captured(1);
    return text.replace(QLatin1String("\\n"), QLatin1String("\n"))
        .replace(QLatin1String("\\\""), QLatin1String("\""));
}

/// What the sources in \a folder mark for the catalogue of \a context.
QSet<QString> markedIn(const QString &folder, const QString &context)
{
    const QRegularExpression mark(
        QStringLiteral("QT_TRANSLATE_NOOP\\(\\s*\"%1\",\\s*((?:\"(?:[^\"\\\\]|\\\\.)*\"\\s*)+)\\)")
            .arg(context));
    QSet<QString> texts;
    const QDir sources(folder);
    const QStringList files = sources.entryList({ QStringLiteral("*.cpp") }, QDir::Files);
    for (const QString &file : files)
        for (auto all = mark.globalMatch(contentOf(sources.filePath(file))); all.hasNext();)
            texts.insert(joined(all.next().captured(1)));
    return texts;
}

/// Source and translation of every message of \a context in the catalogue source \a path.
QHash<QString, QString> messagesOf(const QString &path, const QString &context)
{
    QXmlStreamReader xml(contentOf(path));
    QHash<QString, QString> messages;
    QString name;
    QString source;
    while (!xml.atEnd()) {
        if (xml.readNext() != QXmlStreamReader::StartElement)
            continue;
        if (xml.name() == QLatin1String("name"))
            name = xml.readElementText();
        else if (xml.name() == QLatin1String("source"))
            source = xml.readElementText();
        else if (xml.name() == QLatin1String("translation") && name == context)
            messages.insert(source, xml.readElementText());
    }
    return messages;
}

QStringList sorted(const QList<QString> &texts)
{
    QStringList list(texts);
    list.sort();
    return list;
}

/// The places for values in \a text, "%1" for example, each as often as it is there.
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

/// What is attached to the window from outside speaks Russian with every word.
class TestMarkedTexts : public QObject
{
    Q_OBJECT

private slots:
    void eachMarkedTextIsTranslatedAndNoOther_data()
    {
        QTest::addColumn<QString>("folder");
        QTest::addColumn<QString>("context");
        QTest::addColumn<QString>("catalogue");
        QTest::newRow("extras") << QStringLiteral("extras") << QStringLiteral("Extras")
                                << QStringLiteral("extras/Velkor_extras_ru_RU.ts");
        QTest::newRow("what is spoken")
            << QStringLiteral("accessibility") << QStringLiteral("Accessibility")
            << QStringLiteral("spoken/Velkor_spoken_ru_RU.ts");
    }

    void eachMarkedTextIsTranslatedAndNoOther()
    {
        QFETCH(QString, folder);
        QFETCH(QString, context);
        QFETCH(QString, catalogue);
        const QString root = QStringLiteral(VELKOR_ROOT);
        const QSet<QString> marked = markedIn(root + QLatin1String("/src/") + folder, context);
        const auto messages = messagesOf(root + QLatin1String("/resources/") + catalogue, context);
        QVERIFY(marked.size() > 10);
        QCOMPARE(sorted(messages.keys()), sorted(marked.values()));
        for (auto message = messages.cbegin(); message != messages.cend(); ++message) {
            QVERIFY2(!message.value().isEmpty(), qPrintable(message.key()));
            QVERIFY2(message.value() != message.key(), qPrintable(message.key()));
            QCOMPARE(placesIn(message.value()), placesIn(message.key()));
        }
    }
};

QTEST_GUILESS_MAIN(TestMarkedTexts)
#include "tst_marked_texts.moc"
