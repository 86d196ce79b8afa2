#include <gtest/gtest.h>
#include <vskcore/core/TRootObject.h>
#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMInstance.h>
#include <vskcore/model/TCIMQualifier.h>
#include <vskcore/model/TContainer.h>
#include <vskcore/plugin/IPluginCallbacks.h>
#include <vskcore/plugin/IQueryManager.h>
#include <vskcore/plugin/TPlugin.h>

#include <filesystem>

#include "plugin/TPluginManager.h"
#include "support/StatusOf.h"
#include "support/TLogCapture.h"
#include "support/TPluginTree.h"

namespace {

const char* const kNoDeclarations = "Couldn't find PLUGINNAME/PLUGINVERSION qualifier decl";

class TPluginManagerTest : public testing::Test {
 protected:
  IPluginManager& Manager() const { return tree.Manager(); }
  TContainer& Container() const { return *Manager().GetContainer(); }
  bool HasClass(const std::string& name) const { return Container().FindClass(name) != nullptr; }

  // "name path+ A,B" for each plug-in listed: "+" initialised, "-" not, "(none)" without classes.
  std::string Listed() const {
    std::string text;
    for (const boost::shared_ptr<TPlugin>& plugin : Manager().GetPlugins()) {
      const std::string file = std::filesystem::path(plugin->GetPath()).filename().string();
      text += plugin->GetCallbacks()->GetName() + " " + file +
              (plugin->IsInitialized() ? "+ " : "- ") + Classes(*plugin) + "\n";
    }
    return text;
  }
  static std::string Classes(TPlugin& plugin) {
    std::string names;
    const vskStatus status = StatusOf([&] {
      for (const TCIMClass* cimClass : plugin.GetClassesCollected()) {
        names += (names.empty() ? "" : ",") + cimClass->GetName();
      }
    });
    return status == vskStatusFail ? "(none)" : names;
  }
  // "name version" as the class is marked; "-" for a mark that is not there.
  std::string Marks(const std::string& cimClass) const {
    return Mark(cimClass, "PLUGINNAME") + " " + Mark(cimClass, "PLUGINVERSION");
  }
  std::string Mark(const std::string& cimClass, const char* name) const {
    const TCIMQualifier* mark = Container().GetClass(cimClass).FindQualifier(name);
    return mark == nullptr ? "-" : mark->GetValue().ToString(10);
  }

