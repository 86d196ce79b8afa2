// Where a loaded library lies.
#ifndef VSKCORE_SRC_PLATFORM_LIBRARYPATH_H
#define VSKCORE_SRC_PLATFORM_LIBRARYPATH_H

#include <string>

namespace vsk::detail {

// The path of the library or program that holds an address of this process: absolute, by the name
// under which the loader opened it, symbolic links left in place. Ask while the library is being
// loaded: a relative name counts from the current directory. "" when it is unknown.
std::string LibraryPath(const void* addressInside);

}  // namespace vsk::detail

#endif
