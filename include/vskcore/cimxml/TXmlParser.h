// The XML reader: small, event-driven, in place.
#ifndef VSKCORE_CIMXML_TXMLPARSER_H
#define VSKCORE_CIMXML_TXMLPARSER_H

#include <vskcore/core/vskExport.h>

#include <map>
#include <string>
#include <string_view>

// Walks one writable, NUL-terminated buffer and reports what it finds through virtual callbacks.
// It reads the subset of XML 1.0 that CIM-XML (DSP0201) documents need:
//
// - bytes are delivered as they stand: no encoding, no line-end or attribute normalisation, and
//   only the five predefined entities and numeric references of one byte (modulo 256);
// - a DOCTYPE is skipped up to its first ">", comments are invisible, the XML declaration unread;
// - attribute names are lower-cased, element names stay as written, ":" is a letter like another;
// - CDATA sections, references in attribute values and a byte order mark are not read.
//
// The buffer belongs to the caller and must outlive Parse. It is written to: attribute names stay
// lower-cased, and terminating NULs come and go; when a callback throws, those behind the names of
// open elements stay. Names and texts given to a callback are valid during that call only. A copied
// reader refers to the same buffer. One reader serves one thread.
class VSK_EXPORT TXmlParser {
 public:
  // Name in lower case to value as written. Owned by the reader; gone after the element's end.
  using TAttributes = std::map<std::string, std::string>;

  TXmlParser();
  TXmlParser(const TXmlParser& other);
  TXmlParser& operator=(const TXmlParser& other);

  // The callbacks. Their order in the virtual table is part of the contract.

  virtual ~TXmlParser();
  // A start tag, its attributes all read. For <a/> EndElement follows at once.
  virtual void StartElement(const char* const name, TAttributes& attributes) = 0;
  // The end of the element, by its end tag or at once.
  virtual void EndElement(const char* const name) = 0;
  // Target and data are not read: both arguments are "TBD".
  virtual void processingInstruction(const char* const target, const char* const data) = 0;
  // A run of text or one resolved reference; one text may come in several calls. NUL-terminated,
  // but it may also hold a NUL (&#0;), so the length counts.
  virtual void characters(const char* const text, unsigned int length) = 0;
  // A notation declaration. It is not read either: all three are "TBD".
  virtual void notationDecl(const char* const name, const char* const publicId,
                            const char* const systemId) = 0;
  // A syntax error. Must not return: throw. The reader then leaves everything as it is.
  virtual void FatalError(const char* const message) = 0;

  // Reads one document, which begins at its first byte: an XML declaration or none; only behind
  // one, comments, processing instructions and a DOCTYPE; then one element. What follows it is not
  // looked at but for comments and processing instructions. Errors come through FatalError; inside
  // the element a comment or processing instruction without an end, and any other "<!", such as a
  // CDATA section, ends the reading without a word. At most kMaxDepth elements may be open at a
  // time.
  void Parse(char* buffer);

  // The line of the present position, counted from 1 by line feeds. Has a meaning from the start
  // of Parse on.
  unsigned int GetCurLine();

  static constexpr unsigned int kMaxDepth = 256;  // of open elements, the root among them

 private:
  struct TAttribute;
  class TAttributeFiller;
  struct TLevel;
  class TLevels;

  VSK_LOCAL char GetChar();
  VSK_LOCAL bool Accept(char expected);
  VSK_LOCAL char PeekChar();
  VSK_LOCAL void UngetChar();
  VSK_LOCAL bool SkipWhitespace();
  VSK_LOCAL bool ValidateName();
  VSK_LOCAL bool ParseProlog();
  VSK_LOCAL bool ParseXMLDecl();
  VSK_LOCAL bool ParseMisc();
  VSK_LOCAL bool ParseDocTypeDecl();
  VSK_LOCAL bool ParseProcessingInstruction();
  VSK_LOCAL bool ParseNotationDecl();
  VSK_LOCAL bool SkipComment();
  VSK_LOCAL bool ParseElement(TLevels& levels);
  VSK_LOCAL bool ParseStartTag(TLevels& levels);
  VSK_LOCAL bool ParseAttributes(TAttributeFiller& filler);
  VSK_LOCAL bool ParseAttribute(TAttribute& attribute);
  VSK_LOCAL bool ParseAttributeValue(char quote);
  VSK_LOCAL bool ParseCharData();
  VSK_LOCAL bool ParseEndTag(TLevels& levels);
  VSK_LOCAL bool ConsumeName(std::string_view name);
  VSK_LOCAL bool ParseReference();
  VSK_LOCAL bool ParseNumericReference();
  VSK_LOCAL bool ConsumeEntityName(const char* name);
  VSK_LOCAL void DeliverByte(char byte);
  VSK_LOCAL bool SkipPast(const char* text);
  VSK_LOCAL bool Refuse(const char* message);
  VSK_LOCAL void LookAhead();
  VSK_LOCAL void CountLinesTo(const char* place);

  char* position_;        // the next byte to read
  char* start_;           // the first byte of the document
  const char* limit_;     // no NUL ahead of it
  const char* lineMark_;  // line feeds ahead of it are counted already; never past position_
  unsigned int lineAtMark_;
};

#endif
