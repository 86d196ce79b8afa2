#include "model/TReferrerIndex.h"

#include <vskcore/model/TCIMProperty.h>
#include <vskcore/model/TCIMReference.h>
#include <vskcore/model/TCIMValue.h>

#include <algorithm>
#include <functional>

#include "model/TCIMInstanceImpl.h"
#include "model/TCIMPropertyImpl.h"
#include "model/TCIMReferenceImpl.h"
#include "model/TPathHash.h"
#include "model/TPeek.h"

namespace vsk::detail {

namespace {

const std::size_t kFewestChains = 8;

std::uint32_t HashOf(const TCIMInstance* instance) {
  const std::uint64_t address = std::hash<const TCIMInstance*>()(instance);
  return static_cast<std::uint32_t>((address * 0x9E3779B97F4A7C15u) >> 32);
}

}  // namespace

void TReferrerIndex::Clear() { *this = TReferrerIndex(); }

void TReferrerIndex::Changes(std::size_t position) noexcept {
  if (position >= next_.size() || next_[position] != kRead) return;
  next_[position] = unread_;
  unread_ = static_cast<TPosition>(position);
  ++readAgain_;
}

void TReferrerIndex::BringUp(const std::vector<TCIMInstance*>& list) {
  if (readAgain_ > next_.size()) Clear();
  while (unread_ != kNone) {
    const TPosition position = unread_;
    if (list[position] != nullptr) Read(position, *list[position]);
    unread_ = next_[position];
    next_[position] = kRead;
  }
  while (next_.size() < list.size()) {
    const auto position = static_cast<TPosition>(next_.size());
    if (list[position] != nullptr) Read(position, *list[position]);
    next_.push_back(kRead);
  }
}

std::vector<TReferrerIndex::TPosition> TReferrerIndex::Find(const TCIMInstance& target,
                                                            std::uint32_t path) const {
  std::vector<TPosition> all(unsure_);
  Append(path, all);
  Append(HashOf(&target), all);
  std::sort(all.begin(), all.end());
  all.erase(std::unique(all.begin(), all.end()), all.end());
  return all;
}

void TReferrerIndex::Read(TPosition position, TCIMInstance& instance) {
  TCIMInstanceImpl& impl = TPeek::Impl(instance);
  bool sure = true;
  for (TCIMProperty& property : impl.Properties()) {
    TPeek::Impl(property).TellOfNextChange(impl);  // another type may take its place
    const TCIMValue& value = TPeek::Value(property);
    if (value.IsReference()) sure = ReadEnd(position, value) && sure;
  }
  if (!sure) unsure_.push_back(position);
}

// False where looking for what stands at that end may fail.
bool TReferrerIndex::ReadEnd(TPosition position, const TCIMValue& value) {
  const TCIMReference* reference = TPeek::Reference(value);
  if (reference == nullptr || reference->FindClass() == nullptr) return false;
  const TPathHash path(*reference);
  if (!path.IsWhole() || entries_.size() >= kNone - 2) return false;
  TCIMClass* const cimClass = reference->FindClass();
  if (std::find(classes_.begin(), classes_.end(), cimClass) == classes_.end()) {
    classes_.push_back(cimClass);
  }
  File(path.Get(), position);
  const TCIMInstance* remembered = TPeek::Impl(*reference).GetRemembered();
  if (remembered != nullptr) File(HashOf(remembered), position);
  return true;
}

void TReferrerIndex::File(std::uint32_t hash, TPosition position) {
  if (entries_.size() >= chains_.size()) Spread(std::max(kFewestChains, 2 * chains_.size()));
  std::uint32_t& chain = chains_[hash & (chains_.size() - 1)];
  entries_.push_back({hash, position, chain});
  chain = static_cast<std::uint32_t>(entries_.size() - 1);
}

void TReferrerIndex::Spread(std::size_t chains) {
  chains_.assign(chains, kNone);
  for (std::size_t i = 0; i < entries_.size(); ++i) {
    std::uint32_t& chain = chains_[entries_[i].hash & (chains - 1)];
    entries_[i].next = chain;
    chain = static_cast<std::uint32_t>(i);
  }
}

void TReferrerIndex::Append(std::uint32_t hash, std::vector<TPosition>& all) const {
  if (chains_.empty()) return;
  for (std::uint32_t place = chains_[hash & (chains_.size() - 1)]; place != kNone;
       place = entries_[place].next) {
    if (entries_[place].hash == hash) all.push_back(entries_[place].position);
  }
}

}  // namespace vsk::detail
