// Which plug-ins there are.
#ifndef VSKCORE_HOST_PLUGINREPORT_H
#define VSKCORE_HOST_PLUGINREPORT_H

#include <string>

#include "Arguments.h"

// A block for each plug-in: name, version, type, path, whether it is initialised, and its classes.
// Collects nothing. Throws THostFailure when the core did not start.
std::string PluginReport(const TArguments& arguments);

#endif
