// The keyboard, read key by key.
#include <poll.h>
#include <termios.h>
#include <unistd.h>
#include <vskcore/platform/TOSSpecific.h>

#include "platform/posix/Errno.h"

using vsk::detail::Uninterrupted;

namespace {

// While it lives, the terminal on standard input gives each key at once and shows none. Does
// nothing where there is no terminal, or where it belongs to another job: changing its settings
// from the background would stop the process.
class TKeyMode {
 public:
  TKeyMode() : active_(!IsOtherJobs() && tcgetattr(STDIN_FILENO, &before_) == 0) {
    if (!active_) return;
    termios keys = before_;
    keys.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO);
    keys.c_cc[VMIN] = 1;
    keys.c_cc[VTIME] = 0;
    Set(keys);
  }
  ~TKeyMode() {
    if (active_) Set(before_);
  }
  TKeyMode(const TKeyMode&) = delete;
  TKeyMode& operator=(const TKeyMode&) = delete;

 private:
  static bool IsOtherJobs() {
    const pid_t job = tcgetpgrp(STDIN_FILENO);
    return job != -1 && job != getpgrp();
  }
  static void Set(const termios& settings) {
    Uninterrupted([&] { return tcsetattr(STDIN_FILENO, TCSANOW, &settings); });
  }

  termios before_ = {};
  bool active_;
};

// Whether standard input has something to read within the time; -1 waits without end.
bool HasInput(int milliseconds) {
  pollfd input = {STDIN_FILENO, POLLIN, 0};
  const int count = Uninterrupted([&] { return poll(&input, 1, milliseconds); });
  return count == 1 && (input.revents & POLLIN) != 0;
}

}  // namespace

bool TOSSpecific::IsKeyWaiting() {
  const TKeyMode mode;
  return HasInput(0);
}

int TOSSpecific::GetKeyboardChar() {
  const TKeyMode mode;
  unsigned char key = 0;
  if (!HasInput(-1)) return -1;
  return Uninterrupted([&] { return read(STDIN_FILENO, &key, 1); }) == 1 ? key : -1;
}
