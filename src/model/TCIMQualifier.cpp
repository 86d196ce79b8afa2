#include <vskcore/model/TCIMQualifier.h>

#include <boost/make_shared.hpp>

#include "model/TCIMQualifierImpl.h"
#include "model/TPeek.h"

const TCIMValue& vsk::detail::TPeek::Value(const TCIMQualifier& qualifier) {
  return qualifier.impl_->GetValue();
}

TCIMQualifier::TCIMQualifier(const TCIMQualifierDecl& declaration, const TCIMValue& value)
    : TCIMQualifier(declaration, value, declaration.GetFlavor()) {}
TCIMQualifier::TCIMQualifier(const TCIMQualifierDecl& declaration, const TCIMValue& value,
                             TCIMQualifierDecl::EFlavor flavor)
    : impl_(boost::make_shared<TCIMQualifierImpl>(declaration, value, flavor)) {}
TCIMQualifier::TCIMQualifier(const TCIMQualifier& other)
    : impl_(boost::make_shared<TCIMQualifierImpl>(*other.impl_)) {}
TCIMQualifier::~TCIMQualifier() = default;

const std::string& TCIMQualifier::GetName() const { return impl_->GetName(); }
TCIMValue::TCIMType TCIMQualifier::GetType() const { return impl_->GetValue().GetType(); }
bool TCIMQualifier::IsArray() const { return impl_->GetValue().IsArray(); }
const TCIMQualifierDecl& TCIMQualifier::GetDeclaration() const { return impl_->GetDeclaration(); }
const TCIMValue TCIMQualifier::GetValue() const { return impl_->GetValue(); }
void TCIMQualifier::SetValue(const TCIMValue& value) { impl_->SetValue(value); }
void TCIMQualifier::SetFlavor(TCIMQualifierDecl::EFlavor flavor) { impl_->SetFlavor(flavor); }
void TCIMQualifier::UnsetFlavor(TCIMQualifierDecl::EFlavor flavor) { impl_->UnsetFlavor(flavor); }
TCIMQualifierDecl::EFlavor TCIMQualifier::GetFlavor() const { return impl_->GetFlavor(); }
bool TCIMQualifier::GetPropagated() const { return impl_->GetPropagated(); }
void TCIMQualifier::SetPropagated(bool propagated) { impl_->SetPropagated(propagated); }
bool TCIMQualifier::operator==(const TCIMQualifier& other) const { return *impl_ == *other.impl_; }
bool TCIMQualifier::operator<(const TCIMQualifier& other) const { return *impl_ < *other.impl_; }
