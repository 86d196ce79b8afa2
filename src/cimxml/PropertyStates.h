// The states of qualifiers, properties and values. A property element means two things: in a class
// it declares a property, in an instance it gives a value to one that is there already.
#ifndef VSKCORE_SRC_CIMXML_PROPERTYSTATES_H
#define VSKCORE_SRC_CIMXML_PROPERTYSTATES_H

#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMInstance.h>
#include <vskcore/model/TCIMPropertyDecl.h>
#include <vskcore/model/TCIMQualifierDecl.h>
#include <vskcore/model/TCIMValue.h>

#include <memory>
#include <string>
#include <vector>

#include "cimxml/States.h"

// <QUALIFIER NAME="Key" TYPE="boolean"><VALUE>true</VALUE></QUALIFIER>. The value has the type that
// stands here; the declaration's counts only where no value is given. A propagated one leaves no
// trace: the superclass supplies it.
class TCIMXMLParser::TStateQualifier : public TParseState {
 public:
  // TOwner is TCIMClass or TCIMPropertyDecl.
  template <typename TOwner>
  explicit TStateQualifier(TOwner* owner)
      : owner_(owner), find_([](const ICIMAllowQualifiers& in, const std::string& name) {
          return static_cast<const TOwner&>(in).FindQualifier(name);
        }) {}
  void StartChildElement(TCIMXMLParser& parser, std::string& name,
                         TAttributes& attributes) override;
  void EndOwnElement(TCIMXMLParser& parser, std::string& name) override;
  void HandleAttributes(TCIMXMLParser& parser, TAttributes& attributes) override;

 private:
  using TFind = const TCIMQualifier* (*)(const ICIMAllowQualifiers& in, const std::string& name);

  void AddToOwner();
  // Whether the owner can at most take this one for a repeat of one that it has, and then leaves it
  // here.
  bool RepeatsFixed() const;

  ICIMAllowQualifiers* owner_;
  std::string name_;
  TCIMValue::TCIMType type_;
  bool propagated_ = false;
  TCIMQualifierDecl::EFlavor flavor_ =
      TCIMQualifierDecl::flavorOverridable | TCIMQualifierDecl::flavorToSubclass;
  TCIMValue value_;
  bool valueGiven_ = false;
  const TCIMQualifierDecl* declaration_ = nullptr;
  TFind find_;
};

// What the three property elements differ in: the attributes that describe the content, the element
// that holds the value, and the NULL that stands for a missing one.

struct TCIMXMLParser::TScalarContent {
  static bool IsValue(vsk::detail::EElement element);
  bool Handle(TCIMXMLParser& parser, TAttributes::iterator& attribute);
  void StartValue(TCIMXMLParser& parser, TAttributes& attributes, TCIMValue* value) const;
  TCIMValue MakeNull(TCIMXMLParser& parser) const;

  TCIMValue::TCIMType type;
};

struct TCIMXMLParser::TArrayContent {
  static bool IsValue(vsk::detail::EElement element);
  bool Handle(TCIMXMLParser& parser, TAttributes::iterator& attribute);
  void StartValue(TCIMXMLParser& parser, TAttributes& attributes, TCIMValue* value) const;
  TCIMValue MakeNull(TCIMXMLParser& parser) const;

  TCIMValue::TCIMType type;
  unsigned int arraySize = 0;
};

struct TCIMXMLParser::TReferenceContent {
  static bool IsValue(vsk::detail::EElement element);
  bool Handle(TCIMXMLParser& parser, TAttributes::iterator& attribute);
  void StartValue(TCIMXMLParser& parser, TAttributes& attributes, TCIMValue* value) const;
  TCIMValue MakeNull(TCIMXMLParser& parser) const;

  std::string referenceClass;
};

// Declares a property: qualifiers and a default value in any order. The declaration exists from the
// start, because its qualifiers need it, and joins the class at the end; where the class has one of
// that name already, the first one stands.
template <typename TContent>
class TCIMXMLParser::TStateDeclare : public TParseState {
 public:
  explicit TStateDeclare(TCIMClass* cimClass) : class_(cimClass) {}
  void StartChildElement(TCIMXMLParser& parser, std::string& name,
                         TAttributes& attributes) override;
  void EndOwnElement(TCIMXMLParser& parser, std::string& name) override;
  void HandleAttributes(TCIMXMLParser& parser, TAttributes& attributes) override;

