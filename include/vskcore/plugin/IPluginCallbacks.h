// What every plug-in supplies.
#ifndef VSKCORE_PLUGIN_IPLUGINCALLBACKS_H
#define VSKCORE_PLUGIN_IPLUGINCALLBACKS_H

#include <vskcore/core/vskExport.h>

#include <cstdint>
#include <string>

// Implemented by the plug-in, called by the core, always on the thread of the host's call. The
// plug-in creates its object while its library is being loaded and gives it to
// TRootObject::GetPluginManager()->RegisterPlugin; it stays the plug-in's own, and must live until
// the process ends or until Destroy. One object derives from this class and from each further
// interface that it offers; the core finds those by dynamic_cast.
//
// The life of a plug-in: RegisterPlugin during the load; then, the load having returned, its path
// is known and Initialize is called once; then its specification document is read (types 0 and 1);
// then QueryClasses, up to twice for each collection (type 0, IPluginBasicQueryCallbacks).
//
//   class TMyPlugin : public IPluginCallbacks, public IPluginBasicQueryCallbacks { ... };
//   __attribute__((constructor)) static void Register() {
//     TRootObject::GetPluginManager()->RegisterPlugin(new TMyPlugin);
//   }
//
// No exception may leave that constructor: the loader would end the process. What can fail belongs
// in Initialize.
//
// The order of the virtual operations is part of the contract between separately compiled modules.
class VSK_EXPORT IPluginCallbacks {
 public:
  IPluginCallbacks();
  IPluginCallbacks(const IPluginCallbacks&);
  IPluginCallbacks& operator=(const IPluginCallbacks&);
  virtual ~IPluginCallbacks();  // never called by the core

  // 0: has a specification document and is asked during collections. 1: has a document and is
  // never asked. Any other: neither. Called after Initialize and before each pass of a collection;
  // must not throw.
  virtual std::int32_t GetType() = 0;
  // Stands in log lines, in the qualifier PLUGINNAME of the plug-in's classes, and in FindPlugin.
  // Called at any time from the registration on; must not throw.
  virtual std::string GetName() = 0;
  // Stands in the qualifier PLUGINVERSION. Must not throw.
  virtual std::string GetVersion() = 0;
  // A description for the host. Never called by the core.
  virtual std::string GetInfoText() = 0;
  // Ends the plug-in: afterwards the object no longer exists, and the host must not use it through
  // the core any more. Never called by the core.
  virtual void Destroy() = 0;
  // Called once, after the plug-in is listed and has its path. Any exception leaves it listed,
  // uninitialised and without a document, and nothing is logged for it.
  virtual void Initialize() = 0;
  // The host's counterpart of Initialize. Never called by the core.
  virtual void Finalize() = 0;
};

#endif
