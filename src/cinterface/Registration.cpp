// Registration, and what a plug-in asks about itself.
#include <vskcore/vskplugin.h>

#include "cinterface/Border.h"
#include "cinterface/TCPluginCallbacks.h"

using vsk::detail::AllGiven;
using vsk::detail::Guarded;

vskStatus vskRegisterPlugin(const vskPluginCallbacks* callbacks, vskPluginHandle* pluginHandle) {
  // The adapter belongs to the plug-in from here on: the manager's list points to it for good.
  return Guarded(__func__, [&] { *pluginHandle = (new TCPluginCallbacks(*callbacks))->Handle(); });
}

vskStatus vskGetHandle(vskPluginHandle plugin, void** object) {
  *object = TCPluginCallbacks::FromHandle(plugin).GetPlugin();
  return vskStatusOK;
}

vskStatus vskGetPluginPath(vskPluginHandle plugin, const char** path) {
  TCPluginCallbacks& callbacks = TCPluginCallbacks::FromHandle(plugin);
  if (!AllGiven(callbacks.GetPlugin(), __func__, "path", path)) return vskStatusFail;
  *path = callbacks.GetPath();
  return vskStatusOK;
}
