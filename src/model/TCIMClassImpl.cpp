#include "model/TCIMClassImpl.h"

#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMInstance.h>
#include <vskcore/model/TCIMPropertyDecl.h>
#include <vskcore/model/TCIMReference.h>
#include <vskcore/model/TContainer.h>

#include <algorithm>
#include <boost/make_shared.hpp>
#include <utility>

#include "core/base/Fail.h"
#include "model/NormalizeCIMName.h"
#include "model/SchemaRevision.h"
#include "model/TCIMInstanceImpl.h"
#include "model/TCIMPropertyDeclImpl.h"
#include "model/TContainerImpl.h"

using vsk::detail::CountSchemaChange;
using vsk::detail::Fail;
using vsk::detail::IsTrue;
using vsk::detail::Require;
using vsk::detail::TAssociationSet;
using vsk::detail::TPropertyLayout;
using vsk::detail::TPropertyTable;

TCIMClassImpl::TCIMClassImpl(TCIMClass& owner, TContainer& container, std::string name,
                             TCIMClass* superClass)
    : owner_(owner), container_(container), name_(std::move(name)), superClass_(superClass) {
  if (superClass == nullptr) {
    superClass_ = container.FindClass("");  // null while the root class itself is being made
    properties_ = boost::make_shared<TPropertyTable>();
    return;
  }
  properties_ = superClass->impl_->properties_;
  qualifiers_.Inherit(superClass->impl_->qualifiers_);
}

TCIMClassImpl::~TCIMClassImpl() {
  CountSchemaChange();
  if (inContainer_ && !container_.impl_->IsClosing()) superClass_->impl_->RemoveSubClass(owner_);
}

void TCIMClassImpl::Validate() const {
  if (IsAbstract()) return;
  bool hasKey = false;
  properties_->Visit([&](const TPropertyTable::TEntry& entry) {
    hasKey = hasKey || entry.declaration->impl_->IsKey();
  });
  if (!hasKey) Fail(vskStatusInvalidClass, "Class " + name_ + " has no keys");
}

void TCIMClassImpl::AddToContainer() {
  Validate();
  const std::string key = container_.impl_->CheckNewClass(owner_);  // refuses the root class
  const std::vector<TCIMClass*> ends =
      IsAssociation() ? AssociationEnds() : std::vector<TCIMClass*>();
  std::vector<TAssociationSet> links(ends.size());
  for (TAssociationSet& link : links) link.Add(key, owner_);
  superClass_->impl_->MakeRoomForSubClass();
  container_.AddClass(owner_);  // nothing fails any more from here on
  superClass_->impl_->subClasses_.push_back(&owner_);
  inContainer_ = true;
  for (std::size_t i = 0; i < ends.size(); ++i) {
    ends[i]->impl_->associations_.Merge(links[i]);
  }
}

bool TCIMClassImpl::IsRootClass() const {
  return superClass_ != nullptr && superClass_->impl_->superClass_ == nullptr;
}

TCIMClass& TCIMClassImpl::GetSuperClass() const { return Require(superClass_); }

bool TCIMClassImpl::IsAssociation() const { return IsTrue(qualifiers_.FindKey("association")); }

bool TCIMClassImpl::IsAbstract() const { return IsTrue(qualifiers_.FindKey("abstract")); }

bool TCIMClassImpl::IsSubclassOf(const TCIMClass* other) const {
  const TCIMClass* current = &owner_;
  while (current != other && current->impl_->superClass_ != nullptr) {
    current = current->impl_->superClass_;
  }
  return current == other;
}

std::vector<TCIMClass*> TCIMClassImpl::EnumerateSubClasses(bool deep) const {
  if (!deep) return subClasses_;
  std::vector<TCIMClass*> all;
  std::vector<TCIMClass*> pending(subClasses_.rbegin(), subClasses_.rend());
  while (!pending.empty()) {
    TCIMClass* next = pending.back();
    pending.pop_back();
    all.push_back(next);
    const std::vector<TCIMClass*>& below = next->impl_->subClasses_;
    pending.insert(pending.end(), below.rbegin(), below.rend());
  }
  return all;
}

