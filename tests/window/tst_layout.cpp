// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "datetime_lbl.h"
#include "each.h"
#include "invariants.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "windowtest.h"

#include <QGraphicsScene>
#include <QGraphicsView>
#include <QGridLayout>
#include <QGroupBox>
#include <QInputDialog>
#include <QLabel>
#include <QProgressBar>
#include <QVBoxLayout>
#include <QtTest>

namespace {

/// One entry of a row or column and its stretch factor.
struct Cell
{
    const QObject *what;
    int stretch;
};

/// Placeholder for a sunken line in a list of cells.
const QObject *const lineHere = nullptr;

bool isSunkenLine(const QWidget *widget)
{
    const auto *frame = qobject_cast<const QFrame *>(widget);
    return frame != nullptr && frame->metaObject() == &QFrame::staticMetaObject
        && frame->frameShape() == QFrame::HLine && frame->frameShadow() == QFrame::Sunken;
}

QString differenceFrom(const QLayout *layout, const QVector<Cell> &cells)
{
    const auto *box = qobject_cast<const QBoxLayout *>(layout);
    if (box == nullptr)
        return QStringLiteral("no row and no column");
    if (box->count() != cells.size())
        return QStringLiteral("%1 entries").arg(box->count());
    for (int i = 0; i < cells.size(); ++i) {
        QLayoutItem *item = box->itemAt(i);
        const bool right = cells[i].what == lineHere
            ? item->widget() != nullptr && isSunkenLine(item->widget())
            : item->widget() == cells[i].what || item->layout() == cells[i].what;
        if (!right || box->stretch(i) != cells[i].stretch)
            return QStringLiteral("entry %1, stretch %2").arg(i).arg(box->stretch(i));
    }
    return {};
}

QString differenceFrom(const QGridLayout *grid, const QVector<QVector<QWidget *>> &rows)
{
    if (grid == nullptr)
        return QStringLiteral("no grid");
    if (grid->rowCount() != rows.size() || grid->columnCount() != rows.first().size())
        return QStringLiteral("%1 rows of %2").arg(grid->rowCount()).arg(grid->columnCount());
    for (int row = 0; row < rows.size(); ++row)
        for (int column = 0; column < rows[row].size(); ++column)
            if (grid->itemAtPosition(row, column)->widget() != rows[row][column])
                return QStringLiteral("row %1 column %2").arg(row).arg(column);
    return {};
}

/// True when \a icon draws \a picture at the size of \a picture.
bool draws(const QIcon &icon, const QImage &picture, QIcon::Mode mode, QIcon::State state)
{
    const auto plain = [](const QImage &image) {
        return image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    };
    return !picture.isNull()
        && plain(icon.pixmap(picture.size(), mode, state).toImage()) == plain(picture);
}

} // namespace

#define COMPARE_CELLS(layout, ...) QCOMPARE(differenceFrom(layout, __VA_ARGS__), QString())

/// Positions and pictures of the controls.
class TestLayout : public WindowTest
{
    Q_OBJECT

private:
    QLayout *inWindow(int row) const
    {
        return probe().centralWidget()->layout()->itemAt(row)->layout();
    }

private slots:
    void rowsHoldTheirControls()
    {
        fixture->open();
        const MainWindowProbe &p = probe();
        COMPARE_CELLS(p.centralWidget()->layout(),
                      { { inWindow(0), 5 }, { inWindow(1), 33 }, { inWindow(2), 12 } });
        QVERIFY(qobject_cast<QVBoxLayout *>(p.centralWidget()->layout()) != nullptr);
        for (int row = 0; row < 3; ++row)
            QVERIFY(qobject_cast<QHBoxLayout *>(inWindow(row)) != nullptr);

        const auto *clock = inWindow(0)->itemAt(4)->layout();
        COMPARE_CELLS(inWindow(0),
                      { { p.logo_lbl(), 14 },
                        { p.curA_button(), 13 },
                        { p.delta_lbl(), 26 },
                        { p.curB_button(), 13 },
                        { clock, 14 } });
        COMPARE_CELLS(clock, { { p.date_bar(), 0 } });
        QVERIFY(qobject_cast<const QVBoxLayout *>(clock) != nullptr);
        QCOMPARE(p.logo_lbl()->alignment(), Qt::Alignment(Qt::AlignCenter));
        QCOMPARE(p.delta_lbl()->alignment(), Qt::Alignment(Qt::AlignCenter));

        COMPARE_CELLS(inWindow(1),
                      { { inWindow(1)->itemAt(0)->layout(), 14 },
                        { p.Plot_View(), 52 },
                        { inWindow(1)->itemAt(2)->layout(), 14 } });

        auto *grid = qobject_cast<QGridLayout *>(inWindow(2)->itemAt(1)->layout());
        COMPARE_CELLS(inWindow(2),
                      { { p.param_dial(), 14 }, { grid, 52 }, { p.cursor_dial(), 14 } });
        COMPARE_CELLS(grid,
                      { { p.H_offset_button(), p.KU_button(), p.pulse_width_button(),
                          p.impedance_button(), p.average_button() },
                        { p.V_offset_button(), p.scale_button(), p.pulse_amplitude_button(),
                          p.gain_button(), p.reserve_button() } });
        QCOMPARE(grid->spacing(), 0);
    }

