// One use of a qualifier type, behind TCIMQualifier.
#ifndef VSKCORE_SRC_MODEL_TCIMQUALIFIERIMPL_H
#define VSKCORE_SRC_MODEL_TCIMQUALIFIERIMPL_H

#include <vskcore/model/TCIMQualifierDecl.h>
#include <vskcore/model/TCIMValue.h>

#include <string>

// Its copy constructor is the deep copy of the handle.
class TCIMQualifierImpl {
 public:
  TCIMQualifierImpl(const TCIMQualifierDecl& declaration, const TCIMValue& value,
                    TCIMQualifierDecl::EFlavor flavor);

  const std::string& GetName() const { return declaration_->GetName(); }
  const TCIMQualifierDecl& GetDeclaration() const { return *declaration_; }
  const TCIMValue& GetValue() const { return value_; }
  void SetValue(const TCIMValue& value);
  void SetFlavor(TCIMQualifierDecl::EFlavor flavor);
  void UnsetFlavor(TCIMQualifierDecl::EFlavor flavor);
  TCIMQualifierDecl::EFlavor GetFlavor() const { return flavor_; }
  bool GetPropagated() const { return propagated_; }
  void SetPropagated(bool propagated) { propagated_ = propagated; }
  bool operator==(const TCIMQualifierImpl& other) const;
  bool operator<(const TCIMQualifierImpl& other) const;

 private:
  const TCIMQualifierDecl* declaration_;  // not owned
  TCIMValue value_;
  TCIMQualifierDecl::EFlavor flavor_;
  bool propagated_;
};

#endif
