// The core's face of a plug-in.
#ifndef VSKCORE_PLUGIN_IPLUGIN_H
#define VSKCORE_PLUGIN_IPLUGIN_H

#include <vskcore/core/vskExport.h>

#include <string>
#include <vector>

class IPluginCallbacks;
class TCIMClass;

// Handed out by IPluginManager, which owns it until the process ends. The order of the virtual
// operations is part of the contract.
class VSK_EXPORT IPlugin {
 public:
  IPlugin();
  IPlugin(const IPlugin&);
  IPlugin& operator=(const IPlugin&);
  virtual ~IPlugin();

  // The plug-in's own object; not owned by the core.
  virtual IPluginCallbacks* GetCallbacks() = 0;
  // Calls the plug-in's Initialize; its exception passes on and leaves it uninitialised.
  virtual void Initialize() = 0;
  virtual bool IsInitialized() = 0;  // whether Initialize has returned
  // The library's path; empty until the load has returned.
  virtual const std::string GetPath() = 0;
  // The path of its specification document. Throws vskStatusFail when the library's path holds no
  // plug-in extension.
  virtual const std::string GetSpecificationPath() = 0;
  // The classes that its document added to the container, in document order; one that stood there
  // before is not among them, nor is one that was removed since. The container owns them. Throws
  // vskStatusFail when there are none.
  virtual std::vector<TCIMClass*> GetClassesCollected() = 0;
};

#endif
