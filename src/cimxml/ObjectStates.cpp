#include "cimxml/ObjectStates.h"

#include <vskcore/model/TContainer.h>

#include "cimxml/PathStates.h"
#include "cimxml/PropertyStates.h"

using vsk::detail::ForEachAttribute;

void TCIMXMLParser::TStateObject::EndOwnElement(TCIMXMLParser& parser, std::string& name) {
  if (step != complete_) parser.FatalError("CIM element syntax error");
  if (isClass_) {
    AddClass(parser);
  } else {
    vsk::detail::Join(instance_);
  }
  TParseState::EndOwnElement(parser, name);
}

void TCIMXMLParser::TStateObject::StartClass(TCIMXMLParser& parser, TAttributes& attributes) {
  isClass_ = true;
  step = complete_;
  parser.Enter<TStateClass>(attributes, &class_);
}

void TCIMXMLParser::TStateObject::StartInstance(TCIMXMLParser& parser, TAttributes& attributes) {
  step = complete_;
  parser.Enter<TStateInstance>(attributes, &instance_);
}

bool TCIMXMLParser::TStateObject::StartObject(TCIMXMLParser& parser, TAttributes& attributes) {
  switch (parser.element_) {
    case EElement::kClass:
      StartClass(parser, attributes);
      return true;
    case EElement::kInstance:
      StartInstance(parser, attributes);
      return true;
    default:
      return false;
  }
}

void TCIMXMLParser::TStateObject::AddClass(TCIMXMLParser& parser) {
  TCIMClass* const added = class_.get();
  const bool isNew = vsk::detail::UnlessThere([&] { vsk::detail::Join(class_); });
  if (isNew && collected_ == kCollected) parser.classesCollected_.push_back(added);
}

void TCIMXMLParser::TStateValueObject::StartChildElement(TCIMXMLParser& parser, std::string& name,
                                                         TAttributes& attributes) {
  if (step == 0 && StartObject(parser, attributes)) return;
  TParseState::StartChildElement(parser, name, attributes);
}

void TCIMXMLParser::TStateValueNamedObject::StartChildElement(TCIMXMLParser& parser,
                                                              std::string& name,
                                                              TAttributes& attributes) {
  if (step == kStart && parser.element_ == EElement::kClass) {
    return StartClass(parser, attributes);
  }
  if (step == kStart && parser.element_ == EElement::kInstanceName) {
    step = kNameDone;
    reference_.SetContainer(parser.container_);
    return parser.Enter<TStateInstanceName>(attributes, &reference_);
  }
  if (step == kNameDone && parser.element_ == EElement::kInstance) {
    return StartInstance(parser, attributes);
  }
  TParseState::StartChildElement(parser, name, attributes);
}

void TCIMXMLParser::TStateObjectBehindPath::StartChildElement(TCIMXMLParser& parser,
                                                              std::string& name,
                                                              TAttributes& attributes) {
  switch (step) {
    case kStart:
      step = kClassPathDone;
      if (StartClassPath(parser, attributes)) return;
      step = kInstancePathDone;
      if (StartInstancePath(parser, attributes)) return;
      break;
    case kClassPathDone:
      if (parser.element_ == EElement::kClass) return StartClass(parser, attributes);
      break;
    case kInstancePathDone:
      if (parser.element_ == EElement::kInstance) return StartInstance(parser, attributes);
      break;
    default:
      break;
  }
  TParseState::StartChildElement(parser, name, attributes);
}

bool TCIMXMLParser::TStateValueObjectWithPath::StartClassPath(TCIMXMLParser& parser,
                                                              TAttributes& attributes) {
  if (parser.element_ != EElement::kClassPath) return false;
  parser.Enter<TStateClassPath>(attributes, &host_, &namespace_, &className_);
  return true;
}

bool TCIMXMLParser::TStateValueObjectWithPath::StartInstancePath(TCIMXMLParser& parser,
                                                                 TAttributes& attributes) {
  if (parser.element_ != EElement::kInstancePath) return false;
  reference_.SetContainer(parser.container_);
  parser.Enter<TStateInstancePath>(attributes, &host_, &namespace_, &reference_);
  return true;
}

bool TCIMXMLParser::TStateValueObjectWithLocalPath::StartClassPath(TCIMXMLParser& parser,
                                                                   TAttributes& attributes) {
  if (parser.element_ != EElement::kLocalClassPath) return false;
  parser.Enter<TStateLocalClassPath>(attributes, &namespace_, &className_);
  return true;
}

bool TCIMXMLParser::TStateValueObjectWithLocalPath::StartInstancePath(TCIMXMLParser& parser,
                                                                      TAttributes& attributes) {
  if (parser.element_ != EElement::kLocalInstancePath) return false;
  reference_.SetContainer(parser.container_);
  parser.Enter<TStateLocalInstancePath>(attributes, &namespace_, &reference_);
  return true;
}

void TCIMXMLParser::TStateClass::StartChildElement(TCIMXMLParser& parser, std::string& name,
                                                   TAttributes& attributes) {
  if (step == kQualifiers) {
    if (parser.element_ == EElement::kQualifier) {
      return parser.Enter<TStateQualifier>(attributes, class_);
    }
    step = kProperties;
  }
  switch (parser.element_) {
    case EElement::kProperty:
      return parser.Enter<TStatePropertyDecl>(attributes, class_);
    case EElement::kPropertyArray:
      return parser.Enter<TStatePropertyArrayDecl>(attributes, class_);
    case EElement::kPropertyReference:
      return parser.Enter<TStatePropertyReferenceDecl>(attributes, class_);
    case EElement::kMethod:
      return parser.Enter<TStateSkip>(attributes);
    default:
      return TParseState::StartChildElement(parser, name, attributes);
  }
}

void TCIMXMLParser::TStateClass::HandleAttributes(TCIMXMLParser& parser, TAttributes& attributes) {
  ForEachAttribute(attributes, [&](TAttributes::iterator& attribute) {
    return parser.HandleCIMName(attribute, &name_) ||
           parser.HandleSuperClass(attribute, &superClassName_);
  });
  TCIMClass& superClass = parser.container_->GetClass(superClassName_);
  class_ = &parser.container_->AllocateClass(name_, &superClass);
  target_->reset(class_);
}

void TCIMXMLParser::TStateInstance::StartChildElement(TCIMXMLParser& parser, std::string& name,
                                                      TAttributes& attributes) {
  if (step == kQualifiers) {
    if (parser.element_ == EElement::kQualifier) return parser.Enter<TStateSkip>(attributes);
    step = kProperties;
  }
  switch (parser.element_) {
    case EElement::kProperty:
      return parser.Enter<TStateProperty>(attributes, target_->get());
    case EElement::kPropertyArray:
      return parser.Enter<TStatePropertyArray>(attributes, target_->get());
    case EElement::kPropertyReference:
      return parser.Enter<TStatePropertyReference>(attributes, target_->get());
    default:
      return TParseState::StartChildElement(parser, name, attributes);
  }
}

void TCIMXMLParser::TStateInstance::HandleAttributes(TCIMXMLParser& parser,
                                                     TAttributes& attributes) {
  ForEachAttribute(attributes, [&](TAttributes::iterator& attribute) {
    return parser.HandleClassName(attribute, &className_);
  });
  TCIMClass& cimClass = vsk::detail::Sought(
      "class", className_, [&]() -> TCIMClass& { return parser.container_->GetClass(className_); });
  target_->reset(&parser.container_->AllocateInstance(&cimClass));
}
