#include <gtest/gtest.h>
#include <vskcore/identity/TCIMSchemaHelper.h>
#include <vskcore/platform/TOSSpecific.h>

#include <stdexcept>

#include "support/StatusOf.h"
#include "support/TLogCapture.h"
#include "support/TSchema.h"

namespace {

using TType = TCIMValue::TCIMType;
using TRead = std::string (*)(TContainer*);

class TCIMSchemaHelperTest : public testing::Test {
 protected:
  TCIMSchemaHelperTest() : schema(container) {}

  TCIMClass& Declare(const std::string& name, const std::vector<std::string>& properties,
                     TCIMClass* superClass = nullptr) {
    TClassBuilder builder = schema.Class(name, superClass);
    if (superClass == nullptr) builder.Key("Id", TType::cimUint32);
    for (const std::string& property : properties) builder.Property(property, TType::cimString);
    return builder.Add();
  }
  TCIMClass& ComputerSystem() {
    return Declare("ZNTSG_ComputerSystem", {"Name", "ProductName", "SerialNumber"});
  }
  void Add(TCIMClass& cimClass, const std::string& property, const TCIMValue& value) {
    schema.Add(cimClass, {{"Id", TCIMValue(++lastId)}, {property, value}});
  }
  vskStatus Status(TRead read) {
    return StatusOf([&] { read(&container); });
  }

