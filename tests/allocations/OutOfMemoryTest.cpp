// What the core does when the heap is used up: the n-th allocation fails, n = 1, 2, ..., until the
// work needs no more. It gives vskStatusOutOfMemory or std::bad_alloc, or does without what it
// lacked; and when it is done again, everything is as if nothing had happened.
#include <gtest/gtest.h>
#include <vskcore/core/TRootObject.h>
#include <vskcore/core/TVSKException.h>
#include <vskcore/model/TCIMDateTime.h>
#include <vskcore/plugin/IQueryManager.h>
#include <vskcore/plugin/TPlugin.h>
#include <vskcore/vskplugin.h>
#include <zlib.h>

#include <boost/make_shared.hpp>
#include <functional>
#include <new>
#include <set>

#include "allocations/AllocationsOf.h"
#include "cinterface/TCPluginCallbacks.h"
#include "cinterface/TTypedRow.h"
#include "cinterface/vskCIMValueArray.h"
#include "cinterface/vskIOHandle.h"
#include "support/Picture.h"
#include "support/TLogCapture.h"
#include "support/TPluginTree.h"
#include "support/TSchema.h"

namespace {

using TType = TCIMValue::TCIMType;

constexpr std::size_t kMostAllocations = 20000;

// Longer than what a string keeps in itself.
const char* const kText = "a text that needs a place of its own";

// Everything that a row works on, made anew for each failure.
struct TWorld {
  TWorld() {
    TClassBuilder builder = schema.Class("Sample_DiskUnitOfMany");
    builder.Key("Id", TType::cimUint32);
    for (const TTypedRow& row : TypedRows()) builder.Property(row.type, CIMType(row.type));
    disk = &builder.Property("InterfaceTypeAndMore", TType::cimUint16)
                .With("Values", TCIMValue(TType::cimString, 0, {"SAS", kText}))
                .With("ValueMap", TCIMValue(TType::cimString, 0, {"0", "1"}))
                .Property("Numbers", TCIMValue(TType::cimUint32, 5))
                .Add();
    fan = &schema.Class("Sample_Fan").Key("Id", TType::cimUint32).Add();
    link = &schema.Class("Sample_Link")
                .With("ASSOCIATION")
                .Reference("Antecedent", *disk)
                .With("KEY")
                .Reference("Dependent", *fan)
                .With("KEY")
                .Property("Since", TType::cimDateTime)
                .With("KEY")
                .Add();
    first =
        &schema.Add(*disk, {{"Id", 1U}, {"InterfaceTypeAndMore", static_cast<unsigned short>(1)}});
    second = &schema.Add(*disk, {{"Id", 3U}});
    cooler = &schema.Add(*fan, {{"Id", 2U}});
    reference = first->BuildPath();
    text.Set(std::string("20240229123456.000000+060"));
    schema.Add(*link, {{"Antecedent", TCIMValue(reference)},
                       {"Dependent", TCIMValue(cooler->BuildPath())},
                       {"Since", TCIMValue(text)}});
    vskAddClass(&handle, "Sample_DiskUnitOfMany");
    vskAddUint32Property(&handle, "Id", 7);
    toLink.reset(new TCIMReference(&container));
    toLink->SetClass(*link);
    toDisk.reset(new TCIMReference(&container));
    toDisk->SetClass(*disk);
  }

