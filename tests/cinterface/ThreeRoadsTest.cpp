// An instance is the same whichever way it was written.
#include <vskcore/cimxml/TCIMXMLParser.h>

#include "cinterface/CFixture.h"
#include "support/Picture.h"

namespace {

class ThreeRoads : public CFixture {
 protected:
  ThreeRoads() : target(schema.Add(container.GetClass("Sample_Target"), {{"Id", 70u}})) {}

  // Reads an instance of Sample_All out of a document that says this of its properties.
  const TCIMInstance& ByDocument(const std::string& properties) {
    const std::string text =
        "<CIM><DECLARATION><DECLGROUP><VALUE.OBJECT><INSTANCE CLASSNAME='Sample_All'>" +
        properties + "</INSTANCE></VALUE.OBJECT></DECLGROUP></DECLARATION></CIM>";
    std::vector<char> buffer(text.c_str(), text.c_str() + text.size() + 1);
    TCIMXMLParser parser(&container);
    parser.Parse(buffer.data());
    return *all->EnumerateInstances(false).back();
  }

  const TCIMInstance& ByC() const { return *handle.currentInstance; }

  void ExpectEqual(const TCIMInstance& byClass, const TCIMInstance& byDocument) {
    EXPECT_EQ(Picture(byClass), Picture(ByC()));
    EXPECT_EQ(Picture(byClass), Picture(byDocument));
    EXPECT_TRUE(ByC() == byClass);
    EXPECT_TRUE(byDocument == byClass);
    EXPECT_TRUE(ByC() == byDocument);
  }

  TCIMInstance& target;
};

TEST_F(ThreeRoads, EveryTypeIsEqual) {
  TCIMDateTime* time = nullptr;
  TCIMReference* reference = nullptr;
  Open(7);
  vskNewCIMDateTime(&time);
  vskSetDateTime(time, 2005, 10, 31, 17, 59, 18, 123456, -75);
  vskNewCIMReference(&reference, &handle);
  vskSetReferenceClassName(reference, "sample_target");
  vskReferenceAddUint32(reference, "Id", 70);
  std::string numbers;
  for (const TTypedRow& row : TypedRows()) {
    EXPECT_EQ(vskStatusOK, row.addProperty(&handle, row.type.c_str()));
    numbers += "<PROPERTY NAME='" + row.type + "' TYPE='" + CIMName(row.type) + "'><VALUE>" +
               row.stored + "</VALUE></PROPERTY>";
  }
  for (const vskStatus status : {
           vskAddProperty(&handle, "Real64", "-2.5"),
           vskAddStringProperty(&handle, "String", " a \"b\" "),  // over the row's own
           vskAddDateTimeProperty(&handle, "DateTime", time),
           vskAddReferenceProperty(&handle, "Reference", reference),
           vskDeleteCIMDateTime(time),
           vskDeleteCIMReference(reference),
       }) {
    EXPECT_EQ(vskStatusOK, status);
  }
  const auto byClass =
      schema.Make(*all, {{"Id", 7u},
                         {"Boolean", true},
                         {"Uint8", static_cast<unsigned char>(200)},
                         {"Sint8", static_cast<signed char>(-100)},
                         {"Uint16", static_cast<unsigned short>(60001)},
                         {"Sint16", static_cast<short>(-30001)},
                         {"Uint32", 4000000001u},
                         {"Sint32", -2000000001},
                         {"Uint64", std::uint64_t{18000000000000000001u}},
                         {"Sint64", std::int64_t{-9000000000000000001}},
                         {"Real64", -2.5},
                         {"String", " a \"b\" "},
                         {"DateTime", TCIMDateTime(2005, 10, 31, 17, 59, 18, 123456, -75)},
                         {"Reference", target.BuildPath()}});
  const TCIMInstance& byDocument = ByDocument(
      numbers +
      "<PROPERTY NAME='Id' TYPE='uint32'><VALUE>7</VALUE></PROPERTY>"
      "<PROPERTY NAME='Real64' TYPE='real64'><VALUE>-2.5</VALUE></PROPERTY>"
      "<PROPERTY NAME='String' TYPE='string'><VALUE> a &quot;b&quot; </VALUE></PROPERTY>"
      "<PROPERTY NAME='DateTime' "
      "TYPE='datetime'><VALUE>20051031175918.123456-075</VALUE></PROPERTY>"
      "<PROPERTY.REFERENCE NAME='Reference'><VALUE.REFERENCE><INSTANCENAME "
      "CLASSNAME='Sample_Target'><KEYBINDING NAME='Id'><KEYVALUE>70</KEYVALUE></KEYBINDING>"
      "</INSTANCENAME></VALUE.REFERENCE></PROPERTY.REFERENCE>");
  ExpectEqual(*byClass, byDocument);
}

// Arrays don't compare, so their pictures have to do.
TEST_F(ThreeRoads, ArraysAreAlike) {
  vskCIMValueArray* codes = nullptr;
  vskCIMValueArray* words = nullptr;
  Open(7);
  vskNewCIMValueArray(&codes);
  for (const int code : {30, 10, 20}) vskArrayAddUint8(codes, static_cast<std::uint8_t>(code));
  vskNewCIMValueArray(&words);
  for (const char* word : {"b <&>", "", "ä"}) vskArrayAddString(words, word);
  EXPECT_EQ(vskStatusOK, vskAddArrayProperty(&handle, "Uint8s", codes));
  EXPECT_EQ(vskStatusOK, vskAddArrayProperty(&handle, "Strings", words));
  vskDeleteCIMValueArray(codes);
  vskDeleteCIMValueArray(words);
  const auto byClass = schema.Make(
      *all, {{"Id", 7u},
             {"Uint8s", TCIMValue(TType::cimUint8, 0,
                                  {static_cast<unsigned char>(30), static_cast<unsigned char>(10),
                                   static_cast<unsigned char>(20)})},
             {"Strings", TCIMValue(TType::cimString, 0, {"b <&>", "", "ä"})}});
  const TCIMInstance& byDocument = ByDocument(
      "<PROPERTY NAME='Id' TYPE='uint32'><VALUE>7</VALUE></PROPERTY>"
      "<PROPERTY.ARRAY NAME='Uint8s' TYPE='uint8'><VALUE.ARRAY><VALUE>30</VALUE><VALUE>10</VALUE>"
      "<VALUE>20</VALUE></VALUE.ARRAY></PROPERTY.ARRAY>"
      "<PROPERTY.ARRAY NAME='Strings' TYPE='string'><VALUE.ARRAY><VALUE>b &lt;&amp;&gt;</VALUE>"
      "<VALUE></VALUE><VALUE>ä</VALUE></VALUE.ARRAY></PROPERTY.ARRAY>");
  EXPECT_EQ(Picture(*byClass), Picture(ByC()));
  EXPECT_EQ(Picture(*byClass), Picture(byDocument));
  EXPECT_NE(std::string::npos, Picture(byDocument).find("{30, 10, 20}")) << Picture(byDocument);
}

TEST_F(ThreeRoads, WhatWasLeftAloneIsEqual) {
  Open(7);
  const auto byClass = schema.Make(*all, {{"Id", 7u}});
  ExpectEqual(*byClass,
              ByDocument("<PROPERTY NAME='Id' TYPE='uint32'><VALUE>7</VALUE></PROPERTY>"));
}

}  // namespace
