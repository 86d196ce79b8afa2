#include "model/TInstanceList.h"

#include <vskcore/model/TCIMInstance.h>

#include <algorithm>
#include <iterator>

namespace vsk::detail {

TInstanceList::~TInstanceList() {
  if (hasRepeats_) {
    std::sort(entries_.begin(), entries_.end());
    entries_.erase(std::unique(entries_.begin(), entries_.end()), entries_.end());
  }
  for (TCIMInstance* instance : entries_) delete instance;
}

void TInstanceList::Add(TCIMInstance& instance, bool listed) {
  entries_.push_back(&instance);
  hasRepeats_ = hasRepeats_ || listed;
}

void TInstanceList::Remove(TCIMInstance& instance) {
  IndexPositions();
  const auto [begin, end] = positions_.equal_range(&instance);
  for (auto place = begin; place != end; ++place) {
    entries_[place->second] = nullptr;
    ++gaps_;
  }
  positions_.erase(begin, end);
  if (gaps_ * 2 > entries_.size()) CloseGaps();
  delete &instance;
}

void TInstanceList::AppendTo(std::vector<TCIMInstance*>& all) const {
  std::copy_if(entries_.begin(), entries_.end(), std::back_inserter(all),
               [](const TCIMInstance* instance) { return instance != nullptr; });
}

void TInstanceList::IndexPositions() {
  for (; indexed_ < entries_.size(); ++indexed_) {
    if (entries_[indexed_] != nullptr) positions_.emplace(entries_[indexed_], indexed_);
  }
}

void TInstanceList::CloseGaps() {
  entries_.erase(std::remove(entries_.begin(), entries_.end(), nullptr), entries_.end());
  gaps_ = 0;
  positions_.clear();
  indexed_ = 0;
}

}  // namespace vsk::detail