  TContainer container;
  TSchema schema{container};
  TCIMClass* disk;
  TCIMClass* fan;
  TCIMClass* link;
  TCIMInstance* first;
  TCIMInstance* second;
  TCIMInstance* cooler;
  TCIMReference reference;
  TCIMDateTime text;
  TCIMDateTime now;
  TCIMValue value{kText};
  vskCIMValueArray numbers{{1U, 2U}};
  vskIOHandle handle{nullptr, &container, nullptr};
  vskCIMValueArray array;
  std::unique_ptr<TCIMReference> toLink;
  std::unique_ptr<TCIMReference> toDisk;
  // What the functions that make something have made.
  std::unique_ptr<vskCIMValueArray> newArray;
  std::unique_ptr<TCIMDateTime> newDateTime;
  std::unique_ptr<TCIMReference> newReference;
};

std::string PictureOf(const TWorld& world) {
  std::string picture = Picture(world.container) + world.text.ToString();
  picture += world.toLink->GetPath() + world.toDisk->GetPath();
  if (world.handle.currentInstance) picture += Picture(*world.handle.currentInstance);
  for (const TCIMValue& element : world.array.elements) picture += Picture(element);
  return picture;
}

struct TRow {
  std::string name;
  std::function<vskStatus(TWorld&)> run;
};

// Calls what makes something, and keeps what it has made.
template <typename TMade, typename TMake>
vskStatus Keep(std::unique_ptr<TMade>& kept, TMake&& make) {
  TMade* made = nullptr;
  const vskStatus status = make(&made);
  kept.reset(made);
  return status;
}

// The status of the work, whichever way it tells.
template <typename TWork>
vskStatus Outcome(TWork&& work) {
  try {
    return work();
  } catch (const std::bad_alloc&) {
    return vskStatusOutOfMemory;
  } catch (const TVSKException& exception) {
    return exception.status;
  }
}

// The status of what lets no exception out.
vskStatus StatusOfRow(const TRow& row, TWorld& world) {
  try {
    return row.run(world);
  } catch (...) {
    return vskStatusFail;
  }
}

vskStatus Expected(bool asExpected) { return asExpected ? vskStatusOK : vskStatusFail; }

// The failure that is to come: of the n-th allocation, or of all from that one on.
class TFailure {
 public:
  TFailure(std::size_t nth, bool lasting) : nth_(nth), lasting_(lasting) {}

  // Runs the body, which throws nothing. Whether it came to the failure.
  bool Strike(const std::function<void()>& body) {
    const bool struck = WithFailingAllocation(nth_, lasting_, body);
    struck_ = struck_ || struck;
    return struck;
  }
  bool HasStruck() const { return struck_; }

 private:
  std::size_t nth_;
  bool lasting_;
  bool struck_ = false;
};

// Calls the body with each failure up to the first that doesn't strike, of both kinds.
void ForEachFailure(const std::function<void(TFailure&)>& body) {
  for (const bool lasting : {false, true}) {
    bool struck = true;
    for (std::size_t nth = 1; struck; ++nth) {
      SCOPED_TRACE(nth);
      ASSERT_LT(nth, kMostAllocations);
      TFailure failure(nth, lasting);
      body(failure);
      if (testing::Test::HasFatalFailure()) return;
      struck = failure.HasStruck();
    }
  }
}

void Sweep(const TRow& row) {
  std::string expected;
  {
    TWorld world;
    ASSERT_EQ(vskStatusOK, row.run(world));
    expected = PictureOf(world);
  }
  ForEachFailure([&](TFailure& failure) {
    TWorld world;
    vskStatus status = vskStatusFail;
    if (!failure.Strike([&] { status = StatusOfRow(row, world); })) return;
    if (status != vskStatusOK) {
      ASSERT_EQ(vskStatusOutOfMemory, status);
      ASSERT_EQ(vskStatusOK, row.run(world));
    }
    ASSERT_EQ(expected, PictureOf(world));
  });
}

// With everything traced, so that a trace that there is no memory for is among the failures.
void SweepAll(const std::vector<TRow>& rows) {
  TLogCapture log(4);
  for (const TRow& row : rows) {
    SCOPED_TRACE(row.name);
    Sweep(row);
    if (testing::Test::HasFatalFailure()) return;
  }
  log.Take();  // what failed on the way was told
}

}  // namespace

