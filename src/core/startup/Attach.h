// What happens while the loader maps the library.
#ifndef VSKCORE_SRC_CORE_STARTUP_ATTACH_H
#define VSKCORE_SRC_CORE_STARTUP_ATTACH_H

#include <string>

namespace vsk::detail {

// Starts the core of the library at that path; called once, by the loader. libraryPath is absolute.
// False, after an error in the log that says what failed and where, when there is no path, when it
// has 250 characters or more, or when anything is thrown on the way. Nothing is undone then:
// TRootObject hands out what was created until there. Throws nothing.
bool AttachCore(const std::string& libraryPath) noexcept;

// Sets the log's threshold from the environment and starts the managers. The folder is the
// library's own. True once all is done; what StartManagers throws passes on.
bool InitializeCore(std::string folder);

}  // namespace vsk::detail

#endif
