// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "contrast.h"
#include "each.h"
#include "extras/exporting_picture.h"
#include "extras/exporting_text.h"
#include "window_state.h"
#include "windowtest.h"

#include <QFontMetricsF>
#include <QPushButton>
#include <QRegularExpression>
#include <QXmlStreamReader>
#include <QtTest>

#include <cmath>
#include <limits>

using extras::Background;

namespace {

/// The content of a drawing.
struct Drawing
{
    struct Text
    {
        QString text;
        QRectF place;
    };
    struct Line
    {
        QRgb colour = 0;
        bool dashed = false;
        QPolygonF points;
    };
    QRectF area;
    QVector<Text> texts;
    QVector<Line> lines;
    /// A text of two scripts is drawn in two parts.
    void add(const QString &text, QPointF base, const QFontMetricsF &metrics)
    {
        // A drawing has numbers of six digits; texts that touch do not overlap.
        const QRectF place = QRectF(base.x(), base.y() - metrics.ascent(),
                                    metrics.horizontalAdvance(text), metrics.height())
                                 .adjusted(0.0, 0.01, 0.0, -0.01);
        if (!texts.isEmpty() && std::abs(place.left() - texts.last().place.right()) < 0.5
            && place.top() == texts.last().place.top()) {
            texts.last().text += text;
            texts.last().place |= place;
        } else {
            texts.append({ text, place });
        }
    }

    bool isWithinItsArea() const
    {
        for (const Line &line : lines)
            for (const QPointF &point : line.points)
                if (!area.contains(point))
                    return false;
        return true;
    }

    QStringList words() const
    {
        QStringList all;
        for (const Text &one : texts)
            all.append(one.text);
        return all;
    }
};

QPolygonF pointsOf(const QString &numbers)
{
    static const QRegularExpression pair(QStringLiteral("([-+0-9.einf]+),([-+0-9.einf]+)"));
    QPolygonF points;
    for (auto match = pair.globalMatch(numbers); match.hasNext();) {
        const QRegularExpressionMatch one = match.next();
        points.append({ one.captured(1).toDouble(), one.captured(2).toDouble() });
    }
    return points;
}

Drawing drawingOf(const MainWindow &window)
{
    QXmlStreamReader reader(extras::chartDrawing(window));
    Drawing drawing;
    Drawing::Line pen;
    while (!reader.atEnd()) {
        reader.readNext();
        if (!reader.isStartElement())
            continue;
        const QXmlStreamAttributes attributes = reader.attributes();
        const auto value
            = [&](const char *name) { return attributes.value(QLatin1String(name)).toString(); };
        const QString kind = reader.name().toString();
        if (kind == QLatin1String("svg")) {
            const QStringList box = value("viewBox").split(QLatin1Char(' '));
            drawing.area = { 0.0, 0.0, box[2].toDouble(), box[3].toDouble() };
        } else if (kind == QLatin1String("g")) {
            pen.colour = QColor(value("stroke")).rgb();
            pen.dashed = attributes.hasAttribute(QStringLiteral("stroke-dasharray"));
        } else if (kind == QLatin1String("text")) {
            QFont font(value("font-family"));
            font.setPixelSize(value("font-size").toInt());
            font.setBold(value("font-weight").toInt() > 500);
            font.setHintingPreference(QFont::PreferNoHinting);
            const QFontMetricsF metrics(font);
            const QPointF base(value("x").toDouble(), value("y").toDouble());
            drawing.add(reader.readElementText(), base, metrics);
        } else if (kind == QLatin1String("path") || kind == QLatin1String("polyline")) {
            pen.points = pointsOf(value(kind == QLatin1String("path") ? "d" : "points"));
            drawing.lines.append(pen);
        }
    }
    if (reader.hasError())
        qFatal("the drawing is no XML");
    return drawing;
}

/// A sample at level 20 and the next at -20: lines in every column.
TraceBuilder comb()
{
    return TraceBuilder().minstep(5.0F).samples([](int i) { return i % 2 == 0 ? 20 : -20; });
}

QVector<TraceBuilder> sixTraces()
{
    return { comb(),           comb().shiftY(40),     comb().shiftY(-200),
             comb().shiftX(9), comb().minstep(10.0F), comb().shiftX(quint32(-30)) };
}

} // namespace

