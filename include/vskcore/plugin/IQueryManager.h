// Runs collections.
#ifndef VSKCORE_PLUGIN_IQUERYMANAGER_H
#define VSKCORE_PLUGIN_IQUERYMANAGER_H

#include <vskcore/core/vskExport.h>

#include <string>
#include <vector>

class IPlugin;
class TContainer;

// One per process, from TRootObject::GetQueryManager; null there when the library failed to start.
// Runs wholly on the caller's thread. The order of the virtual operations is part of the contract.
class VSK_EXPORT IQueryManager {
 public:
  IQueryManager();
  IQueryManager(const IQueryManager&);
  IQueryManager& operator=(const IQueryManager&);
  virtual ~IQueryManager();

  // Asks every plug-in of type 0, in list order, for its classes that have no instances yet: first
  // all that are no associations, then the associations. Abstract classes and those with a true
  // DONTCOLLECT are left out. classNames restricts the collection to those exact names; empty means
  // all. The target must declare the classes; normally it is IPluginManager::GetContainer, whose
  // classes tell what has been collected already. The failure of a plug-in is logged and costs
  // only its call. A plug-in may call this while it is being asked; a turn in that collection for a
  // class that is being asked for already fails with vskStatusInvalidOpSequence.
  virtual void QueryClasses(TContainer* target, std::vector<std::string> classNames) = 0;
  // One plug-in, one pass; associations is true for the second.
  virtual void QueryPlugin(IPlugin* plugin, TContainer* target, std::vector<std::string> classNames,
                           bool associations) = 0;
};

#endif
