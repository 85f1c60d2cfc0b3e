// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#include "window_input.h"

#include "fuzzer.h"
#include "protocol_vx840.h"
#include "record_input.h"

namespace fuzz {

WindowInput::WindowInput(const std::uint8_t *data, std::size_t size)
{
    Input preamble(data, std::min(size, windowPreamble));
    const quint8 way = preamble.byte();
    russian = (way & 1) != 0;
    shortFiles = (way & 2) != 0;
    sweeps = isOneOf(16, data, size);
    sparse = preamble.byte();
    master = preamble.number<qint8>();
    preamble.byte(); // for what is to come
    for (Step &step : steps) {
        step.kind = preamble.byte();
        step.with = preamble.byte();
    }
    Input records(data + std::min(size, windowPreamble), size - std::min(size, windowPreamble));
    do {
        std::size_t taken = 0;
        const char *head = records.take(headBytes, taken);
        heads.append(QByteArray(head, static_cast<int>(taken)));
    } while (records.left() > 0 && heads.size() < static_cast<int>(windowRecords));
}

TraceFolder::TraceFolder()
    : m_folder(folderTemplate())
{
    const auto *head = reinterpret_cast<const char *>(goodHead());
    QByteArray good(head, static_cast<int>(headBytes));
    good.append(QByteArray(static_cast<int>(sizeof(Protocol_VX840::TDR_FILE_t)) - good.size(), 0));
    writeFile(goodFile(), good);
}

void TraceFolder::fill(const QVector<QByteArray> &heads, bool shortFiles)
{
    for (int i = 0; i < heads.size(); ++i) {
        QByteArray bytes = heads[i];
        // A head that is cut stays cut: it is a short file in itself.
        if (!shortFiles && bytes.size() == static_cast<int>(headBytes))
            bytes.append(
                QByteArray(static_cast<int>(sizeof(Protocol_VX840::TDR_FILE_t)) - bytes.size(), 0));
        writeFile(m_folder.filePath(QStringLiteral("%1.tdr").arg(i)), bytes);
    }
    m_fileCount = static_cast<int>(heads.size());
}

QString TraceFolder::file(int number) const
{
    return m_folder.filePath(QStringLiteral("%1.tdr").arg(number % qMax(1, m_fileCount)));
}

int TraceFolder::fileCount() const
{
    return m_fileCount;
}

QString TraceFolder::goodFile() const
{
    return m_folder.filePath(QStringLiteral("good.tdr"));
}

} // namespace fuzz
