#include "model/TCIMInstanceImpl.h"

#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMDateTime.h>
#include <vskcore/model/TCIMInstance.h>
#include <vskcore/platform/TOSSpecific.h>

#include <functional>

#include "core/base/Fail.h"
#include "model/NormalizeCIMName.h"
#include "model/TCIMClassImpl.h"
#include "model/TPeek.h"

using vsk::detail::Fail;
using vsk::detail::Require;
using vsk::detail::TPeek;
using vsk::detail::TPropertyLayout;

namespace {

const char kCollectionTime[] = "datetimeofcollection";

TCIMClass& Given(TCIMClass* cimClass) {
  if (cimClass == nullptr) throw TVSKException(vskStatusInvalidClass);
  return *cimClass;
}

}  // namespace

TCIMInstanceImpl::TCIMInstanceImpl(TCIMInstance& owner, TCIMClass* cimClass)
    : owner_(owner), class_(Given(cimClass)), layout_(class_.impl_->Layout()) {
  properties_.reserve(layout_->Entries().size());
  for (const TPropertyLayout::TEntry& entry : layout_->Entries()) {
    properties_.emplace_back(*entry.declaration);
  }
  TCIMProperty* collected = FindKey(kCollectionTime);
  if (collected != nullptr) collected->SetValue(TOSSpecific::GetLocalTime());
}

void TCIMInstanceImpl::Validate() const {
  for (const std::string& name : class_.EnumerateKeyNames()) {
    const TCIMProperty& key = GetProperty(name);
    if (!TPeek::Value(key).IsNull()) continue;
    Fail(vskStatusInvalidInstance,
         "Instance " + class_.GetName() + ": key property " + key.GetName() + " is NULL");
  }
}

void TCIMInstanceImpl::AddToContainer() const {
  owner_.Validate();
  class_.AddInstance(owner_);
}

TContainer& TCIMInstanceImpl::GetContainer() const { return class_.GetContainer(); }

void TCIMInstanceImpl::SetProperty(const TCIMProperty& property) {
  GetProperty(property.GetName()) = property;
}

void TCIMInstanceImpl::SetPropertyValue(const std::string& name, const TCIMValue& value) {
  GetProperty(name).SetValue(value);
}

TCIMProperty& TCIMInstanceImpl::GetProperty(const std::string& name) const {
  return Require(FindProperty(name));
}

TCIMProperty* TCIMInstanceImpl::FindProperty(const std::string& name) const {
  return FindKey(NormalizeCIMName(name));
}

TCIMProperty* TCIMInstanceImpl::FindKey(const std::string& key) const {
  const std::size_t place = layout_->Find(key);
  return place == TPropertyLayout::kNone ? nullptr : &properties_[place];
}

std::vector<const TCIMProperty*> TCIMInstanceImpl::EnumerateProperties() const {
  std::vector<const TCIMProperty*> all;
  all.reserve(properties_.size());
  for (const TCIMProperty& property : properties_) all.push_back(&property);
  return all;
}

TCIMReference TCIMInstanceImpl::BuildPath() const {
  TCIMReference path;
  path.SetClass(class_);
  for (const std::string& name : class_.EnumerateKeyNames()) {
    path.AddKeyValue(name, TPeek::Value(GetProperty(name)));
  }
  return path;
}

void TCIMInstanceImpl::PropertyChanges() noexcept { class_.impl_->InstanceChanges(*this); }

bool TCIMInstanceImpl::operator==(const TCIMInstanceImpl& other) const {
  if (&class_ != &other.class_ || properties_.size() != other.properties_.size()) return false;
  for (std::size_t i = 0; i < properties_.size(); ++i) {
    if (layout_->Entries()[i].key != other.layout_->Entries()[i].key) return false;
    if (!(properties_[i] == other.properties_[i])) return false;
  }
  return true;
}

bool TCIMInstanceImpl::operator<(const TCIMInstanceImpl& other) const {
  return std::less<>()(&class_, &other.class_);
}
