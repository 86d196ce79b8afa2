// Standard error as the debug channel.
#include <poll.h>
#include <signal.h>
#include <unistd.h>
#include <vskcore/platform/TOSSpecific.h>

#include "platform/posix/Errno.h"

using vsk::detail::Uninterrupted;

namespace {

// While it lives, a reader that went away costs the line and not the process: SIGPIPE is held
// back in this thread, and one that a write raised is taken out again at the end.
class TSigPipeHold {
 public:
  TSigPipeHold() {
    sigemptyset(&pipe_);
    sigaddset(&pipe_, SIGPIPE);
    sigset_t pending;
    sigpending(&pending);
    wasPending_ = sigismember(&pending, SIGPIPE) == 1;
    pthread_sigmask(SIG_BLOCK, &pipe_, &before_);
  }
  ~TSigPipeHold() {
    if (raised_ && !wasPending_) {
      const timespec now = {0, 0};
      Uninterrupted([&] { return sigtimedwait(&pipe_, nullptr, &now); });
    }
    pthread_sigmask(SIG_SETMASK, &before_, nullptr);
  }
  TSigPipeHold(const TSigPipeHold&) = delete;
  TSigPipeHold& operator=(const TSigPipeHold&) = delete;

  void SetRaised() { raised_ = true; }

 private:
  sigset_t pipe_;
  sigset_t before_;
  bool wasPending_;
  bool raised_ = false;
};

// Whether to try again: the channel was full and is free now.
bool WaitUntilFree() {
  pollfd channel = {STDERR_FILENO, POLLOUT, 0};
  return errno == EAGAIN && Uninterrupted([&] { return poll(&channel, 1, -1); }) == 1 &&
         (channel.revents & POLLOUT) != 0;
}

}  // namespace

void TOSSpecific::OutputLogString(std::string text) {
  TSigPipeHold hold;
  const char* rest = text.data();
  std::size_t length = text.size();
  while (length > 0) {
    const ssize_t written = Uninterrupted([&] { return write(STDERR_FILENO, rest, length); });
    if (written >= 0) {
      rest += written;
      length -= static_cast<std::size_t>(written);
    } else if (!WaitUntilFree()) {
      if (errno == EPIPE) hold.SetRaised();
      return;
    }
  }
}
