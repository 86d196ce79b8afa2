#include <vskcore/core/TVSKException.h>
#include <vskcore/model/TCIMValueImpl.h>

#include "model/TPeek.h"

const TCIMReference* vsk::detail::TPeek::Reference(const TCIMValue& value) {
  if (!value.IsReference() || value.IsNull()) return nullptr;
  return &static_cast<const TCIMReferenceValueImpl*>(Content(value))->reference_;
}

TCIMReferenceValueImpl::TCIMReferenceValueImpl(const TCIMReference& reference) {
  try {
    reference.GetCIMElement();
  } catch (const TVSKException&) {
    // An instance that joins its class later is found by a later look-up.
  }
  reference_ = reference;
}

TCIMReferenceValueImpl::TCIMReferenceValueImpl(const TCIMReferenceValueImpl& other) = default;

TCIMReferenceValueImpl::operator TCIMReference() const { return reference_; }

std::string TCIMReferenceValueImpl::ToString(unsigned char) const { return reference_.GetPath(); }

bool TCIMReferenceValueImpl::operator==(const TCIMValue& other) const {
  const TCIMReference* reference = vsk::detail::TPeek::Reference(other);
  return reference != nullptr && reference_ == *reference;
}

bool TCIMReferenceValueImpl::operator<(const TCIMValue& other) const {
  const TCIMReference* reference = vsk::detail::TPeek::Reference(other);
  return reference != nullptr && reference_ < *reference;
}
