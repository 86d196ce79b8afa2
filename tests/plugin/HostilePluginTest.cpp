// Plug-ins and documents that do what they should not, with a good plug-in behind them in the list
// that must not suffer.
#include <gtest/gtest.h>
#include <stdlib.h>
#include <vskcore/core/ILogger.h>
#include <vskcore/core/TRootObject.h>
#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMInstance.h>
#include <vskcore/model/TContainer.h>
#include <vskcore/platform/TOSSpecific.h>
#include <vskcore/plugin/IPluginCallbacks.h>
#include <vskcore/plugin/IQueryManager.h>
#include <vskcore/plugin/TPlugin.h>

#include <filesystem>

#include "support/StatusOf.h"
#include "support/TLogCapture.h"
#include "support/TPluginTree.h"

namespace {

// What comes out of body: "" when it returns.
template <typename TBody>
std::string Thrown(TBody&& body) {
  try {
    body();
  } catch (int) {
    return "int";
  } catch (const std::string&) {
    return "text";
  } catch (const std::exception& exception) {
    return exception.what();
  }
  return "";
}

class HostilePluginTest : public testing::Test {
 protected:
  ~HostilePluginTest() override { unsetenv("VSK_TEST_HOSTILE"); }

  IPluginManager& Manager() const { return tree->Manager(); }
  TContainer& Container() const { return *Manager().GetContainer(); }
  static void Behave(const std::string& how) { setenv("VSK_TEST_HOSTILE", how.c_str(), 1); }
  std::string Load() {
    return Thrown([&] { Manager().LoadPlugins(); });
  }
  std::string Query() {
    return Thrown([&] { TRootObject::GetQueryManager()->QueryClasses(&Container(), {}); });
  }
  void Start(const std::string& how) {
    tree = std::make_unique<TPluginTree>();
    Behave(how);
    tree->Add("hostile", Document({ClassText("Hostile_Class"), ClassText("Hostile_Other")}), "a");
    tree->Add("answers", Document({ClassText("Sample_Fan")}), "b");
  }
  void ExpectTheGoodOneUnharmed() {
    Behave("");
    Load();
    TPlugin& good = *Manager().GetPlugins().back();
    ASSERT_EQ("answers", good.GetCallbacks()->GetName());
    TRootObject::GetQueryManager()->QueryPlugin(&good, &Container(), {}, false);
    EXPECT_EQ(1U, Container().GetClass("Sample_Fan").EnumerateInstances(false).size());
  }

  std::unique_ptr<TPluginTree> tree;
  TLogCapture log{0};
};

const char* const kSilent = "Plugin hostile threw exception the bus is silent";

TEST_F(HostilePluginTest, WhateverACallbackDoes) {
  const std::string noClasses =  // told in each pass
      "Plugin hostile threw exception vskStatusFail\n"
      "Plugin hostile threw exception vskStatusFail";
  const std::string asked = "Plugin hostile threw exception vskStatusInvalidOpSequence";
  const struct {
    const char* how;
    const char* load;   // what reaches the host of LoadPlugins
    const char* query;  // and of QueryClasses
    std::string errors;
    std::size_t listed;
  } kRows[] = {
      {"load twice", "", "", noClasses, 3},
      {"load collects", "", "", "", 2},
      {"Initialize int", "", "", noClasses, 2},
      {"Initialize text", "", "", noClasses, 2},
      {"Initialize exception", "", "", noClasses, 2},
      {"Initialize status 0", "", "", noClasses, 2},
      {"Initialize collects", "", "", noClasses, 2},
      {"Initialize registers", "", "",
       "Plugin late threw exception vskStatusFail\nPlugin late threw exception vskStatusFail", 3},
      {"GetType int", "int", "int", "", 1},
      {"GetType text", "text", "text", "", 1},
      {"GetType exception", "the bus is silent", "the bus is silent", "", 1},
      {"GetType changes", "", "", "", 2},
      {"GetName int", "int", "", "", 1},
      {"GetName exception", "the bus is silent", "", "", 1},
      {"GetName changes", "", "", "", 2},
      {"GetVersion text", "text", "", "", 1},
      {"QueryClasses int", "", "int", "", 2},
      {"QueryClasses text", "", "text", "", 2},
      {"QueryClasses exception", "", "", kSilent, 2},
      {"QueryClasses registers", "", "", "", 2},
      {"QueryClasses collects", "", "", asked, 2},
      {"C Initialize int", "", "", noClasses, 2},
      {"C QueryClasses int", "", "int", "", 2},
      {"C QueryClasses exception", "", "", kSilent, 2},
      {"C QueryClasses collects", "", "", asked, 2},
      {"C QueryClasses leaves open", "", "", "Plugin hostile threw exception vskStatusAccessDenied",
       2},
      {"C QueryClasses nonsense", "", "", "Plugin hostile threw exception vskStatusUnknown", 2},
      {"C QueryClasses repeats", "", "", "", 2},
      {"C GetInfo no texts", "", "", "", 2},
      {"C GetInfo odd type", "", "", "", 2},
      {"C GetInfo int", "int", "int", "", 1},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.how);
    Start(row.how);
    EXPECT_EQ(row.load, Load());
    EXPECT_EQ(row.listed, Manager().GetPlugins().size());
    EXPECT_EQ(row.query, Query());
    std::string errors = log.Take();
    EXPECT_EQ(row.errors, errors);
    ExpectTheGoodOneUnharmed();
    log.Take();
  }
}

