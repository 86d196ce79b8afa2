// What programs print, and what files hold, read whole.
#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#include <vskcore/core/TVSKException.h>
#include <vskcore/platform/TOSSpecific.h>

#include "core/base/Fail.h"
#include "platform/posix/Errno.h"
#include "platform/posix/OpenFile.h"
#include "platform/posix/TFileDescriptor.h"

using std::string;
using std::vector;
using vsk::detail::Fail;
using vsk::detail::LogError;
using vsk::detail::OpenFile;
using vsk::detail::TFileDescriptor;
using vsk::detail::Uninterrupted;

namespace {

struct TPipe {
  TFileDescriptor readEnd;
  TFileDescriptor writeEnd;
};

TPipe MakePipe(const string& name) {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) Fail(vskStatusFail, "ERROR: " + name + " pipe creation failed");
  return {TFileDescriptor(ends[0]), TFileDescriptor(ends[1])};
}

// Moves the child's end of a pipe above the standard descriptors. In a process that has closed its
// own, the end may be one of them, and be overwritten before the child has taken it.
void MoveUp(TFileDescriptor& end, const string& name) {
  TFileDescriptor moved(fcntl(end.Get(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
  if (!moved.IsOpen()) Fail(vskStatusFail, "ERROR: " + name + " DuplicateHandle failed");
  end = std::move(moved);
}

// A pipe that is at its end from the start, so that a child that reads it goes on.
TFileDescriptor MakeInput() {
  TPipe pipe = MakePipe("Stdin");
  MoveUp(pipe.readEnd, "Stdin");
  return std::move(pipe.readEnd);
}

TPipe MakeOutput() {
  TPipe pipe = MakePipe("Stdout");
  MoveUp(pipe.writeEnd, "Stdout");
  return pipe;
}

// The words of a command line, cut out in place, with the null pointer that ends such a list.
vector<char*> CutWords(string& line) {
  vector<char*> words;
  string::size_type at = 0;
  while ((at = line.find_first_not_of(' ', at)) != string::npos) {
    words.push_back(&line[at]);
    at = line.find(' ', at);
    if (at == string::npos) break;
    line[at++] = '\0';
  }
  words.push_back(nullptr);
  return words;
}

// Which descriptors a child gets for its own standard ones.
class TStandardStreams {
 public:
  TStandardStreams(const TFileDescriptor& input, const TFileDescriptor& output) {
    isReady_ = posix_spawn_file_actions_init(&actions_) == 0;
    isComplete_ = isReady_ && Add(input, STDIN_FILENO) && Add(output, STDOUT_FILENO) &&
                  Add(output, STDERR_FILENO);
  }
  ~TStandardStreams() {
    if (isReady_) posix_spawn_file_actions_destroy(&actions_);
  }
  TStandardStreams(const TStandardStreams&) = delete;
  TStandardStreams& operator=(const TStandardStreams&) = delete;

  // Null when memory was short.
  const posix_spawn_file_actions_t* Get() const { return isComplete_ ? &actions_ : nullptr; }

 private:
  bool Add(const TFileDescriptor& from, int to) {
    return posix_spawn_file_actions_adddup2(&actions_, from.Get(), to) == 0;
  }

  posix_spawn_file_actions_t actions_;
  bool isReady_;
  bool isComplete_;
};

// Signals reach a child as they would from a shell, whatever the host holds back for itself: its
// threads often block them all, and then nothing but SIGKILL would end the child. Of those that it
// ignores, a child needs two: one ends a writer whom nobody reads, one tells of children's ends.
class TSignalDefaults {
 public:
  TSignalDefaults() {
    isReady_ = posix_spawnattr_init(&attributes_) == 0;
    if (!isReady_) return;
    sigset_t signals;
    sigemptyset(&signals);
    posix_spawnattr_setsigmask(&attributes_, &signals);
    sigaddset(&signals, SIGPIPE);
    sigaddset(&signals, SIGCHLD);
    posix_spawnattr_setsigdefault(&attributes_, &signals);
    posix_spawnattr_setflags(&attributes_, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
  }
  ~TSignalDefaults() {
    if (isReady_) posix_spawnattr_destroy(&attributes_);
  }
  TSignalDefaults(const TSignalDefaults&) = delete;
  TSignalDefaults& operator=(const TSignalDefaults&) = delete;

  // Null when memory was short.
  const posix_spawnattr_t* Get() const { return isReady_ ? &attributes_ : nullptr; }

 private:
  posix_spawnattr_t attributes_;
  bool isReady_;
};

// A program that was started; its end is waited for at the end of this, so that none stays behind
// as a zombie.
class TChild {
 public:
  TChild() = default;
  ~TChild() {
    if (id_ != -1) Uninterrupted([&] { return waitpid(id_, nullptr, 0); });
  }
  TChild(const TChild&) = delete;
  TChild& operator=(const TChild&) = delete;

  // Whether it could be started. A zero byte would cut a word short unseen: refused.
  bool Start(string line, const TFileDescriptor& input, const TFileDescriptor& output) {
    if (line.find('\0') != string::npos) return false;
    const vector<char*> words = CutWords(line);
    const TStandardStreams streams(input, output);
    const TSignalDefaults signals;
    if (words[0] == nullptr || streams.Get() == nullptr || signals.Get() == nullptr) return false;
    pid_t id = -1;
    const int error =
        posix_spawnp(&id, words[0], streams.Get(), signals.Get(), words.data(), environ);
    if (error == 0) id_ = id;
    return error == 0;
  }

 private:
  pid_t id_ = -1;
};

bool IsPipe(int handle) {
  struct stat status;
  return fstat(handle, &status) == 0 && S_ISFIFO(status.st_mode);
}

// Reads on until nothing more comes; whether that was the end and no failure. Less than asked for
// means nothing: that is how a pipe gives what is there, and how the kernel's own files read.
bool ReadToEnd(int handle, string& content) {
  char buffer[16 * 1024];
  for (;;) {
    const ssize_t got = Uninterrupted([&] { return read(handle, buffer, sizeof buffer); });
    if (got <= 0) return got == 0;
    content.append(buffer, static_cast<std::size_t>(got));
  }
}

}  // namespace

string TOSSpecific::SpawnProcess(string command) { return SpawnProcess(command, {}); }

string TOSSpecific::SpawnProcess(string command, vector<string> arguments) {
  for (const string& argument : arguments) command += ' ' + argument;
  TChild child;  // ends after the pipes: what is waited for is never held up by a full one
  TPipe output = MakeOutput();
  const TFileDescriptor input = MakeInput();
  if (!child.Start(command, input, output.writeEnd)) LogError("ERROR: CreateProcess Failed");
  if (!output.writeEnd.Close()) LogError("ERROR: CloseHandle failed");
  return GetFileContents(output.readEnd.Get());
}

string TOSSpecific::CaptureFile(string path) {
  const TFileDescriptor file = OpenFile(path);
  if (!file.IsOpen()) {
    Fail(vskStatusFileNotFound, "ERROR: CaptureFile failed to open: " + path);
  }
  return GetFileContents(file.Get());
}

// The message belongs to a reader that takes pieces of 256 bytes, ends with the first that is not
// full, and for which an empty piece of a closed pipe is a failure, an empty one of a file is not.
string TOSSpecific::GetFileContents(int handle) {
  constexpr std::size_t pieceSize = 256;
  string content;
  const bool isRead = ReadToEnd(handle, content);
  const bool endsInEmptyPiece = content.size() % pieceSize == 0;
  if (!isRead || (endsInEmptyPiece && IsPipe(handle))) {
    LogError("ERROR: GetFileContents failed to read file");
  }
  return content;
}
