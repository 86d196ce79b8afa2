#include "cimxml/PropertyStates.h"

#include <vskcore/model/TCIMProperty.h>
#include <vskcore/model/TCIMQualifier.h>
#include <vskcore/model/TContainer.h>

#include <new>

#include "cimxml/PathStates.h"

using vsk::detail::EElement;
using vsk::detail::ForEachAttribute;

namespace {

// Assignment, without a copy where the target is NULL: nothing is compared then, and nothing of a
// NULL that has neither bound nor referenced class would stay.
void Assign(TCIMValue& target, TCIMValue&& value) {
  if (!target.IsNull() || value.IsNull()) {
    target = value;
    return;
  }
  target.~TCIMValue();
  new (&target) TCIMValue(std::move(value));
}

bool IsFixed(TCIMQualifierDecl::EFlavor flavor) {
  return (flavor & TCIMQualifierDecl::flavorOverridable) == 0;
}

}  // namespace

void TCIMXMLParser::TStateQualifier::StartChildElement(TCIMXMLParser& parser, std::string& name,
                                                       TAttributes& attributes) {
  switch (parser.element_) {
    case EElement::kValue:
      valueGiven_ = true;
      return parser.Enter<TStateValue>(attributes, parser, &value_, type_);
    case EElement::kValueArray:
      valueGiven_ = true;
      return parser.Enter<TStateValueArray>(attributes, &value_, type_, 0U);
    default:
      return TParseState::StartChildElement(parser, name, attributes);
  }
}

void TCIMXMLParser::TStateQualifier::EndOwnElement(TCIMXMLParser& parser, std::string& name) {
  if (!propagated_) {
    if (!valueGiven_) value_ = TCIMValue(declaration_->GetType(), 0);
    AddToOwner();
  }
  TParseState::EndOwnElement(parser, name);
}

void TCIMXMLParser::TStateQualifier::HandleAttributes(TCIMXMLParser& parser,
                                                      TAttributes& attributes) {
  const auto given = attributes.find("name");
  if (given != attributes.end()) name_ = given->second;
  declaration_ = &vsk::detail::Sought("qualifier", name_, [&]() -> TCIMQualifierDecl& {
    return parser.container_->GetQualifierDecl(name_);
  });
  flavor_ = declaration_->GetFlavor();
  ForEachAttribute(attributes, [&](TAttributes::iterator& attribute) {
    return parser.HandleCIMType(attribute, &type_) ||
           parser.HandlePropagated(attribute, propagated_) ||
           parser.HandleQualifierFlavor(attribute, &flavor_);
  });
}

void TCIMXMLParser::TStateQualifier::AddToOwner() {
  auto qualifier = std::make_unique<TCIMQualifier>(*declaration_, value_, flavor_);
  const bool repeats = RepeatsFixed();
  owner_->AddQualifier(*qualifier);
  if (!repeats) qualifier.release();
}

bool TCIMXMLParser::TStateQualifier::RepeatsFixed() const {
  if (!IsFixed(flavor_)) return false;
  const TCIMQualifier* const stored = find_(*owner_, name_);
  return stored != nullptr && IsFixed(stored->GetFlavor());
}

bool TCIMXMLParser::TScalarContent::IsValue(EElement element) {
  return element == EElement::kValue;
}

bool TCIMXMLParser::TScalarContent::Handle(TCIMXMLParser& parser,
                                           TAttributes::iterator& attribute) {
  return parser.HandleCIMType(attribute, &type);
}

void TCIMXMLParser::TScalarContent::StartValue(TCIMXMLParser& parser, TAttributes& attributes,
                                               TCIMValue* value) const {
  parser.Enter<TStateValue>(attributes, parser, value, type);
}

TCIMValue TCIMXMLParser::TScalarContent::MakeNull(TCIMXMLParser&) const {
  return TCIMValue(type, 0);
}