TEST_F(HostilePluginTest, ThrowsEveryStatus) {
  for (const char* in : {"Initialize", "QueryClasses", "C Initialize", "C QueryClasses"}) {
    for (vskStatus status = 0; status <= 36; ++status) {
      SCOPED_TRACE(status);
      const std::string how = std::string(in) + " status " + std::to_string(status);
      if (status % 36 == 0) Start(how);  // the library is asked again and again
      Behave(how);
      Load();
      const bool queries = how.find("QueryClasses") != std::string::npos;
      EXPECT_EQ("", Query());
      const std::string line = std::string("Plugin hostile threw exception ") +
                               vskTranslateStatusCode(queries ? status : vskStatusFail);
      EXPECT_EQ(queries ? line : line + "\n" + line, log.Take());
      if (!queries) {
        TPlugin& hostile = *Manager().GetPlugins().front();
        EXPECT_EQ(vskTranslateStatusCode(status), Thrown([&] { hostile.Initialize(); }));
      }
    }
    ExpectTheGoodOneUnharmed();
    log.Take();
  }
}

// Within the first turn a second one, for another class; that one's own call finds it taken.
TEST_F(HostilePluginTest, MayAskItselfForAnotherClass) {
  Start("QueryClasses collects another");
  Load();
  TRootObject::GetCoreLogger()->SetLevel(3);
  log.Take();
  TRootObject::GetQueryManager()->QueryClasses(&Container(), {"Hostile_Class"});
  EXPECT_EQ(
      "[3] Asking plugin hostile for Hostile_Class\n"
      "[3] Asking plugin hostile for Hostile_Other\n"
      "[3] Asking plugin hostile for Hostile_Other\n"
      "Plugin hostile threw exception vskStatusInvalidOpSequence",
      log.Take());
}

// From its load, from Initialize, and while it is asked; the other one is initialised and
// documented, and what the first one's library registers besides is not lost.
TEST_F(HostilePluginTest, LoadsAnother) {
  const struct {
    const char* how;
    std::string listed;
  } kRows[] = {
      {"load loads", "answers hostile "},
      {"Initialize loads", "hostile answers second "},
      {"QueryClasses loads", "hostile answers "},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.how);
    tree = std::make_unique<TPluginTree>();
    Behave(row.how);
    setenv("VSK_TEST_OTHER", tree->Add("answers", Document({ClassText("Sample_Fan")})).c_str(), 1);
    Manager().LoadPlugin(tree->Add("hostile", Document({ClassText("Hostile_Class")})));
    EXPECT_EQ("", Query());
    std::string listed;
    for (const auto& plugin : Manager().GetPlugins()) {
      EXPECT_TRUE(plugin->IsInitialized());
      listed += plugin->GetCallbacks()->GetName() + " ";
    }
    EXPECT_EQ(row.listed, listed);
    EXPECT_EQ(1U, Container().GetClass("Sample_Fan").EnumerateInstances(false).size());
    log.Take();
  }
}

TEST_F(HostilePluginTest, WhateverItsDocumentHolds) {
  const std::string derived = "<CLASS NAME='A' SUPERCLASS='B'></CLASS>";
  const struct {
    const char* what;
    std::string document;
    vskStatus status;
    const char* error;  // within the log
  } kRows[] = {
      {"its own superclass", Document({"<CLASS NAME='A' SUPERCLASS='A'></CLASS>"}),
       vskStatusNotFound, "Threw exception vskStatusNotFound"},
      {"two that derive from each other",
       Document({derived, "<CLASS NAME='B' SUPERCLASS='A'></CLASS>"}), vskStatusNotFound,
       "Threw exception vskStatusNotFound"},
      {"an association of itself", Document({AssociationText("A", "A", "A")}), vskStatusNotFound,
       "Threw exception vskStatusNotFound"},
      {"nothing", "<", vskStatusInvalidSpecificationDocument, "CIM-XML Parser line 1"},
      {"a class twice", Document({ClassText("A"), ClassText("A")}), vskStatusOK, ""},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.what);
    Start("");
    const std::string path = tree->Add("hostile", row.document, "a");
    EXPECT_EQ(row.status, StatusOf([&] { Manager().LoadPlugin(path); }));
    EXPECT_NE(std::string::npos, log.Take().find(row.error));
    ExpectTheGoodOneUnharmed();
    log.Take();
  }
  Start("");
  std::filesystem::resize_file(tree->Folder().Path("a/hostile.properties.xml"), 104857601);
  EXPECT_EQ(vskStatusInvalidSpecificationDocument,
            StatusOf([&] { Manager().LoadPlugin(tree->Folder().Path("a/hostile.pi.so")); }));
  ExpectTheGoodOneUnharmed();
  log.Take();
}

}  // namespace
