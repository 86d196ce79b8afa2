// The collected data as text for people.
#ifndef VSKCORE_HOST_TEXTREPORT_H
#define VSKCORE_HOST_TEXTREPORT_H

#include <string>
#include <vector>

class TCIMClass;

// A heading for each category and for each class; below it the class's instances, a blank line
// between two. A property takes a line, an array one for each element, or fewer when it has many.
// NULL without a text for it is left out. A value that can't be displayed says so in its place.
std::string TextReport(const std::vector<const TCIMClass*>& classes);

#endif
