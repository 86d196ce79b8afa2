// The engine behind TCIMXMLParser.
//
// The stack holds one state for each element that is open, in the order in which they opened, with
// TStateStart at the bottom, which stands for the document itself. An event goes to the state on
// top and to no other. The states' classes are the grammar: each knows which child elements it
// takes and in which order.
//
//   start tag   the state of the parent, on top, pushes the state of the child (Enter), which reads
//               the attributes. Or it refuses the child, and the parse is over.
//   text        is gathered in one string of the parser. VALUE, KEYVALUE and HOST clear it at their
//               start and take it at their end; nobody else looks at it.
//   end tag     the state on top does what is to be done now that its element is complete, then
//               pops itself, which destroys it.
//
// Results never travel over the stack. A state is constructed with plain pointers to where its
// results go: fields of the state below, or of the object that is being built there. That is safe
// because a child is popped before its parent, always: by its own end tag, or, when the parse has
// failed, by ReleaseStates from the top down. A pointer into a vector (TStateValueArray) holds
// because the vector does not grow while the child is open.
//
// What is being built belongs to a state until the model takes it over: the class or instance to
// its wrapper, the property declaration and the qualifier to their own states. So a parse that
// fails in the middle releases what had not been added yet, and only that.
//
// Start tags are told apart once (ElementOf), into element_, and the states switch on that.
#include <vskcore/cimxml/TCIMXMLParser.h>
#include <vskcore/core/TVSKException.h>
#include <vskcore/model/TCIMDateTime.h>

#include <cctype>
#include <charconv>
#include <optional>
#include <string_view>

#include "cimxml/DocumentStates.h"
#include "cimxml/Elements.h"
#include "cimxml/States.h"
#include "core/base/Fail.h"

using vsk::detail::EElement;

namespace {

// Runs a state's answer to an event; what it throws is logged with the line on its way out.
template <typename TAnswer>
void Logged(TCIMXMLParser& parser, TAnswer&& answer) {
  try {
    answer();
  } catch (const TVSKException& exception) {
    vsk::detail::Fail(exception.status, std::string("TCIMXMLParser: Threw exception ") +
                                            vskTranslateStatusCode(exception.status) + " on line " +
                                            std::to_string(parser.GetCurLine()));
  }
}

char Folded(char byte) {
  return byte >= 'A' && byte <= 'Z' ? static_cast<char>(byte - 'A' + 'a') : byte;
}

std::string_view WithoutLeadingSpace(std::string_view text) {
  while (!text.empty() && std::isspace(static_cast<unsigned char>(text.front())) != 0) {
    text.remove_prefix(1);
  }
  return text;
}

bool BeginsWith(std::string_view text, std::string_view word) {
  if (text.size() < word.size()) return false;
  for (std::size_t i = 0; i < word.size(); ++i) {
    if (Folded(text[i]) != word[i]) return false;
  }
  return true;
}

std::optional<bool> BoolIn(std::string_view text) {
  text = WithoutLeadingSpace(text);
  if (BeginsWith(text, "true")) return true;
  if (BeginsWith(text, "false")) return false;
  return std::nullopt;
}

std::string NoBool(const std::string& text) { return "'" + text + "' is neither true nor false"; }

// The lengths come first, which settles most comparisons.
bool IsNamed(const TXmlParser::TAttributes::iterator& attribute, std::string_view name) {
  return attribute->first == name;
}

}  // namespace

const unsigned int TCIMXMLParser::kMaxSpecificationDocumentSize;

TCIMXMLParser::TCIMXMLParser(TContainer* container)
    : container_(container), qk482Mode_(false), element_(EElement::kUnknown) {
  states_.push(boost::make_shared<TStateStart>());
}

TCIMXMLParser::TCIMXMLParser(const TCIMXMLParser& other) = default;

TCIMXMLParser& TCIMXMLParser::operator=(const TCIMXMLParser& other) {
  if (this == &other) return *this;
  TXmlParser::operator=(other);
  ReleaseStates();
  states_ = other.states_;
  container_ = other.container_;
  classesCollected_ = other.classesCollected_;
  text_ = other.text_;
  qk482Mode_ = other.qk482Mode_;
  element_ = other.element_;
  name_ = other.name_;
  return *this;
}

TCIMXMLParser::~TCIMXMLParser() { ReleaseStates(); }

void TCIMXMLParser::StartElement(const char* const name, TAttributes& attributes) {
  Logged(*this, [&] {
    FoldName(name);
    element_ = vsk::detail::ElementOf(name_);
    states_.top()->StartChildElement(*this, name_, attributes);
  });
}

void TCIMXMLParser::EndElement(const char* const name) {
  Logged(*this, [&] {
    FoldName(name);
    states_.top()->EndOwnElement(*this, name_);
  });
}

void TCIMXMLParser::processingInstruction(const char* const, const char* const) {}

void TCIMXMLParser::characters(const char* const text, unsigned int) { text_ += text; }

void TCIMXMLParser::notationDecl(const char* const, const char* const, const char* const) {}

void TCIMXMLParser::FatalError(const char* const message) {
  vsk::detail::Fail(
      vskStatusInvalidSpecificationDocument,
      "CIM-XML Parser line " + std::to_string(GetCurLine()) + ":" + std::string(message));
}

std::vector<TCIMClass*> TCIMXMLParser::GetClassesCollected() const { return classesCollected_; }

