#include "model/TContainerImpl.h"

#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMInstance.h>
#include <vskcore/model/TContainer.h>

#include <memory>
#include <utility>

#include "core/base/Fail.h"
#include "model/NormalizeCIMName.h"

using vsk::detail::Fail;
using vsk::detail::LogDebug;
using vsk::detail::Require;
using vsk::detail::TDependentSearch;

namespace {

[[noreturn]] void FailTaken(const std::string& what) {
  LogDebug("TContainer: " + what + " already defined");
  throw TVSKException(vskStatusAlreadyExists);
}

void RefuseRemoval(const std::string& what, const std::string& dependent) {
  if (dependent.empty()) return;
  Fail(vskStatusInvalidOpSequence,
       "TContainer: " + what + " can't be removed: " + dependent + " depends on it");
}

}  // namespace

TContainerImpl::~TContainerImpl() { Close(); }

void TContainerImpl::Close() {
  closing_ = true;
  classes_.Clear();
  qualifierDecls_.Clear();
  delete std::exchange(rootClass_, nullptr);
}

TCIMClass& TContainerImpl::AllocateClass(const std::string& name, TCIMClass* superClass) const {
  return *new TCIMClass(owner_, name, superClass);
}

TCIMInstance& TContainerImpl::AllocateInstance(TCIMClass* cimClass) const {
  return *new TCIMInstance(cimClass);
}

TCIMQualifierDecl& TContainerImpl::AllocateQualifierDecl(const std::string& name,
                                                         const TCIMValue& value,
                                                         TCIMQualifierDecl::EScope scope,
                                                         TCIMQualifierDecl::EFlavor flavor) const {
  return *new TCIMQualifierDecl(owner_, name, value, scope, flavor);
}

TCIMClass* TContainerImpl::FindClass(const std::string& name) const {
  return name.empty() ? rootClass_ : classes_.Find(name);
}

std::string TContainerImpl::CheckNewClass(const TCIMClass& cimClass) const {
  const std::string& name = cimClass.GetName();
  std::string key = NormalizeCIMName(name);
  if (classes_.FindKey(key) != nullptr) FailTaken("class " + name);
  return key;
}

void TContainerImpl::AddClass(TCIMClass& cimClass) {
  classes_.Adopt(CheckNewClass(cimClass), cimClass);
}

void TContainerImpl::RemoveClass(const TCIMClass& cimClass) {
  const std::string key = NormalizeCIMName(cimClass.GetName());
  const TCIMClass& doomed = Require(classes_.FindKey(key));
  RefuseRemoval("class " + doomed.GetName(), Dependents().On(doomed));
  classes_.RemoveKey(key);
}

TCIMQualifierDecl* TContainerImpl::FindQualifierDecl(const std::string& name) const {
  return qualifierDecls_.Find(name);
}

void TContainerImpl::AddQualifierDecl(TCIMQualifierDecl& declaration) {
  std::unique_ptr<TCIMQualifierDecl> owned(&declaration);
  const std::string& name = declaration.GetName();
  std::string key = NormalizeCIMName(name);
  const TCIMQualifierDecl* const present = qualifierDecls_.FindKey(key);
  if (present == &declaration) owned.release();  // the table's already, not to be destroyed
  if (present != nullptr) FailTaken("qualifier " + name);
  qualifierDecls_.Adopt(std::move(key), declaration);
  owned.release();
}

void TContainerImpl::RemoveQualifierDecl(const TCIMQualifierDecl& declaration) {
  const std::string key = NormalizeCIMName(declaration.GetName());
  const TCIMQualifierDecl& doomed = Require(qualifierDecls_.FindKey(key));
  RefuseRemoval("qualifier " + doomed.GetName(), Dependents().On(doomed));
  qualifierDecls_.RemoveKey(key);
}

std::vector<TCIMQualifierDecl*> TContainerImpl::EnumerateQualifiers() const {
  return qualifierDecls_.Enumerate<TCIMQualifierDecl*>();
}

TDependentSearch TContainerImpl::Dependents() const {
  std::vector<const TCIMClass*> classes = classes_.Enumerate<const TCIMClass*>();
  classes.push_back(rootClass_);
  return TDependentSearch(std::move(classes), EnumerateQualifiers());
}