TEST(OutOfMemoryTest, FunctionsOfTheCInterface) {
  std::vector<TRow> rows = {
      {"vskAddClass", [](TWorld& w) { return vskAddClass(&w.handle, "Sample_DiskUnitOfMany"); }},
      {"vskAddProperty", [](TWorld& w) { return vskAddProperty(&w.handle, "String", kText); }},
      {"vskAddCIMValueProperty",
       [](TWorld& w) { return vskAddCIMValueProperty(&w.handle, "String", &w.value); }},
      {"vskAddUint16Property with a long name",
       [](TWorld& w) { return vskAddUint16Property(&w.handle, "InterfaceTypeAndMore", 1); }},
      {"vskAddArrayProperty",
       [](TWorld& w) { return vskAddArrayProperty(&w.handle, "Numbers", &w.numbers); }},
      {"vskAddReferenceProperty",
       [](TWorld& w) {
         const vskStatus opened = vskAddClass(&w.handle, "Sample_Link");
         if (opened != vskStatusOK) return opened;
         const vskStatus stored = vskAddReferenceProperty(&w.handle, "Antecedent", &w.reference);
         w.handle.currentInstance.reset();
         return stored;
       }},
      {"vskSetDateTime",
       [](TWorld& w) { return vskSetDateTime(&w.text, 2024, 2, 29, 1, 2, 3, 4000, 60); }},
      {"vskSetDateTimeInterval",
       [](TWorld& w) { return vskSetDateTimeInterval(&w.text, 1, 2, 3, 4, 5); }},
      {"vskSetDateTimeString",
       [](TWorld& w) { return vskSetDateTimeString(&w.text, "00000001020304.000005:000"); }},
      {"vskNewCIMDateTime", [](TWorld& w) { return Keep(w.newDateTime, vskNewCIMDateTime); }},
      {"vskNewCIMReference",
       [](TWorld& w) {
         return Keep(w.newReference,
                     [&](TCIMReference** made) { return vskNewCIMReference(made, &w.handle); });
       }},
      {"vskNewCIMValueArray", [](TWorld& w) { return Keep(w.newArray, vskNewCIMValueArray); }},
      {"vskSetReferenceClassName",
       [](TWorld& w) { return vskSetReferenceClassName(w.toLink.get(), "Sample_DiskUnitOfMany"); }},
      {"vskReferenceAddUint16 with a long name",
       [](TWorld& w) { return vskReferenceAddUint16(w.toDisk.get(), "InterfaceTypeAndMore", 1); }},
      {"vskReferenceAddReference",
       [](TWorld& w) {
         return vskReferenceAddReference(w.toLink.get(), "Antecedent", &w.reference);
       }},
      {"vskArrayAddReference",
       [](TWorld& w) { return vskArrayAddReference(&w.array, &w.reference); }},
      {"vskGetLocalTime", [](TWorld& w) { return vskGetLocalTime(&w.now); }},
  };
  for (const TTypedRow& typed : TypedRows()) {
    const char* const type = typed.type.c_str();
    rows.push_back({"vskAdd" + typed.type + "Property",
                    [&typed, type](TWorld& w) { return typed.addProperty(&w.handle, type); }});
    rows.push_back({"vskReferenceAdd" + typed.type,
                    [&typed, type](TWorld& w) { return typed.addKey(w.toDisk.get(), type); }});
    rows.push_back(
        {"vskArrayAdd" + typed.type, [&typed](TWorld& w) { return typed.append(&w.array); }});
  }
  SweepAll(rows);
}

TEST(OutOfMemoryTest, LookUpsWalksAndTexts) {
  std::vector<TRow> rows = {
      {"FindInstance",
       [](TWorld& w) { return Expected(w.disk->FindInstance(w.reference) == w.first); }},
      {"GetCIMElement",
       [](TWorld& w) { return Expected(&w.reference.GetCIMElement() == w.first); }},
      {"References", [](TWorld& w) { return Expected(w.first->References("", "").size() == 1); }},
      {"References that change",
       [](TWorld& w) {
         TCIMInstance& link = *w.link->EnumerateInstances(false).front();
         w.second->References("", "");
         link.SetPropertyValue("Antecedent", TCIMValue(w.second->BuildPath()));
         return Expected(w.second->References("", "").size() == 1);
       }},
      {"Associators",
       [](TWorld& w) {
         const std::vector<TCIMInstance*> far = w.first->Associators("", "", "", "");
         return Expected(far.size() == 1 && far.front() == w.cooler);
       }},
      {"ToString",
       [](TWorld& w) {
         return Expected(w.first->GetProperty("InterfaceTypeAndMore").ToString() == kText);
       }},
      {"SetPropertyValue",
       [](TWorld& w) {
         w.first->SetPropertyValue("String", TCIMValue(kText));
         return vskStatusOK;
       }},
      {"AddToContainer",
       [](TWorld& w) {
         w.schema.Add(*w.disk, {{"Id", 9U}});
         return vskStatusOK;
       }},
      {"a class more",
       [](TWorld& w) {
         w.schema.Class("Sample_OtherLink", w.link).Property("Name", TType::cimString).Add();
         return vskStatusOK;
       }},
  };
  for (TRow& row : rows) {
    row.run = [run = row.run](TWorld& w) { return Outcome([&] { return run(w); }); };
  }
  SweepAll(rows);
}

