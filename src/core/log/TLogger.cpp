#include "core/log/TLogger.h"

#include <vskcore/core/TRootObject.h>
#include <vskcore/core/TVSKException.h>
#include <vskcore/platform/TOSSpecific.h>
#include <vskcore/plugin/IPlugin.h>
#include <vskcore/plugin/IPluginCallbacks.h>

using std::string;
using vsk::detail::kRecordOnly;

namespace {

constexpr std::int32_t kVerbose = 4;
constexpr std::int32_t kMaxDataLength = 10240;

const char kDigits[] = "0123456789abcdef";
const char* const kTags[] = {"[Error] ", "[Warning] ", "[Status] ", "[Debug] ", "[Verbose] "};

ILogger* coreLogger = nullptr;

const char* Tag(std::int32_t level) {
  if (level < 0 || level > kVerbose) throw TVSKException(vskStatusFail);
  return kTags[level];
}

string Line(IPlugin* plugin, std::int32_t level, const string& text) {
  const string name = plugin == nullptr ? "Core" : plugin->GetCallbacks()->GetName();
  const string tag = Tag(level);
  string line;
  line.reserve(name.size() + tag.size() + text.size() + 7);
  return line.append("VSK_").append(name).append(": ").append(tag).append(text).append("\n");
}

string Dump(const void* data, std::int32_t length) {
  const auto* const bytes = static_cast<const unsigned char*>(data);
  string text;
  if (length > 0) text.reserve(static_cast<std::size_t>(length) * 3);
  for (std::int32_t i = 0; i < length; ++i) {
    text += {kDigits[bytes[i] >> 4], kDigits[bytes[i] & 15], ' '};
  }
  return text;
}

// NULL while the clock stands where no timestamp reaches: that must not cost the message.
TCIMDateTime Now() {
  try {
    return TOSSpecific::GetLocalTime();
  } catch (const TVSKException&) {
    return TCIMDateTime();
  }
}

}  // namespace

ILogger::ILogger() = default;
ILogger::ILogger(const ILogger&) = default;
ILogger& ILogger::operator=(const ILogger&) = default;
ILogger::~ILogger() = default;

ILogger* TRootObject::GetCoreLogger() { return coreLogger; }

void TLogger::LogData(IPlugin* plugin, std::int32_t level, const void* data, std::int32_t length) {
  if (length > kMaxDataLength) return Log(nullptr, 0, "Too much data to log--10k limit!");
  if (level == kRecordOnly || level > level_) return;
  Deliver(plugin, level, Dump(data, length));
}

void TLogger::Log(IPlugin* plugin, std::int32_t level, const string& text) {
  if (vsk::detail::IsDropped(level, level_)) return;
  if (level == kRecordOnly) return AddRecord(plugin, level, text);
  Deliver(plugin, level, text);
}

void TLogger::Deliver(IPlugin* plugin, std::int32_t level, const string& text) {
  if (level < kVerbose) AddRecord(plugin, level, text);
  TOSSpecific::OutputLogString(Line(plugin, level, text));
}

void TLogger::AddRecord(IPlugin* plugin, std::int32_t level, const string& text) {
  records_.push_back({plugin, level, text, Now()});
}

namespace vsk::detail {

vskStatus CreateCoreLogger() {
  if (coreLogger == nullptr) coreLogger = new TLogger;
  return vskStatusOK;
}

}  // namespace vsk::detail
