// The fixture of all tests that read documents.
#ifndef VSKCORE_TESTS_CIMXML_TDOCUMENTTEST_H
#define VSKCORE_TESTS_CIMXML_TDOCUMENTTEST_H

#include <gtest/gtest.h>
#include <vskcore/cimxml/TCIMXMLParser.h>
#include <vskcore/core/vskStatus.h>
#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TContainer.h>

#include <string>
#include <vector>

#include "support/StatusOf.h"
#include "support/TLogCapture.h"

// A text and what comes of it.
struct TDocumentRow {
  const char* expected;
  std::string text;
};

// Reads one document after another into one container. Documents stand on one line, so that the
// log says line 1 throughout.
class TDocumentTest : public testing::Test {
 protected:
  // What parsing throws; vskStatusOK for nothing. The buffer ends where the document does.
  vskStatus Load(const std::string& document) {
    std::vector<char> buffer(document.c_str(), document.c_str() + document.size() + 1);
    TCIMXMLParser parser(&container);
    if (qk482) parser.SetQK482Mode();
    const vskStatus status = StatusOf([&] { parser.Parse(buffer.data()); });
    collected = parser.GetClassesCollected();
    return status;
  }

  // Expects that the document is refused with these lines in the log, the engine's own line about
  // the exception being understood.
  void ExpectFailure(vskStatus status, const std::string& lines, const std::string& document) {
    SCOPED_TRACE(document);
    EXPECT_EQ(status, Load(document));
    const std::string last = std::string("TCIMXMLParser: Threw exception ") +
                             vskTranslateStatusCode(status) + " on line 1";
    EXPECT_EQ(lines.empty() ? last : lines + "\n" + last, log.Take());
  }

  // The same for what a state itself refuses.
  void ExpectFatal(const std::string& message, const std::string& document) {
    ExpectFailure(vskStatusInvalidSpecificationDocument, "CIM-XML Parser line 1:" + message,
                  document);
  }

  // Reads what the test builds on.
  void Given(const std::string& document) {
    ASSERT_EQ(vskStatusOK, Load(document)) << document;
    ASSERT_EQ("", log.Take());
  }

  static std::string Group(const std::string& content) {
    return "<CIM><DECLARATION><DECLGROUP>" + content + "</DECLGROUP></DECLARATION></CIM>";
  }
  static std::string Object(const std::string& content) {
    return Group("<VALUE.OBJECT>" + content + "</VALUE.OBJECT>");
  }
  static std::string Request(const std::string& parameters) {
    return R"(<CIM><MESSAGE><SIMPLEREQ><IMETHODCALL NAME="CreateInstance"><LOCALNAMESPACEPATH>)"
           R"(<NAMESPACE NAME="root"/></LOCALNAMESPACEPATH>)" +
           parameters + "</IMETHODCALL></SIMPLEREQ></MESSAGE></CIM>";
  }
  // An instance of Sample_Thing with these children.
  static std::string Thing(const std::string& content) {
    return Object(R"(<INSTANCE CLASSNAME="Sample_Thing">)" + content + "</INSTANCE>");
  }
  static std::string Property(const std::string& name, const std::string& type,
                              const std::string& content) {
    return "<PROPERTY NAME=\"" + name + "\" TYPE=\"" + type + "\">" + content + "</PROPERTY>";
  }
  static std::string Value(const std::string& text) { return "<VALUE>" + text + "</VALUE>"; }

  static const char* const kQualifiers;  // the declarations that the schemas here use
  static const char* const kKey;         // a KEY that is true
  static const char* const kAbstract;
  static const char* const kAssociation;

  bool qk482 = false;
  TLogCapture log{2};  // the container tells of repeats at level 3
  TContainer container;
  std::vector<TCIMClass*> collected;  // of the last document
};

inline const char* const TDocumentTest::kQualifiers =
    R"(<QUALIFIER.DECLARATION NAME="Key" TYPE="boolean" OVERRIDABLE="false"><SCOPE PROPERTY="true"/>)"
    R"(</QUALIFIER.DECLARATION>)"
    R"(<QUALIFIER.DECLARATION NAME="Abstract" TYPE="boolean" TOSUBCLASS="false"><SCOPE CLASS="true"/>)"
    R"(</QUALIFIER.DECLARATION>)"
    R"(<QUALIFIER.DECLARATION NAME="Association" TYPE="boolean"><SCOPE ASSOCIATION="true"/>)"
    R"(</QUALIFIER.DECLARATION>)"
    R"(<QUALIFIER.DECLARATION NAME="Override" TYPE="string"><SCOPE PROPERTY="true"/>)"
    R"(</QUALIFIER.DECLARATION>)"
    R"(<QUALIFIER.DECLARATION NAME="Note" TYPE="string" TRANSLATABLE="true"><SCOPE/>)"
    R"(</QUALIFIER.DECLARATION>)";
inline const char* const TDocumentTest::kKey =
    R"(<QUALIFIER NAME="KEY" TYPE="boolean"><VALUE>true</VALUE></QUALIFIER>)";
inline const char* const TDocumentTest::kAbstract =
    R"(<QUALIFIER NAME="ABSTRACT" TYPE="boolean"><VALUE>true</VALUE></QUALIFIER>)";
inline const char* const TDocumentTest::kAssociation =
    R"(<QUALIFIER NAME="ASSOCIATION" TYPE="boolean"><VALUE>true</VALUE></QUALIFIER>)";

#endif
