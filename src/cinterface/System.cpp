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

// Fills the cache on the first call that works. The text is never freed: plug-ins keep the pointer.
vskStatus GiveCached(const char* function, const char** name, const std::string*& cache,
                     std::string (*read)(TContainer*)) {
  if (!AllGiven(nullptr, function, "name", name)) return vskStatusFail;
  return Guarded(function, [&] {
    if (cache == nullptr) {
      cache = new std::string(read(TRootObject::GetPluginManager()->GetContainer()));
    }
    *name = cache->c_str();
  });
}

}  // namespace

vskStatus vskGetSystemCreationClassName(const char** name) {
  static const std::string* cache = nullptr;
  return GiveCached(__func__, name, cache, &TCIMSchemaHelper::GetSystemCreationClassName);
}

vskStatus vskGetSystemName(const char** name) {
  static const std::string* cache = nullptr;
  return GiveCached(__func__, name, cache, &TCIMSchemaHelper::GetSystemName);
}

vskStatus vskGetLocalTime(TCIMDateTime* datetime) {
  if (datetime == nullptr) {
    vsk::detail::Tell(nullptr, __func__, ": NULL datetime ");
    return vskStatusFail;
  }
  return Guarded(__func__, [&] { *datetime = TOSSpecific::GetLocalTime(); });
}
