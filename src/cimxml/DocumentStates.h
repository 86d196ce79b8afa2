// The states of a document's frame: declarations with their groups, messages with their requests.
#ifndef VSKCORE_SRC_CIMXML_DOCUMENTSTATES_H
#define VSKCORE_SRC_CIMXML_DOCUMENTSTATES_H

#include <vskcore/model/TCIMQualifierDecl.h>
#include <vskcore/model/TCIMValue.h>

#include <string>

#include "cimxml/ObjectStates.h"
#include "cimxml/States.h"

// Below the root element: takes CIM alone.
class TCIMXMLParser::TStateStart : public TParseState {
 public:
  void StartChildElement(TCIMXMLParser& parser, std::string& name,
                         TAttributes& attributes) override;
};

// <CIM CIMVERSION="2.0" DTDVERSION="2.0">: declarations and messages in any mix.
class TCIMXMLParser::TStateCIM : public TParseState {
 public:
  void StartChildElement(TCIMXMLParser& parser, std::string& name,
                         TAttributes& attributes) override;
  void HandleAttributes(TCIMXMLParser& parser, TAttributes& attributes) override;
};

// <DECLARATION>: groups of all three kinds in any mix.
class TCIMXMLParser::TStateDeclaration : public TParseState {
 public:
  void StartChildElement(TCIMXMLParser& parser, std::string& name,
                         TAttributes& attributes) override;
};

// A namespace path or none, then qualifier declarations, then objects. The path has no effect.
class TCIMXMLParser::TStateGroup : public TParseState {
 public:
  void StartChildElement(TCIMXMLParser& parser, std::string& name,
                         TAttributes& attributes) override;

 private:
  enum { kPath, kQualifiers, kObjects };

  bool StartPath(TCIMXMLParser& parser, TAttributes& attributes);
  // Enters the object element of this group, refuses everything else.
  virtual void StartObject(TCIMXMLParser& parser, std::string& name, TAttributes& attributes) = 0;

  std::string host_;
  std::string namespace_;
};

// <DECLGROUP>: its objects are VALUE.OBJECT.
class TCIMXMLParser::TStateDeclGroup : public TStateGroup {
 private:
  void StartObject(TCIMXMLParser& parser, std::string& name, TAttributes& attributes) override;
};

// <DECLGROUP.WITHNAME>: its objects are VALUE.NAMEDOBJECT.
class TCIMXMLParser::TStateDeclGroupWithName : public TStateGroup {
 private:
  void StartObject(TCIMXMLParser& parser, std::string& name, TAttributes& attributes) override;
};

// <DECLGROUP.WITHPATH>: objects with a full or a local path, in any mix.
class TCIMXMLParser::TStateDeclGroupWithPath : public TParseState {
 public:
  void StartChildElement(TCIMXMLParser& parser, std::string& name,
                         TAttributes& attributes) override;
};

// <QUALIFIER.DECLARATION NAME="Key" TYPE="boolean"><SCOPE PROPERTY="true"/><VALUE>false</VALUE>
class TCIMXMLParser::TStateQualifierDeclaration : public TParseState {
 public:
  void StartChildElement(TCIMXMLParser& parser, std::string& name,
                         TAttributes& attributes) override;
  void EndOwnElement(TCIMXMLParser& parser, std::string& name) override;
  void HandleAttributes(TCIMXMLParser& parser, TAttributes& attributes) override;

  void AddScope(TCIMQualifierDecl::EScope scope);

 private:
  enum { kScope, kValues };

  bool HandleIsArray(TCIMXMLParser& parser, TAttributes::iterator& attribute);
  // Whether ISARRAY, ARRAYSIZE and the value agree.
  bool IsConsistent() const;

  TCIMQualifierDecl::EScope scope_ = TCIMQualifierDecl::scopeNone;
  std::string name_;
  TCIMValue::TCIMType type_;
  bool isArray_ = false;
  bool isArrayGiven_ = false;
  unsigned int arraySize_ = 0;
  TCIMQualifierDecl::EFlavor flavor_ =
      TCIMQualifierDecl::flavorOverridable | TCIMQualifierDecl::flavorToSubclass;
  TCIMValue value_;
  bool valueGiven_ = false;
};

// <SCOPE CLASS="true"/>: an attribute's presence sets its bit, whatever it says.
class TCIMXMLParser::TStateScope : public TParseState {
 public:
  explicit TStateScope(TStateQualifierDeclaration* declaration) : declaration_(declaration) {}
  void HandleAttributes(TCIMXMLParser& parser, TAttributes& attributes) override;

 private:
  TStateQualifierDeclaration* declaration_;
};

// <MESSAGE ID="1" PROTOCOLVERSION="1.0">: requests in any mix.
class TCIMXMLParser::TStateMessage : public TParseState {
 public:
  void StartChildElement(TCIMXMLParser& parser, std::string& name,
                         TAttributes& attributes) override;
  void HandleAttributes(TCIMXMLParser& parser, TAttributes& attributes) override;
};

// <MULTIREQ>: two requests or more.
class TCIMXMLParser::TStateMultiReq : public TParseState {
 public:
  void StartChildElement(TCIMXMLParser& parser, std::string& name,
                         TAttributes& attributes) override;
  void EndOwnElement(TCIMXMLParser& parser, std::string& name) override;

 private:
  static const std::int32_t kEnough = 2;  // step counts the requests up to here
};

// <SIMPLEREQ>: method calls.
class TCIMXMLParser::TStateSimpleReq : public TParseState {
 public:
  void StartChildElement(TCIMXMLParser& parser, std::string& name,
                         TAttributes& attributes) override;
};

// <IMETHODCALL NAME="CreateClass">: a namespace, which has no effect, then parameters.
class TCIMXMLParser::TStateIMethodCall : public TParseState {
 public:
  void StartChildElement(TCIMXMLParser& parser, std::string& name,
                         TAttributes& attributes) override;
  void HandleAttributes(TCIMXMLParser& parser, TAttributes& attributes) override;

 private:
  enum { kNamespace, kParameters };

  std::string name_;
  std::string namespace_;
};

// <IPARAMVALUE NAME="NewClass">: one class or one instance. Which of them comes is for the element
// to say: neither this name nor the method's is held against it.
class TCIMXMLParser::TStateIParamValue : public TStateObject {
 public:
  TStateIParamValue() : TStateObject(kObjectDone, kNotCollected) {}
  void StartChildElement(TCIMXMLParser& parser, std::string& name,
                         TAttributes& attributes) override;
  void HandleAttributes(TCIMXMLParser& parser, TAttributes& attributes) override;

 private:
  static const std::int32_t kObjectDone = 1;

  std::string name_;
};

#endif
