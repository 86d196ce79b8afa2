#include "model/TCIMQualifierDeclImpl.h"

#include <vskcore/model/TContainer.h>

#include "model/NormalizeCIMName.h"

TCIMQualifierDeclImpl::TCIMQualifierDeclImpl(TCIMQualifierDecl& owner, TContainer& container,
                                             const std::string& name, const TCIMValue& value,
                                             TCIMQualifierDecl::EScope scope,
                                             TCIMQualifierDecl::EFlavor flavor)
    : owner_(&owner),
      container_(&container),
      name_(name),
      value_(value),
      scope_(scope),
      flavor_(flavor) {}

void TCIMQualifierDeclImpl::AddToContainer() const {
  owner_->Validate();
  container_->AddQualifierDecl(*owner_);
}

bool TCIMQualifierDeclImpl::operator==(const TCIMQualifierDeclImpl& other) const {
  return NormalizeCIMName(name_) == NormalizeCIMName(other.name_);
}

bool TCIMQualifierDeclImpl::operator<(const TCIMQualifierDeclImpl& other) const {
  return NormalizeCIMName(name_) < NormalizeCIMName(other.name_);
}
