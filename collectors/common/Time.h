// Seconds and dates as the kernel gives them, as CIM date-times.
#ifndef VSKCORE_COLLECTORS_COMMON_TIME_H
#define VSKCORE_COLLECTORS_COMMON_TIME_H

#include <vskcore/model/TCIMDateTime.h>

#include <cstdint>
#include <optional>

// Seconds since 1970, UTC, as a timestamp in the process's time zone. Nothing when it is outside
// what a timestamp holds (January 2038).
std::optional<TCIMDateTime> LocalTimestamp(std::uint64_t seconds);

// Midnight UTC of a calendar day. Nothing for a day that the calendar lacks.
std::optional<TCIMDateTime> DayTimestamp(std::uint64_t year, std::uint64_t month,
                                         std::uint64_t day);

#endif