void TCIMXMLParser::SetQK482Mode() { qk482Mode_ = true; }

TCIMValue TCIMXMLParser::ParseValue(TCIMValue::TCIMType type, std::string& text) {
  try {
    return TCIMValue(type, text, *container_);
  } catch (const TVSKException& exception) {
    if (exception.status != vskStatusInvalidDateTime) return TCIMValue();
  }
  const TCIMDateTime epoch(1970, 1, 1, 0, 0, 0, 0, 0);
  vsk::detail::LogError("Invalid datetime found on line " + std::to_string(GetCurLine()) +
                        ".  Defaulting the datetime to " + epoch.ToUIString() + ".");
  return TCIMValue(epoch);
}

bool TCIMXMLParser::ConvertBool(std::string& text) {
  const std::optional<bool> value = BoolIn(text);
  if (!value) {
    vsk::detail::Fail(vskStatusInvalidSpecificationDocument, "TCIMXMLParser: " + NoBool(text));
  }
  return *value;
}

unsigned int TCIMXMLParser::ConvertUnsignedInt(std::string& text) {
  const std::string_view digits = WithoutLeadingSpace(text);
  unsigned int number = 0;
  const auto result = std::from_chars(digits.data(), digits.data() + digits.size(), number);
  if (result.ec != std::errc()) FatalError(("'" + text + "' is no unsigned number").c_str());
  return number;
}

void TCIMXMLParser::ReleaseStates() {
  while (!states_.empty()) states_.pop();
}

void TCIMXMLParser::FoldName(const char* name) {
  name_ = name;
  for (char& byte : name_) byte = Folded(byte);
}

bool TCIMXMLParser::HandleCIMName(TAttributes::iterator& attribute, std::string* name) {
  if (!IsNamed(attribute, "name")) return false;
  *name = attribute->second;
  return true;
}

bool TCIMXMLParser::HandleCIMType(TAttributes::iterator& attribute, TCIMValue::TCIMType* type) {
  if (!IsNamed(attribute, "type")) return false;
  *type = TCIMValue::TCIMType(attribute->second);
  return true;
}

bool TCIMXMLParser::HandleClassOrigin(TAttributes::iterator& attribute, std::string* classOrigin) {
  if (!IsNamed(attribute, "classorigin")) return false;
  *classOrigin = attribute->second;
  return true;
}

bool TCIMXMLParser::HandlePropagated(TAttributes::iterator& attribute, bool& propagated) {
  if (!IsNamed(attribute, "propagated")) return false;
  propagated = ReadBool(attribute->second);
  return true;
}

bool TCIMXMLParser::HandleArraySize(TAttributes::iterator& attribute, unsigned int& arraySize) {
  if (!IsNamed(attribute, "arraysize")) return false;
  arraySize = ConvertUnsignedInt(attribute->second);
  return true;
}

bool TCIMXMLParser::HandleSuperClass(TAttributes::iterator& attribute, std::string* name) {
  if (!IsNamed(attribute, "superclass")) return false;
  *name = attribute->second;
  return true;
}

bool TCIMXMLParser::HandleClassName(TAttributes::iterator& attribute, std::string* name) {
  if (!IsNamed(attribute, "classname")) return false;
  *name = attribute->second;
  return true;
}

bool TCIMXMLParser::HandleReferenceClass(TAttributes::iterator& attribute, std::string* name) {
  if (!IsNamed(attribute, "referenceclass")) return false;
  *name = attribute->second;
  return true;
}

bool TCIMXMLParser::HandleQualifierFlavor(TAttributes::iterator& attribute,
                                          TCIMQualifierDecl::EFlavor* flavor) {
  TCIMQualifierDecl::EFlavor bit = TCIMQualifierDecl::flavorNone;
  if (IsNamed(attribute, "overridable")) {
    bit = TCIMQualifierDecl::flavorOverridable;
  } else if (IsNamed(attribute, "tosubclass")) {
    bit = TCIMQualifierDecl::flavorToSubclass;
  } else if (IsNamed(attribute, "translatable")) {
    bit = TCIMQualifierDecl::flavorTranslatable;
  } else {
    return false;
  }
  *flavor = ReadBool(attribute->second) ? *flavor | bit : *flavor & ~bit;
  return true;
}

bool TCIMXMLParser::ReadBool(const std::string& text) {
  const std::optional<bool> value = BoolIn(text);
  if (!value) FatalError(NoBool(text).c_str());
  return *value;
}

TCIMXMLParser::TParseState::~TParseState() = default;

void TCIMXMLParser::TParseState::StartChildElement(TCIMXMLParser& parser, std::string& name,
                                                   TAttributes&) {
  parser.FatalError(("Unexpected element " + name).c_str());
}

void TCIMXMLParser::TParseState::EndOwnElement(TCIMXMLParser& parser, std::string&) {
  parser.states_.pop();
}

void TCIMXMLParser::TParseState::HandleAttributes(TCIMXMLParser&, TAttributes&) {}

void TCIMXMLParser::TStateSkip::StartChildElement(TCIMXMLParser& parser, std::string&,
                                                  TAttributes&) {
  const boost::shared_ptr<TParseState> self = parser.states_.top();
  parser.states_.push(self);
}

void vsk::detail::ReportMissing(const char* what, const std::string& name) {
  LogError(std::string("TCIMXMLParser: Couldn't find ") + what + " " + name);
}
