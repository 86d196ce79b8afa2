// The instances of one class.
#ifndef VSKCORE_SRC_MODEL_TINSTANCELIST_H
#define VSKCORE_SRC_MODEL_TINSTANCELIST_H

#include <cstddef>
#include <unordered_map>
#include <vector>

class TCIMInstance;

namespace vsk::detail {

// In the order in which they were added. Owns them: an object that was added more than once is
// listed as often and destroyed once. A removed one leaves a gap behind until gaps prevail, so
// that removing many costs no more than it took to add them.
class TInstanceList {
 public:
  TInstanceList() = default;
  TInstanceList(const TInstanceList&) = delete;
  TInstanceList& operator=(const TInstanceList&) = delete;
  ~TInstanceList();

  // Appends a heap object and owns it on return; listed says that it stands here already.
  void Add(TCIMInstance& instance, bool listed);
  // Takes every entry of the object out and destroys the object, listed or not.
  void Remove(TCIMInstance& instance);

  // The first that fits; null when none does.
  template <typename TPredicate>
  TCIMInstance* FindIf(TPredicate fits) const {
    for (TCIMInstance* instance : entries_) {
      if (instance != nullptr && fits(*instance)) return instance;
    }
    return nullptr;
  }
  void AppendTo(std::vector<TCIMInstance*>& all) const;
  bool IsEmpty() const { return entries_.size() == gaps_; }

 private:
  void IndexPositions();
  void CloseGaps();

  std::vector<TCIMInstance*> entries_;  // null for a gap
  std::size_t gaps_ = 0;
  bool hasRepeats_ = false;
  // Where the first indexed_ entries stand. Only a removal makes it: most lists lose nothing.
  std::unordered_multimap<const TCIMInstance*, std::size_t> positions_;
  std::size_t indexed_ = 0;
};

}  // namespace vsk::detail

#endif
