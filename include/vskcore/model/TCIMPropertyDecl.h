// The declaration of one property of a class.
#ifndef VSKCORE_MODEL_TCIMPROPERTYDECL_H
#define VSKCORE_MODEL_TCIMPROPERTYDECL_H

#include <vskcore/core/vskExport.h>
#include <vskcore/model/ICIMAllowQualifiers.h>
#include <vskcore/model/TCIMValue.h>

#include <boost/shared_ptr.hpp>
#include <string>
#include <vector>

class TCIMClass;
class TCIMPropertyDeclImpl;
class TCIMQualifier;
namespace vsk::detail {
struct TPeek;
}

// A name, the class that it was made for, qualifiers, and a value that gives both the type and the
// default: usually a typed NULL, which for a reference also names the referenced class.
//
// Known by its address and never copied. The caller owns it until AddToContainer succeeds; then
// the class shares it with every subclass made later, and it lives until the last of them drops
// it. A change to a shared declaration shows through all of them.
//
// Order of use: construct, add qualifiers, SetValue, AddToContainer. Type and OVERRIDE are read
// then.
class VSK_EXPORT TCIMPropertyDecl : public ICIMAllowQualifiers {
 public:
  // The name is not checked here but when the declaration joins its class.
  TCIMPropertyDecl(const std::string& name, TCIMClass& owningClass, const TCIMValue& value);
  TCIMPropertyDecl(const TCIMPropertyDecl&) = delete;
  TCIMPropertyDecl& operator=(const TCIMPropertyDecl&) = delete;
  ~TCIMPropertyDecl() override;

  void Validate() const;  // accepts everything
  // Adds this heap object to its class, which owns it on success; on failure the caller still
  // does and the class is as before. A class whose ASSOCIATION is no boolean throws
  // vskStatusTypeMismatch. Each other failure is logged and throws:
  // - vskStatusNotAssociation: a reference in a class that is no association (yet);
  // - vskStatusInvalidCIMName: no CIM name;
  // - vskStatusAlreadyExists: the class has a property of that name and there is no OVERRIDE
  //   qualifier (its presence decides, its value is never read), or the property was declared in
  //   this same class;
  // - vskStatusNotFound: OVERRIDE with nothing to override;
  // - vskStatusTypeMismatch: OVERRIDE with another type.
  void AddToContainer() const;

  const std::string& GetName() const;  // as it was given, in its case of letters
  // A declaration in a class's table is still found under its old name only.
  void SetName(const std::string& name);
  const TCIMValue& GetValue() const;  // the value itself; valid until SetValue
  // Any value, unchecked. Fails as assigning a value does.
  void SetValue(const TCIMValue& value);
  TCIMValue::TCIMType GetType() const;  // of the value, array flag included
  bool IsArray() const;                 // likewise
  TCIMClass& GetClass() const;          // the class that declares it, also seen from a subclass

  void AddQualifier(TCIMQualifier& qualifier) override;
  const TCIMQualifier& GetQualifier(const std::string& name) const override;
  // Null when absent.
  const TCIMQualifier* FindQualifier(const std::string& name) const;
  std::vector<const TCIMQualifier*> EnumerateQualifiers() const override;
  void RemoveQualifier(TCIMQualifier& qualifier) override;

  // By name alone, in any case of letters. Throw vskStatusInvalidCIMName.
  bool operator==(const TCIMPropertyDecl& other) const;
  bool operator<(const TCIMPropertyDecl& other) const;

 private:
  friend class TCIMClassImpl;
  friend struct vsk::detail::TPeek;

  boost::shared_ptr<TCIMPropertyDeclImpl> impl_;
};

#endif
