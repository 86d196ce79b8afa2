// Finds, loads and lists plug-ins, and owns the container.
#ifndef VSKCORE_PLUGIN_IPLUGINMANAGER_H
#define VSKCORE_PLUGIN_IPLUGINMANAGER_H

#include <vskcore/core/vskExport.h>

#include <boost/shared_ptr.hpp>
#include <list>
#include <string>

class IPlugin;
class IPluginCallbacks;
class TContainer;
class TPlugin;

// One per process, from TRootObject::GetPluginManager. Everything runs on the caller's thread. The
// order of the virtual operations is part of the contract.
class VSK_EXPORT IPluginManager {
 public:
  IPluginManager();
  IPluginManager(const IPluginManager&);
  IPluginManager& operator=(const IPluginManager&);
  virtual ~IPluginManager();

  // Loads every plug-in library one level below the library's own folder. A plug-in that fails at
  // any stage costs only itself and, when it is its document that fails, those that the same
  // library registered behind it; the log tells, or IPlugin::IsInitialized. Throws
  // vskStatusFileSystemError when the folder can't be searched.
  virtual void LoadPlugins() = 0;
  // Loads one library, unless a listed plug-in has that very path; initialises what it registers
  // and reads its specification document. A library that can't be loaded is logged and no failure.
  // Throws what reading a document throws; the plug-in stays listed then, and what its library
  // registered behind it is dropped. A plug-in may call this, even from its own load.
  virtual void LoadPlugin(std::string path) = 0;
  // Called by a plug-in while its library is being loaded, once for each object that it offers.
  // The object stays the plug-in's; the manager owns the entry that is returned. Outside a load it
  // has no effect: the entry goes with the next LoadPlugin.
  virtual IPlugin* RegisterPlugin(IPluginCallbacks* callbacks) = 0;
  // All plug-ins in the order of loading; collections ask them in this order.
  virtual std::list<boost::shared_ptr<TPlugin>>& GetPlugins() = 0;
  // The first of that exact name, null when there is none.
  virtual IPlugin* FindPlugin(std::string name) = 0;
  // The schema and, after a collection, the data. Lives until the process ends.
  virtual TContainer* GetContainer() = 0;
};

#endif