/// Pictures, pages and drawings of the content of the window.
class TestExportingPicture : public WindowTest
{
    Q_OBJECT

private slots:
    void captionHoldsEveryFact()
    {
        const MainWindow &window = openOn({ comb(), comb().date(2031, 12, 5), comb() }, 1);
        QTest::mouseClick(probe().rfg_buttons()->button(2), Qt::LeftButton);
        QTest::mouseClick(probe().difference_button(), Qt::LeftButton);
        QTest::mouseClick(probe().smooth_button(), Qt::LeftButton);
        struct Row
        {
            const char *name; ///< of the language
            const char *words;
        };
        each<Row>({ { "en_US", "m|RFG 1|master|selected|RFG 2 minus each|Smooth" },
                    { "ru_RU", "м|РФГ 1|мастер|выбрана|РФГ 2 минус каждая|Сглаживание" } },
                  [&](const Row &row) {
                      setLanguage(row.name);
                      QStringList words = QString::fromUtf8(row.words).split(QLatin1Char('|'));
                      for (int slot = 0; slot < 3; ++slot)
                          words << extras::fileOf(window, slot) << extras::measuredOf(window, slot);
                      for (const auto &[name, value] : extras::factsOf(window))
                          words << name << value;
                      const QStringList drawn = drawingOf(window).words();
                      for (const QString &word : std::as_const(words))
                          QVERIFY2(drawn.contains(word), qPrintable(word));
                  });
    }

    void nothingIsClippedNorCovered()
    {
        QStringList paths;
        const QVector<TraceBuilder> traces = sixTraces();
        for (int i = 0; i < traces.size(); ++i)
            paths.append(
                fixture->trace(QString(20 * i + 1, u'n') + QLatin1String(".tdr"), traces[i]));
        WindowFixture::writePreviousRun(paths);
        MainWindow &window = fixture->open();
        // Twenty labels of four digits at the widest scale.
        window.KU_change(1.2);
        // Both cursors at one place, near the right edge.
        for (QPushButton *cursor : { probe().curB_nav_button(), probe().curA_nav_button() }) {
            QTest::mouseClick(cursor, Qt::LeftButton);
            window.cursorSetup_slot(996);
        }
        for (const QSize size : { QSize(800, 500), QSize(1280, 800), QSize(2560, 1440) })
            for (const char *language : { "en_US", "ru_RU" })
                for (const int scale : { 2, 8 }) { // with and without differences and smoothing
                    window.resize(size);
                    setLanguage(language);
                    QTest::mouseClick(probe().difference_button(), Qt::LeftButton);
                    QTest::mouseClick(probe().smooth_button(), Qt::LeftButton);
                    window.scale_change(scale);
                    const Drawing drawing = drawingOf(window);
                    // The caption is not higher than the chart.
                    QVERIFY(drawing.area.height() < 2 * viewport()->height());
                    QVERIFY(drawing.isWithinItsArea());
                    for (int i = 0; i < drawing.texts.size(); ++i) {
                        const auto &[text, place] = drawing.texts[i];
                        QVERIFY2(drawing.area.contains(place), qPrintable(text));
                        for (int j = 0; j < i; ++j)
                            QVERIFY2(!place.intersects(drawing.texts[j].place), qPrintable(text));
                    }
                }
    }

    void tracesKeepTheirHueOnWhite()
    {
        const extras::Ink ink(openOn({ comb() }), Background::White);
        QCOMPARE(ink.background(), QColor(Qt::white));
        for (const quint32 screen : constants::slotColours) {
            const QColor colour = ink.of(QColor::fromRgba(screen));
            QVERIFY(contrast(colour.rgb(), 0xFFFFFFFF) >= 3.0);
            QCOMPARE(colour.hsvHue(), QColor::fromRgba(screen).hsvHue());
            QCOMPARE(colour.hsvSaturation(), 255);
        }
        QVERIFY(contrast(ink.text().rgb(), 0xFFFFFFFF) >= 4.5);
        QVERIFY(contrast(ink.of(Qt::gray).rgb(), 0xFFFFFFFF) >= 4.5);
    }

