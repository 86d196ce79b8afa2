#include <vskcore/model/TCIMPropertyDecl.h>

#include <boost/make_shared.hpp>

#include "model/TCIMPropertyDeclImpl.h"
#include "model/TPeek.h"

const TCIMPropertyDeclImpl& vsk::detail::TPeek::Impl(const TCIMPropertyDecl& declaration) {
  return *declaration.impl_;
}

TCIMPropertyDecl::TCIMPropertyDecl(const std::string& name, TCIMClass& owningClass,
                                   const TCIMValue& value)
    : impl_(boost::make_shared<TCIMPropertyDeclImpl>(*this, name, owningClass, value)) {}

TCIMPropertyDecl::~TCIMPropertyDecl() = default;

void TCIMPropertyDecl::Validate() const { impl_->Validate(); }
void TCIMPropertyDecl::AddToContainer() const { impl_->AddToContainer(); }

const std::string& TCIMPropertyDecl::GetName() const { return impl_->GetName(); }
void TCIMPropertyDecl::SetName(const std::string& name) { impl_->SetName(name); }
const TCIMValue& TCIMPropertyDecl::GetValue() const { return impl_->GetValue(); }
void TCIMPropertyDecl::SetValue(const TCIMValue& value) { impl_->SetValue(value); }
TCIMValue::TCIMType TCIMPropertyDecl::GetType() const { return GetValue().GetType(); }
bool TCIMPropertyDecl::IsArray() const { return GetValue().IsArray(); }
TCIMClass& TCIMPropertyDecl::GetClass() const { return impl_->GetClass(); }

void TCIMPropertyDecl::AddQualifier(TCIMQualifier& qualifier) {
  impl_->Qualifiers().Add(qualifier);
}
const TCIMQualifier& TCIMPropertyDecl::GetQualifier(const std::string& name) const {
  return impl_->Qualifiers().Get(name);
}
const TCIMQualifier* TCIMPropertyDecl::FindQualifier(const std::string& name) const {
  return impl_->Qualifiers().Find(name);
}
std::vector<const TCIMQualifier*> TCIMPropertyDecl::EnumerateQualifiers() const {
  return impl_->Qualifiers().Enumerate();
}
void TCIMPropertyDecl::RemoveQualifier(TCIMQualifier& qualifier) {
  impl_->Qualifiers().Remove(qualifier);
}

bool TCIMPropertyDecl::operator==(const TCIMPropertyDecl& other) const {
  return *impl_ == *other.impl_;
}
bool TCIMPropertyDecl::operator<(const TCIMPropertyDecl& other) const {
  return *impl_ < *other.impl_;
}
