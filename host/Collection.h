// One run of the core: start, load the plug-ins, collect.
#ifndef VSKCORE_HOST_COLLECTION_H
#define VSKCORE_HOST_COLLECTION_H

#include <stdexcept>
#include <string>
#include <vector>

#include "Arguments.h"

class TCIMClass;
class TContainer;

// Why the program can't go on, in words for its user, and how it ends.
class THostFailure : public std::runtime_error {
 public:
  THostFailure(EExit exit, const std::string& reason) : std::runtime_error(reason), exit_(exit) {}
  EExit GetExit() const { return exit_; }

 private:
  EExit exit_;
};

// Starts the core, sets the log's level and loads the plug-ins; gives the core's container. Throws
// THostFailure when the core did not start or the plug-ins can't be searched.
TContainer& LoadCore(const TArguments& arguments);

// The class of that name, in any case of letters. Throws THostFailure when there is none.
TCIMClass& ClassOrFailure(const TContainer& container, const std::string& name);

// Collects what the arguments name, or everything, and gives the classes that have instances of
// their own, in the order in which to show them. They belong to the core and live as long as the
// process. Throws THostFailure when the core did not start, a class is unknown, or there is nothing
// to show.
std::vector<const TCIMClass*> Collect(const TArguments& arguments);

#endif
