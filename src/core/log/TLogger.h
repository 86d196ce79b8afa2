// The logger behind ILogger.
#ifndef VSKCORE_SRC_CORE_LOG_TLOGGER_H
#define VSKCORE_SRC_CORE_LOG_TLOGGER_H

#include <vskcore/core/ILogger.h>
#include <vskcore/core/TLogRecord.h>
#include <vskcore/core/vskStatus.h>

#include <cstdint>
#include <list>
#include <string>

// Writes lines through TOSSpecific::OutputLogString and keeps records in memory.
class TLogger : public ILogger {
 public:
  void LogData(IPlugin* plugin, std::int32_t level, const void* data, std::int32_t length) override;
  void Log(IPlugin* plugin, std::int32_t level, const std::string& text) override;
  std::list<TLogRecord>& GetRecords() override { return records_; }
  void ClearRecords() override { records_.clear(); }
  void SetLevel(std::int32_t level) override { level_ = level; }
  std::int32_t GetLevel() override { return level_; }

 private:
  void AddRecord(IPlugin* plugin, std::int32_t level, const std::string& text);
  // For a message that passed the threshold: the record if its level is kept, then the line.
  void Deliver(IPlugin* plugin, std::int32_t level, const std::string& text);

  std::int32_t level_ = 2;
  std::list<TLogRecord> records_;
};

namespace vsk::detail {

// A record without a line, whatever the threshold.
constexpr std::int32_t kRecordOnly = 100;

// Whether Log does nothing with a message of that level.
constexpr bool IsDropped(std::int32_t level, std::int32_t threshold) {
  return level != kRecordOnly && level > threshold;
}

// Creates the logger that TRootObject::GetCoreLogger hands out, before anything else of the core.
// It belongs to the process; a second call leaves it as it is.
vskStatus CreateCoreLogger();

}  // namespace vsk::detail

#endif
