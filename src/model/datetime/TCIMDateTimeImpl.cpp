#include "model/datetime/TCIMDateTimeImpl.h"

#include <vskcore/core/TVSKException.h>
#include <vskcore/model/TCIMDateTime.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <limits>

namespace {

constexpr std::int64_t kMicrosecondsPerSecond = 1000000;
constexpr std::int64_t kSecondsPerDay = 86400;
constexpr std::int64_t kLastSecond = std::numeric_limits<std::int32_t>::max();
constexpr std::size_t kTextLength = 25;
constexpr std::size_t kPointAt = 14;
constexpr std::size_t kSignAt = 21;

[[noreturn]] void Refuse() { throw TVSKException(vskStatusInvalidDateTime); }

// The calendar time of a wall clock in the process's zone, without daylight saving.
std::int64_t MakeTime(std::tm time) {
  time.tm_isdst = 0;
  // mktime's -1 is a failure, or the last second before zero: only a failure leaves the day alone.
  time.tm_wday = -1;
  const std::int64_t seconds = std::mktime(&time);
  if (time.tm_wday == -1) Refuse();
  return seconds;
}

// By the wall clock, not by the sign: midnight of the first of January 1970 lies before zero east
// of Greenwich, and has to be good everywhere.
bool IsBefore1970(std::int64_t seconds) {
  if (seconds >= 2 * kSecondsPerDay) return false;
  std::tm first = {};
  first.tm_year = 70;
  first.tm_mday = 1;
  return seconds < MakeTime(first);
}

// As MakeTime, for what is in the range of a timestamp.
std::int64_t CalendarTime(unsigned short year, unsigned short month, unsigned int day,
                          unsigned short hour, int minute, unsigned short second) {
  std::tm time = {};
  time.tm_year = year - 1900;
  time.tm_mon = month - 1;
  // A day past the range of int lies past 2038 as well, so cutting it keeps it refused.
  time.tm_mday = static_cast<int>(std::min<unsigned int>(day, std::numeric_limits<int>::max()));
  time.tm_hour = hour;
  time.tm_min = minute;
  time.tm_sec = second;
  const std::int64_t seconds = MakeTime(time);
  if (seconds > kLastSecond || IsBefore1970(seconds)) Refuse();
  return seconds;
}

// Whether the date is so plain and so far from both ends of the range that it is good in every
// zone. Nearly all are, and mktime takes longer than everything else together.
bool IsSurelyInRange(unsigned short year, unsigned short month, unsigned int day,
                     unsigned short hour, unsigned short minute, unsigned short second,
                     short utcOffset) {
  return year > 1970 && year < 2038 && month >= 1 && month <= 12 && day >= 1 && day <= 31 &&
         hour < 24 && minute < 60 && second <= 60 && std::abs(utcOffset) <= 24 * 60;
}

// Not by localtime: its result is one for all threads.
std::tm BrokenDown(std::time_t seconds) {
  std::tm time;
  if (localtime_r(&seconds, &time) == nullptr) Refuse();
  return time;
}

// In the zone's standard time, as CalendarTime reads it. Reading a summer's clock without daylight
// saving adds the saving: an hour in most zones, half of one in some, and below zero where the
// flag stands for winter. The clock is set back, not the instant: that may lie ahead of the change.
std::tm StandardWallClock(std::int64_t seconds) {
  std::tm time = BrokenDown(seconds);
  if (time.tm_isdst <= 0) return time;
  const std::int64_t saving = MakeTime(time) - seconds;
  time.tm_sec -= static_cast<int>(saving);
  timegm(&time);  // for the carry alone
  return time;
}

// The interval of a total of microseconds.
TCIMDateTime Split(std::int64_t total) {
  const std::int64_t seconds = total / kMicrosecondsPerSecond;
  return TCIMDateTime(static_cast<unsigned int>(seconds / kSecondsPerDay),
                      static_cast<unsigned short>(seconds / 3600 % 24),
                      static_cast<unsigned short>(seconds / 60 % 60),
                      static_cast<unsigned short>(seconds % 60),
                      static_cast<unsigned int>(total % kMicrosecondsPerSecond));
}

unsigned int Number(const std::string& text, std::size_t begin, std::size_t length) {
  unsigned int number = 0;
  for (std::size_t i = begin; i < begin + length; ++i) {
    number = number * 10 + static_cast<unsigned int>(text[i] - '0');
  }
  return number;
}

unsigned short ShortNumber(const std::string& text, std::size_t begin, std::size_t length) {
  return static_cast<unsigned short>(Number(text, begin, length));
}

bool HasShape(const std::string& text) {
  if (text.size() != kTextLength || text[kPointAt] != '.') return false;
  for (std::size_t i = 0; i < kTextLength; ++i) {
    if (i != kPointAt && i != kSignAt && (text[i] < '0' || text[i] > '9')) return false;
  }
  return true;
}

void AppendPart(std::string& text, unsigned int count, const char* name) {
  if (count == 0) return;
  text += std::to_string(count) + ' ' + name + (count == 1 ? " " : "s ");
}

}  // namespace

