// The content of a value: one small class for each family of CIM types.
#ifndef VSKCORE_MODEL_TCIMVALUEIMPL_H
#define VSKCORE_MODEL_TCIMVALUEIMPL_H

#include <vskcore/core/vskExport.h>
#include <vskcore/model/TCIMDateTime.h>
#include <vskcore/model/TCIMReference.h>
#include <vskcore/model/TCIMValue.h>

#include <cstdint>
#include <string>
#include <vector>

#if defined(__GNUC__)
// Conversions to other types can't hide one another, yet some compilers say so.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Woverloaded-virtual"
#endif

// What a TCIMValue holds when it isn't NULL. Owned by exactly one value. Every conversion throws
// vskStatusTypeMismatch unless the class of that type overrides it. The order of the virtual
// operations is part of the contract.
class VSK_EXPORT TCIMValueImpl {
 public:
  TCIMValueImpl() = default;
  TCIMValueImpl(const TCIMValueImpl&) = default;
  TCIMValueImpl& operator=(const TCIMValueImpl&) = default;
  virtual ~TCIMValueImpl();

  // The content, in its own C++ type.
  virtual operator bool() const;
  virtual operator unsigned char() const;
  virtual operator signed char() const;
  virtual operator unsigned short() const;
  virtual operator short() const;
  virtual operator unsigned int() const;
  virtual operator int() const;
  virtual operator std::uint64_t() const;
  virtual operator std::int64_t() const;
  virtual operator float() const;
  virtual operator double() const;
  virtual operator std::string() const;
  virtual operator TCIMDateTime() const;
  virtual operator TCIMReference() const;
  virtual operator std::vector<TCIMValue>&() const;

  // By the rules of TCIMValue::ToString.
  virtual std::string ToString(unsigned char radix) const = 0;
  // By the rules of TCIMValue's comparisons; another value of another type gives false.
  virtual bool operator==(const TCIMValue& other) const = 0;
  virtual bool operator<(const TCIMValue& other) const = 0;
};

// A boolean, an integer or a real. Each conversion demands its own type exactly.
class VSK_EXPORT TCIMNumericValueImpl : public TCIMValueImpl {
 public:
  // The C++ type picks the CIM type.
  explicit TCIMNumericValueImpl(bool value);
  explicit TCIMNumericValueImpl(unsigned char value);
  explicit TCIMNumericValueImpl(signed char value);
  explicit TCIMNumericValueImpl(unsigned short value);
  explicit TCIMNumericValueImpl(short value);
  explicit TCIMNumericValueImpl(unsigned int value);
  explicit TCIMNumericValueImpl(int value);
  explicit TCIMNumericValueImpl(std::uint64_t value);
  explicit TCIMNumericValueImpl(std::int64_t value);
  explicit TCIMNumericValueImpl(float value);
  explicit TCIMNumericValueImpl(double value);
  TCIMNumericValueImpl(const TCIMNumericValueImpl& other);

  operator bool() const override;
  operator unsigned char() const override;
  operator signed char() const override;
  operator unsigned short() const override;
  operator short() const override;
  operator unsigned int() const override;
  operator int() const override;
  operator std::uint64_t() const override;
  operator std::int64_t() const override;
  operator float() const override;
  operator double() const override;
  std::string ToString(unsigned char radix) const override;
  bool operator==(const TCIMValue& other) const override;
  bool operator<(const TCIMValue& other) const override;

 private:
  union TNumbers {
    bool boolean;
    unsigned char uint8;
    signed char sint8;
    unsigned short uint16;
    short sint16;
    unsigned int uint32;
    int sint32;
    std::uint64_t uint64;
    std::int64_t sint64;
    float real32;
    double real64;
  };

  template <typename TNumber>
  VSK_LOCAL TNumber Take(TCIMValue::ECIMType type, TNumber TNumbers::*member) const;
  // Hands the number to visit in its own C++ type.
  template <typename TVisit>
  VSK_LOCAL auto Visit(const TVisit& visit) const;

  TCIMValue::TCIMType type_;
  TNumbers number_;
};

// A string of bytes; comparisons are byte-wise.
class VSK_EXPORT TCIMStringValueImpl : public TCIMValueImpl {
 public:
  // A copy of the text, which is not null.
  explicit TCIMStringValueImpl(const std::string& text);
  explicit TCIMStringValueImpl(const char* text);
  TCIMStringValueImpl(const TCIMStringValueImpl& other);

  operator std::string() const override;
  std::string ToString(unsigned char radix) const override;
  bool operator==(const TCIMValue& other) const override;
  bool operator<(const TCIMValue& other) const override;

 private:
  friend struct vsk::detail::TPeek;

  std::string text_;
};

// A date-time; text and comparisons fail as those of TCIMDateTime.
class VSK_EXPORT TCIMDateTimeValueImpl : public TCIMValueImpl {
 public:
  explicit TCIMDateTimeValueImpl(const TCIMDateTime& dateTime);  // a copy of it
  TCIMDateTimeValueImpl(const TCIMDateTimeValueImpl& other);

  operator TCIMDateTime() const override;
  std::string ToString(unsigned char radix) const override;
  bool operator==(const TCIMValue& other) const override;
  bool operator<(const TCIMValue& other) const override;

 private:
  TCIMDateTime dateTime_;
};

// An array. Its comparisons throw vskStatusNotImplemented.
class VSK_EXPORT TCIMArrayValueImpl : public TCIMValueImpl {
 public:
  explicit TCIMArrayValueImpl(const std::vector<TCIMValue>& elements);  // copies of them
  TCIMArrayValueImpl(const TCIMArrayValueImpl& other);

  operator std::vector<TCIMValue>&() const override;
  std::string ToString(unsigned char radix) const override;
  bool operator==(const TCIMValue& other) const override;
  bool operator<(const TCIMValue& other) const override;

 private:
  friend class TCIMValue;

  mutable std::vector<TCIMValue> elements_;  // handed out for change from a const value
  TCIMArrayValueImpl* nextToGo_ = nullptr;   // while arrays in arrays are destroyed
};

// A reference. Storing one looks its instance up, so that copies carry the resolved instance; an
// instance that doesn't exist yet is no failure.
class VSK_EXPORT TCIMReferenceValueImpl : public TCIMValueImpl {
 public:
  explicit TCIMReferenceValueImpl(const TCIMReference& reference);  // a copy of it
  TCIMReferenceValueImpl(const TCIMReferenceValueImpl& other);

  operator TCIMReference() const override;
  std::string ToString(unsigned char radix) const override;  // the path
  bool operator==(const TCIMValue& other) const override;
  bool operator<(const TCIMValue& other) const override;

 private:
  friend struct vsk::detail::TPeek;

  TCIMReference reference_;
};

#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif

#endif
