// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/constants.h"
#include "contrast.h"

#include <QBitmap>
#include <QFile>
#include <QImageReader>
#include <QPainter>
#include <QPixmap>
#include <QtTest>

namespace {

/// What a picture has to be told from at the smallest size in use.
enum class Look {
    Enabled, ///< seen at a glance
    Disabled, ///< seen, but plainly fainter
    Free ///< shown larger, or on a ground of its own
};

struct Picture
{
    const char *name; ///< below ":/", without extension
    int width;
    int height;
    Look look;
};

const Picture pictures[] = {
    { "icons/tdr_btr_64", 64, 64, Look::Free },
    { "pix/logo", 180, 74, Look::Free },
    { "icons/eye_opened", 302, 212, Look::Enabled },
    { "icons/eye_closed", 302, 212, Look::Enabled },
    { "icons/zoom_in", 96, 96, Look::Enabled },
    { "icons/zoom_in_dis", 96, 96, Look::Disabled },
    { "icons/zoom_out", 96, 96, Look::Enabled },
    { "icons/zoom_out_dis", 96, 96, Look::Disabled },
    { "icons/arrow_left", 96, 96, Look::Enabled },
    { "icons/arrow_left_dis", 96, 96, Look::Disabled },
    { "icons/arrow_right", 96, 96, Look::Enabled },
    { "icons/arrow_right_dis", 96, 96, Look::Disabled },
    { "icons/canal_64/canal_1", 64, 64, Look::Enabled },
    { "icons/canal_64/canal_2", 64, 64, Look::Enabled },
    { "icons/canal_64/canal_3", 64, 64, Look::Enabled },
    { "icons/canal_64/canal_4", 64, 64, Look::Enabled },
    { "icons/canal_64/canal_5", 64, 64, Look::Enabled },
    { "icons/canal_64/canal_6", 64, 64, Look::Enabled },
    { "icons/canal_64/canal_1M", 64, 64, Look::Enabled },
    { "icons/canal_64/canal_2M", 64, 64, Look::Enabled },
    { "icons/canal_64/canal_3M", 64, 64, Look::Enabled },
    { "icons/canal_64/canal_4M", 64, 64, Look::Enabled },
    { "icons/canal_64/canal_5M", 64, 64, Look::Enabled },
    { "icons/canal_64/canal_6M", 64, 64, Look::Enabled },
    { "icons/canal_64/Canal_Disabled", 64, 64, Look::Disabled },
    { "icons/rest_64/gain", 64, 64, Look::Enabled },
    { "icons/rest_64/velocity", 64, 64, Look::Enabled },
    { "icons/rest_64/average", 64, 64, Look::Enabled },
    { "icons/rest_64/Y", 64, 64, Look::Enabled },
    { "icons/rest_64/X", 64, 64, Look::Enabled },
    { "icons/rest_64/scale", 64, 64, Look::Enabled },
    { "icons/rest_64/pulse_width", 64, 64, Look::Enabled },
    { "icons/rest_64/amplitude", 64, 64, Look::Enabled },
    { "icons/rest_64/impendance", 64, 64, Look::Enabled },
    { "icons/rest_64/cursorA", 64, 64, Look::Enabled },
    { "icons/rest_64/cursorB", 64, 64, Look::Enabled },
    { "icons/rest_64/diifference", 64, 64, Look::Enabled },
    { "icons/rest_64/setting", 65, 65, Look::Enabled },
    { "icons/rest_64/load", 64, 64, Look::Enabled },
    { "icons/rest_64/reset", 64, 64, Look::Enabled },
    { "icons/rest_64/reset_disable", 64, 64, Look::Disabled },
    { "icons/rest_64/clear", 64, 64, Look::Enabled },
    { "icons/rest_64/info", 64, 64, Look::Enabled },
    { "icons/rest_64/cursor", 64, 64, Look::Enabled },
};

constexpr QRgb windowGrey = qRgb(64, 65, 66);
constexpr int smallestIcon = 18;
/// Shapes that carry a meaning need three times the luminance of their ground.
constexpr double shapeContrast = 3.0;
/// A disabled one need not be read, only be seen to be there.
constexpr double disabledContrast = 1.8;

QImage picture(const char *name)
{
    return QImage(QStringLiteral(":/") + QString::fromLatin1(name));
}

QImage slotPicture(const QLatin1String &pattern, int slot)
{
    return QImage(QString(pattern).arg(slot + 1)).convertToFormat(QImage::Format_ARGB32);
}

/// The picture as a small button shows it, on the window's grey.
QImage onWindow(const QImage &source)
{
    const QImage scaled
        = source.scaled(smallestIcon, smallestIcon, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    QImage ground(scaled.size(), QImage::Format_RGB32);
    ground.fill(windowGrey);
    QPainter(&ground).drawImage(0, 0, scaled);
    return ground;
}

/// Grey, cut out by the mask of one bit: the look of a button that is not checked.
QImage greyForm(const QImage &source)
{
    QPixmap grey = QPixmap::fromImage(source.convertToFormat(QImage::Format_Grayscale8));
    grey.setMask(QPixmap::fromImage(source).mask());
    return grey.toImage();
}

/// Percentage of pixels in \a area that differ from \a ground by at least \a wanted.
int share(const QImage &image, const QRect &area, QRgb ground, double wanted)
{
    int found = 0;
    for (int y = area.top(); y <= area.bottom(); ++y) {
        for (int x = area.left(); x <= area.right(); ++x)
            found += contrast(image.pixel(x, y), ground) >= wanted ? 1 : 0;
    }
    return found * 100 / (area.width() * area.height());
}

bool isColoured(const QImage &image)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor colour = image.pixelColor(x, y);
            if (colour.alpha() == 255 && colour.saturation() > 60)
                return true;
        }
    }
    return false;
}

} // namespace

