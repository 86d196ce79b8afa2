// Reads a CIM-XML document into a container.
#ifndef VSKCORE_CIMXML_TCIMXMLPARSER_H
#define VSKCORE_CIMXML_TCIMXMLPARSER_H

#include <vskcore/cimxml/TXmlParser.h>
#include <vskcore/core/vskExport.h>
#include <vskcore/model/TCIMQualifierDecl.h>
#include <vskcore/model/TCIMValue.h>

#include <boost/shared_ptr.hpp>
#include <stack>
#include <string>
#include <vector>

class TCIMClass;
class TContainer;
namespace vsk::detail {
enum class EElement : unsigned char;
}

// Turns the reader's events into the object model as they come, without a tree in between. One
// parser serves one document; TContainer::PopulateContainerFromFile is the usual way to it.
//
//   TContainer container;
//   TCIMXMLParser parser(&container);
//   parser.Parse(buffer);                       // NUL-terminated, writable
//   for (TCIMClass* added : parser.GetClassesCollected()) ...
//
// The document is a subset of the DMTF's CIM-XML (DSP0201, DSP0203): a declaration with groups of
// qualifier declarations, classes and instances, or a message that creates classes and instances.
// Element and attribute names are taken in any case of letters, unknown attributes are ignored.
//
// The first failure ends the parse: it is logged with its line, Parse throws
// vskStatusInvalidSpecificationDocument for bad XML or grammar and the model's own status for what
// the model refuses, and what was added until then stays in the container.
class VSK_EXPORT TCIMXMLParser : public TXmlParser {
 public:
  // The size in bytes up to which documents are read from files: 100 MiB.
  static const unsigned int kMaxSpecificationDocumentSize = 104857600;

  // The container is borrowed and must outlive the parser.
  explicit TCIMXMLParser(TContainer* container);
  // A copy shares the open elements and the buffer.
  TCIMXMLParser(const TCIMXMLParser& other);
  TCIMXMLParser& operator=(const TCIMXMLParser& other);
  ~TCIMXMLParser() override;

  void StartElement(const char* const name, TAttributes& attributes) override;
  void EndElement(const char* const name) override;
  void processingInstruction(const char* const target, const char* const data) override;
  void characters(const char* const text, unsigned int length) override;
  void notationDecl(const char* const name, const char* const publicId,
                    const char* const systemId) override;
  // Logs "CIM-XML Parser line <n>:<message>" and throws vskStatusInvalidSpecificationDocument.
  [[noreturn]] void FatalError(const char* const message) override;

  // The classes that this document added through an object element, in document order; those sent
  // in a message are not among them. The container owns them.
  std::vector<TCIMClass*> GetClassesCollected() const;

  // Makes a PROPERTY of an instance lenient: its TYPE is not held against the declaration, and a
  // value that does not fit is left out.
  void SetQK482Mode();

  // The text as a value of that type. A bad date-time is logged and becomes 1 January 1970, a
  // number or boolean that can't be read 0 or false. A type that no text gives (cimNone, char,
  // reference, arrays) makes a value of type cimNone.
  TCIMValue ParseValue(TCIMValue::TCIMType type, std::string& text);

  // "true" or "false" in any case of letters; leading white space and what follows are passed over.
  // Anything else is logged and throws vskStatusInvalidSpecificationDocument.
  static bool ConvertBool(std::string& text);
  // A decimal number, likewise; the log names the line.
  unsigned int ConvertUnsignedInt(std::string& text);

