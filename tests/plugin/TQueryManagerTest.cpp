#include <gtest/gtest.h>
#include <vskcore/core/ILogger.h>
#include <vskcore/core/TRootObject.h>
#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMInstance.h>
#include <vskcore/model/TCIMProperty.h>
#include <vskcore/model/TCIMReference.h>
#include <vskcore/model/TContainer.h>
#include <vskcore/plugin/IPluginBasicQueryCallbacks.h>
#include <vskcore/plugin/IPluginCallbacks.h>
#include <vskcore/plugin/IQueryManager.h>
#include <vskcore/plugin/TPlugin.h>

#include <boost/make_shared.hpp>
#include <functional>
#include <stdexcept>

#include "support/StatusOf.h"
#include "support/TLogCapture.h"
#include "support/TPluginTree.h"

namespace {

using TClasses = std::vector<TCIMClass*>;

// Stands for a library's plug-in inside the test.
class TFakePlugin : public IPluginCallbacks, public IPluginBasicQueryCallbacks {
 public:
  explicit TFakePlugin(std::string name) : name_(std::move(name)) {}

  std::int32_t GetType() override { return type; }
  std::string GetName() override { return name_; }
  std::string GetVersion() override { return "1"; }
  std::string GetInfoText() override { return ""; }
  void Destroy() override {}
  void Initialize() override {}
  void Finalize() override {}
  void QueryClasses(TContainer* target, const TClasses& classes) override {
    std::string call = name_ + ":";
    for (const TCIMClass* cimClass : classes) call += " " + cimClass->GetName();
    calls->push_back(call);
    if (query) query(*target, classes);
  }

  std::int32_t type = 0;
  std::vector<std::string>* calls = nullptr;
  std::function<void(TContainer&, const TClasses&)> query;

 private:
  std::string name_;
};

class TQueryManagerTest : public testing::Test {
 protected:
  TQueryManagerTest() {
    for (TFakePlugin* fake : {&red, &blue}) fake->calls = &calls;
  }
  ~TQueryManagerTest() override { tree.Manager().GetPlugins().clear(); }

  TContainer& Container() const { return *tree.Manager().GetContainer(); }
  // Lists the plug-in with the classes of a document.
  void List(TFakePlugin& fake, const std::vector<std::string>& classes) {
    const auto plugin = boost::make_shared<TPlugin>(&fake);
    const std::string stem = fake.GetName() + "/" + fake.GetName();
    tree.Folder().MakeFile(stem + ".properties.xml", Document(classes));
    plugin->SetPath(tree.Folder().Path(stem + ".pi.so"));
    plugin->LoadSpecificationDocument();
    tree.Manager().GetPlugins().push_back(plugin);
    log.Take();
  }
  // The calls that plug-ins got, one a line.
  std::string Query(const std::vector<std::string>& names = {}) {
    calls.clear();
    TRootObject::GetQueryManager()->QueryClasses(&Container(), names);
    std::string text;
    for (const std::string& call : calls) text += (text.empty() ? "" : "\n") + call;
    return text;
  }
  void AddInstance(const std::string& cimClass) {
    TCIMInstance& instance = Container().AllocateInstance(&Container().GetClass(cimClass));
    instance.SetPropertyValue("Id", TCIMValue(5U));
    instance.AddToContainer();
  }

  TPluginTree tree;
  TLogCapture log;
  std::vector<std::string> calls;
  TFakePlugin red{"red"};
  TFakePlugin blue{"blue"};
};

TEST_F(TQueryManagerTest, AsksAllForPlainClassesThenAllForAssociations) {
  List(red, {ClassText("Sample_Fan"), ClassText("Sample_Disk"),
             AssociationText("Sample_Cools", "Sample_Fan", "Sample_Disk")});
  List(blue, {AssociationText("Sample_Heats", "Sample_Disk", "Sample_Fan"), ClassText("A_Lamp"),
              ClassText("Sample_Fan")});
  EXPECT_EQ("red: Sample_Fan Sample_Disk\nblue: A_Lamp\nred: Sample_Cools\nblue: Sample_Heats",
            Query());
  EXPECT_EQ(
      "[3] Asking plugin red for Sample_Fan\n[3] Asking plugin red for Sample_Disk\n"
      "[3] Asking plugin blue for A_Lamp\n[3] Asking plugin red for Sample_Cools\n"
      "[3] Asking plugin blue for Sample_Heats",
      log.Take());
}

TEST_F(TQueryManagerTest, AsksForWhatIsNamedConcreteWantedAndEmpty) {
  List(red, {ClassText("Full")});
  AddInstance("Full");
  List(blue, {ClassText("Plain"), ClassText("plain2"),
              ClassText("Bare", {QualifierText("ABSTRACT", "boolean", "true")}),
              ClassText("Off", {QualifierText("DONTCOLLECT", "boolean", "true")}),
              ClassText("On", {QualifierText("DONTCOLLECT", "boolean", "false")}),
              ClassText("Unset", {QualifierText("DONTCOLLECT", "boolean", "")})});
  const struct {
    std::vector<std::string> names;
    const char* calls;
  } kRows[] = {
      {{}, "blue: Plain plain2 On Unset"},
      {{"plain2", "Plain"}, "blue: Plain plain2"},
      {{"plain"}, ""},  // the case of letters counts
      {{"Off", "Bare", "Full"}, ""},
      {{"Nowhere", "On"}, "blue: On"},
      {{""}, ""},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.names.empty() ? "all" : row.names.front());
    EXPECT_EQ(row.calls, Query(row.names));
  }
}