    void columnsHoldTheirControls()
    {
        fixture->open();
        const MainWindowProbe &p = probe();
        const QLayout *left = inWindow(1)->itemAt(0)->layout();
        QVector<Cell> cells{ { p.legend_button(), 3 }, { lineHere, 1 } };
        for (LegendButton *button : p.selected_rfg())
            cells << Cell{ button, 3 } << Cell{ lineHere, 0 };
        COMPARE_CELLS(left, cells);
        QCOMPARE(left->itemAt(1)->alignment(), Qt::Alignment(Qt::AlignVCenter));
        for (int slot = 1; slot < 6; ++slot)
            QVERIFY(p.selected_rfg()[slot]->y() > p.selected_rfg()[slot - 1]->y());

        const QLayout *right = inWindow(1)->itemAt(2)->layout();
        auto *grid = qobject_cast<QGridLayout *>(right->itemAt(6)->layout());
        COMPARE_CELLS(right,
                      { { p.settings_button(), 3 },
                        { lineHere, 1 },
                        { p.difference_button(), 3 },
                        { p.smooth_button(), 3 },
                        { p.reset_all_button(), 3 },
                        { lineHere, 1 },
                        { grid, 9 } });
        for (const QLayout *column : { left, right }) {
            QVERIFY(qobject_cast<const QVBoxLayout *>(column) != nullptr);
            QCOMPARE(column->spacing(), 0);
        }
        // The left column of the grid has the button that increases the scale.
        const QVector<QVector<QWidget *>> buttons{ { p.scale_up_button(), p.scale_down_button() },
                                                   { p.scroll_left_button(),
                                                     p.scroll_right_button() },
                                                   { p.curA_nav_button(), p.curB_nav_button() } };
        COMPARE_CELLS(grid, buttons);
        QCOMPARE(grid->spacing(), 0);
        for (const auto &row : buttons)
            for (const QWidget *button : row)
                QCOMPARE(button->minimumSize(), QSize(20, 10));

        const auto frames = p.centralWidget()->findChildren<QFrame *>();
        QCOMPARE(std::count_if(frames.begin(), frames.end(), isSunkenLine), 9);
    }

    void parameterColumnsAreEqualAtEverySizeInBothLanguages()
    {
        fixture->open();
        const auto *grid = static_cast<QGridLayout *>(inWindow(2)->itemAt(1)->layout());
        for (const char *language : { "ru_RU", "en_US" }) {
            setLanguage(language);
            for (const QSize size : { QSize(2560, 1440), QSize(1280, 800), QSize(1000, 1000),
                                      QSize(1200, 500), QSize(800, 500) }) {
                window().resize(size);
                WindowFixture::settle();
                const int first = grid->cellRect(0, 0).width();
                for (int column = 1; column < 5; ++column)
                    QVERIFY(qAbs(grid->cellRect(0, column).width() - first) <= 1);
                // The dials keep their share: 14 of 80.
                QVERIFY(probe().param_dial()->width() > size.width() / 7);
            }
        }
    }

    void everythingFitsTheSmallestWindow()
    {
        fixture->open();
        const MainWindowProbe &p = probe();
        QCOMPARE(window().size(), QSize(800, 500));
        QCOMPARE(p.centralWidget()->size(), QSize(800, 500));
        QCOMPARE(p.centralWidget()->minimumSize(), QSize(800, 500));
        QCOMPARE(p.Plot_View()->minimumSize(), QSize(500, 310));
        QCOMPARE(window().QMainWindow::centralWidget(), p.centralWidget());
        QCOMPARE(brokenInvariants(window()), QStringList());
        for (const QWidget *unplaced :
             { static_cast<QWidget *>(p.bat_bar()), static_cast<QWidget *>(p.legend_group()),
               static_cast<QWidget *>(p.misc_group()) }) {
            QVERIFY(unplaced->parentWidget() != nullptr);
            QVERIFY(!unplaced->isVisible());
        }
    }

    void controlsHaveTheirPoliciesNamesAndRanges()
    {
        fixture->open();
        const MainWindowProbe &p = probe();
        const auto buttons = p.centralWidget()->findChildren<QPushButton *>();
        QCOMPARE(buttons.size(), 29);
        for (const QPushButton *button : buttons) {
            if (button == p.curA_nav_button() || button == p.curB_nav_button())
                continue;
            QCOMPARE(button->sizePolicy().horizontalPolicy(), QSizePolicy::Preferred);
            QCOMPARE(button->sizePolicy().verticalPolicy(), QSizePolicy::Preferred);
        }
        // Names that style sheets use.
        QCOMPARE(p.delta_lbl()->objectName(), QStringLiteral("delta"));
        QCOMPARE(p.scale_up_button()->objectName(), QStringLiteral("ScaleUp"));
        QCOMPARE(p.scale_down_button()->objectName(), QStringLiteral("ScaleDown"));
        QVERIFY(p.cursor_dial()->zeroOff);
        QCOMPARE(p.cursor_dial()->trueMin, 0);
        QCOMPARE(p.cursor_dial()->trueMax, 64000);
    }

