// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "interfacebutton.h"
#include "parambutton.h"
#include "windowfixture.h"

#include <QLabel>
#include <QPushButton>
#include <QtTest>

namespace {

QImage picture(const QString &path)
{
    const QImage image(path);
    if (image.isNull())
        qFatal("no picture %s", qPrintable(path));
    return image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

/// What \a icon draws in the size of \a expected.
QImage drawn(const QIcon &icon, const QImage &expected, QIcon::Mode mode, QIcon::State state)
{
    return icon.pixmap(expected.size(), mode, state)
        .toImage()
        .convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

} // namespace

class TestIcons : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<WindowFixture> fixture;

    const MainWindowProbe &probe() const
    {
        return fixture->probe();
    }

private slots:
    void initTestCase()
    {
        fixture = std::make_unique<WindowFixture>();
        fixture->open();
    }

    void cleanupTestCase()
    {
        fixture.reset();
    }

    void cursorAndParameterButtonsAreColouredWhenDownAndGreyWhenUp()
    {
        const MainWindowProbe &p = probe();
        // "impendance" is how the bundle spells it.
        const QVector<QPair<InterfaceButton *, const char *>> pictures{
            { p.gain_button(), "gain" },
            { p.KU_button(), "velocity" },
            { p.average_button(), "average" },
            { p.V_offset_button(), "Y" },
            { p.H_offset_button(), "X" },
            { p.scale_button(), "scale" },
            { p.pulse_width_button(), "pulse_width" },
            { p.pulse_amplitude_button(), "amplitude" },
            { p.impedance_button(), "impendance" },
            { p.curA_button(), "cursorA" },
            { p.curB_button(), "cursorB" },
        };
        for (const auto &each : pictures) {
            const QString path
                = QStringLiteral("://icons/rest_64/") + QString::fromLatin1(each.second);
            const QImage coloured = picture(path);
            const QIcon icon = each.first->QAbstractButton::icon();
            QVERIFY2(drawn(icon, coloured, QIcon::Active, QIcon::On) == coloured, each.second);
            const QImage grey = each.first->grayPixmap(QPixmap(path))
                                    .toImage()
                                    .convertToFormat(QImage::Format_ARGB32_Premultiplied);
            QVERIFY2(drawn(icon, coloured, QIcon::Normal, QIcon::Off) == grey, each.second);
            QCOMPARE(icon.cacheKey(), each.first->icon.cacheKey());
        }
        QVERIFY(p.reserve_button()->QAbstractButton::icon().isNull());
    }

    void settingsAndDifferenceHaveOnePlainPicture()
    {
        const QVector<QPair<QPushButton *, const char *>> pictures{
            { probe().settings_button(), "://icons/rest_64/setting" },
            { probe().difference_button(), "://icons/rest_64/diifference" },
        };
        for (const auto &each : pictures) {
            const QImage image = picture(QString::fromLatin1(each.second));
            for (const QIcon::State state : { QIcon::Off, QIcon::On })
                QVERIFY2(drawn(each.first->icon(), image, QIcon::Normal, state) == image,
                         each.second);
        }
    }

    void scaleDownCarriesThePictureForZoomingIn()
    {
        const QVector<QPair<QPushButton *, const char *>> pictures{
            { probe().scale_down_button(), "zoom_in" },
            { probe().scale_up_button(), "zoom_out" },
            { probe().scroll_left_button(), "arrow_left" },
            { probe().scroll_right_button(), "arrow_right" },
        };
        for (const auto &each : pictures) {
            const QString path
                = QStringLiteral("://icons/%1%2.png").arg(QString::fromLatin1(each.second));
            const QImage normal = picture(path.arg(QString()));
            const QImage disabled = picture(path.arg(QStringLiteral("_dis")));
            const QIcon icon = each.first->icon();
            QVERIFY2(drawn(icon, normal, QIcon::Normal, QIcon::Off) == normal, each.second);
            QVERIFY2(drawn(icon, disabled, QIcon::Disabled, QIcon::Off) == disabled, each.second);
            QVERIFY(normal != disabled);
        }
    }

    void twoPicturesKeepTheirMisspeltNames()
    {
        const QString folder = QStringLiteral("://icons/rest_64/");
        for (const char *name : { "impendance", "diifference" })
            QVERIFY2(!QPixmap(folder + QLatin1String(name)).isNull(), name);
        for (const char *name : { "impedance", "difference" })
            QVERIFY2(QPixmap(folder + QLatin1String(name)).isNull(), name);
    }

    void theWindowHasItsIcon()
    {
        const QImage image = picture(QStringLiteral("://icons/tdr_btr_64.png"));
        QVERIFY(drawn(fixture->window().windowIcon(), image, QIcon::Normal, QIcon::Off) == image);
    }

    void theLogoIsScaledKeepingItsShape()
    {
        const QPixmap logo(QStringLiteral("://pix/logo.png"));
        const QPixmap shown = probe().logo_lbl()->pixmap(Qt::ReturnByValue);
        QCOMPARE(shown.size(), QSize(121, 50));
        QCOMPARE(shown.toImage(),
                 logo.scaled(140, 50, Qt::KeepAspectRatio, Qt::FastTransformation).toImage());
    }

    void controlsWithoutAPictureHaveNone()
    {
        for (const QPushButton *button :
             { probe().smooth_button(), probe().reset_all_button(), probe().legend_button(),
               probe().curA_nav_button(), probe().curB_nav_button() })
            QVERIFY(button->icon().isNull());
    }
};

QTEST_MAIN(TestIcons)
#include "tst_icons.moc"
