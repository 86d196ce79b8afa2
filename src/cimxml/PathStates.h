// The states of what names something: namespaces, classes, instances, and references as values.
// Hosts and namespaces are read for their form and have no effect: a reference knows neither.
#ifndef VSKCORE_SRC_CIMXML_PATHSTATES_H
#define VSKCORE_SRC_CIMXML_PATHSTATES_H

#include <vskcore/model/TCIMReference.h>
#include <vskcore/model/TCIMValue.h>

#include <string>

#include "cimxml/States.h"

// <NAMESPACEPATH>: a host, then a local path. Either may be missing at the end.
class TCIMXMLParser::TStateNamespacePath : public TParseState {
 public:
  TStateNamespacePath(std::string* host, std::string* nameSpace)
      : host_(host), namespace_(nameSpace) {}
  void StartChildElement(TCIMXMLParser& parser, std::string& name,
                         TAttributes& attributes) override;

 private:
  enum { kHost, kLocalPath, kDone };

  std::string* host_;
  std::string* namespace_;
};

// <LOCALNAMESPACEPATH><NAMESPACE NAME="root"/><NAMESPACE NAME="cimv2"/>, which is root/cimv2.
class TCIMXMLParser::TStateLocalNamespacePath : public TParseState {
 public:
  explicit TStateLocalNamespacePath(std::string* nameSpace) : namespace_(nameSpace) {}
  void StartChildElement(TCIMXMLParser& parser, std::string& name,
                         TAttributes& attributes) override;
  void EndOwnElement(TCIMXMLParser& parser, std::string& name) override;

 private:
  void AppendCurrent();

  std::string* namespace_;
  std::string current_;
  bool seen_ = false;
};

// <HOST>somewhere</HOST>
class TCIMXMLParser::TStateHost : public TParseState {
 public:
  TStateHost(TCIMXMLParser& parser, std::string* host) : host_(host) { parser.text_.clear(); }
  void EndOwnElement(TCIMXMLParser& parser, std::string& name) override;

 private:
  std::string* host_;
};

// <NAMESPACE NAME="root"/>
class TCIMXMLParser::TStateNamespace : public TParseState {
 public:
  explicit TStateNamespace(std::string* current) : current_(current) {}
  void HandleAttributes(TCIMXMLParser& parser, TAttributes& attributes) override;

 private:
  std::string* current_;
};

// A namespace, then what is named in it: the shape of the four paths. A local one has no host, and
// neither child is demanded.
class TCIMXMLParser::TStatePath : public TParseState {
 public:
  void StartChildElement(TCIMXMLParser& parser, std::string& name,
                         TAttributes& attributes) override;

 protected:
  // A null host makes the path a local one.
  TStatePath(std::string* host, std::string* nameSpace) : host_(host), namespace_(nameSpace) {}

 private:
  enum { kNamespace, kName };

  bool StartNamespace(TCIMXMLParser& parser, TAttributes& attributes);
  // Enters the name's state; false for any other element.
  virtual bool StartName(TCIMXMLParser& parser, TAttributes& attributes) = 0;

  std::string* host_;
  std::string* namespace_;
};

// <CLASSPATH>: NAMESPACEPATH, CLASSNAME.
class TCIMXMLParser::TStateClassPath : public TStatePath {
 public:
  TStateClassPath(std::string* host, std::string* nameSpace, std::string* className)
      : TStatePath(host, nameSpace), className_(className) {}

 private:
  bool StartName(TCIMXMLParser& parser, TAttributes& attributes) override;

  std::string* className_;
};

// <LOCALCLASSPATH>: LOCALNAMESPACEPATH, CLASSNAME.
class TCIMXMLParser::TStateLocalClassPath : public TStateClassPath {
 public:
  TStateLocalClassPath(std::string* nameSpace, std::string* className)
      : TStateClassPath(nullptr, nameSpace, className) {}
};

// <CLASSNAME NAME="Sample_Disk"/>
class TCIMXMLParser::TStateClassName : public TParseState {
 public:
  explicit TStateClassName(std::string* className) : className_(className) {}
  void HandleAttributes(TCIMXMLParser& parser, TAttributes& attributes) override;

