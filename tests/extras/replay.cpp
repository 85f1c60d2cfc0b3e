// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "accessibility/accessibility.h"
#include "cont_dial.h"
#include "hand.h"
#include "session.h"
#include "settingsdata.h"
#include "windowfixture.h"
#include "windowstate.h"
#ifdef VELKOR_EXTRAS
#include "extras/extras.h"
#endif

#include <QApplication>
#include <QCryptographicHash>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QPainter>
#include <QPushButton>
#include <QSettings>
#include <QTextStream>
#include <QWindow>
#include <QtTest>

#include <functional>

/// \file
/// Plays the same scripts at the window whenever it is run, and prints after each event what the
/// window is like then: "event | state | picture", the last two as hashes, and at the end of a
/// script the settings that were kept. Built once with the extras and once without, in
/// the two ways in which the program itself is built.
///
///     replay [number folder]     also saves state and picture after the event of that line there
///     replay tell                only tells whether the extras are there

namespace {

constexpr int actions = 8; ///< of the session in each script; all kinds come up in some script

const QSize sizes[] = { { 800, 500 }, { 1000, 640 }, { 1280, 800 } };
const char *const languages[] = { "en_US", "ru_RU" };

enum Mode {
    Normal,
    Difference,
    Smooth,
    ModeCount,
};

/// Where and of which event more than a line is wanted.
struct Wish
{
    int number = -1;
    QString folder;
};

QByteArray hashOf(const QByteArray &bytes)
{
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha1).toHex();
}

QByteArray hashOf(const QImage &picture)
{
    QCryptographicHash hash(QCryptographicHash::Sha1);
    // Line by line: what lies behind the end of one is no pixel.
    for (int y = 0; y < picture.height(); ++y)
        hash.addData(QByteArray(reinterpret_cast<const char *>(picture.constScanLine(y)),
                                picture.width() * 4));
    return QByteArray::number(picture.width()) + 'x' + QByteArray::number(picture.height()) + ' '
        + hash.result().toHex();
}

/// What the program attaches, in both of its builds.
void attachAll(MainWindow &window)
{
    accessibility::attach(window);
#ifdef VELKOR_EXTRAS
    extras::attach(window);
#endif
}

/// Prints whether the key that stands for the difference switches it, and whether the extras'
/// catalogues are linked.
void tell()
{
    WindowFixture fixture;
    MainWindow &window = fixture.open();
    attachAll(window);
    QTest::sendKeyEvent(QTest::Click, &window, Qt::Key_D, QString(), Qt::NoModifier);
    const bool attached = MainWindowProbe(window).difference_button()->isChecked();
    QTextStream(stdout) << (attached ? "attached" : "alone") << ", "
                        << (QFile::exists(QStringLiteral(":/extras")) ? "linked" : "not linked")
                        << '\n';
}

class Replay
{
public:
    explicit Replay(const Wish &wish)
        : m_wish(wish)
        , m_out(stdout)
    {
    }

    void play(QSize size, const char *language, Mode mode, quint32 seed)
    {
        WindowFixture fixture;
        const QStringList traces = sessionTraces(fixture);
        WindowFixture::writePreviousRun(traces);
        MainWindow &window = fixture.open();
        attachAll(window);
        const MainWindowProbe probe(window);
        // Where nothing lights up under the pointer: whether it would, after a menu, is a matter of
        // time.
        QCursor::setPos(window.mapToGlobal(QPoint(2, 2)));
        window.resize(size);
        probe.settingsData()->current_language = QLatin1String(language);
        probe.settingsData()->setTranslation();
        note(window, QLatin1String("opened ") + QLatin1String(language));
        keysOfControls(window);
        if (mode == Difference)
            hand::click(probe.difference_button());
        else if (mode == Smooth)
            hand::click(probe.smooth_button());
        nothingUseful(window);
        note(window, modeOf(probe));
        Session session(window, traces, seed);
        for (int i = 0; i < actions; ++i)
            note(window, session.act());
        fixture.close();
        m_out << "closed | " << keptSettings(fixture) << '\n';
        ++m_number;
    }

private:
    /// Keys that the controls use themselves.
    void keysOfControls(MainWindow &window)
    {
        const MainWindowProbe probe(window);
        const auto press = [](QWidget *widget, Qt::Key key) {
            QTest::sendKeyEvent(QTest::Click, widget, key, QString(), Qt::NoModifier);
        };
        for (QWidget *dial : { probe.param_dial(), probe.cursor_dial() })
            for (const Qt::Key key : { Qt::Key_Up, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_Left })
                press(dial, key);
        for (int i = 0; i < 2; ++i)
            press(probe.reset_all_button(), Qt::Key_Space);
        press(probe.settings_button(), Qt::Key_Down);
        press(&window, Qt::Key_Tab);
        press(&window, Qt::Key_Escape);
        note(window, QLatin1String("keys of the controls"));
    }

