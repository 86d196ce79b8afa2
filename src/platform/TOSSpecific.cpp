// What is the same on every platform.
#include <vskcore/core/TVSKException.h>
#include <vskcore/platform/TOSSpecific.h>

#include <chrono>
#include <thread>

using std::string;

string TOSSpecific::BuildSpecificationPath(string pluginPath) {
  const string::size_type end = pluginPath.find(kPluginExtension);
  if (end == string::npos) throw TVSKException(vskStatusFail);
  return pluginPath.substr(0, end) + kSpecificationExtension;
}

string TOSSpecific::GetOperatingSystemName() { return GetMachineName(); }

void TOSSpecific::USleep(unsigned int count) {
  std::this_thread::sleep_for(std::chrono::milliseconds(count));
}
