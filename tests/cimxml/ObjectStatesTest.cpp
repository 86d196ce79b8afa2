#include <vskcore/model/TCIMInstance.h>
#include <vskcore/model/TCIMProperty.h>
#include <vskcore/model/TCIMPropertyDecl.h>
#include <vskcore/model/TCIMQualifier.h>

#include "cimxml/TDocumentTest.h"
#include "support/Picture.h"

namespace {

class TCIMXMLParserClass : public TDocumentTest {
 protected:
  void SetUp() override { Given(Group(kQualifiers)); }

  static std::string Class(const std::string& content,
                           const std::string& attributes = "NAME='Sample_Thing'") {
    return "<CLASS " + attributes + ">" + content + "</CLASS>";
  }
  static std::string Note(const std::string& attributes, const std::string& content) {
    return "<QUALIFIER NAME='note' " + attributes + ">" + content + "</QUALIFIER>";
  }
};

TEST_F(TCIMXMLParserClass, ContentMakesTheClass) {
  const TDocumentRow kRows[] = {
      {"Sample_Thing [Abstract=true] {}", kAbstract},
      {"Sample_Thing { Id uint32 [Key=true] = 8 }",  // octal
       Property("Id", "uint32", kKey + Value("010"))},
      {"Sample_Thing { Id string [Key=true] = \"\"; When datetime }",
       Property("When", "DateTime", "") + Property("Id", "string", Value("") + kKey)},
      {"Sample_Thing [Abstract=true] { A uint8[] = {44, 2, 3}; B sint16[] }",
       kAbstract + std::string("<PROPERTY.ARRAY NAME='B' TYPE='sint16' ARRAYSIZE='4' "
                               "CLASSORIGIN='x' PROPAGATED='true'/>"
                               "<PROPERTY.ARRAY NAME='A' TYPE='uint8' ARRAYSIZE='2'><VALUE.ARRAY>"
                               "<VALUE>300</VALUE><VALUE>2</VALUE><VALUE>3</VALUE></VALUE.ARRAY>"
                               "</PROPERTY.ARRAY>")},
      {"Sample_Thing [Abstract=true] { a string = \"1\" }",  // the first one stands
       kAbstract + Property("a", "string", Value("1")) + Property("A", "uint8", Value("2"))},
      {"Sample_Thing [Abstract=true] {}",
       kAbstract + Note("TYPE='string' PROPAGATED='true'", Value("x"))},
      {"Sample_Thing [Abstract=true, Note=\"b\"] {}",
       kAbstract + Note("TYPE='string'", Value("a")) + Note("TYPE='string'", Value("b"))},
      {"Sample_Thing [Abstract=true, Note=NULL] {}", kAbstract + Note("", "")},
      {"Sample_Thing [Abstract=true, Note=NULL] {}", kAbstract + Note("", Value("a"))},
      {"Sample_Thing [Abstract=true, Note={1, 2}] {}",  // no type is held against another
       kAbstract +
           Note("TYPE='uint8'", "<VALUE.ARRAY><VALUE>1</VALUE><VALUE>2</VALUE></VALUE.ARRAY>")},
      {"Sample_Thing [Abstract=true] { A string }",
       kAbstract + Property("A", "string", "") +
           "<METHOD NAME='B' TYPE='string'><QUALIFIER NAME='unknown'><VALUE>x</VALUE></QUALIFIER>"
           "<PARAMETER NAME='C'><CLASS/></PARAMETER></METHOD><METHOD/>"},
  };
  for (const TDocumentRow& row : kRows) {
    SCOPED_TRACE(row.text);
    EXPECT_EQ(vskStatusOK, Load(Object(Class(row.text))));
    log.Take();  // a property declared twice is told by the class
    ASSERT_EQ(1U, collected.size());
    EXPECT_EQ(row.expected, Picture(*collected.front()));
    container.RemoveClass(*collected.front());
  }
}

TEST_F(TCIMXMLParserClass, ReferencesNameAClassThatIsThere) {
  const auto end = [](const char* target) {
    return Class(kAbstract + std::string(kAssociation) +
                     "<PROPERTY.REFERENCE NAME='End' REFERENCECLASS='" + target + "'/>",
                 "NAME='Sample_Link' SUPERCLASS='sample_thing'");
  };
  ExpectFailure(vskStatusNotFound, "", Object(end("Sample_Thing")));
  Given(Object(Class(kAbstract)));
  ExpectFailure(vskStatusNotFound, "", Object(end("Sample_Link")));
  ExpectFailure(vskStatusNotAssociation,
                "Attempt to add reference property End to non-association class Sample_Other",
                Object(Class("<PROPERTY.REFERENCE NAME='End' REFERENCECLASS='Sample_Thing'/>",
                             "NAME='Sample_Other'")));
  Given(Object(end("Sample_Thing")));
  EXPECT_EQ(
      "Sample_Link : Sample_Thing [Abstract=true, Association=true] "
      "{ End reference Sample_Thing }",
      Picture(*collected.front()));
}

TEST_F(TCIMXMLParserClass, FlavorStartsFromTheDeclaration) {
  const struct {
    int flavor;
    const char* attributes;
  } kRows[] = {
      {7, "TYPE='string'"},
      {6, "TYPE='string' OVERRIDABLE='false'"},
      {1, "TYPE='string' TOSUBCLASS='false' TRANSLATABLE='FALSE' OVERRIDABLE='true'"},
  };
  for (const auto& row : kRows) {
    Given(Object(Class(kAbstract + Note(row.attributes, Value("x")))));
    EXPECT_EQ(row.flavor, collected.front()->GetQualifier("NOTE").GetFlavor()) << row.attributes;
    container.RemoveClass(*collected.front());
  }
}

TEST_F(TCIMXMLParserClass, FixedQualifierTakesItsRepeatAndNothingElse) {
  const std::string fixed = "TYPE='string' OVERRIDABLE='false'";
  Given(Object(Class(kAbstract + Note("TYPE='string'", Value("b")) + Note(fixed, Value("a")) +
                     Note(fixed, Value("a")))));
  EXPECT_EQ("Sample_Thing [Abstract=true, Note=\"a\"] {}", Picture(*collected.front()));
  ExpectFailure(vskStatusNotOverridable, "",
                Object(Class(Note(fixed, Value("a")) + Note(fixed, Value("b")), "NAME='B'")));
}

TEST_F(TCIMXMLParserClass, NullsHaveTheirTypeAndArraysTheirBound) {
  const std::string elements = "<VALUE.ARRAY><VALUE>1</VALUE><VALUE>2</VALUE></VALUE.ARRAY>";
  const auto codes = [](const std::string& name, const std::string& content) {
    return "<PROPERTY.ARRAY NAME='" + name + "' TYPE='uint8' ARRAYSIZE='1'>" + content +
           "</PROPERTY.ARRAY>";
  };
  const std::string key = Property("Id", "uint8", kKey + Value("1"));
  Given(
      Object(Class(Note("TYPE='uint8'", elements) + codes("A", "") + codes("B", elements) + key)));
  TCIMClass& cimClass = *collected.front();
  EXPECT_EQ(0U, cimClass.GetQualifier("Note").GetValue().GetMaxArraySize());
  EXPECT_EQ(1U, cimClass.GetPropertyDecl("A").GetValue().GetMaxArraySize());
  EXPECT_EQ(1U, cimClass.GetPropertyDecl("B").GetValue().GetMaxArraySize());
  Given(Thing(codes("A", elements) + codes("B", "")));
  const TCIMInstance& instance = *cimClass.EnumerateInstances(false).front();
  EXPECT_EQ("Sample_Thing{A={1, 2}, B=NULL, Id~1}", Picture(instance));
  EXPECT_EQ(1U, instance.GetProperty("A").GetValue().GetMaxArraySize());
  EXPECT_EQ(1U, instance.GetProperty("B").GetValue().GetMaxArraySize());
  // Without a value a qualifier has the declared type, whatever its own says.
  Given(Object(Class(kAbstract + Note("TYPE='uint8'", ""), "NAME='Sample_Other'")));
  EXPECT_EQ(TCIMValue::TCIMType::cimString, collected.front()->GetQualifier("Note").GetType());
}

TEST_F(TCIMXMLParserClass, SecondOfANameIsDroppedAndReadingGoesOn) {
  const std::string first = Class(kAbstract);
  const std::string second = Class(kAbstract + Property("A", "string", ""), "NAME='SAMPLE_THING'");
  const std::string other = Class(kAbstract, "NAME='Sample_Other' SUPERCLASS='Sample_Thing'");
  Given(Group("<VALUE.OBJECT>" + first + "</VALUE.OBJECT><VALUE.OBJECT>" + second +
              "</VALUE.OBJECT><VALUE.OBJECT>" + other + "</VALUE.OBJECT>"));
  ASSERT_EQ(2U, collected.size());
  EXPECT_EQ("Sample_Thing [Abstract=true] {}", Picture(*collected[0]));
  EXPECT_EQ("Sample_Other : Sample_Thing [Abstract=true] {}", Picture(*collected[1]));
}

TEST_F(TCIMXMLParserClass, BadOnesAreRefused) {
  const TDocumentRow kRows[] = {
      {"Unexpected element qualifier", Property("A", "string", "") + kAbstract},
      {"Unexpected element qualifier", "<METHOD/>" + std::string(kAbstract)},
      {"Unexpected element value", Value("1")},
      {"Unexpected element class", Class("")},
      {"Unexpected element value.array", Property("A", "string", "<VALUE.ARRAY/>")},
      {"Unexpected element value", "<PROPERTY.ARRAY NAME='A' TYPE='string'><VALUE/>"},
      {"Unexpected element value", "<PROPERTY.REFERENCE NAME='A'><VALUE/>"},
      {"Unexpected element value.reference", "<PROPERTY.ARRAY><VALUE.ARRAY><VALUE.REFERENCE/>"},
      {"Unexpected element scope", Note("TYPE='string'", "<SCOPE/>")},
      {"Unexpected element foo", Property("A", "string", "<VALUE><FOO/></VALUE>")},
      {"'1' is neither true nor false", Note("PROPAGATED='1'", "")},
      {"'' is neither true nor false", "<PROPERTY NAME='A' PROPAGATED=''/>"},
      {"'x' is no unsigned number", "<PROPERTY.ARRAY NAME='A' ARRAYSIZE='x'/>"},
  };
  for (const TDocumentRow& row : kRows) ExpectFatal(row.expected, Object(Class(row.text)));
  ExpectFailure(vskStatusNotFound, "", Object(Class(kAbstract, "SUPERCLASS='Unknown'")));
  ExpectFailure(vskStatusInvalidCIMName, "CIM name 'a b' is invalid",
                Object(Class(kAbstract, "NAME='a b'")));
  ExpectFailure(vskStatusInvalidClass, "Class Sample_Thing has no keys", Object(Class("")));
  ExpectFailure(vskStatusNotFound, "TCIMXMLParser: Couldn't find qualifier unknown",
                Object(Class("<QUALIFIER NAME='unknown'/>")));
  ExpectFailure(vskStatusNotFound, "TCIMXMLParser: Couldn't find qualifier ",
                Object(Class("<QUALIFIER/>")));
  ExpectFailure(vskStatusTypeMismatch, "", Object(Class("<PROPERTY TYPE='reference'/>")));
  EXPECT_TRUE(container.GetRootClass().EnumerateSubClasses(true).empty());
}

class TCIMXMLParserInstance : public TDocumentTest {
 protected:
  void SetUp() override {
    Given(Group(kQualifiers + std::string("<VALUE.OBJECT><CLASS NAME='Sample_Thing'>") +
                Property("Id", "uint32", kKey + Value("5")) +
                Property("name", "string", Value("n")) + Property("When", "datetime", "") +
                "<PROPERTY.ARRAY NAME='Codes' TYPE='uint8'/></CLASS></VALUE.OBJECT>"
                "<VALUE.OBJECT><CLASS NAME='Sample_Link'>" +
                kAssociation + Property("Id", "uint8", kKey + Value("1")) +
                "<PROPERTY.REFERENCE NAME='End' REFERENCECLASS='Sample_Thing'/>"
                "</CLASS></VALUE.OBJECT>"));
  }

