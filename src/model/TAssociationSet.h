// The association classes registered at one class.
#ifndef VSKCORE_SRC_MODEL_TASSOCIATIONSET_H
#define VSKCORE_SRC_MODEL_TASSOCIATIONSET_H

#include <map>
#include <string>
#include <utility>
#include <vector>

class TCIMClass;

namespace vsk::detail {

// Ascending by lower-cased class name, so that walks agree between runs. Owns nothing.
class TAssociationSet {
 public:
  // The name is normalised already.
  void Add(std::string key, TCIMClass& association) {
    entries_.emplace(std::move(key), &association);
  }
  // Takes over what stands in another set; this can't fail.
  void Merge(TAssociationSet& other) noexcept { entries_.merge(other.entries_); }

  std::vector<TCIMClass*> Enumerate() const;

 private:
  std::multimap<std::string, TCIMClass*> entries_;
};

}  // namespace vsk::detail

#endif
