#include <vskcore/model/TContainer.h>

#include <boost/make_shared.hpp>

#include "core/base/Fail.h"
#include "model/TContainerImpl.h"

using vsk::detail::Require;

TContainer::TContainer() : impl_(boost::make_shared<TContainerImpl>(*this)) {
  impl_->SetRootClass(TContainer::AllocateClass("<root>", nullptr));
}
TContainer::~TContainer() { impl_->Close(); }

TCIMClass& TContainer::AllocateClass(const std::string& name, TCIMClass* superClass) const {
  return impl_->AllocateClass(name, superClass);
}
TCIMInstance& TContainer::AllocateInstance(TCIMClass* cimClass) const {
  return impl_->AllocateInstance(cimClass);
}
TCIMQualifierDecl& TContainer::AllocateQualifierDecl(const std::string& name,
                                                     const TCIMValue& value,
                                                     TCIMQualifierDecl::EScope scope,
                                                     TCIMQualifierDecl::EFlavor flavor) const {
  return impl_->AllocateQualifierDecl(name, value, scope, flavor);
}

TCIMClass& TContainer::GetRootClass() const { return impl_->GetRootClass(); }
TCIMClass& TContainer::GetClass(const std::string& name) const { return Require(FindClass(name)); }
TCIMClass* TContainer::FindClass(const std::string& name) const { return impl_->FindClass(name); }
void TContainer::RemoveClass(TCIMClass& cimClass) { impl_->RemoveClass(cimClass); }

TCIMQualifierDecl& TContainer::GetQualifierDecl(const std::string& name) const {
  return Require(FindQualifierDecl(name));
}
TCIMQualifierDecl* TContainer::FindQualifierDecl(const std::string& name) const {
  return impl_->FindQualifierDecl(name);
}
void TContainer::RemoveQualifierDecl(TCIMQualifierDecl& declaration) {
  impl_->RemoveQualifierDecl(declaration);
}
std::vector<TCIMQualifierDecl*> TContainer::EnumerateQualifiers() const {
  return impl_->EnumerateQualifiers();
}

void TContainer::AddClass(TCIMClass& cimClass) { impl_->AddClass(cimClass); }
void TContainer::AddQualifierDecl(TCIMQualifierDecl& declaration) {
  impl_->AddQualifierDecl(declaration);
}
