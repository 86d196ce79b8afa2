#include "core/startup/Attach.h"

#include <vskcore/core/ILogger.h>
#include <vskcore/core/TRootObject.h>
#include <vskcore/core/vskLog.h>
#include <vskcore/platform/TOSSpecific.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <limits>

#include "core/log/TLogger.h"
#include "core/startup/StartManagers.h"

namespace vsk::detail {

namespace {

// A library's path must be shorter, on every platform alike.
constexpr std::size_t kPathLimit = 250;

// What stands before the library's name, without the separator.
std::string FolderOf(const std::string& libraryPath) {
  return libraryPath.substr(0, libraryPath.rfind(TOSSpecific::kFileSeparator));
}

// As atoi reads it, but with an end at the limits of the type, where atoi is undefined. Who asks
// for more than there is gets warnings, not all that the log can tell.
std::int32_t LevelOf(const char* text) {
  const long level = std::strtol(text, nullptr, 10);
  if (level > 4) return 1;
  return static_cast<std::int32_t>(std::max<long>(level, std::numeric_limits<std::int32_t>::min()));
}

void LogFailure(const std::string& libraryPath, const std::string& what) noexcept {
  if (TRootObject::GetCoreLogger() == nullptr) return;
  try {
    const std::string document = CoreDocumentPath(FolderOf(libraryPath));
    const std::string text = "VSK core failed initialization: " + what + " (" + document + ")";
    vskWriteLog(nullptr, 0, text.c_str());
  } catch (...) {
    // There is no memory left for a line; the result has to tell alone.
  }
}

}  // namespace

bool AttachCore(const std::string& libraryPath) noexcept {
  try {
    CreateCoreLogger();
    if (libraryPath.empty() || libraryPath.size() >= kPathLimit) {
      vskWriteLog(nullptr, 0, "VSK core failed initialization!");
      return false;
    }
    return InitializeCore(FolderOf(libraryPath));
  } catch (const std::exception& exception) {
    LogFailure(libraryPath, exception.what());
  } catch (...) {
    LogFailure(libraryPath, "exception of unknown type");
  }
  return false;
}

bool InitializeCore(std::string folder) {
  const char* const level = std::getenv("HWQ_LOGLEVEL");
  if (level != nullptr) TRootObject::GetCoreLogger()->SetLevel(LevelOf(level));
  StartManagers(folder);
  return true;
}

}  // namespace vsk::detail
