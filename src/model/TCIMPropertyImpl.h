// What stands behind a TCIMProperty.
#ifndef VSKCORE_SRC_MODEL_TCIMPROPERTYIMPL_H
#define VSKCORE_SRC_MODEL_TCIMPROPERTYIMPL_H

#include <vskcore/model/TCIMPropertyDecl.h>
#include <vskcore/model/TCIMValue.h>

#include <optional>

class TCIMPropertyImpl {
 public:
  explicit TCIMPropertyImpl(const TCIMPropertyDecl& declaration) : declaration_(&declaration) {}
  TCIMPropertyImpl(const TCIMPropertyDecl& declaration, const TCIMValue& value);
  // The value is held against the declaration again, which may have changed since.
  TCIMPropertyImpl(const TCIMPropertyImpl& other);
  TCIMPropertyImpl& operator=(const TCIMPropertyImpl&) = delete;

  const TCIMPropertyDecl& GetDeclaration() const { return *declaration_; }
  bool HasOwnValue() const { return value_.has_value(); }
  // The value that shows.
  const TCIMValue& GetValue() const { return value_ ? *value_ : declaration_->GetValue(); }
  void SetValue(const TCIMValue& value);

  bool operator==(const TCIMPropertyImpl& other) const;
  bool operator<(const TCIMPropertyImpl& other) const;

 private:
  const TCIMPropertyDecl* declaration_;
  std::optional<TCIMValue> value_;
};

#endif
