#include "plugin/TPluginManager.h"

#include <vskcore/core/TRootObject.h>
#include <vskcore/core/vskLog.h>
#include <vskcore/platform/TOSSpecific.h>
#include <vskcore/plugin/IPluginCallbacks.h>

#include <algorithm>
#include <boost/make_shared.hpp>
#include <utility>

#include "core/base/Fail.h"

namespace {

IPluginManager* pluginManager = nullptr;

// False when the plug-in's Initialize throws. What it throws, of any type, is its own affair and is
// dropped: the plug-in stays listed, and IsInitialized tells.
bool TryInitialize(TPlugin& plugin) {
  try {
    plugin.Initialize();
    return true;
  } catch (...) {
    return false;
  }
}

bool HasSpecificationDocument(TPlugin& plugin) {
  const std::int32_t type = plugin.GetCallbacks()->GetType();
  return type == 0 || type == 1;
}

}  // namespace

// The length of one load. What registered before it, outside of any or within one around it, waits
// for its end and is not listed by it. What it leaves pending when it fails is never listed, but is
// kept, because the plug-in may still log under the entry that it was given.
class TPluginManager::TLoad {
 public:
  explicit TLoad(TPluginManager& manager) : manager_(manager) { before_.swap(manager_.pending_); }
  ~TLoad() {
    manager_.dropped_.splice(manager_.dropped_.end(), manager_.pending_);
    manager_.pending_.swap(before_);
  }
  TLoad(const TLoad&) = delete;
  TLoad& operator=(const TLoad&) = delete;

 private:
  TPluginManager& manager_;
  std::list<boost::shared_ptr<TPlugin>> before_;
};

IPluginManager* TRootObject::GetPluginManager() { return pluginManager; }

TPluginManager::TPluginManager(std::string folder) : path_(std::move(folder)) {}

void TPluginManager::LoadPlugins() {
  for (const std::string& path : TOSSpecific::FindPlugins(path_)) {
    try {
      LoadPlugin(path);
    } catch (const TVSKException&) {
      // Logged where it was detected. One bad plug-in never stops the others.
    }
  }
}

void TPluginManager::LoadPlugin(std::string path) {
  if (IsLoaded(path)) return;
  vsk::detail::LogDebug(path);
  const TLoad load(*this);
  try {
    TOSSpecific::LoadPluginLibrary(path);
  } catch (const TVSKException&) {
    vskWriteLog(nullptr, 0, ("DLL " + path + " failed to initialize properly").c_str());
    return;
  }
  CompletePendingPlugins(path);
}

IPlugin* TPluginManager::RegisterPlugin(IPluginCallbacks* callbacks) {
  pending_.push_back(boost::make_shared<TPlugin>(callbacks));
  return pending_.back().get();
}

std::list<boost::shared_ptr<TPlugin>>& TPluginManager::GetPlugins() { return plugins_; }

IPlugin* TPluginManager::FindPlugin(std::string name) {
  for (const boost::shared_ptr<TPlugin>& plugin : plugins_) {
    if (plugin->GetCallbacks()->GetName() == name) return plugin.get();
  }
  return nullptr;
}

TContainer* TPluginManager::GetContainer() { return &container_; }

bool TPluginManager::IsLoaded(const std::string& path) const {
  return std::any_of(plugins_.begin(), plugins_.end(),
                     [&](const auto& plugin) { return plugin->GetPath() == path; });
}

void TPluginManager::CompletePendingPlugins(const std::string& path) {
  while (!pending_.empty()) {
    const boost::shared_ptr<TPlugin> plugin = pending_.front();
    plugin->SetPath(path);
    plugins_.splice(plugins_.end(), pending_, pending_.begin());
    if (!TryInitialize(*plugin)) continue;
    if (HasSpecificationDocument(*plugin)) plugin->LoadSpecificationDocument();
  }
}

namespace vsk::detail {

vskStatus CreatePluginManager(const std::string& folder) {
  pluginManager = new TPluginManager(folder);
  return vskStatusOK;
}

}  // namespace vsk::detail
