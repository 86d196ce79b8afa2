// Where in a list the instances with a certain path may stand.
#ifndef VSKCORE_SRC_MODEL_TINSTANCEINDEX_H
#define VSKCORE_SRC_MODEL_TINSTANCEINDEX_H

#include <cstddef>
#include <cstdint>
#include <vector>

namespace vsk::detail {

// Knows positions and the hashes of paths, nothing of instances. A position stands under a hash,
// is unread (what it holds is yet to be hashed), is unsure (what it holds can't be hashed), or is
// out. Positions of one hash chain up in ascending order, twelve bytes each.
class TInstanceIndex {
 public:
  using TPosition = std::uint32_t;
  static constexpr TPosition kNone = static_cast<TPosition>(-1);

  // Covers the positions below this one.
  std::size_t Size() const { return links_.size(); }
  // Covers one more, which is out.
  void Grow();
  // Covers nothing.
  void Clear();

  // Each moves a covered position from wherever it is.
  void Put(TPosition position, std::uint32_t hash) noexcept;
  void PutUnread(TPosition position) noexcept { Move(position, kUnread); }
  void PutUnsure(TPosition position) noexcept { Move(position, kUnsure); }
  void TakeOut(TPosition position) noexcept { Move(position, kOut); }

  // kNone when there is none.
  TPosition FirstUnread() const;
  bool HasUnsure() const;
  // The first under that hash, and the next one, kNone at the end.
  TPosition First(std::uint32_t hash) const;
  TPosition Next(TPosition position) const;

 private:
  // What can't be in a chain of paths has a slot instead of a hash.
  enum ESlot : std::uint32_t { kUnread, kUnsure, kOut, kFirstHash };

  struct TLink {
    std::uint32_t slot;  // one of ESlot, or a hash from kFirstHash on
    TPosition next;
    TPosition previous;
  };
  struct TChain {
    TPosition first = kNone;
    TPosition last = kNone;
  };

  static std::uint32_t SlotOf(std::uint32_t hash);
  std::size_t ChainOf(std::uint32_t slot) const;
  TPosition Seek(TPosition position, std::uint32_t slot) const;
  void Move(TPosition position, std::uint32_t slot) noexcept;
  void Unlink(TPosition position) noexcept;
  void Link(TPosition position) noexcept;
  void Spread(std::size_t hashChains);

  std::vector<TLink> links_;
  std::vector<TChain> chains_;  // those of the slots below kOut, then a power of two for hashes
};

}  // namespace vsk::detail

#endif
