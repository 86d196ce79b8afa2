// The one typed value of the object model.
#ifndef VSKCORE_MODEL_TCIMVALUE_H
#define VSKCORE_MODEL_TCIMVALUE_H

#include <vskcore/core/vskExport.h>

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

class TCIMClass;
class TCIMDateTime;
class TCIMReference;
class TCIMValueImpl;
class TContainer;
namespace vsk::detail {
struct TPeek;
}

// The value of a property, a qualifier, a key binding or an array element. It always has a CIM
// type and may be NULL with that type. Copies are deep, element by element for an array.
//
// Strict: nothing converts between CIM types. A sint32 is read as int and as nothing else; a wrong
// operator throws vskStatusTypeMismatch, any operator on a NULL vskStatusValueIsNULL.
//
//   TCIMValue size(std::uint64_t{4096});
//   std::uint64_t bytes = size;          // 4096
//   std::string text = size.ToString(16);  // "0000000000001000"
//
// No type has arrays in arrays, yet elements can be made to hold them. They are copied and printed
// down to 64 levels; below, that throws vskStatusNotSupported.
//
// No locks: one value, one thread; two copies are independent.
class VSK_EXPORT TCIMValue {
 public:
  // Names a CIM type and converts it from and to its name.
  class VSK_EXPORT TCIMType {
   public:
    // The numbers are part of the contract.
    enum ECIMType : std::int32_t {
      cimNone = 0,
      cimBoolean = 1,
      cimUint8 = 2,
      cimSint8 = 3,
      cimUint16 = 4,
      cimSint16 = 5,
      cimUint32 = 6,
      cimSint32 = 7,
      cimUint64 = 8,
      cimSint64 = 9,
      cimReal32 = 10,
      cimReal64 = 11,
      cimChar = 12,
      cimString = 13,
      cimDateTime = 14,
      cimReference = 15,
      cimArrayFlag = 16  // OR-ed in for an array
    };

    TCIMType(ECIMType type = cimNone) : type_(type) {}  // any word, unchecked
    // By name in any case of letters: "boolean", "uint8" to "sint64", "real32", "real64",
    // "string", "datetime". Any other text, "char" and "reference" too, throws
    // vskStatusTypeMismatch.
    explicit TCIMType(std::string name);
    TCIMType(const TCIMType&) = default;
    TCIMType& operator=(const TCIMType&) = default;

    // The word, array flag included.
    operator ECIMType() const { return type_; }

    // The type's name; an array's is that of its elements. Throws vskStatusTypeMismatch for
    // cimNone and for a word that names no type.
    std::string ToString() const;

   private:
    ECIMType type_;
  };
  using ECIMType = TCIMType::ECIMType;  // for short

  TCIMValue();  // cimNone, NULL
  // A NULL of that type. A size other than 0 is kept as the array's bound and makes it an array.
  TCIMValue(TCIMType type, unsigned int arraySize);
  // As the Set of the same argument.
  TCIMValue(bool value);
  TCIMValue(unsigned char value);
  TCIMValue(signed char value);
  TCIMValue(unsigned short value);
  TCIMValue(short value);
  TCIMValue(unsigned int value);
  TCIMValue(int value);
  TCIMValue(std::uint64_t value);
  TCIMValue(std::int64_t value);
  TCIMValue(float value);
  TCIMValue(double value);
  TCIMValue(const std::string& value);
  TCIMValue(const char* value);
  TCIMValue(const TCIMDateTime& value);
  // Fails as Set of a reference does.
  TCIMValue(const TCIMReference& value);
  // An array, as the Set of the same arguments makes it.
  TCIMValue(TCIMType type, unsigned int arraySize, const std::vector<TCIMValue>& elements);
  // Reads text as a value of a scalar type. Integers choose their base as strtol with base 0 does
  // ("0x1F", "017" is 15); 8-bit types keep the low 8 bits. A number, boolean or real that can't
  // be read gives 0, false or 0.0; one out of range the nearest limit. Booleans are "true" and
  // "false" in any case. Throws vskStatusTypeMismatch for an array or a type without a text form,
  // vskStatusInvalidDateTime for a bad date-time, and what TCIMReference(container, text) throws.
  TCIMValue(TCIMType type, std::string& text, TContainer& container);
  // As Set into a fresh value: a cimNone passes, a scalar cimChar throws vskStatusTypeMismatch.
  TCIMValue(const TCIMValue& other);
  TCIMValue(TCIMValue&& other) noexcept;  // other is a NULL of its type afterwards
  ~TCIMValue();

  // Exactly Set(other), with its failures: assigning an array over an array of the same type
  // throws vskStatusNotImplemented.
  TCIMValue& operator=(const TCIMValue& other);

