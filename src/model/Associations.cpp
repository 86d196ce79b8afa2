// The association part of TCIMClassImpl and TCIMInstanceImpl: how an association class registers at
// the classes that it points to, and the four walks.
//
// Only the registration is stored. What stands at the far ends is read from the declarations, or
// from the references of the association's instances, at each walk; an index proposes which
// instances to look at (TReferrerIndex.h). A walk never changes what an instance holds: where a
// reference has not found its target yet, it is looked up again each time.
#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMInstance.h>
#include <vskcore/model/TCIMProperty.h>
#include <vskcore/model/TCIMPropertyDecl.h>
#include <vskcore/model/TCIMReference.h>
#include <vskcore/model/TContainer.h>

#include <algorithm>
#include <map>

#include "core/base/Fail.h"
#include "model/NormalizeCIMName.h"
#include "model/TCIMClassImpl.h"
#include "model/TCIMInstanceImpl.h"
#include "model/TCIMReferenceImpl.h"
#include "model/TPeek.h"

using vsk::detail::Require;
using vsk::detail::TPeek;
using vsk::detail::TPropertyTable;
using vsk::detail::TReferrerIndex;

namespace {

// The class that a reference property points to; null for another type and where none was given.
TCIMClass* TargetOf(const TCIMPropertyDecl& declaration) {
  const TCIMValue& value = declaration.GetValue();
  return value.IsReference() ? value.FindReferencedClass() : nullptr;
}

bool PointsAt(const TCIMPropertyDecl* declaration, const TCIMClass& target) {
  return declaration != nullptr && TargetOf(*declaration) == &target;
}

bool IsWithin(const TCIMClass* cimClass, const TCIMClass* superClass) {
  return cimClass != nullptr && cimClass->IsSubclassOf(superClass);
}

// The element that a reference value points to, null when nothing is there. Fails as the look-up
// does otherwise, and on NULL.
ICIMElement* FindElement(const TCIMValue& value) {
  const TCIMReference* reference = TPeek::Reference(value);
  if (reference == nullptr) throw TVSKException(vskStatusValueIsNULL);
  try {
    return TPeek::Impl(*reference).PeekCIMElement();
  } catch (const TVSKException& exception) {
    if (exception.status != vskStatusNotFound) throw;
    return nullptr;
  }
}

bool PointsAt(const TCIMProperty* property, const TCIMInstance& target) {
  if (property == nullptr) return false;
  const TCIMValue& value = TPeek::Value(*property);
  return value.IsReference() && FindElement(value) == &target;
}

// A reference to a class has no instance at its end.
void AppendInstance(ICIMElement* element, std::vector<TCIMInstance*>& all) {
  auto* instance = dynamic_cast<TCIMInstance*>(element);
  if (instance != nullptr) all.push_back(instance);
}

}  // namespace

std::vector<TCIMClass*> TCIMClassImpl::AssociationEnds() const {
  std::vector<TCIMClass*> ends;
  std::map<const TCIMClass*, int> pointedAt;
  properties_->Visit([&](const TPropertyTable::TEntry& entry) {
    TCIMClass* target = TargetOf(*entry.declaration);
    if (target == nullptr) return;
    ends.push_back(target);
    ++pointedAt[target];
  });
  // An end below another end is reached from there by walking up; the same class at two ends
  // registers nowhere.
  const auto isCovered = [&](const TCIMClass* end) {
    if (pointedAt[end] > 1) return true;
    do end = end->impl_->superClass_;
    while (end != nullptr && pointedAt.count(end) == 0);
    return end != nullptr;
  };
  ends.erase(std::remove_if(ends.begin(), ends.end(), isCovered), ends.end());
  return ends;
}

template <typename TVisit>
void TCIMClassImpl::VisitAssociations(const TCIMClass* associationClass, TVisit&& visit) const {
  // The root class, at the top, takes no part.
  for (const TCIMClassImpl* end = this; end->superClass_ != nullptr;
       end = end->superClass_->impl_.get()) {
    for (TCIMClass* association : end->associations_.Enumerate()) {
      if (association->IsSubclassOf(associationClass)) visit(*association);
    }
  }
}

std::vector<TCIMClass*> TCIMClassImpl::References(const std::string& resultClass,
                                                  const std::string& role) const {
  const TCIMClass* result = container_.FindClass(resultClass);
  std::vector<TCIMClass*> all;
  VisitAssociations(result, [&](TCIMClass& association) {
    if (role.empty() || PointsAt(association.FindPropertyDecl(role), owner_)) {
      all.push_back(&association);
    }
  });
  return all;
}