class TestPictures : public QObject
{
    Q_OBJECT

private slots:
    void eachPictureLoadsInItsSize_data()
    {
        QTest::addColumn<QString>("name");
        QTest::addColumn<QSize>("size");
        for (const Picture &one : pictures)
            QTest::newRow(one.name)
                << QString::fromLatin1(one.name) << QSize(one.width, one.height);
    }

    // The program leaves ".png" out and writes one slash or two; the file itself has the ending.
    void eachPictureLoadsInItsSize()
    {
        QFETCH(QString, name);
        QVERIFY(QFile::exists(QStringLiteral(":/%1.png").arg(name)));
        QTEST(QPixmap(QStringLiteral(":/%1.png").arg(name)).size(), "size");
        QTEST(QPixmap(QStringLiteral(":/%1").arg(name)).size(), "size");
        QTEST(QPixmap(QStringLiteral("://%1").arg(name)).size(), "size");
    }

    void theIconFileHoldsTwoSizes()
    {
        QImageReader reader(QStringLiteral(":/icons/tdr_btr_64.ico"));
        QCOMPARE(reader.imageCount(), 2);
        const auto format = QImage::Format_ARGB32_Premultiplied;
        QCOMPARE(reader.read().convertToFormat(format),
                 picture("icons/tdr_btr_64").convertToFormat(format));
        QVERIFY(reader.jumpToImage(1));
        QCOMPARE(reader.read().size(), QSize(32, 32));
    }

    void allPicturesDiffer()
    {
        QVector<QImage> seen;
        for (const Picture &one : pictures) {
            const QImage image = picture(one.name);
            QVERIFY2(!seen.contains(image), one.name);
            seen.append(image);
        }
    }

    void eachPictureIsReadableWhenSmall_data()
    {
        QTest::addColumn<QImage>("image");
        QTest::addColumn<double>("wanted");
        for (const Picture &one : pictures) {
            if (one.look == Look::Free)
                continue;
            const double wanted = one.look == Look::Enabled ? shapeContrast : disabledContrast;
            QTest::addRow("%s", one.name) << picture(one.name) << wanted;
            QTest::addRow("%s in grey", one.name) << greyForm(picture(one.name)) << wanted;
        }
    }

    // Two full strokes across the square cover 15 percent of it; with less, it is a speck.
    void eachPictureIsReadableWhenSmall()
    {
        QFETCH(QImage, image);
        QFETCH(double, wanted);
        const QImage seen = onWindow(image);
        const int readable = share(seen, seen.rect(), windowGrey, wanted);
        QVERIFY2(readable >= 15, qPrintable(QString::number(readable)));
    }

    // The pixels of the window between two strokes, in a row that crosses the drawing.
    void averageAndGainDoNotBlurWhenSmall()
    {
        struct Row
        {
            const char *name;
            int y;
            int gap;
        };
        for (const Row &row :
             { Row{ "icons/rest_64/average", 3, 4 }, Row{ "icons/rest_64/gain", 8, 5 } }) {
            const QImage seen = onWindow(picture(row.name));
            int widest = 0;
            int gap = -1; // none before the first stroke
            for (int x = 0; x < smallestIcon; ++x) {
                const double ink = contrast(seen.pixel(x, row.y), windowGrey);
                if (ink >= shapeContrast) {
                    widest = qMax(widest, gap);
                    gap = 0;
                } else if (gap >= 0 && ink < 1.25) {
                    ++gap;
                }
            }
            QVERIFY2(widest >= row.gap, row.name);
        }
    }

