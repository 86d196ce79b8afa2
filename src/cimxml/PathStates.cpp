#include "cimxml/PathStates.h"

#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMPropertyDecl.h>
#include <vskcore/model/TContainer.h>

#include "model/TQualifierTable.h"

using vsk::detail::ForEachAttribute;

namespace {

bool IsKey(const TCIMPropertyDecl& declaration) {
  return vsk::detail::IsTrue(declaration.FindQualifier("KEY"));
}

const TCIMPropertyDecl* FindFirstKey(const TCIMClass& cimClass) {
  for (const TCIMPropertyDecl* declaration : cimClass.EnumeratePropertyDecls()) {
    if (IsKey(*declaration)) return declaration;
  }
  return nullptr;
}

std::string HasNoKeys(const std::string& className) {
  return "Class " + className + " doesn't have any key properties";
}

// Without the white space at its end; the first character stays, whatever it is.
std::string TrimmedEnd(std::string text) {
  const std::size_t last = text.find_last_not_of(" \t\r\n");
  if (!text.empty()) text.resize(last == std::string::npos ? 1 : last + 1);
  return text;
}

}  // namespace

void TCIMXMLParser::TStateNamespacePath::StartChildElement(TCIMXMLParser& parser, std::string& name,
                                                           TAttributes& attributes) {
  if (step == kDone) parser.FatalError("Parser state corrupt");
  if (step == kHost && parser.element_ == EElement::kHost) {
    step = kLocalPath;
    return parser.Enter<TStateHost>(attributes, parser, host_);
  }
  if (step == kLocalPath && parser.element_ == EElement::kLocalNamespacePath) {
    step = kDone;
    return parser.Enter<TStateLocalNamespacePath>(attributes, namespace_);
  }
  TParseState::StartChildElement(parser, name, attributes);
}

void TCIMXMLParser::TStateLocalNamespacePath::StartChildElement(TCIMXMLParser& parser,
                                                                std::string& name,
                                                                TAttributes& attributes) {
  if (parser.element_ != EElement::kNamespace) {
    return TParseState::StartChildElement(parser, name, attributes);
  }
  if (seen_) AppendCurrent();
  seen_ = true;
  current_.clear();
  parser.Enter<TStateNamespace>(attributes, &current_);
}

void TCIMXMLParser::TStateLocalNamespacePath::EndOwnElement(TCIMXMLParser& parser,
                                                            std::string& name) {
  if (!seen_) parser.FatalError("Unexpected at least 1 NAMESPACE element");
  AppendCurrent();
  TParseState::EndOwnElement(parser, name);
}

void TCIMXMLParser::TStateLocalNamespacePath::AppendCurrent() {
  if (!namespace_->empty()) *namespace_ += '/';
  *namespace_ += current_;
}

void TCIMXMLParser::TStateHost::EndOwnElement(TCIMXMLParser& parser, std::string& name) {
  *host_ = TrimmedEnd(parser.text_);
  TParseState::EndOwnElement(parser, name);
}

void TCIMXMLParser::TStateNamespace::HandleAttributes(TCIMXMLParser& parser,
                                                      TAttributes& attributes) {
  ForEachAttribute(attributes, [&](TAttributes::iterator& attribute) {
    return parser.HandleCIMName(attribute, current_);
  });
}

void TCIMXMLParser::TStatePath::StartChildElement(TCIMXMLParser& parser, std::string& name,
                                                  TAttributes& attributes) {
  const bool accepted = (step == kNamespace && StartNamespace(parser, attributes)) ||
                        (step == kName && StartName(parser, attributes));
  if (!accepted) return TParseState::StartChildElement(parser, name, attributes);
  ++step;
}

bool TCIMXMLParser::TStatePath::StartNamespace(TCIMXMLParser& parser, TAttributes& attributes) {
  const EElement demanded =
      host_ == nullptr ? EElement::kLocalNamespacePath : EElement::kNamespacePath;
  if (parser.element_ != demanded) return false;
  if (host_ == nullptr) {
    parser.Enter<TStateLocalNamespacePath>(attributes, namespace_);
  } else {
    parser.Enter<TStateNamespacePath>(attributes, host_, namespace_);
  }
  return true;
}

bool TCIMXMLParser::TStateClassPath::StartName(TCIMXMLParser& parser, TAttributes& attributes) {
  if (parser.element_ != EElement::kClassName) return false;
  parser.Enter<TStateClassName>(attributes, className_);
  return true;
}

void TCIMXMLParser::TStateClassName::HandleAttributes(TCIMXMLParser& parser,
                                                      TAttributes& attributes) {
  ForEachAttribute(attributes, [&](TAttributes::iterator& attribute) {
    return parser.HandleCIMName(attribute, className_);
  });
}

bool TCIMXMLParser::TStateInstancePath::StartName(TCIMXMLParser& parser, TAttributes& attributes) {
  if (parser.element_ != EElement::kInstanceName) return false;
  parser.Enter<TStateInstanceName>(attributes, reference_);
  return true;
}

void TCIMXMLParser::TStateInstanceName::StartChildElement(TCIMXMLParser& parser, std::string& name,
                                                          TAttributes& attributes) {
  if (step != kDone && parser.element_ == EElement::kKeyBinding) {
    step = kBindings;
    return parser.Enter<TStateKeyBinding>(attributes, class_, reference_);
  }
  if (step == kStart && parser.element_ == EElement::kKeyValue) {
    step = kDone;
    keyValueSeen_ = true;
    return parser.Enter<TStateKeyValue>(attributes, parser, &keyText_);
  }
  if (step == kStart && parser.element_ == EElement::kValueReference) {
    step = kDone;
    referenceValueSeen_ = true;
    return parser.Enter<TStateValueReference>(attributes, &referenceValue_);
  }
  TParseState::StartChildElement(parser, name, attributes);
}

