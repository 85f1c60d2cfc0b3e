// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "dialoganswer.h"
#include "extras/exporting.h"
#include "extras/extras.h"
#include "input_events.h"
#include "interfacebutton.h"
#include "legendbutton.h"
#include "parambutton.h"
#include "settingsdata.h"
#include "windowfixture.h"

#include <QApplication>
#include <QButtonGroup>
#include <QContextMenuEvent>
#include <QDialog>
#include <QDir>
#include <QGraphicsView>
#include <QMenu>
#include <QPainter>
#include <QProcess>
#include <QPushButton>
#include <QTest>

#include <cstdio>

/// \file
/// Makes the pictures of docs/screenshots and docs/manual/pictures from the window on the sample
/// traces, without a display:
///
///     velkor-screenshots SAMPLES DOCS

namespace {

constexpr QSize screenshotSize(1280, 800);
constexpr QSize manualSize(1100, 700);

/// Saves \a picture in 256 colours: a third of the size, and the eye sees no difference.
void save(const QString &path, const QImage &picture)
{
    QDir().mkpath(QFileInfo(path).path());
    QProcess convert;
    convert.start(QStringLiteral("convert"),
                  { QStringLiteral("-"), QStringLiteral("+dither"), QStringLiteral("-colors"),
                    QStringLiteral("256"), QStringLiteral("PNG8:") + path });
    const bool sent = convert.waitForStarted() && picture.save(&convert, "PNG");
    convert.closeWriteChannel();
    if (!sent || !convert.waitForFinished() || convert.exitCode() != 0)
        qFatal("cannot write %s", qPrintable(path));
    std::printf("%s\n", qPrintable(path));
}

/// The viewer in one language and size on some traces.
class Pictures
{
public:
    Pictures(const QString &language, const QString &docs, QSize size, const QStringList &traces)
        : m_folder(docs + QStringLiteral("/manual/pictures/") + language.left(2) + QLatin1Char('/'))
    {
        WindowFixture::writePreviousRun(traces);
        MainWindow &window = m_fixture.open();
        extras::attach(window);
        window.settings()->last_folder = QFileInfo(traces.first()).path();
        window.settings()->current_language = language;
        window.settings()->setTranslation();
        window.resize(size);
        WindowFixture::settle();
    }

    QImage whole() const
    {
        return m_fixture.window().grab().toImage();
    }

    /// Saves an export of the window as \a format; \a command writes a PNG of the file $0 to its
    /// output.
    void exported(const char *name, extras::Format format, const char *command) const
    {
        const QTemporaryDir folder;
        const QString file = folder.filePath(QStringLiteral("export"));
        const QString failure = extras::saveShown(m_fixture.window(), file, format);
        QProcess shell;
        shell.start(QStringLiteral("sh"), { QStringLiteral("-c"), QLatin1String(command), file });
        QImage picture;
        if (!failure.isEmpty() || !shell.waitForFinished()
            || !picture.loadFromData(shell.readAllStandardOutput()))
            qFatal("no %s: %s", name, qPrintable(failure));
        keep(name, picture);
    }

    /// A part of the window.
    void part(const char *name, QRect place) const
    {
        keep(name, m_fixture.window().grab(place).toImage());
    }

    void keep(const char *name, const QImage &picture) const
    {
        save(m_folder + QLatin1String(name) + QStringLiteral(".png"), picture);
    }

    /// A part of the window with the menu that \a open opens over it.
    template <typename Open> void menu(const char *name, QRect place, const Open &open) const
    {
        MainWindow &window = m_fixture.window();
        QImage picture = window.grab(place).toImage();
        const auto answer = answerMenu([&](QMenu &opened) {
            const QPoint at = window.mapFromGlobal(opened.pos()) - place.topLeft();
            QPainter(&picture).drawPixmap(at, opened.grab());
        });
        open();
        expectServed(*answer, name);
        keep(name, picture);
    }

