// Date-times, as a C plug-in makes them.
#include <vskcore/model/TCIMDateTime.h>
#include <vskcore/vskplugin.h>

#include "cinterface/Border.h"

using vsk::detail::AllGiven;
using vsk::detail::Guarded;

vskStatus vskNewCIMDateTime(TCIMDateTime** datetime) {
  if (!AllGiven(nullptr, __func__, "datetime", datetime)) return vskStatusFail;
  return vsk::detail::Create(__func__, datetime);
}

vskStatus vskSetDateTime(TCIMDateTime* datetime, uint16_t year, uint16_t month, uint32_t day,
                         uint16_t hour, uint16_t minute, uint16_t second, uint32_t microseconds,
                         int16_t utcOffset) {
  if (!AllGiven(nullptr, __func__, "datetime", datetime)) return vskStatusFail;
  return Guarded(__func__, [&] {
    datetime->Set(year, month, day, hour, minute, second, microseconds, utcOffset);
  });
}

vskStatus vskSetDateTimeInterval(TCIMDateTime* datetime, uint32_t days, uint16_t hours,
                                 uint16_t minutes, uint16_t seconds, uint32_t microseconds) {
  if (!AllGiven(nullptr, __func__, "datetime", datetime)) return vskStatusFail;
  return Guarded(__func__, [&] { datetime->Set(days, hours, minutes, seconds, microseconds); });
}

vskStatus vskSetDateTimeString(TCIMDateTime* datetime, const char* str) {
  if (!AllGiven(nullptr, __func__, "datetime and/or str", datetime, str)) return vskStatusFail;
  return Guarded(__func__, [&] { datetime->Set(std::string(str)); });
}

vskStatus vskDeleteCIMDateTime(TCIMDateTime* datetime) {
  if (!AllGiven(nullptr, __func__, "datetime", datetime)) return vskStatusFail;
  delete datetime;
  return vskStatusOK;
}
