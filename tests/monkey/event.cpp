// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "event.h"

#include <QList>
#include <QRandomGenerator>

#include <algorithm>

namespace {

struct KindInfo
{
    const char *name;
    int weight; ///< thousandths; slow events are rare
};

// In the order of the enumeration.
constexpr KindInfo kinds[] = {
    { "press", 70 },       { "move", 200 },       { "release", 60 },       { "drag", 15 },
    { "click", 35 },       { "double-click", 5 }, { "wheel-on-plot", 60 }, { "wheel-anywhere", 60 },
    { "turn-dial", 30 },   { "dial-key", 25 },    { "key", 100 },          { "focus", 35 },
    { "button", 75 },      { "chart-menu", 8 },   { "slot-menu", 4 },      { "slot-action", 55 },
    { "entry", 18 },       { "files", 2 },        { "settings", 2 },       { "resize", 4 },
    { "window-state", 2 }, { "drop", 12 },        { "language", 3 },       { "style", 1 },
    { "pointer", 60 },     { "settle", 58 },      { "reopen", 1 },
};
static_assert(sizeof kinds / sizeof kinds[0] == Event::KindCount, "one line a kind");

constexpr int sumOfWeights()
{
    int sum = 0;
    for (const KindInfo &kind : kinds)
        sum += kind.weight;
    return sum;
}
static_assert(sumOfWeights() == 1000, "weights are thousandths");

Event::Kind randomKind(QRandomGenerator &random)
{
    int rest = random.bounded(sumOfWeights());
    int kind = 0;
    while (rest >= kinds[kind].weight)
        rest -= kinds[kind++].weight;
    return static_cast<Event::Kind>(kind);
}

bool readEvent(const QByteArray &line, Event &event)
{
    const QList<QByteArray> words = line.simplified().split(' ');
    if (words.size() != 2 + static_cast<int>(event.numbers.size()))
        return false;
    const auto *kind = std::find_if(std::begin(kinds), std::end(kinds), [&](const KindInfo &info) {
        return words.first() == info.name;
    });
    bool known = kind != std::end(kinds);
    event.kind = static_cast<Event::Kind>(kind - std::begin(kinds));
    for (int i = 0; known && i < static_cast<int>(event.numbers.size()); ++i) {
        int &number = event.numbers[static_cast<std::size_t>(i)];
        number = words.at(i + 1).toInt(&known);
        known = known && number >= 0 && number < Event::bound;
    }
    if (known)
        event.answer = words.last().toUInt(&known);
    return known;
}

} // namespace

QByteArray lineOf(const Event &event)
{
    QByteArray line = kinds[event.kind].name;
    for (const int number : event.numbers)
        line += ' ' + QByteArray::number(number);
    return line + ' ' + QByteArray::number(event.answer);
}

Script randomScript(unsigned seed, int length)
{
    QRandomGenerator random(seed);
    Script script;
    script.reserve(length);
    for (int i = 0; i < length; ++i) {
        Event event;
        event.kind = randomKind(random);
        for (int &number : event.numbers)
            number = random.bounded(Event::bound);
        event.answer = random.bounded(1U << 30);
        script.append(event);
    }
    return script;
}

Script parsedScript(const QByteArray &text)
{
    Script script;
    const QList<QByteArray> lines = text.split('\n');
    for (const QByteArray &line : lines) {
        if (line.isEmpty() || line.startsWith('#'))
            continue;
        Event event;
        if (!readEvent(line, event))
            qFatal("invalid event: %s", line.constData());
        script.append(event);
    }
    return script;
}

QByteArray textOf(const Script &script, const QByteArray &comment)
{
    QByteArray text = "# " + comment + '\n';
    for (const Event &event : script)
        text += lineOf(event) + '\n';
    return text;
}