    /// The dialog that a click on \a button opens.
    void dialog(const char *name, QWidget *button, Qt::MouseButton mouseButton) const
    {
        const auto answer = answerDialog([&](QDialog &opened) {
            // The file dialog lists its folder in a thread.
            QTest::qWait(500);
            keep(name, opened.grab().toImage());
            opened.reject();
        });
        input::click(button, mouseButton);
        expectServed(*answer, name);
    }

    /// Moves the cursor of \a button to \a metres.
    void placeCursor(QWidget *button, double metres) const
    {
        input::click(button);
        // A little beyond, because the cursor snaps back to a whole sample.
        constexpr double margin = 0.1;
        m_fixture.window().cursorSetup_slot(
            static_cast<int>((metres + margin) / probe().dist_coef()));
    }

    /// Cursors at \a a and \a b metres; A is the active one.
    void placeCursors(double a, double b) const
    {
        placeCursor(probe().curB_button(), b);
        placeCursor(probe().curA_button(), a);
        WindowFixture::settle();
    }

    const MainWindowProbe &probe() const
    {
        return m_fixture.probe();
    }

private:
    static void expectServed(const DialogAnswer &answer, const char *name)
    {
        if (!answer.served())
            qFatal("no dialog or menu opened for %s", name);
    }

    WindowFixture m_fixture;
    QString m_folder;
};

/// \a window with the numbers of the tour in the manual.
QImage numbered(QImage window)
{
    constexpr QPoint places[]
        = { { 213, 20 },  { 550, 66 },  { 741, 20 },  { 1075, 20 }, { 24, 98 },   { 181, 172 },
            { 880, 150 }, { 909, 88 },  { 909, 152 }, { 909, 215 }, { 909, 277 }, { 909, 342 },
            { 909, 405 }, { 909, 468 }, { 216, 545 }, { 28, 548 },  { 1072, 548 } };
    constexpr int radius = 12;
    QPainter painter(&window);
    painter.setRenderHint(QPainter::Antialiasing);
    QFont font = painter.font();
    font.setPixelSize(15);
    font.setBold(true);
    painter.setFont(font);
    painter.setPen(QPen(Qt::white, 2));
    painter.setBrush(QColor(0xc6, 0x28, 0x28));
    int number = 0;
    for (const QPoint place : places) {
        painter.drawEllipse(place, radius, radius);
        const QRect circle(place - QPoint(radius, radius), QSize(2 * radius, 2 * radius));
        painter.drawText(circle, Qt::AlignCenter, QString::number(++number));
    }
    return window;
}

void makeControls(const QString &language, const QString &docs, const QStringList &traces)
{
    const Pictures pictures(language, docs, manualSize, traces);
    const MainWindowProbe &probe = pictures.probe();
    input::click(probe.rfg_buttons()->button(1));
    pictures.placeCursors(71.5, 38.0);
    pictures.keep("window", numbered(pictures.whole()));
    pictures.part("readings", { 196, 0, 902, 80 });
    pictures.part("slots", { 0, 78, 200, 445 });
    pictures.part("right-column", { 900, 78, 200, 445 });
    pictures.part("navigation", { 900, 334, 200, 190 });
    pictures.part("parameters", { 200, 526, 702, 170 });
    pictures.part("parameter-dial", { 0, 528, 200, 170 });
    pictures.part("cursor-dial", { 900, 528, 200, 170 });
    pictures.part("chart", { 200, 80, 700, 444 });

    pictures.menu("slot-menu", { 0, 216, 400, 170 }, [&probe] {
        LegendButton *button = probe.selected_rfg()[1];
        const QPoint place = button->rect().center();
        QContextMenuEvent event(QContextMenuEvent::Mouse, place, button->mapToGlobal(place));
        QApplication::sendEvent(button, &event);
    });
    pictures.menu("chart-menu", { 380, 220, 420, 200 }, [&probe] {
        QWidget *plot = probe.Plot_View()->viewport();
        const QPoint place(250, 170);
        QCursor::setPos(plot->mapToGlobal(place));
        input::clickAt(plot, place, Qt::RightButton);
    });
    pictures.dialog("entry", probe.KU_button(), Qt::RightButton);
    pictures.dialog("scales", probe.scale_button(), Qt::RightButton);
    pictures.dialog("files", probe.legend_button(), Qt::LeftButton);
    pictures.dialog("settings", probe.settings_button(), Qt::LeftButton);

    input::click(probe.smooth_button());
    WindowFixture::settle();
    pictures.part("smooth", { 200, 80, 702, 444 });
}

/// The difference of the healthy pair and the shorted one.
void makeDifference(const QString &language, const QString &docs, const QStringList &traces)
{
    const Pictures pictures(language, docs, manualSize, traces.mid(0, 2));
    input::click(pictures.probe().rfg_buttons()->button(1));
    pictures.placeCursor(pictures.probe().curA_button(), 71.5);
    input::click(pictures.probe().difference_button());
    WindowFixture::settle();
    pictures.part("difference", { 200, 0, 902, 524 });
}

/// Each trace alone, with both cursors on its reflections.
void makeSamples(const QString &language, const QString &docs, const QStringList &traces)
{
    constexpr double cursors[][2] // A and B, metres
        = { { 38.0, 104.0 }, { 71.5, 38.0 },  { 52.0, 68.0 },
            { 26.0, 40.0 },  { 88.0, 203.8 }, { 52.0, 68.0 } };
    for (int i = 0; i < traces.size(); ++i) {
        const Pictures pictures(language, docs, manualSize, { traces[i] });
        pictures.placeCursors(cursors[i][0], cursors[i][1]);
        pictures.part(("sample-" + QByteArray::number(i + 1)).constData(), { 198, 0, 704, 524 });
    }
}

/// The exports of the window, as wide as pictures in the manual.
void makeExports(const QString &language, const QString &docs, const QStringList &traces)
{
    const Pictures pictures(language, docs, screenshotSize, traces);
    pictures.placeCursors(38.0, 104.0);
    pictures.exported("export-picture", extras::Format::Picture,
                      "convert \"$0\" -resize 720x png:-");
    pictures.exported("export-page", extras::Format::Page,
                      "pdftoppm -scale-to-x 720 -scale-to-y -1 -png -singlefile \"$0\"");
    pictures.exported("export-drawing", extras::Format::Drawing, "rsvg-convert --width 720 \"$0\"");
}

} // namespace

