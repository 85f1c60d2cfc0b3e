// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "extras/dashing_canvas.h"
#include "extras/exporting_picture.h"
#include "extras/exporting_text.h"
#include "legendbutton.h"
#include "windowactions.h"
#include "windowstate.h"

#include <QBuffer>
#include <QPushButton>
#include <QtTest>

#include <cmath>
#include <limits>

namespace {

const QColor secondColour = QColor::fromRgba(constants::slotColours[1]);

/// A sample at level 20 and the next at -20, all the way: a trace with lines in every column.
TraceBuilder comb()
{
    return TraceBuilder().minstep(5.0F).samples([](int i) { return i % 2 == 0 ? 20 : -20; });
}

/// Pixels of exactly \a colour in row \a y of \a picture.
int inRow(const QImage &picture, int y, QColor colour)
{
    int count = 0;
    for (int x = 0; x < picture.width(); ++x)
        count += picture.pixelColor(x, y) == colour ? 1 : 0;
    return count;
}

int inAll(const QImage &picture, QColor colour)
{
    int count = 0;
    for (int y = 0; y < picture.height(); ++y)
        count += inRow(picture, y, colour);
    return count;
}

double scaleOf(const WindowFixture &fixture)
{
    return 300.0 / fixture.probe().Plot_View()->logicalDpiX();
}

/// Row of the picture on which \a level is drawn.
int rowOf(const WindowFixture &fixture, double level)
{
    QtCharts::QChart *chart = fixture.probe().Plot_Chart();
    const QPointF point = chart->mapToScene(chart->mapToPosition({ 0.0, level }));
    const QPointF corner = fixture.probe().Plot_View()->mapToScene(QPoint());
    return qRound((point.y() - corner.y()) * scaleOf(fixture));
}

QByteArray pdfOf(const MainWindow &window)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    return extras::writeChartPdf(window, buffer) ? buffer.data() : QByteArray();
}

} // namespace

/// Pictures and pages of what the window shows.
class TestExportingPicture : public QObject
{
    Q_OBJECT

private slots:
    void aPictureHasThreeHundredDotsPerInch();
    void linesGrowWithTheResolution();
    void levelLinesAreDashedAtEveryScale();
    void hiddenTracesAreNotInThePicture();
    void differencesHaveTheirBackground();
    void theLastDistanceIsWhole();
    void drawingChangesNothing();
    void oddRecordsCanBeDrawn();
    void aPageIsMadeOfLinesAndLetters();
    void aLongLineIsCutWithinItsPattern();
    void aPainterFindsTheCanvasAsItFindsAPicture();
};

void TestExportingPicture::aPictureHasThreeHundredDotsPerInch()
{
    WindowFixture fixture;
    const QImage picture = extras::chartPicture(openWith(fixture, { comb() }));
    QCOMPARE(picture.dotsPerMeterX(), 11811);
    QCOMPARE(picture.dotsPerMeterY(), 11811);
    const QSizeF view = fixture.probe().Plot_View()->viewport()->size() * scaleOf(fixture);
    QVERIFY(std::abs(picture.height() - view.height()) <= 2.0);
    QVERIFY(picture.width() >= view.width() - 1.0);
    QVERIFY(picture.width() <= view.width() + 60.0 * scaleOf(fixture));
}

void TestExportingPicture::linesGrowWithTheResolution()
{
    WindowFixture fixture;
    MainWindow &window = openWith(fixture, { comb(), TraceBuilder().minstep(5.0F).samples(-100) });
    window.cursorSetup_slot(500);
    // Half way up there is nothing yellow but the cursor, two pixels wide on the screen.
    const QImage picture = extras::chartPicture(window);
    const int wide = inRow(picture, rowOf(fixture, 50.0), Qt::yellow);
    QVERIFY2(std::abs(wide - 2.0 * scaleOf(fixture)) <= 1.5, qPrintable(QString::number(wide)));
    // The trace that is not selected is one pixel thick there, and nearly as wide as the picture.
    const int level = rowOf(fixture, -100.0);
    int thick = 0;
    for (int y = level - 20; y < level + 20; ++y)
        thick += inRow(picture, y, secondColour) > picture.width() / 2 ? 1 : 0;
    QVERIFY2(std::abs(thick - scaleOf(fixture)) <= 1.5, qPrintable(QString::number(thick)));
}

