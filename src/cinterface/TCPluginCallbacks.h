// A plug-in in C, as the core sees it.
#ifndef VSKCORE_SRC_CINTERFACE_TCPLUGINCALLBACKS_H
#define VSKCORE_SRC_CINTERFACE_TCPLUGINCALLBACKS_H

#include <vskcore/plugin/IPluginBasicQueryCallbacks.h>
#include <vskcore/plugin/IPluginCallbacks.h>
#include <vskcore/vskplugin.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "core/log/IPluginHandle.h"

// Adapts the plug-in's table of functions to the interfaces of the core. Its address is the
// plug-in's handle. It lives from the registration until a successful Destroy, else until the
// process ends; the plug-in manager only points to it.
class TCPluginCallbacks : public IPluginCallbacks,
                          public IPluginBasicQueryCallbacks,
                          public vsk::detail::IPluginHandle {
 public:
  // Copies the table and registers itself.
  explicit TCPluginCallbacks(const vskPluginCallbacks& table);
  TCPluginCallbacks(const TCPluginCallbacks&) = delete;
  TCPluginCallbacks& operator=(const TCPluginCallbacks&) = delete;

  static TCPluginCallbacks& FromHandle(vskPluginHandle handle);
  vskPluginHandle Handle();

  // Each asks the plug-in anew.
  std::int32_t GetType() override;
  std::string GetName() override;
  std::string GetVersion() override;
  std::string GetInfoText() override;
  // These throw the plug-in's status when it is not 0; a Destroy that works deletes this object.
  void Destroy() override;
  void Initialize() override;
  void Finalize() override;
  virtual std::uint32_t GetExtra();

  // Makes a handle, asks the plug-in, and adds the instance that is still open. Throws the
  // plug-in's status, with the open instance dropped, or what adding it throws.
  void QueryClasses(TContainer* target, const std::vector<TCIMClass*>& classes) override;

  IPlugin* GetPlugin() override { return plugin_; }
  // Null until Initialize.
  const char* GetPath() const { return path_ ? path_->c_str() : nullptr; }

 private:
  vskPluginCallbacks table_;
  IPlugin* plugin_;
  std::unique_ptr<const std::string> path_;
};

#endif
