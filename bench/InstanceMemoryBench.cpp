// What an instance takes that a plug-in writes, against the sum of its parts: a program of its own,
// so that nothing else is resident.
#include <vskcore/model/TCIMInstance.h>
#include <vskcore/model/TCIMProperty.h>
#include <vskcore/model/TCIMValueImpl.h>
#include <vskcore/model/TContainer.h>

#include <cstdio>

#include "BenchSchema.h"
#include "BenchSupport.h"
#include "cinterface/vskIOHandle.h"
#include "model/datetime/TCIMDateTimeImpl.h"

namespace {

const std::uint32_t kInstances = 1000000;
const std::size_t kProperties = 8;

// The bytes of a text that don't fit into the string itself.
std::size_t OverflowOf(const std::string& text) {
  return text.size() <= std::string().capacity() ? 0 : text.size() + 1;
}

// What exists for a value besides the value.
std::size_t ContentOf(const TCIMValue& value) {
  switch (value.GetType()) {
    case TCIMValue::TCIMType::cimString:
      return sizeof(TCIMStringValueImpl) + OverflowOf(value);
    case TCIMValue::TCIMType::cimDateTime:
      return sizeof(TCIMDateTimeValueImpl) + sizeof(TCIMDateTimeImpl);
    default:
      return sizeof(TCIMNumericValueImpl);
  }
}

void PrintRow(const char* name, double bytes) { std::printf("  %-52s %6.0f bytes\n", name, bytes); }

void Measure() {
  TContainer container;
  DeclareDevices(container);
  vskIOHandle handle{nullptr, &container, nullptr};
  WriteDevice(handle, "Bench_Device", kInstances);
  double contents = 0;
  for (const TCIMProperty* property : handle.currentInstance->EnumerateProperties()) {
    contents += static_cast<double>(ContentOf(property->GetValue()));
  }
  const double before = GetResidentBytes();
  for (std::uint32_t i = 0; i < kInstances; ++i) WriteDevice(handle, "Bench_Device", i);
  const double resident = (GetResidentBytes() - before) / kInstances;

  const double object = sizeof(TCIMInstance);
  const double properties = kProperties * sizeof(TCIMProperty);
  const double values = kProperties * sizeof(TCIMValue);
  const double sum = object + properties + values + contents;
  std::printf("\nMemory of each of %u instances of %zu properties, written by the C interface\n",
              kInstances, kProperties);
  PrintRow("TCIMInstance", object);
  PrintRow("TCIMProperty, 8 of them", properties);
  PrintRow("TCIMValue, 8 of them", values);
  PrintRow("3 strings, a date-time and 4 numbers behind them", contents);
  PrintRow("sum of these parts", sum);
  PrintRow("resident", resident);
  std::printf("  %-52s %6.2f\n", "times the sum", resident / sum);
}

}  // namespace

int main() { return RunBench(Measure); }
