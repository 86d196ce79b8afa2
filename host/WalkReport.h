// What is joined to a class or an instance.
#ifndef VSKCORE_HOST_WALKREPORT_H
#define VSKCORE_HOST_WALKREPORT_H

#include <string>

#include "Arguments.h"

// The classes or the paths of the instances that the walk asked for gives, a line each; an instance
// is looked for after everything was collected. Throws THostFailure when the core did not start, a
// class is unknown, no instance or more than one fits the path, or the walk fails.
std::string WalkReport(const TArguments& arguments);

#endif
