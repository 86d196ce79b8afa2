#include "PluginReport.h"

#include <vskcore/core/TRootObject.h>
#include <vskcore/core/TVSKException.h>
#include <vskcore/model/TCIMClass.h>
#include <vskcore/plugin/IPluginCallbacks.h>
#include <vskcore/plugin/IPluginManager.h>
#include <vskcore/plugin/TPlugin.h>

#include <vector>

#include "Collection.h"
#include "Printable.h"

namespace {

std::string TypeText(std::int32_t type) {
  const std::string number = std::to_string(type);
  if (type == 0) return number + " (collects)";
  return type == 1 ? number + " (declares only)" : number + " (neither declares nor collects)";
}

// The core tells of a plug-in without classes by an exception.
std::vector<TCIMClass*> ClassesOf(TPlugin& plugin) {
  try {
    return plugin.GetClassesCollected();
  } catch (const TVSKException&) {
    return {};
  }
}

std::string Block(TPlugin& plugin) {
  IPluginCallbacks& callbacks = *plugin.GetCallbacks();
  std::string block = Printable(callbacks.GetName() + " " + callbacks.GetVersion()) + '\n';
  block += "  Type         " + TypeText(callbacks.GetType()) + '\n';
  block += "  Path         " + Printable(plugin.GetPath()) + '\n';
  block += std::string("  Initialised  ") + (plugin.IsInitialized() ? "yes" : "no") + '\n';
  const char* label = "  Classes      ";
  for (const TCIMClass* cimClass : ClassesOf(plugin)) {
    block += label + cimClass->GetName() + '\n';
    label = "               ";
  }
  return block;
}

}  // namespace

std::string PluginReport(const TArguments& arguments) {
  LoadCore(arguments);
  std::string report;
  for (const auto& plugin : TRootObject::GetPluginManager()->GetPlugins()) {
    report += (report.empty() ? "" : "\n") + Block(*plugin);
  }
  if (report.empty()) throw THostFailure(kExitFailed, "there are no plug-ins");
  return report;
}
