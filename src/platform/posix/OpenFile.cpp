#include "platform/posix/OpenFile.h"

#include <fcntl.h>
#include <sys/stat.h>

#include "platform/posix/Errno.h"

vsk::detail::TFileDescriptor vsk::detail::OpenFile(const std::string& path) {
  TFileDescriptor file(
      Uninterrupted([&] { return open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY); }));
  struct stat status;
  const bool hasContent =
      file.IsOpen() && fstat(file.Get(), &status) == 0 && !S_ISDIR(status.st_mode);
  return hasContent ? std::move(file) : TFileDescriptor();
}
