// What the loader runs. Part of the shared library alone, so that a test starts what it needs.
#include <string>

#include "core/startup/Attach.h"
#include "platform/LibraryPath.h"

namespace {

// "" when it can't be told, which fails the start in good order.
std::string OwnPath() noexcept {
  try {
    return vsk::detail::LibraryPath(reinterpret_cast<const void*>(&OwnPath));
  } catch (...) {
    return "";
  }
}

// The library is linked so that this runs behind the initialisation of all its static objects. The
// result can't stop the loader here: a host sees a failed start by the missing query manager.
__attribute__((constructor)) void Attach() noexcept { vsk::detail::AttachCore(OwnPath()); }

}  // namespace
