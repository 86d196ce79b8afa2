// A qualifier type, behind TCIMQualifierDecl.
#ifndef VSKCORE_SRC_MODEL_TCIMQUALIFIERDECLIMPL_H
#define VSKCORE_SRC_MODEL_TCIMQUALIFIERDECLIMPL_H

#include <vskcore/model/TCIMQualifierDecl.h>
#include <vskcore/model/TCIMValue.h>

#include <string>

class TCIMQualifierDeclImpl {
 public:
  TCIMQualifierDeclImpl(TCIMQualifierDecl& owner, TContainer& container, const std::string& name,
                        const TCIMValue& value, TCIMQualifierDecl::EScope scope,
                        TCIMQualifierDecl::EFlavor flavor);

  const std::string& GetName() const { return name_; }
  void SetName(const std::string& name) { name_ = name; }
  const TCIMValue& GetValue() const { return value_; }
  void SetValue(const TCIMValue& value) { value_.Set(value); }
  TContainer& GetContainer() const { return *container_; }
  TCIMQualifierDecl::EScope GetScope() const { return scope_; }
  void SetFlavor(TCIMQualifierDecl::EFlavor flavor) { flavor_ = flavor_ | flavor; }
  void UnsetFlavor(TCIMQualifierDecl::EFlavor flavor) { flavor_ = flavor_ & ~flavor; }
  TCIMQualifierDecl::EFlavor GetFlavor() const { return flavor_; }
  // Destroys the owner, and this with it, when the container refuses it.
  void AddToContainer() const;
  bool operator==(const TCIMQualifierDeclImpl& other) const;
  bool operator<(const TCIMQualifierDeclImpl& other) const;

 private:
  TCIMQualifierDecl* owner_;  // the handle
  TContainer* container_;     // not owned
  std::string name_;
  TCIMValue value_;
  TCIMQualifierDecl::EScope scope_;
  TCIMQualifierDecl::EFlavor flavor_;
};

#endif
