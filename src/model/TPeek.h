// A look inside the handles for the library itself, where the public operation would copy.
#ifndef VSKCORE_SRC_MODEL_TPEEK_H
#define VSKCORE_SRC_MODEL_TPEEK_H

#include <vskcore/model/TCIMReference.h>

#include <string>

class TCIMInstance;
class TCIMInstanceImpl;
class TCIMProperty;
class TCIMPropertyDecl;
class TCIMPropertyDeclImpl;
class TCIMPropertyImpl;
class TCIMQualifier;
class TCIMReferenceImpl;
class TCIMValue;
class TCIMValueImpl;

namespace vsk::detail {

struct TPeek {
  // The stored value itself; valid until the qualifier changes.
  static const TCIMValue& Value(const TCIMQualifier& qualifier);
  // The value that the property shows, its own or the declaration's; valid until it changes.
  static const TCIMValue& Value(const TCIMProperty& property);
  static TCIMPropertyImpl& Impl(TCIMProperty& property);
  static const TCIMPropertyDeclImpl& Impl(const TCIMPropertyDecl& declaration);
  static TCIMInstanceImpl& Impl(const TCIMInstance& instance);
  static const TCIMReferenceImpl& Impl(const TCIMReference& reference);
  // The content of a value, null for NULL.
  static const TCIMValueImpl* Content(const TCIMValue& value);
  // The text in a string that isn't NULL.
  static const std::string& Text(const TCIMValue& value);
  // The reference in a value, null for NULL and for every other type.
  static const TCIMReference* Reference(const TCIMValue& value);
  // The bindings themselves; valid until the reference changes.
  static const TCIMReference::TKeyBindings& Bindings(const TCIMReference& reference);
};

}  // namespace vsk::detail

#endif
