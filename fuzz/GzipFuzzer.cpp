// The bytes of a gzip file, read as a document.
#include <vskcore/model/TContainer.h>

#include "ContainerWalk.h"
#include "FuzzSupport.h"
#include "support/StatusOf.h"
#include "support/TTempDir.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > kMaxInputSize) return 0;
  static const TTempDir folder;
  StartInput();
  const std::string path = folder.MakeFile("document.xml.gz", std::string(data, data + size));
  TContainer container;
  DeclareQualifiers(container);
  StatusOf([&] { container.PopulateContainerFromFile(path); });
  WalkContainer(container);
  return 0;
}
