#include "Collection.h"

#include <vskcore/core/ILogger.h>
#include <vskcore/core/TLogRecord.h>
#include <vskcore/core/TRootObject.h>
#include <vskcore/core/TVSKException.h>
#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMPropertyDecl.h>
#include <vskcore/model/TContainer.h>
#include <vskcore/plugin/IPluginCallbacks.h>
#include <vskcore/plugin/IPluginManager.h>
#include <vskcore/plugin/IQueryManager.h>
#include <vskcore/plugin/TPlugin.h>

#include <algorithm>
#include <iostream>
#include <utility>

#include "Order.h"

namespace {

// The last error that the log has kept; the log may have been told to keep none.
std::string LastError() {
  const std::list<TLogRecord>& records = TRootObject::GetCoreLogger()->GetRecords();
  const auto last = std::find_if(records.rbegin(), records.rend(),
                                 [](const TLogRecord& record) { return record.level == 0; });
  return last == records.rend() ? "HWQ_LOGLEVEL=0 makes it say why" : last->text;
}

void LoadPlugins(IPluginManager& manager) {
  try {
    manager.LoadPlugins();
  } catch (const TVSKException& exception) {
    throw THostFailure(kExitFailed,
                       std::string("the plug-ins can't be searched: ") + exception.what());
  }
  // The core says nothing about these.
  for (const auto& plugin : manager.GetPlugins()) {
    if (plugin->IsInitialized()) continue;
    std::cerr << "vsk: plug-in " << plugin->GetCallbacks()->GetName() << " (" << plugin->GetPath()
              << ") did not initialise\n";
  }
}

bool IsNameLike(const std::string& name) {
  return !name.empty() && std::all_of(name.begin(), name.end(), [](char letter) {
    return letter == '_' || (letter >= '0' && letter <= '9') || (letter >= 'A' && letter <= 'Z') ||
           (letter >= 'a' && letter <= 'z');
  }) && (name[0] < '0' || name[0] > '9');
}

// The class of that name and all that derive from it: a base stands for its kinds.
std::vector<TCIMClass*> Family(const TContainer& container, const std::string& name) {
  TCIMClass& named = ClassOrFailure(container, name);
  std::vector<TCIMClass*> family = named.EnumerateSubClasses(true);
  family.push_back(&named);
  return family;
}

std::vector<TCIMClass*> Wanted(const TContainer& container, const TArguments& arguments) {
  if (arguments.classNames.empty()) return container.GetRootClass().EnumerateSubClasses(true);
  std::vector<TCIMClass*> wanted;
  for (const std::string& name : arguments.classNames) {
    for (TCIMClass* member : Family(container, name)) {
      if (std::find(wanted.begin(), wanted.end(), member) == wanted.end()) {
        wanted.push_back(member);
      }
    }
  }
  return wanted;
}

void AppendNames(const std::vector<TCIMClass*>& classes, std::vector<std::string>& names) {
  for (const TCIMClass* cimClass : classes) names.push_back(cimClass->GetName());
}

// The names to ask for: what is wanted, and what its associations join, or they'd join nothing.
std::vector<std::string> NamesToCollect(const std::vector<TCIMClass*>& wanted) {
  std::vector<std::string> names;
  AppendNames(wanted, names);
  for (const TCIMClass* cimClass : wanted) {
    for (const TCIMPropertyDecl* declaration : cimClass->EnumeratePropertyDecls()) {
      const TCIMClass* end = declaration->GetValue().FindReferencedClass();
      if (end == nullptr) continue;
      names.push_back(end->GetName());
      AppendNames(end->EnumerateSubClasses(true), names);
    }
  }
  return names;
}

std::string WhyNothing(IPluginManager& manager, const TArguments& arguments) {
  std::string reason = "nothing could be collected";
  if (manager.GetPlugins().empty()) return reason + ": there are no plug-ins";
  const char* separator = " for ";
  for (const std::string& name : arguments.classNames) {
    reason += std::exchange(separator, ", ") + name;
  }
  return reason;
}

}  // namespace

TContainer& LoadCore(const TArguments& arguments) {
  if (TRootObject::GetQueryManager() == nullptr) {
    throw THostFailure(kExitFailed, "the core did not start: " + LastError());
  }
  if (arguments.logLevel) TRootObject::GetCoreLogger()->SetLevel(*arguments.logLevel);
  IPluginManager& manager = *TRootObject::GetPluginManager();
  LoadPlugins(manager);
  return *manager.GetContainer();
}

TCIMClass& ClassOrFailure(const TContainer& container, const std::string& name) {
  // The core would log an error about a text that is no name at all.
  TCIMClass* named = IsNameLike(name) ? container.FindClass(name) : nullptr;
  if (named == nullptr) throw THostFailure(kExitCommandLine, "there is no class \"" + name + '"');
  return *named;
}

std::vector<const TCIMClass*> Collect(const TArguments& arguments) {
  TContainer& container = LoadCore(arguments);
  const std::vector<TCIMClass*> wanted = Wanted(container, arguments);
  const bool all = arguments.classNames.empty();
  TRootObject::GetQueryManager()->QueryClasses(
      &container, all ? std::vector<std::string>() : NamesToCollect(wanted));

  std::vector<const TCIMClass*> filled;
  for (const TCIMClass* cimClass : wanted) {
    if (!cimClass->EnumerateInstances(false).empty()) filled.push_back(cimClass);
  }
  if (filled.empty()) {
    throw THostFailure(kExitFailed, WhyNothing(*TRootObject::GetPluginManager(), arguments));
  }
  return InDisplayOrder(std::move(filled));
}
