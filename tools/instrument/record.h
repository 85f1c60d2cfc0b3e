// SPDX-FileCopyrightText: 2026 The Velkor developers
// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "acquisition.h"
#include "protocol_vx840.h"

#include <QByteArray>
#include <QDateTime>

#include <vector>

/// \file
/// The writing half of the simulated instrument: makes a record of a trace and its user's notes.

namespace instrument {

/// A place that the instrument's user marked.
struct Mark
{
    double distance = 0.0; ///< m, 0 or more, at the KU of the settings
    QByteArray note; ///< truncated to 63 bytes
};

/// Contents of a record besides samples and settings.
struct Survey
{
    QDateTime time; ///< of the test, years 2000 to 2099
    Protocol_VX840::CH_STATUS_t status = Protocol_VX840::CH_PASSED;
    double faultDistance = 0.0; ///< m; written in whole centimetres, 0 when the test passed
    double cableLength = 0.0; ///< m
    double insulationResistance = 0.0; ///< megohms
    double loopResistance = 0.0; ///< ohms
    double capacity = 0.0; ///< nF
    int shiftX = 0; ///< saved horizontal shift in samples; negative to the left
    qint16 shiftY = 0; ///< saved vertical shift in sample steps
    std::vector<Mark> marks; ///< the first Protocol_VX840::markCount of them
    QByteArray note; ///< truncated to 1023 bytes
    quint32 cable = 0; ///< number that the owner gave the cable
    quint8 pair = 0; ///< pair within the cable
};

/// A complete record; every byte without a value is 0.
Protocol_VX840::TDR_FILE_t makeRecord(const Trace &trace, const Settings &settings,
                                      const Survey &survey);

/// The check byte for \a record: with it the sum of all 37775 bytes is 0 modulo 256.
quint8 checkByte(const Protocol_VX840::TDR_FILE_t &record);

/// The record as the bytes of a .tdr file.
QByteArray fileBytes(const Protocol_VX840::TDR_FILE_t &record);

} // namespace instrument
