// One retained message of the log.
#ifndef VSKCORE_CORE_TLOGRECORD_H
#define VSKCORE_CORE_TLOGRECORD_H

#include <vskcore/model/TCIMDateTime.h>

#include <cstdint>
#include <string>

class IPlugin;

// A plain copy of what was logged, see ILogger::GetRecords.
struct TLogRecord {
  IPlugin* plugin;         // who it is about; null for the core; not owned
  std::int32_t level;      // as the caller passed it
  std::string text;        // without prefix, tag or line feed
  TCIMDateTime timestamp;  // local time; NULL for a clock that no timestamp holds
};

#endif