void TestExportingPicture::levelLinesAreDashedAtEveryScale()
{
    WindowFixture fixture;
    MainWindow &window = openWith(fixture, { TraceBuilder().samples(64) });
    window.V_Offset_change(16);
    for (int scale = 0; scale <= 8; ++scale) {
        window.scale_change(scale);
        // Out of sight, so that all yellow is the level line's. The trace itself is at its left.
        window.cursorSetup_slot(200);
        window.RFG_visibleToggle(0, false);
        const QImage picture = extras::chartPicture(window);
        const double width = fixture.probe().Plot_Chart()->plotArea().width() * scaleOf(fixture);
        const double share = inRow(picture, rowOf(fixture, 80.0), Qt::yellow) / width;
        // Four parts of line, rounded by half a part at both ends, and two of gap in all.
        QVERIFY2(share > 0.6 && share < 0.9, qPrintable(QString::number(share)));
    }
}

void TestExportingPicture::hiddenTracesAreNotInThePicture()
{
    WindowFixture fixture;
    MainWindow &window = openWith(fixture, { comb(), TraceBuilder().samples(70) });
    QVERIFY(inAll(extras::chartPicture(window), secondColour) > 500);
    window.RFG_visibleToggle(1, false);
    QCOMPARE(inAll(extras::chartPicture(window), secondColour), 0);
}

void TestExportingPicture::differencesHaveTheirBackground()
{
    WindowFixture fixture;
    MainWindow &window = openWith(fixture, { comb() });
    QCOMPARE(extras::chartPicture(window).pixelColor(2, 2), QColor(11, 12, 13));
    QTest::mouseClick(fixture.probe().difference_button(), Qt::LeftButton);
    QCOMPARE(extras::chartPicture(window).pixelColor(2, 2), QColor(40, 40, 60));
}

void TestExportingPicture::theLastDistanceIsWhole()
{
    WindowFixture fixture;
    MainWindow &window = openWith(fixture, { comb() });
    const double scale = scaleOf(fixture);
    for (int scaleN = 0; scaleN <= 8; ++scaleN) {
        window.scale_change(scaleN);
        const int width = extras::chartPicture(window).width();
        for (const QGraphicsSimpleTextItem &label : fixture.probe().axis_lbl())
            if (label.isVisible())
                QVERIFY(label.sceneBoundingRect().right() * scale <= width);
    }
}

void TestExportingPicture::drawingChangesNothing()
{
    WindowFixture fixture;
    MainWindow &window = openWith(fixture, { comb(), comb().minstep(2.5F) });
    window.cursorSetup_slot(80);
    WindowFixture::settle();
    const QStringList state = stateOf(window);
    const QImage screen = screenOf(window);
    QVERIFY(!extras::chartPicture(window).isNull());
    QVERIFY(!pdfOf(window).isEmpty());
    QVERIFY(!extras::table(window).isEmpty());
    WindowFixture::settle();
    QCOMPARE(stateOf(window), state);
    QCOMPARE(screenOf(window), screen);
}

void TestExportingPicture::oddRecordsCanBeDrawn()
{
    WindowFixture fixture;
    const float none = std::numeric_limits<float>::quiet_NaN();
    MainWindow &window = openWith(
        fixture,
        { TraceBuilder().minstep(none).ku(none), comb().delay(0xFFFFFFFF).shiftX(0xFFFFFFFF),
          comb().minstep(1.0e30F).shiftX(0x7FFFFFFF), comb().delay(1).shiftY(-32768) });
    for (QPushButton *mode : { fixture.probe().smooth_button(), fixture.probe().difference_button(),
                               fixture.probe().smooth_button() }) {
        QTest::mouseClick(mode, Qt::LeftButton);
        for (int slot = 0; slot < 4; ++slot) {
            window.rfgSelect_slot(slot);
            window.cursorSetup_slot(constants::xLength);
            QVERIFY(!extras::chartPicture(window).isNull());
            QVERIFY(pdfOf(window).trimmed().endsWith("%%EOF"));
        }
    }
}

