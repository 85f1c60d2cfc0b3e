// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "cont_dial.h"
#include "datetime_lbl.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "settingsdata.h"
#include "windowfixture.h"

#include <QActionGroup>
#include <QButtonGroup>
#include <QFrame>
#include <QGraphicsScene>
#include <QGraphicsView>
#include <QGridLayout>
#include <QGroupBox>
#include <QInputDialog>
#include <QLabel>
#include <QMenu>
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

/// Stands for a sunken line in a list of cells.
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

} // namespace

#define COMPARE_CELLS(layout, ...) QCOMPARE(differenceFrom(layout, __VA_ARGS__), QString())

class TestLayout : public QObject
{
    Q_OBJECT

private:
    std::unique_ptr<WindowFixture> fixture;

    const MainWindowProbe &probe() const
    {
        return fixture->probe();
    }
    QLayout *inWindow(int row) const
    {
        return probe().centralWidget()->layout()->itemAt(row)->layout();
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

    void theWindowIsThreeRows()
    {
        COMPARE_CELLS(probe().centralWidget()->layout(),
                      { { inWindow(0), 5 }, { inWindow(1), 33 }, { inWindow(2), 12 } });
        QVERIFY(qobject_cast<QVBoxLayout *>(probe().centralWidget()->layout()) != nullptr);
        for (int row = 0; row < 3; ++row)
            QVERIFY(qobject_cast<QHBoxLayout *>(inWindow(row)) != nullptr);
    }

    void theTopRowHoldsLogoCursorsDistanceAndClock()
    {
        const auto *clock = inWindow(0)->itemAt(4)->layout();
        COMPARE_CELLS(inWindow(0),
                      { { probe().logo_lbl(), 14 },
                        { probe().curA_button(), 13 },
                        { probe().delta_lbl(), 26 },
                        { probe().curB_button(), 13 },
                        { clock, 14 } });
        COMPARE_CELLS(clock, { { probe().date_bar(), 0 } });
        QVERIFY(qobject_cast<const QVBoxLayout *>(clock) != nullptr);
        QCOMPARE(probe().logo_lbl()->alignment(), Qt::Alignment(Qt::AlignCenter));
        QCOMPARE(probe().delta_lbl()->alignment(), Qt::Alignment(Qt::AlignCenter));
    }

    void theLeftColumnHoldsFilesAndTraces()
    {
        const QLayout *column = inWindow(1)->itemAt(0)->layout();
        QVector<Cell> cells{ { probe().legend_button(), 3 }, { lineHere, 1 } };
        for (LegendButton *button : probe().selected_rfg())
            cells << Cell{ button, 3 } << Cell{ lineHere, 0 };
        COMPARE_CELLS(column, cells);
        QVERIFY(qobject_cast<const QVBoxLayout *>(column) != nullptr);
        QCOMPARE(column->spacing(), 0);
        QCOMPARE(column->itemAt(1)->alignment(), Qt::Alignment(Qt::AlignVCenter));
        for (int slot = 1; slot < 6; ++slot)
            QVERIFY(probe().selected_rfg()[slot]->y() > probe().selected_rfg()[slot - 1]->y());
    }

    void theRightColumnHoldsSettingsModesAndNavigation()
    {
        const QLayout *column = inWindow(1)->itemAt(2)->layout();
        auto *grid = qobject_cast<QGridLayout *>(column->itemAt(6)->layout());
        COMPARE_CELLS(column,
                      { { probe().settings_button(), 3 },
                        { lineHere, 1 },
                        { probe().difference_button(), 3 },
                        { probe().smooth_button(), 3 },
                        { probe().reset_all_button(), 3 },
                        { lineHere, 1 },
                        { grid, 9 } });
        QVERIFY(qobject_cast<const QVBoxLayout *>(column) != nullptr);
        QCOMPARE(column->spacing(), 0);
    }

    void theLeftColumnOfTheNavigationGridIsTheScaleUpButton()
    {
        const QLayout *column = inWindow(1)->itemAt(2)->layout();
        const auto *grid = qobject_cast<QGridLayout *>(column->itemAt(6)->layout());
        COMPARE_CELLS(grid,
                      { { probe().scale_up_button(), probe().scale_down_button() },
                        { probe().scroll_left_button(), probe().scroll_right_button() },
                        { probe().curA_nav_button(), probe().curB_nav_button() } });
        QCOMPARE(grid->spacing(), 0);
        for (const QPushButton *button :
             { probe().scale_up_button(), probe().scale_down_button(), probe().scroll_left_button(),
               probe().scroll_right_button(), probe().curA_nav_button(),
               probe().curB_nav_button() })
            QCOMPARE(button->minimumSize(), QSize(20, 10));
    }

    void theMiddleRowHoldsColumnPlotColumn()
    {
        COMPARE_CELLS(inWindow(1),
                      { { inWindow(1)->itemAt(0)->layout(), 14 },
                        { probe().Plot_View(), 52 },
                        { inWindow(1)->itemAt(2)->layout(), 14 } });
    }

    void theBottomRowHoldsTheDialsAndTheParameterGrid()
    {
        auto *grid = qobject_cast<QGridLayout *>(inWindow(2)->itemAt(1)->layout());
        COMPARE_CELLS(
            inWindow(2),
            { { probe().param_dial(), 14 }, { grid, 52 }, { probe().cursor_dial(), 14 } });
        COMPARE_CELLS(
            grid,
            { { probe().H_offset_button(), probe().KU_button(), probe().pulse_width_button(),
                probe().impedance_button(), probe().average_button() },
              { probe().V_offset_button(), probe().scale_button(), probe().pulse_amplitude_button(),
                probe().gain_button(), probe().reserve_button() } });
        QCOMPARE(grid->spacing(), 0);
    }

    void theParameterColumnsAreEqualAtEverySizeInBothLanguages()
    {
        const auto *grid = static_cast<QGridLayout *>(inWindow(2)->itemAt(1)->layout());
        for (const char *language : { "ru_RU", "en_US" }) {
            probe().settingsData()->current_language = QLatin1String(language);
            probe().settingsData()->setTranslation();
            for (const QSize size : { QSize(2560, 1440), QSize(1280, 800), QSize(1000, 1000),
                                      QSize(1200, 500), QSize(800, 500) }) {
                fixture->window().resize(size);
                WindowFixture::settle();
                const int first = grid->cellRect(0, 0).width();
                for (int column = 1; column < 5; ++column)
                    QVERIFY(qAbs(grid->cellRect(0, column).width() - first) <= 1);
                // The dials keep their share: 14 of 80.
                QVERIFY(probe().param_dial()->width() > size.width() / 7);
            }
        }
    }

    void nineSunkenLinesSeparateTheColumns()
    {
        int lines = 0;
        const auto frames = probe().centralWidget()->findChildren<QFrame *>();
        for (const QFrame *frame : frames)
            lines += isSunkenLine(frame) ? 1 : 0;
        QCOMPARE(lines, 9);
    }

    void everythingFitsTheSmallestWindow()
    {
        QCOMPARE(fixture->window().size(), QSize(800, 500));
        QCOMPARE(probe().centralWidget()->size(), QSize(800, 500));
        QCOMPARE(probe().centralWidget()->minimumSize(), QSize(800, 500));
        QCOMPARE(probe().Plot_View()->minimumSize(), QSize(500, 310));
        QCOMPARE(fixture->window().QMainWindow::centralWidget(), probe().centralWidget());
        const auto widgets = probe().centralWidget()->findChildren<QWidget *>();
        for (const QWidget *widget : widgets)
            if (widget->isVisible() && widget->parentWidget() == probe().centralWidget())
                QVERIFY(probe().centralWidget()->rect().contains(widget->geometry()));
    }

    void unplacedWidgetsExistAndAreHidden()
    {
        for (const QWidget *widget : { static_cast<QWidget *>(probe().bat_bar()),
                                       static_cast<QWidget *>(probe().legend_group()),
                                       static_cast<QWidget *>(probe().misc_group()) }) {
            QVERIFY(widget->parentWidget() != nullptr);
            QVERIFY(!widget->isVisible());
        }
        QVERIFY(probe().info_dialog() != nullptr);
    }

    void mostButtonsTakeTheSizeTheyPrefer()
    {
        const QSizePolicy preferred(QSizePolicy::Preferred, QSizePolicy::Preferred);
        QVector<QWidget *> buttons{ probe().curA_button(),        probe().curB_button(),
                                    probe().smooth_button(),      probe().reset_all_button(),
                                    probe().legend_button(),      probe().settings_button(),
                                    probe().difference_button(),  probe().scale_up_button(),
                                    probe().scale_down_button(),  probe().scroll_left_button(),
                                    probe().scroll_right_button() };
        const auto parameters = probe().down_buttons()->buttons();
        for (QAbstractButton *button : parameters)
            buttons << button;
        for (LegendButton *button : probe().selected_rfg())
            buttons << button;
        for (const QWidget *button : buttons) {
            QCOMPARE(button->sizePolicy().horizontalPolicy(), preferred.horizontalPolicy());
            QCOMPARE(button->sizePolicy().verticalPolicy(), preferred.verticalPolicy());
        }
    }

    void theChartViewShowsTheSceneFromItsCorner()
    {
        const QGraphicsView *view = probe().Plot_View();
        QCOMPARE(view->scene(), probe().Plot_Scene());
        QCOMPARE(probe().Plot_Chart()->scene(), probe().Plot_Scene());
        QCOMPARE(view->dragMode(), QGraphicsView::NoDrag);
        QCOMPARE(view->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QCOMPARE(view->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
        QCOMPARE(view->alignment(), Qt::AlignLeft | Qt::AlignTop);
        QVERIFY(view->renderHints().testFlag(QPainter::Antialiasing));
        QCOMPARE(probe().Plot_Chart()->margins(), QMargins(20, 20, 20, 20));
        QCOMPARE(view->sceneRect(), QRectF(-0.5, -0.5, 400.0, 250.0));
        QCOMPARE(view->mapToScene(0, 0), QPointF(0.0, 0.0));
        QVERIFY(view->hasMouseTracking());
        QVERIFY(view->viewport()->hasMouseTracking());
    }

    void theDialsStartWithTheirRanges()
    {
        const Cont_dial *cursor = probe().cursor_dial();
        QVERIFY(cursor->zeroOff);
        QCOMPARE(cursor->trueMin, 0);
        QCOMPARE(cursor->trueMax, 64000);
        QCOMPARE(cursor->maximum(), 100);
        QCOMPARE(cursor->pageStep(), 5);
        QCOMPARE(probe().param_dial()->maximum(), 100);
        QCOMPARE(probe().param_dial()->pageStep(), 5);
    }

    void styleSheetsFindTheirThreeNames()
    {
        QCOMPARE(probe().delta_lbl()->objectName(), QStringLiteral("delta"));
        QCOMPARE(probe().scale_up_button()->objectName(), QStringLiteral("ScaleUp"));
        QCOMPARE(probe().scale_down_button()->objectName(), QStringLiteral("ScaleDown"));
    }
};

QTEST_MAIN(TestLayout)
#include "tst_layout.moc"
