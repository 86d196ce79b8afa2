// Which instances of a list may refer to a given instance.
#ifndef VSKCORE_SRC_MODEL_TREFERRERINDEX_H
#define VSKCORE_SRC_MODEL_TREFERRERINDEX_H

#include <cstddef>
#include <cstdint>
#include <vector>

class TCIMClass;
class TCIMInstance;
class TCIMValue;

namespace vsk::detail {

// A position in the list is filed under the path of each reference that stands there, and under the
// address of the instance that the reference remembers: that one it finds whatever has become of
// its keys. A position where a reference may fail to find anything is unsure, and always proposed.
// What is filed may be out of date, so it only proposes. Holds while the schema's revision does.
class TReferrerIndex {
 public:
  using TPosition = std::uint32_t;

  // Knows nothing afterwards.
  void Clear();
  // What stands there is about to change.
  void Changes(std::size_t position) noexcept;
  // Reads what is new in the list and what has changed. The list has fewer than kNone entries, null
  // for a gap, each once; only its end grows.
  void BringUp(const std::vector<TCIMInstance*>& list);

  // The classes that references point into. One that doesn't refer to the target may fail to find
  // its own when the look-up there may fail.
  const std::vector<TCIMClass*>& Classes() const { return classes_; }
  // The positions of all that may refer to the target, ascending.
  std::vector<TPosition> Find(const TCIMInstance& target, std::uint32_t path) const;

  static constexpr TPosition kNone = static_cast<TPosition>(-1);

 private:
  // Those that have yet to be read are chained up through next.
  static constexpr TPosition kRead = static_cast<TPosition>(-2);

  struct TEntry {
    std::uint32_t hash;
    TPosition position;
    std::uint32_t next;  // of the same chain, kNone at its end
  };

  void Read(TPosition position, TCIMInstance& instance);
  bool ReadEnd(TPosition position, const TCIMValue& value);
  void File(std::uint32_t hash, TPosition position);
  void Spread(std::size_t chains);
  void Append(std::uint32_t hash, std::vector<TPosition>& all) const;

  std::vector<TPosition> next_;  // for each position: kRead, or the next to be read
  TPosition unread_ = kNone;
  std::size_t readAgain_ = 0;  // how often, so what was filed before is still there
  std::vector<TEntry> entries_;
  std::vector<std::uint32_t> chains_;  // a power of two; where in entries_ each begins
  std::vector<TPosition> unsure_;
  std::vector<TCIMClass*> classes_;
};

}  // namespace vsk::detail

#endif
