// One use of a qualifier type, on a class or on a property declaration.
#ifndef VSKCORE_MODEL_TCIMQUALIFIER_H
#define VSKCORE_MODEL_TCIMQUALIFIER_H

#include <vskcore/core/vskExport.h>
#include <vskcore/model/TCIMQualifierDecl.h>
#include <vskcore/model/TCIMValue.h>

#include <boost/shared_ptr.hpp>
#include <string>

class TCIMQualifierImpl;
namespace vsk::detail {
struct TPeek;
}

// A value, a flavor, and a flag that tells a copy inherited from a superclass. Its name is that of
// its declaration, which it borrows and which must outlive it. The caller owns it until a holder
// adopts it (ICIMAllowQualifiers::AddQualifier). Copies are deep; there is no assignment.
class VSK_EXPORT TCIMQualifier {
 public:
  // The flavor of the declaration as it is at this moment.
  TCIMQualifier(const TCIMQualifierDecl& declaration, const TCIMValue& value);
  TCIMQualifier(const TCIMQualifierDecl& declaration, const TCIMValue& value,
                TCIMQualifierDecl::EFlavor flavor);
  TCIMQualifier(const TCIMQualifier& other);
  TCIMQualifier& operator=(const TCIMQualifier&) = delete;
  ~TCIMQualifier();

  const std::string& GetName() const;
  TCIMValue::TCIMType GetType() const;  // of this qualifier's value, not of the declaration
  bool IsArray() const;
  const TCIMQualifierDecl& GetDeclaration() const;
  const TCIMValue GetValue() const;
  // These three clear the propagated flag: a changed copy no longer stands for the superclass's.
  void SetValue(const TCIMValue& value);
  void SetFlavor(TCIMQualifierDecl::EFlavor flavor);    // adds bits
  void UnsetFlavor(TCIMQualifierDecl::EFlavor flavor);  // takes bits away
  TCIMQualifierDecl::EFlavor GetFlavor() const;
  bool GetPropagated() const;
  void SetPropagated(bool propagated);

  // By the declarations' names alone, in any case of letters. Throw vskStatusInvalidCIMName.
  bool operator==(const TCIMQualifier& other) const;
  bool operator<(const TCIMQualifier& other) const;

 private:
  friend struct vsk::detail::TPeek;

  boost::shared_ptr<TCIMQualifierImpl> impl_;
};

#endif
