// What several threads may do at once. The thread sanitizer sees a race here even where it did no
// harm.
#include <gtest/gtest.h>
#include <stdlib.h>
#include <vskcore/model/TCIMDateTime.h>
#include <vskcore/model/TCIMValue.h>
#include <vskcore/model/TContainer.h>
#include <vskcore/platform/TOSSpecific.h>

#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "ContainerWalk.h"
#include "FuzzSupport.h"
#include "support/Picture.h"
#include "support/StatusOf.h"
#include "support/TLogCapture.h"
#include "support/TTempDir.h"
#include "support/TZone.h"

using std::string;
using std::vector;

namespace {

using TType = TCIMValue::TCIMType;

constexpr int kThreads = 4;

// What body gives on each of the threads; it is told the thread's number.
template <typename TBody>
vector<string> AtOnce(const TBody& body) {
  vector<string> results(kThreads);
  vector<std::thread> threads;
  for (int i = 0; i < kThreads; ++i) {
    threads.emplace_back([&body, &result = results[static_cast<std::size_t>(i)], i] {
      for (int round = 0; round < 3; ++round) result = body(i);
    });
  }
  for (std::thread& thread : threads) thread.join();
  return results;
}

// The log is not among what may run at once: its threshold drops what is logged meanwhile. Without
// a zone of its own the process would have the C library set up the system's at each call, behind a
// lock that the sanitizer doesn't know.
class ThreadTest : public testing::Test {
 protected:
  TLogCapture log{-1};
  TZone zone{"UTC0"};
  TTempDir temp;
};

// What a request holds was collected when it was read, which each thread does at its own time.
string WithoutTimes(string picture) {
  const string mark = "DateTimeOfCollection=";
  for (auto at = picture.find(mark + "2"); at != string::npos; at = picture.find(mark + "2", at)) {
    picture.erase(at + mark.size(), 25);
  }
  return picture;
}

// Loads the document into a container, uses and removes everything, and tells what there was.
string UseUp(const string& path) {
  TContainer container;
  DeclareQualifiers(container);
  const vskStatus status = StatusOf([&] { container.PopulateContainerFromFile(path); });
  const string loaded = WithoutTimes(Picture(container));
  WalkContainer(container);
  Dismantle(container);
  return std::to_string(status) + ": " + loaded + "\n" + Picture(container) + "\n";
}

string UseUpAll() {
  string pictures;
  for (const string& name : TOSSpecific::ListDir(VSK_TEST_DOCUMENTS)) {
    pictures += UseUp(string(VSK_TEST_DOCUMENTS "/") + name);
  }
  return pictures;
}

TEST_F(ThreadTest, ContainersKnowNothingOfEachOther) {
  const string alone = UseUpAll();
  EXPECT_NE(string::npos, alone.find("From=<Fan.Id=\"f\">"));
  for (const string& picture : AtOnce([](int) { return UseUpAll(); })) EXPECT_EQ(alone, picture);
}

TEST_F(ThreadTest, CopiesOfAValueAreIndependent) {
  const TCIMValue texts(TType::cimString, 0, {TCIMValue("first"), TCIMValue("second")});
  const vector<TCIMValue> copies(kThreads, texts);
  const vector<string> pictures = AtOnce([&](int i) {
    TCIMValue copy = copies[static_cast<std::size_t>(i)];
    vector<TCIMValue>& elements = copy;
    elements[0].Set(std::to_string(i));
    return copy.ToString(10);
  });
  const vector<string> expected = {"{ 0, second }", "{ 1, second }", "{ 2, second }",
                                   "{ 3, second }"};
  EXPECT_EQ(expected, pictures);
  EXPECT_EQ("{ first, second }", texts.ToString(10));
}

TEST_F(ThreadTest, DateTimesAreIndependent) {
  const vector<string> sums = AtOnce([](int i) {
    const auto hour = static_cast<unsigned short>(i);
    const TCIMDateTime begin(2001, 2, 28, hour, 59, 59, 0, 0);
    TCIMDateTime sum;
    for (int times = 0; times < 1000; ++times) sum = begin + TCIMDateTime(0, 0, 0, 1, 0);
    return sum.ToString();
  });
  const vector<string> expected = {"20010228010000.000000+000", "20010228020000.000000+000",
                                   "20010228030000.000000+000", "20010228040000.000000+000"};
  EXPECT_EQ(expected, sums);
}

TEST_F(ThreadTest, EveryOperationOfThePlatform) {
  setenv("ftp_proxy", "http://127.0.0.1:1", 1);  // nobody listens there
  const string library = "folder/some.pi.so";
  const string text = "some text";
  const auto use = [&](int i) {
    const string folder = temp.Path(std::to_string(i));
    const string path = folder + "/" + library;
    TOSSpecific::FileCopy(path, folder + "/copy");
    TOSSpecific::USleep(1);
    TOSSpecific::OutputLogString("");
    const TCIMDateTime time = TOSSpecific::GetLocalTime();
    const bool named = TOSSpecific::GetOperatingSystemName() == TOSSpecific::GetMachineName() &&
                       !TOSSpecific::GetCurrentDir().empty();
    const bool there = TOSSpecific::DirExists(folder) && !TOSSpecific::FileExists(folder + "/no");
    const vector<vskStatus> refused = {
        StatusOf([&] { TOSSpecific::LoadPluginLibrary(path); }),
        StatusOf([&] { TOSSpecific::CaptureFile(folder + "/no"); }),
        StatusOf([&] { TOSSpecific::FTPFile(path, "name"); }),
    };
    EXPECT_EQ((vector<vskStatus>{vskStatusFileSystemError, vskStatusFileNotFound,
                                 vskStatusConnectionFailed}),
              refused);
    EXPECT_TRUE(named && there && !(TOSSpecific::GetLocalTime() < time));
    EXPECT_EQ((vector<string>{"copy", "folder"}), TOSSpecific::ListDir(folder));
    EXPECT_EQ(vector<string>{path}, TOSSpecific::FindPlugins(folder));
    EXPECT_EQ(text.size(), TOSSpecific::GetFileSize(folder + "/copy"));
    return TOSSpecific::CaptureFile(folder + "/copy") +
           TOSSpecific::SpawnProcess("echo", {std::to_string(i)});
  };
  for (int i = 0; i < kThreads; ++i) temp.MakeFile(std::to_string(i) + "/" + library, text);
  EXPECT_EQ((vector<string>{text + "0\n", text + "1\n", text + "2\n", text + "3\n"}), AtOnce(use));
  unsetenv("ftp_proxy");
}

}  // namespace