 private:
  std::string* className_;
};

// <INSTANCEPATH>: NAMESPACEPATH, INSTANCENAME.
class TCIMXMLParser::TStateInstancePath : public TStatePath {
 public:
  TStateInstancePath(std::string* host, std::string* nameSpace, TCIMReference* reference)
      : TStatePath(host, nameSpace), reference_(reference) {}

 private:
  bool StartName(TCIMXMLParser& parser, TAttributes& attributes) override;

  TCIMReference* reference_;
};

// <LOCALINSTANCEPATH>: LOCALNAMESPACEPATH, INSTANCENAME.
class TCIMXMLParser::TStateLocalInstancePath : public TStateInstancePath {
 public:
  TStateLocalInstancePath(std::string* nameSpace, TCIMReference* reference)
      : TStateInstancePath(nullptr, nameSpace, reference) {}
};

// <INSTANCENAME CLASSNAME="Sample_Disk">: key bindings; or a lone KEYVALUE, which binds the first
// key property; or a lone reference, which is the name.
class TCIMXMLParser::TStateInstanceName : public TParseState {
 public:
  explicit TStateInstanceName(TCIMReference* reference) : reference_(reference) {}
  void StartChildElement(TCIMXMLParser& parser, std::string& name,
                         TAttributes& attributes) override;
  void EndOwnElement(TCIMXMLParser& parser, std::string& name) override;
  void HandleAttributes(TCIMXMLParser& parser, TAttributes& attributes) override;

 private:
  enum { kStart, kBindings, kDone };

  void BindFirstKey(TCIMXMLParser& parser);

  TCIMReference* reference_;
  std::string className_;
  std::string keyText_;
  TCIMValue referenceValue_;
  bool keyValueSeen_ = false;
  bool referenceValueSeen_ = false;
  TCIMClass* class_ = nullptr;
};

// <KEYBINDING NAME="Id">: the key's value, as text or as a reference; the last one counts.
class TCIMXMLParser::TStateKeyBinding : public TParseState {
 public:
  TStateKeyBinding(TCIMClass* cimClass, TCIMReference* reference)
      : class_(cimClass), reference_(reference) {}
  void StartChildElement(TCIMXMLParser& parser, std::string& name,
                         TAttributes& attributes) override;
  void EndOwnElement(TCIMXMLParser& parser, std::string& name) override;
  void HandleAttributes(TCIMXMLParser& parser, TAttributes& attributes) override;

 private:
  void BindText(TCIMXMLParser& parser);

  TCIMClass* class_;
  TCIMReference* reference_;
  std::string keyName_;
  bool referenceValueSeen_ = false;
  TCIMValue referenceValue_;
  std::string keyText_;
};

// <KEYVALUE>7</KEYVALUE>: the text as it stands. The declaration of the key says what it means.
class TCIMXMLParser::TStateKeyValue : public TParseState {
 public:
  TStateKeyValue(TCIMXMLParser& parser, std::string* keyText) : keyText_(keyText) {
    parser.text_.clear();
  }
  void EndOwnElement(TCIMXMLParser& parser, std::string& name) override;

 private:
  std::string* keyText_;
};

// <VALUE.REFERENCE>: the path or the bare name of a class or of an instance.
class TCIMXMLParser::TStateValueReference : public TParseState {
 public:
  explicit TStateValueReference(TCIMValue* target) : target_(target) {}
  void StartChildElement(TCIMXMLParser& parser, std::string& name,
                         TAttributes& attributes) override;
  void EndOwnElement(TCIMXMLParser& parser, std::string& name) override;

 private:
  bool StartClass(TCIMXMLParser& parser, TAttributes& attributes);
  bool StartInstance(TCIMXMLParser& parser, TAttributes& attributes);

  TCIMValue* target_;
  bool instanceForm_ = false;
  bool classForm_ = false;
  std::string host_;
  std::string namespace_;
  TCIMReference reference_;
  std::string className_;
};

#endif