  std::string Last(const char* className = "Sample_Thing") const {
    return Picture(*container.GetClass(className).EnumerateInstances(false).back());
  }
  std::size_t Count() const { return container.GetRootClass().EnumerateInstances(true).size(); }
};

TEST_F(TCIMXMLParserInstance, PropertiesGetTheirValues) {
  const std::string skipped =
      "<QUALIFIER NAME='unknown'><VALUE>x</VALUE><FOO><QUALIFIER/></FOO></QUALIFIER>";
  const TDocumentRow kRows[] = {
      {"Sample_Thing{Codes~NULL, Id~5, name~\"n\", When~NULL}", "text"},
      {"Sample_Thing{Codes={1, 2}, Id=255, name=\"  a &  b\n\", When~NULL}",
       Property("ID", "UINT32", Value("0xFF")) +
           Property("NAME", "string", Value("  a &amp; <!-- c --> b\n")) +
           "<PROPERTY.ARRAY NAME='codes' TYPE='uint8'><VALUE.ARRAY><VALUE>1</VALUE> "
           "<VALUE>2</VALUE></VALUE.ARRAY></PROPERTY.ARRAY>"},
      {"Sample_Thing{Codes=NULL, Id~5, name=NULL, When=NULL}",  // no value is a NULL of one's own
       Property("name", "string", "") + Property("When", "datetime", "") +
           "<PROPERTY.ARRAY NAME='Codes' TYPE='uint8'/>"},
      {"Sample_Thing{Codes~NULL, Id~5, name=\"\", When=19991231235958.000001+060}",
       Property("name", "string", Value("")) +
           Property("When", "datetime", Value("19991231235958.000001+060"))},
      {"Sample_Thing{Codes~NULL, Id~5, name=\"b\", When~NULL}",
       Property("name", "string", Value("a")) +
           Property("name", "string", Value("x") + Value("b"))},
      {"Sample_Thing{Codes={}, Id=7, name~\"n\", When~NULL}",
       skipped + skipped + Property("Id", "uint32", skipped + Value("7")) +
           "<PROPERTY.ARRAY NAME='Codes' TYPE='uint8'>" + skipped +
           "<VALUE.ARRAY/></PROPERTY.ARRAY>"},
  };
  for (const TDocumentRow& row : kRows) {
    SCOPED_TRACE(row.text);
    Given(Thing(row.text));
    EXPECT_EQ(row.expected, Last());
  }
  EXPECT_TRUE(collected.empty());
}

// The four elements around an object, each in its group.
class TCIMXMLParserWrapper : public TCIMXMLParserInstance {
 protected:
  static std::string Within(const std::string& group, const std::string& wrapper,
                            const std::string& content) {
    return "<CIM><DECLARATION><" + group + "><" + wrapper + ">" + content + "</" + wrapper + "></" +
           group + "></DECLARATION></CIM>";
  }
  static std::string Named(const std::string& content) {
    return Within("DECLGROUP.WITHNAME", "VALUE.NAMEDOBJECT", content);
  }
  static std::string WithPath(const std::string& content) {
    return Within("DECLGROUP.WITHPATH", "VALUE.OBJECTWITHPATH", content);
  }
  static std::string WithLocal(const std::string& content) {
    return Within("DECLGROUP.WITHPATH", "VALUE.OBJECTWITHLOCALPATH", content);
  }