int main(int argc, char **argv)
{
    // The file dialog shows paths and the user's name, which must not be those of this machine.
    const QString folder = QDir::tempPath() + QStringLiteral("/samples");
    const QTemporaryDir home;
    qputenv("HOME", home.filePath(QStringLiteral("reader")).toLocal8Bit());
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 3 || !QDir().mkdir(folder)) {
        std::fprintf(stderr, "usage: %s SAMPLES DOCS; %s must not exist\n", argv[0],
                     qPrintable(folder));
        return EXIT_FAILURE;
    }
    QDir().mkpath(home.filePath(QStringLiteral("reader")));
    QStringList traces;
    const auto samples = QDir(arguments[1]).entryInfoList({ QStringLiteral("*.tdr") });
    for (const QFileInfo &sample : samples) {
        traces.append(folder + QLatin1Char('/') + sample.fileName());
        QFile::copy(sample.filePath(), traces.last());
    }
    const QString &docs = arguments[2];
    for (const QString &language : { QStringLiteral("en_US"), QStringLiteral("ru_RU") }) {
        const bool isEnglish = language == QLatin1String("en_US");
        const QString name = isEnglish ? QStringLiteral("window") : QStringLiteral("window-ru");
        save(docs + QStringLiteral("/screenshots/") + name + QStringLiteral(".png"),
             Pictures(language, docs, screenshotSize, traces).whole());
        makeControls(language, docs, traces);
        makeDifference(language, docs, traces);
        makeSamples(language, docs, traces);
        makeExports(language, docs, traces);
    }
    QDir(folder).removeRecursively();
    return EXIT_SUCCESS;
}
