// Libraries in the process.
#include <dlfcn.h>
#include <vskcore/core/TVSKException.h>
#include <vskcore/platform/TOSSpecific.h>

#include "core/base/Fail.h"
#include "platform/LibraryPath.h"

using std::string;
using vsk::detail::LogDebug;

void TOSSpecific::LoadPluginLibrary(string path) {
  // A bare name would be sought in the system's folders, and an empty one mean this program.
  if (path.find(kFileSeparator) == string::npos) path.insert(0, "." + kFileSeparator);
  // cppcheck-suppress leakReturnValNotUsed ; never unloaded, so nobody keeps the handle
  if (dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL) != nullptr) return;
  const char* const reason = dlerror();
  LogDebug(reason != nullptr ? reason : path);
  throw TVSKException(vskStatusFileSystemError);
}

string vsk::detail::LibraryPath(const void* addressInside) {
  Dl_info info;
  if (dladdr(addressInside, &info) == 0 || info.dli_fname == nullptr) return "";
  string path = info.dli_fname;
  if (path.empty() || path[0] == '/') return path;
  if (path.compare(0, 2, "./") == 0) path.erase(0, 2);
  try {
    return TOSSpecific::GetCurrentDir() + '/' + path;
  } catch (const TVSKException&) {
    return "";
  }
}
