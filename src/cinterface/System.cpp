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
template <std::string (*kRead)(TContainer*)>
vskStatus GiveCached(const char* function, const char** name) {
  if (!AllGiven(nullptr, function, "name", name)) return vskStatusFail;
  return Guarded(function, [&] {
    static std::string& cache = *new std::string;
    if (cache.empty()) cache = kRead(TRootObject::GetPluginManager()->GetContainer());
    *name = cache.empty() ? "" : cache.c_str();
  });
}

}  // namespace

vskStatus vskGetSystemCreationClassName(const char** name) {
  return GiveCached<&TCIMSchemaHelper::GetSystemCreationClassName>(__func__, name);
}

vskStatus vskGetSystemName(const char** name) {
  return GiveCached<&TCIMSchemaHelper::GetSystemName>(__func__, name);
}

vskStatus vskGetLocalTime(TCIMDateTime* datetime) {
  if (datetime == nullptr) {
    vsk::detail::Tell(nullptr, __func__, ": NULL datetime ");
    return vskStatusFail;
  }
  return Guarded(__func__, [&] { *datetime = TOSSpecific::GetLocalTime(); });
}
