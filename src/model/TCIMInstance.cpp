#include <vskcore/model/TCIMInstance.h>

#include <boost/make_shared.hpp>

#include "core/base/Fail.h"
#include "model/TCIMInstanceImpl.h"
#include "model/TPeek.h"

TCIMInstanceImpl& vsk::detail::TPeek::Impl(const TCIMInstance& instance) { return *instance.impl_; }

TCIMInstance::TCIMInstance(TCIMClass* cimClass)
    : impl_(boost::make_shared<TCIMInstanceImpl>(*this, cimClass)) {}
TCIMInstance::~TCIMInstance() = default;

void TCIMInstance::Validate() const { impl_->Validate(); }
void TCIMInstance::AddToContainer() const { impl_->AddToContainer(); }
TContainer& TCIMInstance::GetContainer() const { return impl_->GetContainer(); }
TCIMClass& TCIMInstance::GetClass() const { return impl_->GetClass(); }

void TCIMInstance::SetProperty(const TCIMProperty& property) { impl_->SetProperty(property); }
void TCIMInstance::SetPropertyValue(const std::string& name, const TCIMValue& value) {
  impl_->SetPropertyValue(name, value);
}
TCIMProperty& TCIMInstance::GetProperty(const std::string& name) const {
  return impl_->GetProperty(name);
}
TCIMProperty* TCIMInstance::FindProperty(const std::string& name) const {
  return impl_->FindProperty(name);
}
std::vector<const TCIMProperty*> TCIMInstance::EnumerateProperties() const {
  return impl_->EnumerateProperties();
}

TCIMReference TCIMInstance::BuildPath() const { return impl_->BuildPath(); }

std::vector<TCIMInstance*> TCIMInstance::References(const std::string& resultClass,
                                                    const std::string& role) const {
  return impl_->References(resultClass, role);
}
std::vector<TCIMInstance*> TCIMInstance::Associators(const std::string& assocClass,
                                                     const std::string& resultClass,
                                                     const std::string& role,
                                                     const std::string& resultRole) const {
  return impl_->Associators(assocClass, resultClass, role, resultRole);
}

bool TCIMInstance::operator==(const TCIMInstance& other) const { return *impl_ == *other.impl_; }
bool TCIMInstance::operator<(const TCIMInstance& other) const { return *impl_ < *other.impl_; }

TCIMInstance::TCIMInstance(TCIMInstance&, TCIMClass&) {
  throw TVSKException(vskStatusNotImplemented);
}
