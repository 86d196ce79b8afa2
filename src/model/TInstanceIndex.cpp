#include "model/TInstanceIndex.h"

#include <utility>

namespace vsk::detail {

namespace {

const std::size_t kFewestChains = 8;

}  // namespace

void TInstanceIndex::Grow() {
  const std::size_t hashChains = chains_.empty() ? 0 : chains_.size() - kOut;
  if (links_.size() >= hashChains) Spread(hashChains == 0 ? kFewestChains : 2 * hashChains);
  links_.push_back({kOut, kNone, kNone});
}

void TInstanceIndex::Clear() {
  links_.clear();
  chains_.clear();
}

void TInstanceIndex::Put(TPosition position, std::uint32_t hash) noexcept {
  Move(position, SlotOf(hash));
}

TInstanceIndex::TPosition TInstanceIndex::FirstUnread() const {
  return chains_.empty() ? kNone : chains_[kUnread].first;
}

bool TInstanceIndex::HasUnsure() const {
  return !chains_.empty() && chains_[kUnsure].first != kNone;
}

TInstanceIndex::TPosition TInstanceIndex::First(std::uint32_t hash) const {
  if (chains_.empty()) return kNone;
  const std::uint32_t slot = SlotOf(hash);
  return Seek(chains_[ChainOf(slot)].first, slot);
}

TInstanceIndex::TPosition TInstanceIndex::Next(TPosition position) const {
  return Seek(links_[position].next, links_[position].slot);
}

std::uint32_t TInstanceIndex::SlotOf(std::uint32_t hash) {
  return hash < kFirstHash ? hash + kFirstHash : hash;
}

std::size_t TInstanceIndex::ChainOf(std::uint32_t slot) const {
  return slot < kOut ? slot : kOut + (slot & (chains_.size() - kOut - 1));
}

// From a position of the slot's chain on.
TInstanceIndex::TPosition TInstanceIndex::Seek(TPosition position, std::uint32_t slot) const {
  while (position != kNone && links_[position].slot != slot) position = links_[position].next;
  return position;
}

void TInstanceIndex::Move(TPosition position, std::uint32_t slot) noexcept {
  if (links_[position].slot == slot) return;
  Unlink(position);
  links_[position].slot = slot;
  Link(position);
}

void TInstanceIndex::Unlink(TPosition position) noexcept {
  const TLink& link = links_[position];
  if (link.slot == kOut) return;
  TChain& chain = chains_[ChainOf(link.slot)];
  (link.previous == kNone ? chain.first : links_[link.previous].next) = link.next;
  (link.next == kNone ? chain.last : links_[link.next].previous) = link.previous;
}

// Nearly always at the end: what joins a list stands there, and only paths keep an order.
void TInstanceIndex::Link(TPosition position) noexcept {
  TLink& link = links_[position];
  if (link.slot == kOut) return;
  TChain& chain = chains_[ChainOf(link.slot)];
  TPosition next = kNone;
  if (link.slot > kOut && chain.last != kNone && chain.last > position) {
    next = chain.first;
    while (next < position) next = links_[next].next;
  }
  link.next = next;
  link.previous = std::exchange(next == kNone ? chain.last : links_[next].previous, position);
  (link.previous == kNone ? chain.first : links_[link.previous].next) = position;
}

void TInstanceIndex::Spread(std::size_t hashChains) {
  std::vector<TChain> chains(kOut + hashChains);
  chains_.swap(chains);
  for (TPosition position = 0; position < links_.size(); ++position) Link(position);
}

}  // namespace vsk::detail
