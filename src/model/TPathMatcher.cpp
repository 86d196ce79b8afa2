#include "model/TPathMatcher.h"

#include <cstddef>
#include <string>

#include "model/TPeek.h"

namespace vsk::detail {

bool TPathMatcher::Fits(const TCIMInstanceImpl& instance) {
  if (!keys_.Collect(instance, values_)) return instance.BuildPath() == reference_;
  return &instance.GetClass() == reference_.FindClass() && CollectedFit();
}

bool TPathMatcher::CollectedFit() const {
  const TCIMReference::TKeyBindings& bindings = TPeek::Bindings(reference_);
  if (bindings.size() != values_.size()) return false;
  auto binding = bindings.begin();
  for (std::size_t i = 0; i < values_.size(); ++i, ++binding) {
    const std::string& name = keys_.Items()[i].GetName();
    if (name != binding->first || *values_[i] != binding->second) return false;
  }
  return true;
}

}  // namespace vsk::detail