void TCIMDateTimeImpl::Set(unsigned short year, unsigned short month, unsigned int day,
                           unsigned short hour, unsigned short minute, unsigned short second,
                           unsigned int microseconds, short utcOffset) {
  if (!IsSurelyInRange(year, month, day, hour, minute, second, utcOffset)) {
    CalendarTime(year, month, day, hour, minute - utcOffset, second);
  }
  null_ = false;
  year_ = year;
  month_ = month;
  day_ = day;
  hour_ = hour;
  minute_ = minute;
  second_ = second;
  microseconds_ = microseconds;
  utcOffset_ = utcOffset;
  interval_ = false;
}

void TCIMDateTimeImpl::Set(unsigned int days, unsigned short hours, unsigned short minutes,
                           unsigned short seconds, unsigned int microseconds) {
  if (hours > 23 || minutes > 59 || seconds > 59 || microseconds > 999999) Refuse();
  null_ = false;
  day_ = days;
  hour_ = hours;
  minute_ = minutes;
  second_ = seconds;
  microseconds_ = microseconds;
  interval_ = true;
}

void TCIMDateTimeImpl::Set(const std::string& text) {
  if (!HasShape(text)) Refuse();
  const unsigned short hour = ShortNumber(text, 8, 2);
  const unsigned short minute = ShortNumber(text, 10, 2);
  const unsigned short second = ShortNumber(text, 12, 2);
  const unsigned int microseconds = Number(text, 15, 6);
  const int offset = ShortNumber(text, 22, 3);
  const char sign = text[kSignAt];
  if (sign == ':' && offset == 0)
    return Set(Number(text, 0, 8), hour, minute, second, microseconds);
  if (sign != '+' && sign != '-') Refuse();
  Set(ShortNumber(text, 0, 4), ShortNumber(text, 4, 2), Number(text, 6, 2), hour, minute, second,
      microseconds, static_cast<short>(sign == '-' ? -offset : offset));
}

bool TCIMDateTimeImpl::Equals(const TCIMDateTimeImpl& other) const { return Compare(other) == 0; }

bool TCIMDateTimeImpl::IsLess(const TCIMDateTimeImpl& other) const { return Compare(other) < 0; }

int TCIMDateTimeImpl::Compare(const TCIMDateTimeImpl& other) const {
  if (null_ || other.null_ || interval_ != other.interval_) Refuse();
  const std::int64_t left = interval_ ? IntervalSeconds() : InstantSeconds();
  const std::int64_t right = interval_ ? other.IntervalSeconds() : other.InstantSeconds();
  if (left != right) return left < right ? -1 : 1;
  if (microseconds_ != other.microseconds_) return microseconds_ < other.microseconds_ ? -1 : 1;
  return 0;
}

