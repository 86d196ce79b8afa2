// Letting a plug-in change the machine.
#ifndef VSKCORE_PLUGIN_IPLUGINWRITECALLBACKS_H
#define VSKCORE_PLUGIN_IPLUGINWRITECALLBACKS_H

#include <vskcore/core/vskExport.h>

class TCIMInstance;
class TCIMReference;

// A plug-in may implement this beside IPluginCallbacks for the host's sake, which finds it by
// dynamic_cast. The core never calls it and never tests for it.
class VSK_EXPORT IPluginWriteCallbacks {
 public:
  IPluginWriteCallbacks();
  IPluginWriteCallbacks(const IPluginWriteCallbacks&);
  IPluginWriteCallbacks& operator=(const IPluginWriteCallbacks&);
  virtual ~IPluginWriteCallbacks();

  // Makes the machine's object of the instance's path agree with the instance.
  virtual void ModifyInstance(const TCIMInstance& instance) = 0;
  // Removes the machine's object of that path.
  virtual void DeleteInstance(const TCIMReference& path) = 0;
};

#endif
