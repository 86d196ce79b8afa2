// Asking a plug-in for single instances.
#ifndef VSKCORE_PLUGIN_IPLUGINADVANCEDQUERYCALLBACKS_H
#define VSKCORE_PLUGIN_IPLUGINADVANCEDQUERYCALLBACKS_H

#include <vskcore/core/vskExport.h>

#include <vector>

class TCIMClass;
class TCIMReference;
class TContainer;

// A plug-in may implement this beside IPluginCallbacks for the host's sake, which finds it by
// dynamic_cast. The core never calls it and never tests for it.
class VSK_EXPORT IPluginAdvancedQueryCallbacks {
 public:
  IPluginAdvancedQueryCallbacks();
  IPluginAdvancedQueryCallbacks(const IPluginAdvancedQueryCallbacks&);
  IPluginAdvancedQueryCallbacks& operator=(const IPluginAdvancedQueryCallbacks&);
  virtual ~IPluginAdvancedQueryCallbacks();

  // The paths of all instances that a query for that class would give, without collecting them.
  virtual std::vector<TCIMReference> EnumerateInstanceNames(TCIMClass* cimClass) = 0;
  // Collects the one instance of that path into the container.
  virtual void QueryInstance(TContainer* target, const TCIMReference& path) = 0;
};

#endif
