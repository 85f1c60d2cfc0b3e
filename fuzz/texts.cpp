// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "base/constants.h"
#include "fuzzer.h"
#include "settingsdata.h"
#include "settingsmenu.h"
#include "windowfixture.h"

#include <QApplication>
#include <QBuffer>
#include <QTemporaryDir>

/// \file
/// The first byte selects the meaning of the rest: even, a list of languages; odd, a style sheet.

using fuzz::expect;

namespace {

/// px; the limits of a sheet allow 32 em plus margin, border and padding
constexpr int maxMinimumSize = 8192;

MainWindow *window = nullptr;

int knownLanguages(const SettingsData &settings)
{
    int count = 0;
    while (count < SettingsData::languageCount && settings.languageList[count].id != -1)
        ++count;
    return count;
}

void languages(QByteArray bytes, bool isApplied)
{
    SettingsData &live = *window->settings();
    for (language &entry : live.languageList)
        entry = language();
    QBuffer device(&bytes);
    device.open(QIODevice::ReadOnly);
    live.readLanguages(device);

    const int known = knownLanguages(live);
    for (int i = 0; i < SettingsData::languageCount; ++i) {
        const language &entry = live.languageList[i];
        expect(entry.id == (i < known ? i : -1), "languages are numbered from 0 without a gap");
        expect(!entry.CODE.contains(QLatin1Char(' ')), "a language's code ends at the blank");
    }
    MainWindowProbe(*window).settingsMenu()->interfaceUpdate();
    if (isApplied && known > 0) {
        live.current_language = live.languageList[known - 1].CODE;
        live.setTranslation();
        WindowFixture::settle();
    }
}

void styleSheet(const QByteArray &bytes)
{
    static const QTemporaryDir folder(fuzz::folderTemplate());
    const QString path = folder.filePath(QStringLiteral("sheet.qss"));
    fuzz::writeFile(path, bytes);
    SettingsData &live = *window->settings();
    live.current_CSS_path = path;
    live.parse_CSS();
    expect(live.current_CSS.toLatin1() == bytes, "a style sheet is stored as it was read");
    expect(window->styleSheet().isEmpty() || window->styleSheet() == live.current_CSS,
           "a style sheet is applied as it is or not at all");
    WindowFixture::settle();
    expect(window->minimumWidth() <= maxMinimumSize && window->minimumHeight() <= maxMinimumSize,
           "no style sheet makes the window larger than a screen");
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int *argc, char ***argv)
{
    fuzz::silenceLog();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    new QApplication(*argc, *argv);
    window = new MainWindow;
    window->show();
    WindowFixture::settle();
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size == 0)
        return 0;
    const QByteArray bytes(reinterpret_cast<const char *>(data) + 1, static_cast<int>(size) - 1);
    if (data[0] % 2 == 0)
        languages(bytes, fuzz::slowPartIsDue(16));
    else
        styleSheet(bytes);
    return 0;
}
