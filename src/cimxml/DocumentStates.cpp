#include "cimxml/DocumentStates.h"

#include <vskcore/model/TContainer.h>

#include "cimxml/PathStates.h"
#include "cimxml/PropertyStates.h"

using vsk::detail::ForEachAttribute;

namespace {

// The bit of a SCOPE attribute; none for METHOD, PARAMETER, INDICATION and what nobody knows.
TCIMQualifierDecl::EScope ScopeOf(const std::string& attribute) {
  if (attribute == "class") return TCIMQualifierDecl::scopeClass;
  if (attribute == "association") return TCIMQualifierDecl::scopeAssociation;
  if (attribute == "reference") return TCIMQualifierDecl::scopeReference;
  if (attribute == "property") return TCIMQualifierDecl::scopeProperty;
  return TCIMQualifierDecl::scopeNone;
}

}  // namespace

void TCIMXMLParser::TStateStart::StartChildElement(TCIMXMLParser& parser, std::string& name,
                                                   TAttributes& attributes) {
  if (parser.element_ == EElement::kCim) return parser.Enter<TStateCIM>(attributes);
  TParseState::StartChildElement(parser, name, attributes);
}

void TCIMXMLParser::TStateCIM::StartChildElement(TCIMXMLParser& parser, std::string& name,
                                                 TAttributes& attributes) {
  switch (parser.element_) {
    case EElement::kDeclaration:
      return parser.Enter<TStateDeclaration>(attributes);
    case EElement::kMessage:
      return parser.Enter<TStateMessage>(attributes);
    default:
      return TParseState::StartChildElement(parser, name, attributes);
  }
}

void TCIMXMLParser::TStateCIM::HandleAttributes(TCIMXMLParser& parser, TAttributes& attributes) {
  for (const auto& [name, value] : attributes) {
    if (name == "cimversion" && value != "2.0" && value != "2.8") {
      parser.FatalError("Unknown CIM version");
    }
    if (name == "dtdversion" && value != "2.0" && value != "2.1") {
      parser.FatalError("Unknown DTD version");
    }
  }
}

void TCIMXMLParser::TStateDeclaration::StartChildElement(TCIMXMLParser& parser, std::string& name,
                                                         TAttributes& attributes) {
  switch (parser.element_) {
    case EElement::kDeclGroup:
      return parser.Enter<TStateDeclGroup>(attributes);
    case EElement::kDeclGroupWithName:
      return parser.Enter<TStateDeclGroupWithName>(attributes);
    case EElement::kDeclGroupWithPath:
      return parser.Enter<TStateDeclGroupWithPath>(attributes);
    default:
      return TParseState::StartChildElement(parser, name, attributes);
  }
}

void TCIMXMLParser::TStateGroup::StartChildElement(TCIMXMLParser& parser, std::string& name,
                                                   TAttributes& attributes) {
  if (step == kPath) {
    step = kQualifiers;
    if (StartPath(parser, attributes)) return;
  }
  if (step == kQualifiers) {
    if (parser.element_ == EElement::kQualifierDeclaration) {
      return parser.Enter<TStateQualifierDeclaration>(attributes);
    }
    step = kObjects;
  }
  StartObject(parser, name, attributes);
}

bool TCIMXMLParser::TStateGroup::StartPath(TCIMXMLParser& parser, TAttributes& attributes) {
  switch (parser.element_) {
    case EElement::kNamespacePath:
      parser.Enter<TStateNamespacePath>(attributes, &host_, &namespace_);
      return true;
    case EElement::kLocalNamespacePath:
      parser.Enter<TStateLocalNamespacePath>(attributes, &namespace_);
      return true;
    default:
      return false;
  }
}

void TCIMXMLParser::TStateDeclGroup::StartObject(TCIMXMLParser& parser, std::string& name,
                                                 TAttributes& attributes) {
  if (parser.element_ == EElement::kValueObject) {
    return parser.Enter<TStateValueObject>(attributes);
  }
  TParseState::StartChildElement(parser, name, attributes);
}

void TCIMXMLParser::TStateDeclGroupWithName::StartObject(TCIMXMLParser& parser, std::string& name,
                                                         TAttributes& attributes) {
  if (parser.element_ == EElement::kValueNamedObject) {
    return parser.Enter<TStateValueNamedObject>(attributes);
  }
  TParseState::StartChildElement(parser, name, attributes);
}

void TCIMXMLParser::TStateDeclGroupWithPath::StartChildElement(TCIMXMLParser& parser,
                                                               std::string& name,
                                                               TAttributes& attributes) {
  switch (parser.element_) {
    case EElement::kValueObjectWithPath:
      return parser.Enter<TStateValueObjectWithPath>(attributes);
    case EElement::kValueObjectWithLocalPath:
      return parser.Enter<TStateValueObjectWithLocalPath>(attributes);
    default:
      return TParseState::StartChildElement(parser, name, attributes);
  }
}

void TCIMXMLParser::TStateQualifierDeclaration::StartChildElement(TCIMXMLParser& parser,
                                                                  std::string& name,
                                                                  TAttributes& attributes) {
  if (step == kScope) {
    if (parser.element_ != EElement::kScope) parser.FatalError("Expected SCOPE element");
    step = kValues;
    return parser.Enter<TStateScope>(attributes, this);
  }
  switch (parser.element_) {
    case EElement::kValue:
      valueGiven_ = true;
      return parser.Enter<TStateValue>(attributes, parser, &value_, type_);
    case EElement::kValueArray:
      valueGiven_ = true;
      return parser.Enter<TStateValueArray>(attributes, &value_, type_, arraySize_);
    default:
      return TParseState::StartChildElement(parser, name, attributes);
  }
}

