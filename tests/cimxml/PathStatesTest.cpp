#include <vskcore/model/TCIMInstance.h>
#include <vskcore/model/TCIMProperty.h>
#include <vskcore/model/TCIMReference.h>
#include <vskcore/model/TCIMValue.h>

#include "cimxml/TDocumentTest.h"
#include "support/Picture.h"

namespace {

// Two things with the same two keys, of which "aRank" sorts first and none is declared in order; a
// link between things, and a link between links.
class TCIMXMLParserReference : public TDocumentTest {
 protected:
  void SetUp() override {
    const std::string end = R"(<PROPERTY.REFERENCE NAME="End" REFERENCECLASS="Sample_Thing">)" +
                            std::string(kKey) + "</PROPERTY.REFERENCE>";
    Given(Group(kQualifiers +
                Class("Sample_Thing", "",
                      Property("Id", "string", kKey) + Property("aRank", "uint32", kKey) +
                          Property("Note", "string", "")) +
                Class("Sample_Loose", kAbstract, Property("Note", "string", "")) +
                Class("Sample_Link", kAssociation, end) +
                Class("Sample_Chain", kAssociation,
                      R"(<PROPERTY.REFERENCE NAME="Link" REFERENCECLASS="Sample_Link">)" +
                          std::string(kKey) + "</PROPERTY.REFERENCE>")));
  }

  static std::string Class(const std::string& name, const std::string& qualifiers,
                           const std::string& properties) {
    return "<VALUE.OBJECT><CLASS NAME=\"" + name + "\">" + qualifiers + properties +
           "</CLASS></VALUE.OBJECT>";
  }
  // An instance of a class with one reference, of this content.
  static std::string Bound(const std::string& className, const std::string& name,
                           const std::string& content) {
    return Object("<INSTANCE CLASSNAME=\"" + className + "\"><PROPERTY.REFERENCE NAME=\"" + name +
                  "\"><VALUE.REFERENCE>" + content +
                  "</VALUE.REFERENCE></PROPERTY.REFERENCE></INSTANCE>");
  }
  static std::string Link(const std::string& content) {
    return Bound("Sample_Link", "End", content);
  }
  static std::string Name(const std::string& content,
                          const std::string& attributes = "CLASSNAME='Sample_Thing'") {
    return "<INSTANCENAME " + attributes + ">" + content + "</INSTANCENAME>";
  }
  static std::string Key(const std::string& name, const std::string& text) {
    return "<KEYBINDING NAME='" + name + "'><KEYVALUE>" + text + "</KEYVALUE></KEYBINDING>";
  }

