#include "support/TLogCapture.h"

#include <gtest/gtest.h>
#include <vskcore/core/ILogger.h>
#include <vskcore/core/TLogRecord.h>
#include <vskcore/core/TRootObject.h>

TLogCapture::TLogCapture(std::int32_t threshold)
    : threshold_(TRootObject::GetCoreLogger()->GetLevel()) {
  TRootObject::GetCoreLogger()->ClearRecords();
  TRootObject::GetCoreLogger()->SetLevel(threshold);
}

TLogCapture::~TLogCapture() {
  for (const TLogRecord& record : TRootObject::GetCoreLogger()->GetRecords()) {
    if (record.level == 0) ADD_FAILURE() << "error in the log that nobody took: " << record.text;
  }
  TRootObject::GetCoreLogger()->ClearRecords();
  TRootObject::GetCoreLogger()->SetLevel(threshold_);
}

std::vector<std::string> TLogCapture::TakeLines() {
  std::vector<std::string> lines;
  for (const TLogRecord& record : TRootObject::GetCoreLogger()->GetRecords()) {
    const std::string mark = record.level == 0 ? "" : "[" + std::to_string(record.level) + "] ";
    lines.push_back(mark + record.text);
  }
  TRootObject::GetCoreLogger()->ClearRecords();
  return lines;
}

std::string TLogCapture::Take() {
  std::string joined;
  for (const std::string& line : TakeLines()) {
    if (!joined.empty()) joined += '\n';
    joined += line;
  }
  return joined;
}
