#include "plugin/TQueryManager.h"

#include <vskcore/core/ILogger.h>
#include <vskcore/core/TRootObject.h>
#include <vskcore/model/TCIMClass.h>
#include <vskcore/plugin/IPlugin.h>
#include <vskcore/plugin/IPluginBasicQueryCallbacks.h>
#include <vskcore/plugin/IPluginCallbacks.h>
#include <vskcore/plugin/IPluginManager.h>
#include <vskcore/plugin/TPlugin.h>

#include <algorithm>

#include "core/base/Fail.h"
#include "model/TQualifierTable.h"

using vsk::detail::Fail;
using vsk::detail::LogDebug;
using vsk::detail::LogError;

namespace {

IQueryManager* queryManager = nullptr;

IPluginBasicQueryCallbacks& QueryCallbacks(IPlugin& plugin) {
  auto* callbacks = dynamic_cast<IPluginBasicQueryCallbacks*>(plugin.GetCallbacks());
  if (callbacks == nullptr) {
    Fail(vskStatusInvalidPlugin, "Plugin " + plugin.GetCallbacks()->GetName() +
                                     " doesn't support the IPluginBasicQueryCallbacks.");
  }
  return *callbacks;
}

// An empty list names every class.
bool IsNamed(const TCIMClass& cimClass, const std::vector<std::string>& classNames) {
  return classNames.empty() ||
         std::find(classNames.begin(), classNames.end(), cimClass.GetName()) != classNames.end();
}

// Whether the class still lacks data that this pass is to bring.
bool IsWanted(const TCIMClass& cimClass, const std::vector<std::string>& classNames,
              bool associations) {
  return IsNamed(cimClass, classNames) && !cimClass.IsAbstract() &&
         !vsk::detail::IsTrue(cimClass.FindQualifier("DONTCOLLECT")) &&
         cimClass.EnumerateInstances(false).empty() && cimClass.IsAssociation() == associations;
}

void LogAsking(IPlugin& plugin, const TCIMClass& cimClass) {
  if (TRootObject::GetCoreLogger()->GetLevel() < 3) return;
  LogDebug("Asking plugin " + plugin.GetCallbacks()->GetName() + " for " + cimClass.GetName());
}

std::vector<TCIMClass*> WantedClasses(IPlugin& plugin, const std::vector<std::string>& classNames,
                                      bool associations) {
  std::vector<TCIMClass*> wanted;
  for (TCIMClass* cimClass : plugin.GetClassesCollected()) {
    if (!IsWanted(*cimClass, classNames, associations)) continue;
    LogAsking(plugin, *cimClass);
    wanted.push_back(cimClass);
  }
  return wanted;
}

// The stay of classes in the list of those that are being asked for. A plug-in that calls for a
// collection of such a one from within would be asked without end.
class TAsked {
 public:
  TAsked(std::vector<TCIMClass*>& all, const std::vector<TCIMClass*>& wanted)
      : all_(all), before_(all.size()) {
    if (std::find_first_of(all.begin(), all.end(), wanted.begin(), wanted.end()) != all.end()) {
      throw TVSKException(vskStatusInvalidOpSequence);
    }
    all_.insert(all_.end(), wanted.begin(), wanted.end());
  }
  ~TAsked() { all_.resize(before_); }
  TAsked(const TAsked&) = delete;
  TAsked& operator=(const TAsked&) = delete;

 private:
  std::vector<TCIMClass*>& all_;
  const std::size_t before_;
};

}  // namespace

IQueryManager* TRootObject::GetQueryManager() { return queryManager; }

void TQueryManager::QueryClasses(TContainer* target, std::vector<std::string> classNames) {
  QueryAllPlugins(target, classNames, false);
  QueryAllPlugins(target, classNames, true);
}

void TQueryManager::QueryPlugin(IPlugin* plugin, TContainer* target,
                                std::vector<std::string> classNames, bool associations) {
  try {
    IPluginBasicQueryCallbacks& callbacks = QueryCallbacks(*plugin);
    const std::vector<TCIMClass*> wanted = WantedClasses(*plugin, classNames, associations);
    if (wanted.empty()) return;
    const TAsked asked(askedFor_, wanted);
    callbacks.QueryClasses(target, wanted);
  } catch (const std::exception& exception) {
    // Costs only this plug-in's pass.
    LogError("Plugin " + plugin->GetCallbacks()->GetName() + " threw exception " +
             exception.what());
  }
}

void TQueryManager::QueryAllPlugins(TContainer* target, const std::vector<std::string>& classNames,
                                    bool associations) {
  for (const boost::shared_ptr<TPlugin>& plugin : TRootObject::GetPluginManager()->GetPlugins()) {
    if (plugin->GetCallbacks()->GetType() != 0) continue;
    QueryPlugin(plugin.get(), target, classNames, associations);
  }
}

namespace vsk::detail {

vskStatus CreateQueryManager() {
  queryManager = new TQueryManager;
  return vskStatusOK;
}

}  // namespace vsk::detail
