// The XML reader with callbacks that do nothing, against other readers on the same bytes.
#include <vskcore/cimxml/TXmlParser.h>

#include <stdexcept>

#include "BenchSupport.h"
#include "Peers.h"

namespace {

class TSilentReader : public TXmlParser {
 public:
  void StartElement(const char* const, TAttributes&) override {}
  void EndElement(const char* const) override {}
  void processingInstruction(const char* const, const char* const) override {}
  void characters(const char* const, unsigned int) override {}
  void notationDecl(const char* const, const char* const, const char* const) override {}
  void FatalError(const char* const message) override { throw std::runtime_error(message); }
};

void CompareOn(const std::string& title, const std::string& document) {
  std::string copy;
  const auto refresh = [&] { copy = document; };
  Compare(title, document.size(),
          {{"TXmlParser", refresh, [&] { TSilentReader().Parse(copy.data()); }, {}},
           {"expat", refresh, [&] { ReadWithExpat(copy); }, {}},
           {"libxml2 SAX2", refresh, [&] { ReadWithLibxml2(copy); }, {}},
           {"pugixml (tree, in place)", refresh, [&] { ReadWithPugixml(copy); }, {}}});
}

}  // namespace

int main(int argc, char** argv) {
  return RunBench([&] {
    const TDocumentFiles files(argc, argv);
    CompareOn("Reading the schema", ReadFile(files.GetSchema()));
    CompareOn("Reading the instances", ReadFile(files.GetInstances()));
  });
}
