// The door to the three objects that exist once per process.
#ifndef VSKCORE_CORE_TROOTOBJECT_H
#define VSKCORE_CORE_TROOTOBJECT_H

#include <vskcore/core/vskExport.h>

class ILogger;
class IPluginManager;
class IQueryManager;

// The library starts itself while the loader maps it: it creates the logger, the plug-in manager
// with the container inside it, reads data/core.properties.xml from its own folder, and creates
// the query manager last. So a null query manager tells a host that the start failed; the log
// says why. Starting loads no plug-in and collects nothing. A host goes on in this order:
//
//   TRootObject::GetPluginManager()->LoadPlugins();
//   TContainer* container = TRootObject::GetPluginManager()->GetContainer();
//   TRootObject::GetQueryManager()->QueryClasses(container, {});
//
// The objects belong to the process and are never freed. The environment variable HWQ_LOGLEVEL,
// a decimal number, sets the log's threshold at the start (2 without it; above 4 counts as 1).
class VSK_EXPORT TRootObject {
 public:
  static ILogger* GetCoreLogger();            // null when not even that was made
  static IPluginManager* GetPluginManager();  // null when start-up did not get that far
  static IQueryManager* GetQueryManager();    // null when the start failed
};

#endif