    void pictureFitsOnAPageAndHasTheGroundOfTheScreen()
    {
        MainWindow &window = openOn({ comb() });
        QCOMPARE(extras::chartPicture(window, Background::Screen).pixelColor(0, 0),
                 QColor(11, 12, 13));
        QTest::mouseClick(probe().difference_button(), Qt::LeftButton);
        const QImage picture = extras::chartPicture(window, Background::Screen);
        QCOMPARE(picture.pixelColor(0, 0), QColor(40, 40, 60));
        QCOMPARE(picture.pixelColor(picture.width() - 1, picture.height() - 1), QColor(40, 40, 60));
        QCOMPARE(extras::chartPicture(window, Background::White).pixelColor(0, 0),
                 QColor(Qt::white));
        QCOMPARE(picture.dotsPerMeterX(), 11811);
        QCOMPARE(picture.dotsPerMeterY(), 11811);
        const double dots = viewport()->width() * 300.0 / window.logicalDpiX();
        QVERIFY(std::abs(picture.width() - dots) <= 1.0);
        window.resize(2560, 1440);
        QCOMPARE(extras::chartPicture(window, Background::Screen).width(), 3300);
    }

    void labelsStandAtTheirLevelsAndDistances()
    {
        const MainWindow &window = openOn({ comb() });
        const Drawing drawing = drawingOf(window);
        const QRgb green = extras::Ink(window, Background::White).of(QColor(0, 255, 0)).rgb();
        // From 0 m to the last sample at 124.5 m, and from level -20 to 20.
        QRectF trace;
        for (const Drawing::Line &line : drawing.lines)
            if (line.colour == green && line.points.size() > 2)
                trace = line.points.boundingRect();
        const auto middleOf = [&drawing](const QString &label) {
            return drawing.texts.value(drawing.words().indexOf(label)).place.center();
        };
        for (int level = -128; level <= 128; level += 32) {
            const QString label = QString::number(level);
            const double y = trace.center().y() - level * trace.height() / 40;
            QVERIFY2(std::abs(middleOf(label).y() - y) < 1.0, qPrintable(label));
        }
        for (int i = 0; i <= 10; ++i) {
            const QString label = QString::number(i * 12.5, 'f', 1);
            const double x = trace.left() + i * 12.5 * trace.width() / 124.5;
            QVERIFY2(std::abs(middleOf(label).x() - x) < 1.0, qPrintable(label));
        }
    }

    void levelLinesAreDashedWithinTheView()
    {
        MainWindow &window = openOn({ comb() });
        window.cursorSetup_slot(100);
        for (const int scale : { 0, 2, 8 }) {
            window.scale_change(scale);
            const Drawing drawing = drawingOf(window);
            int dashed = 0;
            for (const Drawing::Line &line : drawing.lines) {
                dashed += line.dashed ? 1 : 0;
                QVERIFY(!line.dashed || line.points.size() == 2);
                QVERIFY(!line.dashed || drawing.area.contains(line.points.last()));
            }
            QCOMPARE(dashed, 2);
        }
    }

    void curvesGoThroughTheirSamples()
    {
        openOn({ TraceBuilder().samples([](int i) { return i % 5 == 0 ? 100 : 0; }) });
        QTest::mouseClick(probe().smooth_button(), Qt::LeftButton);
        const QRgb green = extras::Ink(window(), Background::White).of(QColor(0, 255, 0)).rgb();
        QPolygonF curve;
        const QVector<Drawing::Line> lines = drawingOf(window()).lines;
        for (const Drawing::Line &line : lines)
            if (line.colour == green && line.points.size() > curve.size())
                curve = line.points;
        // Between the crests, which are five samples apart, the curve falls and rises in many
        // pieces.
        QVERIFY(curve.size() > 1000);
        const double top = curve.first().y();
        int crests = 0;
        for (int i = 1; i + 1 < curve.size(); ++i) {
            QVERIFY(curve[i].x() >= curve[i - 1].x());
            crests += std::abs(curve[i].y() - top) < 0.01 ? 1 : 0;
        }
        QVERIFY2(crests >= 49, qPrintable(QString::number(crests)));
    }

