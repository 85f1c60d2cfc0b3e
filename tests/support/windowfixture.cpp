// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "windowfixture.h"

#include "base/program_files.h"
#include "test_files.h"

#include <QCoreApplication>
#include <QFile>
#include <QSettings>
#include <QtTest>

WindowFixture::WindowFixture()
{
    // A native file dialog has no widgets that answerDialog could reach.
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    removeSettings();
}

WindowFixture::~WindowFixture()
{
    m_probe.reset();
    m_window.reset();
    settle();
    removeSettings();
}

MainWindow &WindowFixture::open()
{
    close();
    m_window = std::make_unique<MainWindow>();
    m_probe = std::make_unique<MainWindowProbe>(*m_window);
    m_window->show();
    if (!QTest::qWaitForWindowExposed(m_window.get()))
        qFatal("the window did not open");
    settle();
    return *m_window;
}

void WindowFixture::close()
{
    if (m_window)
        m_window->close();
    m_probe.reset();
    m_window.reset();
    settle();
}

MainWindow &WindowFixture::window() const
{
    return *m_window;
}

const MainWindowProbe &WindowFixture::probe() const
{
    return *m_probe;
}

QString WindowFixture::path(const QString &name) const
{
    return m_folder.filePath(name);
}

QString WindowFixture::trace(const QString &name, const TraceBuilder &builder) const
{
    return builder.write(path(name));
}

QString WindowFixture::settingsFile()
{
    return program_files::settingsFile();
}

void WindowFixture::writeSettings(const QByteArray &bytes)
{
    writeFile(settingsFile(), bytes);
}

void WindowFixture::writePreviousRun(const QStringList &traces, int master)
{
    QSettings settings(settingsFile(), QSettings::IniFormat);
    settings.beginGroup(QStringLiteral("PrevFiles"));
    settings.setValue(QStringLiteral("StateIndex"), (1 << traces.size()) - 1);
    settings.setValue(QStringLiteral("MasterId"), master);
    for (int slot = 0; slot < traces.size(); ++slot)
        settings.setValue(QStringLiteral("file%1").arg(slot + 1), traces[slot]);
    settings.endGroup();
}

void WindowFixture::removeSettings()
{
    QFile::remove(program_files::settingsFile());
    QFile::remove(program_files::settingsBackupFile());
}

void WindowFixture::settle()
{
    QCoreApplication::processEvents();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCoreApplication::processEvents();
}
