#include "Peers.h"

#include <expat.h>
#include <libxml/parser.h>

#include <memory>
#include <pugixml.hpp>
#include <stdexcept>

void ReadWithExpat(const std::string& text) {
  const std::unique_ptr<XML_ParserStruct, decltype(&XML_ParserFree)> parser(
      XML_ParserCreate(nullptr), XML_ParserFree);
  XML_SetElementHandler(
      parser.get(), [](void*, const XML_Char*, const XML_Char**) {}, [](void*, const XML_Char*) {});
  XML_SetCharacterDataHandler(parser.get(), [](void*, const XML_Char*, int) {});
  XML_SetProcessingInstructionHandler(parser.get(), [](void*, const XML_Char*, const XML_Char*) {});
  if (XML_Parse(parser.get(), text.data(), static_cast<int>(text.size()), 1) != XML_STATUS_OK) {
    throw std::runtime_error("expat refuses the document");
  }
}

void ReadWithLibxml2(const std::string& text) {
  xmlSAXHandler handler{};
  handler.initialized = XML_SAX2_MAGIC;
  handler.startElementNs = [](void*, const xmlChar*, const xmlChar*, const xmlChar*, int,
                              const xmlChar**, int, int, const xmlChar**) {};
  handler.endElementNs = [](void*, const xmlChar*, const xmlChar*, const xmlChar*) {};
  handler.characters = [](void*, const xmlChar*, int) {};
  handler.ignorableWhitespace = handler.characters;  // spares it a closer look at white space
  handler.processingInstruction = [](void*, const xmlChar*, const xmlChar*) {};
  if (xmlSAXUserParseMemory(&handler, nullptr, text.data(), static_cast<int>(text.size())) != 0) {
    throw std::runtime_error("libxml2 refuses the document");
  }
}

void ReadWithPugixml(std::string& text) {
  pugi::xml_document document;
  if (!document.load_buffer_inplace(text.data(), text.size())) {
    throw std::runtime_error("pugixml refuses the document");
  }
}