std::vector<TCIMClass*> TCIMClassImpl::Associators(const std::string& assocClass,
                                                   const std::string& resultClass,
                                                   const std::string& role,
                                                   const std::string& resultRole) const {
  const TCIMClass* association = container_.FindClass(assocClass);
  const TCIMClass* result = container_.FindClass(resultClass);
  std::vector<TCIMClass*> all;
  if (association == nullptr || result == nullptr) return all;
  const std::string roleKey = NormalizeCIMName(role);
  VisitAssociations(association, [&](const TCIMClass& found) {
    if (!role.empty() && !PointsAt(found.FindPropertyDecl(role), owner_)) return;
    if (resultRole.empty()) return AppendFarEnds(found, *result, roleKey, all);
    const TCIMPropertyDecl* farEnd = found.FindPropertyDecl(resultRole);
    TCIMClass* target = farEnd == nullptr ? nullptr : TargetOf(*farEnd);
    if (IsWithin(target, result)) all.push_back(target);
  });
  return all;
}

void TCIMClassImpl::AppendFarEnds(const TCIMClass& association, const TCIMClass& result,
                                  const std::string& roleKey, std::vector<TCIMClass*>& all) const {
  bool nearEndPassed = false;
  association.impl_->properties_->Visit([&](const TPropertyTable::TEntry& entry) {
    TCIMClass* target = TargetOf(*entry.declaration);
    if (!nearEndPassed) {
      nearEndPassed =
          roleKey.empty() ? target != nullptr && *target == owner_ : entry.key == roleKey;
      if (nearEndPassed) return;
    }
    if (IsWithin(target, &result)) all.push_back(target);
  });
}

std::vector<TCIMInstance*> TCIMClassImpl::EnumerateReferrers(const TCIMInstance& target) const {
  std::vector<TCIMInstance*> all;
  const TCIMClassImpl& targetClass = *target.GetClass().impl_;
  const auto path = targetClass.instances_.HashPath(*targetClass.properties_, TPeek::Impl(target));
  const TReferrerIndex* referrers = path ? instances_.GetReferrers() : nullptr;
  const bool sure = referrers != nullptr && FindSurely(referrers->Classes());
  if (sure) {
    instances_.AppendTo(referrers->Find(target, *path), all);
  } else {
    instances_.AppendTo(all);
  }
  return all;
}

bool TCIMClassImpl::FindSurely(const std::vector<TCIMClass*>& classes) {
  return std::all_of(classes.begin(), classes.end(), [](const TCIMClass* cimClass) {
    const TCIMClassImpl& impl = *cimClass->impl_;
    return impl.instances_.FindsSurely(*impl.properties_);
  });
}

std::vector<TCIMInstance*> TCIMInstanceImpl::References(const std::string& resultClass,
                                                        const std::string& role) const {
  std::vector<TCIMInstance*> all;
  for (const TCIMClass* association : class_.References(resultClass, role)) {
    for (TCIMInstance* instance : association->impl_->EnumerateReferrers(owner_)) {
      if (PointsHere(*instance, role)) all.push_back(instance);
    }
  }
  return all;
}

bool TCIMInstanceImpl::PointsHere(const TCIMInstance& association, const std::string& role) const {
  if (!role.empty()) return PointsAt(association.FindProperty(role), owner_);
  const std::vector<TCIMProperty>& all = association.impl_->properties_;
  return std::any_of(all.begin(), all.end(),
                     [&](const TCIMProperty& property) { return PointsAt(&property, owner_); });
}

std::vector<TCIMInstance*> TCIMInstanceImpl::Associators(const std::string& assocClass,
                                                         const std::string& resultClass,
                                                         const std::string& role,
                                                         const std::string& resultRole) const {
  const TCIMClass* result = GetContainer().FindClass(resultClass);
  std::vector<TCIMInstance*> all;
  if (result == nullptr) return all;
  const std::string roleKey = NormalizeCIMName(role);
  for (const TCIMInstance* association : References(assocClass, role)) {
    if (resultRole.empty()) {
      AppendFarEnds(*association, *result, roleKey, all);
      continue;
    }
    const TCIMProperty* farEnd = association->FindProperty(resultRole);
    if (farEnd == nullptr) continue;
    const TCIMValue& value = TPeek::Value(*farEnd);
    // Who names the far end wants to know when nothing is there.
    if (value.IsReference() && IsWithin(value.FindReferencedClass(), result)) {
      AppendInstance(&Require(FindElement(value)), all);
    }
  }
  return all;
}

void TCIMInstanceImpl::AppendFarEnds(const TCIMInstance& association, const TCIMClass& result,
                                     const std::string& roleKey,
                                     std::vector<TCIMInstance*>& all) const {
  const TCIMInstanceImpl& ends = *association.impl_;
  bool nearEndPassed = false;
  for (std::size_t i = 0; i < ends.properties_.size(); ++i) {
    const TCIMValue& value = TPeek::Value(ends.properties_[i]);
    const TCIMClass* target = value.IsReference() ? value.FindReferencedClass() : nullptr;
    if (!nearEndPassed) {
      nearEndPassed =
          roleKey.empty() ? target == &class_ : ends.layout_->Entries()[i].key == roleKey;
      if (nearEndPassed) continue;
    }
    if (IsWithin(target, &result)) AppendInstance(FindElement(value), all);
  }
}
