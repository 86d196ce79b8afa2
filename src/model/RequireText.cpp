#include "model/RequireText.h"

#include <vskcore/core/TVSKException.h>
#include <vskcore/model/TCIMDateTime.h>
#include <vskcore/model/TCIMReference.h>
#include <vskcore/model/TCIMValue.h>

#include <algorithm>
#include <cstddef>
#include <vector>

#include "model/TPeek.h"
#include "model/ValueParts.h"

namespace vsk::detail {

namespace {

// Of the value alone, whatever its parts are.
void RequireOwnText(const TCIMValue& value) {
  if (value.IsNull()) throw TVSKException(vskStatusValueIsNULL);
  if (value.GetType() == TCIMValue::TCIMType::cimDateTime) {
    const TCIMDateTime dateTime = value;
    if (dateTime.IsNull()) throw TVSKException(vskStatusInvalidDateTime);
  } else if (value.IsReference()) {
    TPeek::Reference(value)->GetClass();
  }
}

}  // namespace

void RequireText(const TCIMValue& value) {
  std::vector<const TCIMValue*> pending;
  const TCIMValue* part = &value;
  for (;;) {
    RequireOwnText(*part);
    const auto before = static_cast<std::ptrdiff_t>(pending.size());
    AppendParts(*part, pending);
    // cppcheck-suppress containerOutOfBounds ; nothing is before the begin of an empty one
    std::reverse(pending.begin() + before, pending.end());  // the first in reading order fails
    if (pending.empty()) return;
    part = pending.back();
    pending.pop_back();
  }
}

}  // namespace vsk::detail
