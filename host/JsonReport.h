// The collected data as JSON for programs.
#ifndef VSKCORE_HOST_JSONREPORT_H
#define VSKCORE_HOST_JSONREPORT_H

#include <string>
#include <vector>

class TCIMClass;

// One object: the name of each class with an array of its instances, each an object of all its
// properties by name. Values keep their types: integers are exact in all 64 bits, date-times are
// their 25 characters, references their paths, NULL and what JSON can't say are null.
std::string JsonReport(const std::vector<const TCIMClass*>& classes);

#endif
