// Whether the path of an instance is the one that is sought.
#ifndef VSKCORE_SRC_MODEL_TPATHMATCHER_H
#define VSKCORE_SRC_MODEL_TPATHMATCHER_H

#include <vskcore/model/TCIMPropertyDecl.h>
#include <vskcore/model/TCIMReference.h>
#include <vskcore/model/TCIMValue.h>

#include <string>
#include <vector>

#include "model/TCIMInstanceImpl.h"
#include "model/TNameTable.h"

namespace vsk::detail {

// Asked about one instance of a class after another. The answer is always that of BuildPath and
// of the comparison of references, failures included; but where building can't fail no path is
// built, and the values are compared where they are.
class TPathMatcher {
 public:
  // Reads the keys from the class's table, with the failures of EnumerateKeyNames. Both are
  // borrowed and stay as they are meanwhile.
  TPathMatcher(const TNameTable<TCIMPropertyDecl>& table, const TCIMReference& reference);

  bool Fits(const TCIMInstanceImpl& instance);

 private:
  // Collects the values of the instance's keys; false where a path must be built to know.
  bool Collect(const TCIMInstanceImpl& instance);
  bool CollectedFit() const;

  struct TKey {
    const std::string* key;  // in the class's table
    const TCIMPropertyDecl* declaration;
  };

  const TCIMReference& reference_;
  std::vector<TKey> keys_;  // in the order in which a path lists them
  bool buildsAlways_ = false;
  std::vector<const TCIMValue*> values_;  // of the instance at hand, in the order of keys_
};

}  // namespace vsk::detail

#endif
