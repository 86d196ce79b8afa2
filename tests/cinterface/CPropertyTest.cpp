#include <new>

#include "cinterface/CFixture.h"
#include "support/TRedirect.h"

namespace {

// What refuses a NULL name: the functions that take a pointer do it themselves.
std::string NullNameLine(const std::string& type) {
  if (type == "String") return "vskAddStringProperty: NULL value and/or name parameter";
  if (type == "DateTime") return "vskAddDateTimeProperty: NULL name and/or pDateTime parameter";
  return "Sample: vskAddCIMValueProperty: NULL name parameter";
}

using CPropertyTest = CFixture;

TEST_F(CPropertyTest, EachTypedFunctionStoresItsTypeAndRefusesOthers) {
  Open(1);
  for (const TTypedRow& row : TypedRows()) {
    SCOPED_TRACE(row.type);
    EXPECT_EQ(vskStatusOK, row.addProperty(&handle, row.type.c_str()));
    EXPECT_EQ(row.stored, Stored(row.type));

    const std::string before = Stored(row.refusedBy);
    EXPECT_EQ(vskStatusTypeMismatch, row.addProperty(&handle, row.refusedBy.c_str()));
    EXPECT_EQ(before, Stored(row.refusedBy));
    EXPECT_EQ("SetValue: decl is type " + CIMName(row.refusedBy) + " but value is type " +
                  CIMName(row.type) +
                  "\nAddProperty: CIM class Sample_All threw exception vskStatusTypeMismatch",
              Told());

    EXPECT_EQ(vskStatusNotFound, row.addProperty(&handle, "Absent"));
    EXPECT_EQ("AddProperty: CIM class Sample_All threw exception vskStatusNotFound", Told());
    EXPECT_EQ(vskStatusFail, row.addProperty(nullptr, row.type.c_str()));
    EXPECT_EQ("vskAddCIMValueProperty: NULL vskIOHandle parameter", Told());
    EXPECT_EQ(vskStatusFail, row.addProperty(&handle, nullptr));
    EXPECT_EQ(NullNameLine(row.type), Told());
  }
}

TEST_F(CPropertyTest, WithoutAnOpenInstanceIsRefused) {
  for (const TTypedRow& row : TypedRows()) {
    SCOPED_TRACE(row.type);
    EXPECT_EQ(vskStatusInvalidClass, row.addProperty(&handle, row.type.c_str()));
    EXPECT_EQ("vskAddProperty: no current instance", Told());
  }
  EXPECT_EQ(vskStatusInvalidClass, vskAddProperty(&handle, "Id", "1"));
  EXPECT_EQ("vskAddProperty: no current instance", log.Take());
  vskCIMValueArray array;
  EXPECT_EQ(vskStatusInvalidClass, vskAddArrayProperty(&handle, "Uint8s", &array));
  EXPECT_EQ("vskAddProperty: no current instance", log.Take());
}

// A name that is NULL is among what each typed function refuses above.
TEST_F(CPropertyTest, PointerArgumentsAreTestedBeforeTheHandle) {
  const TCIMReference reference;
  const vskCIMValueArray array;
  ExpectRefusals({
      {vskAddStringProperty(nullptr, "String", nullptr),
       "vskAddStringProperty: NULL value and/or name parameter"},
      {vskAddArrayProperty(nullptr, nullptr, &array),
       "vskAddArrayProperty: NULL name and/or pArray parameter"},
      {vskAddArrayProperty(nullptr, "Uint8s", nullptr),
       "vskAddArrayProperty: NULL name and/or pArray parameter"},
      {vskAddArrayProperty(nullptr, "Uint8s", &array),
       "vskAddCIMValueProperty: NULL vskIOHandle parameter"},
      {vskAddReferenceProperty(nullptr, nullptr, &reference),
       "vskAddReferenceProperty: NULL name and/or pRef parameter"},
      {vskAddReferenceProperty(nullptr, "Reference", nullptr),
       "vskAddReferenceProperty: NULL name and/or pRef parameter"},
      {vskAddDateTimeProperty(nullptr, "DateTime", nullptr),
       "vskAddDateTimeProperty: NULL name and/or pDateTime parameter"},
      {vskAddProperty(nullptr, "Id", "1"), "vskAddProperty: NULL vskIOHandle parameter"},
      {vskAddProperty(&handle, nullptr, "1"),
       "Sample: vskAddProperty: NULL name and/or value parameter"},
      {vskAddProperty(&handle, "Id", nullptr),
       "Sample: vskAddProperty: NULL name and/or value parameter"},
      {vskAddCIMValueProperty(&handle, "Id", nullptr),
       "Sample: vskAddCIMValueProperty: NULL value parameter"},
      {vskAddClass(nullptr, "Sample_All"), "vskAddClass: NULL vskIOHandle parameter"},
      {vskAddClass(&handle, nullptr), "Sample: vskAddClass: NULL name parameter"},
  });
}

TEST_F(CPropertyTest, TextIsReadAsTheDeclaredType) {
  Open(1);
  EXPECT_EQ(vskStatusOK, vskAddProperty(&handle, "uint16", "0x1F"));
  EXPECT_EQ("31", Stored("Uint16"));
  EXPECT_EQ(vskStatusOK, vskAddProperty(&handle, "Real64", "2.5"));
  EXPECT_EQ("2.5", Stored("Real64"));
  EXPECT_EQ(vskStatusNotFound, vskAddProperty(&handle, "Absent", "1"));
  EXPECT_EQ("vskAddProperty: CIM class Sample_All threw exception vskStatusNotFound name='Absent'",
            Told());
  EXPECT_EQ(vskStatusInvalidDateTime, vskAddProperty(&handle, "DateTime", "yesterday"));
  EXPECT_EQ("vskAddProperty: CIM class Sample_All threw exception vskStatusInvalidDateTime",
            log.Take());
  EXPECT_EQ("NULL", Stored("DateTime"));
}

// A value that has no text is refused alike, whether or not the trace is read.
TEST_F(CPropertyTest, ValueWithoutTextIsRefusedAtEveryThreshold) {
  Open(1);
  TCIMReference nullKey(&container);
  nullKey.SetClassName("Sample_Target");
  nullKey.AddKeyValue("Id", TCIMValue(TType::cimUint32, 0));
  const TCIMValue reference(nullKey);
  const TCIMValue array(TType::cimUint8, 0, {TCIMValue(TType::cimUint8, 0)});
  const TCIMValue null = TCIMValue(TType::cimUint8, 0);
  const TCIMDateTime noDateTime;
  TCIMValue classless;  // keeps what it refused
  EXPECT_EQ(vskStatusInvalidReference, StatusOf([&] { classless.Set(TCIMReference()); }));
  for (const int level : {2, 4}) {
    TRootObject::GetCoreLogger()->SetLevel(level);
    EXPECT_EQ(vskStatusValueIsNULL, vskAddCIMValueProperty(&handle, "Uint8", &null));
    EXPECT_EQ(vskStatusValueIsNULL, vskAddCIMValueProperty(&handle, "Uint8s", &array));
    EXPECT_EQ(vskStatusValueIsNULL, vskAddCIMValueProperty(&handle, "Reference", &reference));
    EXPECT_EQ(vskStatusInvalidReference, vskAddCIMValueProperty(&handle, "Reference", &classless));
    EXPECT_EQ(vskStatusInvalidDateTime, vskAddDateTimeProperty(&handle, "DateTime", &noDateTime));
    EXPECT_EQ("", log.Take());
  }
  TRootObject::GetCoreLogger()->SetLevel(3);
}

TEST_F(CPropertyTest, BordersOfTheTypes) {
  Open(1);
  EXPECT_EQ(vskStatusOK, vskAddBooleanProperty(&handle, "Boolean", 2));
  EXPECT_EQ("true", Stored("Boolean"));
  EXPECT_EQ(vskStatusOK, vskAddBooleanProperty(&handle, "Boolean", 0));
  EXPECT_EQ("false", Stored("Boolean"));
  EXPECT_EQ(vskStatusOK, vskAddStringProperty(&handle, "String", ""));
  EXPECT_EQ("", Stored("String"));
  EXPECT_EQ(vskStatusOK, vskAddUint8Property(&handle, "Uint8", 7));
  EXPECT_EQ(vskStatusOK, vskAddUint8Property(&handle, "UINT8", 9));
  EXPECT_EQ("9", Stored("Uint8"));
}

TEST_F(CPropertyTest, ArraysKeepTheirElementsAndAreCopied) {
  Open(1);
  vskCIMValueArray* array = nullptr;
  ASSERT_EQ(vskStatusOK, vskNewCIMValueArray(&array));
  EXPECT_EQ(vskStatusOK, vskAddArrayProperty(&handle, "Uint8s", array));
  EXPECT_EQ("{  }", Stored("Uint8s"));
  Open(2);
  vskArrayAddUint8(array, 30);
  vskArrayAddUint8(array, 10);
  EXPECT_EQ(vskStatusOK, vskAddArrayProperty(&handle, "Uint8s", array));
  vskArrayAddUint8(array, 20);
  EXPECT_EQ("{ 30, 10 }", Stored("Uint8s"));
  EXPECT_EQ(0u, handle.currentInstance->GetProperty("Uint8s").GetValue().GetMaxArraySize());
  EXPECT_EQ(vskStatusInvalidProperty, vskAddArrayProperty(&handle, "Strings", array));
  EXPECT_EQ("ERROR: Attempting to create array of type string, but element is of type uint8.",
            Told());
  EXPECT_EQ(vskStatusTypeMismatch, vskAddArrayProperty(&handle, "Uint8", array));  // no array
  EXPECT_EQ(
      "SetValue: decl is type uint8 but value is type uint8\n"
      "AddProperty: CIM class Sample_All threw exception vskStatusTypeMismatch",
      Told());
  EXPECT_EQ(vskStatusNotFound, vskAddArrayProperty(&handle, "Absent", array));
  EXPECT_EQ("", log.Take());
  EXPECT_EQ(vskStatusOK, vskDeleteCIMValueArray(array));
}

TEST_F(CPropertyTest, ReferenceMustHaveTheDeclaredTypeAndClass) {
  Open(1);
  TCIMReference target(&container);
  target.SetClassName("Sample_Target");
  EXPECT_EQ(vskStatusOK, vskAddReferenceProperty(&handle, "Reference", &target));
  EXPECT_EQ("Sample_Target", Stored("Reference"));
  EXPECT_EQ(vskStatusTypeMismatch, vskAddReferenceProperty(&handle, "String", &target));
  TCIMReference other(&container);
  other.SetClass(*all);
  EXPECT_EQ(vskStatusTypeMismatch, vskAddReferenceProperty(&handle, "Reference", &other));
  EXPECT_EQ(vskStatusFail, vskAddReferenceProperty(nullptr, "Reference", &target));
  const std::string refused =
      "AddProperty: CIM class Sample_All threw exception vskStatusTypeMismatch\n";
  EXPECT_EQ("SetValue: decl is type string but value is type reference\n" + refused +
                "SetValue: decl references type Sample_Target but value references Sample_All\n" +
                refused + "vskAddCIMValueProperty: NULL vskIOHandle parameter",
            Told());
  EXPECT_EQ("Sample_Target", Stored("Reference"));
}

TEST_F(CPropertyTest, TraceSpeaksForThePlugin) {
  TRootObject::GetCoreLogger()->SetLevel(4);
  EXPECT_EQ(
      "VSK_Sample: [Verbose] vskAddClass(SAMPLE_ALL)\n"
      "VSK_Sample: [Verbose] vskAdd<>Property(Id, value=1)\n"
      "VSK_Sample: [Verbose] vskAddProperty(Uint16, value=0x1F)\n"
      "VSK_Sample: [Verbose] vskAdd<>Property(boolean, value=true)\n"
      "VSK_Sample: [Verbose] vskAdd<>Property(Uint8s, value={ 30, 10 })\n",
      StderrOf([this] {
        vskAddClass(&handle, "SAMPLE_ALL");
        vskAddUint32Property(&handle, "Id", 1);
        vskAddProperty(&handle, "Uint16", "0x1F");
        vskAddBooleanProperty(&handle, "boolean", 7);
        vskCIMValueArray array;
        vskArrayAddUint8(&array, 30);
        vskArrayAddUint8(&array, 10);
        vskAddArrayProperty(&handle, "Uint8s", &array);
      }));
  TRootObject::GetCoreLogger()->SetLevel(3);
}

using CClassTest = CFixture;

TEST_F(CClassTest, NextClassAddsTheOpenInstance) {
  Open(7);
  EXPECT_TRUE(all->EnumerateInstances(false).empty());
  Open(8);
  ASSERT_EQ(1u, all->EnumerateInstances(false).size());
  EXPECT_EQ("Sample_All.Id=\"7\"", all->EnumerateInstances(false)[0]->BuildPath().GetPath());
  EXPECT_EQ(vskStatusNotFound, vskAddClass(&handle, "Absent"));
  EXPECT_EQ("vskAddClass: GetClass(Absent) threw exception vskStatusNotFound", Told());
  EXPECT_EQ(2u, all->EnumerateInstances(false).size());
  EXPECT_EQ(nullptr, handle.currentInstance);
}

TEST_F(CClassTest, InstanceThatIsRefusedStaysOpen) {
  ASSERT_EQ(vskStatusOK, vskAddClass(&handle, "Sample_All"));
  EXPECT_EQ(vskStatusInvalidInstance, vskAddClass(&handle, "Sample_All"));
  EXPECT_EQ(
      "Instance Sample_All: key property Id is NULL\n"
      "vskAddClass: CIM class Sample_All threw exception vskStatusInvalidInstance",
      Told());
  ASSERT_EQ(vskStatusOK, vskAddUint32Property(&handle, "Id", 3));
  EXPECT_EQ(vskStatusOK, vskAddClass(&handle, "Sample_All"));
  EXPECT_EQ(1u, all->EnumerateInstances(false).size());
}

TEST_F(CClassTest, InstanceThatCannotBeMadeIsTold) {
  schema.Class("Sample_Broken")
      .Key("Id", TType::cimUint32)
      .Property("DateTimeOfCollection", TType::cimString)
      .Add();
  EXPECT_EQ(vskStatusTypeMismatch, vskAddClass(&handle, "Sample_Broken"));
  EXPECT_EQ(
      "SetValue: decl is type string but value is type datetime\n"
      "vskAddClass: Allocate instance (CIM class Sample_Broken) threw exception "
      "vskStatusTypeMismatch",
      Told());
  EXPECT_EQ(nullptr, handle.currentInstance);

  class TFullContainer : public TContainer {
    TCIMInstance& AllocateInstance(TCIMClass*) const override { throw std::bad_alloc(); }
  } full;
  TSchema(full).Class("Sample_All").Key("Id", TType::cimUint32).Add();
  handle.container = &full;
  EXPECT_EQ(vskStatusOutOfMemory, vskAddClass(&handle, "sample_all"));
  EXPECT_EQ("vskAddClass: CIM class Sample_All: no memory", Told());
}

}  // namespace
