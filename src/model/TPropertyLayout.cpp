#include "model/TPropertyLayout.h"

#include <algorithm>

#include "model/NormalizeCIMName.h"

namespace vsk::detail {

TPropertyLayout::TPropertyLayout(const TPropertyTable& table) {
  entries_.reserve(table.Size());
  table.Visit([this](const TPropertyTable::TEntry& entry) {
    const std::string& name = entry.declaration->GetName();
    entries_.push_back({NormalizeCIMName(name), name, entry.declaration});
  });
  std::stable_sort(entries_.begin(), entries_.end(),
                   [](const TEntry& left, const TEntry& right) { return left.key < right.key; });
  entries_.erase(
      std::unique(entries_.begin(), entries_.end(),
                  [](const TEntry& left, const TEntry& right) { return left.key == right.key; }),
      entries_.end());
}

bool TPropertyLayout::IsCurrent() const {
  return std::all_of(entries_.begin(), entries_.end(), [](const TEntry& entry) {
    return entry.declaration->GetName() == entry.name;
  });
}

std::size_t TPropertyLayout::Find(const std::string& key) const {
  const auto found = std::lower_bound(
      entries_.begin(), entries_.end(), key,
      [](const TEntry& entry, const std::string& wanted) { return entry.key < wanted; });
  if (found == entries_.end() || found->key != key) return kNone;
  return static_cast<std::size_t>(found - entries_.begin());
}

}  // namespace vsk::detail
