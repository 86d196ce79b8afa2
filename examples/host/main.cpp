// The smallest host: collects everything and prints it.
#include <vskcore/vskcore.h>

#include <iostream>

int main() {
  if (TRootObject::GetQueryManager() == nullptr) return 1;  // the log says why
  TRootObject::GetPluginManager()->LoadPlugins();
  TContainer& container = *TRootObject::GetPluginManager()->GetContainer();
  TRootObject::GetQueryManager()->QueryClasses(&container, {});
  for (const TCIMInstance* instance : container.GetRootClass().EnumerateInstances(true)) {
    std::cout << instance->BuildPath().GetPath() << '\n';
    for (const TCIMProperty* property : instance->EnumerateProperties()) {
      std::cout << "  " << property->GetName() << ": " << property->ToString() << '\n';
    }
  }
}
