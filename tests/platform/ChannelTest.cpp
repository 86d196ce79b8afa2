// The debug channel and the keyboard, each with something else in place of the standard stream.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <stdlib.h>
#include <sys/socket.h>
#include <termios.h>
#include <unistd.h>
#include <vskcore/platform/TOSSpecific.h>

#include <string>
#include <thread>

#include "support/TRedirect.h"

using std::string;

namespace {

// Two ends that are closed together, unless a test closes one before.
struct TEnds {
  ~TEnds() {
    Close(0);
    Close(1);
  }
  void Close(int end) {
    if (ends[end] != -1) close(ends[end]);
    ends[end] = -1;
  }

  int ends[2] = {-1, -1};
};

string ReadToEnd(int descriptor) {
  string all;
  char buffer[4096];
  for (ssize_t got; (got = read(descriptor, buffer, sizeof buffer)) > 0;) {
    all.append(buffer, static_cast<std::size_t>(got));
  }
  return all;
}

TEST(TOSSpecificDebugChannel, EachLineIsOneWrite) {
  TEnds sockets;  // that keep writes apart
  ASSERT_EQ(0, socketpair(AF_UNIX, SOCK_DGRAM, 0, sockets.ends));
  {
    const TRedirect redirect(STDERR_FILENO, sockets.ends[1]);
    TOSSpecific::OutputLogString("first line\n");
    TOSSpecific::OutputLogString("");
    TOSSpecific::OutputLogString(string("se\0cond\n", 8));
  }
  char buffer[64];
  EXPECT_EQ(11, recv(sockets.ends[0], buffer, sizeof buffer, MSG_DONTWAIT));
  EXPECT_EQ(8, recv(sockets.ends[0], buffer, sizeof buffer, MSG_DONTWAIT));
  EXPECT_EQ(-1, recv(sockets.ends[0], buffer, sizeof buffer, MSG_DONTWAIT));
}

TEST(TOSSpecificDebugChannel, FullChannelTakesTheWholeLineInPieces) {
  TEnds pipe;
  ASSERT_EQ(0, pipe2(pipe.ends, O_CLOEXEC));
  ASSERT_EQ(0, fcntl(pipe.ends[1], F_SETFL, O_NONBLOCK));
  string line;
  for (int i = 0; line.size() < 300000; ++i) line += std::to_string(i);
  string got;
  std::thread reader([&] { got = ReadToEnd(pipe.ends[0]); });
  {
    const TRedirect redirect(STDERR_FILENO, pipe.ends[1]);
    pipe.Close(1);
    TOSSpecific::OutputLogString(line);
  }
  reader.join();
  EXPECT_TRUE(line == got);
}

TEST(TOSSpecificDebugChannel, LostReaderCostsTheLineOnly) {
  TEnds pipe;
  ASSERT_EQ(0, pipe2(pipe.ends, O_CLOEXEC));
  pipe.Close(0);
  const TRedirect redirect(STDERR_FILENO, pipe.ends[1]);
  sigset_t signals;
  TOSSpecific::OutputLogString("nobody reads this\n");
  ASSERT_EQ(0, sigpending(&signals));
  EXPECT_EQ(0, sigismember(&signals, SIGPIPE));
  ASSERT_EQ(0, pthread_sigmask(SIG_BLOCK, nullptr, &signals));
  EXPECT_EQ(0, sigismember(&signals, SIGPIPE));

  const sigset_t before = signals;  // with one of the host's own, held back by it
  sigaddset(&signals, SIGPIPE);
  ASSERT_EQ(0, pthread_sigmask(SIG_BLOCK, &signals, nullptr));
  raise(SIGPIPE);
  TOSSpecific::OutputLogString("nor this\n");
  ASSERT_EQ(0, sigpending(&signals));
  EXPECT_EQ(1, sigismember(&signals, SIGPIPE));
  const auto handler = signal(SIGPIPE, SIG_IGN);  // drops it
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
  signal(SIGPIPE, handler);
}

TEST(TOSSpecificKeyboard, WorksWithoutATerminal) {
  TEnds pipe;
  ASSERT_EQ(0, pipe2(pipe.ends, O_CLOEXEC));
  const TRedirect redirect(STDIN_FILENO, pipe.ends[0]);
  EXPECT_FALSE(TOSSpecific::IsKeyWaiting());
  ASSERT_EQ(2, write(pipe.ends[1], "q\xe4", 2));
  EXPECT_TRUE(TOSSpecific::IsKeyWaiting());
  EXPECT_EQ('q', TOSSpecific::GetKeyboardChar());
  EXPECT_EQ(0xe4, TOSSpecific::GetKeyboardChar());
  EXPECT_FALSE(TOSSpecific::IsKeyWaiting());
  pipe.Close(1);
  EXPECT_FALSE(TOSSpecific::IsKeyWaiting());
  EXPECT_EQ(-1, TOSSpecific::GetKeyboardChar());
}

TEST(TOSSpecificKeyboard, TerminalGivesKeysAtOnceAndUnseen) {
  TEnds terminal;
  terminal.ends[0] = posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
  if (terminal.ends[0] == -1) GTEST_SKIP() << "no pseudo terminals here";
  ASSERT_EQ(0, grantpt(terminal.ends[0]));
  ASSERT_EQ(0, unlockpt(terminal.ends[0]));
  terminal.ends[1] = open(ptsname(terminal.ends[0]), O_RDWR | O_NOCTTY | O_CLOEXEC);
  ASSERT_NE(-1, terminal.ends[1]);
  const TRedirect redirect(STDIN_FILENO, terminal.ends[1]);
  termios settings;
  ASSERT_EQ(0, tcgetattr(terminal.ends[1], &settings));
  ASSERT_TRUE((settings.c_lflag & ECHO) != 0 && (settings.c_lflag & ICANON) != 0);
  const tcflag_t before = settings.c_lflag;

  EXPECT_FALSE(TOSSpecific::IsKeyWaiting());
  int key = 0;
  std::thread reader([&] { key = TOSSpecific::GetKeyboardChar(); });
  do {
    std::this_thread::yield();
    tcgetattr(terminal.ends[1], &settings);
  } while ((settings.c_lflag & ECHO) != 0);
  EXPECT_EQ(1, write(terminal.ends[0], "k", 1));
  reader.join();
  EXPECT_EQ('k', key);
  fcntl(terminal.ends[0], F_SETFL, O_NONBLOCK);
  char echo;
  EXPECT_EQ(-1, read(terminal.ends[0], &echo, 1));
  ASSERT_EQ(0, tcgetattr(terminal.ends[1], &settings));
  EXPECT_EQ(before, settings.c_lflag);

  EXPECT_EQ(1, write(terminal.ends[0], "w", 1));  // no line is complete
  EXPECT_TRUE(TOSSpecific::IsKeyWaiting());
  EXPECT_EQ('w', TOSSpecific::GetKeyboardChar());
}

}  // namespace
