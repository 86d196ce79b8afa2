// Writing one property through the C interface, against the class call that it stands for.
#include <vskcore/core/TRootObject.h>
#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMInstance.h>
#include <vskcore/model/TCIMPropertyDecl.h>
#include <vskcore/model/TCIMValue.h>
#include <vskcore/model/TContainer.h>
#include <vskcore/plugin/IPluginManager.h>
#include <vskcore/vskplugin.h>

#include <memory>
#include <stdexcept>

#include "BenchSupport.h"
#include "cinterface/vskIOHandle.h"

namespace {

const int kCalls = 200000;
const char kNumber[] = "NumberOfCores";
const char kLongNumber[] = "NumberOfLogicalProcessors";  // no string keeps it in itself
const char kText[] = "Manufacturer";

void Declare(TCIMClass& cimClass, const std::string& name, TCIMValue::ECIMType type) {
  auto declaration =
      std::make_unique<TCIMPropertyDecl>(name, cimClass, TCIMValue(TCIMValue::TCIMType(type), 0));
  declaration->AddToContainer();
  static_cast<void>(declaration.release());
}

// Some neighbours, so that a property has to be found.
std::unique_ptr<TCIMInstance> MakeInstance(TContainer& container) {
  TCIMClass& base = container.GetClass("ZNTSG_ManagedElement");
  std::unique_ptr<TCIMClass> processor(&container.AllocateClass("Bench_Processor", &base));
  for (const char* name :
       {"Family", "Model", "Stepping", "Microcode", "DataWidth", "MaxClockSpeed"}) {
    Declare(*processor, name, TCIMValue::TCIMType::cimUint16);
  }
  Declare(*processor, kNumber, TCIMValue::TCIMType::cimUint32);
  Declare(*processor, kLongNumber, TCIMValue::TCIMType::cimUint32);
  Declare(*processor, kText, TCIMValue::TCIMType::cimString);
  TCIMClass* added = processor.get();
  added->AddToContainer();
  static_cast<void>(processor.release());
  return std::unique_ptr<TCIMInstance>(&container.AllocateInstance(added));
}

template <typename TCall>
TContender Calling(const char* name, TCall call) {
  return {name,
          {},
          [=] {
            for (int i = 0; i < kCalls; ++i) call(static_cast<unsigned int>(i));
          },
          {}};
}

void Expect(vskStatus status) {
  if (status != vskStatusOK) throw std::runtime_error(vskTranslateStatusCode(status));
}

void CompareNumbers(vskIOHandle& handle, const char* name) {
  TCIMInstance& instance = *handle.currentInstance;
  CompareCalls(
      std::string("The uint32 ") + name, kCalls,
      {Calling("SetPropertyValue", [&](unsigned int i) { instance.SetPropertyValue(name, i); }),
       Calling("vskAddUint32Property",
               [&](unsigned int i) { Expect(vskAddUint32Property(&handle, name, i)); })});
}

void CompareTexts(vskIOHandle& handle) {
  TCIMInstance& instance = *handle.currentInstance;
  const char* const texts[] = {"GenuineIntel", "AuthenticAMD"};
  CompareCalls(std::string("The string ") + kText, kCalls,
               {Calling("SetPropertyValue",
                        [&](unsigned int i) { instance.SetPropertyValue(kText, texts[i % 2]); }),
                Calling("vskAddStringProperty", [&](unsigned int i) {
                  Expect(vskAddStringProperty(&handle, kText, texts[i % 2]));
                })});
}

}  // namespace

int main() {
  return RunBench([] {
    if (TRootObject::GetPluginManager() == nullptr)
      throw std::runtime_error("the core did not start");
    TContainer& container = *TRootObject::GetPluginManager()->GetContainer();
    vskIOHandle handle{nullptr, &container, MakeInstance(container)};
    CompareNumbers(handle, kNumber);
    CompareNumbers(handle, kLongNumber);
    CompareTexts(handle);
  });
}
