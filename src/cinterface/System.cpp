// What the machine is called, and its clock.
#include <vskcore/identity/TCIMSchemaHelper.h>
#include <vskcore/model/TCIMDateTime.h>
#include <vskcore/platform/TOSSpecific.h>
#include <vskcore/plugin/IPluginManager.h>
#include <vskcore/vskplugin.h>

#include <string>

#include "cinterface/Border.h"

using vsk::detail::AllGiven;
using vsk::detail::Guarded;

namespace {

// Fills the cache, empty at first, as soon as there is a text. Plug-ins keep the pointer: a text
// that went out once is never touched again, and the caches are never freed.
vskStatus GiveCached(const char* function, const char** name, std::string& cache,
                     std::string (*read)(TContainer*)) {
  if (!AllGiven(nullptr, function, "name", name)) return vskStatusFail;
  return Guarded(function, [&] {
    if (cache.empty()) cache = read(TRootObject::GetPluginManager()->GetContainer());
    *name = cache.empty() ? "" : cache.c_str();
  });
}

}  // namespace

vskStatus vskGetSystemCreationClassName(const char** name) {
  static std::string& cache = *new std::string;
  return GiveCached(__func__, name, cache, &TCIMSchemaHelper::GetSystemCreationClassName);
}

vskStatus vskGetSystemName(const char** name) {
  static std::string& cache = *new std::string;
  return GiveCached(__func__, name, cache, &TCIMSchemaHelper::GetSystemName);
}

vskStatus vskGetLocalTime(TCIMDateTime* datetime) {
  if (datetime == nullptr) {
    vsk::detail::Tell(nullptr, __func__, ": NULL datetime ");
    return vskStatusFail;
  }
  return Guarded(__func__, [&] { *datetime = TOSSpecific::GetLocalTime(); });
}