 private:
  TCIMClass* class_;
  std::string name_;
  TContent content_;
  std::string classOrigin_;
  bool propagated_ = false;
  std::unique_ptr<TCIMPropertyDecl> declaration_;
  TCIMValue value_;
  bool valueGiven_ = false;
};

// Sets a property of an instance; without a value, to NULL. Qualifiers in front of the value are
// stepped over.
template <typename TContent>
class TCIMXMLParser::TStateAssign : public TParseState {
 public:
  explicit TStateAssign(TCIMInstance* instance) : instance_(instance) {}
  void StartChildElement(TCIMXMLParser& parser, std::string& name,
                         TAttributes& attributes) override;
  void EndOwnElement(TCIMXMLParser& parser, std::string& name) override;
  void HandleAttributes(TCIMXMLParser& parser, TAttributes& attributes) override;

 protected:
  // The property; looked up once.
  TCIMProperty& GetProperty();

  TCIMInstance* instance_;
  std::string name_;
  TContent content_;
  std::string classOrigin_;
  bool propagated_ = false;
  TCIMValue value_;
  bool valueGiven_ = false;

 private:
  TCIMProperty* property_ = nullptr;
};

// <PROPERTY NAME="Id" TYPE="uint32"> in a class.
class TCIMXMLParser::TStatePropertyDecl : public TStateDeclare<TScalarContent> {
 public:
  using TStateDeclare::TStateDeclare;
};

// <PROPERTY.ARRAY NAME="Ids" TYPE="uint32" ARRAYSIZE="4"> in a class.
class TCIMXMLParser::TStatePropertyArrayDecl : public TStateDeclare<TArrayContent> {
 public:
  using TStateDeclare::TStateDeclare;
};

// <PROPERTY.REFERENCE NAME="Part" REFERENCECLASS="Sample_Disk"> in a class.
class TCIMXMLParser::TStatePropertyReferenceDecl : public TStateDeclare<TReferenceContent> {
 public:
  using TStateDeclare::TStateDeclare;
};

// <PROPERTY NAME="Id" TYPE="uint32"> in an instance: TYPE must be the declared type. In QK482 mode
// it need not be; the value is read as the declared type, and what cannot be read is left out.
class TCIMXMLParser::TStateProperty : public TStateAssign<TScalarContent> {
 public:
  using TStateAssign::TStateAssign;
  void StartChildElement(TCIMXMLParser& parser, std::string& name,
                         TAttributes& attributes) override;
  void EndOwnElement(TCIMXMLParser& parser, std::string& name) override;
  void HandleAttributes(TCIMXMLParser& parser, TAttributes& attributes) override;
};

// <PROPERTY.ARRAY NAME="Ids" TYPE="uint32"> in an instance.
class TCIMXMLParser::TStatePropertyArray : public TStateAssign<TArrayContent> {
 public:
  using TStateAssign::TStateAssign;
};

// <PROPERTY.REFERENCE NAME="Part" REFERENCECLASS="Sample_Disk"> in an instance.
class TCIMXMLParser::TStatePropertyReference : public TStateAssign<TReferenceContent> {
 public:
  using TStateAssign::TStateAssign;
  void HandleAttributes(TCIMXMLParser& parser, TAttributes& attributes) override;
};

// <VALUE>7</VALUE>: the text as it stands, blanks and all.
class TCIMXMLParser::TStateValue : public TParseState {
 public:
  TStateValue(TCIMXMLParser& parser, TCIMValue* target, TCIMValue::TCIMType type)
      : target_(target), type_(type) {
    parser.text_.clear();
  }
  void EndOwnElement(TCIMXMLParser& parser, std::string& name) override;

 private:
  TCIMValue* target_;
  TCIMValue::TCIMType type_;
};

// <VALUE.ARRAY><VALUE>1</VALUE><VALUE>2</VALUE></VALUE.ARRAY>. The size is the declared bound and
// compared with nothing.
class TCIMXMLParser::TStateValueArray : public TParseState {
 public:
  TStateValueArray(TCIMValue* target, TCIMValue::TCIMType type, unsigned int arraySize)
      : target_(target), type_(type), arraySize_(arraySize) {}
  void StartChildElement(TCIMXMLParser& parser, std::string& name,
                         TAttributes& attributes) override;
  void EndOwnElement(TCIMXMLParser& parser, std::string& name) override;

 private:
  TCIMValue* target_;
  TCIMValue::TCIMType type_;
  unsigned int arraySize_;
  std::vector<TCIMValue> elements_;
};

#endif
