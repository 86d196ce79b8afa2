#include "core/base/Fail.h"

#include <vskcore/core/ILogger.h>
#include <vskcore/core/TRootObject.h>

namespace vsk::detail {

void LogError(const std::string& text) { TRootObject::GetCoreLogger()->Log(nullptr, 0, text); }

void LogDebug(const std::string& text) { TRootObject::GetCoreLogger()->Log(nullptr, 3, text); }

void Fail(vskStatus status, const std::string& text) {
  LogError(text);
  throw TVSKException(status);
}

}  // namespace vsk::detail