  const std::string local = "<LOCALNAMESPACEPATH><NAMESPACE NAME='root'/></LOCALNAMESPACEPATH>";
  const std::string full = "<NAMESPACEPATH><HOST> here \t</HOST>" + local + "</NAMESPACEPATH>";
};

TEST_F(TCIMXMLParserReference, EveryFormOfANameGivesItsReference) {
  const TDocumentRow kRows[] = {
      {"<Sample_Thing>", "<CLASSNAME NAME='sample_thing'/>"},
      {"<Sample_Thing>", "<CLASSPATH>" + full + "<CLASSNAME NAME='Sample_Thing'/></CLASSPATH>"},
      {"<Sample_Thing>",
       "<LOCALCLASSPATH>" + local + "<CLASSNAME NAME='Sample_Thing'/></LOCALCLASSPATH>"},
      {"<Sample_Thing.Id=\" x \",aRank=31>", Name(Key("aRank", "0x1F") + Key("Id", " x "))},
      {"<Sample_Thing.ID=\"x\">", Name(Key("ID", "x"))},  // spelled as in the document
      {"<Sample_Thing.Id=\"a\">", Name(Key("Id", "a") + Key("Id", "b"))},
      {"<Sample_Thing.Id=\"\">", Name(Key("Id", ""))},
      {"<Sample_Thing.Id=\"b\">",
       Name("<KEYBINDING NAME='Id'><KEYVALUE>a</KEYVALUE><KEYVALUE TYPE='numeric'>b</KEYVALUE>"
            "</KEYBINDING>")},
      {"<Sample_Thing.aRank=7>", Name("<KEYVALUE>7</KEYVALUE>")},  // the first key in order
      {"<Sample_Thing>", Name("")},
      {"<Sample_Thing.Id=\"y\">",
       "<INSTANCEPATH>" + full + Name(Key("Id", "y")) + "</INSTANCEPATH>"},
      {"<Sample_Thing.Id=\"y\">",
       "<LOCALINSTANCEPATH>" + local + Name(Key("Id", "y")) + "</LOCALINSTANCEPATH>"},
      {"<Sample_Thing.Id=\"z\">",
       Name("<VALUE.REFERENCE>" + Name(Key("Id", "z")) + "</VALUE.REFERENCE>")},
      // A second child writes where the first did; an instance's name outdoes a class's.
      {"<Sample_Thing.Id=\"x\">", "<CLASSNAME NAME='Sample_Loose'/>" + Name(Key("Id", "x"))},
  };
  const TCIMClass& link = container.GetClass("Sample_Link");
  for (const TDocumentRow& row : kRows) {
    SCOPED_TRACE(row.text);
    Given(Link(row.text));
    const TCIMInstance& instance = *link.EnumerateInstances(false).back();
    EXPECT_EQ(row.expected, Picture(instance.GetProperty("End").GetValue()));
  }
}

TEST_F(TCIMXMLParserReference, KeyCanBeAReference) {
  const std::string inner = "<VALUE.REFERENCE>" + Name(Key("Id", "x")) + "</VALUE.REFERENCE>";
  Given(
      Bound("Sample_Chain", "Link",
            Name("<KEYBINDING NAME='End'>" + inner + "</KEYBINDING>", "CLASSNAME='Sample_Link'")));
  const TCIMClass& chain = container.GetClass("Sample_Chain");
  EXPECT_EQ("Sample_Chain{Link=<Sample_Link.End=<Sample_Thing.Id=\"x\">>}",
            Picture(*chain.EnumerateInstances(false).front()));
}

TEST_F(TCIMXMLParserReference, FormIsChecked) {
  const std::string value = "<KEYVALUE>1</KEYVALUE>";
  const TDocumentRow kRows[] = {
      {"INSTANCENAME without CLASSNAME", Name(Key("Id", "x"), "NAME='Sample_Thing'")},
      {"Unexpected at least 1 NAMESPACE element", "<LOCALCLASSPATH><LOCALNAMESPACEPATH/>"},
      {"Unexpected element host", "<LOCALCLASSPATH><LOCALNAMESPACEPATH><HOST/>"},
      {"Unexpected element localnamespacepath", "<CLASSPATH>" + local},
      {"Unexpected element namespacepath", "<LOCALINSTANCEPATH>" + full},
      {"Unexpected element localnamespacepath", "<CLASSPATH><NAMESPACEPATH>" + local},
      {"Unexpected element host", "<CLASSPATH><NAMESPACEPATH><HOST/><HOST/>"},
      {"Parser state corrupt", "<CLASSPATH><NAMESPACEPATH><HOST/>" + local + "<HOST/>"},
      {"Unexpected element host", "<CLASSPATH><NAMESPACEPATH><HOST><HOST/>"},
      {"Unexpected element namespace",
       "<LOCALCLASSPATH><LOCALNAMESPACEPATH><NAMESPACE><NAMESPACE/>"},
      {"Unexpected element classname", "<CLASSPATH><CLASSNAME/>"},
      {"Unexpected element instancename", "<CLASSPATH>" + full + "<INSTANCENAME/>"},
      {"Unexpected element classname", "<LOCALINSTANCEPATH>" + local + "<CLASSNAME/>"},
      {"Unexpected element classname", "<CLASSPATH>" + full + "<CLASSNAME/><CLASSNAME/>"},
      {"Unexpected element classname", "<CLASSNAME><CLASSNAME/>"},
      {"Unexpected element keyvalue", Name(value + value)},
      {"Unexpected element keybinding", Name(value + Key("Id", "x"))},
      {"Unexpected element keyvalue", Name(Key("Id", "x") + value)},
      {"Unexpected element value.reference", Name(Key("Id", "x") + "<VALUE.REFERENCE/>")},
      {"Unexpected element value", Name("<KEYVALUE><VALUE/></KEYVALUE>")},
      {"Unexpected element value", Name("<KEYBINDING NAME='Id'><VALUE/></KEYBINDING>")},
      {"Unexpected element value", "<VALUE/>"},
      {"Couldn't find property name Size in class Sample_Thing", Name(Key("Size", "1"))},
      {"Class Sample_Thing doesn't have any key properties", Name(Key("Note", "1"))},
      {"Class sample_loose doesn't have any key properties",
       Name(value, "CLASSNAME='sample_loose'")},
      {"Couldn't find property name Id in class <root>", Name(Key("Id", "1"), "CLASSNAME=''")},
  };
  for (const TDocumentRow& row : kRows) ExpectFatal(row.expected, Link(row.text));
}

TEST_F(TCIMXMLParserReference, FailuresOfTheModelPass) {
  ExpectFailure(vskStatusNotFound, "", Link(Name("", "CLASSNAME='Sample_Other'")));
  ExpectFailure(vskStatusNotFound, "", Link("<CLASSNAME NAME='Sample_Other'/>"));
  ExpectFailure(vskStatusInvalidReference, "", Link(""));
  ExpectFailure(vskStatusTypeMismatch,
                "SetValue: decl references type Sample_Thing but value references Sample_Loose",
                Link("<CLASSNAME NAME='Sample_Loose'/>"));
  EXPECT_TRUE(container.GetClass("Sample_Link").EnumerateInstances(false).empty());
}

}  // namespace
