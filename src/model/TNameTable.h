// What stands under a name: the one table of the model.
#ifndef VSKCORE_SRC_MODEL_TNAMETABLE_H
#define VSKCORE_SRC_MODEL_TNAMETABLE_H

#include <boost/shared_ptr.hpp>
#include <iterator>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "core/base/Fail.h"
#include "model/NormalizeCIMName.h"

namespace vsk::detail {

// Deletes an item from the moment on that a table holds it.
struct TOwnership {
  bool owned = false;
  template <typename TItem>
  void operator()(TItem* item) const {
    if (owned) delete item;
  }
};

// Calls store with an owner of the heap object, which stays the caller's when that fails.
template <typename TItem, typename TStore>
void AdoptBy(TItem& item, TStore&& store) {
  const boost::shared_ptr<TItem> owner(&item, TOwnership());
  store(owner);
  boost::get_deleter<TOwnership>(owner)->owned = true;
}

// Items by normalised name, ascending by it. An item keeps the key under which it was added,
// whatever becomes of its name. A copy of the table shares the items. Every operation that takes a
// name throws vskStatusInvalidCIMName for one that is no CIM name.
template <typename TItem>
class TNameTable {
 public:
  using TMap = std::map<std::string, boost::shared_ptr<TItem>>;

  // Null when absent.
  TItem* Find(const std::string& name) const { return FindKey(NormalizeCIMName(name)); }

  // Null when absent; the key is normalised already.
  TItem* FindKey(const std::string& key) const {
    const auto found = items_.find(key);
    return found == items_.end() ? nullptr : found->second.get();
  }

  // False, and nothing changes, when the key is taken. The key is normalised already.
  bool AddKey(std::string key, boost::shared_ptr<TItem> item) {
    return items_.emplace(std::move(key), std::move(item)).second;
  }

  // Takes a heap object in under the key, and releases what stood there. The key is normalised
  // already. The object stays the caller's when that fails for want of memory.
  void Adopt(std::string key, TItem& item) {
    AdoptBy(item, [&](const boost::shared_ptr<TItem>& owner) {
      items_.insert_or_assign(std::move(key), owner);
    });
  }

  // Throws vskStatusNotFound when absent. Releases what stands under the name.
  void Remove(const std::string& name) {
    const auto found = items_.find(NormalizeCIMName(name));
    if (found == items_.end()) throw TVSKException(vskStatusNotFound);
    items_.erase(found);
  }

  // Releases what stands under the key, if anything.
  void RemoveKey(const std::string& key) { items_.erase(key); }

  // Pointers to all items; TPointer is TItem* or const TItem*.
  template <typename TPointer>
  std::vector<TPointer> Enumerate() const {
    std::vector<TPointer> all;
    all.reserve(items_.size());
    for (const auto& entry : items_) all.push_back(entry.second.get());
    return all;
  }

  // In ascending order of the keys.
  const TMap& Items() const { return items_; }

  // Releases all items, in descending order of the keys.
  void Clear() {
    while (!items_.empty()) items_.erase(std::prev(items_.end()));
  }

 private:
  TMap items_;
};

}  // namespace vsk::detail

#endif
