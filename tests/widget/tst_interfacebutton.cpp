// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dictionary.h"
#include "interfacebutton.h"
#include "parambutton.h"

#include <QProxyStyle>
#include <QtTest>

#include <functional>
#include <iterator>

namespace {

/// A red square with a transparent right half.
QPixmap halfRed()
{
    QImage image(16, 16, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    for (int y = 0; y < 16; ++y) {
        for (int x = 0; x < 8; ++x) {
            image.setPixelColor(x, y, Qt::red);
        }
    }
    return QPixmap::fromImage(image);
}

bool isGrey(const QImage &image)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QRgb pixel = image.pixel(x, y);
            if (qRed(pixel) != qGreen(pixel) || qGreen(pixel) != qBlue(pixel)) {
                return false;
            }
        }
    }
    return true;
}

bool isTransparent(const QImage &image)
{
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) != 0) {
                return false;
            }
        }
    }
    return true;
}

QImage iconImage(const QIcon &icon, QIcon::Mode mode, QIcon::State state)
{
    return icon.pixmap(64, mode, state).toImage();
}

const QString gain = QStringLiteral("://icons/rest_64/gain");

QByteArray builtInSheet()
{
    QFile file(QStringLiteral(":/style/style_1.qss"));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// A button that can also be painted without the picture of its ground.
class Button : public InterfaceButton
{
public:
    Button()
        : InterfaceButton(nullptr)
    {
    }

    /// Whether it looks the same with and without the picture of its ground, with new words each
    /// time.
    bool looksRight()
    {
        for (const char *words :
             { "1.00 m", "Δ 20.55 m", "", "long words go over the edge of it" }) {
            setText(QString::fromUtf8(words));
            const QImage painted = window()->grab().toImage();
            m_plain = true;
            const QImage plain = window()->grab().toImage();
            m_plain = false;
            if (painted != plain)
                return false;
        }
        return true;
    }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        if (m_plain)
            PictureButton::paintEvent(event);
        else
            InterfaceButton::paintEvent(event);
    }

private:
    bool m_plain = false;
};

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

    void pureRedBecomesTheToolkitsGrey()
    {
        InterfaceButton button(nullptr);
        const QImage gray = button.grayPixmap(halfRed()).toImage();
        QCOMPARE(gray.size(), QSize(16, 16));
        const int level = redLevel();
        QCOMPARE(gray.pixelColor(3, 3), QColor(level, level, level));
        QCOMPARE(gray.pixelColor(3, 3).alpha(), 255);
        QCOMPARE(gray.pixelColor(12, 3).alpha(), 0);
    }

    void transparentStaysTransparent()
    {
        InterfaceButton button(nullptr);
        QPixmap clear(20, 10);
        clear.fill(Qt::transparent);
        const QPixmap gray = button.grayPixmap(clear);
        QCOMPARE(gray.size(), QSize(20, 10));
        QVERIFY(isTransparent(gray.toImage()));
    }

    void opaqueStaysOpaque()
    {
        InterfaceButton button(nullptr);
        QPixmap green(4, 4);
        green.fill(Qt::green);
        const QColor pixel = button.grayPixmap(green).toImage().pixelColor(1, 1);
        QCOMPARE(pixel.alpha(), 255);
        QCOMPARE(pixel.red(), pixel.blue());
        QVERIFY(pixel.red() > 100 && pixel.red() < 255);
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

    void itLooksTheSameWithThePictureOfItsGround_data()
    {
        QTest::addColumn<QByteArray>("sheet");
        QTest::newRow("no sheet") << QByteArray();
        QTest::newRow("built-in sheet") << builtInSheet();
        QTest::newRow("own frame") << QByteArray("QPushButton { border: 2px solid red; }"
                                                 "QPushButton:checked { background: navy; }"
                                                 "QPushButton:focus { outline: 1px dotted lime; }"
                                                 "QPushButton:disabled { color: gray; }");
        QTest::newRow("half transparent")
            << QByteArray("QWidget { background: teal; }"
                          "QPushButton { background: rgba(255, 0, 0, 90); border-radius: 9px; }");
        QTest::newRow("aside") << QByteArray("QPushButton { text-align: left; padding: 7px; "
                                             "margin: 3px; color: blue; font: bold 14px; }");
    }

    void itLooksTheSameWithThePictureOfItsGround()
    {
        QFETCH(QByteArray, sheet);
        QWidget window;
        window.resize(140, 60);
        window.setStyleSheet(QString::fromLatin1(sheet));
        auto *button = new Button;
        button->setParent(&window);
        button->setGeometry(5, 5, 121, 50);
        button->setCheckable(true);
        button->set_icon(gain);
        window.show();
        QVERIFY(button->looksRight());
        const std::function<void()> changes[] = {
            [&] { button->clearFocus(); },
            [&] { button->setFocus(Qt::TabFocusReason); },
            [&] { button->setChecked(true); },
            [&] { button->setDown(true); },
            [&] { button->setDown(false); },
            [&] { button->setEnabled(false); },
            [&] { button->setEnabled(true); },
            [&] { button->resize(100, 40); },
            [&] { button->setFont(QFont(QStringLiteral("DejaVu Sans"), 17)); },
            [&] { button->setStyleSheet(QStringLiteral("background: yellow")); },
            [&] { button->setStyleSheet(QString()); },
            [&] { window.setStyleSheet(QString::fromLatin1(builtInSheet())); },
            [&] { window.setStyleSheet(QString()); },
            [&] { button->setPalette(QPalette(Qt::darkRed, Qt::darkGreen)); },
            [&] { button->setLayoutDirection(Qt::RightToLeft); },
            [&] { button->setIcon(QIcon()); },
        };
        for (std::size_t i = 0; i < std::size(changes); ++i) {
            changes[i]();
            QVERIFY2(button->looksRight(), qPrintable(QStringLiteral("change %1").arg(i)));
        }
    }

    void itsGroundIsNotDrawnForNewWords()
    {
        /// Counts the grounds that it draws.
        class Counter : public QProxyStyle
        {
        public:
            void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                             const QWidget *widget) const override
            {
                grounds += element == CE_PushButtonBevel ? 1 : 0;
                QProxyStyle::drawControl(element, option, painter, widget);
            }
            mutable int grounds = 0;
        };
        Counter style;
        Button button;
        button.setStyle(&style);
        button.resize(121, 50);
        for (int i = 0; i < 20; ++i) {
            button.setText(QString::number(i));
            button.grab();
        }
        // As it is, and once more for the picture.
        QCOMPARE(style.grounds, 2);
        button.resize(122, 50);
        button.grab();
        QCOMPARE(style.grounds, 3);
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

private:
    static int redLevel()
    {
        QImage image(1, 1, QImage::Format_ARGB32);
        image.fill(Qt::red);
        const QRgb gray = image.convertToFormat(QImage::Format_Grayscale8).pixel(0, 0);
        return qRed(gray);
    }
};

QTEST_MAIN(TestInterfaceButton)
#include "tst_interfacebutton.moc"
