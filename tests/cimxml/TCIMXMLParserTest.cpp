#include <vskcore/model/TCIMDateTime.h>
#include <vskcore/model/TCIMInstance.h>
#include <vskcore/model/TCIMValue.h>

#include <memory>

#include "cimxml/TDocumentTest.h"
#include "support/Picture.h"

namespace {

using TCIMXMLParserEngine = TDocumentTest;

// The number that body gives, or the line in the log when it refuses.
template <typename TBody>
std::string Answer(TLogCapture& log, TBody&& body) {
  std::string answer;
  const vskStatus status = StatusOf([&] { answer = std::to_string(body()); });
  EXPECT_EQ(answer.empty() ? vskStatusInvalidSpecificationDocument : vskStatusOK, status);
  return answer + log.Take();
}

TEST_F(TCIMXMLParserEngine, BooleanIsAWordInAnyCase) {
  TDocumentRow rows[] = {
      {"1", "true"},
      {"1", " \t\nTRUE "},
      {"0", "False"},
      {"0", "falsework"},
      {"TCIMXMLParser: '' is neither true nor false", ""},
      {"TCIMXMLParser: 'tru' is neither true nor false", "tru"},
      {"TCIMXMLParser: '1' is neither true nor false", "1"},
  };
  for (TDocumentRow& row : rows) {
    EXPECT_EQ(row.expected, Answer(log, [&] { return TCIMXMLParser::ConvertBool(row.text); }));
  }
}

TEST_F(TCIMXMLParserEngine, NumberIsDecimalAndFits) {
  TDocumentRow rows[] = {
      {"42", " 42 apples"},
      {"10", "010"},
      {"4294967295", "4294967295"},
      {"CIM-XML Parser line 1:'4294967296' is no unsigned number", "4294967296"},
      {"CIM-XML Parser line 1:'-1' is no unsigned number", "-1"},
      {"CIM-XML Parser line 1:' ' is no unsigned number", " "},
  };
  TCIMXMLParser parser(&container);
  char nothing[] = "<CIM/>";
  parser.Parse(nothing);
  for (TDocumentRow& row : rows) {
    EXPECT_EQ(row.expected, Answer(log, [&] { return parser.ConvertUnsignedInt(row.text); }));
  }
}

TEST_F(TCIMXMLParserEngine, ValueThatCannotBeReadHasNoType) {
  using TCIMType = TCIMValue::TCIMType;
  TCIMXMLParser parser(&container);
  for (const TCIMValue::ECIMType type :
       {TCIMType::cimNone, TCIMType::cimChar, TCIMType::cimReference,
        TCIMType::cimUint8 | TCIMType::cimArrayFlag}) {
    std::string text = "7";
    const TCIMValue value = parser.ParseValue(type, text);
    EXPECT_EQ(TCIMType::cimNone, value.GetType());
    EXPECT_TRUE(value.IsNull());
  }
  EXPECT_EQ("", log.Take());
}

TEST_F(TCIMXMLParserEngine, LinesOfTheFailureAreCounted) {
  EXPECT_EQ(vskStatusInvalidSpecificationDocument,
            Load("<?xml version='1.0'?>\n<CIM>\n <DECLARATION\n/>\n  <FOO></FOO></CIM>"));
  EXPECT_EQ(
      "CIM-XML Parser line 5:Unexpected element foo\n"
      "TCIMXMLParser: Threw exception vskStatusInvalidSpecificationDocument on line 5",
      log.Take());
  // What the reader finds itself is told in one line.
  EXPECT_EQ(vskStatusInvalidSpecificationDocument, Load("<CIM>\n</cim>"));
  EXPECT_EQ("CIM-XML Parser line 2:Start and end element names don't match", log.Take());
}

TEST_F(TCIMXMLParserEngine, TextIsGatheredByItsEndNotByItsLength) {
  Given(Group(kQualifiers + std::string("<VALUE.OBJECT><CLASS NAME='Sample_Thing'>") +
              Property("Id", "string", kKey) + "</CLASS></VALUE.OBJECT>"));
  Given(Thing(Property("Id", "string", Value("a&#0;b&#x43;&lt;"))));
  EXPECT_EQ("Sample_Thing{Id=\"abC<\"}",
            Picture(*container.GetClass("Sample_Thing").EnumerateInstances(false).front()));
}

// The copy goes on where the other stood, even when that one is gone.
TEST_F(TCIMXMLParserEngine, CopySharesTheOpenElements) {
  TXmlParser::TAttributes none;
  auto parser = std::make_unique<TCIMXMLParser>(&container);
  char start[] = "<CIM/>";
  parser->Parse(start);
  parser->StartElement("CIM", none);
  parser->StartElement("Declaration", none);
  TContainer other;
  TCIMXMLParser assigned(&other);
  assigned = *parser;
  TCIMXMLParser copy(*parser);
  parser.reset();
  EXPECT_EQ(vskStatusInvalidSpecificationDocument,
            StatusOf([&] { assigned.StartElement("CIM", none); }));
  log.Take();
  copy.StartElement("declgroup", none);
  for (int open = 3; open > 0; --open) copy.EndElement("any");
  copy.StartElement("CIM", none);
  EXPECT_EQ("", log.Take());
}

// Here in the middle of a value, where a CDATA section has ended the reading without a word.
TEST_F(TCIMXMLParserEngine, AssignedOneGoesOnInTheOthersContainerAndMode) {
  std::string document =
      Group(kQualifiers + std::string("<VALUE.OBJECT><CLASS NAME='Sample_Thing'>") +
            Property("Id", "string", kKey) + Property("Size", "uint8", "") +
            "</CLASS></VALUE.OBJECT><VALUE.OBJECT>"
            "<INSTANCE CLASSNAME='Sample_Thing'>" +
            Property("Id", "string", "<VALUE>ab<![CDATA[]]></VALUE>"));
  TContainer other;
  TCIMXMLParser assigned(&other);
  {
    TCIMXMLParser parser(&container);
    parser.SetQK482Mode();
    parser.Parse(document.data());
    assigned = parser;
  }
  TXmlParser::TAttributes size = {{"name", "Size"}, {"type", "string"}};
  assigned.characters("c", 1);
  for (const char* name : {"VALUE", "PROPERTY"}) assigned.EndElement(name);
  assigned.StartElement("PROPERTY", size);
  for (const char* name : {"PROPERTY", "INSTANCE", "VALUE.OBJECT"}) assigned.EndElement(name);
  TXmlParser::TAttributes thing = {{"classname", "Sample_Thing"}};  // which other does not have
  assigned.StartElement("VALUE.OBJECT", thing);
  assigned.StartElement("INSTANCE", thing);
  const std::vector<TCIMClass*> classes = assigned.GetClassesCollected();
  ASSERT_EQ(1U, classes.size());
  EXPECT_EQ("Sample_Thing{Id=\"abc\", Size=NULL}",
            Picture(*classes.front()->EnumerateInstances(false).front()));
}

// Each cut falls into another state; what had been built until then is released.
TEST_F(TCIMXMLParserEngine, EveryPrefixOfADocumentFailsCleanly) {
  const std::string classes =
      kQualifiers + std::string("<VALUE.OBJECT><CLASS NAME='Sample_Thing'>") +
      Property("Id", "uint32", kKey + Value("5")) +
      "<PROPERTY.ARRAY NAME='Codes' TYPE='string' ARRAYSIZE='2'><VALUE.ARRAY><VALUE>a</VALUE>"
      "<VALUE>b</VALUE></VALUE.ARRAY></PROPERTY.ARRAY><METHOD><A/></METHOD></CLASS></VALUE.OBJECT>"
      "<VALUE.OBJECT><CLASS NAME='Sample_Link'>" +
      kAssociation + "<PROPERTY.REFERENCE NAME='End' REFERENCECLASS='Sample_Thing'>" + kKey +
      "</PROPERTY.REFERENCE></CLASS></VALUE.OBJECT>";
  const std::string objects =
      "<VALUE.OBJECT><INSTANCE CLASSNAME='Sample_Thing'>" +
      Property("Id", "uint32", Value("1&#49;")) +
      "</INSTANCE></VALUE.OBJECT><VALUE.OBJECT><INSTANCE CLASSNAME='Sample_Link'>"
      "<PROPERTY.REFERENCE NAME='End'><VALUE.REFERENCE><INSTANCENAME CLASSNAME='Sample_Thing'>"
      "<KEYBINDING NAME='Id'><KEYVALUE>11</KEYVALUE></KEYBINDING></INSTANCENAME></VALUE.REFERENCE>"
      "</PROPERTY.REFERENCE></INSTANCE></VALUE.OBJECT>";
  const std::string document = Group(classes + objects);
  for (std::size_t length = 0; length < document.size(); ++length) {
    TContainer own;
    std::vector<char> buffer(document.begin(),
                             document.begin() + static_cast<std::ptrdiff_t>(length));
    buffer.push_back('\0');
    TCIMXMLParser parser(&own);
    EXPECT_EQ(vskStatusInvalidSpecificationDocument, StatusOf([&] { parser.Parse(buffer.data()); }))
        << document.substr(0, length);
    EXPECT_EQ(1U, log.TakeLines().size()) << document.substr(0, length);
  }
  Given(document);
  EXPECT_EQ("Sample_Link{End=<Sample_Thing.Id=11>}",
            Picture(*container.GetClass("Sample_Link").EnumerateInstances(false).front()));
}

}  // namespace
