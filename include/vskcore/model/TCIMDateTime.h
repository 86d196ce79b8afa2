// The value behind the CIM type datetime.
#ifndef VSKCORE_MODEL_TCIMDATETIME_H
#define VSKCORE_MODEL_TCIMDATETIME_H

#include <vskcore/core/vskExport.h>

#include <boost/shared_ptr.hpp>
#include <cstdint>
#include <string>

class TCIMDateTimeImpl;

// One of three things: NULL, a timestamp (calendar date and time with a UTC offset) or an interval
// (days, hours, minutes, seconds, microseconds). A plain value: copies are deep and independent.
//
// The text form is the DMTF's 25 characters (DSP0004), without asterisks:
//   timestamp  yyyymmddHHMMSS.mmmmmm+ooo   offset in minutes east of UTC, "+" or "-"
//   interval   ddddddddHHMMSS.mmmmmm:000
//
// A timestamp is valid when mktime accepts it and it lies between 1970 and January 2038; fields
// out of their calendar range (month 13) pass and are kept as given. An interval is valid when
// hours are at most 23, minutes and seconds 59, microseconds 999999; the day count is free.
//
// Every failure is vskStatusInvalidDateTime, but for GetDifference, and leaves the object as it
// was. Calendar work uses the process's time zone. No locks: one object, one thread.
class VSK_EXPORT TCIMDateTime {
 public:
  TCIMDateTime();  // NULL
  // As the Set of the same arguments.
  TCIMDateTime(unsigned short year, unsigned short month, unsigned int day, unsigned short hour,
               unsigned short minute, unsigned short second, unsigned int microseconds,
               short utcOffset);
  TCIMDateTime(unsigned int days, unsigned short hours, unsigned short minutes,
               unsigned short seconds, unsigned int microseconds);
  TCIMDateTime(const std::string& text);
  TCIMDateTime(const TCIMDateTime& other);
  TCIMDateTime& operator=(const TCIMDateTime& other);
  ~TCIMDateTime();

  // Makes this a timestamp. month counts from 1; utcOffset is minutes east of UTC.
  void Set(unsigned short year, unsigned short month, unsigned int day, unsigned short hour,
           unsigned short minute, unsigned short second, unsigned int microseconds,
           short utcOffset);
  // Makes this an interval.
  void Set(unsigned int days, unsigned short hours, unsigned short minutes, unsigned short seconds,
           unsigned int microseconds);
  // Reads either form from its 25 characters.
  void Set(const std::string& text);
  // Makes this NULL.
  void Clear();

  // Which of the three it is.
  bool IsNull() const;
  bool IsInterval() const;

  // The fields, unchecked: year, month and offset of an interval, and everything of a NULL, hold
  // whatever they held before, 0 at first.
  unsigned short GetYear() const;
  unsigned short GetMonth() const;
  unsigned int GetDay() const;  // day of the month, or the interval's count of days
  unsigned short GetHour() const;
  unsigned short GetMinute() const;
  unsigned short GetSecond() const;
  unsigned int GetMicroSeconds() const;
  unsigned short GetUTCOffset() const;  // two's complement: an offset of -60 reads 65476

  // Timestamps compare as instants, offsets taken out; intervals by their length. Throws when
  // either side is NULL or one is a timestamp and the other an interval.
  bool operator==(const TCIMDateTime& other) const;
  bool operator<(const TCIMDateTime& other) const;

  // Interval + interval, timestamp + interval, interval + timestamp. A timestamp keeps its offset.
  // Throws on NULL and for two timestamps.
  TCIMDateTime operator+(const TCIMDateTime& other) const;
  // Always the absolute difference: two timestamps or two intervals give an interval, mixed
  // operands a timestamp. Throws on NULL.
  TCIMDateTime operator-(const TCIMDateTime& other) const;

  // The 25-character form. Throws on NULL.
  std::string ToString() const;
  // For people: "10/31/2005 17:59:18", or "3 days 12 hours " with a blank behind each part, and
  // nothing for an interval of zero. Throws on NULL.
  std::string ToUIString() const;

  // Not offered: always throws vskStatusNotImplemented.
  static std::int64_t GetDifference(TCIMDateTime&, TCIMDateTime&);

 private:
  boost::shared_ptr<TCIMDateTimeImpl> impl_;  // never shared between two handles
};

#endif
