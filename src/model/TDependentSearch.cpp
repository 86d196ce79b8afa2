#include "model/TDependentSearch.h"

#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMInstance.h>
#include <vskcore/model/TCIMProperty.h>
#include <vskcore/model/TCIMPropertyDecl.h>
#include <vskcore/model/TCIMQualifier.h>
#include <vskcore/model/TCIMValue.h>

#include <algorithm>
#include <set>
#include <utility>

#include "model/TPeek.h"
#include "model/ValueParts.h"

namespace vsk::detail {

namespace {

using TDeclarations = std::set<const TCIMPropertyDecl*>;

// Every declaration that a class or one of its instances still uses: instances keep using one that
// their class has dropped since.
TDeclarations DeclarationsOf(const TCIMClass& cimClass) {
  const std::vector<const TCIMPropertyDecl*> table = cimClass.EnumeratePropertyDecls();
  TDeclarations all(table.begin(), table.end());
  for (const TCIMInstance* instance : cimClass.EnumerateInstances(false)) {
    for (const TCIMProperty* property : instance->EnumerateProperties()) {
      all.insert(&property->GetDeclaration());
    }
  }
  return all;
}

// Whether a value names the class anywhere: in itself (a reference tells it as well), in the keys
// of a reference, in the elements of an array, and so on down.
bool PointsAt(const TCIMValue& value, const TCIMClass& target) {
  std::vector<const TCIMValue*> pending{&value};
  while (!pending.empty()) {
    const TCIMValue& part = *pending.back();
    pending.pop_back();
    if (part.FindReferencedClass() == &target) return true;
    AppendParts(part, pending);
  }
  return false;
}

template <typename THolder>
bool QualifierPointsAt(const THolder& holder, const TCIMClass& target) {
  const auto all = holder.EnumerateQualifiers();
  return std::any_of(all.begin(), all.end(), [&](const TCIMQualifier* qualifier) {
    return PointsAt(TPeek::Value(*qualifier), target);
  });
}

template <typename THolder>
bool HasQualifierOf(const THolder& holder, const TCIMQualifierDecl& type) {
  const auto all = holder.EnumerateQualifiers();
  return std::any_of(all.begin(), all.end(), [&](const TCIMQualifier* qualifier) {
    return &qualifier->GetDeclaration() == &type;
  });
}

bool Uses(const TCIMPropertyDecl& declaration, const TCIMClass& target) {
  return &declaration.GetClass() == &target || PointsAt(declaration.GetValue(), target) ||
         QualifierPointsAt(declaration, target);
}

bool Uses(const TCIMInstance& instance, const TCIMClass& target) {
  const std::vector<const TCIMProperty*> all = instance.EnumerateProperties();
  return std::any_of(all.begin(), all.end(), [&](const TCIMProperty* property) {
    return PointsAt(TPeek::Value(*property), target);
  });
}

std::string Describe(const TCIMPropertyDecl& declaration, const TCIMClass& user) {
  return "property " + declaration.GetName() + " of class " + user.GetName();
}

bool IsRegisteredAt(const TCIMClass& end, const TCIMClass& association) {
  const std::vector<TCIMClass*> all = end.References("", "");
  return std::find(all.begin(), all.end(), &association) != all.end();
}

// What in or at the class depends on the other, "" for nothing.
std::string DependentIn(const TCIMClass& user, const TCIMClass& doomed) {
  if (IsRegisteredAt(user, doomed)) return "the association set of class " + user.GetName();
  if (QualifierPointsAt(user, doomed)) return "a qualifier of class " + user.GetName();
  for (const TCIMPropertyDecl* declaration : DeclarationsOf(user)) {
    if (Uses(*declaration, doomed)) return Describe(*declaration, user);
  }
  for (const TCIMInstance* instance : user.EnumerateInstances(false)) {
    if (Uses(*instance, doomed)) return "an instance of class " + user.GetName();
  }
  return "";
}

std::string DependentIn(const TCIMClass& user, const TCIMQualifierDecl& doomed) {
  if (HasQualifierOf(user, doomed)) return "class " + user.GetName();
  for (const TCIMPropertyDecl* declaration : DeclarationsOf(user)) {
    if (HasQualifierOf(*declaration, doomed)) return Describe(*declaration, user);
  }
  return "";
}

}  // namespace

TDependentSearch::TDependentSearch(std::vector<const TCIMClass*> classes,
                                   std::vector<TCIMQualifierDecl*> qualifierDecls)
    : classes_(std::move(classes)), qualifierDecls_(std::move(qualifierDecls)) {}

std::string TDependentSearch::On(const TCIMClass& doomed) const {
  const std::vector<TCIMClass*> subClasses = doomed.EnumerateSubClasses(false);
  if (!subClasses.empty()) return "subclass " + subClasses.front()->GetName();
  for (const TCIMQualifierDecl* declaration : qualifierDecls_) {
    if (PointsAt(declaration->GetValue(), doomed)) return "qualifier " + declaration->GetName();
  }
  for (const TCIMClass* user : classes_) {
    std::string dependent = user == &doomed ? "" : DependentIn(*user, doomed);
    if (!dependent.empty()) return dependent;
  }
  return "";
}

std::string TDependentSearch::On(const TCIMQualifierDecl& doomed) const {
  for (const TCIMClass* user : classes_) {
    std::string dependent = DependentIn(*user, doomed);
    if (!dependent.empty()) return dependent;
  }
  return "";
}

}  // namespace vsk::detail
