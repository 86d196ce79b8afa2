// The log of the process, for the core, hosts and plug-ins.
#ifndef VSKCORE_CORE_ILOGGER_H
#define VSKCORE_CORE_ILOGGER_H

#include <vskcore/core/vskExport.h>

#include <cstdint>
#include <list>
#include <string>

class IPlugin;
struct TLogRecord;

// Takes messages from the core and from plug-ins. A message can become a line on the debug channel
// (the process's standard error), a record in memory, both, or neither:
//
//   level  name     tag of the line   kept as a record
//   0      Error    "[Error] "        yes
//   1      Warning  "[Warning] "      yes
//   2      Status   "[Status] "       yes
//   3      Debug    "[Debug] "        yes
//   4      Verbose  "[Verbose] "      no
//   100    record only, no line       yes, whatever the threshold
//
// A level above the threshold is dropped before anything is formatted. A line reads
// "VSK_Core: [Error] text\n", with the plug-in's name instead of Core where a plug-in is given.
//
// One logger exists per process; TRootObject::GetCoreLogger hands it out, and it lives until the
// process ends. It takes no lock: keep threads apart, also those whose calls log something. Only
// messages that the threshold drops may come from several threads at once. The order of the virtual
// operations is part of the contract between separately compiled modules.
class VSK_EXPORT ILogger {
 public:
  ILogger();
  ILogger(const ILogger&);
  ILogger& operator=(const ILogger&);
  virtual ~ILogger();

  // Logs bytes as two lower-case hexadecimal digits and a blank each. plugin may be null. More
  // than 10240 bytes give the error "Too much data to log--10k limit!" instead, whatever the level.
  // Level 100 does nothing here. Otherwise as Log.
  virtual void LogData(IPlugin* plugin, std::int32_t level, const void* data,
                       std::int32_t length) = 0;

  // Logs a text. plugin may be null for the core. Throws vskStatusFail for a level that passes the
  // threshold and has no tag: a negative one, after its record was made, or one above 4.
  virtual void Log(IPlugin* plugin, std::int32_t level, const std::string& text) = 0;

  // The records kept so far, in order of arrival. The reference stays valid; the list grows with
  // every message until ClearRecords.
  virtual std::list<TLogRecord>& GetRecords() = 0;

  // Drops all records. The threshold stays.
  virtual void ClearRecords() = 0;

  // Sets the threshold: levels up to it pass. Any number is taken; a negative one silences all but
  // level 100. A new logger has 2.
  virtual void SetLevel(std::int32_t level) = 0;
  virtual std::int32_t GetLevel() = 0;  // as it was set
};

#endif