    void chartViewShowsTheSceneFromItsCorner()
    {
        fixture->open();
        const QGraphicsView *view = probe().Plot_View();
        QCOMPARE(view->scene(), probe().Plot_Scene());
        QCOMPARE(view->dragMode(), QGraphicsView::NoDrag);
        QCOMPARE(view->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QCOMPARE(view->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QCOMPARE(view->alignment(), Qt::AlignLeft | Qt::AlignTop);
        QVERIFY(view->renderHints().testFlag(QPainter::Antialiasing));
        QCOMPARE(view->sceneRect(), QRectF(-0.5, -0.5, 400.0, 250.0));
        QCOMPARE(view->mapToScene(0, 0), QPointF(0.0, 0.0));
        QVERIFY(view->hasMouseTracking());
        QVERIFY(view->viewport()->hasMouseTracking());
        // A new window is in the state before its first resize.
        MainWindow unshown;
        const MainWindowProbe p(unshown);
        QCOMPARE(p.Plot_Scene()->sceneRect(), QRectF(-0.5, -0.5, 400.0, 250.0));
        QCOMPARE(p.Plot_View()->sceneRect(), p.Plot_Scene()->sceneRect());
    }

    // Checkable buttons are grey when unchecked, which tst_buttons tests. "impendance" and
    // "diifference" are how the bundle spells them.
    void eachControlHasItsPicture()
    {
        struct Row
        {
            const QAbstractButton *button;
            const char *name; ///< of the picture
            QIcon::Mode mode;
            QIcon::State state;
        };
        fixture->open();
        const MainWindowProbe &p = probe();
        each<Row>(
            { { p.gain_button(), "rest_64/gain", QIcon::Active, QIcon::On },
              { p.KU_button(), "rest_64/velocity", QIcon::Active, QIcon::On },
              { p.average_button(), "rest_64/average", QIcon::Active, QIcon::On },
              { p.V_offset_button(), "rest_64/Y", QIcon::Active, QIcon::On },
              { p.H_offset_button(), "rest_64/X", QIcon::Active, QIcon::On },
              { p.scale_button(), "rest_64/scale", QIcon::Active, QIcon::On },
              { p.pulse_width_button(), "rest_64/pulse_width", QIcon::Active, QIcon::On },
              { p.pulse_amplitude_button(), "rest_64/amplitude", QIcon::Active, QIcon::On },
              { p.impedance_button(), "rest_64/impendance", QIcon::Active, QIcon::On },
              { p.curA_button(), "rest_64/cursorA", QIcon::Active, QIcon::On },
              { p.curB_button(), "rest_64/cursorB", QIcon::Active, QIcon::On },
              { p.settings_button(), "rest_64/setting", QIcon::Normal, QIcon::Off },
              { p.settings_button(), "rest_64/setting", QIcon::Normal, QIcon::On },
              { p.difference_button(), "rest_64/diifference", QIcon::Normal, QIcon::Off },
              { p.difference_button(), "rest_64/diifference", QIcon::Normal, QIcon::On },
              // The button that decreases the scale zooms in.
              { p.scale_down_button(), "zoom_in.png", QIcon::Normal, QIcon::Off },
              { p.scale_down_button(), "zoom_in_dis.png", QIcon::Disabled, QIcon::Off },
              { p.scale_up_button(), "zoom_out.png", QIcon::Normal, QIcon::Off },
              { p.scale_up_button(), "zoom_out_dis.png", QIcon::Disabled, QIcon::Off },
              { p.scroll_left_button(), "arrow_left.png", QIcon::Normal, QIcon::Off },
              { p.scroll_left_button(), "arrow_left_dis.png", QIcon::Disabled, QIcon::Off },
              { p.scroll_right_button(), "arrow_right.png", QIcon::Normal, QIcon::Off },
              { p.scroll_right_button(), "arrow_right_dis.png", QIcon::Disabled, QIcon::Off } },
            [](const Row &row) {
                const QImage picture(QStringLiteral("://icons/") + QLatin1String(row.name));
                QVERIFY(draws(row.button->icon(), picture, row.mode, row.state));
            });
        for (const QAbstractButton *button : std::initializer_list<const QAbstractButton *>{
                 p.smooth_button(), p.reset_all_button(), p.legend_button(), p.curA_nav_button(),
                 p.curB_nav_button(), p.reserve_button() })
            QVERIFY(button->icon().isNull());
        QVERIFY(draws(window().windowIcon(), QImage(QStringLiteral("://icons/tdr_btr_64.png")),
                      QIcon::Normal, QIcon::Off));
        const QImage logo = p.logo_lbl()->pixmap(Qt::ReturnByValue).toImage();
        QCOMPARE(logo.size(), QSize(121, 50));
        QCOMPARE(logo,
                 QPixmap(QStringLiteral("://pix/logo.png"))
                     .scaled(140, 50, Qt::KeepAspectRatio, Qt::FastTransformation)
                     .toImage());
    }
};

QTEST_MAIN(TestLayout)
#include "tst_layout.moc"
