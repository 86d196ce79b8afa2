// Property values as people read them.
#ifndef VSKCORE_SRC_MODEL_PROPERTYDISPLAY_H
#define VSKCORE_SRC_MODEL_PROPERTYDISPLAY_H

#include <string>
#include <vector>

class TCIMPropertyDecl;
class TCIMValue;

namespace vsk::detail {

// TCIMProperty::ToString and ToStringVector, for the value that a property of that declaration
// shows.
std::string DisplayValue(const TCIMPropertyDecl& declaration, const TCIMValue& value);
std::vector<std::string> DisplayValues(const TCIMPropertyDecl& declaration, const TCIMValue& value);

}  // namespace vsk::detail

#endif
