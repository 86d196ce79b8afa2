// The keys of a path.
#ifndef VSKCORE_SRC_MODEL_TBINDINGS_H
#define VSKCORE_SRC_MODEL_TBINDINGS_H

#include <vskcore/model/TCIMReference.h>

#include <atomic>
#include <boost/smart_ptr/intrusive_ptr.hpp>

namespace vsk::detail {

// Copies share one map until one of them changes it. The last to go destroys it, and the maps of
// the paths in it, in a loop: paths in paths may lie deeper than a stack would bear.
class TBindings {
 public:
  using TMap = TCIMReference::TKeyBindings;

  const TMap& Get() const;
  // The map for a change: this one's own from here on.
  TMap& Change();
  void Set(TMap map);
  void Clear() { shared_.reset(); }

 private:
  struct TShared {
    TMap map;
    std::atomic<int> holders{0};
    TShared* nextToGo = nullptr;
  };
  friend void intrusive_ptr_add_ref(TShared* shared) noexcept;
  friend void intrusive_ptr_release(TShared* shared) noexcept;

  boost::intrusive_ptr<TShared> shared_;  // null for no keys at all
};

}  // namespace vsk::detail

#endif
