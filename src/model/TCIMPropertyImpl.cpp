#include "model/TCIMPropertyImpl.h"

#include <vskcore/model/TCIMClass.h>

#include <new>
#include <string>
#include <utility>

#include "core/base/Fail.h"
#include "model/TCIMInstanceImpl.h"

using vsk::detail::Fail;

namespace {

std::string NameOf(const TCIMClass* cimClass) {
  return cimClass == nullptr ? std::string() : cimClass->GetName();
}

void CheckType(const TCIMPropertyDecl& declaration, const TCIMValue& value) {
  if (declaration.GetType() == value.GetType()) return;
  Fail(vskStatusTypeMismatch, "SetValue: decl is type " + declaration.GetType().ToString() +
                                  " but value is type " + value.GetType().ToString());
}

// A NULL that names no class can't point outside the declared one.
void CheckReferencedClass(const TCIMPropertyDecl& declaration, const TCIMValue& value) {
  const TCIMClass* declared = declaration.GetValue().FindReferencedClass();
  const TCIMClass* referenced = value.FindReferencedClass();
  const bool fits = referenced == nullptr ? value.IsNull() : referenced->IsSubclassOf(declared);
  if (fits) return;
  Fail(vskStatusTypeMismatch, "SetValue: decl references type " + NameOf(declared) +
                                  " but value references " + NameOf(referenced));
}

}  // namespace

TCIMPropertyImpl::TCIMPropertyImpl(const TCIMPropertyDecl& declaration, const TCIMValue& value)
    : declaration_(&declaration) {
  SetValue(value);
}

TCIMPropertyImpl::TCIMPropertyImpl(const TCIMPropertyImpl& other)
    : declaration_(other.declaration_) {
  if (other.HasOwnValue()) SetValue(other.value_);
}

void TCIMPropertyImpl::SetValue(const TCIMValue& value) {
  CheckType(*declaration_, value);
  if (value.IsReference()) CheckReferencedClass(*declaration_, value);
  TCIMValue copy(value);  // first, for value may be this property's own or lie within it
  TellOfChange();
  value_.~TCIMValue();  // assigning would compare, and that may fail
  new (&value_) TCIMValue(std::move(copy));
}

void TCIMPropertyImpl::TellOfChange() noexcept {
  TCIMInstanceImpl* const instance = std::exchange(watcher_, nullptr);
  if (instance != nullptr) instance->PropertyChanges();
}

bool TCIMPropertyImpl::operator==(const TCIMPropertyImpl& other) const {
  if (!(*declaration_ == *other.declaration_)) return false;
  if (!HasOwnValue() || !other.HasOwnValue()) return HasOwnValue() == other.HasOwnValue();
  return value_ == other.value_;
}

bool TCIMPropertyImpl::operator<(const TCIMPropertyImpl& other) const {
  if (*declaration_ < *other.declaration_) return true;
  if (*other.declaration_ < *declaration_) return false;
  if (!HasOwnValue() || !other.HasOwnValue()) return !HasOwnValue() && other.HasOwnValue();
  return value_ < other.value_;
}
