#include "model/TCIMPropertyDeclImpl.h"

#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMPropertyDecl.h>

#include "model/NormalizeCIMName.h"
#include "model/SchemaRevision.h"

TCIMPropertyDeclImpl::TCIMPropertyDeclImpl(TCIMPropertyDecl& owner, const std::string& name,
                                           TCIMClass& owningClass, const TCIMValue& value)
    : owner_(owner), name_(name), class_(owningClass), value_(value) {}

void TCIMPropertyDeclImpl::AddToContainer() const {
  Validate();
  class_.AddPropertyDecl(owner_);
}

void TCIMPropertyDeclImpl::SetName(const std::string& name) {
  vsk::detail::CountSchemaChange();
  name_ = name;
}

void TCIMPropertyDeclImpl::SetValue(const TCIMValue& value) {
  vsk::detail::CountSchemaChange();
  value_ = value;
}

const vsk::detail::TValueMap& TCIMPropertyDeclImpl::ValueMap() const {
  if (!valueMap_ || !valueMap_->IsCurrent()) {
    valueMap_ = std::make_unique<const vsk::detail::TValueMap>(qualifiers_);
  }
  return *valueMap_;
}

bool TCIMPropertyDeclImpl::operator==(const TCIMPropertyDeclImpl& other) const {
  return NormalizeCIMName(name_) == NormalizeCIMName(other.name_);
}

bool TCIMPropertyDeclImpl::operator<(const TCIMPropertyDeclImpl& other) const {
  return NormalizeCIMName(name_) < NormalizeCIMName(other.name_);
}
