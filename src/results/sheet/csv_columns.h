#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace qor {

/// Columns of a .csv, in the order in which they are written.
enum class CsvColumn : std::size_t {
    Run,  ///< from 1
    Half, ///< "time", "up" or "down"
    Time,
    F1,
    F2,
    Im,
    Level,
    Unit,
    // what holds for the whole result
    Power1,
    Power2,
    Band,
    InterBand,
    Order,
    Method,
    F1Held,
    F1Start,
    F1Stop,
    F2Held,
    F2Start,
    F2Stop,
    Model,
    Serial,
    DeviceSerial,
    Date,
    Limit, ///< in the unit of the levels
    Verdict,
    PointsTaken,
    PointsAsked,
    Receiver, ///< the external one that measured, as it names itself
    Floor,    ///< dBm that it hears nothing below
    Rows,     ///< lines of the table: one that was cut has fewer
    Count
};

inline constexpr std::array<std::string_view, static_cast<std::size_t>(CsvColumn::Count)> CsvNames = {
    "run",          "half",        "time_s",       "f1_mhz",       "f2_mhz",        "im_mhz",
    "level",        "unit",        "power1_dbm",   "power2_dbm",   "band",          "receive_band",
    "order",        "method",      "f1_held_mhz",  "f1_start_mhz", "f1_stop_mhz",   "f2_held_mhz",
    "f2_start_mhz", "f2_stop_mhz", "model",        "serial",       "device_serial", "date",
    "limit",        "verdict",     "points_taken", "points_asked", "receiver",      "floor_dbm",
    "rows"};

} // namespace qor
