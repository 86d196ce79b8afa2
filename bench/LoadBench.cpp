// Loading documents into a container, against readers that throw away what they read.
#include <vskcore/model/TContainer.h>

#include <memory>

#include "BenchSupport.h"
#include "Peers.h"

namespace {

// Loads into a new container each time, one that holds the documents in first already.
TContender Loading(const std::vector<std::string>& first, const std::string& path) {
  const auto container = std::make_shared<std::unique_ptr<TContainer>>();
  const auto before = [=] {
    *container = std::make_unique<TContainer>();
    for (const std::string& document : first) (*container)->PopulateContainerFromFile(document);
  };
  const auto run = [=] { (*container)->PopulateContainerFromFile(path); };
  return {"load into a container", before, run, [=] { container->reset(); }};
}

void CompareOn(const std::string& title, const std::vector<std::string>& first,
               const std::string& path) {
  const std::string document = ReadFile(path);
  std::string copy;
  const auto refresh = [&] { copy = document; };
  Compare(title, document.size(),
          {Loading(first, path),
           {"expat, reading alone", refresh, [&] { ReadWithExpat(copy); }, {}},
           {"libxml2 SAX2, reading alone", refresh, [&] { ReadWithLibxml2(copy); }, {}}});
}

}  // namespace

int main(int argc, char** argv) {
  return RunBench([&] {
    const TDocumentFiles files(argc, argv);
    CompareOn("Loading the schema", {}, files.GetSchema());
    CompareOn("Loading the instances", {files.GetSchema()}, files.GetInstances());
  });
}
