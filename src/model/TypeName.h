// The names of the CIM types, for places that must not fail on a type without one.
#ifndef VSKCORE_SRC_MODEL_TYPENAME_H
#define VSKCORE_SRC_MODEL_TYPENAME_H

#include <vskcore/model/TCIMValue.h>

namespace vsk::detail {

// As TCIMValue::TCIMType::ToString, but null for cimNone and for a word that names no type.
const char* FindTypeName(TCIMValue::ECIMType type);

}  // namespace vsk::detail

#endif