  const std::string object = "<INSTANCE CLASSNAME='Sample_Thing'/>";
  const std::string name = "<INSTANCENAME CLASSNAME='Sample_Link'/>";
  const std::string local = "<LOCALNAMESPACEPATH><NAMESPACE/></LOCALNAMESPACEPATH>";
  const std::string full = "<NAMESPACEPATH><HOST/>" + local + "</NAMESPACEPATH>";
  const std::string cimClass = "<CLASS NAME='A'>" + std::string(kAbstract) + "</CLASS>";
};

TEST_F(TCIMXMLParserWrapper, TakesAnObjectAndDropsItsName) {
  Given(Object(object));
  Given(Named(name + object));
  Given(WithPath("<INSTANCEPATH>" + full + name + "</INSTANCEPATH>" + object));
  Given(WithLocal("<LOCALINSTANCEPATH>" + local + name + "</LOCALINSTANCEPATH>" + object));
  EXPECT_EQ(4U, container.GetClass("Sample_Thing").EnumerateInstances(false).size());
  EXPECT_EQ(4U, Count());

  const std::string className = "<CLASSNAME NAME='no such class'/>";
  const std::string subClass = "<CLASS NAME='B' SUPERCLASS='A'>" + std::string(kAbstract);
  Given(Named(cimClass));
  EXPECT_EQ(1U, collected.size());
  Given(WithPath("<CLASSPATH>" + full + className + "</CLASSPATH>" + subClass + "</CLASS>"));
  EXPECT_EQ(1U, collected.size());
  Given(WithLocal("<LOCALCLASSPATH>" + local + className + "</LOCALCLASSPATH>" + cimClass));
  EXPECT_TRUE(collected.empty());
}

TEST_F(TCIMXMLParserWrapper, HoldsOneObjectBehindTheNameOfItsKind) {
  const TDocumentRow kRows[] = {
      {"CIM element syntax error", Group("<VALUE.OBJECT/>")},
      {"Unexpected element class", Object(object + cimClass)},
      {"Unexpected element instance", Object(object + object)},
      {"Unexpected element instancename", Object(name)},
      {"CIM element syntax error", Named(name)},
      {"Unexpected element instance", Named(object)},
      {"Unexpected element class", Named(name + cimClass)},
      {"Unexpected element instance", Named(cimClass + object)},
      {"CIM element syntax error", WithPath("")},
      {"CIM element syntax error", WithPath("<CLASSPATH/>")},
      {"Unexpected element instance", WithPath("<CLASSPATH/>" + object)},
      {"Unexpected element class", WithPath("<INSTANCEPATH/>" + cimClass)},
      {"Unexpected element localclasspath", WithPath("<LOCALCLASSPATH/>")},
      {"Unexpected element instancepath", WithLocal("<INSTANCEPATH/>")},
      {"Unexpected element instance", WithLocal("<LOCALINSTANCEPATH/>" + object + object)},
  };
  for (const TDocumentRow& row : kRows) ExpectFatal(row.expected, row.text);
  EXPECT_EQ(0U, Count());
}

TEST_F(TCIMXMLParserInstance, BadOnesAreRefused) {
  const TDocumentRow kRows[] = {
      {"Property type != property declaration type", Property("Id", "string", "")},
      {"Property type != property declaration type", "<PROPERTY NAME='Id'/>"},
      {"Property type != property declaration type", Property("Codes", "uint8", "")},
      {"Unexpected element qualifier", Property("Id", "uint32", "") + "<QUALIFIER/>"},
      {"Unexpected element qualifier", Property("Id", "uint32", Value("1") + "<QUALIFIER/>")},
      {"Unexpected element method", "<METHOD/>"},
      {"Unexpected element value.array", Property("Id", "uint32", "<VALUE.ARRAY/>")},
      {"Unexpected element value", "<PROPERTY.ARRAY NAME='Codes'><VALUE/></PROPERTY.ARRAY>"},
  };
  for (const TDocumentRow& row : kRows) ExpectFatal(row.expected, Thing(row.text));
  ExpectFailure(vskStatusNotFound, "TCIMXMLParser: Couldn't find property x",
                Thing(Property("x", "uint8", "")));
  ExpectFailure(vskStatusNotFound, "", Thing("<PROPERTY.ARRAY NAME='x' TYPE='uint8'/>"));
  ExpectFailure(vskStatusNotFound, "", Thing("<PROPERTY.REFERENCE NAME='x'><FOO/>"));
  ExpectFailure(vskStatusTypeMismatch, "", Thing(Property("Id", "char", "")));
  ExpectFailure(vskStatusTypeMismatch, "SetValue: decl is type uint8 but value is type string",
                Thing("<PROPERTY.ARRAY NAME='Codes' TYPE='string'/>"));
  ExpectFailure(vskStatusInvalidCIMName, "CIM name 'a-b' is invalid",
                Thing(Property("a-b", "uint8", "")));
  ExpectFailure(vskStatusInvalidInstance, "Instance Sample_Thing: key property Id is NULL",
                Thing(Property("Id", "uint32", "")));
  ExpectFailure(vskStatusNotFound, "TCIMXMLParser: Couldn't find class Other",
                Object("<INSTANCE CLASSNAME='Other'/>"));
  ExpectFailure(vskStatusInvalidCIMName, "CIM name '1' is invalid",
                Object("<INSTANCE CLASSNAME='1'/>"));
  EXPECT_EQ(0U, Count());
}

TEST_F(TCIMXMLParserInstance, BadDateTimeIsReplacedAndReadingGoesOn) {
  EXPECT_EQ(vskStatusOK, Load(Thing(Property("When", "datetime", Value("soon")) +
                                    Property("Id", "uint32", Value("6")))));
  EXPECT_EQ("Invalid datetime found on line 1.  Defaulting the datetime to 01/01/1970 00:00:00.",
            log.Take());
  EXPECT_EQ("Sample_Thing{Codes~NULL, Id=6, name~\"n\", When=19700101000000.000000+000}", Last());
}

TEST_F(TCIMXMLParserInstance, ReferenceWithoutValueIsNullOfItsClass) {
  const auto link = [](const std::string& attributes) {
    return Object("<INSTANCE CLASSNAME='Sample_Link'><PROPERTY.REFERENCE NAME='end'" + attributes +
                  "><QUALIFIER/></PROPERTY.REFERENCE></INSTANCE>");
  };
  Given(link(" REFERENCECLASS='sample_thing'"));
  EXPECT_EQ("Sample_Link{End=NULL, Id~1}", Last("Sample_Link"));
  ExpectFailure(vskStatusTypeMismatch,
                "SetValue: decl references type Sample_Thing but value references Sample_Link",
                link(" REFERENCECLASS='Sample_Link'"));
  ExpectFailure(vskStatusTypeMismatch,
                "SetValue: decl references type Sample_Thing but value references <root>",
                link(""));
}

TEST_F(TCIMXMLParserInstance, LenientModeReadsByTheDeclarationAndSkipsWhatDoesNotFit) {
  qk482 = true;
  Given(Thing(Property("Id", "string", Value("0x10")) + Property("name", "uint8", "") +
              Property("Codes", "uint8", Value("1"))));
  EXPECT_EQ("Sample_Thing{Codes~NULL, Id=16, name=NULL, When~NULL}", Last());
  Given(Thing("<PROPERTY NAME='Id'><VALUE>3</VALUE></PROPERTY>"));
  EXPECT_EQ("Sample_Thing{Codes~NULL, Id=3, name~\"n\", When~NULL}", Last());
  ExpectFailure(vskStatusTypeMismatch, "", Thing(Property("Id", "char", "")));
  ExpectFailure(vskStatusNotFound, "", Thing(Property("x", "uint8", Value("1"))));
  ExpectFailure(vskStatusNotFound, "", Thing(Property("x", "uint8", "")));
}

}  // namespace