 private:
  // The engine: see the head of TCIMXMLParser.cpp. Nothing below leaves the library.
  class VSK_LOCAL TParseState;
  // One class for each element, named after it.
  class VSK_LOCAL TStateStart;
  class VSK_LOCAL TStateCIM;
  class VSK_LOCAL TStateDeclaration;
  class VSK_LOCAL TStateDeclGroup;
  class VSK_LOCAL TStateDeclGroupWithName;
  class VSK_LOCAL TStateDeclGroupWithPath;
  class VSK_LOCAL TStateQualifierDeclaration;
  class VSK_LOCAL TStateScope;
  class VSK_LOCAL TStateMessage;
  class VSK_LOCAL TStateMultiReq;
  class VSK_LOCAL TStateSimpleReq;
  class VSK_LOCAL TStateIMethodCall;
  class VSK_LOCAL TStateIParamValue;
  class VSK_LOCAL TStateNamespacePath;
  class VSK_LOCAL TStateLocalNamespacePath;
  class VSK_LOCAL TStateHost;
  class VSK_LOCAL TStateNamespace;
  class VSK_LOCAL TStateClassPath;
  class VSK_LOCAL TStateLocalClassPath;
  class VSK_LOCAL TStateClassName;
  class VSK_LOCAL TStateInstancePath;
  class VSK_LOCAL TStateLocalInstancePath;
  class VSK_LOCAL TStateInstanceName;
  class VSK_LOCAL TStateKeyBinding;
  class VSK_LOCAL TStateKeyValue;
  class VSK_LOCAL TStateValueReference;
  class VSK_LOCAL TStateValueObject;
  class VSK_LOCAL TStateValueNamedObject;
  class VSK_LOCAL TStateValueObjectWithPath;
  class VSK_LOCAL TStateValueObjectWithLocalPath;
  class VSK_LOCAL TStateClass;
  class VSK_LOCAL TStateInstance;
  class VSK_LOCAL TStateQualifier;
  class VSK_LOCAL TStatePropertyDecl;
  class VSK_LOCAL TStateProperty;
  class VSK_LOCAL TStatePropertyArrayDecl;
  class VSK_LOCAL TStatePropertyArray;
  class VSK_LOCAL TStatePropertyReferenceDecl;
  class VSK_LOCAL TStatePropertyReference;
  class VSK_LOCAL TStateValue;
  class VSK_LOCAL TStateValueArray;
  // An element that is stepped over with all that it contains.
  class VSK_LOCAL TStateSkip;
  // What several of them share.
  class VSK_LOCAL TStateGroup;
  class VSK_LOCAL TStatePath;
  class VSK_LOCAL TStateObject;
  class VSK_LOCAL TStateObjectBehindPath;
  struct VSK_LOCAL TScalarContent;
  struct VSK_LOCAL TArrayContent;
  struct VSK_LOCAL TReferenceContent;
  template <typename TContent>
  class VSK_LOCAL TStateDeclare;
  template <typename TContent>
  class VSK_LOCAL TStateAssign;

  // Pushes the state of a child element and lets it read its attributes.
  template <typename TState, typename... TArguments>
  VSK_LOCAL void Enter(TAttributes& attributes, TArguments&&... arguments);
  // Pops from the top, so that a state never outlives the one that it reports to.
  VSK_LOCAL void ReleaseStates();
  VSK_LOCAL void FoldName(const char* name);

  // The attribute readers. Each stores its attribute's value and returns true, or leaves the
  // target alone and returns false when the attribute is not the one it looks for.
  VSK_LOCAL bool HandleCIMName(TAttributes::iterator& attribute, std::string* name);
  VSK_LOCAL bool HandleCIMType(TAttributes::iterator& attribute, TCIMValue::TCIMType* type);
  VSK_LOCAL bool HandleClassOrigin(TAttributes::iterator& attribute, std::string* classOrigin);
  VSK_LOCAL bool HandlePropagated(TAttributes::iterator& attribute, bool& propagated);
  VSK_LOCAL bool HandleArraySize(TAttributes::iterator& attribute, unsigned int& arraySize);
  VSK_LOCAL bool HandleSuperClass(TAttributes::iterator& attribute, std::string* name);
  VSK_LOCAL bool HandleClassName(TAttributes::iterator& attribute, std::string* name);
  VSK_LOCAL bool HandleReferenceClass(TAttributes::iterator& attribute, std::string* name);
  VSK_LOCAL bool HandleQualifierFlavor(TAttributes::iterator& attribute,
                                       TCIMQualifierDecl::EFlavor* flavor);
  // As ConvertBool, with the line in the log.
  VSK_LOCAL bool ReadBool(const std::string& text);

  std::stack<boost::shared_ptr<TParseState>> states_;  // one for each open element, and the start
  TContainer* container_;                              // not owned
  std::vector<TCIMClass*> classesCollected_;           // not owned
  std::string text_;                                   // what characters has gathered
  bool qk482Mode_;
  vsk::detail::EElement element_;  // the element that has just begun
  std::string name_;               // its name in lower case; one buffer for all of them
};

#endif
