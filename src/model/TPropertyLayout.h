// What the instances of a class have in common: the names and declarations of their properties.
#ifndef VSKCORE_SRC_MODEL_TPROPERTYLAYOUT_H
#define VSKCORE_SRC_MODEL_TPROPERTYLAYOUT_H

#include <vskcore/model/TCIMPropertyDecl.h>

#include <boost/shared_ptr.hpp>
#include <cstddef>
#include <string>
#include <vector>

#include "model/TPropertyTable.h"

namespace vsk::detail {

// Made from a class's table and never changed, so that any number of instances share one. It
// shares the declarations as well: they live on in it when the class drops them.
class TPropertyLayout {
 public:
  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  struct TEntry {
    std::string key;   // the normalised name
    std::string name;  // as declared when the layout was made
    boost::shared_ptr<TCIMPropertyDecl> declaration;
  };

  // By the names that the declarations have now; the table may know them by earlier ones. Of two
  // that have come to share a name the first stays. Throws vskStatusInvalidCIMName.
  explicit TPropertyLayout(const TPropertyTable& table);

  // Whether the declarations still have the names of then.
  bool IsCurrent() const;
  // Where the entry of that key stands, kNone when there is none.
  std::size_t Find(const std::string& key) const;
  // Ascending by key.
  const std::vector<TEntry>& Entries() const { return entries_; }

 private:
  std::vector<TEntry> entries_;
};

}  // namespace vsk::detail

#endif
