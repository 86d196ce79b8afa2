// A plug-in that behaves as it is built to: VSK_TEST_BEHAVIOUR, also its name. What the core calls
// it tells in the log at level 2, so that a test reads it in order with the lines of the core.
#include <vskcore/core/ILogger.h>
#include <vskcore/core/TRootObject.h>
#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMInstance.h>
#include <vskcore/model/TCIMPropertyDecl.h>
#include <vskcore/model/TCIMReference.h>
#include <vskcore/model/TCIMValue.h>
#include <vskcore/model/TContainer.h>
#include <vskcore/plugin/IPluginBasicQueryCallbacks.h>
#include <vskcore/plugin/IPluginCallbacks.h>
#include <vskcore/plugin/IPluginManager.h>

#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

// What needs this can't be loaded.
void DefinedNowhere();

namespace {

constexpr std::string_view kBehaviour = VSK_TEST_BEHAVIOUR;

bool Behaves(std::string_view behaviour) { return behaviour == kBehaviour; }

void Tell(const std::string& text) { TRootObject::GetCoreLogger()->Log(nullptr, 2, text); }

class TSamplePlugin : public IPluginCallbacks {
 public:
  explicit TSamplePlugin(const std::string& name) : name_(name) {}

  std::int32_t GetType() override {
    if (Behaves("type_1")) return 1;
    if (Behaves("type_below_0")) return -1;
    return Behaves("type_2") ? 2 : 0;
  }
  std::string GetName() override { return name_; }
  std::string GetVersion() override { return "2.5"; }
  std::string GetInfoText() override { return "A sample"; }
  void Destroy() override { delete this; }
  void Initialize() override {
    const bool listed = TRootObject::GetPluginManager()->FindPlugin(name_) != nullptr;
    Tell(name_ + (listed ? " initializes" : " initializes unlisted"));
    if (Behaves("throws_in_initialize")) throw 17;
  }
  void Finalize() override {}

 private:
  const std::string name_;
};

// Makes one instance of each class: with Id 7, or with references to the first instances there are.
class TQueryingPlugin : public TSamplePlugin, public IPluginBasicQueryCallbacks {
 public:
  using TSamplePlugin::TSamplePlugin;

  void QueryClasses(TContainer* target, const std::vector<TCIMClass*>& classes) override {
    for (TCIMClass* cimClass : classes) Tell(GetName() + " is asked for " + cimClass->GetName());
    if (Behaves("throws_in_query")) throw std::runtime_error("the bus is silent");
    for (TCIMClass* cimClass : classes) Fill(target->AllocateInstance(cimClass));
  }

 private:
  static void Fill(TCIMInstance& instance) {
    for (const std::string& key : instance.GetClass().EnumerateKeyNames()) {
      const TCIMValue& type = instance.GetClass().GetPropertyDecl(key).GetValue();
      instance.SetPropertyValue(key, type.IsReference() ? First(type) : TCIMValue(7U));
    }
    instance.AddToContainer();
  }
  static TCIMValue First(const TCIMValue& type) {
    return TCIMValue(type.GetReferencedClass().EnumerateInstances(false).front()->BuildPath());
  }
};

// All that is registered; kept until the process ends.
std::vector<IPluginCallbacks*>& Registered() {
  static auto& registered = *new std::vector<IPluginCallbacks*>;
  return registered;
}

void RegisterOne(IPluginCallbacks* callbacks) {
  Registered().push_back(callbacks);
  TRootObject::GetPluginManager()->RegisterPlugin(callbacks);
}

template <bool isWanted>
void CallDefinedNowhere() {
  if constexpr (isWanted) DefinedNowhere();
}

__attribute__((constructor)) void Register() {
  if (Behaves("registers_none")) return;
  const std::string name(kBehaviour);
  if (Behaves("no_query")) return RegisterOne(new TSamplePlugin(name));
  RegisterOne(new TQueryingPlugin(name));
  if (Behaves("registers_two")) RegisterOne(new TQueryingPlugin("the_second"));
  CallDefinedNowhere<kBehaviour == "fails_its_load">();
}

}  // namespace
