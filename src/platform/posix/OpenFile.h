// Files opened for their content.
#ifndef VSKCORE_SRC_PLATFORM_POSIX_OPENFILE_H
#define VSKCORE_SRC_PLATFORM_POSIX_OPENFILE_H

#include <string>

#include "platform/posix/TFileDescriptor.h"

namespace vsk::detail {

// Opened to be read, close-on-exec. Holds nothing when that fails, and for a directory, which has
// no content to read.
TFileDescriptor OpenFile(const std::string& path);

}  // namespace vsk::detail

#endif
