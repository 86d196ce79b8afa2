// A qualifier type known to a container.
#ifndef VSKCORE_MODEL_TCIMQUALIFIERDECL_H
#define VSKCORE_MODEL_TCIMQUALIFIERDECL_H

#include <vskcore/core/vskExport.h>
#include <vskcore/model/TCIMValue.h>

#include <boost/shared_ptr.hpp>
#include <cstdint>
#include <string>

class TCIMQualifierDeclImpl;
class TContainer;

// A name, a default value (which is also the source of the type), a scope and a default flavor.
// Known by its address and never copied. The caller owns it until AddToContainer, the container
// from then on, whatever comes of the call. It must outlive the qualifiers made from it.
//
// Scope is recorded and never enforced, and nothing holds a qualifier's value against the type of
// its declaration.
class VSK_EXPORT TCIMQualifierDecl {
 public:
  // How a qualifier fares behind its first use: bits.
  enum EFlavor : std::int32_t {
    flavorNone = 0,
    flavorOverridable = 1,   // a later qualifier of the name replaces this one
    flavorToSubclass = 2,    // a class qualifier is copied into subclasses as they are made
    flavorTranslatable = 4,  // carried along
  };
  // What it is meant for: bits.
  enum EScope : std::int32_t {
    scopeNone = 0,
    scopeClass = 1,
    scopeAssociation = 2,
    scopeProperty = 4,
    scopeReference = 8,
  };

  // No name, a NULL without a type, no scope, no flavor.
  explicit TCIMQualifierDecl(TContainer& container);
  // The name is not checked here but when the declaration joins its container.
  TCIMQualifierDecl(TContainer& container, const std::string& name, const TCIMValue& value,
                    EScope scope, EFlavor flavor);
  TCIMQualifierDecl(const TCIMQualifierDecl&) = delete;
  TCIMQualifierDecl& operator=(const TCIMQualifierDecl&) = delete;
  virtual ~TCIMQualifierDecl();

  const std::string& GetName() const;  // as it was given, in its case of letters
  // A declaration in a container's table keeps the key under which it was added.
  void SetName(const std::string& name);
  TCIMValue::TCIMType GetType() const;  // of the default value, array flag included
  bool IsArray() const;                 // likewise
  const TCIMValue GetValue() const;     // a copy of the default value
  // Any value; the type is not held against the one before. Fails as assigning a value does.
  void SetValue(const TCIMValue& value);
  TContainer& GetContainer() const;  // the one that it was made for
  EScope GetScope() const;           // as it was given
  // Add and take away bits. Only qualifiers made later see the change.
  void SetFlavor(EFlavor flavor);
  void UnsetFlavor(EFlavor flavor);
  EFlavor GetFlavor() const;  // what a new qualifier starts with

  void Validate() const;  // accepts everything
  // Hands this heap object to its container, at once and for good: it is destroyed when the call
  // fails, unless it stands there already. Throws vskStatusAlreadyExists (logged at level 3) for a
  // name that is taken, vskStatusInvalidCIMName for one that is no CIM name.
  void AddToContainer() const;

  // By name alone, in any case of letters. Throw vskStatusInvalidCIMName.
  bool operator==(const TCIMQualifierDecl& other) const;
  bool operator<(const TCIMQualifierDecl& other) const;

 private:
  boost::shared_ptr<TCIMQualifierDeclImpl> impl_;
};

// Bits, as in the numbers.
constexpr TCIMQualifierDecl::EFlavor operator|(TCIMQualifierDecl::EFlavor left,
                                               TCIMQualifierDecl::EFlavor right) {
  return static_cast<TCIMQualifierDecl::EFlavor>(static_cast<std::int32_t>(left) |
                                                 static_cast<std::int32_t>(right));
}
constexpr TCIMQualifierDecl::EFlavor operator&(TCIMQualifierDecl::EFlavor left,
                                               TCIMQualifierDecl::EFlavor right) {
  return static_cast<TCIMQualifierDecl::EFlavor>(static_cast<std::int32_t>(left) &
                                                 static_cast<std::int32_t>(right));
}
constexpr TCIMQualifierDecl::EFlavor operator~(TCIMQualifierDecl::EFlavor flavor) {
  return static_cast<TCIMQualifierDecl::EFlavor>(~static_cast<std::int32_t>(flavor));
}
// Bits, as in the numbers.
constexpr TCIMQualifierDecl::EScope operator|(TCIMQualifierDecl::EScope left,
                                              TCIMQualifierDecl::EScope right) {
  return static_cast<TCIMQualifierDecl::EScope>(static_cast<std::int32_t>(left) |
                                                static_cast<std::int32_t>(right));
}
constexpr TCIMQualifierDecl::EScope operator&(TCIMQualifierDecl::EScope left,
                                              TCIMQualifierDecl::EScope right) {
  return static_cast<TCIMQualifierDecl::EScope>(static_cast<std::int32_t>(left) &
                                                static_cast<std::int32_t>(right));
}
constexpr TCIMQualifierDecl::EScope operator~(TCIMQualifierDecl::EScope scope) {
  return static_cast<TCIMQualifierDecl::EScope>(~static_cast<std::int32_t>(scope));
}

#endif
