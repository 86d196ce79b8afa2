// What a value is made of.
#ifndef VSKCORE_SRC_MODEL_VALUEPARTS_H
#define VSKCORE_SRC_MODEL_VALUEPARTS_H

#include <vector>

class TCIMValue;

namespace vsk::detail {

// Appends the keys of a reference in their order, the elements of an array in theirs; nothing for
// other values and for NULL. With a list of what is yet to be seen, values in values are walked
// without recursion, which their depth could drive without bound.
void AppendParts(const TCIMValue& value, std::vector<const TCIMValue*>& parts);

}  // namespace vsk::detail

#endif
