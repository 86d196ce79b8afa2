// How the core tells of a failure: found, logged and thrown at one place.
#ifndef VSKCORE_SRC_CORE_BASE_FAIL_H
#define VSKCORE_SRC_CORE_BASE_FAIL_H

#include <vskcore/core/TVSKException.h>

#include <string>

namespace vsk::detail {

// Log text for the core, as an error (level 0) or for debugging (level 3).
void LogError(const std::string& text);
void LogDebug(const std::string& text);

// Logs text as an error of the core, then throws status. Does not return.
[[noreturn]] void Fail(vskStatus status, const std::string& text);

// Makes every Get... out of its Find...: throws vskStatusNotFound for null.
template <typename TFound>
TFound& Require(TFound* found) {
  if (found == nullptr) throw TVSKException(vskStatusNotFound);
  return *found;
}

}  // namespace vsk::detail

#endif
