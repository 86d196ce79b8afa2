#include "platform/posix/Errno.h"

#include <vskcore/core/TVSKException.h>

#include <algorithm>

namespace vsk::detail {

vskStatus StatusFromErrno(int error) {
  switch (error) {
    case ENOENT:
    case ENOTDIR:
      return vskStatusFileNotFound;
    case EEXIST:
      return vskStatusDirectoryAlreadyExists;
    case EACCES:
    case EPERM:
    case EROFS:
    case EISDIR:  // a directory where a file was to be read or written
      return vskStatusAccessDenied;
    default:
      return vskStatusFileSystemError;
  }
}

void ThrowErrno(std::initializer_list<vskStatus> offered) {
  const vskStatus status = StatusFromErrno(errno);
  const bool isOffered = std::find(offered.begin(), offered.end(), status) != offered.end();
  throw TVSKException(isOffered ? status : vskStatusFileSystemError);
}

}  // namespace vsk::detail