std::uint32_t TCIMDateTimeImpl::IntervalSeconds() const {
  return ((std::uint32_t{day_} * 24 + hour_) * 60 + minute_) * 60 + second_;
}

std::int64_t TCIMDateTimeImpl::InstantSeconds() const {
  return CalendarTime(year_, month_, day_, hour_, minute_ - utcOffset_, second_);
}

std::int64_t TCIMDateTimeImpl::Total() const {
  const std::int64_t seconds =
      interval_ ? IntervalSeconds() : CalendarTime(year_, month_, day_, hour_, minute_, second_);
  return seconds * kMicrosecondsPerSecond + microseconds_;
}

TCIMDateTime TCIMDateTimeImpl::AtTotal(std::int64_t total) const {
  std::int64_t seconds = total / kMicrosecondsPerSecond;
  std::int64_t microseconds = total % kMicrosecondsPerSecond;
  if (microseconds < 0) {
    --seconds;
    microseconds += kMicrosecondsPerSecond;
  }
  const std::tm time = StandardWallClock(seconds);
  return TCIMDateTime(
      static_cast<unsigned short>(time.tm_year + 1900),
      static_cast<unsigned short>(time.tm_mon + 1), static_cast<unsigned int>(time.tm_mday),
      static_cast<unsigned short>(time.tm_hour), static_cast<unsigned short>(time.tm_min),
      static_cast<unsigned short>(time.tm_sec), static_cast<unsigned int>(microseconds),
      utcOffset_);
}

TCIMDateTime TCIMDateTimeImpl::Plus(const TCIMDateTimeImpl& other) const {
  if (null_ || other.null_ || (!interval_ && !other.interval_)) Refuse();
  const std::int64_t sum = Total() + other.Total();
  if (interval_ && other.interval_) return Split(sum);
  return interval_ ? other.AtTotal(sum) : AtTotal(sum);
}

TCIMDateTime TCIMDateTimeImpl::Minus(const TCIMDateTimeImpl& other) const {
  if (null_ || other.null_) Refuse();
  std::int64_t difference = Total() - other.Total();
  if (interval_ != other.interval_) {
    const TCIMDateTimeImpl& timestamp = interval_ ? other : *this;
    return timestamp.AtTotal(std::abs(difference));
  }
  // Only between two instants do the offsets count.
  if (!interval_) difference -= (utcOffset_ - other.utcOffset_) * 60 * kMicrosecondsPerSecond;
  return Split(std::abs(difference));
}

std::string TCIMDateTimeImpl::ToString() const {
  if (null_) Refuse();
  char date[32];
  char offset[16];
  if (interval_) {
    std::snprintf(date, sizeof date, "%08u", day_);
    std::snprintf(offset, sizeof offset, ":000");
  } else {
    std::snprintf(date, sizeof date, "%04u%02u%02u", year_, month_, day_);
    std::snprintf(offset, sizeof offset, "%c%03d", utcOffset_ < 0 ? '-' : '+',
                  std::abs(utcOffset_));
  }
  char text[96];
  std::snprintf(text, sizeof text, "%s%02u%02u%02u.%06u%s", date, hour_, minute_, second_,
                microseconds_, offset);
  return text;
}

std::string TCIMDateTimeImpl::ToUIString() const {
  if (null_) Refuse();
  if (interval_) {
    std::string text;
    AppendPart(text, day_, "day");
    AppendPart(text, hour_, "hour");
    AppendPart(text, minute_, "minute");
    AppendPart(text, second_, "second");
    AppendPart(text, microseconds_ / 1000, "millisecond");
    AppendPart(text, microseconds_ % 1000, "microsecond");
    return text;
  }
  char line[64];
  std::snprintf(line, sizeof line, "%02u/%02u/%04u %02u:%02u:%02u", month_, day_, year_, hour_,
                minute_, second_);
  return line;
}
