#include "cinterface/TCPluginCallbacks.h"

#include <gtest/gtest.h>
#include <vskcore/core/ILogger.h>
#include <vskcore/core/TLogRecord.h>
#include <vskcore/core/TRootObject.h>
#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMDateTime.h>
#include <vskcore/model/TCIMInstance.h>
#include <vskcore/model/TContainer.h>
#include <vskcore/plugin/IQueryManager.h>
#include <vskcore/plugin/TPlugin.h>

#include "support/StatusOf.h"
#include "support/TLogCapture.h"
#include "support/TPluginTree.h"
#include "support/TSchema.h"

namespace {

class TCPluginCallbacksTest : public testing::Test {
 protected:
  // Loads the plug-in, with Sample_Fan in its document, and gives its adapter.
  TCPluginCallbacks& Load(const std::string& behaviour) {
    path = tree.Add(behaviour, Document({ClassText("Sample_Fan"), ClassText("Sample_Disk")}));
    tree.Manager().LoadPlugin(path);
    return dynamic_cast<TCPluginCallbacks&>(*tree.Manager().FindPlugin(behaviour)->GetCallbacks());
  }
  void Query() {
    TContainer* container = tree.Manager().GetContainer();
    TRootObject::GetQueryManager()->QueryClasses(container, {});
  }
  std::size_t Count(const std::string& name) const {
    const TContainer& container = *tree.Manager().GetContainer();
    return container.GetClass(name).EnumerateInstances(false).size();
  }

  void ExpectFailedQuery(const std::string& behaviour, const std::string& status) {
    Load(behaviour);
    log.Take();
    Query();
    EXPECT_EQ("[2] query Sample_Fan\n[2] query Sample_Disk\nPlugin " + behaviour +
                  " threw exception " + status,
              log.Take());
    EXPECT_EQ(1u, Count("Sample_Fan"));
    EXPECT_EQ(0u, Count("Sample_Disk"));
  }

  TPluginTree tree;
  std::string path;
  TLogCapture log{2};
};

TEST_F(TCPluginCallbacksTest, RegistersInitialisesAndAnswers) {
  TCPluginCallbacks& adapter = Load("c_answers");
  EXPECT_EQ("[2] registered (null)\n[2] initialize " + path, log.Take());
  const char* const given = adapter.GetPath();
  adapter.Initialize();
  EXPECT_EQ(given, adapter.GetPath());  // the plug-in may have kept it
  log.Take();
  EXPECT_EQ(adapter.GetPlugin(), tree.Manager().GetPlugins().front().get());
  EXPECT_EQ("c_answers", adapter.GetName());
  EXPECT_EQ("3.14", adapter.GetVersion());
  EXPECT_EQ("A sample in C", adapter.GetInfoText());
  EXPECT_EQ(0, adapter.GetType());
  EXPECT_EQ(42u, adapter.GetExtra());

  void* object = nullptr;
  EXPECT_EQ(vskStatusOK, vskGetHandle(adapter.Handle(), &object));
  EXPECT_EQ(static_cast<IPlugin*>(adapter.GetPlugin()), object);
  EXPECT_EQ(vskStatusFail, vskGetPluginPath(adapter.Handle(), nullptr));
  EXPECT_EQ(adapter.GetPlugin(), TRootObject::GetCoreLogger()->GetRecords().back().plugin);
  EXPECT_EQ("vskGetPluginPath: NULL path parameter", log.Take());
}

TEST_F(TCPluginCallbacksTest, QueryAddsTheInstanceThatIsStillOpen) {
  Load("c_answers");
  log.Take();
  Query();
  EXPECT_EQ("[2] query Sample_Fan\n[2] query Sample_Disk", log.Take());
  EXPECT_EQ(1u, Count("Sample_Fan"));
  EXPECT_EQ(1u, Count("Sample_Disk"));
}

TEST_F(TCPluginCallbacksTest, FailedQueryDropsTheOpenInstance) {
  ExpectFailedQuery("c_fails_query", "vskStatusNotFound");
}

TEST_F(TCPluginCallbacksTest, NonsenseFromAQueryIsLoggedWithAValidText) {
  ExpectFailedQuery("c_answers_nonsense", "vskStatusUnknown");
}

TEST_F(TCPluginCallbacksTest, OpenInstanceThatIsRefusedFailsTheQuery) {
  Load("c_forgets_the_key");
  log.Take();
  Query();
  const std::string refusals =
      "Instance Sample_Fan: key property Id is NULL\n"
      "vskAddClass: CIM class Sample_Fan threw exception vskStatusInvalidInstance\n";
  EXPECT_EQ("[2] query Sample_Fan\n[2] query Sample_Disk\n" + refusals + refusals +
                "Plugin c_forgets_the_key threw exception vskStatusInvalidInstance",
            log.Take());
  EXPECT_EQ(0u, Count("Sample_Fan"));
}

TEST_F(TCPluginCallbacksTest, FailedInitializeLeavesItListed) {
  Load("c_fails_initialize");
  EXPECT_FALSE(tree.Manager().GetPlugins().front()->IsInitialized());
  EXPECT_EQ(nullptr, tree.Manager().GetContainer()->FindClass("Sample_Fan"));
}

TEST_F(TCPluginCallbacksTest, HostMayFinalizeAndDestroy) {
  TCPluginCallbacks& keeps = Load("c_fails_query");
  EXPECT_EQ(vskStatusNoMoreItems, StatusOf([&] { keeps.Finalize(); }));
  EXPECT_EQ(vskStatusNotSupported, StatusOf([&] { keeps.Destroy(); }));
  EXPECT_EQ("c_fails_query", keeps.GetName());  // still there
  TCPluginCallbacks& goes = Load("c_answers");
  EXPECT_EQ(vskStatusOK, StatusOf([&] { goes.Destroy(); }));
  tree.Manager().GetPlugins().pop_back();
}

TEST_F(TCPluginCallbacksTest, SystemNameIsKeptOnceItIsKnown) {
  const char* name = nullptr;
  EXPECT_EQ(vskStatusNotFound, vskGetSystemName(&name));
  EXPECT_EQ(nullptr, name);
  TContainer& container = *tree.Manager().GetContainer();
  TSchema schema(container);
  TCIMClass& computer = schema.Class("ZNTSG_ComputerSystem")
                            .Key("Id", TCIMValue::TCIMType::cimUint32)
                            .Property("Name", TCIMValue::TCIMType::cimString)
                            .Add();
  TCIMInstance& system = schema.Add(computer, {{"Id", TCIMValue(1u)}, {"Name", TCIMValue("")}});
  ASSERT_EQ(vskStatusOK, vskGetSystemName(&name));
  EXPECT_STREQ("", name);  // no name yet: the next call looks again
  system.SetPropertyValue("Name", TCIMValue("sample"));
  ASSERT_EQ(vskStatusOK, vskGetSystemName(&name));
  EXPECT_STREQ("sample", name);
  const char* again = nullptr;
  computer.RemoveInstance(*computer.EnumerateInstances(false).front());
  ASSERT_EQ(vskStatusOK, vskGetSystemName(&again));
  EXPECT_EQ(name, again);
  ASSERT_EQ(vskStatusOK, vskGetSystemCreationClassName(&name));
  EXPECT_STREQ("ZNTSG_ComputerSystem", name);
}

TEST_F(TCPluginCallbacksTest, LocalTimeIsSet) {
  TCIMDateTime now;
  ASSERT_EQ(vskStatusOK, vskGetLocalTime(&now));
  EXPECT_FALSE(now.IsNull());
}

}  // namespace
