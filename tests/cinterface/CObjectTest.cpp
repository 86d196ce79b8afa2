#include "cinterface/CFixture.h"

namespace {

// ---- Date-times ----

using CDateTimeTest = CFixture;

TEST_F(CDateTimeTest, EachFormIsSetAndStored) {
  Open(1);
  TCIMDateTime* dateTime = nullptr;
  ASSERT_EQ(vskStatusOK, vskNewCIMDateTime(&dateTime));
  const struct {
    vskStatus status;
    const char* text;
  } rows[] = {
      {vskSetDateTime(dateTime, 2005, 10, 31, 17, 59, 18, 123456, -75),
       "20051031175918.123456-075"},
      {vskSetDateTimeInterval(dateTime, 3, 12, 34, 56, 789), "00000003123456.000789:000"},
      {vskSetDateTimeString(dateTime, "20051031175918.000000+060"), "20051031175918.000000+060"},
  };
  for (const auto& row : rows) EXPECT_EQ(vskStatusOK, row.status) << row.text;
  EXPECT_EQ(rows[2].text, dateTime->ToString());
  EXPECT_EQ(vskStatusOK, vskAddDateTimeProperty(&handle, "DateTime", dateTime));
  EXPECT_EQ(vskStatusOK, vskSetDateTimeInterval(dateTime, 3, 12, 34, 56, 789));
  EXPECT_EQ(rows[1].text, dateTime->ToString());
  EXPECT_EQ(vskStatusOK, vskSetDateTime(dateTime, 2005, 10, 31, 17, 59, 18, 123456, -75));
  EXPECT_EQ(rows[0].text, dateTime->ToString());
  EXPECT_EQ(rows[2].text, Stored("DateTime"));

  EXPECT_EQ(vskStatusInvalidDateTime, vskSetDateTimeString(dateTime, "20051031"));
  EXPECT_EQ(vskStatusInvalidDateTime, vskSetDateTimeInterval(dateTime, 1, 24, 0, 0, 0));
  EXPECT_EQ(vskStatusInvalidDateTime, vskSetDateTime(dateTime, 1066, 10, 14, 9, 0, 0, 0, 0));
  EXPECT_EQ(rows[0].text, dateTime->ToString());
  EXPECT_EQ("", log.Take());
  EXPECT_EQ(vskStatusOK, vskDeleteCIMDateTime(dateTime));
}

// ---- References ----

using CReferenceTest = CFixture;

TEST_F(CReferenceTest, EachKeyFunctionBindsItsTypeAndRefusesOthers) {
  std::vector<TTypedRow> rows = TypedRows();
  rows.push_back({"Reference", "Sample_All", "String", nullptr,
                  [](TCIMReference* ref, const char* key) {
                    TCIMReference target;
                    target.SetClass(ref->GetClass());  // any: keys are held against the type alone
                    return vskReferenceAddReference(ref, key, &target);
                  },
                  nullptr});
  for (const TTypedRow& row : rows) {
    SCOPED_TRACE(row.type);
    TCIMReference* ref = nullptr;
    ASSERT_EQ(vskStatusOK, vskNewCIMReference(&ref, &handle));
    ASSERT_EQ(vskStatusOK, vskSetReferenceClassName(ref, "sample_all"));
    EXPECT_EQ(vskStatusOK, row.addKey(ref, row.type.c_str()));
    EXPECT_EQ("Sample_All." + row.type + "=\"" + row.stored + "\"", ref->GetPath());
    EXPECT_EQ(vskStatusTypeMismatch, row.addKey(ref, row.refusedBy.c_str()));
    EXPECT_EQ("Declaration type: " + CIMName(row.refusedBy) + " Value type: " + CIMName(row.type),
              Told());
    EXPECT_EQ(vskStatusNotFound, row.addKey(ref, "Absent"));
    EXPECT_EQ(vskStatusInvalidOpSequence, vskSetReferenceClassName(ref, "Sample_All"));
    EXPECT_EQ("", log.Take());

    const bool pointer = row.type == "String" || row.type == "DateTime" || row.type == "Reference";
    const std::string nullLine =
        "vskReferenceAdd" + row.type +
        (pointer ? ": NULL ref, key and/or value parameter" : ": NULL ref and/or key parameter");
    EXPECT_EQ(vskStatusFail, row.addKey(ref, nullptr));
    EXPECT_EQ(nullLine, log.Take());
    if (row.type != "Reference") {  // its row asks the reference for a class to point to
      EXPECT_EQ(vskStatusFail, row.addKey(nullptr, row.type.c_str()));
      EXPECT_EQ(nullLine, log.Take());
    }
    EXPECT_EQ(vskStatusOK, vskDeleteCIMReference(ref));
  }
}

TEST_F(CReferenceTest, NullsArePlainlyTold) {
  TCIMReference ref(&container);
  ref.SetClass(*all);
  TCIMReference* made = nullptr;
  ExpectRefusals({
      {vskNewCIMReference(nullptr, nullptr), "vskNewCIMReference: NULL vskIOHandle parameter"},
      {vskNewCIMReference(&made, nullptr), "vskNewCIMReference: NULL vskIOHandle parameter"},
      {vskNewCIMReference(nullptr, &handle), "Sample: vskNewCIMReference: NULL ref parameter"},
      {vskSetReferencePath(nullptr, "x"),
       "vskSetReferencePath: NULL ref and/or objectName parameter"},
      {vskSetReferencePath(&ref, nullptr),
       "vskSetReferencePath: NULL ref and/or objectName parameter"},
      {vskSetReferenceClassName(nullptr, "x"),
       "vskSetReferenceClassName: NULL ref and/or className parameter"},
      {vskSetReferenceClassName(&ref, nullptr),
       "vskSetReferenceClassName: NULL ref and/or className parameter"},
      {vskDeleteCIMReference(nullptr), "vskDeleteCIMReference: NULL ref parameter"},
      {vskReferenceAddString(&ref, "String", nullptr),
       "vskReferenceAddString: NULL ref, key and/or value parameter"},
      {vskReferenceAddReference(&ref, "Reference", nullptr),
       "vskReferenceAddReference: NULL ref, key and/or value parameter"},
      {vskReferenceAddDateTime(&ref, "DateTime", nullptr),
       "vskReferenceAddDateTime: NULL ref, key and/or value parameter"},
      {vskNewCIMDateTime(nullptr), "vskNewCIMDateTime: NULL datetime parameter"},
      {vskSetDateTime(nullptr, 2005, 10, 31, 17, 59, 18, 0, 0),
       "vskSetDateTime: NULL datetime parameter"},
      {vskSetDateTimeInterval(nullptr, 1, 2, 3, 4, 5),
       "vskSetDateTimeInterval: NULL datetime parameter"},
      {vskSetDateTimeString(nullptr, "x"),
       "vskSetDateTimeString: NULL datetime and/or str parameter"},
      {vskDeleteCIMDateTime(nullptr), "vskDeleteCIMDateTime: NULL datetime parameter"},
      {vskNewCIMValueArray(nullptr), "vskNewCIMValueArray: NULL array parameter"},
      {vskDeleteCIMValueArray(nullptr), "vskDeleteCIMValueArray: NULL array parameter"},
      {vskGetLocalTime(nullptr), "vskGetLocalTime: NULL datetime "},
      {vskGetSystemName(nullptr), "vskGetSystemName: NULL name parameter"},
      {vskGetSystemCreationClassName(nullptr),
       "vskGetSystemCreationClassName: NULL name parameter"},
  });
  EXPECT_TRUE(ref.EnumerateKeyBindings().empty());
}

TEST_F(CReferenceTest, FollowsTheRulesOfReferences) {
  TCIMReference* ref = nullptr;
  ASSERT_EQ(vskStatusOK, vskNewCIMReference(&ref, &handle));
  EXPECT_EQ(vskStatusInvalidOpSequence, vskReferenceAddUint32(ref, "Id", 7));
  EXPECT_EQ(vskStatusNotImplemented, vskSetReferencePath(ref, "Sample_All.Id=\"7\""));
  EXPECT_EQ(vskStatusNotFound, vskSetReferenceClassName(ref, "Absent"));
  Open(7);
  EXPECT_EQ(vskStatusInvalidReference, vskAddReferenceProperty(&handle, "Reference", ref));
  ASSERT_EQ(vskStatusOK, vskSetReferenceClassName(ref, "Sample_Target"));
  ASSERT_EQ(vskStatusOK, vskReferenceAddUint32(ref, "Id", 7));
  EXPECT_EQ(vskStatusOK, vskAddReferenceProperty(&handle, "Reference", ref));
  EXPECT_EQ("Sample_Target.Id=\"7\"", Stored("Reference"));
  EXPECT_EQ(vskStatusOK, vskDeleteCIMReference(ref));
}

// ---- Arrays ----

using CArrayTest = CFixture;

TEST_F(CArrayTest, EachFunctionAppendsItsType) {
  Open(1);
  vskCIMValueArray array;
  for (const TTypedRow& row : TypedRows()) {
    SCOPED_TRACE(row.type);
    ASSERT_EQ(vskStatusOK, row.append(&array));
    EXPECT_EQ(CIMType(row.type), array.elements.back().GetType());
    EXPECT_EQ(row.stored, array.elements.back().ToString(10));
    const std::string other = row.type == "Uint8" ? "String" : "Uint8";
    const vskCIMValueArray alone{{array.elements.back()}};
    EXPECT_EQ(vskStatusInvalidProperty,
              vskAddArrayProperty(&handle, (other + "s").c_str(), &alone));
    EXPECT_EQ("ERROR: Attempting to create array of type " + CIMName(other) +
                  ", but element is of type " + CIMName(row.type) + ".",
              Told());
    EXPECT_EQ(vskStatusFail, row.append(nullptr));
    const bool pointer = row.type == "String" || row.type == "DateTime";
    EXPECT_EQ("vskArrayAdd" + row.type +
                  (pointer ? ": NULL array and/or value parameter" : ": NULL array parameter"),
              log.Take());
  }
  EXPECT_EQ(TypedRows().size(), array.elements.size());
  EXPECT_EQ(vskStatusOK, vskArrayAddBoolean(&array, 0));
  EXPECT_EQ("false", array.elements.back().ToString(10));
}

TEST_F(CArrayTest, ReferencesAndNullValues) {
  vskCIMValueArray array;
  TCIMReference ref;
  ref.SetClass(*all);
  EXPECT_EQ(vskStatusOK, vskArrayAddReference(&array, &ref));
  EXPECT_EQ("Sample_All", array.elements.back().ToString(10));
  const TCIMReference nowhere;
  EXPECT_EQ(vskStatusInvalidReference, vskArrayAddReference(&array, &nowhere));
  EXPECT_EQ(vskStatusFail, vskArrayAddString(&array, nullptr));
  EXPECT_EQ(vskStatusFail, vskArrayAddReference(&array, nullptr));
  EXPECT_EQ(vskStatusFail, vskArrayAddDateTime(&array, nullptr));
  EXPECT_EQ(
      "vskArrayAddString: NULL array and/or value parameter\n"
      "vskArrayAddReference: NULL array and/or value parameter\n"
      "vskArrayAddDateTime: NULL array and/or value parameter",
      log.Take());
  EXPECT_EQ(1u, array.elements.size());
}

}  // namespace
