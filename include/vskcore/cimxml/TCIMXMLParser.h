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
  void FatalError(const char* const message) override;

  // The classes that this document added through an object element, in document order; those sent
  // in a message are not among them. The container owns them.
  std::vector<TCIMClass*> GetClassesCollected() const;

  // Makes a PROPERTY of an instance lenient: its TYPE is not held against the declaration, and a
  // value that does not fit is left out.
  void SetQK482Mode();

  // The text as a value of that type. A bad date-time is logged and becomes 1 January 1970; what
  // cannot be read otherwise gives a value of type cimNone.
  TCIMValue ParseValue(TCIMValue::TCIMType type, std::string& text);

  // "true" or "false" in any case of letters, and a decimal number; leading white space and what
  // follows are passed over. Anything else is logged and throws
  // vskStatusInvalidSpecificationDocument; the log names the line in a non-static call.
  static bool ConvertBool(std::string& text);
  unsigned int ConvertUnsignedInt(std::string& text);

 private:
  class TParseState;
  // One class for each element, named after it.
  class TStateStart;
  class TStateCIM;
  class TStateDeclaration;
  class TStateDeclGroup;
  class TStateDeclGroupWithName;
  class TStateDeclGroupWithPath;
  class TStateQualifierDeclaration;
  class TStateScope;
  class TStateMessage;
  class TStateMultiReq;
  class TStateSimpleReq;
  class TStateIMethodCall;
  class TStateIParamValue;
  class TStateNamespacePath;
  class TStateLocalNamespacePath;
  class TStateHost;
  class TStateNamespace;
  class TStateClassPath;
  class TStateLocalClassPath;
  class TStateClassName;
  class TStateInstancePath;
  class TStateLocalInstancePath;
  class TStateInstanceName;
  class TStateKeyBinding;
  class TStateKeyValue;
  class TStateValueReference;
  class TStateValueObject;
  class TStateValueNamedObject;
  class TStateValueObjectWithPath;
  class TStateValueObjectWithLocalPath;
  class TStateClass;
  class TStateInstance;
  class TStateQualifier;
  class TStatePropertyDecl;
  class TStateProperty;
  class TStatePropertyArrayDecl;
  class TStatePropertyArray;
  class TStatePropertyReferenceDecl;
  class TStatePropertyReference;
  class TStateValue;
  class TStateValueArray;

  std::stack<boost::shared_ptr<TParseState>> states_;  // one for each open element, and the start
  TContainer* container_;                              // not owned
  std::vector<TCIMClass*> classesCollected_;           // not owned
  std::string text_;                                   // what characters has gathered
  bool qk482Mode_;
};

#endif
