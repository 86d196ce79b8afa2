#include "model/TInstanceList.h"

#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMInstance.h>

#include <algorithm>
#include <iterator>

#include "core/base/Fail.h"
#include "model/SchemaRevision.h"
#include "model/TCIMInstanceImpl.h"
#include "model/TPathHash.h"
#include "model/TPathMatcher.h"
#include "model/TPeek.h"

namespace vsk::detail {

TInstanceList::~TInstanceList() {
  if (hasRepeats_) {
    std::sort(entries_.begin(), entries_.end());
    entries_.erase(std::unique(entries_.begin(), entries_.end()), entries_.end());
  }
  for (TCIMInstance* instance : entries_) delete instance;
}

void TInstanceList::Add(TCIMInstance& instance) {
  TCIMInstanceImpl& impl = TPeek::Impl(instance);
  entries_.push_back(&instance);
  hasRepeats_ = hasRepeats_ || impl.IsListed();
  if (!impl.IsListed()) impl.SetPosition(entries_.size() - 1);
}

void TInstanceList::Remove(TCIMInstance& instance) {
  const TCIMInstanceImpl& impl = TPeek::Impl(instance);
  if (hasRepeats_) {
    IndexPositions();
    const auto [begin, end] = positions_.equal_range(&instance);
    for (auto place = begin; place != end; ++place) LeaveGap(place->second);
    positions_.erase(begin, end);
  } else if (impl.IsListed()) {
    LeaveGap(impl.GetPosition());
  }
  if (gaps_ * 2 > entries_.size()) CloseGaps();
  delete &instance;
}

void TInstanceList::Changes(std::size_t position) noexcept {
  referrers_.Changes(position);
  if (position >= index_.Size()) return;
  index_.PutUnread(static_cast<TInstanceIndex::TPosition>(position));
}

TCIMInstance* TInstanceList::Find(const TPropertyTable& table, const TCIMReference& reference) {
  if (IsEmpty()) return nullptr;  // a bad KEY only shows where a path is built
  TPathMatcher matcher(Keys(table), reference);
  if (!BringIndexUp()) return Walk(matcher);
  for (TInstanceIndex::TPosition position = index_.First(TPathHash(reference).Get());
       position != TInstanceIndex::kNone; position = index_.Next(position)) {
    if (matcher.Fits(TPeek::Impl(*entries_[position]))) return entries_[position];
  }
  return nullptr;
}

bool TInstanceList::FindsSurely(const TPropertyTable& table) {
  if (IsEmpty()) return true;
  try {
    Keys(table);
  } catch (const TVSKException&) {
    return false;
  }
  return BringIndexUp();
}

std::optional<std::uint32_t> TInstanceList::HashPath(const TPropertyTable& table,
                                                     const TCIMInstanceImpl& instance) {
  if (!instance.IsListed() || !FindsSurely(table)) return std::nullopt;
  return HashOf(instance);
}

const TReferrerIndex* TInstanceList::GetReferrers() {
  if (hasRepeats_ || entries_.size() >= kMost) return nullptr;
  if (referrersRevision_ != SchemaRevision()) referrers_.Clear();
  referrersRevision_ = SchemaRevision();
  referrers_.BringUp(entries_);
  return &referrers_;
}

void TInstanceList::AppendTo(std::vector<TCIMInstance*>& all) const {
  std::copy_if(entries_.begin(), entries_.end(), std::back_inserter(all),
               [](const TCIMInstance* instance) { return instance != nullptr; });
}

void TInstanceList::AppendTo(const std::vector<TReferrerIndex::TPosition>& positions,
                             std::vector<TCIMInstance*>& all) const {
  for (const TReferrerIndex::TPosition position : positions) {
    if (entries_[position] != nullptr) all.push_back(entries_[position]);
  }
}

const TClassKeys& TInstanceList::Keys(const TPropertyTable& table) {
  if (revision_ != SchemaRevision()) {
    keys_ = TClassKeys(table);
    index_.Clear();
    revision_ = SchemaRevision();
  }
  return keys_;
}

bool TInstanceList::BringIndexUp() {
  if (entries_.size() >= kMost) return false;
  while (index_.Size() < entries_.size()) {
    const auto position = static_cast<TInstanceIndex::TPosition>(index_.Size());
    index_.Grow();
    if (entries_[position] != nullptr) index_.PutUnread(position);
  }
  for (auto position = index_.FirstUnread(); position != TInstanceIndex::kNone;
       position = index_.FirstUnread()) {
    Read(position);
  }
  return !index_.HasUnsure();
}

void TInstanceList::Read(TInstanceIndex::TPosition position) {
  TCIMInstanceImpl& instance = TPeek::Impl(*entries_[position]);
  keys_.Watch(instance);
  const std::optional<std::uint32_t> hash = HashOf(instance);
  if (!hash) return index_.PutUnsure(position);
  index_.Put(position, *hash);
}

std::optional<std::uint32_t> TInstanceList::HashOf(const TCIMInstanceImpl& instance) const {
  std::vector<const TCIMValue*> values;
  if (!keys_.Collect(instance, values)) return std::nullopt;
  TPathHash hash(&instance.GetClass(), values.size());
  for (std::size_t i = 0; i < values.size(); ++i) {
    hash.AddBinding(keys_.Items()[i].GetName(), *values[i]);
  }
  return hash.Get();
}

TCIMInstance* TInstanceList::Walk(TPathMatcher& matcher) const {
  for (TCIMInstance* instance : entries_) {
    if (instance != nullptr && matcher.Fits(TPeek::Impl(*instance))) return instance;
  }
  return nullptr;
}

void TInstanceList::LeaveGap(std::size_t position) noexcept {
  if (position < index_.Size()) {
    index_.TakeOut(static_cast<TInstanceIndex::TPosition>(position));
  }
  entries_[position] = nullptr;
  ++gaps_;
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
  index_.Clear();
  referrers_.Clear();
  for (std::size_t position = entries_.size(); position-- > 0;) {
    TPeek::Impl(*entries_[position]).SetPosition(position);  // the first is noted last
  }
}

}  // namespace vsk::detail
