#include "model/TCIMQualifierImpl.h"

#include "model/SchemaRevision.h"

TCIMQualifierImpl::TCIMQualifierImpl(const TCIMQualifierDecl& declaration, const TCIMValue& value,
                                     TCIMQualifierDecl::EFlavor flavor)
    : declaration_(&declaration), value_(value), flavor_(flavor), propagated_(false) {}

void TCIMQualifierImpl::SetValue(const TCIMValue& value) {
  vsk::detail::CountSchemaChange();
  value_.Set(value);
  propagated_ = false;
}

void TCIMQualifierImpl::SetFlavor(TCIMQualifierDecl::EFlavor flavor) {
  flavor_ = flavor_ | flavor;
  propagated_ = false;
}

void TCIMQualifierImpl::UnsetFlavor(TCIMQualifierDecl::EFlavor flavor) {
  flavor_ = flavor_ & ~flavor;
  propagated_ = false;
}

bool TCIMQualifierImpl::operator==(const TCIMQualifierImpl& other) const {
  return *declaration_ == *other.declaration_;
}

bool TCIMQualifierImpl::operator<(const TCIMQualifierImpl& other) const {
  return *declaration_ < *other.declaration_;
}
