#include <vskcore/model/TCIMClass.h>

#include <boost/make_shared.hpp>
#include <utility>

#include "core/base/Fail.h"
#include "model/TCIMClassImpl.h"

using vsk::detail::Require;

TCIMClass::TCIMClass(TContainer& container, std::string name, TCIMClass* superClass)
    : impl_(boost::make_shared<TCIMClassImpl>(*this, container, std::move(name), superClass)) {}
TCIMClass::~TCIMClass() = default;

void TCIMClass::Validate() const { impl_->Validate(); }
void TCIMClass::AddToContainer() const { impl_->AddToContainer(); }
TContainer& TCIMClass::GetContainer() const { return impl_->GetContainer(); }

const std::string& TCIMClass::GetName() const { return impl_->GetName(); }
bool TCIMClass::IsRootClass() const { return impl_->IsRootClass(); }
TCIMClass& TCIMClass::GetSuperClass() const { return impl_->GetSuperClass(); }
bool TCIMClass::IsAssociation() const { return impl_->IsAssociation(); }
bool TCIMClass::IsAbstract() const { return impl_->IsAbstract(); }
bool TCIMClass::IsSubclassOf(const TCIMClass* other) const { return impl_->IsSubclassOf(other); }
const std::vector<TCIMClass*> TCIMClass::EnumerateSubClasses(bool deep) const {
  return impl_->EnumerateSubClasses(deep);
}

void TCIMClass::AddQualifier(TCIMQualifier& qualifier) { impl_->Qualifiers().Add(qualifier); }
const TCIMQualifier& TCIMClass::GetQualifier(const std::string& name) const {
  return impl_->Qualifiers().Get(name);
}
const TCIMQualifier* TCIMClass::FindQualifier(const std::string& name) const {
  return impl_->Qualifiers().Find(name);
}
std::vector<const TCIMQualifier*> TCIMClass::EnumerateQualifiers() const {
  return impl_->Qualifiers().Enumerate();
}
void TCIMClass::RemoveQualifier(TCIMQualifier& qualifier) { impl_->Qualifiers().Remove(qualifier); }

const TCIMPropertyDecl& TCIMClass::GetPropertyDecl(const std::string& name) const {
  return Require(FindPropertyDecl(name));
}
const TCIMPropertyDecl* TCIMClass::FindPropertyDecl(const std::string& name) const {
  return impl_->Properties().Find(name);
}
void TCIMClass::RemovePropertyDecl(TCIMPropertyDecl& declaration) {
  impl_->RemovePropertyDecl(declaration);
}
std::vector<const TCIMPropertyDecl*> TCIMClass::EnumeratePropertyDecls() const {
  return impl_->Properties().Enumerate();
}
std::vector<std::string> TCIMClass::EnumerateKeyNames() const { return impl_->EnumerateKeyNames(); }

void TCIMClass::RemoveInstance(TCIMInstance& instance) { impl_->RemoveInstance(instance); }
TCIMInstance& TCIMClass::GetInstance(const TCIMReference& reference) const {
  return Require(FindInstance(reference));
}
TCIMInstance* TCIMClass::FindInstance(const TCIMReference& reference) const {
  return impl_->FindInstance(reference);
}
std::vector<TCIMInstance*> TCIMClass::EnumerateInstances(bool deep) const {
  return impl_->EnumerateInstances(deep);
}

std::vector<TCIMClass*> TCIMClass::References(const std::string& resultClass,
                                              const std::string& role) const {
  return impl_->References(resultClass, role);
}
std::vector<TCIMClass*> TCIMClass::Associators(const std::string& assocClass,
                                               const std::string& resultClass,
                                               const std::string& role,
                                               const std::string& resultRole) const {
  return impl_->Associators(assocClass, resultClass, role, resultRole);
}

bool TCIMClass::operator==(const TCIMClass& other) const { return GetName() == other.GetName(); }
bool TCIMClass::operator<(const TCIMClass& other) const { return GetName() < other.GetName(); }

void TCIMClass::AddPropertyDecl(TCIMPropertyDecl& declaration) {
  impl_->AddPropertyDecl(declaration);
}
void TCIMClass::AddInstance(TCIMInstance& instance) { impl_->AddInstance(instance); }
