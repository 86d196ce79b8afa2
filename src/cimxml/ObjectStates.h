// The states of classes and instances and of the elements that wrap them.
#ifndef VSKCORE_SRC_CIMXML_OBJECTSTATES_H
#define VSKCORE_SRC_CIMXML_OBJECTSTATES_H

#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMInstance.h>
#include <vskcore/model/TCIMReference.h>

#include <memory>
#include <string>

#include "cimxml/States.h"

// What wraps one class or one instance. It owns the object while it grows and adds it to the
// container at its end, complete. A class that is there already is dropped: the first one stands.
class TCIMXMLParser::TStateObject : public TParseState {
 public:
  void EndOwnElement(TCIMXMLParser& parser, std::string& name) override;

 protected:
  enum ECollected : bool { kNotCollected, kCollected };

  // complete is the step at which the object has come; the end demands it.
  TStateObject(std::int32_t complete, ECollected collected)
      : complete_(complete), collected_(collected) {}

  // Each enters the object's state, with which this one is complete.
  void StartClass(TCIMXMLParser& parser, TAttributes& attributes);
  void StartInstance(TCIMXMLParser& parser, TAttributes& attributes);
  // Either of them; false for an element that is neither.
  bool StartObject(TCIMXMLParser& parser, TAttributes& attributes);

 private:
  void AddClass(TCIMXMLParser& parser);

  const std::int32_t complete_;
  const ECollected collected_;
  bool isClass_ = false;
  std::unique_ptr<TCIMClass> class_;
  std::unique_ptr<TCIMInstance> instance_;
};

// <VALUE.OBJECT>: one class or one instance.
class TCIMXMLParser::TStateValueObject : public TStateObject {
 public:
  TStateValueObject() : TStateObject(kObjectDone, kCollected) {}
  void StartChildElement(TCIMXMLParser& parser, std::string& name,
                         TAttributes& attributes) override;

 private:
  static const std::int32_t kObjectDone = 1;
};

// <VALUE.NAMEDOBJECT>: one class, or an instance behind its name. The name is checked and dropped:
// an instance is what its properties say.
class TCIMXMLParser::TStateValueNamedObject : public TStateObject {
 public:
  TStateValueNamedObject() : TStateObject(kObjectDone, kCollected) {}
  void StartChildElement(TCIMXMLParser& parser, std::string& name,
                         TAttributes& attributes) override;

 private:
  enum { kStart, kNameDone, kObjectDone };

  TCIMReference reference_;
};

// A class path and a class, or an instance path and an instance. The path is checked and dropped.
class TCIMXMLParser::TStateObjectBehindPath : public TStateObject {
 public:
  void StartChildElement(TCIMXMLParser& parser, std::string& name,
                         TAttributes& attributes) override;

 protected:
  TStateObjectBehindPath() : TStateObject(kObjectDone, kCollected) {}

  std::string namespace_;
  std::string className_;
  TCIMReference reference_;

 private:
  enum { kStart, kClassPathDone, kInstancePathDone, kObjectDone };

  // Enter the path states of that form; false for any other element.
  virtual bool StartClassPath(TCIMXMLParser& parser, TAttributes& attributes) = 0;
  virtual bool StartInstancePath(TCIMXMLParser& parser, TAttributes& attributes) = 0;
};

// <VALUE.OBJECTWITHPATH>: the path is a CLASSPATH or an INSTANCEPATH.
class TCIMXMLParser::TStateValueObjectWithPath : public TStateObjectBehindPath {
 private:
  bool StartClassPath(TCIMXMLParser& parser, TAttributes& attributes) override;
  bool StartInstancePath(TCIMXMLParser& parser, TAttributes& attributes) override;

  std::string host_;
};

// <VALUE.OBJECTWITHLOCALPATH>: the path is a LOCALCLASSPATH or a LOCALINSTANCEPATH.
class TCIMXMLParser::TStateValueObjectWithLocalPath : public TStateObjectBehindPath {
 private:
  bool StartClassPath(TCIMXMLParser& parser, TAttributes& attributes) override;
  bool StartInstancePath(TCIMXMLParser& parser, TAttributes& attributes) override;
};

// <CLASS NAME="Sample_Disk" SUPERCLASS="Sample_Device">: qualifiers, then properties. Methods are
// stepped over: the model has none.
class TCIMXMLParser::TStateClass : public TParseState {
 public:
  explicit TStateClass(std::unique_ptr<TCIMClass>* target) : target_(target) {}
  void StartChildElement(TCIMXMLParser& parser, std::string& name,
                         TAttributes& attributes) override;
  void HandleAttributes(TCIMXMLParser& parser, TAttributes& attributes) override;

 private:
  enum { kQualifiers, kProperties };

  std::string name_;
  std::string superClassName_;
  std::unique_ptr<TCIMClass>* target_;
  TCIMClass* class_ = nullptr;
};

// <INSTANCE CLASSNAME="Sample_Disk">: properties. Qualifiers in front of them are stepped over:
// instances carry none.
class TCIMXMLParser::TStateInstance : public TParseState {
 public:
  explicit TStateInstance(std::unique_ptr<TCIMInstance>* target) : target_(target) {}
  void StartChildElement(TCIMXMLParser& parser, std::string& name,
                         TAttributes& attributes) override;
  void HandleAttributes(TCIMXMLParser& parser, TAttributes& attributes) override;

 private:
  enum { kQualifiers, kProperties };

  std::string className_;
  std::unique_ptr<TCIMInstance>* target_;
};

#endif
