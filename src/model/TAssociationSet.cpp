#include "model/TAssociationSet.h"

#include <algorithm>

namespace vsk::detail {

void TAssociationSet::MakeRoom() {
  if (entries_.size() == entries_.capacity()) entries_.reserve(2 * entries_.size() + 1);
}

void TAssociationSet::Add(std::string key, TCIMClass& association) noexcept {
  const auto place = std::lower_bound(
      entries_.begin(), entries_.end(), key,
      [](const auto& entry, const std::string& name) { return entry.first < name; });
  entries_.emplace(place, std::move(key), &association);
}

std::vector<TCIMClass*> TAssociationSet::Enumerate() const {
  std::vector<TCIMClass*> all;
  all.reserve(entries_.size());
  for (const auto& entry : entries_) all.push_back(entry.second);
  return all;
}

}  // namespace vsk::detail