  // Each replaces type and content. The array bound and a referenced class of before stay.
  void Set(bool value);
  void Set(unsigned char value);
  void Set(signed char value);
  void Set(unsigned short value);
  void Set(short value);
  void Set(unsigned int value);
  void Set(int value);
  void Set(std::uint64_t value);
  void Set(std::int64_t value);
  void Set(float value);
  void Set(double value);
  void Set(const std::string& value);
  void Set(const char* value);  // not null
  void Set(const TCIMDateTime& value);
  // Also takes over the reference's class as the referenced class. A reference without a class
  // throws vskStatusInvalidReference, with the reference already stored. A reference whose
  // instance does not exist yet can be stored.
  void Set(const TCIMReference& value);
  // Makes this an array of copies of elements; type names the elements' type, with or without the
  // array flag. arraySize is the declared bound and compared with nothing. An element of another
  // type is logged and throws vskStatusInvalidProperty; the array stays stored. NULL elements pass.
  void Set(TCIMType type, unsigned int arraySize, const std::vector<TCIMValue>& elements);
  // Takes over other. Does nothing when the two are equal already. Throws vskStatusNotImplemented
  // where two arrays would have to be compared, vskStatusInvalidDateTime for a timestamp over an
  // interval (this value stays), and vskStatusTypeMismatch when the type of other has no content:
  // cimNone, a scalar cimChar, a word that names no type (this value is then NULL with that type).
  void Set(const TCIMValue& other);

  // Makes this a NULL of that type. The bound is stored only with the array flag.
  void SetNullValue(ECIMType type, unsigned int arraySize);

  bool IsNull() const { return impl_ == nullptr; }  // has a type and no content
  bool IsArray() const { return (type_ & TCIMType::cimArrayFlag) != 0; }  // a NULL array too
  bool IsReference() const { return type_ == TCIMType::cimReference; }    // not an array of them
  TCIMType GetType() const { return type_; }                              // of a NULL too
  unsigned int GetMaxArraySize() const { return maxArraySize_; }          // 0 without a bound

  // The class that a NULL reference would point to. Throws vskStatusInvalidOpSequence when the
  // value isn't NULL. The class is borrowed and must outlive its use here.
  void SetReferencedClass(TCIMClass& referencedClass);
  // The class that a reference points to. Throws vskStatusInvalidReference when there is none.
  TCIMClass& GetReferencedClass() const;
  // The same, null when there is none.
  TCIMClass* FindReferencedClass() const { return referencedClass_; }

  // The value as text. radix is 10, 16 or 8; any other throws vskStatusNotSupported, and so do 16
  // and 8 on signed and real numbers. Only numbers read it. Radix 16 is upper case, zero-filled to
  // the type's width, without a prefix. An array reads "{ 1, 2 }". Throws vskStatusValueIsNULL on
  // NULL, for a NULL element too.
  std::string ToString(unsigned char radix) const;

  // The content. Throws vskStatusValueIsNULL, and vskStatusTypeMismatch unless the C++ type is
  // that of the value's CIM type.
  operator bool() const;
  operator unsigned char() const;
  operator signed char() const;
  operator unsigned short() const;
  operator short() const;
  operator unsigned int() const;
  operator int() const;
  operator std::uint64_t() const;
  operator std::int64_t() const;
  operator float() const;
  operator double() const;
  operator std::string() const;
  operator TCIMDateTime() const;  // take it by copy initialisation: TCIMDateTime when = value;
  operator TCIMReference() const;
  // The elements themselves, not a copy: valid until this value is set or destroyed.
  operator std::vector<TCIMValue>&() const;

  // Equal when both are NULL with one type (and one referenced class, or one array bound), or both
  // are not NULL, of one type and equal in content. Two non-NULL arrays of one type throw
  // vskStatusNotImplemented; date-times and references pass their failures through.
  bool operator==(const TCIMValue& other) const;
  bool operator!=(const TCIMValue& other) const;
  // A total order: NULL first, then by the number of the type, then by content. A uint32 of 1000
  // is less than a sint32 of 1.
  bool operator<(const TCIMValue& other) const;
  bool operator<=(const TCIMValue& other) const;
  bool operator>(const TCIMValue& other) const;
  bool operator>=(const TCIMValue& other) const;

 private:
  friend struct vsk::detail::TPeek;

  // Two words of 32 bits side by side keep the value at three pointers' size.
  TCIMType type_;
  unsigned int maxArraySize_;
  TCIMValueImpl* impl_;         // owned; null is NULL
  TCIMClass* referencedClass_;  // not owned

  template <typename TImpl, typename TArgument>
  VSK_LOCAL void Store(ECIMType type, const TArgument& content);
  VSK_LOCAL const TCIMValueImpl& Content(ECIMType expected) const;
};

// Bits, as in the numbers.
constexpr TCIMValue::ECIMType operator|(TCIMValue::ECIMType left, TCIMValue::ECIMType right) {
  return static_cast<TCIMValue::ECIMType>(static_cast<std::int32_t>(left) |
                                          static_cast<std::int32_t>(right));
}
constexpr TCIMValue::ECIMType operator&(TCIMValue::ECIMType left, TCIMValue::ECIMType right) {
  return static_cast<TCIMValue::ECIMType>(static_cast<std::int32_t>(left) &
                                          static_cast<std::int32_t>(right));
}
constexpr TCIMValue::ECIMType operator~(TCIMValue::ECIMType type) {
  return static_cast<TCIMValue::ECIMType>(~static_cast<std::int32_t>(type));
}

// Writes the type's name, by ToString with its failures.
VSK_EXPORT std::ostream& operator<<(std::ostream& stream, const TCIMValue::TCIMType& type);

#endif
