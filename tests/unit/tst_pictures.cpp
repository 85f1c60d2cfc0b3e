// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/constants.h"
#include "contrast.h"
#include "each.h"

#include <QBitmap>
#include <QFile>
#include <QImageReader>
#include <QPainter>
#include <QPixmap>
#include <QtTest>

namespace {

/// Check of a picture at the smallest size in use.
enum class Look {
    Enabled, ///< full contrast
    Disabled, ///< visible, but fainter
    Free ///< none: shown larger, or on a background of its own
};

struct Picture
{
    QByteArray name; ///< below ":/", without extension
    int width;
    int height;
    Look look;
};

const std::vector<Picture> &pictures()
{
    static const auto all = [] {
        std::vector<Picture> list{
            { "icons/tdr_btr_64", 64, 64, Look::Free },
            { "pix/logo", 180, 74, Look::Free },
            { "icons/eye_opened", 302, 212, Look::Enabled },
            { "icons/eye_closed", 302, 212, Look::Enabled },
            { "icons/rest_64/setting", 65, 65, Look::Enabled },
            { "icons/rest_64/reset_disable", 64, 64, Look::Disabled },
            { "icons/canal_64/Canal_Disabled", 64, 64, Look::Disabled },
        };
        for (const char *name : { "zoom_in", "zoom_out", "arrow_left", "arrow_right" }) {
            list.push_back({ QByteArray("icons/") + name, 96, 96, Look::Enabled });
            list.push_back({ QByteArray("icons/") + name + "_dis", 96, 96, Look::Disabled });
        }
        for (const char *name : { "canal_64/canal_1",    "canal_64/canal_2",  "canal_64/canal_3",
                                  "canal_64/canal_4",    "canal_64/canal_5",  "canal_64/canal_6",
                                  "canal_64/canal_1M",   "canal_64/canal_2M", "canal_64/canal_3M",
                                  "canal_64/canal_4M",   "canal_64/canal_5M", "canal_64/canal_6M",
                                  "rest_64/gain",        "rest_64/velocity",  "rest_64/average",
                                  "rest_64/Y",           "rest_64/X",         "rest_64/scale",
                                  "rest_64/pulse_width", "rest_64/amplitude", "rest_64/impendance",
                                  "rest_64/cursorA",     "rest_64/cursorB",   "rest_64/diifference",
                                  "rest_64/load",        "rest_64/reset",     "rest_64/clear",
                                  "rest_64/info",        "rest_64/cursor" })
            list.push_back({ QByteArray("icons/") + name, 64, 64, Look::Enabled });
        return list;
    }();
    return all;
}

constexpr QRgb windowGrey = qRgb(64, 65, 66);
constexpr int smallestIcon = 18;
/// Contrast of shapes that carry a meaning.
constexpr double shapeContrast = 3.0;
constexpr double disabledContrast = 1.8;

QImage picture(const QByteArray &name)
{
    return QImage(QStringLiteral(":/") + QString::fromLatin1(name));
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

/// \a source in grey with a one-bit mask, as on an unchecked button.
QImage greyForm(const QImage &source)
{
    QPixmap grey = QPixmap::fromImage(source.convertToFormat(QImage::Format_Grayscale8));
    grey.setMask(QPixmap::fromImage(source).mask());
    return grey.toImage();
}

/// Percentage of pixels in \a area whose contrast to \a ground is at least \a wanted.
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
    // The program omits ".png" and writes one slash or two; the file has the extension.
    void eachPictureLoadsInItsSizeAndDiffersFromTheOthers()
    {
        QVector<QImage> seen;
        each(pictures(), [&seen](const Picture &one) {
            const QString name = QString::fromLatin1(one.name);
            const QSize size(one.width, one.height);
            QVERIFY(QFile::exists(QStringLiteral(":/%1.png").arg(name)));
            for (const char *path : { ":/%1.png", ":/%1", "://%1" })
                QCOMPARE(QPixmap(QString::fromLatin1(path).arg(name)).size(), size);
            const QImage image = picture(one.name);
            QVERIFY(!seen.contains(image));
            seen.append(image);
        });
    }

    void iconFileHoldsTwoSizes()
    {
        QImageReader reader(QStringLiteral(":/icons/tdr_btr_64.ico"));
        QCOMPARE(reader.imageCount(), 2);
        const auto format = QImage::Format_ARGB32_Premultiplied;
        QCOMPARE(reader.read().convertToFormat(format),
                 picture("icons/tdr_btr_64").convertToFormat(format));
        QVERIFY(reader.jumpToImage(1));
        QCOMPARE(reader.read().size(), QSize(32, 32));
    }

    // Two full strokes across the square cover 15 percent of it.
    void eachPictureIsReadableWhenSmall()
    {
        each(pictures(), [](const Picture &one) {
            if (one.look == Look::Free)
                return;
            const double wanted = one.look == Look::Enabled ? shapeContrast : disabledContrast;
            for (const QImage &image : { picture(one.name), greyForm(picture(one.name)) }) {
                const QImage seen = onWindow(image);
                const int readable = share(seen, seen.rect(), windowGrey, wanted);
                QVERIFY2(readable >= 15, qPrintable(QString::number(readable)));
            }
        });
    }

    // Counts the background pixels between two strokes in a row that crosses the drawing.
    void strokesOfAverageAndGainStaySeparateWhenSmall()
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

    void disabledPictureIsTheSameDrawingWithoutColour()
    {
        struct Row
        {
            const char *name;
            const char *disabled;
        };
        each<Row>({ { "icons/zoom_in", "icons/zoom_in_dis" },
                    { "icons/zoom_out", "icons/zoom_out_dis" },
                    { "icons/arrow_left", "icons/arrow_left_dis" },
                    { "icons/arrow_right", "icons/arrow_right_dis" },
                    { "icons/rest_64/reset", "icons/rest_64/reset_disable" } },
                  [](const Row &row) {
                      const QImage on = picture(row.name);
                      const QImage off = picture(row.disabled);
                      QCOMPARE(off.convertToFormat(QImage::Format_Alpha8),
                               on.convertToFormat(QImage::Format_Alpha8));
                      QVERIFY(isColoured(on));
                      QVERIFY(!isColoured(off));
                  });
    }

    // The number contrasts with the plate as the plate does with the window. The plain picture has
    // a flat top, that of the master a crown.
    void slotPictureShowsTheColourOfItsTraceAndTheMaster()
    {
        for (int slot = 0; slot < constants::slotCount; ++slot) {
            const QByteArray name = "icons/canal_64/canal_" + QByteArray::number(slot + 1);
            const QImage plain = picture(name).convertToFormat(QImage::Format_ARGB32);
            const QImage master = picture(name + 'M').convertToFormat(QImage::Format_ARGB32);
            for (const QImage &image : { plain, master }) {
                const QRgb colour = constants::slotColours[slot];
                const QRect middle(12, 30, 40, 24);
                int plate = 0;
                for (int y = middle.top(); y <= middle.bottom(); ++y)
                    for (int x = middle.left(); x <= middle.right(); ++x)
                        plate += image.pixel(x, y) == colour ? 1 : 0;
                QVERIFY2(plate >= 400, qPrintable(QString::number(plate)));
                const int number = share(image, middle, colour, shapeContrast);
                QVERIFY2(number >= 15, qPrintable(QString::number(number)));
            }
            int differences = 0;
            for (int y = 0; y < 20; ++y)
                for (int x = 0; x < 64; ++x)
                    differences += qAlpha(plain.pixel(x, y)) != qAlpha(master.pixel(x, y)) ? 1 : 0;
            QVERIFY2(differences >= 300, qPrintable(QString::number(differences)));
        }
    }

    void eachSharpPictureIsTheSameDrawing()
    {
        int found = 0;
        for (const Picture &one : pictures()) {
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
};

QTEST_MAIN(TestPictures)
#include "tst_pictures.moc"
