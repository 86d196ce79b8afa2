// Programs run for their output, and files captured.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vskcore/platform/TOSSpecific.h>

#include <algorithm>
#include <new>
#include <thread>

#include "support/StatusOf.h"
#include "support/TLogCapture.h"
#include "support/TRedirect.h"
#include "support/TTempDir.h"

using std::string;
using std::vector;

namespace {

const string kReader = "ERROR: GetFileContents failed to read file";
const string kNotStarted = "ERROR: CreateProcess Failed\n" + kReader;

// The open descriptors, or those of them that a program started here would inherit.
vector<int> Descriptors(bool inheritableOnly = false) {
  vector<int> open;
  for (int descriptor = 0; descriptor < 1024; ++descriptor) {
    const int flags = fcntl(descriptor, F_GETFD);
    if (flags == -1 || (inheritableOnly && (flags & FD_CLOEXEC) != 0)) continue;
    open.push_back(descriptor);
  }
  return open;
}

// Bytes of every value, zero among them.
string Bytes(std::size_t size) {
  string bytes(size, '\0');
  for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>(i * i / 5);
  return bytes;
}

// Every test ends as it began: no child left, alive or dead, and no descriptor.
class TProcessTest : public testing::Test {
 protected:
  ~TProcessTest() override {
    EXPECT_EQ(-1, waitpid(-1, nullptr, WNOHANG));
    EXPECT_EQ(ECHILD, errno);
    EXPECT_EQ(before, Descriptors());
  }

  // The output of a shell that runs these lines from a file.
  string Script(const string& lines) {
    return TOSSpecific::SpawnProcess("sh", {temp.MakeFile("script", lines)});
  }