void TCIMXMLParser::TStateInstanceName::EndOwnElement(TCIMXMLParser& parser, std::string& name) {
  if (referenceValueSeen_) {
    const TCIMReference target = referenceValue_;
    *reference_ = target;
  } else if (keyValueSeen_) {
    BindFirstKey(parser);
  }
  TParseState::EndOwnElement(parser, name);
}

void TCIMXMLParser::TStateInstanceName::HandleAttributes(TCIMXMLParser& parser,
                                                         TAttributes& attributes) {
  bool given = false;
  ForEachAttribute(attributes, [&](TAttributes::iterator& attribute) {
    given = parser.HandleClassName(attribute, &className_) || given;
  });
  if (!given) parser.FatalError("INSTANCENAME without CLASSNAME");
  reference_->SetClassName(className_);
  class_ = reference_->FindClass();
}

void TCIMXMLParser::TStateInstanceName::BindFirstKey(TCIMXMLParser& parser) {
  const TCIMPropertyDecl* key = FindFirstKey(*class_);
  if (key == nullptr) parser.FatalError(HasNoKeys(className_).c_str());
  reference_->AddKeyValue(key->GetName(), parser.ParseValue(key->GetType(), keyText_));
}

void TCIMXMLParser::TStateKeyBinding::StartChildElement(TCIMXMLParser& parser, std::string& name,
                                                        TAttributes& attributes) {
  switch (parser.element_) {
    case EElement::kKeyValue:
      return parser.Enter<TStateKeyValue>(attributes, parser, &keyText_);
    case EElement::kValueReference:
      referenceValueSeen_ = true;
      return parser.Enter<TStateValueReference>(attributes, &referenceValue_);
    default:
      return TParseState::StartChildElement(parser, name, attributes);
  }
}

void TCIMXMLParser::TStateKeyBinding::EndOwnElement(TCIMXMLParser& parser, std::string& name) {
  if (referenceValueSeen_) {
    reference_->AddKeyValue(keyName_, referenceValue_);
  } else {
    BindText(parser);
  }
  TParseState::EndOwnElement(parser, name);
}

void TCIMXMLParser::TStateKeyBinding::HandleAttributes(TCIMXMLParser& parser,
                                                       TAttributes& attributes) {
  ForEachAttribute(attributes, [&](TAttributes::iterator& attribute) {
    return parser.HandleCIMName(attribute, &keyName_);
  });
}

void TCIMXMLParser::TStateKeyBinding::BindText(TCIMXMLParser& parser) {
  const TCIMPropertyDecl* key = class_->FindPropertyDecl(keyName_);
  if (key == nullptr) {
    const std::string what =
        "Couldn't find property name " + keyName_ + " in class " + class_->GetName();
    parser.FatalError(what.c_str());
  }
  // The same words as for a class without any key.
  if (!IsKey(*key)) parser.FatalError(HasNoKeys(class_->GetName()).c_str());
  reference_->AddKeyValue(keyName_, parser.ParseValue(key->GetType(), keyText_));
}

void TCIMXMLParser::TStateKeyValue::EndOwnElement(TCIMXMLParser& parser, std::string& name) {
  *keyText_ = parser.text_;
  TParseState::EndOwnElement(parser, name);
}

void TCIMXMLParser::TStateValueReference::StartChildElement(TCIMXMLParser& parser,
                                                            std::string& name,
                                                            TAttributes& attributes) {
  // So that the reference can look its class up by name.
  reference_.SetContainer(parser.container_);
  if (StartClass(parser, attributes) || StartInstance(parser, attributes)) return;
  TParseState::StartChildElement(parser, name, attributes);
}

void TCIMXMLParser::TStateValueReference::EndOwnElement(TCIMXMLParser& parser, std::string& name) {
  if (classForm_ && !instanceForm_) reference_.SetClassName(className_);
  target_->Set(reference_);
  TParseState::EndOwnElement(parser, name);
}

bool TCIMXMLParser::TStateValueReference::StartClass(TCIMXMLParser& parser,
                                                     TAttributes& attributes) {
  switch (parser.element_) {
    case EElement::kClassPath:
      parser.Enter<TStateClassPath>(attributes, &host_, &namespace_, &className_);
      break;
    case EElement::kLocalClassPath:
      parser.Enter<TStateLocalClassPath>(attributes, &namespace_, &className_);
      break;
    case EElement::kClassName:
      parser.Enter<TStateClassName>(attributes, &className_);
      break;
    default:
      return false;
  }
  classForm_ = true;
  return true;
}

bool TCIMXMLParser::TStateValueReference::StartInstance(TCIMXMLParser& parser,
                                                        TAttributes& attributes) {
  switch (parser.element_) {
    case EElement::kInstancePath:
      parser.Enter<TStateInstancePath>(attributes, &host_, &namespace_, &reference_);
      return true;
    case EElement::kLocalInstancePath:
      parser.Enter<TStateLocalInstancePath>(attributes, &namespace_, &reference_);
      return true;
    case EElement::kInstanceName:
      instanceForm_ = true;
      parser.Enter<TStateInstanceName>(attributes, &reference_);
      return true;
    default:
      return false;
  }
}
