// Finds, loads and lists plug-ins, and owns the container.
#ifndef VSKCORE_SRC_PLUGIN_TPLUGINMANAGER_H
#define VSKCORE_SRC_PLUGIN_TPLUGINMANAGER_H

#include <vskcore/core/vskStatus.h>
#include <vskcore/model/TContainer.h>
#include <vskcore/plugin/IPluginManager.h>
#include <vskcore/plugin/TPlugin.h>

#include <boost/shared_ptr.hpp>
#include <list>
#include <string>

// A library's own initialisation calls RegisterPlugin while LoadPlugin waits for the loader. What
// registers so is pending, and plugins_ stands still, until the load has come to its end. A plug-in
// may also load another one on its way: what is pending then stands aside for that time.
class TPluginManager : public IPluginManager {
 public:
  using TPlugin = ::TPlugin;

  // Plug-ins are sought one level below the folder. The container is empty at first.
  explicit TPluginManager(std::string folder);
  TPluginManager(const TPluginManager&) = delete;
  TPluginManager& operator=(const TPluginManager&) = delete;

  void LoadPlugins() override;
  void LoadPlugin(std::string path) override;
  IPlugin* RegisterPlugin(IPluginCallbacks* callbacks) override;
  std::list<boost::shared_ptr<TPlugin>>& GetPlugins() override;
  IPlugin* FindPlugin(std::string name) override;
  TContainer* GetContainer() override;

 private:
  class TLoad;

  bool IsLoaded(const std::string& path) const;
  // Lists, initialises and documents what the library of that path has registered.
  void CompletePendingPlugins(const std::string& path);

  std::string path_;
  std::list<boost::shared_ptr<TPlugin>> plugins_;
  std::list<boost::shared_ptr<TPlugin>> pending_;
  std::list<boost::shared_ptr<TPlugin>> dropped_;
  TContainer container_;
};

namespace vsk::detail {

// Creates the manager that TRootObject::GetPluginManager hands out. It belongs to the process.
vskStatus CreatePluginManager(const std::string& folder);

}  // namespace vsk::detail

#endif
