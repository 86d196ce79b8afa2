// What in a container still depends on something that is to be removed from it.
#ifndef VSKCORE_SRC_MODEL_TDEPENDENTSEARCH_H
#define VSKCORE_SRC_MODEL_TDEPENDENTSEARCH_H

#include <string>
#include <vector>

class TCIMClass;
class TCIMQualifierDecl;

namespace vsk::detail {

// Walks everything that the container holds. What the caller keeps outside is not seen.
class TDependentSearch {
 public:
  // All classes of the container, the root class among them, and all qualifier declarations.
  TDependentSearch(std::vector<const TCIMClass*> classes,
                   std::vector<TCIMQualifierDecl*> qualifierDecls);

  // Each names the first dependent found, "" for none. What belongs to the class itself and goes
  // with it is no dependent.
  std::string On(const TCIMClass& doomed) const;
  std::string On(const TCIMQualifierDecl& doomed) const;

 private:
  std::vector<const TCIMClass*> classes_;
  std::vector<TCIMQualifierDecl*> qualifierDecls_;
};

}  // namespace vsk::detail

#endif
