#include <vskcore/model/TCIMProperty.h>

#include <utility>

#include "model/PropertyDisplay.h"
#include "model/TCIMPropertyImpl.h"
#include "model/TPeek.h"

using vsk::detail::TPeek;

TCIMPropertyImpl& TPeek::Impl(TCIMProperty& property) { return *property.impl_; }
const TCIMValue& TPeek::Value(const TCIMProperty& property) { return property.impl_->GetValue(); }

TCIMProperty::TCIMProperty(const TCIMPropertyDecl& declaration)
    : impl_(new TCIMPropertyImpl(declaration)) {}
TCIMProperty::TCIMProperty(const TCIMPropertyDecl& declaration, const TCIMValue& value)
    : impl_(new TCIMPropertyImpl(declaration, value)) {}
TCIMProperty::TCIMProperty(const TCIMProperty& other) : impl_(new TCIMPropertyImpl(*other.impl_)) {}
TCIMProperty& TCIMProperty::operator=(const TCIMProperty& other) {
  if (this == &other) return *this;
  auto* const made = new TCIMPropertyImpl(*other.impl_);
  impl_->TellOfChange();
  delete std::exchange(impl_, made);
  return *this;
}
TCIMProperty::~TCIMProperty() { delete impl_; }

const std::string TCIMProperty::GetName() const { return GetDeclaration().GetName(); }
const TCIMValue TCIMProperty::GetValue() const { return impl_->GetValue(); }
TCIMValue::TCIMType TCIMProperty::GetType() const { return GetDeclaration().GetType(); }
bool TCIMProperty::IsArray() const { return GetDeclaration().IsArray(); }
const TCIMPropertyDecl& TCIMProperty::GetDeclaration() const { return impl_->GetDeclaration(); }
bool TCIMProperty::GetPropagated() const { return !impl_->HasOwnValue(); }

void TCIMProperty::SetValue(const TCIMValue& value) { impl_->SetValue(value); }

std::string TCIMProperty::ToString() const {
  return vsk::detail::DisplayValue(GetDeclaration(), TPeek::Value(*this));
}
std::vector<std::string> TCIMProperty::ToStringVector() const {
  return vsk::detail::DisplayValues(GetDeclaration(), TPeek::Value(*this));
}

bool TCIMProperty::operator==(const TCIMProperty& other) const { return *impl_ == *other.impl_; }
bool TCIMProperty::operator<(const TCIMProperty& other) const { return *impl_ < *other.impl_; }
