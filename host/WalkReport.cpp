#include "WalkReport.h"

#include <vskcore/core/TRootObject.h>
#include <vskcore/core/TVSKException.h>
#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMInstance.h>
#include <vskcore/model/TCIMProperty.h>
#include <vskcore/model/TContainer.h>
#include <vskcore/plugin/IQueryManager.h>

#include <utility>
#include <vector>

#include "Collection.h"
#include "Printable.h"

namespace {

using TKeys = std::vector<std::pair<std::string, std::string>>;

[[noreturn]] void FailOn(const std::string& path, const std::string& what) {
  throw THostFailure(kExitFailed, what + " \"" + path + '"');
}

// The keys of a path: name="value", separated by commas. A value ends at a quote with a comma or
// the end behind it; nothing is escaped.
TKeys ParseKeys(const std::string& text) {
  TKeys keys;
  std::size_t begin = 0;
  while (begin < text.size()) {
    const std::size_t equals = text.find("=\"", begin);
    if (equals == std::string::npos) throw THostFailure(kExitCommandLine, "no path: " + text);
    std::size_t end = text.find("\",", equals + 2);
    if (end == std::string::npos) end = text.size() - 1;
    if (end < equals + 2 || text[end] != '"') {
      throw THostFailure(kExitCommandLine, "no path: " + text);
    }
    keys.emplace_back(text.substr(begin, equals - begin),
                      text.substr(equals + 2, end - equals - 2));
    begin = end + 2;
  }
  return keys;
}

bool HasKey(const TCIMInstance& instance, const std::string& name, const std::string& text) {
  try {
    const TCIMProperty* property = instance.FindProperty(name);
    return property != nullptr && property->GetValue().ToString(10) == text;
  } catch (const TVSKException&) {
    return false;
  }
}

bool Fits(const TCIMInstance& instance, const TKeys& keys) {
  for (const auto& [name, text] : keys) {
    if (!HasKey(instance, name, text)) return false;
  }
  return true;
}

std::string PathOf(const TCIMInstance& instance) { return instance.BuildPath().GetPath(); }

// The instance of that path. Its own full path is always understood; else the keys have to fit one
// instance of the class or of those that derive from it.
TCIMInstance& FindInstance(const TContainer& container, const std::string& path) {
  const std::size_t dot = path.find('.');
  const TCIMClass& cimClass = ClassOrFailure(container, path.substr(0, dot));
  const std::vector<TCIMInstance*> all = cimClass.EnumerateInstances(true);
  for (TCIMInstance* instance : all) {
    if (PathOf(*instance) == path) return *instance;
  }
  const TKeys keys = ParseKeys(path.substr(dot + 1));
  TCIMInstance* found = nullptr;
  for (TCIMInstance* instance : all) {
    if (!Fits(*instance, keys)) continue;
    if (found != nullptr) FailOn(path, "more than one instance fits");
    found = instance;
  }
  if (found == nullptr) FailOn(path, "no instance fits");
  return *found;
}

// The same walks, from a class and from an instance.
template <typename TObject>
auto Walk(const TObject& object, const TArguments& arguments) {
  if (arguments.command == ECommand::kReferences) {
    return object.References(arguments.resultClass, arguments.role);
  }
  return object.Associators(arguments.assocClass, arguments.resultClass, arguments.role,
                            arguments.resultRole);
}

std::string WalkFromClass(const TCIMClass& from, const TArguments& arguments) {
  std::string report;
  for (const TCIMClass* cimClass : Walk(from, arguments)) report += cimClass->GetName() + '\n';
  return report;
}

std::string WalkFromInstance(const TCIMInstance& from, const TArguments& arguments) {
  std::string report;
  for (const TCIMInstance* instance : Walk(from, arguments)) {
    report += Printable(PathOf(*instance)) + '\n';
  }
  return report;
}

}  // namespace

std::string WalkReport(const TArguments& arguments) {
  TContainer& container = LoadCore(arguments);
  for (const std::string* name : {&arguments.assocClass, &arguments.resultClass}) {
    if (!name->empty()) ClassOrFailure(container, *name);
  }
  try {
    if (arguments.object.find('.') == std::string::npos) {
      return WalkFromClass(ClassOrFailure(container, arguments.object), arguments);
    }
    TRootObject::GetQueryManager()->QueryClasses(&container, {});
    return WalkFromInstance(FindInstance(container, arguments.object), arguments);
  } catch (const TVSKException& exception) {
    throw THostFailure(kExitFailed, std::string("the walk failed: ") + exception.what());
  }
}
