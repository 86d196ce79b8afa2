// The association classes registered at one class.
#ifndef VSKCORE_SRC_MODEL_TASSOCIATIONSET_H
#define VSKCORE_SRC_MODEL_TASSOCIATIONSET_H

#include <string>
#include <utility>
#include <vector>

class TCIMClass;

namespace vsk::detail {

// Ascending by lower-cased class name, so that walks agree between runs. Owns nothing.
class TAssociationSet {
 public:
  // So that the next Add can't fail.
  void MakeRoom();
  // The name is normalised already.
  void Add(std::string key, TCIMClass& association) noexcept;

  std::vector<TCIMClass*> Enumerate() const;

 private:
  std::vector<std::pair<std::string, TCIMClass*>> entries_;
};

}  // namespace vsk::detail

#endif
