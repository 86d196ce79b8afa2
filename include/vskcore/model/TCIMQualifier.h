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

  const std::string& GetName() const;   // the declaration's
  TCIMValue::TCIMType GetType() const;  // of this qualifier's value, not of the declaration
  bool IsArray() const;                 // likewise
  const TCIMQualifierDecl& GetDeclaration() const;  // borrowed
  const TCIMValue GetValue() const;                 // a copy
  // These three clear the propagated flag: a changed copy no longer stands for the superclass's.
  void SetValue(const TCIMValue& value);
  void SetFlavor(TCIMQualifierDecl::EFlavor flavor);    // adds bits
  void UnsetFlavor(TCIMQualifierDecl::EFlavor flavor);  // takes bits away
  TCIMQualifierDecl::EFlavor GetFlavor() const;         // its own, not the declaration's
  bool GetPropagated() const;                           // true for a copy that a subclass took over
  void SetPropagated(bool propagated);                  // for who copies it into a subclass

  // By the declarations' names alone, in any case of letters. Throw vskStatusInvalidCIMName.
  bool operator==(const TCIMQualifier& other) const;
  bool operator<(const TCIMQualifier& other) const;

 private:
  friend struct vsk::detail::TPeek;

  boost::shared_ptr<TCIMQualifierImpl> impl_;
};

#endif
