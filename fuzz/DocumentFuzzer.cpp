// A document, read into a container that is walked and taken apart afterwards. The reader of one
// kind of old documents takes its turn when an odd byte stands behind the document and a NUL.
#include <vskcore/cimxml/TCIMXMLParser.h>
#include <vskcore/model/TContainer.h>

#include "ContainerWalk.h"
#include "FuzzSupport.h"
#include "support/StatusOf.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > kMaxInputSize) return 0;
  StartInput();
  const std::string input(data, data + size);
  const std::string flags = BehindDocument(input);
  std::vector<char> document = DocumentIn(input);
  TContainer container;
  DeclareQualifiers(container);
  {
    TCIMXMLParser parser(&container);
    if (!flags.empty() && (flags[0] & 1) != 0) parser.SetQK482Mode();
    StatusOf([&] { parser.Parse(document.data()); });
  }
  WalkContainer(container);
  Dismantle(container);
  return 0;
}
