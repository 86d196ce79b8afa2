// What stands behind a TCIMPropertyDecl.
#ifndef VSKCORE_SRC_MODEL_TCIMPROPERTYDECLIMPL_H
#define VSKCORE_SRC_MODEL_TCIMPROPERTYDECLIMPL_H

#include <vskcore/model/TCIMValue.h>

#include <memory>
#include <string>

#include "model/TQualifierTable.h"
#include "model/TValueMap.h"

class TCIMClass;
class TCIMPropertyDecl;

// TCIMClassImpl and TClassKeys reach in for IsKey, the display for the qualifiers and ValueMap.
class TCIMPropertyDeclImpl {
 public:
  TCIMPropertyDeclImpl(TCIMPropertyDecl& owner, const std::string& name, TCIMClass& owningClass,
                       const TCIMValue& value);
  TCIMPropertyDeclImpl(const TCIMPropertyDeclImpl&) = delete;
  TCIMPropertyDeclImpl& operator=(const TCIMPropertyDeclImpl&) = delete;

  void Validate() const {}
  void AddToContainer() const;

  const std::string& GetName() const { return name_; }
  void SetName(const std::string& name);
  const TCIMValue& GetValue() const { return value_; }
  void SetValue(const TCIMValue& value);
  TCIMClass& GetClass() const { return class_; }

  vsk::detail::TQualifierTable& Qualifiers() { return qualifiers_; }
  const vsk::detail::TQualifierTable& Qualifiers() const { return qualifiers_; }

  // Made at the first use and kept; valid until the next change to the schema. Throws as making it
  // does.
  const vsk::detail::TValueMap& ValueMap() const;

  // Whether KEY is there and true, as IsTrue tells.
  bool IsKey() const { return vsk::detail::IsTrue(qualifiers_.FindKey("key")); }

  bool operator==(const TCIMPropertyDeclImpl& other) const;
  bool operator<(const TCIMPropertyDeclImpl& other) const;

 private:
  TCIMPropertyDecl& owner_;
  std::string name_;
  TCIMClass& class_;
  TCIMValue value_;
  vsk::detail::TQualifierTable qualifiers_;
  mutable std::unique_ptr<const vsk::detail::TValueMap> valueMap_;
};

#endif