TEST_F(TQueryManagerTest, OnlyTypeZeroIsAsked) {
  List(red, {ClassText("Sample_Fan")});
  for (const std::int32_t type : {1, 2, -1}) {
    red.type = type;
    EXPECT_EQ("", Query());
  }
  EXPECT_EQ("", log.Take());
}

TEST_F(TQueryManagerTest, WhatIsCollectedIsNotAskedForAgain) {
  List(red, {ClassText("Sample_Fan"), ClassText("Sample_Disk")});
  red.query = [&](TContainer&, const TClasses&) { AddInstance("Sample_Disk"); };
  Query();
  log.Take();
  EXPECT_EQ("red: Sample_Fan", Query());
  EXPECT_EQ("[3] Asking plugin red for Sample_Fan", log.Take());
}

TEST_F(TQueryManagerTest, TheTargetIsTheCallersContainer) {
  TContainer other;
  List(red, {ClassText("Sample_Fan")});
  red.query = [&](TContainer& target, const TClasses&) { EXPECT_EQ(&other, &target); };
  TRootObject::GetQueryManager()->QueryClasses(&other, {});
  EXPECT_EQ(1U, calls.size());
}

TEST_F(TQueryManagerTest, AFailureCostsOnlyThatCall) {
  List(red, {ClassText("Sample_Fan"), ClassText("Sample_Disk"),
             AssociationText("Sample_Cools", "Sample_Fan", "Sample_Disk")});
  List(blue, {ClassText("A_Lamp")});
  red.query = [](TContainer&, const TClasses& classes) {
    if (classes.front()->IsAssociation()) throw std::runtime_error("the bus is silent");
    throw TVSKException(vskStatusAccessDenied);
  };
  TRootObject::GetCoreLogger()->SetLevel(2);
  EXPECT_EQ("red: Sample_Fan Sample_Disk\nblue: A_Lamp\nred: Sample_Cools", Query());
  EXPECT_EQ(
      "Plugin red threw exception vskStatusAccessDenied\n"
      "Plugin red threw exception the bus is silent",
      log.Take());
}

TEST_F(TQueryManagerTest, WhatIsNoStandardExceptionReachesTheHost) {
  List(red, {ClassText("Sample_Fan")});
  red.query = [](TContainer&, const TClasses&) { throw 3; };
  EXPECT_THROW(Query(), int);
}

TEST_F(TQueryManagerTest, AFaultyDontCollectEndsThePluginsPass) {
  const std::string odd = QualifierText("DONTCOLLECT", "string", "no");
  List(red, {ClassText("First"), ClassText("Odd", {odd}), ClassText("Last"),
             ClassText("Bare", {QualifierText("ABSTRACT", "boolean", "true"), odd})});
  List(blue, {ClassText("A_Lamp")});
  EXPECT_EQ("blue: A_Lamp", Query());
  EXPECT_EQ(
      "[3] Asking plugin red for First\n"
      "Plugin red threw exception vskStatusTypeMismatch\n"
      "[3] Asking plugin blue for A_Lamp\n"
      "Plugin red threw exception vskStatusTypeMismatch",
      log.Take());
  EXPECT_EQ("red: First Last", Query({"First", "Last", "Bare"}));
}

TEST_F(TQueryManagerTest, APluginWithoutClassesIsToldInEachPass) {
  List(red, {});
  EXPECT_EQ("", Query());
  EXPECT_EQ("Plugin red threw exception vskStatusFail\nPlugin red threw exception vskStatusFail",
            log.Take());
}

// Plug-ins in libraries of their own: casts and exceptions cross the border.
TEST_F(TQueryManagerTest, CollectsFromLibraries) {
  tree.Add("answers", Document({ClassText("Sample_Fan"), ClassText("Sample_Disk"),
                                AssociationText("Sample_Cools", "Sample_Fan", "Sample_Disk")}));
  tree.Add("no_query", Document({ClassText("A_Lamp")}));
  tree.Add("throws_in_query", Document({ClassText("A_Bus")}));
  tree.Add("type_1", Document({ClassText("A_Word")}));
  tree.Manager().LoadPlugins();
  TRootObject::GetCoreLogger()->SetLevel(2);
  log.Take();
  Query();
  const std::string refused =
      "Plugin no_query doesn't support the IPluginBasicQueryCallbacks.\n"
      "Plugin no_query threw exception vskStatusInvalidPlugin\n";
  EXPECT_EQ("[2] answers is asked for Sample_Fan\n[2] answers is asked for Sample_Disk\n" +
                refused +
                "[2] throws_in_query is asked for A_Bus\n"
                "Plugin throws_in_query threw exception the bus is silent\n"
                "[2] answers is asked for Sample_Cools\n" +
                refused.substr(0, refused.size() - 1),
            log.Take());

  const auto only = [&](const char* name) {
    return Container().GetClass(name).EnumerateInstances(false).at(0);
  };
  EXPECT_EQ(only("Sample_Disk")->BuildPath(),
            TCIMReference(only("Sample_Cools")->GetProperty("Dependent").GetValue()));
}

}  // namespace