// A name that is known once is kept, so each function is swept a single time.
TEST(OutOfMemoryTest, TheSystemsNames) {
  const TPluginTree tree;
  TSchema schema(*tree.Manager().GetContainer());
  TCIMClass& computer = schema.Class("ZNTSG_ComputerSystem").Key("Name", TType::cimString).Add();
  schema.Add(computer, {{"Name", TCIMValue(kText)}});
  const struct {
    vskStatus (*get)(const char**);
    const char* expected;
  } kRows[] = {
      {vskGetSystemName, kText},
      {vskGetSystemCreationClassName, "ZNTSG_ComputerSystem"},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.expected);
    const char* name = nullptr;
    vskStatus status = vskStatusFail;
    for (std::size_t nth = 1; status != vskStatusOK; ++nth) {
      WithFailingAllocation(nth, true, [&] { status = row.get(&name); });
      if (status == vskStatusOK) break;
      ASSERT_EQ(vskStatusOutOfMemory, status);
      ASSERT_EQ(nullptr, name);
    }
    EXPECT_STREQ(row.expected, name);
  }
}

// There is no way back from the middle of a document: what came before stays, and a repeat adds
// what is missing of the schema. So the instances are told by their classes alone. Without memory
// for zlib, a packed document can't be opened, or can't be unpacked.
TEST(OutOfMemoryTest, Documents) {
  TLogCapture log(2);
  const TTempDir folder;
  const std::string instance =
      "<VALUE.OBJECT><INSTANCE CLASSNAME='Sample_FanOfTheCase'><PROPERTY NAME='Id' "
      "TYPE='uint32'><VALUE>7</VALUE></PROPERTY></INSTANCE></VALUE.OBJECT>";
  std::string text =
      Document({ClassText("Sample_FanOfTheCase"), ClassText("Sample_DiskUnitOfMany"),
                AssociationText("Sample_Cools", "Sample_FanOfTheCase", "Sample_DiskUnitOfMany")});
  text.insert(text.find("</DECLGROUP>"), instance);
  text.insert(text.find("<VALUE.OBJECT>"),
              "<QUALIFIER.DECLARATION NAME='KEY' TYPE='boolean'></QUALIFIER.DECLARATION>"
              "<QUALIFIER.DECLARATION NAME='ASSOCIATION' TYPE='boolean'></QUALIFIER.DECLARATION>");
  const std::string packed = folder.Path("small.xml.gz");
  const gzFile file = gzopen(packed.c_str(), "wb");
  ASSERT_EQ(static_cast<int>(text.size()),
            gzwrite(file, text.data(), static_cast<unsigned>(text.size())));
  ASSERT_EQ(Z_OK, gzclose(file));
  const struct {
    std::string path;
    std::set<vskStatus> failures;
  } kRows[] = {
      {folder.MakeFile("small.xml", text), {vskStatusOutOfMemory}},
      {packed, {vskStatusOutOfMemory, vskStatusFileSystemError, vskStatusCorruptGzipFile}},
  };
  const auto pictureOf = [](const TContainer& container) {
    std::string picture;
    for (const TCIMClass* cimClass : container.GetRootClass().EnumerateSubClasses(true)) {
      picture += Picture(*cimClass) + "; ";
    }
    return picture;
  };
  TContainer whole;
  whole.PopulateContainerFromFile(packed);
  for (const auto& row : kRows) {
    std::set<vskStatus> failures;
    ForEachFailure([&](TFailure& failure) {
      TContainer container;
      const auto populate = [&] {
        container.PopulateContainerFromFile(row.path);
        return vskStatusOK;
      };
      vskStatus status = vskStatusFail;
      if (!failure.Strike([&] { status = Outcome(populate); })) return;
      if (status != vskStatusOK) failures.insert(status);
      Picture(container);
      ASSERT_EQ(vskStatusOK, Outcome(populate));
      ASSERT_EQ(pictureOf(whole), pictureOf(container));
    });
    EXPECT_EQ(row.failures, failures) << row.path;
  }
  log.Take();
}