void TestExportingPicture::aPageIsMadeOfLinesAndLetters()
{
    WindowFixture fixture;
    MainWindow &window = openWith(fixture, { comb() });
    const QByteArray pdf = pdfOf(window);
    QVERIFY(pdf.startsWith("%PDF-1."));
    QVERIFY(pdf.trimmed().endsWith("%%EOF"));
    QCOMPARE(pdf.count("/Type /Page\n"), 1);
    QCOMPARE(pdf.count("/Subtype /Image"), 0);
    QVERIFY(pdf.contains("/FontFile2"));
    // As large as the picture, in points.
    const QImage picture = extras::chartPicture(window);
    const auto from = pdf.indexOf("/MediaBox [") + 11;
    const QList<QByteArray> box = pdf.mid(from, pdf.indexOf(']', from) - from).split(' ');
    QCOMPARE(box.size(), 4);
    QVERIFY(std::abs(box[2].toDouble() - picture.width() * 72.0 / 300.0) <= 1.0);
    QVERIFY(std::abs(box[3].toDouble() - picture.height() * 72.0 / 300.0) <= 1.0);
}

void TestExportingPicture::aLongLineIsCutWithinItsPattern()
{
    const QRectF area(0.0, 0.0, 100.0, 100.0);
    using extras::cutToPattern;
    QCOMPARE(cutToPattern({ 10, 50, 90, 50 }, area, 6.0), QLineF(10, 50, 90, 50));
    QCOMPARE(cutToPattern({ -601, 50, 9000, 50 }, area, 6.0), QLineF(-1, 50, 100, 50));
    QCOMPARE(cutToPattern({ 50, 9000, 50, -8 }, area, 0.0), QLineF(50, 100, 50, 0));
    QVERIFY(cutToPattern({ -10, 150, 9000, 150 }, area, 6.0).isNull());
    QVERIFY(cutToPattern({ 200, 50, 9000, 50 }, area, 6.0).isNull());
    QVERIFY(cutToPattern({ 20, 20, 20, 20 }, area, 6.0).length() <= 6.0);
}

void TestExportingPicture::aPainterFindsTheCanvasAsItFindsAPicture()
{
    QPixmap stamp(7, 5);
    stamp.fill(QColor(200, 30, 40));
    const auto draw = [&stamp](QPaintDevice &device) {
        QPainter painter(&device);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.drawPixmap(3, 4, stamp);
        painter.setOpacity(0.5);
        painter.drawPixmap(QRect(20, 4, 14, 10), stamp);
        painter.setOpacity(1.0);
        painter.setCompositionMode(QPainter::CompositionMode_Difference);
        painter.fillRect(5, 5, 20, 3, QColor(0, 90, 200));
        painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
        painter.setBackground(QColor(10, 20, 30));
        painter.setBackgroundMode(Qt::OpaqueMode);
        painter.fillRect(40, 5, 18, 20, QBrush(Qt::white, Qt::Dense4Pattern));
    };
    QImage expected(64, 32, QImage::Format_RGB32);
    expected.fill(Qt::black);
    QImage picture = expected;
    draw(expected);
    extras::DashingCanvas canvas(picture, 254);
    draw(canvas);
    QCOMPARE(picture, expected);
    QVERIFY(inAll(picture, QColor(200, 30, 40)) > 0);

    QCOMPARE(canvas.width(), 64);
    QCOMPARE(canvas.height(), 32);
    // 254 dots per inch are ten per millimetre.
    QCOMPARE(canvas.widthMM(), 6);
    QCOMPARE(canvas.heightMM(), 3);
    QCOMPARE(canvas.logicalDpiX(), 254);
    QCOMPARE(canvas.depth(), 32);
    QCOMPARE(canvas.devicePixelRatio(), 1);
}

QTEST_MAIN(TestExportingPicture)
#include "tst_exporting_picture.moc"
