// What every collector plug-in is.
#ifndef VSKCORE_COLLECTORS_COMMON_TCOLLECTOR_H
#define VSKCORE_COLLECTORS_COMMON_TCOLLECTOR_H

#include <vskcore/plugin/IPluginBasicQueryCallbacks.h>
#include <vskcore/plugin/IPluginCallbacks.h>

#include <string>
#include <vector>

class IPlugin;
class TSource;

// A name and a function for each class. The function reads the machine and adds instances; one
// that throws costs only its own class, and the log says so. One object exists per library; it
// lives until Destroy.
//
//   const bool registered = TCollector::Register("disk", "Disks and what is on them",
//                                                {{"ZNTSG_DiskDrive", CollectDiskDrives}});
class TCollector : public IPluginCallbacks, public IPluginBasicQueryCallbacks {
 public:
  struct TEntry {
    const char* className;
    void (*collect)(const TSource& source, TContainer& target, TCIMClass& cimClass);
  };

  // Called while the library is being loaded, from the initialiser of a static object. False when
  // there is no core to register with.
  static bool Register(const char* name, const char* info, std::vector<TEntry> entries);

  std::int32_t GetType() override;
  std::string GetName() override;
  std::string GetVersion() override;
  std::string GetInfoText() override;
  void Destroy() override;
  void Initialize() override;
  void Finalize() override;

  void QueryClasses(TContainer* target, const std::vector<TCIMClass*>& classes) override;

 private:
  TCollector(const char* name, const char* info, std::vector<TEntry> entries);
  void QueryClass(const TSource& source, TContainer& target, TCIMClass& cimClass);

  const char* name_;
  const char* info_;
  std::vector<TEntry> entries_;
  IPlugin* plugin_;  // what the core knows this object as; not owned
};

#endif