  TPluginTree tree;
  TLogCapture log;
};

TEST_F(TPluginManagerTest, LoadsInitialisesDocumentsAndMarks) {
  const std::string document = Document(
      {ClassText("Sample_Fan"), ClassText("ZNTSG_ManagedElement"), ClassText("Sample_Disk")});
  const std::string path = tree.Add("answers", document);
  Manager().LoadPlugin(path);
  EXPECT_EQ("answers answers.pi.so+ Sample_Fan,Sample_Disk\n", Listed());
  EXPECT_EQ(path, Manager().GetPlugins().front()->GetPath());
  EXPECT_EQ("answers 2.5", Marks("Sample_Disk"));
  EXPECT_EQ("answers 2.5", Marks("Sample_Fan"));
  EXPECT_EQ("- -", Marks("ZNTSG_ManagedElement"));
  EXPECT_EQ("[3] " + path, log.TakeLines().front());

  Manager().LoadPlugin(path);
  EXPECT_EQ("", log.Take());
  EXPECT_EQ(1U, Manager().GetPlugins().size());
}

TEST_F(TPluginManagerTest, AClassThatIsRemovedIsNoLongerThePlugins) {
  Manager().LoadPlugin(
      tree.Add("answers", Document({ClassText("Sample_Fan"), ClassText("Sample_Disk")})));
  log.Take();
  TPlugin& plugin = *Manager().GetPlugins().front();
  Container().RemoveClass(Container().GetClass("Sample_Fan"));
  EXPECT_EQ("Sample_Disk", Classes(plugin));
  TRootObject::GetQueryManager()->QueryClasses(&Container(), {});
  EXPECT_EQ(std::string::npos, log.Take().find("Sample_Fan"));
  Container()
      .GetClass("Sample_Disk")
      .RemoveInstance(*Container().GetClass("Sample_Disk").EnumerateInstances(false).front());
  Container().RemoveClass(Container().GetClass("Sample_Disk"));
  EXPECT_EQ("(none)", Classes(plugin));
}

TEST_F(TPluginManagerTest, OneLibraryMayRegisterNoneOrTwo) {
  const std::string none = tree.Add("registers_none", Document({ClassText("Sample_Fan")}));
  const std::string two = tree.Add("registers_two", Document({ClassText("Sample_Disk")}));
  Manager().LoadPlugin(none);
  EXPECT_EQ("[3] " + none, log.Take());
  EXPECT_EQ("", Listed());
  Manager().LoadPlugin(two);
  EXPECT_EQ(
      "registers_two registers_two.pi.so+ Sample_Disk\n"
      "the_second registers_two.pi.so+ (none)\n",
      Listed());
  EXPECT_FALSE(HasClass("Sample_Fan"));
}

TEST_F(TPluginManagerTest, AFailedLoadIsLoggedAndListsNothing) {
  const std::string refused = tree.Add("fails_its_load", Document({ClassText("Sample_Fan")}));
  const std::string missing = tree.Folder().Path(std::string(300, 'x') + ".pi.so");
  for (const std::string& path : {refused, missing}) {
    Manager().LoadPlugin(path);
    const std::vector<std::string> lines = log.TakeLines();
    EXPECT_EQ("[3] " + path, lines.front());
    EXPECT_EQ("DLL " + path + " failed to initialize properly", lines.back());
    EXPECT_EQ("", Listed());
  }
}

TEST_F(TPluginManagerTest, WhatRegisteredBeforeALoadIsDropped) {
  Manager().LoadPlugin(tree.Add("answers", Document({ClassText("Sample_Disk")})));
  IPluginCallbacks* const callbacks = Manager().GetPlugins().front()->GetCallbacks();
  for (const char* next : {"registers_none", "fails_its_load", "type_2"}) {
    IPlugin* const entry = Manager().RegisterPlugin(callbacks);
    Manager().LoadPlugin(tree.Add(next));
    EXPECT_EQ(callbacks, entry->GetCallbacks());  // dropped, and still good to log under
  }
  EXPECT_EQ("answers answers.pi.so+ Sample_Disk\ntype_2 type_2.pi.so+ (none)\n", Listed());
  log.Take();
}

TEST_F(TPluginManagerTest, HowFarAPluginGetsDependsOnInitializeAndType) {
  const struct {
    const char* behaviour;
    const char* listed;
    bool documented;
  } kRows[] = {
      {"throws_in_initialize", "throws_in_initialize throws_in_initialize.pi.so- (none)\n", false},
      {"type_1", "type_1 type_1.pi.so+ Sample_type_1\n", true},
      {"type_2", "type_2 type_2.pi.so+ (none)\n", false},
      {"type_below_0", "type_below_0 type_below_0.pi.so+ (none)\n", false},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.behaviour);
    const std::string name = std::string("Sample_") + row.behaviour;
    Manager().GetPlugins().clear();
    const std::string path = tree.Add(row.behaviour, Document({ClassText(name)}));
    Manager().LoadPlugin(path);
    EXPECT_EQ("[3] " + path + "\n[2] " + row.behaviour + " initializes", log.Take());
    EXPECT_EQ(row.listed, Listed());
    EXPECT_EQ(row.documented, HasClass(name));
  }
}

TEST_F(TPluginManagerTest, ABadDocumentLeavesThePluginListedWithoutClasses) {
  const struct {
    const char* folder;
    std::string document;
    vskStatus status;
    std::size_t errors;
  } kRows[] = {
      {"missing", "", vskStatusFileNotFound, 0},
      {"cut", "<CIM><DECLARATION>", vskStatusInvalidSpecificationDocument, 2},
      {"empty", Document({}), vskStatusOK, 0},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.folder);
    Manager().GetPlugins().clear();
    const std::string path = tree.Add("answers", row.document, row.folder);
    EXPECT_EQ(row.status, StatusOf([&] { Manager().LoadPlugin(path); }));
    EXPECT_EQ(2 + row.errors, log.TakeLines().size());  // beside the path and the plug-in's own
    EXPECT_EQ("answers answers.pi.so+ (none)\n", Listed());
  }
}

TEST_F(TPluginManagerTest, ABadDocumentEndsTheLibrarysLaterRegistrations) {
  const std::string path = tree.Add("registers_two");
  EXPECT_EQ(vskStatusFileNotFound, StatusOf([&] { Manager().LoadPlugin(path); }));
  Manager().LoadPlugin(tree.Add("registers_none"));
  EXPECT_EQ("registers_two registers_two.pi.so+ (none)\n", Listed());
}

