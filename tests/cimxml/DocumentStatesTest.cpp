#include <vskcore/model/TCIMInstance.h>
#include <vskcore/model/TCIMQualifierDecl.h>
#include <vskcore/model/TCIMValue.h>

#include "cimxml/TDocumentTest.h"

namespace {

using TCIMXMLParserDocument = TDocumentTest;
using TCIMXMLParserQualifierDeclaration = TDocumentTest;
using TCIMXMLParserMessage = TDocumentTest;

std::string Declared(const std::string& attributes, const std::string& content) {
  return "<CIM><DECLARATION><DECLGROUP><QUALIFIER.DECLARATION NAME=\"X\" " + attributes + ">" +
         content + "</QUALIFIER.DECLARATION></DECLGROUP></DECLARATION></CIM>";
}

TEST_F(TCIMXMLParserDocument, FramesWithNothingInThemPass) {
  const char* const kDocuments[] = {
      "<CIM/>",
      "<cim></cim>",
      "<?xml version='1.0'?><?of ours?><CIM><?more?></CIM>",
      R"(<CIM CIMVERSION="2.8" DTDVERSION="2.1" OTHER="x"/>)",
      R"(<CIM CIMVERSION="2.0" DTDVERSION="2.0">text</CIM>)",
      "<CIM><MESSAGE/><DECLARATION/><MESSAGE ID='7' PROTOCOLVERSION='1.0'/></CIM>",
      "<CIM><DECLARATION><DECLGROUP.WITHPATH/><DECLGROUP/><DECLGROUP.WITHNAME/></DECLARATION>"
      "</CIM>",
      "<CIM><MESSAGE><SIMPLEREQ/><MULTIREQ><SIMPLEREQ/><SIMPLEREQ/><SIMPLEREQ/></MULTIREQ>"
      "</MESSAGE></CIM>",
      "<CIM><DECLARATION><DECLGROUP><NAMESPACEPATH/></DECLGROUP></DECLARATION></CIM>",
      "<CIM><DECLARATION><DECLGROUP.WITHNAME><LOCALNAMESPACEPATH><NAMESPACE NAME='a'/><NAMESPACE/>"
      "</LOCALNAMESPACEPATH></DECLGROUP.WITHNAME></DECLARATION></CIM>",
  };
  for (const char* document : kDocuments) {
    EXPECT_EQ(vskStatusOK, Load(document)) << document;
    EXPECT_EQ("", log.Take()) << document;
  }
  EXPECT_TRUE(container.EnumerateQualifiers().empty());
  EXPECT_TRUE(container.GetRootClass().EnumerateSubClasses(true).empty());
}

TEST_F(TCIMXMLParserDocument, WhatTheFrameDoesNotAllowIsNamed) {
  const TDocumentRow kRows[] = {
      {"Unexpected element foo", "<Foo/>"},
      {"Unexpected element declaration", "<DECLARATION/>"},
      {"Unexpected element cim", "<CIM><CIM/></CIM>"},
      {"Unknown CIM version", R"(<CIM CIMVERSION="2.3"/>)"},
      {"Unknown CIM version", R"(<CIM CIMVERSION=""/>)"},
      {"Unknown DTD version", R"(<CIM CIMVERSION="2.0" DTDVERSION="2.8"/>)"},
      {"Unexpected element value.object", "<CIM><DECLARATION><VALUE.OBJECT/></DECLARATION></CIM>"},
      {"Unexpected element value.namedobject", Group("<VALUE.NAMEDOBJECT/>")},
      {"Unexpected element namespacepath", Group("<NAMESPACEPATH/><NAMESPACEPATH/>")},
      {"Unexpected element localnamespacepath",
       Group(kQualifiers + std::string("<LOCALNAMESPACEPATH/>"))},
      {"Unexpected element value.object",
       "<CIM><DECLARATION><DECLGROUP.WITHNAME><VALUE.OBJECT/></DECLGROUP.WITHNAME></DECLARATION>"
       "</CIM>"},
      {"Unexpected element namespacepath",
       "<CIM><DECLARATION><DECLGROUP.WITHPATH><NAMESPACEPATH/></DECLGROUP.WITHPATH></DECLARATION>"
       "</CIM>"},
      {"Unexpected element imethodcall", "<CIM><MESSAGE><IMETHODCALL/></MESSAGE></CIM>"},
      {"Unexpected element multireq",
       "<CIM><MESSAGE><MULTIREQ><MULTIREQ/></MULTIREQ></MESSAGE></CIM>"},
      {"Unexpected element multireq",
       "<CIM><MESSAGE><SIMPLEREQ><MULTIREQ/></SIMPLEREQ></MESSAGE></CIM>"},
      {"Unknown protocol version", R"(<CIM><MESSAGE PROTOCOLVERSION="1.1"/></CIM>)"},
      {"Invalid MULTIREQ", "<CIM><MESSAGE><MULTIREQ/></MESSAGE></CIM>"},
      {"Invalid MULTIREQ", "<CIM><MESSAGE><MULTIREQ><SIMPLEREQ/></MULTIREQ></MESSAGE></CIM>"},
  };
  for (const TDocumentRow& row : kRows) ExpectFatal(row.expected, row.text);
}

TEST_F(TCIMXMLParserDocument, QualifierDeclarationBehindAnObjectIsUnexpected) {
  ExpectFatal("Unexpected element qualifier.declaration",
              Group(std::string(kQualifiers) + "<VALUE.OBJECT><CLASS NAME=\"A\">" + kAbstract +
                    "</CLASS></VALUE.OBJECT><QUALIFIER.DECLARATION NAME=\"B\"/>"));
  EXPECT_NE(nullptr, container.FindClass("A"));
  ASSERT_EQ(1U, collected.size());
}

// What a declaration ends up as, in one line.
std::string Shown(const TCIMQualifierDecl& declaration) {
  const TCIMValue value = declaration.GetValue();
  return std::to_string(declaration.GetType()) + "[" + std::to_string(value.GetMaxArraySize()) +
         "] " + (value.IsNull() ? "NULL" : value.ToString(10)) + " scope " +
         std::to_string(declaration.GetScope()) + " flavor " +
         std::to_string(declaration.GetFlavor());
}

TEST_F(TCIMXMLParserQualifierDeclaration, AttributesAndValueMakeTheDeclaration) {
  const TDocumentRow kRows[] = {
      {"1[0] NULL scope 0 flavor 3", Declared("TYPE='Boolean'", "")},
      {"0[0] NULL scope 0 flavor 3", Declared("", "<SCOPE/>")},
      {"13[0] b scope 1 flavor 3",  // the last value stands
       Declared("TYPE='string'", "<SCOPE CLASS='false'/><VALUE>a</VALUE><VALUE>b</VALUE>")},
      {"6[0] 7 scope 14 flavor 6",
       Declared("TYPE='uint32' OVERRIDABLE='FALSE' TOSUBCLASS=' true' TRANSLATABLE='True'",
                "<SCOPE ASSOCIATION='1' REFERENCE='1' PROPERTY='1' METHOD='1' PARAMETER='1' "
                "INDICATION='1'/><VALUE>7</VALUE>")},
      {"4[0] NULL scope 0 flavor 2",
       Declared("TYPE='uint16' ISARRAY='false' ARRAYSIZE='0' OVERRIDABLE='false'", "")},
      {"29[0] NULL scope 8 flavor 3",
       Declared("TYPE='string' ISARRAY='true'", "<SCOPE REFERENCE='x'/>")},
      {"29[3] NULL scope 0 flavor 3", Declared("TYPE='string' ISARRAY='true' ARRAYSIZE='3'", "")},
      {"29[3] NULL scope 0 flavor 3", Declared("TYPE='string' ARRAYSIZE='3x'", "")},
      {"29[2] { a, b, c } scope 0 flavor 3",
       Declared("TYPE='string' ARRAYSIZE=' 2'",
                "<SCOPE/><VALUE.ARRAY><VALUE>a</VALUE><VALUE>b</VALUE><VALUE>c</VALUE>"
                "</VALUE.ARRAY>")},
      {"29[2] {  } scope 0 flavor 3",
       Declared("TYPE='string' ARRAYSIZE='2' ISARRAY='true'", "<SCOPE/><VALUE.ARRAY/>")},
  };
  for (const TDocumentRow& row : kRows) {
    SCOPED_TRACE(row.text);
    TContainer own;
    std::vector<char> buffer(row.text.c_str(), row.text.c_str() + row.text.size() + 1);
    TCIMXMLParser(&own).Parse(buffer.data());
    EXPECT_EQ(row.expected, Shown(own.GetQualifierDecl("x")));
  }
}

TEST_F(TCIMXMLParserQualifierDeclaration, ContradictionsAreRefused) {
  const TDocumentRow kRows[] = {
      {"Expected SCOPE element", Declared("TYPE='string'", "<VALUE>a</VALUE>")},
      {"Expected SCOPE element", Declared("TYPE='string'", "<FOO/>")},
      {"Unexpected element scope", Declared("", "<SCOPE/><SCOPE/>")},
      {"Unexpected element value", Declared("", "<SCOPE><VALUE/></SCOPE>")},
      {"Incompatible attributes", Declared("TYPE='boolean' ISARRAY='false' ARRAYSIZE='3'", "")},
      {"Incompatible attributes",
       Declared("TYPE='string' ISARRAY='true'", "<SCOPE/><VALUE.ARRAY/>")},
      {"Incompatible attributes", Declared("TYPE='string'", "<SCOPE/><VALUE.ARRAY/>")},
      {"Incompatible attributes", Declared("TYPE='string' ISARRAY='true'", "<SCOPE/><VALUE/>")},
      {"Incompatible attributes",
       Declared("TYPE='string' ISARRAY='false'", "<SCOPE/><VALUE.ARRAY/>")},
      {"Incompatible attributes", Declared("TYPE='string' ARRAYSIZE='3'", "<SCOPE/><VALUE/>")},
      {"'yes' is neither true nor false", Declared("ISARRAY='yes'", "")},
      {"'-1' is no unsigned number", Declared("ARRAYSIZE='-1'", "")},
  };
  for (const TDocumentRow& row : kRows) ExpectFatal(row.expected, row.text);
  // An element of an array-flagged type can't be read, and nothing can't be assigned.
  ExpectFailure(vskStatusTypeMismatch, "",
                Declared("TYPE='string' ISARRAY='true' ARRAYSIZE='1'",
                         "<SCOPE/><VALUE.ARRAY><VALUE>a</VALUE></VALUE.ARRAY>"));
  ExpectFailure(vskStatusTypeMismatch, "", Declared("TYPE='char'", ""));
  ExpectFailure(vskStatusInvalidCIMName, "CIM name '9' is invalid",
                Group("<QUALIFIER.DECLARATION NAME='9' TYPE='string'/>"));
  EXPECT_TRUE(container.EnumerateQualifiers().empty());
}

TEST_F(TCIMXMLParserQualifierDeclaration, OfTwoTheFirstStands) {
  Given(Declared("TYPE='string'", "<SCOPE/><VALUE>first</VALUE>"));
  Given(
      Group("<QUALIFIER.DECLARATION NAME='x' TYPE='uint8'/>"
            "<QUALIFIER.DECLARATION NAME='Y' TYPE='uint8'/>"));
  EXPECT_EQ("13[0] first scope 0 flavor 3", Shown(container.GetQualifierDecl("X")));
  EXPECT_NE(nullptr, container.FindQualifierDecl("y"));
}

const char* const kNewClass =
    R"(<IPARAMVALUE NAME="NewInstance"><CLASS NAME="Sample_Base">)"
    R"(<QUALIFIER NAME="ABSTRACT" TYPE="boolean"><VALUE>true</VALUE></QUALIFIER></CLASS></IPARAMVALUE>)";

// The names of method, parameter and child need not agree.
TEST_F(TCIMXMLParserMessage, ClassJoinsAndIsNotCollected) {
  Given(Group(kQualifiers));
  Given(Request(std::string(kNewClass) + kNewClass));
  EXPECT_NE(nullptr, container.FindClass("sample_base"));
  EXPECT_TRUE(collected.empty());
}

TEST_F(TCIMXMLParserMessage, InstanceJoinsAndABadOneEndsTheParse) {
  Given(Group(kQualifiers + std::string("<VALUE.OBJECT><CLASS NAME='Sample_Thing'>") +
              Property("Id", "uint32", kKey) + "</CLASS></VALUE.OBJECT>"));
  const std::string open = R"(<IPARAMVALUE NAME="NewClass"><INSTANCE CLASSNAME="Sample_Thing">)";
  const std::string close = "</INSTANCE></IPARAMVALUE>";
  Given(Request(open + Property("Id", "uint32", Value("7")) + close));
  EXPECT_EQ(1U, container.GetClass("Sample_Thing").EnumerateInstances(false).size());
  ExpectFailure(vskStatusInvalidInstance, "Instance Sample_Thing: key property Id is NULL",
                Request(open + close));
}

TEST_F(TCIMXMLParserMessage, RequestsAreHeldToTheirForm) {
  Given(Group(kQualifiers));
  const std::string path = "<LOCALNAMESPACEPATH><NAMESPACE/></LOCALNAMESPACEPATH>";
  const auto call = [](const std::string& text) {
    return "<CIM><MESSAGE><SIMPLEREQ>" + text + "</SIMPLEREQ></MESSAGE></CIM>";
  };
  const TDocumentRow kRows[] = {
      {"Unexpected IMethodCall method createclass", call("<IMETHODCALL NAME='createclass'/>")},
      {"Unexpected IMethodCall method ", call("<IMETHODCALL/>")},
      {"Unexpected element iparamvalue",
       call("<IMETHODCALL NAME='CreateClass'><IPARAMVALUE/></IMETHODCALL>")},
      {"Unexpected element localnamespacepath",
       call("<IMETHODCALL NAME='CreateClass'>" + path + path + "</IMETHODCALL>")},
      {"Unexpected IParamValue parameter name", Request("<IPARAMVALUE NAME='newClass'/>")},
      {"Unexpected IParamValue parameter name", Request("<IPARAMVALUE/>")},
      {"CIM element syntax error", Request("<IPARAMVALUE NAME='NewClass'/>")},
      {"Unexpected element value", Request("<IPARAMVALUE NAME='NewClass'><VALUE/></IPARAMVALUE>")},
      {"Unexpected element class",
       Request("<IPARAMVALUE NAME='NewClass'><CLASS/><CLASS/></IPARAMVALUE>")},
  };
  for (const TDocumentRow& row : kRows) ExpectFatal(row.expected, row.text);
}

TEST_F(TCIMXMLParserMessage, ShortMultiReqFailsBehindItsObject) {
  Given(Group(kQualifiers));
  std::string document = Request(kNewClass);
  document.replace(document.find("<SIMPLEREQ>"), 0, "<MULTIREQ>");
  document.replace(document.find("</MESSAGE>"), 0, "</MULTIREQ>");
  ExpectFatal("Invalid MULTIREQ", document);
  EXPECT_NE(nullptr, container.FindClass("Sample_Base"));
}

}  // namespace