    /// A pointer that wanders about, and a text that is dragged over the window.
    void nothingUseful(MainWindow &window)
    {
        QMimeData text;
        text.setText(QLatin1String("no files"));
        for (const QPoint at : { QPoint(40, 140), QPoint(700, 450), QPoint(400, 250) }) {
            QWidget *under = window.childAt(at);
            hand::move(under, under->mapFrom(&window, at), Qt::NoButton);
            QDragEnterEvent enter(at, Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(window.windowHandle(), &enter);
            QDragMoveEvent move(at, Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(window.windowHandle(), &move);
            QDragLeaveEvent leave;
            QCoreApplication::sendEvent(window.windowHandle(), &leave);
        }
        note(window, QLatin1String("nothing useful"));
    }

    /// What the window is in by now, as a word of a script's lines.
    static QString modeOf(const MainWindowProbe &probe)
    {
        if (probe.smooth_rfg_flag())
            return QStringLiteral("mode smooth");
        return probe.diff_flag() == MainWindow::DIFF ? QStringLiteral("mode difference")
                                                     : QStringLiteral("mode normal");
    }

    /// All that outlives the window, names and values. The folder of the traces is another one in
    /// each run, the program's in each of the two programs.
    static QString keptSettings(const WindowFixture &fixture)
    {
        const QSettings settings(WindowFixture::settingsFile(), QSettings::IniFormat);
        const QString folder = QFileInfo(fixture.path(QStringLiteral("x"))).path();
        QStringList kept;
        const QStringList keys = settings.allKeys();
        for (const QString &key : keys) {
            const QVariant value = settings.value(key);
            const QString text = value.userType() == QMetaType::QByteArray
                ? QString::fromLatin1(value.toByteArray().toHex())
                : value.toStringList().join(QLatin1Char(','));
            kept.append(
                key + QLatin1Char('=')
                + QString(text)
                      .replace(folder, QLatin1String("folder"))
                      .replace(QCoreApplication::applicationDirPath(), QLatin1String("program")));
        }
        return kept.join(QLatin1Char(' '));
    }

    void note(MainWindow &window, const QString &event)
    {
        // A repaint may ask for a layout, and that for a repaint.
        for (int i = 0; i < 3; ++i)
            WindowFixture::settle();
        const QByteArray state
            = (stateOf(window) + outfitOf(window)).join(QLatin1Char('\n')).toUtf8();
        const QImage picture = withoutLetters(window);
        m_out << event << " | " << hashOf(state) << " | " << hashOf(picture) << '\n';
        m_out.flush();
        if (m_number++ == m_wish.number)
            keep(state, picture);
    }

    /// The letters of the two markers are painted as outlines, whose edges the toolkit rounds one
    /// way or another from one run to the next of one and the same program.
    static QImage withoutLetters(MainWindow &window)
    {
        QImage picture = freshPictureOf(window);
        QPainter painter(&picture);
        for (const QRect &letter : lettersOf(window))
            painter.fillRect(letter, Qt::black);
        return picture;
    }

    void keep(const QByteArray &state, const QImage &picture)
    {
        QFile file(m_wish.folder + QLatin1String("/state.txt"));
        if (!file.open(QIODevice::WriteOnly) || file.write(state) != state.size()
            || !picture.save(m_wish.folder + QLatin1String("/picture.png")))
            qFatal("cannot write there");
    }

    Wish m_wish;
    QTextStream m_out;
    int m_number = 0;
};

} // namespace

int main(int argc, char **argv)
{
    // A session answers file dialogs; a desktop's own could not be reached.
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication application(argc, argv);
    if (argc == 2 && QByteArray(argv[1]) == "tell") {
        tell();
        return 0;
    }
    Wish wish;
    if (argc == 3) {
        wish.number = QByteArray(argv[1]).toInt();
        wish.folder = QString::fromLocal8Bit(argv[2]);
    }
    Replay replay(wish);
    quint32 seed = 1;
    for (const QSize size : sizes)
        for (const char *language : languages)
            for (int mode = Normal; mode < ModeCount; ++mode)
                replay.play(size, language, Mode(mode), seed++);
    return 0;
}
