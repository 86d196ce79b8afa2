#include "ContainerWalk.h"

#include <vskcore/vskcore.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "FuzzSupport.h"
#include "model/RequireText.h"
#include "support/StatusOf.h"

namespace {

using TType = TCIMValue::TCIMType;

// How many are asked what costs as much as there are others.
constexpr std::size_t kFew = 16;

// What came of a call: its status, and its answer when that is vskStatusOK.
template <typename TAnswer>
struct TOutcome {
  vskStatus status;
  TAnswer answer;

  bool operator==(const TOutcome& other) const {
    return status == other.status && (status != vskStatusOK || answer == other.answer);
  }
};

template <typename TBody>
auto OutcomeOf(TBody&& body) {
  TOutcome<decltype(body())> outcome{};
  outcome.status = StatusOf([&] { outcome.answer = body(); });
  return outcome;
}

template <typename TItem>
TOutcome<bool> Equal(const TItem& left, const TItem& right) {
  return OutcomeOf([&] { return left == right; });
}

template <typename TItem>
TOutcome<bool> Less(const TItem& left, const TItem& right) {
  return OutcomeOf([&] { return left < right; });
}

// What holds between any two of a kind that order.
template <typename TItem>
void Compare(const TItem& left, const TItem& right) {
  Require(Equal(left, right) == Equal(right, left), "a == b as b == a");
  const TOutcome<bool> less = Less(left, right);
  const TOutcome<bool> greater = Less(right, left);
  if (less.status != vskStatusOK || greater.status != vskStatusOK) return;
  Require(!less.answer || !greater.answer, "not both a < b and b < a");
}

// Each with itself, the next one and the first one.
template <typename TItem>
void CompareAll(const std::vector<TItem*>& items) {
  for (std::size_t i = 0; i < items.size(); ++i) {
    Compare(*items[i], *items[i]);
    Compare(*items[i], *items[0]);
    if (i > 0) Compare(*items[i - 1], *items[i]);
  }
}

template <typename TNative>
vskStatus ReadAs(const TCIMValue& value) {
  return StatusOf([&] { static_cast<void>(value.operator TNative()); });
}

// How reading the value as what it is ends.
vskStatus ReadNatively(const TCIMValue& value) {
  if (value.IsArray()) return ReadAs<std::vector<TCIMValue>&>(value);
  switch (value.GetType()) {
    case TType::cimBoolean:
      return ReadAs<bool>(value);
    case TType::cimUint8:
      return ReadAs<unsigned char>(value);
    case TType::cimSint8:
      return ReadAs<signed char>(value);
    case TType::cimUint16:
      return ReadAs<unsigned short>(value);
    case TType::cimSint16:
      return ReadAs<short>(value);
    case TType::cimUint32:
      return ReadAs<unsigned int>(value);
    case TType::cimSint32:
      return ReadAs<int>(value);
    case TType::cimUint64:
      return ReadAs<std::uint64_t>(value);
    case TType::cimSint64:
      return ReadAs<std::int64_t>(value);
    case TType::cimReal32:
      return ReadAs<float>(value);
    case TType::cimReal64:
      return ReadAs<double>(value);
    case TType::cimDateTime:
      return ReadAs<TCIMDateTime>(value);
    case TType::cimReference:
      return ReadAs<TCIMReference>(value);
    default:
      return ReadAs<std::string>(value);
  }
}

void WalkReference(const TCIMReference& reference);

// A failure is slow, so what is bound to fail is asked as seldom as may be.
void WalkValue(const TCIMValue& value) {
  const auto text = OutcomeOf([&] { return value.ToString(10); });
  Require(text.status == StatusOf([&] { vsk::detail::RequireText(value); }),
          "RequireText fails as ToString does");
  Require(ReadNatively(value) == (value.IsNull() ? vskStatusValueIsNULL : vskStatusOK),
          "a value reads as its own type");
  StatusOf([&] {
    const TCIMValue copy(value);
    Require(Equal(copy, value) == Equal(value, value), "a copy equals as the original does");
    Compare(value, copy);
  });
  if (value.IsNull()) return;
  StatusOf([&] { value.ToString(16); });
  if (value.IsArray()) {
    const std::vector<TCIMValue>& elements = value;
    for (const TCIMValue& element : elements) WalkValue(element);
    for (std::size_t i = 1; i < elements.size(); ++i) Compare(elements[i - 1], elements[i]);
  } else if (value.IsReference()) {
    WalkReference(value);
  }
}

void WalkReference(const TCIMReference& reference) {
  StatusOf([&] { reference.GetPath(); });
  const auto target = OutcomeOf([&] { return &reference.GetCIMElement(); });
  TCIMReference copy(reference);
  Require(OutcomeOf([&] { return &copy.GetCIMElement(); }) == target, "a copy finds the same");
  Require(Equal(copy, reference) == Equal(reference, reference), "a copy equals");
  const TCIMReference::TKeyBindings bindings = reference.EnumerateKeyBindings();
  for (const auto& binding : bindings) WalkValue(binding.second);
  copy.SetKeyBindings(bindings);
  Require(OutcomeOf([&] { return &copy.GetCIMElement(); }) == target, "the same keys find it");
  copy.Clear();
}

void WalkQualifiers(const std::vector<const TCIMQualifier*>& qualifiers) {
  for (const TCIMQualifier* qualifier : qualifiers) {
    WalkValue(qualifier->GetValue());
    StatusOf([&] { const TCIMQualifier copy(*qualifier); });
  }
  CompareAll(qualifiers);
}

void WalkDeclaration(const TCIMClass& cimClass, const TCIMPropertyDecl& declaration) {
  const TCIMPropertyDecl* const found = cimClass.FindPropertyDecl(declaration.GetName());
  Require(found == &declaration, "a declaration is found by its name");
  WalkQualifiers(declaration.EnumerateQualifiers());
  WalkValue(declaration.GetValue());
  StatusOf([&] { TCIMProperty(declaration).ToString(); });
}

void WalkClass(const TContainer& container, TCIMClass& cimClass) {
  const std::string& name = cimClass.GetName();  // the root class answers to the empty one
  Require(name.empty() || container.FindClass(name) == &cimClass, "a class is found by its name");
  StatusOf([&] { cimClass.Validate(); });
  StatusOf([&] { cimClass.IsAbstract(); });
  Require(cimClass.IsSubclassOf(&cimClass.GetSuperClass()), "a class derives from its superclass");
  WalkQualifiers(cimClass.EnumerateQualifiers());
  const auto declarations = cimClass.EnumeratePropertyDecls();
  for (const TCIMPropertyDecl* declaration : declarations) WalkDeclaration(cimClass, *declaration);
  CompareAll(declarations);
  for (const std::string& key : OutcomeOf([&] { return cimClass.EnumerateKeyNames(); }).answer) {
    StatusOf([&] { cimClass.References("", key); });
    StatusOf([&] { cimClass.Associators("", "", key, key); });
  }
  StatusOf([&] { cimClass.References(cimClass.GetName(), ""); });
  StatusOf([&] { cimClass.Associators("", "", "", ""); });
  cimClass.EnumerateSubClasses(false);
}

// A declaration that was never shown before shows the value in the same way.
void ShowAfresh(const TCIMProperty& property) {
  const TCIMPropertyDecl& declaration = property.GetDeclaration();
  StatusOf([&] {
    TCIMPropertyDecl fresh(declaration.GetName(), declaration.GetClass(), declaration.GetValue());
    for (const TCIMQualifier* qualifier : declaration.EnumerateQualifiers()) {
      fresh.AddQualifier(*new TCIMQualifier(*qualifier));
    }
    const TCIMProperty same(fresh, property.GetValue());
    Require(OutcomeOf([&] { return same.ToString(); }) ==
                OutcomeOf([&] { return property.ToString(); }),
            "a value shows the same under equal qualifiers");
  });
}

void WalkProperty(const TCIMInstance& instance, const TCIMProperty& property) {
  Require(instance.FindProperty(property.GetName()) == &property,
          "a property is found by its name");
  StatusOf([&] { property.ToString(); });
  StatusOf([&] { property.ToStringVector(); });
  StatusOf([&] {
    TCIMProperty copy(property);
    Require(Equal(copy, property) == Equal(property, property), "a copy equals");
    copy.SetValue(property.GetValue());
    copy = property;
  });
  if (!property.GetDeclaration().EnumerateQualifiers().empty()) ShowAfresh(property);
  if (!property.GetPropagated()) WalkValue(property.GetValue());
}

// The path is found by the first instance whose own path it equals, in the order of the class.
void SeekPath(const TCIMInstance& instance) {
  const TCIMClass& cimClass = instance.GetClass();
  StatusOf([&] {
    const TCIMReference path = instance.BuildPath();
    const auto walked = OutcomeOf([&]() -> TCIMInstance* {
      for (TCIMInstance* candidate : cimClass.EnumerateInstances(false)) {
        if (candidate->BuildPath() == path) return candidate;
      }
      return nullptr;
    });
    Require(OutcomeOf([&] { return cimClass.FindInstance(path); }) == walked,
            "an instance is found by its path as by a walk");
    WalkReference(path);
  });
}

// A reference whose target is missing refers to nothing.
bool RefersTo(const TCIMProperty& property, const TCIMInstance& target) {
  const TCIMValue value = property.GetValue();
  if (!value.IsReference()) return false;
  bool refers = false;
  const vskStatus status = StatusOf([&] {
    const TCIMReference reference = value;
    refers = &reference.GetCIMElement() == &target;
  });
  if (status != vskStatusOK && status != vskStatusNotFound) throw TVSKException(status);
  return refers;
}

bool RefersTo(const TCIMInstance& association, const std::string& role,
              const TCIMInstance& target) {
  if (!role.empty()) {
    const TCIMProperty* end = association.FindProperty(role);
    return end != nullptr && RefersTo(*end, target);
  }
  const auto ends = association.EnumerateProperties();
  return std::any_of(ends.begin(), ends.end(),
                     [&](const TCIMProperty* end) { return RefersTo(*end, target); });
}

void FindReferrers(const TCIMInstance& target, const std::string& role) {
  const auto walked = OutcomeOf([&] {
    std::vector<TCIMInstance*> all;
    for (const TCIMClass* association : target.GetClass().References("", role)) {
      for (TCIMInstance* instance : association->EnumerateInstances(false)) {
        if (RefersTo(*instance, role, target)) all.push_back(instance);
      }
    }
    return all;
  });
  Require(OutcomeOf([&] { return target.References("", role); }) == walked,
          "those that refer to an instance are found as by a walk");
}

void FollowAssociations(const TCIMInstance& instance) {
  FindReferrers(instance, "");
  StatusOf([&] { instance.Associators("", "", "", ""); });
  for (const TCIMClass* association : instance.GetClass().References("", "")) {
    for (const TCIMPropertyDecl* end : association->EnumeratePropertyDecls()) {
      if (!end->GetValue().IsReference()) continue;
      FindReferrers(instance, end->GetName());
      StatusOf([&] { instance.Associators("", "", "", end->GetName()); });
    }
  }
}

// What costs as much as there are instances.
void SeekFew(const std::vector<TCIMInstance*>& instances) {
  for (std::size_t i = 0; i < std::min(kFew, instances.size()); ++i) {
    SeekPath(*instances[i]);
    FollowAssociations(*instances[i]);
  }
}

void WalkInstance(const TCIMInstance& instance) {
  StatusOf([&] { instance.Validate(); });
  StatusOf([&] { instance.BuildPath().GetPath(); });
  const auto properties = instance.EnumerateProperties();
  for (const TCIMProperty* property : properties) WalkProperty(instance, *property);
  CompareAll(properties);
}

void TakeOver(TCIMInstance& instance, const TCIMInstance& other) {
  if (&instance.GetClass() != &other.GetClass()) return;
  for (const TCIMProperty* property : other.EnumerateProperties()) instance.SetProperty(*property);
}

// Every third one goes, every third becomes as the one before it.
void MixInstances(const std::vector<TCIMInstance*>& instances) {
  for (std::size_t i = 0; i < instances.size(); ++i) {
    if (i % 3 == 0) instances[i]->GetClass().RemoveInstance(*instances[i]);
    if (i % 3 == 2) TakeOver(*instances[i], *instances[i - 1]);
  }
}

// The first qualifier goes. Only its name counts.
void DropQualifier(ICIMAllowQualifiers& holder) {
  const auto qualifiers = holder.EnumerateQualifiers();
  if (qualifiers.empty()) return;
  TCIMQualifier named(qualifiers.front()->GetDeclaration(), TCIMValue());
  holder.RemoveQualifier(named);
}

// A class loses its first property, and it and its last property their first qualifiers.
void DropFirst(TCIMClass& cimClass) {
  DropQualifier(cimClass);
  const auto declarations = cimClass.EnumeratePropertyDecls();
  if (declarations.empty()) return;
  // Whoever made the declaration may change it still.
  DropQualifier(const_cast<TCIMPropertyDecl&>(*declarations.back()));
  TCIMPropertyDecl named(declarations.front()->GetName(), cimClass, TCIMValue());
  cimClass.RemovePropertyDecl(named);
}

}  // namespace

