#include "model/TCIMReferenceImpl.h"

#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMInstance.h>
#include <vskcore/model/TCIMPropertyDecl.h>
#include <vskcore/model/TContainer.h>

#include <functional>

#include "core/base/Fail.h"
#include "model/TCIMInstanceImpl.h"

using vsk::detail::Fail;
using vsk::detail::Require;

TCIMReferenceImpl::TCIMReferenceImpl(const TCIMReference& owner, const TContainer* container)
    : owner_(owner), container_(container), class_(nullptr), resolved_(nullptr) {}

TCIMReferenceImpl::TCIMReferenceImpl(const TCIMReference& owner, const TCIMReferenceImpl& other)
    : owner_(owner),
      container_(other.container_),
      class_(other.class_),
      bindings_(other.bindings_),
      resolved_(other.resolved_),
      watch_(other.watch_) {}

void TCIMReferenceImpl::Clear() {
  container_ = nullptr;
  class_ = nullptr;
  bindings_.clear();
  resolved_ = nullptr;
  watch_.reset();
}

void TCIMReferenceImpl::SetPath() const {
  throw TVSKException(container_ == nullptr ? vskStatusInvalidOpSequence : vskStatusNotImplemented);
}

void TCIMReferenceImpl::SetClass(TCIMClass& cimClass) {
  if (!bindings_.empty()) throw TVSKException(vskStatusInvalidOpSequence);
  class_ = &cimClass;
}

void TCIMReferenceImpl::SetClassName(const std::string& name) {
  if (container_ == nullptr || !bindings_.empty()) throw TVSKException(vskStatusInvalidOpSequence);
  class_ = &container_->GetClass(name);
}

TCIMClass& TCIMReferenceImpl::GetClass() const {
  if (class_ == nullptr) throw TVSKException(vskStatusInvalidReference);
  return *class_;
}

void TCIMReferenceImpl::AddKeyValue(const std::string& key, const TCIMValue& value) {
  if (class_ == nullptr) throw TVSKException(vskStatusInvalidOpSequence);
  const TCIMValue::TCIMType declared = class_->GetPropertyDecl(key).GetType();
  if (declared != value.GetType()) {
    Fail(vskStatusTypeMismatch,
         "Declaration type: " + declared.ToString() + " Value type: " + value.GetType().ToString());
  }
  bindings_.try_emplace(key, value);
}

std::string TCIMReferenceImpl::GetPath() const {
  std::string path = GetClass().GetName();
  char before = '.';
  for (const auto& [key, value] : bindings_) {
    path.append(1, before).append(key).append("=\"").append(value.ToString(10)).append(1, '"');
    before = ',';
  }
  return path;
}

ICIMElement& TCIMReferenceImpl::GetCIMElement() {
  TCIMClass& cimClass = GetClass();
  if (bindings_.empty()) return cimClass;
  if (watch_.expired()) {
    TCIMInstance& found = Require(cimClass.FindInstance(owner_));
    resolved_ = &found;
    watch_ = found.impl_;
  }
  return *resolved_;
}

ICIMElement* TCIMReferenceImpl::PeekCIMElement() const {
  TCIMClass& cimClass = GetClass();
  if (bindings_.empty()) return &cimClass;
  return watch_.expired() ? cimClass.FindInstance(owner_) : resolved_;
}

bool TCIMReferenceImpl::operator==(const TCIMReferenceImpl& other) const {
  return class_ == other.class_ && bindings_ == other.bindings_;
}

bool TCIMReferenceImpl::operator<(const TCIMReferenceImpl& other) const {
  if (class_ != other.class_) return std::less<const TCIMClass*>()(class_, other.class_);
  return bindings_ < other.bindings_;
}
