// One property of an instance.
#ifndef VSKCORE_MODEL_TCIMPROPERTY_H
#define VSKCORE_MODEL_TCIMPROPERTY_H

#include <vskcore/core/vskExport.h>
#include <vskcore/model/TCIMValue.h>

#include <string>
#include <vector>

class TCIMPropertyDecl;
class TCIMPropertyImpl;
namespace vsk::detail {
struct TPeek;
}

// A declaration, borrowed from the class, and perhaps a value of its own; without one it shows the
// declaration's. Copies are deep, and there is no move: a property of an instance is never hollow.
// It lives as long as the instance.
class VSK_EXPORT TCIMProperty {
 public:
  explicit TCIMProperty(const TCIMPropertyDecl& declaration);                 // no value of its own
  TCIMProperty(const TCIMPropertyDecl& declaration, const TCIMValue& value);  // by SetValue
  TCIMProperty(const TCIMProperty& other);
  TCIMProperty& operator=(const TCIMProperty& other);
  ~TCIMProperty();

  const std::string GetName() const;               // the declaration's
  const TCIMValue GetValue() const;                // a copy: the own value, or the declaration's
  TCIMValue::TCIMType GetType() const;             // the declaration's, array flag included
  bool IsArray() const;                            // likewise
  const TCIMPropertyDecl& GetDeclaration() const;  // borrowed
  bool GetPropagated() const;                      // true while there is no own value

  // Stores a copy. The type, array flag included, must be the declaration's, and a reference's
  // class the declared one or a subclass of it (a NULL reference may also have no class). Else
  // logs, throws vskStatusTypeMismatch and keeps what was there. A NULL is a value of its own: the
  // declaration's default no longer shows.
  void SetValue(const TCIMValue& value);

  // The value as people read it, under the qualifiers of its declaration: Values and ValueMap turn
  // codes into words, UNITS scales ("1.5 KiloBytes") or writes an interval out, NULLDISPLAY stands
  // for NULL ("" without it), BASE picks the radix. A faulty ValueMap is logged at level 3 and
  // left out. Throws vskStatusInvalidDateTime for UNITS of "KiloSeconds" and the like,
  // vskStatusNotSupported for a BASE that no number can have, vskStatusValueIsNULL for a NULL among
  // the elements of Values, ValueMap or an array.
  std::string ToString() const;
  // The same, an entry for each element of an array, one entry for a scalar. Throws
  // vskStatusValueIsNULL for a NULL array, and for a NULL element that a map is to show.
  std::vector<std::string> ToStringVector() const;

  // Declarations by name, then the own values: two missing are equal, a missing one is less than
  // any. The comparison of values may throw.
  bool operator==(const TCIMProperty& other) const;
  bool operator<(const TCIMProperty& other) const;

 private:
  friend struct vsk::detail::TPeek;

  TCIMPropertyImpl* impl_;  // owned
};

#endif
