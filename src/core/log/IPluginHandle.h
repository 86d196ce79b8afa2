// What stands behind a C plug-in's handle.
#ifndef VSKCORE_SRC_CORE_LOG_IPLUGINHANDLE_H
#define VSKCORE_SRC_CORE_LOG_IPLUGINHANDLE_H

class IPlugin;

namespace vsk::detail {

// A vskPluginHandle is the address of an object's IPluginCallbacks. Whatever the core hands out
// as a handle implements this as well, so that the log can name the plug-in without knowing the
// class of the object.
class IPluginHandle {
 public:
  virtual ~IPluginHandle() = default;

  // Null until the plug-in is registered.
  virtual IPlugin* GetPlugin() = 0;
};

}  // namespace vsk::detail

#endif
