// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dictionary.h"
#include "interfacebutton.h"
#include "parambutton.h"

#include <QtTest>

namespace {

/// A red square with a transparent right half.
QPixmap halfRed()
{
    QImage image(16, 16, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    for (int y = 0; y < 16; ++y)
        for (int x = 0; x < 8; ++x)
            image.setPixelColor(x, y, Qt::red);
    return QPixmap::fromImage(image);
}

/// True when \a holds is true of every pixel of \a image.
bool allPixels(const QImage &image, bool (*holds)(QRgb pixel))
{
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (!holds(image.pixel(x, y)))
                return false;
    return true;
}

bool isGrey(const QImage &image)
{
    return allPixels(image, [](QRgb pixel) {
        return qRed(pixel) == qGreen(pixel) && qGreen(pixel) == qBlue(pixel);
    });
}

bool isTransparent(const QImage &image)
{
    return allPixels(image, [](QRgb pixel) { return qAlpha(pixel) == 0; });
}

QImage iconImage(const QIcon &icon, QIcon::Mode mode, QIcon::State state)
{
    return icon.pixmap(64, mode, state).toImage();
}

const QString gain = QStringLiteral("://icons/rest_64/gain");

} // namespace

class TestInterfaceButton : public QObject
{
    Q_OBJECT

private slots:
    void aNewButtonHasItsWordsAndNoParent()
    {
        Dictionary words(nullptr);
        const InterfaceButton button(&words);
        QCOMPARE(button.dict, &words);
        QCOMPARE(button.parent(), nullptr);
        QVERIFY(button.icon.isNull());
        QVERIFY(!button.isCheckable());
    }

    void pureRedBecomesTheGreyOfQtAndTransparentStays()
    {
        InterfaceButton button(nullptr);
        const QImage gray = button.grayPixmap(halfRed()).toImage();
        QCOMPARE(gray.size(), QSize(16, 16));
        QImage red(1, 1, QImage::Format_ARGB32);
        red.fill(Qt::red);
        const int level = qRed(red.convertToFormat(QImage::Format_Grayscale8).pixel(0, 0));
        QCOMPARE(gray.pixelColor(3, 3), QColor(level, level, level));
        QCOMPARE(gray.pixelColor(3, 3).alpha(), 255);
        QCOMPARE(gray.pixelColor(12, 3).alpha(), 0);
        // Without a mask, and nothing but mask.
        QPixmap green(20, 10);
        green.fill(Qt::green);
        const QColor pixel = button.grayPixmap(green).toImage().pixelColor(1, 1);
        QCOMPARE(pixel.alpha(), 255);
        QCOMPARE(pixel.red(), pixel.blue());
        QVERIFY(pixel.red() > 100 && pixel.red() < 255);
        QPixmap clear(20, 10);
        clear.fill(Qt::transparent);
        QCOMPARE(button.grayPixmap(clear).size(), QSize(20, 10));
        QVERIFY(isTransparent(button.grayPixmap(clear).toImage()));
    }

    void noPictureIsNoPicture()
    {
        InterfaceButton button(nullptr);
        QVERIFY(button.grayPixmap(QPixmap()).isNull());
        button.set_icon(QStringLiteral("://icons/missing"));
        QVERIFY(button.icon.isNull());
        QVERIFY(!button.grab().isNull());
    }

    void uncheckedIsGreyAndCheckedIsColoured()
    {
        InterfaceButton button(nullptr);
        button.set_icon(gain);
        QCOMPARE(button.icon.availableSizes(QIcon::Active, QIcon::On), { QSize(64, 64) });
        QCOMPARE(button.icon.availableSizes(QIcon::Normal, QIcon::Off), { QSize(64, 64) });
        const QImage off = iconImage(button.icon, QIcon::Normal, QIcon::Off);
        QVERIFY(isGrey(off));
        QVERIFY(!isTransparent(off));
        const QImage coloured = QPixmap(gain).toImage().convertToFormat(QImage::Format_ARGB32);
        QVERIFY(!isGrey(coloured));
        for (const QIcon::Mode mode : { QIcon::Normal, QIcon::Active }) {
            const QImage on = iconImage(button.icon, mode, QIcon::On);
            QCOMPARE(on.convertToFormat(QImage::Format_ARGB32), coloured);
        }
        // Under the mouse it is still the grey one.
        QVERIFY(isGrey(iconImage(button.icon, QIcon::Active, QIcon::Off)));
        QCOMPARE(button.QAbstractButton::icon().cacheKey(), button.icon.cacheKey());
    }

    void settingTheIconAgainDoesNotPileUp()
    {
        InterfaceButton button(nullptr);
        for (int i = 0; i < 5; ++i) {
            button.set_icon(gain);
            button.set_icon(QStringLiteral("://icons/rest_64/average"));
        }
        QCOMPARE(button.icon.availableSizes(QIcon::Normal, QIcon::Off).size(), 1);
        const QImage average = QPixmap(QStringLiteral("://icons/rest_64/average")).toImage();
        QCOMPARE(
            iconImage(button.icon, QIcon::Active, QIcon::On).convertToFormat(QImage::Format_ARGB32),
            average.convertToFormat(QImage::Format_ARGB32));
    }

    void aParameterButtonKnowsItsParameter()
    {
        Dictionary words(nullptr);
        const ParamButton button(&words, 7);
        QCOMPARE(int(button.id), 7);
        QVERIFY(button.isCheckable());
        QVERIFY(!button.isChecked());
        QCOMPARE(button.sizePolicy().horizontalPolicy(), QSizePolicy::Preferred);
        QCOMPARE(button.sizePolicy().verticalPolicy(), QSizePolicy::Preferred);
        QCOMPARE(button.parent(), nullptr);
        // The words are deliberately not kept.
        QCOMPARE(button.dict, nullptr);
    }

    void aParameterButtonFiltersItselfAndLetsAllPass()
    {
        /// Counts what the button's own filter sees.
        class Counter : public ParamButton
        {
        public:
            Counter()
                : ParamButton(nullptr, 1)
            {
            }
            bool eventFilter(QObject *watched, QEvent *event) override
            {
                const bool held = ParamButton::eventFilter(watched, event);
                seen += watched == this ? 1 : 0;
                heldBack += held ? 1 : 0;
                return held;
            }
            int seen = 0;
            int heldBack = 0;
        };
        Counter button;
        button.show();
        QTest::mouseClick(&button, Qt::LeftButton);
        QVERIFY(button.isChecked());
        QVERIFY(button.seen > 2);
        QCOMPARE(button.heldBack, 0);
    }
};

QTEST_MAIN(TestInterfaceButton)
#include "tst_interfacebutton.moc"
