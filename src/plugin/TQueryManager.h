// Drives a collection.
#ifndef VSKCORE_SRC_PLUGIN_TQUERYMANAGER_H
#define VSKCORE_SRC_PLUGIN_TQUERYMANAGER_H

#include <vskcore/core/vskStatus.h>
#include <vskcore/plugin/IQueryManager.h>

#include <string>
#include <vector>

class TCIMClass;

// Keeps nothing between collections: what is collected already, the classes' instances tell.
class TQueryManager : public IQueryManager {
 public:
  void QueryClasses(TContainer* target, std::vector<std::string> classNames) override;
  void QueryPlugin(IPlugin* plugin, TContainer* target, std::vector<std::string> classNames,
                   bool associations) override;

 private:
  // One pass over all plug-ins of type 0, in list order.
  void QueryAllPlugins(TContainer* target, const std::vector<std::string>& classNames,
                       bool associations);

  std::vector<TCIMClass*> askedFor_;  // at this moment, the innermost last
};

namespace vsk::detail {

// Creates the manager that TRootObject::GetQueryManager hands out. It belongs to the process.
vskStatus CreateQueryManager();

}  // namespace vsk::detail

#endif
