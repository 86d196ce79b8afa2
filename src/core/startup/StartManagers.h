// The last of the start: the managers and the core's own document.
#ifndef VSKCORE_SRC_CORE_STARTUP_STARTMANAGERS_H
#define VSKCORE_SRC_CORE_STARTUP_STARTMANAGERS_H

#include <string>

namespace vsk::detail {

// Creates the plug-in manager with the container inside it, reads the core's document into that,
// and creates the query manager. The order is fixed: what reading the document throws passes on,
// and leaves a plug-in manager without a query manager.
void StartManagers(const std::string& folder);

// Where the core's document lies, beside the library in that folder.
std::string CoreDocumentPath(const std::string& folder);

}  // namespace vsk::detail

#endif