void TCIMXMLParser::TStateQualifierDeclaration::EndOwnElement(TCIMXMLParser& parser,
                                                              std::string& name) {
  if (!IsConsistent()) parser.FatalError("Incompatible attributes");
  if (!valueGiven_) value_ = TCIMValue(type_, arraySize_);
  const TCIMQualifierDecl& declaration =
      parser.container_->AllocateQualifierDecl(name_, value_, scope_, flavor_);
  // The container takes the declaration over in any case.
  vsk::detail::UnlessThere([&] { declaration.AddToContainer(); });
  TParseState::EndOwnElement(parser, name);
}

void TCIMXMLParser::TStateQualifierDeclaration::HandleAttributes(TCIMXMLParser& parser,
                                                                 TAttributes& attributes) {
  ForEachAttribute(attributes, [&](TAttributes::iterator& attribute) {
    return parser.HandleCIMName(attribute, &name_) || parser.HandleCIMType(attribute, &type_) ||
           HandleIsArray(parser, attribute) || parser.HandleArraySize(attribute, arraySize_) ||
           parser.HandleQualifierFlavor(attribute, &flavor_);
  });
  if (isArray_) type_ = type_ | TCIMValue::TCIMType::cimArrayFlag;
}

void TCIMXMLParser::TStateQualifierDeclaration::AddScope(TCIMQualifierDecl::EScope scope) {
  scope_ = scope_ | scope;
}

bool TCIMXMLParser::TStateQualifierDeclaration::HandleIsArray(TCIMXMLParser& parser,
                                                              TAttributes::iterator& attribute) {
  if (attribute->first != "isarray") return false;
  isArray_ = parser.ReadBool(attribute->second);
  isArrayGiven_ = true;
  return true;
}

bool TCIMXMLParser::TStateQualifierDeclaration::IsConsistent() const {
  const bool sized = arraySize_ != 0;
  if (isArrayGiven_ && sized && !isArray_) return false;
  if (!valueGiven_) return true;
  return value_.IsArray() == sized && (!isArrayGiven_ || value_.IsArray() == isArray_);
}

void TCIMXMLParser::TStateScope::HandleAttributes(TCIMXMLParser&, TAttributes& attributes) {
  for (const auto& attribute : attributes) declaration_->AddScope(ScopeOf(attribute.first));
}

void TCIMXMLParser::TStateMessage::StartChildElement(TCIMXMLParser& parser, std::string& name,
                                                     TAttributes& attributes) {
  switch (parser.element_) {
    case EElement::kSimpleReq:
      return parser.Enter<TStateSimpleReq>(attributes);
    case EElement::kMultiReq:
      return parser.Enter<TStateMultiReq>(attributes);
    default:
      return TParseState::StartChildElement(parser, name, attributes);
  }
}

void TCIMXMLParser::TStateMessage::HandleAttributes(TCIMXMLParser& parser,
                                                    TAttributes& attributes) {
  const auto version = attributes.find("protocolversion");
  if (version != attributes.end() && version->second != "1.0") {
    parser.FatalError("Unknown protocol version");
  }
}

void TCIMXMLParser::TStateMultiReq::StartChildElement(TCIMXMLParser& parser, std::string& name,
                                                      TAttributes& attributes) {
  if (parser.element_ == EElement::kSimpleReq) {
    if (step < kEnough) ++step;
    return parser.Enter<TStateSimpleReq>(attributes);
  }
  TParseState::StartChildElement(parser, name, attributes);
}

void TCIMXMLParser::TStateMultiReq::EndOwnElement(TCIMXMLParser& parser, std::string& name) {
  if (step < kEnough) parser.FatalError("Invalid MULTIREQ");
  TParseState::EndOwnElement(parser, name);
}

void TCIMXMLParser::TStateSimpleReq::StartChildElement(TCIMXMLParser& parser, std::string& name,
                                                       TAttributes& attributes) {
  if (parser.element_ == EElement::kIMethodCall) {
    return parser.Enter<TStateIMethodCall>(attributes);
  }
  TParseState::StartChildElement(parser, name, attributes);
}

void TCIMXMLParser::TStateIMethodCall::StartChildElement(TCIMXMLParser& parser, std::string& name,
                                                         TAttributes& attributes) {
  if (step == kNamespace && parser.element_ == EElement::kLocalNamespacePath) {
    step = kParameters;
    return parser.Enter<TStateLocalNamespacePath>(attributes, &namespace_);
  }
  if (step == kParameters && parser.element_ == EElement::kIParamValue) {
    return parser.Enter<TStateIParamValue>(attributes);
  }
  TParseState::StartChildElement(parser, name, attributes);
}

void TCIMXMLParser::TStateIMethodCall::HandleAttributes(TCIMXMLParser& parser,
                                                        TAttributes& attributes) {
  ForEachAttribute(attributes, [&](TAttributes::iterator& attribute) {
    return parser.HandleCIMName(attribute, &name_);
  });
  if (name_ != "CreateClass" && name_ != "CreateInstance") {
    parser.FatalError(("Unexpected IMethodCall method " + name_).c_str());
  }
}

void TCIMXMLParser::TStateIParamValue::StartChildElement(TCIMXMLParser& parser, std::string& name,
                                                         TAttributes& attributes) {
  if (step == 0 && StartObject(parser, attributes)) return;
  TParseState::StartChildElement(parser, name, attributes);
}

void TCIMXMLParser::TStateIParamValue::HandleAttributes(TCIMXMLParser& parser,
                                                        TAttributes& attributes) {
  ForEachAttribute(attributes, [&](TAttributes::iterator& attribute) {
    return parser.HandleCIMName(attribute, &name_);
  });
  if (name_ != "NewClass" && name_ != "NewInstance") {
    parser.FatalError("Unexpected IParamValue parameter name");
  }
}
