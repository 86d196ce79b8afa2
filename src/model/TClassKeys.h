// The keys of a class.
#ifndef VSKCORE_SRC_MODEL_TCLASSKEYS_H
#define VSKCORE_SRC_MODEL_TCLASSKEYS_H

#include <vskcore/model/TCIMPropertyDecl.h>
#include <vskcore/model/TCIMValue.h>

#include <string>
#include <vector>

#include "model/TPropertyTable.h"

class TCIMInstanceImpl;

namespace vsk::detail {

// As a path lists them: ascending by declared name. Holds while the schema's revision does.
class TClassKeys {
 public:
  struct TKey {
    const std::string* key;  // in the class's table
    const TCIMPropertyDecl* declaration;

    const std::string& GetName() const { return declaration->GetName(); }
  };

  TClassKeys() = default;
  // Reads them from the class's table, with the failures of EnumerateKeyNames.
  explicit TClassKeys(const TPropertyTable& table);

  const std::vector<TKey>& Items() const { return keys_; }

  // The values of the instance's keys, in this order. False, and values is of no use, where
  // building the path might fail.
  bool Collect(const TCIMInstanceImpl& instance, std::vector<const TCIMValue*>& values) const;
  // Has the instance told when one of its keys changes next.
  void Watch(TCIMInstanceImpl& instance) const;

 private:
  std::vector<TKey> keys_;
  bool renamed_ = false;  // the table knows one by another name, which is not what a path asks for
};

}  // namespace vsk::detail

#endif