  TLogCapture log;
  TContainer container;
  TSchema schema;
  unsigned int lastId = 0;
};

// What GetMTM makes of a product name; "!" for vskStatusNotFound.
struct TProductRow {
  const char* productName;
  const char* mtm;
};

const TProductRow kProducts[] = {
    {"Tarvane 4100", "3714xxx"},
    {"Tarvane 4100 K10  ", "3722xxx"},  // trailing blanks go first
    {"Tarvane 4100 K20", "3741xxx"},
    {"Tarvane 4200", "3729xxx"},
    {"Tarvane 6100 K10", "3736xxx"},
    {" Tarvane 4100", "!"},
    {"tarvane 4100", "!"},
    {"Sample -[ABCD12X]-", "ABCD12X"},
    {"-[ABCD12X]- of long ago", "ABCD12X"},
    {"Sample -[ABCD   ]-", "ABCDxxx"},       // blanks for a model
    {"-[ABCD12X]- -[EFGH34Y]-", "ABCD12X"},  // the first mark counts
    {"Sample -[ABCD]-", "ABCDxxx"},
    {"-[ABCD]- 2", "ABCDxxx"},  // one short of the place of seven
    {"-[AB12]-", "AB12xxx"},
    {"Sample -[ABCD12X]", ""},       // too short for seven, not closed for four
    {"Sample -[ABCD12X] ends", ""},  // not closed where seven end
    {"Sample -[ABCD12XY and more", ""},
    {"Sample -[ABCD]- longer", ""},  // long enough for seven: four aren't tried
    {"Sample -[AB/D12X]-", "!"},
    {"Sample -[ABCD1/X]-", "!"},
    {"Sample -[A/CD]-", "!"},
    {"-[ABCD].", ""},  // closed wrongly at four
    {"-[ABCD]", "!"},  // too short for a mark: seven, but no letters
    {"ABCD12X", "ABCD12X"},
    {"ABCD1 X", "ABCD1 X"},
    {"AB D12X", "!"},
    {"ABCD12", "!"},
    {"ABCD12XY", "!"},
    {"   ", "!"},
};

TEST_F(TCIMSchemaHelperTest, MTMFromTheProductName) {
  TCIMClass& computer = ComputerSystem();
  for (const TProductRow& row : kProducts) {
    SCOPED_TRACE(row.productName);
    Add(computer, "ProductName", row.productName);
    std::string mtm = "!";
    const vskStatus status = StatusOf([&] { mtm = TCIMSchemaHelper::GetMTM(&container); });
    EXPECT_EQ(row.mtm, mtm);
    EXPECT_EQ(mtm == "!" ? vskStatusNotFound : vskStatusOK, status);
    EXPECT_EQ(mtm == "!" ? "" : "[3] TCIMSchemaHelper- Detected MTM " + mtm, log.Take());
    computer.RemoveInstance(*computer.EnumerateInstances(false).front());
  }
}

TEST_F(TCIMSchemaHelperTest, BIOSElementComesFirst) {
  TCIMClass& bios = Declare("ZNTSG_SystemBIOSElement", {"MachineTypeModel"});
  TCIMClass& derived = Declare("Sample_BIOS", {}, &bios);
  EXPECT_EQ(vskStatusNotFound, Status(TCIMSchemaHelper::GetMTM));
  EXPECT_EQ("[3] TCIMSchemaHelper: no computer system", log.Take());

  Add(derived, "MachineTypeModel", "ABCD   ");
  EXPECT_EQ("ABCDxxx", TCIMSchemaHelper::GetMTM(&container));
  EXPECT_EQ("ABCD", TCIMSchemaHelper::GetMachineType(&container));
  EXPECT_EQ("xxx", TCIMSchemaHelper::GetModelNumber(&container));
  // Two computer systems don't count as long as the BIOS says something, and only the first
  // BIOS element is looked at: the class's own stand in front of its subclasses'.
  TCIMClass& computer = ComputerSystem();
  Add(computer, "ProductName", "Tarvane 4200");
  Add(computer, "ProductName", "Tarvane 4200");
  EXPECT_EQ("ABCDxxx", TCIMSchemaHelper::GetMTM(&container));
  log.Take();
  Add(bios, "MachineTypeModel", TCIMValue(TType::cimString, 0));
  EXPECT_EQ(vskStatusNotFound, Status(TCIMSchemaHelper::GetMTM));
  EXPECT_EQ("[3] TCIMSchemaHelper: computer system instances != 1", log.Take());
}

TEST_F(TCIMSchemaHelperTest, BIOSElementIsTakenAsItIs) {
  TCIMClass& bios = schema.Class("ZNTSG_SystemBIOSElement").Key("Id", TType::cimUint32).Add();
  TCIMClass& texts = Declare("Sample_Texts", {"MachineTypeModel"}, &bios);
  TCIMClass& numbers =
      schema.Class("Sample_Numbers", &bios).Property("MachineTypeModel", TType::cimUint8).Add();
  Add(ComputerSystem(), "ProductName", "Tarvane 4200");
  const auto expect = [&](TCIMClass& cimClass, const TSchema::TValues& values,
                          const std::string& mtm, vskStatus expected) {
    TCIMInstance& only = schema.Add(cimClass, values);
    std::string read;
    EXPECT_EQ(expected, StatusOf([&] { read = TCIMSchemaHelper::GetMTM(&container); }));
    EXPECT_EQ(mtm, read);
    cimClass.RemoveInstance(only);
  };
  const std::pair<std::string, TCIMValue> id("Id", TCIMValue(77u));
  expect(bios, {id}, "3729xxx", vskStatusOK);  // lacks the property
  expect(texts, {id, {"MachineTypeModel", ""}}, "3729xxx", vskStatusOK);
  expect(texts, {id, {"MachineTypeModel", "AB/D   and more"}}, "AB/Dxxx", vskStatusOK);
  expect(texts, {id, {"MachineTypeModel", "AB"}}, "AB", vskStatusOK);
  const TCIMValue number(static_cast<unsigned char>(5));
  expect(numbers, {id, {"MachineTypeModel", number}}, "", vskStatusTypeMismatch);
}

TEST_F(TCIMSchemaHelperTest, EmptyMTMHasAMachineTypeAndNoModel) {
  Add(ComputerSystem(), "ProductName", "-[ABCD].");
  EXPECT_EQ("", TCIMSchemaHelper::GetMachineType(&container));
  EXPECT_THROW(TCIMSchemaHelper::GetModelNumber(&container), std::out_of_range);
}

TEST_F(TCIMSchemaHelperTest, WhatIsMissingIsTold) {
  const struct {
    TRead read;
    const char* property;
  } readers[] = {{TCIMSchemaHelper::GetMTM, "ProductName"},
                 {TCIMSchemaHelper::GetSerialNumber, "SerialNumber"}};
  TCIMClass& computer = schema.Class("ZNTSG_ComputerSystem").Key("Id", TType::cimUint32).Add();
  TCIMClass& complete = Declare("Sample_Computer", {"ProductName", "SerialNumber"}, &computer);
  TCIMClass& numeric = schema.Class("Sample_Numeric", &computer)
                           .Property("ProductName", TType::cimUint8)
                           .Property("SerialNumber", TType::cimUint8)
                           .Add();
  for (const auto& reader : readers) {
    const std::string property = reader.property;
    SCOPED_TRACE(property);
    const auto expectLine = [&](TCIMClass& only, const TCIMInstance& instance,
                                const std::string& line) {
      EXPECT_EQ(vskStatusNotFound, Status(reader.read));
      EXPECT_EQ("[3] TCIMSchemaHelper: " + line, log.Take());
      only.RemoveInstance(const_cast<TCIMInstance&>(instance));
    };
    expectLine(computer, schema.Add(computer, {{"Id", TCIMValue(1u)}}),
               "didn't find " + property + " property");
    expectLine(complete, schema.Add(complete, {{"Id", TCIMValue(2u)}}), property + " is NULL");
    const TCIMValue number(static_cast<unsigned char>(5));
    expectLine(numeric, schema.Add(numeric, {{"Id", TCIMValue(3u)}, {property, number}}),
               property + " wasn't a string");
    EXPECT_EQ(vskStatusNotFound, Status(reader.read));
    EXPECT_EQ("[3] TCIMSchemaHelper: computer system instances != 1", log.Take());
  }
}

TEST_F(TCIMSchemaHelperTest, SerialNumberIsSevenLettersOrDigits) {
  TCIMClass& computer = ComputerSystem();
  const TProductRow rows[] = {
      {"AB12345", "AB12345"}, {"AB12345   ", "AB12345"}, {"AB1234", "!"},
      {"AB123456", "!"},      {"AB 2345", "!"},          {" AB12345", "!"},
  };
  for (const TProductRow& row : rows) {
    SCOPED_TRACE(row.productName);
    Add(computer, "SerialNumber", row.productName);
    std::string serial = "!";
    StatusOf([&] { serial = TCIMSchemaHelper::GetSerialNumber(&container); });
    EXPECT_EQ(row.mtm, serial);
    EXPECT_EQ("", log.Take());
    computer.RemoveInstance(*computer.EnumerateInstances(false).front());
  }
}

TEST_F(TCIMSchemaHelperTest, SinglePropertiesOfTheOnlyInstance) {
  const struct {
    TRead read;
    const char* className;
    const char* property;
  } rows[] = {
      {TCIMSchemaHelper::GetSystemName, "ZNTSG_ComputerSystem", "Name"},
      {TCIMSchemaHelper::GetOperatingSystemVersion, "ZNTSG_OperatingSystem", "Version"},
      {TCIMSchemaHelper::GetDataSourceVersion, "ZNTSG_HWQProduct", "Version"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.className);
    EXPECT_EQ(vskStatusNotFound, Status(row.read));
    TCIMClass& base = schema.Class(row.className).Key("Id", TType::cimUint32).Add();
    TCIMClass& cimClass = Declare("Sample_" + std::string(row.className), {row.property}, &base);
    EXPECT_EQ(vskStatusNotFound, Status(row.read));
    Add(cimClass, row.property, "a b ");
    EXPECT_EQ("a b ", row.read(&container));
    cimClass.EnumerateInstances(false).front()->SetPropertyValue(row.property,
                                                                 TCIMValue(TType::cimString, 0));
    EXPECT_EQ(vskStatusValueIsNULL, Status(row.read));
    Add(cimClass, row.property, "second");
    EXPECT_EQ(vskStatusNotFound, Status(row.read));
    EXPECT_EQ("", log.Take());
  }
}

TEST_F(TCIMSchemaHelperTest, PartsOfTheDataSourceVersion) {
  TCIMClass& product = Declare("ZNTSG_HWQProduct", {"Version"});
  const struct {
    const char* version;
    const char* major;
    const char* minor;
    const char* build;
  } rows[] = {
      {"5.12.7", "5", "12", "7"}, {"5.12", "5", "!", "12"}, {"5", "!", "!", "!"},
      {"1.2.3.4", "1", "2", "4"}, {".", "", "!", ""},
  };
  const auto part = [&](TRead read) {
    std::string text = "!";
    StatusOf([&] { text = read(&container); });
    return text;
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.version);
    Add(product, "Version", row.version);
    EXPECT_EQ(row.major, part(TCIMSchemaHelper::GetDataSourceMajorVersion));
    EXPECT_EQ(row.minor, part(TCIMSchemaHelper::GetDataSourceMinorVersion));
    EXPECT_EQ(row.build, part(TCIMSchemaHelper::GetDataSourceBuildVersion));
    product.RemoveInstance(*product.EnumerateInstances(false).front());
  }
}

TEST_F(TCIMSchemaHelperTest, ConstantsNeedNoData) {
  EXPECT_EQ("ZNTSG_ComputerSystem", TCIMSchemaHelper::GetSystemCreationClassName(nullptr));
  EXPECT_EQ("ZNTSG_ComputerSystem", TCIMSchemaHelper::GetOperatingSystemCreationClassName(nullptr));
  EXPECT_EQ(TOSSpecific::GetMachineName(), TCIMSchemaHelper::GetOperatingSystemName(nullptr));
}

}  // namespace
