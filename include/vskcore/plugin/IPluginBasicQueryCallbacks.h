// The collecting side of a plug-in.
#ifndef VSKCORE_PLUGIN_IPLUGINBASICQUERYCALLBACKS_H
#define VSKCORE_PLUGIN_IPLUGINBASICQUERYCALLBACKS_H

#include <vskcore/core/vskExport.h>

#include <vector>

class TCIMClass;
class TContainer;

// Implemented by plug-ins of type 0 beside IPluginCallbacks, on the same object.
class VSK_EXPORT IPluginBasicQueryCallbacks {
 public:
  IPluginBasicQueryCallbacks();
  IPluginBasicQueryCallbacks(const IPluginBasicQueryCallbacks&);
  IPluginBasicQueryCallbacks& operator=(const IPluginBasicQueryCallbacks&);
  virtual ~IPluginBasicQueryCallbacks();

  // Creates instances of those classes in that container (TContainer::AllocateInstance, fill,
  // AddToContainer). Called at most twice for one collection, on the host's thread: first with the
  // classes that are no associations, then, when all plug-ins have had that pass, with the
  // associations. classes is never empty and holds only concrete classes of this plug-in that have
  // no instances yet; the pointers are valid while the container lives. An exception derived from
  // std::exception is logged and costs only this call; throw nothing else.
  virtual void QueryClasses(TContainer* target, const std::vector<TCIMClass*>& classes) = 0;
};

#endif
