// The qualifiers of one holder: a class or a property declaration.
#ifndef VSKCORE_SRC_MODEL_TQUALIFIERTABLE_H
#define VSKCORE_SRC_MODEL_TQUALIFIERTABLE_H

#include <vskcore/model/TCIMQualifier.h>

#include <string>
#include <vector>

#include "model/TNameTable.h"

namespace vsk::detail {

// Carries out ICIMAllowQualifiers for both holders, with its failures and its rules of ownership.
class TQualifierTable {
 public:
  void Add(TCIMQualifier& qualifier);
  const TCIMQualifier& Get(const std::string& name) const { return Require(Find(name)); }
  const TCIMQualifier* Find(const std::string& name) const { return table_.Find(name); }
  // The name is normalised already.
  const TCIMQualifier* FindKey(const std::string& key) const { return table_.FindKey(key); }
  // The value itself, valid until the qualifier changes; null when that is absent or NULL. The name
  // is normalised already.
  const TCIMValue* FindValue(const std::string& key) const;
  std::vector<const TCIMQualifier*> Enumerate() const {
    return table_.Enumerate<const TCIMQualifier*>();
  }
  void Remove(const TCIMQualifier& qualifier);

  // Takes over copies, marked as propagated, of those qualifiers of a superclass that go to
  // subclasses. This table is empty before.
  void Inherit(const TQualifierTable& superclass);

 private:
  TNameTable<TCIMQualifier> table_;
};

// Whether a qualifier is there, has a value, and the value is true. Throws vskStatusTypeMismatch
// for a value that is no boolean.
bool IsTrue(const TCIMQualifier* qualifier);

}  // namespace vsk::detail

#endif
