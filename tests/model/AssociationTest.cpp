#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/Picture.h"
#include "support/StatusOf.h"
#include "support/TLogCapture.h"
#include "support/TSchema.h"

namespace {

using TType = TCIMValue::TCIMType;

TCIMValue Number(unsigned int number) { return TCIMValue(number); }

std::string Names(const std::vector<TCIMClass*>& classes) {
  std::string names;
  for (const TCIMClass* cimClass : classes) names += cimClass->GetName() + " ";
  return names;
}

std::string Names(const std::vector<TCIMInstance*>& instances) {
  std::string names;
  for (const TCIMInstance* instance : instances) {
    const TCIMReference path = instance->BuildPath();
    names += path.GetClassName() + path.EnumerateKeyBindings().at("Id").ToString(10) + " ";
  }
  return names;
}

// Box, a base; Disk below it; Port apart. Holds ties Box (Whole) to Port (Part); Derived derives
// from it. Wears ties Disk (Near) to Port (Far), with its references in an order that is not that
// of their ends. Chain has Disk and its own superclass Box at its ends, Twin has Port at both.
class AssociationTest : public testing::Test {
 protected:
  AssociationTest() : schema(container) {
    box = &schema.Class("Sample_Box").Key("Id", TType::cimUint32).Add();
    disk = &schema.Class("Sample_Disk", box).Add();
    port = &schema.Class("Sample_Port").Key("Id", TType::cimUint32).Add();
    holds = &Association("sample_holds", "Whole", *box, "Part", *port);
    wears = &Association("Sample_Wears", "Near", *disk, "Far", *port);
    chain = &Association("Sample_Chain", "Above", *box, "Below", *disk);
    twin = &Association("Sample_Twin", "One", *port, "Two", *port);
    derived = &schema.Class("Sample_Derived", holds).Add();
  }

  TCIMClass& Association(const std::string& name, const std::string& first, TCIMClass& firstEnd,
                         const std::string& second, TCIMClass& secondEnd) {
    return schema.Class(name)
        .With("ASSOCIATION")
        .Key("Id", TType::cimUint32)
        .Reference(first, firstEnd)
        .Reference(second, secondEnd)
        .Add();
  }

  TCIMValue To(TCIMClass& cimClass, unsigned int id) {
    return TCIMValue(schema.Path(cimClass, {{"Id", Number(id)}}));
  }