void TCIMClassImpl::MakeRoomForSubClass() {
  if (subClasses_.size() == subClasses_.capacity()) subClasses_.reserve(2 * subClasses_.size() + 1);
}

void TCIMClassImpl::RemoveSubClass(const TCIMClass& subClass) {
  subClasses_.erase(std::find(subClasses_.begin(), subClasses_.end(), &subClass));
}

void TCIMClassImpl::AddPropertyDecl(TCIMPropertyDecl& declaration) {
  const std::string& name = declaration.GetName();
  if (declaration.GetValue().IsReference() && !IsAssociation()) {
    Fail(vskStatusNotAssociation,
         "Attempt to add reference property " + name + " to non-association class " + name_);
  }
  std::string key = NormalizeCIMName(name);
  const TCIMPropertyDecl* present = properties_->FindKey(key);
  // Presence decides; what the qualifier says is never read.
  if (declaration.FindQualifier("OVERRIDE") != nullptr) {
    CheckOverride(declaration, present);
  } else if (present != nullptr) {
    Fail(vskStatusAlreadyExists,
         "Attempt to add property " + name + " to class " + name_ + ": already exists");
  }
  CountSchemaChange();
  OwnProperties().Adopt(std::move(key), declaration);
  layout_.reset();
}

void TCIMClassImpl::CheckOverride(const TCIMPropertyDecl& declaration,
                                  const TCIMPropertyDecl* present) const {
  const std::string attempt =
      "Attempt to override property " + declaration.GetName() + " in class " + name_;
  if (present == nullptr) {
    Fail(vskStatusNotFound, attempt + ": property doesn't exist in base class");
  }
  if (present->GetType() != declaration.GetType()) {
    Fail(vskStatusTypeMismatch, attempt + ": different types");
  }
  if (present->GetClass() == owner_) {
    Fail(vskStatusAlreadyExists, attempt + ": original was defined in this class");
  }
}

void TCIMClassImpl::RemovePropertyDecl(const TCIMPropertyDecl& declaration) {
  const std::string key = NormalizeCIMName(declaration.GetName());
  Require(properties_->FindKey(key));
  CountSchemaChange();
  OwnProperties().RemoveKey(key);
  layout_.reset();
}

TPropertyTable& TCIMClassImpl::OwnProperties() {
  if (properties_.use_count() > 1) properties_ = boost::make_shared<TPropertyTable>(*properties_);
  return *properties_;
}

std::vector<std::string> TCIMClassImpl::EnumerateKeyNames() const {
  std::vector<std::string> names;
  properties_->Visit([&](const TPropertyTable::TEntry& entry) {
    if (entry.declaration->impl_->IsKey()) names.push_back(entry.declaration->GetName());
  });
  return names;
}

boost::shared_ptr<const TPropertyLayout> TCIMClassImpl::Layout() {
  if (!layout_ || !layout_->IsCurrent()) {
    layout_ = boost::make_shared<const TPropertyLayout>(*properties_);
  }
  return layout_;
}

void TCIMClassImpl::AddInstance(TCIMInstance& instance) { instances_.Add(instance); }

void TCIMClassImpl::RemoveInstance(TCIMInstance& instance) {
  // The list that may hold it is that of its own class, whichever class was asked.
  instance.GetClass().impl_->instances_.Remove(instance);
}

TCIMInstance* TCIMClassImpl::FindInstance(const TCIMReference& reference) const {
  return instances_.Find(*properties_, reference);
}

void TCIMClassImpl::InstanceChanges(const TCIMInstanceImpl& instance) noexcept {
  instances_.Changes(instance.GetPosition());
}

std::vector<TCIMInstance*> TCIMClassImpl::EnumerateInstances(bool deep) const {
  std::vector<TCIMInstance*> all;
  instances_.AppendTo(all);
  if (!deep) return all;
  for (const TCIMClass* subClass : EnumerateSubClasses(true)) {
    subClass->impl_->instances_.AppendTo(all);
  }
  return all;
}
