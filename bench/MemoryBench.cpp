// What a loaded container takes: a program of its own, so that nothing else is resident.
#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMInstance.h>
#include <vskcore/model/TContainer.h>

#include <cstdio>
#include <string>

#include "BenchSupport.h"

namespace {

std::size_t CountProperties(const TContainer& container) {
  std::size_t count = 0;
  for (const TCIMInstance* instance : container.GetRootClass().EnumerateInstances(true)) {
    count += instance->EnumerateProperties().size();
  }
  return count;
}

void PrintRow(const char* name, double bytes, std::size_t count, const char* unit) {
  std::printf("  %-12s %12.1f MB %10zu %-24s %10.0f bytes each\n", name, bytes / 1e6, count, unit,
              bytes / static_cast<double>(count));
}

void Measure(const TDocumentFiles& files) {
  TContainer container;
  const double empty = GetResidentBytes();
  container.PopulateContainerFromFile(files.GetSchema());
  const double withSchema = GetResidentBytes();
  container.PopulateContainerFromFile(files.GetInstances());
  const double withInstances = GetResidentBytes();

  std::printf("\nResident memory, on top of %.1f MB with an empty container\n", empty / 1e6);
  PrintRow("schema", withSchema - empty, container.GetRootClass().EnumerateSubClasses(true).size(),
           "classes");
  PrintRow("instances", withInstances - withSchema, CountProperties(container),
           "properties of instances");
}

}  // namespace

int main(int argc, char** argv) {
  return RunBench([&] { Measure(TDocumentFiles(argc, argv)); });
}