bool TCIMXMLParser::TArrayContent::IsValue(EElement element) {
  return element == EElement::kValueArray;
}

bool TCIMXMLParser::TArrayContent::Handle(TCIMXMLParser& parser, TAttributes::iterator& attribute) {
  return parser.HandleCIMType(attribute, &type) || parser.HandleArraySize(attribute, arraySize);
}

void TCIMXMLParser::TArrayContent::StartValue(TCIMXMLParser& parser, TAttributes& attributes,
                                              TCIMValue* value) const {
  parser.Enter<TStateValueArray>(attributes, value, type, arraySize);
}

TCIMValue TCIMXMLParser::TArrayContent::MakeNull(TCIMXMLParser&) const {
  return TCIMValue(type | TCIMValue::TCIMType::cimArrayFlag, arraySize);
}

bool TCIMXMLParser::TReferenceContent::IsValue(EElement element) {
  return element == EElement::kValueReference;
}

bool TCIMXMLParser::TReferenceContent::Handle(TCIMXMLParser& parser,
                                              TAttributes::iterator& attribute) {
  return parser.HandleReferenceClass(attribute, &referenceClass);
}

void TCIMXMLParser::TReferenceContent::StartValue(TCIMXMLParser& parser, TAttributes& attributes,
                                                  TCIMValue* value) const {
  parser.Enter<TStateValueReference>(attributes, value);
}

TCIMValue TCIMXMLParser::TReferenceContent::MakeNull(TCIMXMLParser& parser) const {
  TCIMValue value(TCIMValue::TCIMType::cimReference, 0);
  value.SetReferencedClass(parser.container_->GetClass(referenceClass));
  return value;
}

template <typename TContent>
void TCIMXMLParser::TStateDeclare<TContent>::StartChildElement(TCIMXMLParser& parser,
                                                               std::string& name,
                                                               TAttributes& attributes) {
  if (parser.element_ == EElement::kQualifier) {
    return parser.Enter<TStateQualifier>(attributes, declaration_.get());
  }
  if (TContent::IsValue(parser.element_)) {
    valueGiven_ = true;
    return content_.StartValue(parser, attributes, &value_);
  }
  TParseState::StartChildElement(parser, name, attributes);
}

template <typename TContent>
void TCIMXMLParser::TStateDeclare<TContent>::EndOwnElement(TCIMXMLParser& parser,
                                                           std::string& name) {
  if (!valueGiven_) value_ = content_.MakeNull(parser);
  declaration_->SetValue(value_);
  vsk::detail::UnlessThere([&] { vsk::detail::Join(declaration_); });
  TParseState::EndOwnElement(parser, name);
}

template <typename TContent>
void TCIMXMLParser::TStateDeclare<TContent>::HandleAttributes(TCIMXMLParser& parser,
                                                              TAttributes& attributes) {
  ForEachAttribute(attributes, [&](TAttributes::iterator& attribute) {
    return parser.HandleCIMName(attribute, &name_) || content_.Handle(parser, attribute) ||
           parser.HandleClassOrigin(attribute, &classOrigin_) ||
           parser.HandlePropagated(attribute, propagated_);
  });
  declaration_ = std::make_unique<TCIMPropertyDecl>(name_, *class_, TCIMValue());
}

template <typename TContent>
void TCIMXMLParser::TStateAssign<TContent>::StartChildElement(TCIMXMLParser& parser,
                                                              std::string& name,
                                                              TAttributes& attributes) {
  if (!valueGiven_ && parser.element_ == EElement::kQualifier) {
    return parser.Enter<TStateSkip>(attributes);
  }
  if (TContent::IsValue(parser.element_)) {
    valueGiven_ = true;
    return content_.StartValue(parser, attributes, &value_);
  }
  TParseState::StartChildElement(parser, name, attributes);
}