// A library starts once. So a plug-in that there was no memory for stays away, or stays listed as
// far as it came; another one is loaded all the same, and collected.
TEST(OutOfMemoryTest, LibrariesOfPlugins) {
  TLogCapture log(3);
  ForEachFailure([&](TFailure& failure) {
    const TPluginTree tree;
    IPluginManager& manager = tree.Manager();
    const auto load = [&](const std::string& path) {
      return Outcome([&] {
        manager.LoadPlugin(path);
        return vskStatusOK;
      });
    };
    const std::string path = tree.Add("c_answers", Document({ClassText("Sample_Fan")}));
    vskStatus status = vskStatusFail;
    failure.Strike([&] { status = load(path); });
    ASSERT_TRUE(status == vskStatusOutOfMemory || status == vskStatusOK) << status;
    ASSERT_EQ(vskStatusOK, load(path));
    ASSERT_LE(manager.GetPlugins().size(), 1U);
    const std::string other = tree.Add("c_answers", Document({ClassText("Sample_Disk")}), "b");
    ASSERT_EQ(vskStatusOK, load(other));
    ASSERT_EQ(other, manager.GetPlugins().back()->GetPath());
    TContainer& container = *manager.GetContainer();
    TRootObject::GetQueryManager()->QueryClasses(&container, {});
    ASSERT_EQ(1U, container.GetClass("Sample_Disk").EnumerateInstances(false).size());
  });
  log.Take();
}

namespace {

vskPluginInfo GetInfo(vskPluginHandle) { return {"a plug-in with a long name", "1", "", 0, 0}; }

vskStatus Nothing(vskPluginHandle) { return vskStatusOK; }

// One instance of each class that it is asked for.
vskStatus Query(vskPluginHandle, vskIOHandle* handle, const char* const* names, int32_t count) {
  for (int32_t i = 0; i < count; ++i) {
    const vskStatus added = vskAddClass(handle, names[i]);
    const vskStatus set = added == vskStatusOK ? vskAddUint32Property(handle, "Id", 7) : added;
    if (set != vskStatusOK) return set;
  }
  return vskStatusOK;
}

}  // namespace

TEST(OutOfMemoryTest, Collections) {
  TLogCapture log(3);
  ForEachFailure([&](TFailure& failure) {
    const TPluginTree tree;
    TContainer& container = *tree.Manager().GetContainer();
    tree.Folder().MakeFile("c/c.properties.xml", Document({ClassText("Sample_FanOfTheCase"),
                                                           ClassText("Sample_DiskUnitOfMany")}));
    const vskPluginCallbacks table = {nullptr, Nothing, Nothing, Query, GetInfo, Nothing};
    vskPluginHandle handle = nullptr;
    vskStatus status = vskStatusFail;
    failure.Strike([&] { status = vskRegisterPlugin(&table, &handle); });
    if (status != vskStatusOK) {
      ASSERT_EQ(vskStatusOutOfMemory, status);
      ASSERT_EQ(vskStatusOK, vskRegisterPlugin(&table, &handle));
    }
    TCPluginCallbacks& callbacks = TCPluginCallbacks::FromHandle(handle);
    const auto plugin = boost::make_shared<TPlugin>(&callbacks);
    plugin->SetPath(tree.Folder().Path("c/c.pi.so"));
    plugin->LoadSpecificationDocument();
    tree.Manager().GetPlugins().push_back(plugin);
    const auto collect = [&] {
      TRootObject::GetQueryManager()->QueryClasses(&container, {});
      return vskStatusOK;
    };
    failure.Strike([&] { status = Outcome(collect); });
    ASSERT_TRUE(status == vskStatusOutOfMemory || status == vskStatusOK) << status;
    ASSERT_EQ(vskStatusOK, Outcome(collect));
    for (const char* name : {"Sample_FanOfTheCase", "Sample_DiskUnitOfMany"}) {
      const auto all = container.GetClass(name).EnumerateInstances(false);
      ASSERT_EQ(1U, all.size()) << name;
      ASSERT_EQ(std::string(name) + ".Id=\"7\"", all.front()->BuildPath().GetPath());
    }
    tree.Manager().GetPlugins().clear();
    callbacks.Destroy();
  });
  log.Take();
}
