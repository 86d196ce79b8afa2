// What stands behind a TCIMProperty.
#ifndef VSKCORE_SRC_MODEL_TCIMPROPERTYIMPL_H
#define VSKCORE_SRC_MODEL_TCIMPROPERTYIMPL_H

#include <vskcore/model/TCIMPropertyDecl.h>
#include <vskcore/model/TCIMValue.h>

class TCIMInstanceImpl;

// There are more of these than of anything else, so the fields are packed.
class TCIMPropertyImpl {
 public:
  explicit TCIMPropertyImpl(const TCIMPropertyDecl& declaration) : declaration_(&declaration) {}
  TCIMPropertyImpl(const TCIMPropertyDecl& declaration, const TCIMValue& value);
  // The value is held against the declaration again, which may have changed since.
  TCIMPropertyImpl(const TCIMPropertyImpl& other);
  TCIMPropertyImpl& operator=(const TCIMPropertyImpl&) = delete;

  const TCIMPropertyDecl& GetDeclaration() const { return *declaration_; }
  bool HasOwnValue() const { return value_.GetType() != kNoValue; }
  // The value that shows.
  const TCIMValue& GetValue() const { return HasOwnValue() ? value_ : declaration_->GetValue(); }
  void SetValue(const TCIMValue& value);

  // This stands in that instance, which is told of the next change, and of no other.
  void TellOfNextChange(TCIMInstanceImpl& instance) { watcher_ = &instance; }
  // Value or declaration are about to change, or this is about to leave the instance.
  void TellOfChange() noexcept;

  bool operator==(const TCIMPropertyImpl& other) const;
  bool operator<(const TCIMPropertyImpl& other) const;

 private:
  // No char value can be copied, so none is ever stored.
  static constexpr TCIMValue::ECIMType kNoValue = TCIMValue::TCIMType::cimChar;

  const TCIMPropertyDecl* declaration_;
  TCIMInstanceImpl* watcher_ = nullptr;  // who wants to be told
  TCIMValue value_{kNoValue, 0};
};

#endif
