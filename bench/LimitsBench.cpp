// How time and memory grow at the limits: each shape at three sizes, each twice the one before.
#include <malloc.h>
#include <vskcore/cimxml/TCIMXMLParser.h>
#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMInstance.h>
#include <vskcore/model/TCIMReference.h>
#include <vskcore/model/TCIMValue.h>
#include <vskcore/model/TContainer.h>

#include <cstdio>
#include <ctime>
#include <functional>
#include <memory>
#include <stdexcept>

#include "BenchSupport.h"

namespace {

using std::size_t;
using std::string;

// What a step leaves behind, for the next one and for its destruction to be timed.
struct TWork {
  std::unique_ptr<TContainer> container = std::make_unique<TContainer>();
  std::unique_ptr<TCIMReference> path;
};

struct TStep {
  const char* name;
  std::function<void(TWork&, size_t)> run;
};

struct TShape {
  const char* name;
  const char* title;
  size_t smallest;
  std::vector<TStep> steps;
};

// Documents.

const char kHead[] = "<CIM><DECLARATION><DECLGROUP>";
const char kTail[] = "</DECLGROUP></DECLARATION></CIM>";

string Boolean(const string& name) {
  return "<QUALIFIER NAME='" + name + "' TYPE='boolean'><VALUE>true</VALUE></QUALIFIER>";
}

string Declaration(const string& name) {
  return "<QUALIFIER.DECLARATION NAME='" + name +
         "' TYPE='boolean' TOSUBCLASS='true'></QUALIFIER.DECLARATION>";
}

string Number(const string& name, const string& inside = "") {
  return "<PROPERTY NAME='" + name + "' TYPE='uint32'>" + inside + "</PROPERTY>";
}

const string kKey = Number("Id", Boolean("KEY"));

string Class(const string& name, const string& superClass, const string& inside) {
  return "<VALUE.OBJECT><CLASS NAME='" + name + "'" +
         (superClass.empty() ? "" : " SUPERCLASS='" + superClass + "'") + ">" + inside +
         "</CLASS></VALUE.OBJECT>";
}

string Instance(const string& cimClass, const string& inside) {
  return "<VALUE.OBJECT><INSTANCE CLASSNAME='" + cimClass + "'>" + inside +
         "</INSTANCE></VALUE.OBJECT>";
}

string Value(const string& text) { return "<VALUE>" + text + "</VALUE>"; }

string InstanceName(const string& cimClass, size_t id) {
  return "<VALUE.REFERENCE><INSTANCENAME CLASSNAME='" + cimClass +
         "'><KEYBINDING NAME='Id'><KEYVALUE>" + std::to_string(id) +
         "</KEYVALUE></KEYBINDING></INSTANCENAME></VALUE.REFERENCE>";
}

string ReferenceDecl(const string& name, const string& target) {
  return "<PROPERTY.REFERENCE NAME='" + name + "' REFERENCECLASS='" + target + "'>" +
         Boolean("KEY") + "</PROPERTY.REFERENCE>";
}

string ReferenceTo(const string& name, const string& cimClass, size_t id) {
  return "<PROPERTY.REFERENCE NAME='" + name + "'>" + InstanceName(cimClass, id) +
         "</PROPERTY.REFERENCE>";
}

string Association(const string& name, const string& first, const string& second) {
  return Class(name, "",
               Boolean("ASSOCIATION") + ReferenceDecl("Antecedent", first) +
                   ReferenceDecl("Dependent", second));
}

void Parse(TWork& work, const string& body) {
  string document = kHead + Declaration("KEY") + Declaration("ASSOCIATION") + body + kTail;
  TCIMXMLParser(work.container.get()).Parse(document.data());
}

string Repeat(size_t count, const std::function<string(size_t)>& piece) {
  string text;
  for (size_t i = 0; i < count; ++i) text += piece(i);
  return text;
}

// A step whose making of the text counts little beside its reading.
TStep Loading(const std::function<string(size_t)>& body) {
  return {"load", [=](TWork& work, size_t size) { Parse(work, body(size)); }};
}

TCIMClass& Last(const TWork& work, size_t size) {
  return work.container->GetClass("C" + std::to_string(size - 1));
}

const TStep kClose = {"destroy", [](TWork& work, size_t) { work.container.reset(); }};

string Chain(size_t size, const std::function<string(size_t)>& inside) {
  return Class("C", "", kKey) + Repeat(size, [&](size_t i) {
           return Class("C" + std::to_string(i), i == 0 ? "C" : "C" + std::to_string(i - 1),
                        inside(i));
         });
}

void WalkChain(const TWork& work, size_t size) {
  const TCIMClass& top = work.container->GetClass("C");
  if (!Last(work, size).IsSubclassOf(&top)) throw std::runtime_error("the chain is broken");
  if (top.EnumerateSubClasses(true).size() != size) throw std::runtime_error("classes are missing");
  for (const TCIMClass* level : top.EnumerateSubClasses(true)) {
    if (level->EnumerateKeyNames().size() != 1) throw std::runtime_error("the key is missing");
  }
}

void WalkLinks(const TWork& work, size_t size) {
  size_t found = 0;
  for (const char* name : {"Near", "Far"}) {
    for (TCIMInstance* end : work.container->GetClass(name).EnumerateInstances(false)) {
      found += end->Associators("", "", "", "").size();
    }
  }
  if (found != 4 * size - 2) throw std::runtime_error("links are missing");
}

// Each instance is linked to the next: near 0, far 0, near 1, far 1, ...
string Links(size_t size) {
  return Class("Near", "", kKey) + Class("Far", "", kKey) + Association("Links", "Near", "Far") +
         Repeat(size,
                [](size_t i) {
                  const string id = Number("Id", Value(std::to_string(i)));
                  return Instance("Near", id) + Instance("Far", id);
                }) +
         Repeat(2 * size - 1, [](size_t i) {
           return Instance("Links", ReferenceTo("Antecedent", "Near", (i + 1) / 2) +
                                        ReferenceTo("Dependent", "Far", i / 2));
         });
}

// Paths of paths.

void BuildPath(TWork& work, size_t size) {
  Parse(work, Class("Leaf", "", kKey) +
                  Class("Link", "", Boolean("ASSOCIATION") + ReferenceDecl("To", "Leaf")));
  TCIMReference path(work.container.get());
  path.SetClassName("Leaf");
  path.AddKeyValue("Id", TCIMValue(7U));
  for (size_t i = 0; i < size; ++i) {
    TCIMReference next(work.container.get());
    next.SetClassName("Link");
    next.AddKeyValue("To", TCIMValue(path));
    path = next;
  }
  work.path = std::make_unique<TCIMReference>(path);
}

void ComparePath(const TWork& work) {
  const TCIMReference copy(*work.path);
  if (!(copy == *work.path) || copy < *work.path) throw std::runtime_error("a copy differs");
}

// Among others, so that all of it is read.
void SeekPath(TWork& work) {
  Parse(work, Instance("Link", ReferenceTo("To", "Leaf", 7)));
  if (work.container->GetClass("Link").FindInstance(*work.path) != nullptr) {
    throw std::runtime_error("found what isn't there");
  }
}

string Text(size_t size) { return string(size, 'x'); }

const std::vector<TShape>& Shapes() {
  static const std::vector<TShape> shapes = {
      {"name",
       "letters in a name",
       4000000,
       {Loading([](size_t size) { return Class(Text(size), "", kKey); }), kClose}},
      {"value",
       "letters in a value",
       4000000,
       {Loading([](size_t size) {
          return Class("C", "", kKey + "<PROPERTY NAME='Text' TYPE='string'></PROPERTY>") +
                 Instance("C", Number("Id", Value("1")) + "<PROPERTY NAME='Text' TYPE='string'>" +
                                   Value(Text(size)) + "</PROPERTY>");
        }),
        kClose}},
      {"array",
       "elements of an array",
       250000,
       {Loading([](size_t size) {
          return Class("C", "",
                       kKey + "<PROPERTY.ARRAY NAME='All' TYPE='uint32'></PROPERTY.ARRAY>") +
                 Instance("C", Number("Id", Value("1")) +
                                   "<PROPERTY.ARRAY NAME='All' TYPE='uint32'><VALUE.ARRAY>" +
                                   Repeat(size, [](size_t) { return Value("7"); }) +
                                   "</VALUE.ARRAY></PROPERTY.ARRAY>");
        }),
        kClose}},
      {"document",
       "instances in a document (the last has about 100 MiB)",
       200000,
       {Loading([](size_t size) {
          return Class("C", "", kKey) + Repeat(size, [](size_t i) {
                   return Instance("C", Number("Id", Value(std::to_string(i))));
                 });
        }),
        kClose}},
      {"properties",
       "properties in a class",
       16384,
       {Loading([](size_t size) {
          return Class("C", "",
                       kKey + Repeat(size - 1,
                                     [](size_t i) { return Number("P" + std::to_string(i)); })) +
                 Instance("C", Number("Id", Value("1")));
        }),
        kClose}},
      {"ends",
       "references in an association",
       4096,
       {Loading([](size_t size) {
          return Repeat(size, [](size_t i) { return Class("C" + std::to_string(i), "", kKey); }) +
                 Class("A", "", Boolean("ASSOCIATION") + Repeat(size, [](size_t i) {
                                  return ReferenceDecl("R" + std::to_string(i),
                                                       "C" + std::to_string(i));
                                }));
        }),
        kClose}},
      {"levels",
       "levels of inheritance",
       2500,
       {Loading([](size_t size) { return Chain(size, [](size_t) { return ""; }); }),
        {"walk", WalkChain},
        kClose}},
      {"growing",
       "levels of inheritance, each with a property more",
       2500,
       {Loading([](size_t size) {
          return Chain(size, [](size_t i) { return Number("P" + std::to_string(i)); });
        }),
        kClose}},
      {"classes",
       "classes",
       25000,
       {Loading([](size_t size) {
          return Repeat(size, [](size_t i) { return Class("C" + std::to_string(i), "", kKey); });
        }),
        kClose}},
      {"star",
       "associations of one class",
       25000,
       {Loading([](size_t size) {
          return Class("Near", "", kKey) + Class("Far", "", kKey) + Repeat(size, [size](size_t i) {
                   return Association("A" + std::to_string(size - i), "Near", "Far");
                 });
        }),
        {"walk",
         [](TWork& work, size_t) { work.container->GetClass("Near").Associators("", "", "", ""); }},
        kClose}},
      {"links",
       "links in a chain of instances",
       12500,
       {Loading(Links), {"walk", WalkLinks}, kClose}},
      {"paths",
       "paths in paths",
       2500,
       {{"build", BuildPath},
        {"copy, compare", [](TWork& work, size_t) { ComparePath(work); }},
        {"print", [](TWork& work, size_t) { static_cast<void>(work.path->GetPath()); }},
        {"find", [](TWork& work, size_t) { SeekPath(work); }},
        {"destroy", [](TWork& work, size_t) { work.path.reset(); }}}},
  };
  return shapes;
}

// What the heap has given out and not taken back.
double GetHeapBytes() {
  const struct mallinfo2 heap = mallinfo2();
  return static_cast<double>(heap.uordblks + heap.hblkhd);
}

double TimeOf(const TStep& step, TWork& work, size_t size) {
  const std::clock_t start = std::clock();
  step.run(work, size);
  return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

// A row for each step: the time for the largest size, and how it has grown from size to size.
void Measure(const TShape& shape) {
  std::vector<std::vector<double>> times(shape.steps.size());
  std::vector<double> bytes;
  for (size_t size = shape.smallest; size <= 4 * shape.smallest; size *= 2) {
    const double before = GetHeapBytes();
    TWork work;
    for (size_t step = 0; step < shape.steps.size(); ++step) {
      if (step + 1 == shape.steps.size()) bytes.push_back(GetHeapBytes() - before);
      times[step].push_back(TimeOf(shape.steps[step], work, size));
    }
  }
  std::printf("\n%s: %zu, %zu, %zu\n", shape.title, shape.smallest, 2 * shape.smallest,
              4 * shape.smallest);
  for (size_t step = 0; step < shape.steps.size(); ++step) {
    const std::vector<double>& row = times[step];
    std::printf("  %-13s %9.2f ms %7.2f %7.2f\n", shape.steps[step].name, row[2] * 1e3,
                row[1] / row[0], row[2] / row[1]);
  }
  std::printf("  %-13s %9.2f MB %7.2f %7.2f\n", "memory", bytes[2] / 1e6, bytes[1] / bytes[0],
              bytes[2] / bytes[1]);
  std::fflush(stdout);
}

}  // namespace

// Names of shapes as arguments; all without.
int main(int argc, char** argv) {
  return RunBench([&] {
    for (const TShape& shape : Shapes()) {
      bool wanted = argc == 1;
      for (int i = 1; i < argc; ++i) wanted = wanted || string(argv[i]) == shape.name;
      if (wanted) Measure(shape);
    }
  });
}
