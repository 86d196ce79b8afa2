// Which machine this is, in a few lines.
#ifndef VSKCORE_HOST_IDENTITYREPORT_H
#define VSKCORE_HOST_IDENTITYREPORT_H

#include <string>

#include "Arguments.h"

// Collects the classes that tell, and gives a line for each answer; where there is none, the line
// says why. Throws THostFailure when the core did not start.
std::string IdentityReport(const TArguments& arguments);

#endif
