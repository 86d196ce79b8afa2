// System errors as status codes.
#ifndef VSKCORE_SRC_PLATFORM_POSIX_ERRNO_H
#define VSKCORE_SRC_PLATFORM_POSIX_ERRNO_H

#include <vskcore/core/vskStatus.h>

#include <cerrno>
#include <initializer_list>

namespace vsk::detail {

// vskStatusFileNotFound when the path leads nowhere, vskStatusDirectoryAlreadyExists,
// vskStatusAccessDenied, or vskStatusFileSystemError for every other error.
vskStatus StatusFromErrno(int error);

// Throws the status of errno when the operation offers it, otherwise vskStatusFileSystemError.
[[noreturn]] void ThrowErrno(std::initializer_list<vskStatus> offered = {});

// Makes a system call again as long as a signal interrupts it.
template <typename TCall>
auto Uninterrupted(TCall call) {
  auto result = call();
  while (result == -1 && errno == EINTR) result = call();
  return result;
}

}  // namespace vsk::detail

#endif
