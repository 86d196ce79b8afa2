// A host that only loads the library, and prints what the start left behind.
#include <vskcore/core/ILogger.h>
#include <vskcore/core/TRootObject.h>
#include <vskcore/core/vskLog.h>
#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TContainer.h>
#include <vskcore/plugin/IPluginManager.h>

#include <iostream>

int main() {
  vskWriteLog(nullptr, 2, "the host speaks");
  std::cout << "level " << TRootObject::GetCoreLogger()->GetLevel();
  if (IPluginManager* const manager = TRootObject::GetPluginManager()) {
    std::cout << ", " << manager->GetPlugins().size() << " plug-ins";
    for (const TCIMClass* cimClass :
         manager->GetContainer()->GetRootClass().EnumerateSubClasses(true)) {
      std::cout << ", " << cimClass->GetName();
    }
  }
  if (TRootObject::GetQueryManager() != nullptr) std::cout << ", ready";
  std::cout << "\n";
}
