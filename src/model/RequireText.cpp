#include "model/RequireText.h"

#include <vskcore/core/TVSKException.h>
#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMDateTime.h>
#include <vskcore/model/TCIMReference.h>
#include <vskcore/model/TCIMValue.h>

#include <vector>

namespace vsk::detail {

void RequireText(const TCIMValue& value) {
  if (value.IsNull()) throw TVSKException(vskStatusValueIsNULL);
  if (value.IsArray()) {
    const std::vector<TCIMValue>& elements = value;
    for (const TCIMValue& element : elements) RequireText(element);
  } else if (value.GetType() == TCIMValue::TCIMType::cimDateTime) {
    const TCIMDateTime dateTime = value;
    if (dateTime.IsNull()) throw TVSKException(vskStatusInvalidDateTime);
  } else if (value.IsReference()) {
    const TCIMReference reference = value;
    reference.GetClass();
    for (const auto& binding : reference.EnumerateKeyBindings()) RequireText(binding.second);
  }
}

}  // namespace vsk::detail
