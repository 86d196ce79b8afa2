#include <vskcore/core/ILogger.h>
#include <vskcore/core/TRootObject.h>
#include <vskcore/core/vskLog.h>
#include <vskcore/plugin/IPluginCallbacks.h>

#include "core/log/IPluginHandle.h"
#include "core/log/TLogger.h"

namespace {

// Null for the core.
IPlugin* PluginOf(vskPluginHandle handle) {
  auto* const callbacks = reinterpret_cast<IPluginCallbacks*>(handle);
  auto* const named = dynamic_cast<vsk::detail::IPluginHandle*>(callbacks);
  return named == nullptr ? nullptr : named->GetPlugin();
}

}  // namespace

void vskWriteLog(vskPluginHandle handle, int32_t level, const char* text) {
  try {
    ILogger* const logger = TRootObject::GetCoreLogger();
    if (vsk::detail::IsDropped(level, logger->GetLevel())) return;  // before a string is made of it
    if (text == nullptr) return logger->Log(nullptr, level, "vskWriteLog: NULL text parameter");
    logger->Log(PluginOf(handle), level, text);
  } catch (...) {
    // The caller may be C and could not be told. What is lost is at most this line.
  }
}
