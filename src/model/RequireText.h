// Whether a value could be written as text, without writing it.
#ifndef VSKCORE_SRC_MODEL_REQUIRETEXT_H
#define VSKCORE_SRC_MODEL_REQUIRETEXT_H

class TCIMValue;

namespace vsk::detail {

// Fails exactly where and as TCIMValue::ToString(10) would: NULL, also in an array or among the
// keys of a reference, throws vskStatusValueIsNULL, a NULL date-time vskStatusInvalidDateTime, a
// reference without a class vskStatusInvalidReference. Only arrays that lie too deep in arrays
// to be printed pass.
void RequireText(const TCIMValue& value);

}  // namespace vsk::detail

#endif