TEST_F(TPluginManagerTest, WithoutDeclarationsOfTheMarksClassesStayUnmarked) {
  for (const char* missing : {"PLUGINVERSION", "PLUGINNAME"}) {
    SCOPED_TRACE(missing);
    Manager().GetPlugins().clear();
    Container().RemoveQualifierDecl(Container().GetQualifierDecl(missing));
    const std::string name = std::string("Sample_") + missing;
    const std::string path = tree.Add("answers", Document({ClassText(name)}), missing);
    EXPECT_EQ(vskStatusNotFound, StatusOf([&] { Manager().LoadPlugin(path); }));
    EXPECT_EQ(kNoDeclarations, log.TakeLines().back());
    EXPECT_EQ("answers answers.pi.so+ " + name + "\n", Listed());
    EXPECT_EQ("- -", Marks(name));
  }
}

TEST_F(TPluginManagerTest, AMarkInTheDocumentGivesWayUnlessItIsFixed) {
  const std::string fixed =
      "<QUALIFIER NAME='PLUGINNAME' TYPE='string' OVERRIDABLE='false'"
      " TOSUBCLASS='false'><VALUE>liar</VALUE></QUALIFIER>";
  const std::string soft = QualifierText("PLUGINNAME", "string", "liar");
  Manager().LoadPlugin(tree.Add("answers", Document({ClassText("Sample_Fan", {soft})}), "soft"));
  EXPECT_EQ("answers 2.5", Marks("Sample_Fan"));
  const std::string path = tree.Add("answers", Document({ClassText("Sample_Disk", {fixed})}), "x");
  EXPECT_EQ(vskStatusNotOverridable, StatusOf([&] { Manager().LoadPlugin(path); }));
  EXPECT_EQ("liar -", Marks("Sample_Disk"));
}

TEST_F(TPluginManagerTest, AnEqualMarkThatIsFixedStaysAndIsNoFailure) {
  Container().GetQualifierDecl("PLUGINNAME").UnsetFlavor(TCIMQualifierDecl::flavorOverridable);
  const std::string same = QualifierText("PLUGINNAME", "string", "answers");
  Manager().LoadPlugin(tree.Add("answers", Document({ClassText("Sample_Fan", {same})})));
  EXPECT_EQ("answers 2.5", Marks("Sample_Fan"));
}

TEST_F(TPluginManagerTest, LoadPluginsGoesOnBehindEveryFailure) {
  tree.Add("answers", "", "a_no_document");
  tree.Add("fails_its_load", "", "b_fails");
  tree.Add("throws_in_initialize", "", "c_throws");
  tree.Add("type_1", "<CIM", "d_damaged");
  tree.Add("answers", Document({ClassText("Sample_Disk")}), "e_good");
  tree.Add("answers", Document({ClassText("Sample_Deep")}), "f/too_deep");
  Manager().LoadPlugins();
  EXPECT_EQ(
      "answers answers.pi.so+ (none)\n"
      "throws_in_initialize throws_in_initialize.pi.so- (none)\n"
      "type_1 type_1.pi.so+ (none)\n"
      "answers answers.pi.so+ Sample_Disk\n",
      Listed());
  log.Take();

  EXPECT_EQ(Manager().GetPlugins().front().get(), Manager().FindPlugin("answers"));
  EXPECT_EQ(nullptr, Manager().FindPlugin("Answers"));
}

TEST_F(TPluginManagerTest, LoadPluginsFailsWithoutItsFolder) {
  TPluginManager manager(tree.Folder().Path("nowhere"));
  EXPECT_EQ(vskStatusFileSystemError, StatusOf([&] { manager.LoadPlugins(); }));
}

TEST(TPluginTest, TheDocumentStandsBesideTheLibrary) {
  TPlugin plugin(nullptr);
  plugin.SetPath("/opt/a.pi.so.d/disk.pi.so");
  EXPECT_EQ("/opt/a.properties.xml", plugin.GetSpecificationPath());
  plugin.SetPath("/opt/disk/disk.so");
  EXPECT_EQ(vskStatusFail, StatusOf([&] { plugin.GetSpecificationPath(); }));
}

}  // namespace
