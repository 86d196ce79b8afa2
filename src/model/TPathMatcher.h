// Whether the path of an instance is the one that is sought.
#ifndef VSKCORE_SRC_MODEL_TPATHMATCHER_H
#define VSKCORE_SRC_MODEL_TPATHMATCHER_H

#include <vskcore/model/TCIMReference.h>
#include <vskcore/model/TCIMValue.h>

#include <vector>

#include "model/TCIMInstanceImpl.h"
#include "model/TClassKeys.h"

namespace vsk::detail {

// Asked about one instance of a class after another. The answer is always that of BuildPath and
// of the comparison of references, failures included; but where building can't fail no path is
// built, and the values are compared where they are.
class TPathMatcher {
 public:
  // Both are borrowed and stay as they are meanwhile.
  TPathMatcher(const TClassKeys& keys, const TCIMReference& reference)
      : keys_(keys), reference_(reference) {}

  bool Fits(const TCIMInstanceImpl& instance);

 private:
  bool CollectedFit() const;

  const TClassKeys& keys_;
  const TCIMReference& reference_;
  std::vector<const TCIMValue*> values_;  // of the instance at hand, in the order of keys_
};

}  // namespace vsk::detail

#endif
