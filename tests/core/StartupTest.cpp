#include <gtest/gtest.h>

#include <cstdio>
#include <cstdlib>
#include <memory>

#include "core/startup/Attach.h"
#include "support/TTempDir.h"

namespace {

const char* const kSchema = "0 plug-ins, ZNTSG_ManagedElement, ZNTSG_Dependency, ready\n";
// The name by which a host asks for the library.
const char* const kLibrary = "/" VSK_TEST_SONAME;
const char* const kSpeaks = "VSK_Core: [Status] the host speaks\n";

std::string Quoted(const std::string& text) { return "'" + text + "'"; }

// The library's build tree again, by links: the library opened there has its folder there.
class TCoreTree {
 public:
  TCoreTree() : TCoreTree(100) {}
  // With a library whose path has that length.
  explicit TCoreTree(std::size_t length) {
    folder_ = std::string(length - (root_.Path() + "/" + kLibrary).size(), 'd');
    root_.MakeDir(folder_ + "/data");
    root_.MakeLink(folder_ + kLibrary, Built(kLibrary));
    root_.MakeLink(folder_ + "/data/core.properties.xml", Built("/data/core.properties.xml"));
  }

  std::string Folder() const { return root_.Path(folder_); }
  std::string Document() const { return Folder() + "/data/core.properties.xml"; }
  void RemoveDocument() const { std::filesystem::remove(Document()); }
  void ReplaceDocument(const std::string& content) const {
    RemoveDocument();
    root_.MakeFile(folder_ + "/data/core.properties.xml", content);
  }
  // What a host that loads this library writes: the core's log, then its own line.
  std::string Start(const std::string& environment = "") const {
    const std::string command = "env -u HWQ_LOGLEVEL LD_LIBRARY_PATH=" + Quoted(Folder()) + " " +
                                environment + " " VSK_TEST_START_PROBE " 2>&1";
    const std::unique_ptr<FILE, int (*)(FILE*)> pipe(popen(command.c_str(), "r"), pclose);
    std::string output;
    for (int byte = std::getc(pipe.get()); byte != EOF; byte = std::getc(pipe.get())) {
      output += static_cast<char>(byte);
    }
    return output;
  }

 private:
  static std::string Built(const std::string& name) {
    return VSK_TEST_BINARY_DIR "/lib/vskcore" + name;
  }

  TTempDir root_;
  std::string folder_;
};

TEST(StartupTest, GivesTheManagersAndTheCoresOwnSchema) {
  EXPECT_EQ(std::string(kSpeaks) + "level 2, " + kSchema, TCoreTree().Start());
}

TEST(StartupTest, TheEnvironmentSetsTheThreshold) {
  const struct {
    const char* value;
    const char* level;
  } kRows[] = {
      {"4", "4"},
      {"3", "3"},
      {"0", "0"},
      {"5", "1"},
      {"99", "1"},
      {"-3", "-3"},
      {"", "0"},
      {"loud", "0"},
      {" 3a", "3"},
      {"99999999999", "1"},
      {"-99999999999", "-2147483648"},
  };
  const TCoreTree tree;
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.value);
    const std::string output = tree.Start("HWQ_LOGLEVEL=" + Quoted(row.value));
    EXPECT_EQ(std::string("level ") + row.level + ", " + kSchema,
              output.substr(output.rfind("level ")));
  }
}

TEST(StartupTest, ADocumentThatFailsLeavesNoQueryManager) {
  const TCoreTree tree;
  const std::string where = " (" + tree.Document() + ")\n";
  const std::string failed = "VSK_Core: [Error] VSK core failed initialization: ";
  const std::string rest = kSpeaks + std::string("level 2, 0 plug-ins\n");
  const std::string invalid = failed + "vskStatusInvalidSpecificationDocument" + where + rest;

  tree.RemoveDocument();
  EXPECT_EQ(failed + "vskStatusFileNotFound" + where + rest, tree.Start());
  EXPECT_EQ("level -3, 0 plug-ins\n", tree.Start("HWQ_LOGLEVEL=-3"));  // holds for the failure too
  for (const char* content : {"", "<CIM><DECLARATION></CIM>"}) {
    SCOPED_TRACE(content);
    tree.ReplaceDocument(content);
    const std::string output = tree.Start();
    ASSERT_GT(output.size(), invalid.size());
    EXPECT_EQ(invalid, output.substr(output.size() - invalid.size()));
    EXPECT_NE(std::string::npos,
              output.find("Previous error was while parsing file '" + tree.Document() + "'"));
  }
}

TEST(StartupTest, ALibrarysPathIsShorterThan250) {
  for (const std::size_t length : {249U, 250U}) {
    SCOPED_TRACE(length);
    const TCoreTree tree(length);
    ASSERT_EQ(length, (tree.Folder() + kLibrary).size());
    const std::string started = std::string(kSpeaks) + "level 2, " + kSchema;
    const std::string refused =
        "VSK_Core: [Error] VSK core failed initialization!\n" + std::string(kSpeaks) + "level 2\n";
    EXPECT_EQ(length < 250 ? started : refused, tree.Start());
  }
}

TEST(StartupDeathTest, AStartThatFailsSaysSoAndIsReported) {
  const auto start = [](const char* library) {
    std::_Exit(vsk::detail::AttachCore(library) ? 1 : 7);
  };
  const std::string failed = "VSK_Core: \\[Error\\] VSK core failed initialization";
  EXPECT_EXIT(start(""), testing::ExitedWithCode(7), failed + "!\n$");
  EXPECT_EXIT(start("/nowhere/library"), testing::ExitedWithCode(7),
              failed + ": vskStatusFileNotFound \\(/nowhere/data/core.properties.xml\\)\n$");
}

}  // namespace
