#include "core/startup/StartManagers.h"

#include <vskcore/core/TRootObject.h>
#include <vskcore/model/TContainer.h>
#include <vskcore/platform/TOSSpecific.h>

#include "plugin/TPluginManager.h"
#include "plugin/TQueryManager.h"

namespace vsk::detail {

void StartManagers(const std::string& folder) {
  CreatePluginManager(folder);
  TRootObject::GetPluginManager()->GetContainer()->PopulateContainerFromFile(
      CoreDocumentPath(folder));
  CreateQueryManager();
}

std::string CoreDocumentPath(const std::string& folder) {
  const std::string& separator = TOSSpecific::kFileSeparator;
  return folder + separator + "data" + separator + "core.properties.xml";
}

}  // namespace vsk::detail