  TLogCapture log;
  TContainer container;
  TSchema schema;
  TCIMClass *box, *disk, *port, *holds, *wears, *chain, *twin, *derived;
};

TEST_F(AssociationTest, ClassReferences) {
  const struct {
    TCIMClass* from;
    const char* resultClass;
    const char* role;
    const char* expected;
  } rows[] = {
      // An end below another end of the same association is found by walking up; the same class
      // at both ends is not found at all. Each class's own set first, ascending by name.
      {box, "", "", "Sample_Chain Sample_Derived sample_holds "},
      {disk, "", "", "Sample_Wears Sample_Chain Sample_Derived sample_holds "},
      {port, "", "", "Sample_Derived sample_holds Sample_Wears "},
      {disk, "SAMPLE_HOLDS", "", "Sample_Derived sample_holds "},
      {disk, "Absent", "", ""},
      {box, "", "whole", "Sample_Derived sample_holds "},
      {disk, "", "whole", ""},               // points at Box, not at Disk itself
      {disk, "", "Below", "Sample_Chain "},  // registered at Box, and yet Disk's role
      {box, "", "Id", ""},                   // no reference
      {box, "", "Absent", ""},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(row.expected, Names(row.from->References(row.resultClass, row.role)))
        << row.from->GetName() << " " << row.resultClass << " " << row.role;
  }
  EXPECT_EQ("", Names(container.GetRootClass().References("", "")));
  EXPECT_EQ(vskStatusInvalidCIMName, StatusOf([&] { box->References("", "a b"); }));
  log.Take();
}

TEST_F(AssociationTest, ClassAssociators) {
  const struct {
    TCIMClass* from;
    const char *assocClass, *resultClass, *role, *resultRole;
    const char* expected;
  } rows[] = {
      {box, "", "", "", "", "Sample_Disk Sample_Port Sample_Port "},
      // Box is Disk's own end only where a reference names Disk itself.
      {disk, "Sample_Chain", "", "", "", "Sample_Box "},
      {disk, "Sample_Wears", "", "", "", "Sample_Port "},
      {disk, "sample_holds", "", "", "", "Sample_Port Sample_Box Sample_Port Sample_Box "},
      {disk, "sample_holds", "", "WHOLE", "", ""},
      {box, "sample_holds", "", "WHOLE", "", "Sample_Port Sample_Port "},
      {disk, "", "Sample_Box", "", "Below", "Sample_Disk "},
      {port, "Sample_Wears", "", "Far", "Near", "Sample_Disk "},
      {port, "Sample_Wears", "", "Near", "", ""},
      {port, "Sample_Wears", "Sample_Port", "", "", ""},
      {port, "Sample_Wears", "", "", "Absent", ""},
      {port, "Absent", "", "", "", ""},
      {port, "", "Absent", "", "", ""},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(row.expected, Names(row.from->Associators(row.assocClass, row.resultClass, row.role,
                                                        row.resultRole)))
        << row.from->GetName() << " " << row.assocClass << " " << row.resultClass << " " << row.role
        << " " << row.resultRole;
  }
  EXPECT_EQ("", Names(container.GetRootClass().Associators("", "", "", "")));
  EXPECT_EQ(vskStatusInvalidCIMName, StatusOf([&] { box->Associators("", "", "a b", ""); }));
  EXPECT_EQ("CIM name 'a b' is invalid", log.Take());
  EXPECT_EQ("", Names(box->Associators("Absent", "", "a b", "")));
}

TEST_F(AssociationTest, InstanceWalks) {
  TCIMInstance& one = schema.Add(*box, {{"Id", Number(1)}});
  TCIMInstance& two = schema.Add(*port, {{"Id", Number(2)}});
  schema.Add(*port, {{"Id", Number(3)}});
  schema.Add(*derived, {{"Id", Number(9)}, {"Whole", To(*box, 1)}, {"Part", To(*port, 3)}});
  schema.Add(*holds, {{"Id", Number(5)}, {"Whole", To(*box, 1)}, {"Part", To(*port, 2)}});
  schema.Add(*holds, {{"Id", Number(6)}, {"Whole", To(*box, 1)}, {"Part", To(*port, 77)}});
  schema.Add(*holds, {{"Id", Number(7)}, {"Whole", To(*box, 88)}, {"Part", To(*port, 2)}});

  EXPECT_EQ("Sample_Derived9 sample_holds5 sample_holds6 ", Names(one.References("", "")));
  EXPECT_EQ("sample_holds5 sample_holds7 ", Names(two.References("", "")));
  EXPECT_EQ("sample_holds5 sample_holds7 ", Names(two.References("", "PART")));
  EXPECT_EQ("", Names(two.References("", "Whole")));
  EXPECT_EQ("", Names(two.References("Absent", "")));

  // Without a role for the far end, one that isn't there is passed over; with it, it is told.
  EXPECT_EQ("Sample_Port3 Sample_Port2 ", Names(one.Associators("", "", "", "")));
  EXPECT_EQ("Sample_Port3 ", Names(one.Associators("Sample_Derived", "", "", "Part")));
  EXPECT_EQ(vskStatusNotFound, StatusOf([&] { one.Associators("", "", "", "Part"); }));
  EXPECT_EQ("", Names(one.Associators("", "Sample_Box", "", "Part")));
  EXPECT_EQ("", Names(one.Associators("", "", "", "Absent")));
  EXPECT_EQ("Sample_Box1 ", Names(two.Associators("", "", "part", "")));
  EXPECT_EQ("", Names(two.Associators("", "Absent", "a b", "")));
  EXPECT_EQ(vskStatusInvalidCIMName, StatusOf([&] { two.Associators("", "", "a b", ""); }));
  log.Take();
}

// Of several ends that could be its own, a walk passes over the first and reports the others: for
// the second of two disks that is the disk itself. An end of the superclass is never its own.
TEST_F(AssociationTest, OwnEndIsPassedOverOnce) {
  TCIMClass& span = schema.Class("Sample_Span")
                        .With("ASSOCIATION")
                        .Key("Id", TType::cimUint32)
                        .Reference("A", *box)
                        .Reference("B", *disk)
                        .Reference("C", *disk)
                        .Add();
  EXPECT_EQ("Sample_Box Sample_Disk ", Names(disk->Associators("Sample_Span", "", "", "")));
  EXPECT_EQ("Sample_Disk ", Names(disk->Associators("Sample_Span", "Sample_Disk", "", "")));

  schema.Add(*box, {{"Id", Number(9)}});
  TCIMInstance& one = schema.Add(*disk, {{"Id", Number(1)}});
  TCIMInstance& two = schema.Add(*disk, {{"Id", Number(2)}});
  schema.Add(span,
             {{"Id", Number(5)}, {"A", To(*box, 9)}, {"B", To(*disk, 1)}, {"C", To(*disk, 2)}});
  EXPECT_EQ("Sample_Box9 Sample_Disk2 ", Names(one.Associators("Sample_Span", "", "", "")));
  EXPECT_EQ("Sample_Box9 Sample_Disk2 ", Names(two.Associators("Sample_Span", "", "", "")));
  EXPECT_EQ("Sample_Disk2 ", Names(one.Associators("Sample_Span", "Sample_Disk", "", "")));
}

// A NULL reference is no missing target: the failure of reading it is the caller's to see.
TEST_F(AssociationTest, NullReferenceStopsTheWalk) {
  TCIMInstance& one = schema.Add(*box, {{"Id", Number(1)}});
  schema.Add(*holds, {{"Id", Number(5)}, {"Whole", To(*box, 1)}});
  EXPECT_EQ(vskStatusValueIsNULL, StatusOf([&] { one.References("", ""); }));
  EXPECT_EQ("sample_holds5 ", Names(one.References("", "Whole")));
  EXPECT_EQ(vskStatusValueIsNULL, StatusOf([&] { one.Associators("", "", "Whole", ""); }));
}

// A reference to the bare class is found as no instance.
TEST_F(AssociationTest, ReferenceToAClassIsNoInstance) {
  TCIMInstance& one = schema.Add(*box, {{"Id", Number(1)}});
  schema.Add(
      *holds,
      {{"Id", Number(5)}, {"Whole", To(*box, 1)}, {"Part", TCIMValue(schema.Path(*port, {}))}});
  EXPECT_EQ("sample_holds5 ", Names(one.References("", "")));
  EXPECT_EQ("", Names(one.Associators("", "", "", "")));
}

// What the walk before has learned holds no longer.
TEST_F(AssociationTest, WalkSeesWhatHasChangedSinceTheLast) {
  TCIMInstance& one = schema.Add(*box, {{"Id", Number(1)}});
  TCIMInstance& two = schema.Add(*box, {{"Id", Number(2)}});
  auto& whole = const_cast<TCIMPropertyDecl&>(holds->GetPropertyDecl("Whole"));
  whole.SetValue(To(*box, 1));
  TCIMInstance& link = schema.Add(*holds, {{"Id", Number(5)}, {"Part", To(*port, 3)}});
  EXPECT_EQ("sample_holds5 ", Names(one.References("", "")));

  whole.SetValue(To(*box, 2));  // the default, which shows
  EXPECT_EQ("", Names(one.References("", "")));
  EXPECT_EQ("sample_holds5 ", Names(two.References("", "")));

  // A borrowed declaration makes a reference of what was a number.
  const TCIMPropertyDecl lent("Id", *holds, To(*box, 1));
  link.SetProperty(TCIMProperty(lent));
  EXPECT_EQ(1u, one.References("", "").size());
}

// Neither the class that a reference pointed into, nor the keys of one whose instances are gone.
TEST_F(AssociationTest, WalkReadsNothingOfWhatWasRemoved) {
  TCIMInstance& one = schema.Add(*port, {{"Id", Number(1)}});
  TCIMClass& spare = schema.Class("Sample_Spare", disk).Add();
  TCIMInstance& gone = schema.Add(spare, {{"Id", Number(2)}});
  TCIMInstance& link =
      schema.Add(*wears, {{"Id", Number(5)}, {"Near", To(spare, 2)}, {"Far", To(*port, 1)}});
  for (unsigned int id = 6; id < 9; ++id) {
    schema.Add(*wears, {{"Id", Number(id)}, {"Near", To(*disk, 9)}, {"Far", To(*port, 9)}});
  }
  EXPECT_EQ("Sample_Wears5 ", Names(gone.References("", "")));
  wears->RemoveInstance(link);
  spare.RemoveInstance(gone);
  container.RemoveClass(spare);
  EXPECT_EQ("", Names(one.References("", "")));

  TCIMClass& brief =
      schema.Class("Sample_Brief", box).Property("Code", TCIMValue("a")).With("KEY").Add();
  TCIMInstance& listed = schema.Add(brief, {{"Id", Number(3)}});
  EXPECT_EQ("", Names(listed.References("", "")));
  brief.RemoveInstance(listed);
  brief.RemovePropertyDecl(const_cast<TCIMPropertyDecl&>(brief.GetPropertyDecl("Code")));
  EXPECT_EQ("", Names(schema.Make(brief, {{"Id", Number(4)}})->References("", "")));
}

TEST_F(AssociationTest, ClassThatFailsToJoinRegistersNowhere) {
  std::unique_ptr<TCIMClass> again = schema.Class("SAMPLE_HOLDS")
                                         .With("ASSOCIATION")
                                         .Key("Id", TType::cimUint32)
                                         .Reference("Whole", *disk)
                                         .Take();
  const std::string before = Names(disk->References("", ""));
  EXPECT_EQ(vskStatusAlreadyExists, StatusOf([&] { again->AddToContainer(); }));
  EXPECT_EQ(before, Names(disk->References("", "")));
  log.Take();
}

TEST_F(AssociationTest, RegisteredAssociationIsNotRemoved) {
  EXPECT_EQ(vskStatusInvalidOpSequence, StatusOf([&] { container.RemoveClass(*wears); }));
  EXPECT_EQ(
      "TContainer: class Sample_Wears can't be removed: the association set of class Sample_Disk "
      "depends on it",
      log.Take());
  container.RemoveClass(*twin);  // registered nowhere
  EXPECT_EQ(nullptr, container.FindClass("Sample_Twin"));
}

}  // namespace
