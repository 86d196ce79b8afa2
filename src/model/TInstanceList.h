// The instances of one class.
#ifndef VSKCORE_SRC_MODEL_TINSTANCELIST_H
#define VSKCORE_SRC_MODEL_TINSTANCELIST_H

#include <cstddef>
#include <cstdint>
#include <optional>
#include <unordered_map>
#include <vector>

#include "model/TClassKeys.h"
#include "model/TInstanceIndex.h"
#include "model/TPropertyTable.h"
#include "model/TReferrerIndex.h"

class TCIMInstance;
class TCIMInstanceImpl;
class TCIMReference;

namespace vsk::detail {

class TPathMatcher;

// In the order in which they were added. Owns them: an object that was added more than once is
// listed as often and destroyed once. A removed one leaves a gap behind until gaps prevail, so
// that removing many costs no more than it took to add them.
//
// An instance is found by an index of the paths, and what refers to an instance elsewhere by an
// index of referrers. Both are made and kept up by the look-ups, so a class that is never asked
// pays nothing. What has happened in between reaches them like this: a new instance stands behind
// the ones that they cover; a removed one leaves a gap; a property that changes tells its instance,
// and that this list (Changes); a change to a declaration counts the schema's revision on, and all
// begins anew. An index only proposes: every candidate is held against what is sought, in the
// order of the list, and one whose comparison fails is among them. While a listed instance is of
// the kind whose path may fail to build, all are walked.
class TInstanceList {
 public:
  TInstanceList() = default;
  TInstanceList(const TInstanceList&) = delete;
  TInstanceList& operator=(const TInstanceList&) = delete;
  ~TInstanceList();

  // Appends a heap object and owns it on return.
  void Add(TCIMInstance& instance);
  // Takes every entry of the object out and destroys the object, listed or not.
  void Remove(TCIMInstance& instance);
  // A watched property of the instance at that position, its first, is about to change. Where it is
  // listed more often the index may know the later places by an earlier path: they decide nothing.
  void Changes(std::size_t position) noexcept;

  // The first whose path equals the reference, null when there is none. Fails as building the paths
  // one by one and comparing them would; the table is that of the class.
  TCIMInstance* Find(const TPropertyTable& table, const TCIMReference& reference);
  // Whether Find fails for no reference whose comparison can't.
  bool FindsSurely(const TPropertyTable& table);
  // The hash of the path of an instance of this class; none where building might fail.
  std::optional<std::uint32_t> HashPath(const TPropertyTable& table,
                                        const TCIMInstanceImpl& instance);
  // What refers to what; null where an index won't do.
  const TReferrerIndex* GetReferrers();
  void AppendTo(std::vector<TCIMInstance*>& all) const;
  // Those at these positions; a gap gives nothing.
  void AppendTo(const std::vector<TReferrerIndex::TPosition>& positions,
                std::vector<TCIMInstance*>& all) const;
  bool IsEmpty() const { return entries_.size() == gaps_; }

 private:
  // The keys as they are declared now.
  const TClassKeys& Keys(const TPropertyTable& table);
  // Whether the index covers everything.
  bool BringIndexUp();
  std::optional<std::uint32_t> HashOf(const TCIMInstanceImpl& instance) const;
  void Read(TInstanceIndex::TPosition position);
  TCIMInstance* Walk(TPathMatcher& matcher) const;
  void LeaveGap(std::size_t position) noexcept;
  void IndexPositions();
  void CloseGaps();

  // Longer lists have no index.
  static constexpr std::size_t kMost = TInstanceIndex::kNone - 1;

  std::vector<TCIMInstance*> entries_;  // null for a gap
  std::size_t gaps_ = 0;
  bool hasRepeats_ = false;
  // Where the first indexed_ entries stand. Only a removal from a list with repeats makes it;
  // elsewhere an instance's own note of its position tells.
  std::unordered_multimap<const TCIMInstance*, std::size_t> positions_;
  std::size_t indexed_ = 0;

  std::uint64_t revision_ = 0;  // of the schema, as keys_ and index_ know it
  TClassKeys keys_;
  TInstanceIndex index_;
  std::uint64_t referrersRevision_ = 0;
  TReferrerIndex referrers_;
};

}  // namespace vsk::detail

#endif