    void hiddenTracesAreLeftOut()
    {
        MainWindow &window = openOn({ comb(), comb().shiftY(40) });
        const QRgb second = extras::Ink(window, Background::White).of(QColor(0, 255, 255)).rgb();
        const auto linesOfSecond = [&] {
            const Drawing drawing = drawingOf(window);
            return std::count_if(drawing.lines.begin(), drawing.lines.end(),
                                 [&](const Drawing::Line &line) { return line.colour == second; });
        };
        // The trace, and its sample in the caption.
        QCOMPARE(linesOfSecond(), 2);
        window.RFG_visibleToggle(1, false);
        QCOMPARE(linesOfSecond(), 0);
        QVERIFY(!drawingOf(window).words().contains(QStringLiteral("t2.tdr")));
    }

    void pdfIsOneA4Page()
    {
        const QByteArray pdf = extras::chartPage(openOn({ comb() }));
        QVERIFY(pdf.startsWith("%PDF-1."));
        QVERIFY(pdf.trimmed().endsWith("%%EOF"));
        QCOMPARE(pdf.count("/Type /Page\n"), 1);
        QCOMPARE(pdf.count("/Subtype /Image"), 0);
        QVERIFY(pdf.contains("/FontFile2"));
        const QList<QByteArray> box = pdf.mid(pdf.indexOf("/MediaBox [") + 11, 40).split(' ');
        QCOMPARE(box[2].toDouble(), 842.0); // points
        QCOMPARE(box[3].left(3), QByteArray("595"));
    }

    void drawingChangesNothing()
    {
        MainWindow &window = openOn({ comb(), comb().minstep(2.5F) });
        window.cursorSetup_slot(80);
        WindowFixture::settle();
        const QStringList state = stateOf(window);
        const QImage screen = screenOf(window);
        QVERIFY(!extras::chartPicture(window, Background::White).isNull());
        QVERIFY(!extras::chartPage(window).isEmpty());
        QVERIFY(!extras::chartDrawing(window).isEmpty());
        QVERIFY(!extras::table(window).isEmpty());
        WindowFixture::settle();
        QCOMPARE(stateOf(window), state);
        QCOMPARE(screenOf(window), screen);
    }

    void oddRecordsCanBeExported()
    {
        const float none = std::numeric_limits<float>::quiet_NaN();
        MainWindow &window = openOn(
            { TraceBuilder().minstep(none).ku(none), comb().delay(0xFFFFFFFF).shiftX(0xFFFFFFFF),
              comb().minstep(1.0e30F).shiftX(0x7FFFFFFF),
              comb().delay(1).shiftY(-32768).raw(171, QByteArray(8, '\xFF')) });
        for (QPushButton *mode :
             { probe().smooth_button(), probe().difference_button(), probe().smooth_button() }) {
            QTest::mouseClick(mode, Qt::LeftButton);
            for (int slot = 0; slot < 4; ++slot) {
                window.rfgSelect_slot(slot);
                window.cursorSetup_slot(constants::xLength);
                QVERIFY(drawingOf(window).isWithinItsArea());
                QVERIFY(!extras::chartPicture(window, Background::Screen).isNull());
                QVERIFY(extras::chartPage(window).trimmed().endsWith("%%EOF"));
                QVERIFY(!extras::readings(window).isEmpty());
                QVERIFY(extras::table(window).count('\n') > 250);
            }
        }
    }

    void linesAreClipped()
    {
        const QRectF area(0.0, 0.0, 100.0, 100.0);
        struct Row
        {
            const char *name;
            const char *line;
            std::vector<const char *> parts;
        };
        each<Row>({ { "within", "1,2 3,4 5,2", { "1,2 3,4 5,2" } },
                    { "through", "-9000,50 9000,50", { "0,50 100,50" } },
                    { "out and in again",
                      "50,50 50,150 60,150 60,50",
                      { "50,50 50,100", "60,100 60,50" } },
                    { "beside", "-10,150 9000,150", {} },
                    { "around the corner", "-50,20 20,-60", {} },
                    { "nothing", "", {} } },
                  [&](const Row &row) {
                      const auto line = pointsOf(QString::fromLatin1(row.line));
                      const auto parts = extras::clipped(line, area).toSubpathPolygons();
                      QCOMPARE(std::size_t(parts.size()), row.parts.size());
                      for (int i = 0; i < parts.size(); ++i)
                          QCOMPARE(parts[i],
                                   pointsOf(QString::fromLatin1(row.parts[std::size_t(i)])));
                  });
    }
};

QTEST_MAIN(TestExportingPicture)
#include "tst_exporting_picture.moc"
