// How classes and properties are named and ordered for people, by the qualifiers of the schema.
#ifndef VSKCORE_HOST_ORDER_H
#define VSKCORE_HOST_ORDER_H

#include <string>
#include <vector>

class TCIMClass;
class TCIMInstance;
class TCIMProperty;
class TCIMPropertyDecl;

// Category by category, the category with the lowest DisplayOrder first; in it by DisplayOrder,
// then by name. Without one, a class comes last.
std::vector<const TCIMClass*> InDisplayOrder(std::vector<const TCIMClass*> classes);
// By DisplayOrder, then by name. Without one, a property follows all but the bookkeeping at the
// end.
std::vector<const TCIMProperty*> InDisplayOrder(const TCIMInstance& instance);

// The Category; "Other" without one.
std::string CategoryOf(const TCIMClass& cimClass);
// The DisplayName; the name without one.
std::string TitleOf(const TCIMClass& cimClass);
std::string LabelOf(const TCIMPropertyDecl& declaration);

#endif
