// The property declarations of a class, own and inherited.
#ifndef VSKCORE_SRC_MODEL_TPROPERTYTABLE_H
#define VSKCORE_SRC_MODEL_TPROPERTYTABLE_H

#include <vskcore/model/TCIMPropertyDecl.h>

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <string>
#include <vector>

#include "model/NormalizeCIMName.h"

namespace vsk::detail {

// Ascending by normalised name. A declaration keeps the key under which it was added, whatever
// becomes of its name. The entries stand in pages that copies of the table share until one changes:
// a long line of subclasses that each add a declaration costs a page for each, not a whole table.
class TPropertyTable {
 public:
  struct TEntry {
    std::string key;
    boost::shared_ptr<TCIMPropertyDecl> declaration;
  };

  // Null when absent. Throws vskStatusInvalidCIMName for what is no CIM name.
  TCIMPropertyDecl* Find(const std::string& name) const { return FindKey(NormalizeCIMName(name)); }
  // The key is normalised already, here and below.
  TCIMPropertyDecl* FindKey(const std::string& key) const;

  // Takes a heap object in under the key, and releases what stood there. The object stays the
  // caller's when that fails for want of memory.
  void Adopt(std::string key, TCIMPropertyDecl& declaration);
  // Releases what stands under the key, if anything.
  void RemoveKey(const std::string& key);

  std::size_t Size() const;
  std::vector<const TCIMPropertyDecl*> Enumerate() const;
  // Calls visit with each TEntry, in ascending order of the keys.
  template <typename TVisit>
  void Visit(TVisit&& visit) const {
    for (const TPagePointer& page : pages_) {
      for (const TEntry& entry : *page) visit(entry);
    }
  }

 private:
  using TPage = std::vector<TEntry>;
  using TPagePointer = boost::shared_ptr<TPage>;

  // Where the page stands that has the key or is to have it; behind the last one when all keys are
  // less.
  std::size_t PageOf(const std::string& key) const;
  // The page for a change: this table's own from here on.
  TPage& OwnPage(std::size_t place);
  // A page with room for the key.
  TPage& PageWithRoom(const std::string& key);
  void Put(std::string key, const boost::shared_ptr<TCIMPropertyDecl>& declaration);

  std::vector<TPagePointer> pages_;  // none is empty
};

}  // namespace vsk::detail

#endif
