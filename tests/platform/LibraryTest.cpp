#include <dlfcn.h>
#include <gtest/gtest.h>
#include <stdlib.h>
#include <unistd.h>
#include <vskcore/platform/TOSSpecific.h>

#include <cstdio>

#include "platform/LibraryPath.h"
#include "support/StatusOf.h"
#include "support/TLogCapture.h"
#include "support/TTempDir.h"

using std::string;
using vsk::detail::LibraryPath;

namespace {

const char* const kSampleVariable = "VSK_TEST_SAMPLE_LIBRARY";

class TLibraryTest : public testing::Test {
 protected:
  ~TLibraryTest() override { unsetenv(kSampleVariable); }

  // A library that the process does not have yet. Being loaded, it leaves one of its addresses in
  // the variable.
  void MakeSample() {
    std::filesystem::copy_file(VSK_TEST_SAMPLE_LIBRARY, temp.Path("sample.pi.so"));
  }
  const void* Address() {
    void* address = nullptr;
    if (const char* text = getenv(kSampleVariable)) std::sscanf(text, "%p", &address);
    return address;
  }

  TTempDir temp;
  TLogCapture log;
};

TEST_F(TLibraryTest, LoadRunsTheInitialisationAndPathKeepsLinks) {
  MakeSample();
  temp.MakeLink("other name.so", "sample.pi.so");
  TOSSpecific::LoadPluginLibrary(temp.Path("other name.so"));
  ASSERT_NE(nullptr, Address());
  EXPECT_EQ(temp.Path("other name.so"), LibraryPath(Address()));
  EXPECT_EQ("", log.Take());
}

TEST_F(TLibraryTest, BareNameIsAFileOfTheCurrentDirectory) {
  MakeSample();
  const string before = TOSSpecific::GetCurrentDir();
  ASSERT_EQ(0, chdir(temp.Path().c_str()));
  EXPECT_EQ(vskStatusOK, StatusOf([] { TOSSpecific::LoadPluginLibrary("sample.pi.so"); }));
  EXPECT_EQ(TOSSpecific::GetCurrentDir() + "/sample.pi.so", LibraryPath(Address()));
  std::filesystem::create_directory("gone");
  std::filesystem::current_path("gone");
  std::filesystem::remove("../gone");
  EXPECT_EQ("", LibraryPath(Address()));
  ASSERT_EQ(0, chdir(before.c_str()));
}

TEST_F(TLibraryTest, RefusalIsExplainedForDebugging) {
  for (const string& path : {temp.Path("missing.pi.so"), temp.MakeFile("text.pi.so", "no library"),
                             temp.Path(), string(), string("libc.so.6")}) {
    EXPECT_EQ(vskStatusFileSystemError, StatusOf([&] { TOSSpecific::LoadPluginLibrary(path); }));
    EXPECT_EQ("[3] ", log.Take().substr(0, 4)) << path;
  }
}

TEST_F(TLibraryTest, PathOfWhatNoLibraryHoldsIsEmpty) {
  const int local = 0;
  EXPECT_EQ("", LibraryPath(&local));
  EXPECT_EQ("", LibraryPath(nullptr));
}

}  // namespace