  TTempDir temp;
  TLogCapture log;
  vector<int> before = Descriptors();
};

TEST_F(TProcessTest, BlanksAloneMakeWordsAndNoShellReadsThem) {
  const struct {
    const char* command;
    vector<string> arguments;
    const char* output;
  } rows[] = {
      {"printf <%s>", {}, "<>"},
      {"printf", {"<%s>", "a", "b c"}, "<a><b><c>"},
      {"  printf   <%s> x ", {"", " ", " y  z "}, "<x><y><z>"},
      {"printf", {"<%s>", "$HOME", "`id`", "$(id)", "*", "~"}, "<$HOME><`id`><$(id)><*><~>"},
      {"printf", {"<%s>", ";", "|", "&&", ">x", "#"}, "<;><|><&&><>x><#>"},
      {"printf", {"<%s>", "\"a b\"", "'c", "d'", "\\e"}, "<\"a><b\"><'c><d'><\\e>"},
      {"printf", {"<%s>", "t\tab", "li\nne", "\xc3\xbc"}, "<t\tab><li\nne><\xc3\xbc>"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(row.output, TOSSpecific::SpawnProcess(row.command, row.arguments)) << row.output;
  }
  EXPECT_EQ("one", TOSSpecific::SpawnProcess("printf one"));
}

// A reader of pieces of 256 bytes fails at the end of a pipe when its last piece was full, and the
// message stays; at the end of a file it does not fail.
TEST_F(TProcessTest, OutputAndFilesAreWhole) {
  for (const std::size_t size :
       {0u, 1u, 255u, 256u, 257u, 384u, 512u, 16384u, 65537u, 1048576u, 1048577u}) {
    SCOPED_TRACE(size);
    const string bytes = Bytes(size);
    const string path = temp.MakeFile("file", bytes);
    EXPECT_TRUE(bytes == TOSSpecific::CaptureFile(path));
    EXPECT_EQ("", log.Take());
    EXPECT_TRUE(bytes == TOSSpecific::SpawnProcess("cat", {path}));
    EXPECT_EQ(size % 256 == 0 ? kReader : "", log.Take());
  }
}

TEST_F(TProcessTest, BothOutputsAreMixedInTheirOrder) {
  EXPECT_EQ("a\nb\nc\nd\n", Script("echo a; echo b >&2; echo c; echo d >&2"));
}

TEST_F(TProcessTest, ChildThatReadsItsInputGoesOn) {
  EXPECT_EQ("", TOSSpecific::SpawnProcess("cat"));
  EXPECT_EQ(kReader, log.Take());
  EXPECT_EQ("released", Script("read line; read line; printf released"));
}

TEST_F(TProcessTest, FailingChildIsNoFailure) {
  EXPECT_EQ("x", Script("printf x; exit 3"));
  EXPECT_EQ("y", Script("printf y; kill -KILL $$"));
  EXPECT_EQ("", TOSSpecific::SpawnProcess("false"));
  EXPECT_EQ(kReader, log.Take());
}

TEST_F(TProcessTest, OutputBeyondAllMemoryLeavesNoChild) {
#ifdef VSK_TEST_SANITIZED
  GTEST_SKIP() << "the memory of a sanitizer can't be limited";
#endif
  const auto isReapedAtTheLimit = [] {
    const auto used = std::stoul(TOSSpecific::CaptureFile("/proc/self/statm")) *
                      static_cast<rlim_t>(sysconf(_SC_PAGESIZE));
    const rlimit limit = {used + (64 << 20), RLIM_INFINITY};
    if (setrlimit(RLIMIT_AS, &limit) != 0) return false;
    try {
      TOSSpecific::SpawnProcess("cat /dev/zero");
      return false;
    } catch (const std::bad_alloc&) {
      return waitpid(-1, nullptr, WNOHANG) == -1 && errno == ECHILD;
    }
  };
  EXPECT_EXIT(exit(isReapedAtTheLimit() ? 0 : 1), testing::ExitedWithCode(0), "");
}

TEST_F(TProcessTest, WhatCannotBeStartedIsLoggedAndEmpty) {
  const string plain = temp.MakeFile("plain", "text");
  temp.MakeFile("script", "echo ran by a shell after all");
  chmod(temp.Path("script").c_str(), 0755);
  for (const string& command :
       {temp.Path("missing"), string("vskcore-no-such-program"), temp.Path(), plain,
        temp.Path("script"), string(), string("   "), string("printf\0x", 8)}) {
    EXPECT_EQ("", TOSSpecific::SpawnProcess(command, {"argument"})) << command;
    EXPECT_EQ(kNotStarted, log.Take()) << command;
  }
}

TEST_F(TProcessTest, PipesThatCannotBeMadeFailByName) {
  const char* const rows[] = {
      "ERROR: Stdout pipe creation failed",   "ERROR: Stdout pipe creation failed",
      "ERROR: Stdout DuplicateHandle failed", "ERROR: Stdin pipe creation failed",
      "ERROR: Stdin DuplicateHandle failed",  "",
  };
  // Where objects are checked at run time, the first look at an exception takes a pipe itself.
  EXPECT_EQ(vskStatusFileNotFound, StatusOf([] { TOSSpecific::CaptureFile(""); }));
  log.Take();
  rlimit limit;
  ASSERT_EQ(0, getrlimit(RLIMIT_NOFILE, &limit));
  const rlimit lower = {static_cast<rlim_t>(before.back()) + 16, limit.rlim_max};
  ASSERT_EQ(0, setrlimit(RLIMIT_NOFILE, &lower));
  vector<int> taken;  // all but as many as the row allows
  for (int next; (next = fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, 3)) != -1;) taken.push_back(next);
  for (const string row : rows) {
    const auto run = [] { EXPECT_EQ("x", TOSSpecific::SpawnProcess("printf x")); };
    EXPECT_EQ(row.empty() ? vskStatusOK : vskStatusFail, StatusOf(run));
    EXPECT_EQ(row, log.Take());
    close(taken.back());
    taken.pop_back();
  }
  for (const int descriptor : taken) close(descriptor);
  ASSERT_EQ(0, setrlimit(RLIMIT_NOFILE, &limit));
}

// The listing has one descriptor of its own.
TEST_F(TProcessTest, ChildGetsThreeDescriptorsAndNoOtherOfOurs) {
  const string list = TOSSpecific::SpawnProcess("ls", {"/proc/self/fd"});
  EXPECT_EQ(Descriptors(true).size() + 1,
            static_cast<std::size_t>(std::count(list.begin(), list.end(), '\n')));
}

TEST_F(TProcessTest, HostWithoutStandardStreamsIsServedToo) {
  string output;
  {
    const TRedirect input(0, 0), standard(1, 1), error(2, 2);  // puts all three back
    for (int descriptor : {0, 1, 2}) close(descriptor);
    output = Script("cat; echo out; echo err >&2");
    for (int descriptor : {0, 1, 2}) EXPECT_EQ(-1, fcntl(descriptor, F_GETFD));
  }
  EXPECT_EQ("out\nerr\n", output);
}

TEST_F(TProcessTest, SignalsThatTheHostHoldsBackReachTheChild) {
  sigset_t all, mask;
  sigfillset(&all);
  ASSERT_EQ(0, pthread_sigmask(SIG_SETMASK, &all, &mask));
  const auto pipe = signal(SIGPIPE, SIG_IGN);
  EXPECT_EQ("x", Script("printf x; kill -TERM $$; echo survived"));
  EXPECT_EQ("y", Script("printf y; kill -PIPE $$; echo survived"));
  signal(SIGPIPE, pipe);
  ASSERT_EQ(0, pthread_sigmask(SIG_SETMASK, &mask, nullptr));
}

// The host's handlers may interrupt every call of the thread that waits for the child.
TEST_F(TProcessTest, SignalsToTheHostCutNothingShort) {
  struct sigaction interrupting = {}, usual;
  interrupting.sa_handler = [](int) {};
  ASSERT_EQ(0, sigaction(SIGUSR1, &interrupting, &usual));
  // A program in between gives the host the time to be back in its call.
  const string nudge = "for i in 1 2 3 4 5 6 7 8 9; do kill -USR1 $PPID; env true; done\n";
  EXPECT_EQ("ab", Script("printf a; " + nudge + "printf b"));
  EXPECT_EQ("c", Script("printf c; exec >&- 2>&-; " + nudge));
  EXPECT_EQ("", log.Take());
  ASSERT_EQ(0, sigaction(SIGUSR1, &usual, nullptr));
}

// What ignores its children can't wait for them: the child must not inherit that.
TEST_F(TProcessTest, HostThatIgnoresItsChildrenGetsTheOutput) {
  const auto child = signal(SIGCHLD, SIG_IGN);
  const string line = TOSSpecific::SpawnProcess("grep ^SigIgn: /proc/self/status");
  signal(SIGCHLD, child);
  ASSERT_EQ("SigIgn:", line.substr(0, 7));
  EXPECT_EQ(0u, std::stoull(line.substr(7), nullptr, 16) >> (SIGCHLD - 1) & 1);
}

TEST_F(TProcessTest, ThreadsDoNotDisturbEachOther) {
  vector<std::thread> threads;
  vector<int> failures(8);
  for (std::size_t number = 0; number < failures.size(); ++number) {
    threads.emplace_back([&, number] {
      const string bytes(number * 20000 + 1, static_cast<char>('a' + number));
      const string path = temp.MakeFile(std::to_string(number), bytes);
      for (int i = 0; i < 10; ++i) {
        failures[number] += TOSSpecific::SpawnProcess("cat", {path}) != bytes;
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(vector<int>(8), failures);
}

// Each piece is written once the one before was taken, so that each read comes short.
TEST_F(TProcessTest, ShortReadsAreNotTheEnd) {
  const string path = temp.Path("fifo");
  ASSERT_EQ(0, mkfifo(path.c_str(), 0600));
  std::thread writer([&] {
    const int fifo = open(path.c_str(), O_WRONLY | O_CLOEXEC);
    for (const string piece : {"one ", "two ", "three"}) {
      EXPECT_EQ(static_cast<ssize_t>(piece.size()), write(fifo, piece.data(), piece.size()));
      for (int waiting = 1; waiting != 0;) {
        EXPECT_EQ(0, ioctl(fifo, FIONREAD, &waiting));
        std::this_thread::yield();
      }
    }
    close(fifo);
  });
  EXPECT_EQ("one two three", TOSSpecific::CaptureFile(path));
  writer.join();
}

// They are 0 bytes long until they are read, and come by the page.
TEST_F(TProcessTest, FilesOfTheKernelAreWhole) {
  for (const char* path : {"/proc/self/mountinfo", "/proc/filesystems", "/proc/crypto"}) {
    if (!TOSSpecific::FileExists(path)) continue;
    std::ifstream file(path);
    const string expected{std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
    EXPECT_EQ(expected, TOSSpecific::CaptureFile(path));
    EXPECT_EQ(0u, TOSSpecific::GetFileSize(path));
  }
}

TEST_F(TProcessTest, CaptureOfWhatCannotBeOpenedOrRead) {
  const string file = temp.MakeFile("file", "text");
  for (const string& path : {temp.Path("missing"), temp.Path(), file + "/below", string()}) {
    EXPECT_EQ(vskStatusFileNotFound, StatusOf([&] { TOSSpecific::CaptureFile(path); }));
    EXPECT_EQ("ERROR: CaptureFile failed to open: " + path, log.Take());
  }
  EXPECT_EQ("", TOSSpecific::CaptureFile("/proc/self/mem"));  // its first page belongs to nobody
  EXPECT_EQ(kReader, log.Take());
}

}  // namespace
