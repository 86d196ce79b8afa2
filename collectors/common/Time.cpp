#include "common/Time.h"

#include <vskcore/core/TVSKException.h>

#include <ctime>

namespace {

constexpr std::int64_t kSecondsPerDay = 86400;

bool IsLeapYear(std::int64_t year) { return (year % 4 == 0 && year % 100 != 0) || year % 400 == 0; }

// Days from 1970-01-01; month counts from 1. Each year before adds 365 and its leap day.
std::int64_t DaysSince1970(std::int64_t year, int month, int day) {
  static constexpr int kDaysBefore[] = {0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334};
  const std::int64_t last = year - 1;
  const std::int64_t leapDays = last / 4 - last / 100 + last / 400 - 477;
  const int thisLeapDay = month > 2 && IsLeapYear(year) ? 1 : 0;
  return (year - 1970) * 365 + leapDays + kDaysBefore[month - 1] + thisLeapDay + day - 1;
}

std::optional<TCIMDateTime> Timestamp(const std::tm& time, std::int64_t offsetMinutes) {
  try {
    return TCIMDateTime(
        static_cast<unsigned short>(time.tm_year + 1900),
        static_cast<unsigned short>(time.tm_mon + 1), static_cast<unsigned int>(time.tm_mday),
        static_cast<unsigned short>(time.tm_hour), static_cast<unsigned short>(time.tm_min),
        static_cast<unsigned short>(time.tm_sec), 0u, static_cast<short>(offsetMinutes));
  } catch (const TVSKException&) {
    return std::nullopt;
  }
}

}  // namespace

std::optional<TCIMDateTime> LocalTimestamp(std::uint64_t seconds) {
  if (seconds > 0x7FFFFFFF) return std::nullopt;
  const auto instant = static_cast<std::time_t>(seconds);
  std::tm local;
  tzset();  // localtime_r keeps the zone that the process had when it first asked
  if (localtime_r(&instant, &local) == nullptr) return std::nullopt;
  // The offset is what the wall clock is ahead; the standard has no other way to ask for it.
  const std::int64_t wall =
      DaysSince1970(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday) * kSecondsPerDay +
      local.tm_hour * 3600 + local.tm_min * 60 + local.tm_sec;
  return Timestamp(local, (wall - static_cast<std::int64_t>(seconds)) / 60);
}

std::optional<TCIMDateTime> DayTimestamp(std::uint64_t year, std::uint64_t month,
                                         std::uint64_t day) {
  static constexpr unsigned kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
  if (year < 1970 || year > 2037 || month < 1 || month > 12 || day < 1) return std::nullopt;
  const bool leapMonth = month == 2 && IsLeapYear(static_cast<std::int64_t>(year));
  if (day > kDays[month - 1] + (leapMonth ? 1 : 0)) return std::nullopt;
  std::tm time = {};
  time.tm_year = static_cast<int>(year) - 1900;
  time.tm_mon = static_cast<int>(month) - 1;
  time.tm_mday = static_cast<int>(day);
  return Timestamp(time, 0);
}