    void aDisabledLookIsTheSameDrawingWithoutColour_data()
    {
        QTest::addColumn<QByteArray>("enabled");
        QTest::addColumn<QByteArray>("disabled");
        for (const char *name : { "zoom_in", "zoom_out", "arrow_left", "arrow_right" }) {
            const QByteArray path = QByteArray("icons/") + name;
            QTest::newRow(name) << path << path + "_dis";
        }
        QTest::newRow("reset") << QByteArray("icons/rest_64/reset")
                               << QByteArray("icons/rest_64/reset_disable");
    }

    void aDisabledLookIsTheSameDrawingWithoutColour()
    {
        QFETCH(QByteArray, enabled);
        QFETCH(QByteArray, disabled);
        const QImage on = picture(enabled.constData());
        const QImage off = picture(disabled.constData());
        QCOMPARE(off.convertToFormat(QImage::Format_Alpha8),
                 on.convertToFormat(QImage::Format_Alpha8));
        QVERIFY(isColoured(on));
        QVERIFY(!isColoured(off));
    }

    void aSlotPictureShowsTheColourOfItsTrace_data()
    {
        QTest::addColumn<int>("slot");
        QTest::addColumn<QImage>("image");
        for (int slot = 0; slot < constants::slotCount; ++slot) {
            QTest::addRow("%d", slot + 1) << slot << slotPicture(constants::slotIcon, slot);
            QTest::addRow("%d as master", slot + 1)
                << slot << slotPicture(constants::masterSlotIcon, slot);
        }
    }

    // The number is set off against the plate as the plate is against the window.
    void aSlotPictureShowsTheColourOfItsTrace()
    {
        QFETCH(int, slot);
        QFETCH(QImage, image);
        const QRgb colour = constants::slotColours[slot];
        const QRect middle(12, 30, 40, 24);
        int plate = 0;
        for (int y = middle.top(); y <= middle.bottom(); ++y) {
            for (int x = middle.left(); x <= middle.right(); ++x)
                plate += image.pixel(x, y) == colour ? 1 : 0;
        }
        QVERIFY2(plate >= 400, qPrintable(QString::number(plate)));
        const int number = share(image, middle, colour, shapeContrast);
        QVERIFY2(number >= 15, qPrintable(QString::number(number)));
    }

    // Seen in the outline, not only in the colour: the plain one has a flat top, the master a
    // crown.
    void theMasterHasAnotherOutline()
    {
        for (int slot = 0; slot < constants::slotCount; ++slot) {
            const QImage plain = slotPicture(constants::slotIcon, slot);
            const QImage master = slotPicture(constants::masterSlotIcon, slot);
            int differences = 0;
            for (int y = 0; y < 20; ++y) {
                for (int x = 0; x < 64; ++x)
                    differences += qAlpha(plain.pixel(x, y)) != qAlpha(master.pixel(x, y)) ? 1 : 0;
            }
            QVERIFY2(differences >= 300, qPrintable(QString::number(differences)));
        }
    }

    // It takes the place of the other one, so it must not be another drawing.
    void eachFinerPictureIsTheSameDrawing()
    {
        int found = 0;
        for (const Picture &one : pictures) {
            const QString name = QString::fromLatin1(one.name);
            const QImage fine(QStringLiteral(":/sharp/%1@2x.png").arg(name));
            if (fine.isNull())
                continue;
            ++found;
            QCOMPARE(fine.devicePixelRatio(), 2.0);
            QCOMPARE(fine.size(), QSize(one.width, one.height) * 2);
            const QImage plain = picture(one.name).convertToFormat(QImage::Format_ARGB32);
            const QImage halved
                = fine.scaled(plain.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
                      .convertToFormat(QImage::Format_ARGB32);
            double difference = 0.0;
            for (int y = 0; y < plain.height(); ++y)
                for (int x = 0; x < plain.width(); ++x)
                    difference += qAbs(qAlpha(plain.pixel(x, y)) - qAlpha(halved.pixel(x, y)));
            const double mean = difference / (plain.width() * plain.height());
            QVERIFY2(mean < 4.0, qPrintable(QStringLiteral("%1: %2").arg(name).arg(mean)));
        }
        QCOMPARE(found, 35);
    }

    void theLogoKeepsItsShapeInTheWindow()
    {
        const QSize shown = picture("pix/logo").size().scaled(140, 50, Qt::KeepAspectRatio);
        QCOMPARE(shown, QSize(121, 50));
    }
};

QTEST_MAIN(TestPictures)
#include "tst_pictures.moc"
