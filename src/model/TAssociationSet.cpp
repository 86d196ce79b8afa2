#include "model/TAssociationSet.h"

namespace vsk::detail {

std::vector<TCIMClass*> TAssociationSet::Enumerate() const {
  std::vector<TCIMClass*> all;
  all.reserve(entries_.size());
  for (const auto& entry : entries_) all.push_back(entry.second);
  return all;
}

}  // namespace vsk::detail
