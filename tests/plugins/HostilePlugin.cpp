// A plug-in that does what it should not: what the environment names in VSK_TEST_HOSTILE, looked at
// anew in each call. "<where> <what>": in the callback of that name, or in its load, it throws,
// loads the library in VSK_TEST_OTHER, starts a collection, ... With "C" in front it registers as
// one in C.
#include <vskcore/core/TRootObject.h>
#include <vskcore/core/TVSKException.h>
#include <vskcore/model/TContainer.h>
#include <vskcore/plugin/IPluginBasicQueryCallbacks.h>
#include <vskcore/plugin/IPluginCallbacks.h>
#include <vskcore/plugin/IPluginManager.h>
#include <vskcore/plugin/IQueryManager.h>
#include <vskcore/vskplugin.h>

#include <cstdlib>
#include <limits>
#include <stdexcept>
#include <string>

namespace {

std::string Environment(const char* name) {
  const char* const text = std::getenv(name);
  return text == nullptr ? "" : text;
}

IPluginManager& Manager() { return *TRootObject::GetPluginManager(); }

void Act(const std::string& what) {
  if (what == "int") throw 17;
  if (what == "text") throw std::string("a string");
  if (what == "exception") throw std::runtime_error("the bus is silent");
  if (what == "loads") Manager().LoadPlugin(Environment("VSK_TEST_OTHER"));
  if (what == "collects another") {
    TRootObject::GetQueryManager()->QueryClasses(Manager().GetContainer(), {"Hostile_Other"});
  }
  if (what == "collects")
    TRootObject::GetQueryManager()->QueryClasses(Manager().GetContainer(), {});
  if (what.compare(0, 7, "status ") == 0) throw TVSKException(std::stoi(what.substr(7)));
}

// What comes behind that word in the environment, "" for something else there.
std::string What(const std::string& where) {
  std::string text = Environment("VSK_TEST_HOSTILE");
  if (text.compare(0, 2, "C ") == 0) text.erase(0, 2);
  return text.compare(0, where.size() + 1, where + " ") == 0 ? text.substr(where.size() + 1) : "";
}

void ActIn(const char* where) { Act(What(where)); }

class THostilePlugin : public IPluginCallbacks, public IPluginBasicQueryCallbacks {
 public:
  explicit THostilePlugin(std::string name) : name_(std::move(name)) {}

  std::int32_t GetType() override {
    ActIn("GetType");
    return What("GetType") == "changes" ? calls_++ % 2 : 0;
  }
  std::string GetName() override {
    ActIn("GetName");
    return What("GetName") == "changes" ? name_ + std::to_string(calls_++) : name_;
  }
  std::string GetVersion() override {
    ActIn("GetVersion");
    return "1";
  }
  std::string GetInfoText() override { return ""; }
  void Destroy() override {}
  void Initialize() override {
    if (name_ == "hostile") ActIn("Initialize");
    if (What("Initialize") == "registers") RegisterAnother();
  }
  void Finalize() override {}
  void QueryClasses(TContainer*, const std::vector<TCIMClass*>&) override {
    ActIn("QueryClasses");
    if (What("QueryClasses") == "registers") RegisterAnother();
  }

 private:
  void RegisterAnother();

  const std::string name_;
  int calls_ = 0;
};

// Kept until the process ends, as the core keeps what points there.
void RegisterNew(const std::string& name) {
  static auto& kept = *new std::vector<IPluginCallbacks*>;
  kept.push_back(new THostilePlugin(name));
  Manager().RegisterPlugin(kept.back());
  if (What("load") == "twice") Manager().RegisterPlugin(kept.back());
}

void THostilePlugin::RegisterAnother() {
  if (name_ == "hostile") RegisterNew("late");
}

vskPluginHandle self;

vskStatus Initialize(vskPluginHandle) {
  ActIn("Initialize");
  return vskStatusOK;
}

vskStatus Query(vskPluginHandle, vskIOHandle* handle, const char* const* names, int32_t) {
  vskAddClass(handle, names[0]);
  vskAddUint32Property(handle, "Id", 1);
  const std::string what = What("QueryClasses");
  if (what == "repeats") {
    for (uint32_t i = 0; i < 200000; ++i) vskAddUint32Property(handle, "Id", i);
  }
  if (what == "leaves open") return vskStatusAccessDenied;
  Act(what);
  return what == "nonsense" ? std::numeric_limits<int32_t>::min() : vskStatusOK;
}

vskPluginInfo GetInfo(vskPluginHandle) {
  const std::string what = What("GetInfo");
  if (what == "no texts") return {nullptr, nullptr, nullptr, 0, 0};
  if (what == "odd type") return {"hostile", "1", "", std::numeric_limits<int32_t>::min(), 0};
  Act(what);
  return {"hostile", "1", "", 0, 0};
}

vskStatus Nothing(vskPluginHandle) { return vskStatusOK; }

__attribute__((constructor)) void Register() {
  if (Environment("VSK_TEST_HOSTILE").compare(0, 2, "C ") == 0) {
    const vskPluginCallbacks table = {nullptr, Initialize, Nothing, Query, GetInfo, Nothing};
    vskRegisterPlugin(&table, &self);
    return;
  }
  RegisterNew("hostile");
  if (What("load") != "int") ActIn("load");
  if (What("Initialize") == "loads") RegisterNew("second");
}

}  // namespace
