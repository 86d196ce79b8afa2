// What a TCIMDateTime holds.
#ifndef VSKCORE_SRC_MODEL_DATETIME_TCIMDATETIMEIMPL_H
#define VSKCORE_SRC_MODEL_DATETIME_TCIMDATETIMEIMPL_H

#include <cstdint>
#include <string>

class TCIMDateTime;

// Belongs to exactly one handle. The fields stand as they were given: a month of 13 stays 13.
// Fields that a form does not use keep what they held, 0 at first.
class TCIMDateTimeImpl {
 public:
  void Set(unsigned short year, unsigned short month, unsigned int day, unsigned short hour,
           unsigned short minute, unsigned short second, unsigned int microseconds,
           short utcOffset);
  void Set(unsigned int days, unsigned short hours, unsigned short minutes, unsigned short seconds,
           unsigned int microseconds);
  void Set(const std::string& text);
  void Clear() { null_ = true; }

  bool IsNull() const { return null_; }
  bool IsInterval() const { return interval_; }
  unsigned short GetYear() const { return year_; }
  unsigned short GetMonth() const { return month_; }
  unsigned int GetDay() const { return day_; }
  unsigned short GetHour() const { return hour_; }
  unsigned short GetMinute() const { return minute_; }
  unsigned short GetSecond() const { return second_; }
  unsigned int GetMicroSeconds() const { return microseconds_; }
  unsigned short GetUTCOffset() const { return static_cast<unsigned short>(utcOffset_); }

  bool Equals(const TCIMDateTimeImpl& other) const;
  bool IsLess(const TCIMDateTimeImpl& other) const;
  TCIMDateTime Plus(const TCIMDateTimeImpl& other) const;
  TCIMDateTime Minus(const TCIMDateTimeImpl& other) const;

  std::string ToString() const;
  std::string ToUIString() const;

 private:
  // Orders two of one kind by seconds, then microseconds: negative, 0 or positive.
  int Compare(const TCIMDateTimeImpl& other) const;
  // The length of an interval. Wraps above 49710 days.
  std::uint32_t IntervalSeconds() const;
  // The instant of a timestamp, its offset taken out.
  std::int64_t InstantSeconds() const;
  // In microseconds: the length of an interval, or the wall clock of a timestamp whatever its
  // offset.
  std::int64_t Total() const;
  // The timestamp at a total of microseconds, in this timestamp's offset.
  TCIMDateTime AtTotal(std::int64_t total) const;

  bool null_ = true;
  unsigned short year_ = 0;
  unsigned short month_ = 0;
  unsigned int day_ = 0;
  unsigned short hour_ = 0;
  unsigned short minute_ = 0;
  unsigned short second_ = 0;
  unsigned int microseconds_ = 0;
  short utcOffset_ = 0;
  bool interval_ = false;
};

#endif
