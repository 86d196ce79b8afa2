// A plug-in of one class: how much randomness the kernel has gathered.
#include <vskcore/vskcore.h>

#include <fstream>
#include <memory>

namespace {

class TEntropyPlugin : public IPluginCallbacks, public IPluginBasicQueryCallbacks {
 public:
  std::int32_t GetType() override { return 0; }  // has a document, and is asked
  std::string GetName() override { return "entropy"; }
  std::string GetVersion() override { return "1.0.0"; }
  std::string GetInfoText() override { return "The kernel's pool of randomness"; }
  void Destroy() override {}  // a static object: it goes with the process
  void Initialize() override {}
  void Finalize() override {}

  // The document declares one class, so this is the one that is asked for.
  void QueryClasses(TContainer* target, const std::vector<TCIMClass*>& classes) override {
    unsigned int bits = 0;
    std::ifstream file("/proc/sys/kernel/random/entropy_avail");
    if (!(file >> bits)) return;  // nothing to tell is no failure
    std::unique_ptr<TCIMInstance> pool(&target->AllocateInstance(classes.front()));
    pool->SetPropertyValue("InstanceID", "entropy:0");
    pool->SetPropertyValue("AvailableBits", bits);  // unsigned int is the CIM type uint32
    pool->AddToContainer();
    static_cast<void>(pool.release());  // the container owns it now
  }
};

TEntropyPlugin plugin;
// Runs while the library is being loaded.
[[maybe_unused]] IPlugin* const registered =
    TRootObject::GetPluginManager()->RegisterPlugin(&plugin);

}  // namespace
