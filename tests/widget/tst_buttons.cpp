// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/sharedbevels.h"
#include "interfacebutton.h"
#include "picturebutton.h"

#include <QPainter>
#include <QSet>
#include <QStyleFactory>
#include <QStyleOption>
#include <QtTest>

namespace {

QImage iconImage(const QIcon &icon, QIcon::Mode mode, QIcon::State state)
{
    return icon.pixmap(64, mode, state).toImage();
}

const QString gain = QStringLiteral("://icons/rest_64/gain");

constexpr QRgb pictureColour = 0xFFFF00FF;
constexpr QRgb captionColour = 0xFF00FF00;
const QString block = QStringLiteral("\u2588"); // fills its cell to the edges

/// The columns of \a button that hold pixels of \a colour, first and last.
QPair<int, int> columnsOf(QWidget &button, QRgb colour)
{
    const QImage image = button.grab().toImage();
    QPair<int, int> columns(-1, -1);
    for (int x = 0; x < image.width(); ++x)
        for (int y = 0; y < image.height(); ++y)
            if (image.pixel(x, y) == colour) {
                columns.first = columns.first < 0 ? x : columns.first;
                columns.second = x;
            }
    return columns;
}

/// The lightest grey value in the columns from \a from to \a to of \a button.
int lightestIn(QWidget &button, QPair<int, int> columns)
{
    const QImage image = button.grab().toImage();
    int lightest = 0;
    for (int x = columns.first; x <= columns.second; ++x)
        for (int y = 10; y < image.height() - 10; ++y)
            lightest = qMax(lightest, qGray(image.pixel(x, y)));
    return lightest;
}

/// Records the palettes with which bevels are drawn.
class Palettes : public QProxyStyle
{
public:
    Palettes()
        : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion")))
    {
    }

    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override
    {
        if (element == PE_PanelButtonCommand) {
            identities.insert(option->palette.cacheKey());
            grounds.append(option->palette.color(QPalette::Button));
        }
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }

    mutable QSet<qint64> identities;
    mutable QVector<QColor> grounds;
};

void paint(QPushButton &button, const QString &ground)
{
    button.setStyleSheet(QStringLiteral("QPushButton { background: %1 }").arg(ground));
    button.grab();
    button.grab();
}

} // namespace

/// The buttons with a picture, PictureButton and InterfaceButton, and the style that draws them.
class TestButtons : public QObject
{
    Q_OBJECT

private:
    static void set(PictureButton &button, const QString &caption, QRgb colour = pictureColour)
    {
        QPixmap picture(64, 64);
        picture.fill(QColor::fromRgb(colour));
        button.setIcon(picture);
        button.setText(caption);
        button.resize(160, 60);
        button.setIconSize({ 18, 18 });
        button.setStyleSheet(QStringLiteral("color: rgb(0, 255, 0)"));
    }

private slots:
    // ---- PictureButton ----

    void fourPixelsLieBetweenPictureAndCaption()
    {
        PictureButton button;
        set(button, block + block + QLatin1Char('\n') + block);
        for (const bool isChecked : { false, true, false }) {
            button.setCheckable(true);
            button.setChecked(isChecked);
            QCOMPARE(columnsOf(button, captionColour).first
                         - columnsOf(button, pictureColour).second,
                     5);
        }
        button.setLayoutDirection(Qt::RightToLeft);
        QVERIFY(columnsOf(button, pictureColour).first
                > columnsOf(button, captionColour).second + 3);
        button.setText(QString());
        QCOMPARE(columnsOf(button, pictureColour), qMakePair(71, 88));
    }

    void tooWideCaptionStaysOnTheButton()
    {
        PictureButton button;
        const QString word = block.repeated(4);
        set(button, word + QLatin1Char(' ') + word + QLatin1Char('\n') + block);
        const auto captionWidth = [&button] {
            const QPair<int, int> columns = columnsOf(button, captionColour);
            return columns.second - columns.first + 1;
        };
        const int oneLine = captionWidth();
        button.resize(100, 80);
        // Two words on two lines, in the same size.
        const int wordWidth = QFontMetrics(button.font()).horizontalAdvance(word);
        QVERIFY(qAbs(captionWidth() - wordWidth) <= 1);
        QVERIFY(oneLine > 2 * wordWidth);
        for (const int width : { 60, 50 }) {
            button.resize(width, 80);
            const QPair<int, int> columns = columnsOf(button, captionColour);
            QVERIFY(columns.second < width - 2);
            QVERIFY(columns.first > columnsOf(button, pictureColour).second);
            QVERIFY(columnsOf(button, pictureColour).first > 1);
            QVERIFY(captionWidth() < wordWidth - 1);
        }
        QCOMPARE(button.text().count(QLatin1Char('\n')), 1);
    }

