#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vskcore/platform/TOSSpecific.h>

#include <algorithm>

#include "support/StatusOf.h"
#include "support/TTempDir.h"

using std::string;
using std::vector;

namespace {

// While it lives, the process has nobody's rights, even where the tests run as root.
class TWithoutRights {
 public:
  TWithoutRights() : wasRoot_(geteuid() == 0) {
    if (wasRoot_) active_ = seteuid(65534) == 0;
  }
  ~TWithoutRights() {
    if (wasRoot_) active_ = seteuid(0) != 0;
  }
  TWithoutRights(const TWithoutRights&) = delete;
  TWithoutRights& operator=(const TWithoutRights&) = delete;

  bool IsActive() const { return active_; }

 private:
  bool wasRoot_;
  bool active_ = true;
};

class TFilesTest : public testing::Test {
 protected:
  unsigned Mode(const string& path) {
    struct stat status = {};
    stat(path.c_str(), &status);
    return status.st_mode & 0777;
  }

  TTempDir temp;
};

TEST_F(TFilesTest, ExistenceTellsFilesFromDirectories) {
  const string dir = temp.MakeDir("folder");
  const string file = temp.MakeFile("folder/file");
  temp.MakeLink("circle", "circle");
  const struct {
    string path;
    bool isDir;
    bool isFile;
  } rows[] = {
      {dir, true, false},
      {file, false, true},
      {temp.MakeLink("to folder", dir), true, false},
      {temp.MakeLink("to file", file), false, true},
      {temp.MakeLink("to nothing", "missing"), false, false},
      {temp.Path("missing"), false, false},
      {temp.Path("missing/below"), false, false},
      {file + "/below", false, false},
      {"", false, false},
      {"/dev/null", false, true},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(row.isDir, TOSSpecific::DirExists(row.path)) << row.path;
    EXPECT_EQ(row.isFile, TOSSpecific::FileExists(row.path)) << row.path;
  }
  for (const string& path : {temp.Path("circle"), temp.Path(string(300, 'n'))}) {
    EXPECT_EQ(vskStatusFileSystemError, StatusOf([&] { TOSSpecific::DirExists(path); })) << path;
    EXPECT_EQ(vskStatusFileSystemError, StatusOf([&] { TOSSpecific::FileExists(path); })) << path;
    EXPECT_EQ(vskStatusFileSystemError, StatusOf([&] { TOSSpecific::GetFileSize(path); })) << path;
  }
}

TEST_F(TFilesTest, CreateDirMakesOneLevel) {
  const string dir = temp.Path("new");
  TOSSpecific::CreateDir(dir);
  EXPECT_TRUE(TOSSpecific::DirExists(dir));
  const string file = temp.MakeFile("file");
  for (const string& path : {dir, file}) {
    EXPECT_EQ(vskStatusDirectoryAlreadyExists, StatusOf([&] { TOSSpecific::CreateDir(path); }));
  }
  for (const string& path : {temp.Path("a/b"), file + "/b", string()}) {
    EXPECT_EQ(vskStatusFileSystemError, StatusOf([&] { TOSSpecific::CreateDir(path); })) << path;
  }
  chmod(dir.c_str(), 0555);
  const TWithoutRights nobody;
  if (!nobody.IsActive()) GTEST_SKIP() << "can't give up its rights here";
  EXPECT_EQ(vskStatusAccessDenied, StatusOf([&] { TOSSpecific::CreateDir(dir + "/sub"); }));
}

TEST_F(TFilesTest, FileSizeIsThatOfAFile) {
  EXPECT_EQ(0u, TOSSpecific::GetFileSize(temp.MakeFile("empty")));
  const string big = temp.MakeFile("big", "x");
  ASSERT_EQ(0, truncate(big.c_str(), 5000000017));
  EXPECT_EQ(5000000017u, TOSSpecific::GetFileSize(temp.MakeLink("link", big)));
  for (const string& path : {temp.Path(), temp.Path("missing"), big + "/below"}) {
    EXPECT_EQ(vskStatusFileNotFound, StatusOf([&] { TOSSpecific::GetFileSize(path); })) << path;
  }
}

TEST_F(TFilesTest, CopyBringsContentAndModeOfANewFile) {
  string content;
  for (int i = 0; i < 70001; ++i) content += static_cast<char>(i * 7);
  const string from = temp.MakeFile("from", content);
  chmod(from.c_str(), 0750);
  const mode_t mask = umask(0);
  TOSSpecific::FileCopy(from, temp.Path("to"));
  umask(mask);
  EXPECT_EQ(content, temp.Content("to"));
  EXPECT_EQ(0750u, Mode(temp.Path("to")));
  const string longer = temp.MakeFile("longer", content + content);
  chmod(longer.c_str(), 0640);
  TOSSpecific::FileCopy(from, longer);
  EXPECT_EQ(content, temp.Content("longer"));
  EXPECT_EQ(0640u, Mode(longer));
}

TEST_F(TFilesTest, CopyOntoItselfKeepsTheContent) {
  const string file = temp.MakeFile("file", "precious");
  ASSERT_EQ(0, link(file.c_str(), temp.Path("hard").c_str()));
  for (const string& other : {file, temp.Path("hard"), temp.MakeLink("soft", file)}) {
    TOSSpecific::FileCopy(file, other);
    TOSSpecific::FileCopy(other, file);
    EXPECT_EQ("precious", temp.Content("file")) << other;
  }
}

TEST_F(TFilesTest, CopyFailsByCause) {
  const string file = temp.MakeFile("file", "text");
  const string closed = temp.MakeFile("closed", "old");
  chmod(closed.c_str(), 0444);
  chmod(file.c_str(), 0666);
  chmod(temp.Path().c_str(), 0777);
  const struct {
    string from;
    string to;
    vskStatus status;
  } rows[] = {
      {temp.Path("missing"), temp.Path("new"), vskStatusFileSystemError},
      {file, temp.Path("missing/new"), vskStatusFileSystemError},
      {file, file + "/new", vskStatusFileSystemError},
      {file, temp.Path(), vskStatusAccessDenied},
      {temp.Path(), temp.Path("other"), vskStatusAccessDenied},
      {temp.Path(), file, vskStatusAccessDenied},
      {file, "/dev/full", vskStatusFileSystemError},
      {file, "/dev/null", vskStatusOK},  // what can't be emptied
      {file, closed, vskStatusAccessDenied},
  };
  const TWithoutRights nobody;
  for (const auto& row : rows) {
    if (row.to == closed && !nobody.IsActive()) continue;
    EXPECT_EQ(row.status, StatusOf([&] { TOSSpecific::FileCopy(row.from, row.to); })) << row.to;
  }
  EXPECT_FALSE(TOSSpecific::FileExists(temp.Path("new")));
  EXPECT_FALSE(TOSSpecific::FileExists(temp.Path("other")));
  EXPECT_EQ("text", temp.Content("file"));
  EXPECT_EQ("old", temp.Content("closed"));
}

TEST_F(TFilesTest, ListDirIsSortedAndLeavesDotsOut) {
  for (const char* name : {"b", "_z", "B", ".x", "a.d", "..y"}) temp.MakeFile(name);
  temp.MakeDir("Dir");
  EXPECT_EQ((vector<string>{"B", "Dir", "_z", "a.d", "b"}), TOSSpecific::ListDir(temp.Path()));
  EXPECT_EQ(vector<string>(), TOSSpecific::ListDir(temp.Path("Dir")));
  EXPECT_EQ(TOSSpecific::ListDir("/"), TOSSpecific::ListDir(""));
  for (const string& path : {temp.Path("missing"), temp.Path("b")}) {
    EXPECT_EQ(vskStatusFileSystemError, StatusOf([&] { TOSSpecific::ListDir(path); })) << path;
  }
}

TEST_F(TFilesTest, FindPluginsLooksOneLevelDown) {
  TTempDir elsewhere;
  elsewhere.MakeFile("far.pi.so");
  for (const char* name :
       {"top.pi.so", "cpu/cpu.pi.so", "cpu/CPU.PI.SO", "cpu/a.pi.so", "cpu/cpu.so", "cpu/.x.pi.so",
        "cpu/x.pi.so.1", "cpu/deep/deep.pi.so", ".hidden/h.pi.so", "Disk/disk.pi.so",
        "Disk/disk.properties.xml", "doc/readme"}) {
    temp.MakeFile(name);
  }
  temp.MakeDir("empty");
  temp.MakeLink("bus", elsewhere.Path());
  temp.MakeLink("broken", "missing");
  temp.MakeLink("circle", "circle");
  const vector<string> expected = {temp.Path("Disk/disk.pi.so"), temp.Path("bus/far.pi.so"),
                                   temp.Path("cpu/.x.pi.so"), temp.Path("cpu/a.pi.so"),
                                   temp.Path("cpu/cpu.pi.so")};
  EXPECT_EQ(expected, TOSSpecific::FindPlugins(temp.Path()));
  EXPECT_EQ(vector<string>(), TOSSpecific::FindPlugins(temp.Path(".hidden")));
  for (const string& path : {temp.Path("missing"), temp.Path("top.pi.so")}) {
    EXPECT_EQ(vskStatusFileSystemError, StatusOf([&] { TOSSpecific::FindPlugins(path); })) << path;
  }
}

TEST_F(TFilesTest, FindPluginsFailsOnAFolderThatItCannotRead) {
  temp.MakeFile("cpu/cpu.pi.so");
  const string closed = temp.MakeDir("closed");
  chmod(closed.c_str(), 0);
  const TWithoutRights nobody;
  if (!nobody.IsActive()) GTEST_SKIP() << "can't give up its rights here";
  EXPECT_EQ(vskStatusFileSystemError, StatusOf([&] { TOSSpecific::FindPlugins(temp.Path()); }));
}

TEST_F(TFilesTest, CurrentDirHasAnyLengthAndCanBeGone) {
  const string before = TOSSpecific::GetCurrentDir();
  string deep = std::filesystem::canonical(temp.Path()).string();
  ASSERT_EQ(0, chdir(deep.c_str()));
  for (int i = 0; i < 24; ++i) {
    const string name(200, 'd');
    ASSERT_EQ(0, mkdir(name.c_str(), 0777));
    ASSERT_EQ(0, chdir(name.c_str()));
    deep += "/" + name;
  }
  EXPECT_EQ(deep, TOSSpecific::GetCurrentDir());
  const string gone = temp.MakeDir("gone");
  ASSERT_EQ(0, chdir(gone.c_str()));
  ASSERT_EQ(0, rmdir(gone.c_str()));
  EXPECT_EQ(vskStatusFileSystemError, StatusOf([] { TOSSpecific::GetCurrentDir(); }));
  ASSERT_EQ(0, chdir(before.c_str()));
}

TEST(TOSSpecificNames, SpecificationPathEndsAtTheFirstExtension) {
  const struct {
    const char* plugin;
    const char* specification;
  } rows[] = {
      {"/p/sample/sample.pi.so", "/p/sample/sample.properties.xml"},
      {"/p/a.pi.so.d/b.pi.so", "/p/a.properties.xml"},
      {"sample.pi.so.7", "sample.properties.xml"},
      {".pi.so", ".properties.xml"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(row.specification, TOSSpecific::BuildSpecificationPath(row.plugin));
  }
  for (const char* path : {"", "sample.so", "sample.PI.SO", "sample.pi.dll"}) {
    EXPECT_EQ(vskStatusFail, StatusOf([&] { TOSSpecific::BuildSpecificationPath(path); })) << path;
  }
}

}  // namespace
