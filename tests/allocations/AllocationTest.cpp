// What the core does without the heap.
#include <gtest/gtest.h>
#include <vskcore/cimxml/TXmlParser.h>
#include <vskcore/core/ILogger.h>
#include <vskcore/core/TRootObject.h>
#include <vskcore/core/vskLog.h>
#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMInstance.h>
#include <vskcore/model/TCIMProperty.h>
#include <vskcore/model/TCIMPropertyDecl.h>
#include <vskcore/model/TContainer.h>

#include <stdexcept>

#include "allocations/AllocationsOf.h"
#include "support/TLogCapture.h"
#include "support/TSchema.h"

namespace {

using TType = TCIMValue::TCIMType;

TCIMValue Strings(const std::vector<TCIMValue>& texts) {
  return TCIMValue(TType::cimString, 0, texts);
}

class AllocationTest : public testing::Test {
 protected:
  TContainer container;
  TSchema schema{container};
  TCIMClass& disk = schema.Class("Sample_DiskUnit")
                        .Key("Id", TType::cimUint32)
                        .Property("InterfaceType15", TType::cimUint16)
                        .With("Values", Strings({"SAS", "SATA"}))
                        .Property("CapacityInBytes16", TCIMValue(std::uint64_t{5}))
                        .With("Values", Strings({"one"}))
                        .With("ValueMap", Strings({"1", "more than there are texts"}))
                        .Add();
  TCIMInstance& instance =
      schema.Add(disk, {{"Id", 7U}, {"InterfaceType15", static_cast<unsigned short>(1)}});
};

struct TDeafReader : TXmlParser {
  void StartElement(const char*, TAttributes&) override {}
  void EndElement(const char*) override {}
  void processingInstruction(const char*, const char*) override {}
  void characters(const char*, unsigned int) override {}
  void notationDecl(const char*, const char*, const char*) override {}
  void FatalError(const char* message) override { throw std::runtime_error(message); }
};

std::size_t AllocationsOfReading(int elements) {
  std::string document = "<a>";
  while (elements-- > 0) document += "<b type='long' name='c'>d</b><b name='e'/>";
  document += "</a>";
  return AllocationsOf([&] { TDeafReader().Parse(document.data()); });
}

}  // namespace

TEST_F(AllocationTest, ElementsThatAreLikeTheirSiblingsTakeNothing) {
  EXPECT_LT(0U, AllocationsOfReading(1));
  EXPECT_EQ(AllocationsOfReading(1), AllocationsOfReading(500));
}

TEST_F(AllocationTest, LookingUpAnOrdinaryNameTakesNothing) {
  const struct {
    std::string name;
    bool isClass;
    bool isProperty;
  } kRows[] = {
      {"Sample_DiskUnit", true, false},
      {"SAMPLE_DISKUNIT", true, false},
      {"InterfaceType15", false, true},
      {"INTERFACETYPE15", false, true},
      {"Sample_DiskUnix", false, false},
      {"id", false, true},
      {"", true, false},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.name);
    TCIMClass* foundClass = nullptr;
    const TCIMPropertyDecl* declaration = nullptr;
    TCIMProperty* property = nullptr;
    EXPECT_EQ(0U, AllocationsOf([&] { foundClass = container.FindClass(row.name); }));
    EXPECT_EQ(0U, AllocationsOf([&] { declaration = disk.FindPropertyDecl(row.name); }));
    EXPECT_EQ(0U, AllocationsOf([&] { property = instance.FindProperty(row.name); }));
    EXPECT_EQ(row.isClass, foundClass != nullptr);
    EXPECT_EQ(row.isProperty, declaration != nullptr);
    EXPECT_EQ(row.isProperty, property != nullptr);
  }
  // The count counts: a longer name takes a string's storage.
  EXPECT_LT(0U, AllocationsOf([&] { instance.FindProperty("CapacityInBytes16"); }));
}

TEST_F(AllocationTest, ShowingACodeAgainTakesNothing) {
  const TCIMProperty& type = instance.GetProperty("InterfaceType15");
  EXPECT_LT(0U, AllocationsOf([&] { EXPECT_EQ("SATA", type.ToString()); }));
  EXPECT_EQ(0U, AllocationsOf([&] { EXPECT_EQ("SATA", type.ToString()); }));
  const TCIMProperty& faulty = instance.GetProperty("CapacityInBytes16");
  EXPECT_EQ("5", faulty.ToString());
  EXPECT_EQ(0U, AllocationsOf([&] { EXPECT_EQ("5", faulty.ToString()); }));
}

// By an index, which holds while nothing changes. A walk would gather the whole list.
TEST_F(AllocationTest, FollowingReferencesTakesNoMoreAmongMany) {
  TCIMClass& link =
      schema.Class("Sample_Link").With("ASSOCIATION").Reference("To", disk).With("KEY").Add();
  TCIMClass& over =
      schema.Class("Sample_Over").With("ASSOCIATION").Reference("Link", link).With("KEY").Add();
  unsigned int id = 10;
  const auto takenOnceThereAre = [&](unsigned int last) {
    const TCIMInstance* ends[2] = {};
    for (; id <= last; ++id) {
      ends[0] = &schema.Add(disk, {{"Id", id}});
      ends[1] = &schema.Add(link, {{"To", TCIMValue(ends[0]->BuildPath())}});
      schema.Add(over, {{"Link", TCIMValue(ends[1]->BuildPath())}});
    }
    const auto follow = [&] {
      for (const TCIMInstance* end : ends) EXPECT_EQ(1U, end->References("", "").size());
    };
    follow();
    return AllocationsOf(follow);
  };
  const std::size_t few = takenOnceThereAre(12);
  EXPECT_EQ(few, takenOnceThereAre(300));
}

// No sanitizer tells of what waits for ever to be destroyed: the queue still knows it.
TEST_F(AllocationTest, ListsAndPathsGoWhole) {
  const auto make = [&] {
    const TCIMValue list = Strings({"SAS", "SATA"});
    const TCIMReference path = instance.BuildPath();
  };
  make();
  const std::size_t taken = AllocationsOf(make);
  EXPECT_LT(0U, taken);
  EXPECT_EQ(taken, ReleasesOf(make));
}

TEST_F(AllocationTest, ADroppedMessageTakesNothing) {
  const TLogCapture log(2);
  ILogger& logger = *TRootObject::GetCoreLogger();
  const std::string text = "longer than what a string keeps in itself";
  const auto speak = [&] {
    for (const std::int32_t level : {3, 4, 5}) {
      logger.Log(nullptr, level, text);
      logger.LogData(nullptr, level, text.data(), 40);
      vskWriteLog(nullptr, level, text.c_str());
      vskWriteLog(nullptr, level, nullptr);
    }
  };
  EXPECT_EQ(0U, AllocationsOf(speak));
  EXPECT_LT(0U, AllocationsOf([&] { vskWriteLog(nullptr, 100, text.c_str()); }));
}
