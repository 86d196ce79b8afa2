#include <vskcore/model/TCIMReference.h>

#include <vskcore/model/TCIMClass.h>

#include <boost/make_shared.hpp>
#include <utility>

#include "model/TCIMReferenceImpl.h"
#include "model/TPeek.h"

const TCIMReferenceImpl& vsk::detail::TPeek::Impl(const TCIMReference& reference) {
  return *reference.impl_;
}
const TCIMReference::TKeyBindings& vsk::detail::TPeek::Bindings(const TCIMReference& reference) {
  return reference.impl_->Bindings();
}

TCIMReference::TCIMReference(const TContainer* container)
    : impl_(boost::make_shared<TCIMReferenceImpl>(*this, container)) {}
TCIMReference::TCIMReference(const TContainer* container, const std::string& path)
    : TCIMReference(container) {
  SetPath(path);
}
TCIMReference::TCIMReference(const TCIMReference& other)
    : impl_(boost::make_shared<TCIMReferenceImpl>(*this, *other.impl_)) {}
TCIMReference& TCIMReference::operator=(const TCIMReference& other) {
  impl_ = boost::make_shared<TCIMReferenceImpl>(*this, *other.impl_);
  return *this;
}
TCIMReference::~TCIMReference() = default;

void TCIMReference::SetContainer(TContainer* container) { impl_->SetContainer(container); }
void TCIMReference::Clear() { impl_->Clear(); }

void TCIMReference::SetPath(const std::string&) { impl_->SetPath(); }

void TCIMReference::SetClass(TCIMClass& cimClass) { impl_->SetClass(cimClass); }
void TCIMReference::SetClassName(const std::string& name) { impl_->SetClassName(name); }
TCIMClass& TCIMReference::GetClass() const { return impl_->GetClass(); }
const std::string& TCIMReference::GetClassName() const { return GetClass().GetName(); }
TCIMClass* TCIMReference::FindClass() const { return impl_->FindClass(); }

void TCIMReference::AddKeyValue(const std::string& key, const TCIMValue& value) {
  impl_->AddKeyValue(key, value);
}
void TCIMReference::SetKeyBindings(TKeyBindings bindings) {
  impl_->SetKeyBindings(std::move(bindings));
}
const TCIMReference::TKeyBindings TCIMReference::EnumerateKeyBindings() const {
  return impl_->Bindings();
}

std::string TCIMReference::GetPath() const { return impl_->GetPath(); }

ICIMElement& TCIMReference::GetCIMElement() const { return impl_->GetCIMElement(); }

bool TCIMReference::operator==(const TCIMReference& other) const { return *impl_ == *other.impl_; }
bool TCIMReference::operator<(const TCIMReference& other) const { return *impl_ < *other.impl_; }
