// One loaded plug-in.
#ifndef VSKCORE_PLUGIN_TPLUGIN_H
#define VSKCORE_PLUGIN_TPLUGIN_H

#include <vskcore/core/vskExport.h>
#include <vskcore/plugin/IPlugin.h>

#include <string>
#include <vector>

// What IPluginManager::GetPlugins lists. It passes through: registered, listed with a path,
// initialised, documented; a failure stops it there and it stays listed. A copy refers to the same
// plug-in.
class VSK_EXPORT TPlugin : public IPlugin {
 public:
  explicit TPlugin(IPluginCallbacks* callbacks);  // not owned
  TPlugin(const TPlugin& other);
  TPlugin& operator=(const TPlugin& other);
  ~TPlugin() override;

  IPluginCallbacks* GetCallbacks() override;
  void Initialize() override;
  bool IsInitialized() override;
  const std::string GetPath() override;
  const std::string GetSpecificationPath() override;
  std::vector<TCIMClass*> GetClassesCollected() override;

  void SetPath(std::string path);  // of the library, once its load has returned
  // Reads the specification document into the plug-in manager's container and marks the classes
  // that it added with PLUGINNAME and PLUGINVERSION. What TContainer::PopulateContainerFromFile
  // throws passes on, with the classes as they were. Without declarations of the two qualifiers it
  // logs and throws vskStatusNotFound; the classes are stored then, unmarked. A mark of its own
  // that the document has made not overridable throws vskStatusNotOverridable, with the classes in
  // front of it marked.
  void LoadSpecificationDocument();

 private:
  IPluginCallbacks* callbacks_;
  std::vector<TCIMClass*> classes_;  // not owned
  std::string path_;
  bool initialized_;
  std::vector<std::string> classNames_;  // of classes_, to notice one that was removed since
};

#endif
