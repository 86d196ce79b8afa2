// Files and directories.
#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vskcore/core/TVSKException.h>
#include <vskcore/platform/TOSSpecific.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

#include "platform/posix/Errno.h"
#include "platform/posix/TFileDescriptor.h"

using std::string;
using std::vector;
using vsk::detail::StatusFromErrno;
using vsk::detail::TFileDescriptor;
using vsk::detail::ThrowErrno;
using vsk::detail::Uninterrupted;

namespace {

struct TCloseDir {
  void operator()(DIR* dir) const { closedir(dir); }
};

struct TFree {
  void operator()(char* text) const { std::free(text); }
};

// What the path names; false when it leads nowhere.
bool GetStatus(const string& path, struct stat& status) {
  if (stat(path.c_str(), &status) == 0) return true;
  if (StatusFromErrno(errno) != vskStatusFileNotFound) ThrowErrno();
  return false;
}

// All names but "." and "..", in the directory's own order. An entry's path is this one, a
// separator and the name, so what is listed is what stands behind a separator: for "", the root.
vector<string> ReadDir(const string& path) {
  const std::unique_ptr<DIR, TCloseDir> dir(opendir((path + TOSSpecific::kFileSeparator).c_str()));
  if (!dir) ThrowErrno();
  vector<string> names;
  errno = 0;
  while (const dirent* entry = readdir(dir.get())) {
    const string name = entry->d_name;
    if (name != "." && name != "..") names.push_back(name);
    errno = 0;
  }
  if (errno != 0) ThrowErrno();
  return names;
}

bool EndsWith(const string& text, const string& end) {
  return text.size() >= end.size() && text.compare(text.size() - end.size(), end.size(), end) == 0;
}

// The names, sorted, that pass the filter.
template <typename TFilter>
vector<string> SortedNames(const string& path, TFilter passes) {
  vector<string> names = ReadDir(path);
  names.erase(
      std::remove_if(names.begin(), names.end(), [&](const string& name) { return !passes(name); }),
      names.end());
  std::sort(names.begin(), names.end());
  return names;
}

// Whether an entry of a directory is one itself or a link to one. A link that leads nowhere or in
// a circle is none.
bool LeadsToDirectory(const string& path) {
  struct stat status;
  if (stat(path.c_str(), &status) == 0) return S_ISDIR(status.st_mode);
  if (errno != ELOOP && StatusFromErrno(errno) != vskStatusFileNotFound) ThrowErrno();
  return false;
}

struct stat StatusOf(const TFileDescriptor& file) {
  struct stat status;
  if (fstat(file.Get(), &status) != 0) ThrowErrno();
  return status;
}

[[noreturn]] void ThrowCopyError() { ThrowErrno({vskStatusAccessDenied}); }

TFileDescriptor OpenForCopy(const string& path, int flags, mode_t mode = 0) {
  TFileDescriptor file(
      Uninterrupted([&] { return open(path.c_str(), flags | O_CLOEXEC | O_NOCTTY, mode); }));
  if (!file.IsOpen()) ThrowCopyError();
  return file;
}

void WriteAll(const TFileDescriptor& to, const char* data, std::size_t length) {
  while (length > 0) {
    const ssize_t written = Uninterrupted([&] { return write(to.Get(), data, length); });
    if (written < 0) ThrowCopyError();
    data += written;
    length -= static_cast<std::size_t>(written);
  }
}

void CopyContent(const TFileDescriptor& from, const TFileDescriptor& to) {
  vector<char> buffer(64 * 1024);
  for (;;) {
    const ssize_t got =
        Uninterrupted([&] { return read(from.Get(), buffer.data(), buffer.size()); });
    if (got < 0) ThrowCopyError();
    if (got == 0) return;
    WriteAll(to, buffer.data(), static_cast<std::size_t>(got));
  }
}

}  // namespace

void TOSSpecific::CreateDir(string path) {
  if (mkdir(path.c_str(), 0777) == 0) return;
  ThrowErrno({vskStatusDirectoryAlreadyExists, vskStatusAccessDenied});
}

bool TOSSpecific::DirExists(string path) {
  struct stat status;
  return GetStatus(path, status) && S_ISDIR(status.st_mode);
}

bool TOSSpecific::FileExists(string path) {
  struct stat status;
  return GetStatus(path, status) && !S_ISDIR(status.st_mode);
}

void TOSSpecific::FileCopy(string from, string to) {
  const TFileDescriptor source = OpenForCopy(from, O_RDONLY);
  const struct stat sourceStatus = StatusOf(source);
  // It opens but can't be read: told before there is a target to spoil.
  if (S_ISDIR(sourceStatus.st_mode)) throw TVSKException(vskStatusAccessDenied);
  // Emptied only once it is known to be another file than the source.
  TFileDescriptor target = OpenForCopy(to, O_WRONLY | O_CREAT, sourceStatus.st_mode & 0777);
  const struct stat targetStatus = StatusOf(target);
  if (sourceStatus.st_dev == targetStatus.st_dev && sourceStatus.st_ino == targetStatus.st_ino) {
    return;
  }
  if (S_ISREG(targetStatus.st_mode) && ftruncate(target.Get(), 0) != 0) ThrowCopyError();
  CopyContent(source, target);
  if (!target.Close()) ThrowCopyError();
}

std::uint64_t TOSSpecific::GetFileSize(string path) {
  struct stat status;
  if (!GetStatus(path, status) || S_ISDIR(status.st_mode)) {
    throw TVSKException(vskStatusFileNotFound);
  }
  return static_cast<std::uint64_t>(status.st_size);
}

string TOSSpecific::GetCurrentDir() {
  const std::unique_ptr<char, TFree> path(getcwd(nullptr, 0));
  if (!path) ThrowErrno();
  return path.get();
}

vector<string> TOSSpecific::ListDir(string path) {
  return SortedNames(path, [](const string& name) { return name[0] != '.'; });
}

vector<string> TOSSpecific::FindPlugins(string dir) {
  vector<string> found;
  for (const string& folder : ListDir(dir)) {
    const string sub = dir + kFileSeparator + folder;
    if (!LeadsToDirectory(sub)) continue;
    const auto isPlugin = [](const string& name) { return EndsWith(name, kPluginExtension); };
    for (const string& name : SortedNames(sub, isPlugin)) {
      found.push_back(sub + kFileSeparator + name);
    }
  }
  return found;
}