void WalkContainer(const TContainer& container) {
  for (const TCIMQualifierDecl* declaration : container.EnumerateQualifiers()) {
    Require(container.FindQualifierDecl(declaration->GetName()) == declaration,
            "a qualifier declaration is found by its name");
    WalkValue(declaration->GetValue());
  }
  CompareAll(container.EnumerateQualifiers());
  const std::vector<TCIMClass*> classes = container.GetRootClass().EnumerateSubClasses(true);
  for (TCIMClass* cimClass : classes) WalkClass(container, *cimClass);
  CompareAll(classes);
  WalkInstances(container);
}

void WalkInstances(const TContainer& container) {
  const auto instances = container.GetRootClass().EnumerateInstances(true);
  for (const TCIMInstance* instance : instances) WalkInstance(*instance);
  CompareAll(instances);
  SeekFew(instances);
}

void RemoveInstances(const TContainer& container) {
  for (TCIMInstance* instance : container.GetRootClass().EnumerateInstances(true)) {
    instance->GetClass().RemoveInstance(*instance);
  }
  Require(container.GetRootClass().EnumerateInstances(true).empty(), "all instances are removed");
}

void Dismantle(TContainer& container) {
  MixInstances(container.GetRootClass().EnumerateInstances(true));
  SeekFew(container.GetRootClass().EnumerateInstances(true));
  std::vector<TCIMClass*> classes = container.GetRootClass().EnumerateSubClasses(true);
  if (classes.size() > kFew) classes.erase(classes.begin(), classes.end() - kFew);
  for (TCIMClass* cimClass : classes) DropFirst(*cimClass);
  WalkContainer(container);
  RemoveInstances(container);
  for (; !classes.empty(); classes.pop_back()) {
    StatusOf([&] { container.RemoveClass(*classes.back()); });
  }
  for (TCIMClass* cimClass : container.GetRootClass().EnumerateSubClasses(true)) {
    WalkClass(container, *cimClass);
  }
}