template <typename TContent>
void TCIMXMLParser::TStateAssign<TContent>::EndOwnElement(TCIMXMLParser& parser,
                                                          std::string& name) {
  if (!valueGiven_) value_ = content_.MakeNull(parser);
  GetProperty().SetValue(value_);
  TParseState::EndOwnElement(parser, name);
}

template <typename TContent>
void TCIMXMLParser::TStateAssign<TContent>::HandleAttributes(TCIMXMLParser& parser,
                                                             TAttributes& attributes) {
  ForEachAttribute(attributes, [&](TAttributes::iterator& attribute) {
    return parser.HandleCIMName(attribute, &name_) || content_.Handle(parser, attribute) ||
           parser.HandleClassOrigin(attribute, &classOrigin_) ||
           parser.HandlePropagated(attribute, propagated_);
  });
}

template <typename TContent>
TCIMProperty& TCIMXMLParser::TStateAssign<TContent>::GetProperty() {
  if (property_ == nullptr) property_ = &instance_->GetProperty(name_);
  return *property_;
}

void TCIMXMLParser::TStateProperty::StartChildElement(TCIMXMLParser& parser, std::string& name,
                                                      TAttributes& attributes) {
  if (parser.element_ == EElement::kValue) content_.type = GetProperty().GetType();
  TStateAssign::StartChildElement(parser, name, attributes);
}

void TCIMXMLParser::TStateProperty::EndOwnElement(TCIMXMLParser& parser, std::string& name) {
  content_.type = GetProperty().GetType();
  const bool fits = !valueGiven_ || value_.GetType() == content_.type;
  if (parser.qk482Mode_ && !fits) return TParseState::EndOwnElement(parser, name);
  TStateAssign::EndOwnElement(parser, name);
}

void TCIMXMLParser::TStateProperty::HandleAttributes(TCIMXMLParser& parser,
                                                     TAttributes& attributes) {
  TStateAssign::HandleAttributes(parser, attributes);
  if (parser.qk482Mode_) return;
  const TCIMProperty& property =
      vsk::detail::Sought("property", name_, [&]() -> TCIMProperty& { return GetProperty(); });
  if (property.GetType() != content_.type) {
    parser.FatalError("Property type != property declaration type");
  }
}

void TCIMXMLParser::TStatePropertyReference::HandleAttributes(TCIMXMLParser& parser,
                                                              TAttributes& attributes) {
  TStateAssign::HandleAttributes(parser, attributes);
  GetProperty();
}

void TCIMXMLParser::TStateValue::EndOwnElement(TCIMXMLParser& parser, std::string& name) {
  Assign(*target_, parser.ParseValue(type_, parser.text_));
  TParseState::EndOwnElement(parser, name);
}

void TCIMXMLParser::TStateValueArray::StartChildElement(TCIMXMLParser& parser, std::string& name,
                                                        TAttributes& attributes) {
  if (parser.element_ != EElement::kValue) {
    return TParseState::StartChildElement(parser, name, attributes);
  }
  elements_.emplace_back(type_, 0U);
  parser.Enter<TStateValue>(attributes, parser, &elements_.back(), type_);
}

void TCIMXMLParser::TStateValueArray::EndOwnElement(TCIMXMLParser& parser, std::string& name) {
  target_->Set(type_, arraySize_, elements_);
  TParseState::EndOwnElement(parser, name);
}

// Used wherever a class or an instance opens, defined here.
template class TCIMXMLParser::TStateDeclare<TCIMXMLParser::TScalarContent>;
template class TCIMXMLParser::TStateDeclare<TCIMXMLParser::TArrayContent>;
template class TCIMXMLParser::TStateDeclare<TCIMXMLParser::TReferenceContent>;
template class TCIMXMLParser::TStateAssign<TCIMXMLParser::TScalarContent>;
template class TCIMXMLParser::TStateAssign<TCIMXMLParser::TArrayContent>;
template class TCIMXMLParser::TStateAssign<TCIMXMLParser::TReferenceContent>;
