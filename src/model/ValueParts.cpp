#include "model/ValueParts.h"

#include <vskcore/model/TCIMReference.h>
#include <vskcore/model/TCIMValue.h>

#include "model/TPeek.h"

void vsk::detail::AppendParts(const TCIMValue& value, std::vector<const TCIMValue*>& parts) {
  if (const TCIMReference* reference = TPeek::Reference(value)) {
    for (const auto& binding : TPeek::Bindings(*reference)) parts.push_back(&binding.second);
  } else if (value.IsArray() && !value.IsNull()) {
    const std::vector<TCIMValue>& elements = value;
    for (const TCIMValue& element : elements) parts.push_back(&element);
  }
}
