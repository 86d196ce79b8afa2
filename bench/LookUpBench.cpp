// What a host pays again and again: looking up by name, showing a code, a message that is dropped.
#include <vskcore/core/ILogger.h>
#include <vskcore/core/TRootObject.h>
#include <vskcore/core/vskLog.h>
#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMInstance.h>
#include <vskcore/model/TCIMProperty.h>
#include <vskcore/model/TCIMPropertyDecl.h>
#include <vskcore/model/TContainer.h>

#include <string>

#include "BenchSchema.h"
#include "BenchSupport.h"

namespace {

using TType = TCIMValue::TCIMType;

const int kCalls = 100000;
const int kCodes = 100;

volatile std::size_t sink;  // reads what the calls give, so that none can be left out

template <typename TCall>
TContender Calling(const char* name, TCall call) {
  const auto run = [=] {
    std::size_t sum = 0;
    for (int i = 0; i < kCalls; ++i) sum += static_cast<std::size_t>(call());
    sink = sum;
  };
  return {name, {}, run, {}};
}

// One for each code.
TCIMValue Texts(const std::string& before) {
  std::vector<TCIMValue> texts;
  for (int code = 0; code < kCodes; ++code) texts.emplace_back(before + std::to_string(code));
  return TCIMValue(TType::cimString, 0, texts);
}

// A class among others, with a code that is shown as the number and one that has words.
TCIMClass& DeclareSensor(TContainer& container) {
  DeclareDevices(container);
  std::unique_ptr<TCIMClass> made(&container.AllocateClass("Bench_Sensor", nullptr));
  for (const char* name : {"Accuracy", "Caption", "Hysteresis", "Name", "Resolution", "State"}) {
    Declare(*made, name, NullOf(TType::cimUint16));
  }
  Declare(*made, "Id", NullOf(TType::cimUint32), true);
  auto mapped = std::make_unique<TCIMPropertyDecl>("Type", *made, NullOf(TType::cimUint16));
  Qualify(*mapped, container, "Values", Texts("Temperature sensor "));
  Qualify(*mapped, container, "ValueMap", Texts(""));
  Added(std::move(mapped));
  return Added(std::move(made));
}

void CompareNames(const TContainer& container, const TCIMClass& sensor,
                  const TCIMInstance& instance) {
  const std::string name = sensor.GetName();
  const std::string property = "Resolution";
  const std::string absent = "Temperature";
  CompareCalls(
      "Looking up by name", kCalls,
      {Calling("FindClass", [&] { return container.FindClass(name) != nullptr; }),
       Calling("FindPropertyDecl", [&] { return sensor.FindPropertyDecl(property) != nullptr; }),
       Calling("FindProperty", [&] { return instance.FindProperty(property) != nullptr; }),
       Calling("FindProperty, absent", [&] { return instance.FindProperty(absent) != nullptr; })});
}

void CompareCodes(const TCIMClass& sensor) {
  const auto show = [&](const char* name, int code) {
    return TCIMProperty(sensor.GetPropertyDecl(name), static_cast<unsigned short>(code));
  };
  const TCIMProperty plain = show("State", 97);
  const TCIMProperty first = show("Type", 0);
  const TCIMProperty middle = show("Type", kCodes / 2);
  const TCIMProperty last = show("Type", kCodes - 1);
  const TCIMProperty missed = show("Type", kCodes);
  CompareCalls("Showing a code", kCalls,
               {Calling("as a number", [&] { return plain.ToString().size(); }),
                Calling("by the first of 100 words", [&] { return first.ToString().size(); }),
                Calling("by the one in the middle", [&] { return middle.ToString().size(); }),
                Calling("by the last", [&] { return last.ToString().size(); }),
                Calling("missing them all", [&] { return missed.ToString().size(); })});
}

void CompareDropped() {
  const std::string text = "a line that is only there for debugging, and nobody does";
  CompareCalls("A message above the log's level", kCalls,
               {Calling("ILogger::Log",
                        [&] {
                          TRootObject::GetCoreLogger()->Log(nullptr, 3, text);
                          return 1;
                        }),
                Calling("vskWriteLog", [&] {
                  vskWriteLog(nullptr, 3, text.c_str());
                  return 1;
                })});
}

}  // namespace

int main() {
  return RunBench([] {
    TContainer container;
    TCIMClass& sensor = DeclareSensor(container);
    const std::unique_ptr<TCIMInstance> instance(&container.AllocateInstance(&sensor));
    CompareNames(container, sensor, *instance);
    CompareCodes(sensor);
    TRootObject::GetCoreLogger()->SetLevel(2);
    CompareDropped();
  });
}
