#include <vskcore/model/TCIMQualifierDecl.h>

#include <boost/make_shared.hpp>

#include "model/TCIMQualifierDeclImpl.h"

TCIMQualifierDecl::TCIMQualifierDecl(TContainer& container)
    : TCIMQualifierDecl(container, std::string(), TCIMValue(), scopeNone, flavorNone) {}
TCIMQualifierDecl::TCIMQualifierDecl(TContainer& container, const std::string& name,
                                     const TCIMValue& value, EScope scope, EFlavor flavor)
    : impl_(boost::make_shared<TCIMQualifierDeclImpl>(*this, container, name, value, scope,
                                                      flavor)) {}
TCIMQualifierDecl::~TCIMQualifierDecl() = default;

const std::string& TCIMQualifierDecl::GetName() const { return impl_->GetName(); }
void TCIMQualifierDecl::SetName(const std::string& name) { impl_->SetName(name); }
TCIMValue::TCIMType TCIMQualifierDecl::GetType() const { return impl_->GetValue().GetType(); }
bool TCIMQualifierDecl::IsArray() const { return impl_->GetValue().IsArray(); }
const TCIMValue TCIMQualifierDecl::GetValue() const { return impl_->GetValue(); }
void TCIMQualifierDecl::SetValue(const TCIMValue& value) { impl_->SetValue(value); }
TContainer& TCIMQualifierDecl::GetContainer() const { return impl_->GetContainer(); }
TCIMQualifierDecl::EScope TCIMQualifierDecl::GetScope() const { return impl_->GetScope(); }
void TCIMQualifierDecl::SetFlavor(EFlavor flavor) { impl_->SetFlavor(flavor); }
void TCIMQualifierDecl::UnsetFlavor(EFlavor flavor) { impl_->UnsetFlavor(flavor); }
TCIMQualifierDecl::EFlavor TCIMQualifierDecl::GetFlavor() const { return impl_->GetFlavor(); }
void TCIMQualifierDecl::Validate() const {}
void TCIMQualifierDecl::AddToContainer() const { impl_->AddToContainer(); }

bool TCIMQualifierDecl::operator==(const TCIMQualifierDecl& other) const {
  return *impl_ == *other.impl_;
}
bool TCIMQualifierDecl::operator<(const TCIMQualifierDecl& other) const {
  return *impl_ < *other.impl_;
}
