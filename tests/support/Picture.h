// The model as text, for comparisons in tests.
#ifndef VSKCORE_TESTS_SUPPORT_PICTURE_H
#define VSKCORE_TESTS_SUPPORT_PICTURE_H

#include <string>

class TCIMClass;
class TCIMInstance;
class TCIMValue;
class TContainer;

// 7, true, "text", NULL, {1, NULL}, <Class.Id=7>. A date-time in its 25 characters.
std::string Picture(const TCIMValue& value);
// Name : Super [QUALIFIER=value] { Name type [QUALIFIER=value] = default; Super.Name type }. A
// qualifier that came from the superclass reads ^QUALIFIER=value, a property that another class
// declares has that class in front, an array type "[]" behind, a reference its class.
std::string Picture(const TCIMClass& cimClass);
// Class{a=1, B=NULL, c~"default"}; "~" stands for a property without a value of its own.
std::string Picture(const TCIMInstance& instance);
// Qualifier types, classes (superclasses first) and instances, each with "; " behind.
std::string Picture(const TContainer& container);

#endif
