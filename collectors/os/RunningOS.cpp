#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMReference.h>
#include <vskcore/model/TContainer.h>

#include "common/TInstanceWriter.h"
#include "os/Os.h"

namespace {

// What was collected for a class; empty also where no document declares it.
std::vector<TCIMInstance*> Instances(TContainer& target, const std::string& className) {
  const TCIMClass* cimClass = target.FindClass(className);
  if (cimClass == nullptr) return {};
  return cimClass->EnumerateInstances(true);
}

}  // namespace

void CollectRunningOS(const TSource&, TContainer& target, TCIMClass& cimClass) {
  for (const TCIMInstance* computer : Instances(target, "ZNTSG_ComputerSystem")) {
    for (const TCIMInstance* system : Instances(target, "ZNTSG_OperatingSystem")) {
      TInstanceWriter(target, cimClass)
          .Set("Antecedent", TCIMValue(system->BuildPath()))
          .Set("Dependent", TCIMValue(computer->BuildPath()))
          .Add();
    }
  }
}