    void disabledPictureIsAsDimAsItsCaption()
    {
        QFile sheet(QStringLiteral(":/style/style_2.qss"));
        QVERIFY(sheet.open(QIODevice::ReadOnly));
        PictureButton button;
        set(button, block + block, 0xFFE6E6E6);
        button.setStyleSheet(QString::fromUtf8(sheet.readAll()));
        // A picture of 18 pixels, a gap of 4 and the caption, in the middle.
        const int caption = QFontMetrics(button.font()).horizontalAdvance(button.text());
        const int left = (160 - 18 - 4 - caption) / 2;
        const auto picture = qMakePair(left + 2, left + 15);
        const auto text = qMakePair(left + 24, left + 20 + caption);
        QVERIFY(qAbs(lightestIn(button, picture) - lightestIn(button, text)) < 8);
        const int enabled = lightestIn(button, picture);
        button.setEnabled(false);
        QVERIFY(qAbs(lightestIn(button, picture) - lightestIn(button, text)) < 16);
        QVERIFY(lightestIn(button, picture) < enabled - 60);
    }

    // ---- InterfaceButton ----

    void pureRedBecomesTheGreyOfQtAndTransparencyIsKept()
    {
        InterfaceButton button(nullptr);
        QPixmap halfRed(16, 16);
        halfRed.fill(Qt::transparent);
        QPainter(&halfRed).fillRect(0, 0, 8, 16, Qt::red);
        const QImage gray = button.grayPixmap(halfRed).toImage();
        QCOMPARE(gray.size(), QSize(16, 16));
        QImage red(1, 1, QImage::Format_ARGB32);
        red.fill(Qt::red);
        const int level = qRed(red.convertToFormat(QImage::Format_Grayscale8).pixel(0, 0));
        QCOMPARE(gray.pixelColor(3, 3), QColor(level, level, level));
        QCOMPARE(gray.pixelColor(3, 3).alpha(), 255);
        QCOMPARE(gray.pixelColor(12, 3).alpha(), 0);
        // A pixmap without a mask, and one that is transparent everywhere.
        QPixmap green(20, 10);
        green.fill(Qt::green);
        const QColor pixel = button.grayPixmap(green).toImage().pixelColor(1, 1);
        QCOMPARE(pixel.alpha(), 255);
        QCOMPARE(pixel.red(), pixel.blue());
        QVERIFY(pixel.red() > 100 && pixel.red() < 255);
        QPixmap clear(20, 10);
        clear.fill(Qt::transparent);
        QCOMPARE(button.grayPixmap(clear).size(), QSize(20, 10));
        QCOMPARE(button.grayPixmap(clear).toImage().pixelColor(1, 1).alpha(), 0);
    }

    void missingPictureGivesANullIcon()
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
        QCOMPARE(iconImage(button.icon, QIcon::Normal, QIcon::Off),
                 button.grayPixmap(QPixmap(gain)).toImage());
        const QImage coloured = QPixmap(gain).toImage().convertToFormat(QImage::Format_ARGB32);
        for (const QIcon::Mode mode : { QIcon::Normal, QIcon::Active }) {
            const QImage on = iconImage(button.icon, mode, QIcon::On);
            QCOMPARE(on.convertToFormat(QImage::Format_ARGB32), coloured);
        }
        // Under the mouse it is still grey.
        QVERIFY(iconImage(button.icon, QIcon::Active, QIcon::Off).allGray());
        QCOMPARE(button.QAbstractButton::icon().cacheKey(), button.icon.cacheKey());
    }

    void settingTheIconAgainReplacesIt()
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

    // ---- SharedBevels ----

    void bevelsOfOneColourHaveOnePalette()
    {
        auto *palettes = new Palettes;
        SharedBevels style(palettes);
        QPushButton first;
        QPushButton second;
        first.setStyle(&style);
        second.setStyle(&style);
        paint(first, QStringLiteral("#806040"));
        paint(second, QStringLiteral("#806040"));
        QCOMPARE(palettes->identities.size(), 1);
        QCOMPARE(palettes->grounds, QVector<QColor>(4, QColor(0x80, 0x60, 0x40)));

        // Many colours, as in a user's sheet, and the first again.
        palettes->grounds.clear();
        for (int red = 0; red < 40; ++red)
            paint(first, QStringLiteral("rgb(%1, 0, 0)").arg(red));
        paint(first, QStringLiteral("#806040"));
        for (int red = 0; red < 40; ++red)
            QCOMPARE(palettes->grounds.mid(2 * red, 2), QVector<QColor>(2, QColor(red, 0, 0)));
        QCOMPARE(palettes->grounds.last(), QColor(0x80, 0x60, 0x40));
    }

    void sharedStyleIsOneObjectWithTheStyleOfTheApplication()
    {
        QApplication::setStyle(QStringLiteral("Windows"));
        QCOMPARE(SharedBevels::instance(), SharedBevels::instance());
        QCOMPARE(SharedBevels::instance()->parent(), qApp);
        QCOMPARE(SharedBevels::instance()->baseStyle()->objectName(),
                 QApplication::style()->objectName());
    }
};

QTEST_MAIN(TestButtons)
#include "tst_buttons.moc"
