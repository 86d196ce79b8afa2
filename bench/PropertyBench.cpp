// Writing one property through the C interface, against the class call that it stands for.
#include <vskcore/core/TRootObject.h>
#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMInstance.h>
#include <vskcore/model/TCIMValue.h>
#include <vskcore/model/TContainer.h>
#include <vskcore/plugin/IPluginManager.h>
#include <vskcore/vskplugin.h>

#include <memory>
#include <stdexcept>

#include "BenchSchema.h"
#include "BenchSupport.h"
#include "cinterface/vskIOHandle.h"

namespace {

using TType = TCIMValue::TCIMType;

const int kCalls = 200000;
const char kNumber[] = "NumberOfCores";
const char kLongNumber[] = "NumberOfLogicalProcessors";  // no string keeps it in itself
const char kText[] = "Manufacturer";

// Some neighbours, so that a property has to be found.
std::unique_ptr<TCIMInstance> MakeInstance(TContainer& container) {
  TCIMClass& base = container.GetClass("ZNTSG_ManagedElement");
  std::unique_ptr<TCIMClass> processor(&container.AllocateClass("Bench_Processor", &base));
  for (const char* name :
       {"Family", "Model", "Stepping", "Microcode", "DataWidth", "MaxClockSpeed"}) {
    Declare(*processor, name, NullOf(TType::cimUint16));
  }
  Declare(*processor, kNumber, NullOf(TType::cimUint32));
  Declare(*processor, kLongNumber, NullOf(TType::cimUint32));
  Declare(*processor, kText, NullOf(TType::cimString));
  return std::unique_ptr<TCIMInstance>(&container.AllocateInstance(&Added(std::move(processor))));
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
