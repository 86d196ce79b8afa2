#include <vskcore/core/TVSKException.h>
#include <vskcore/model/TCIMValueImpl.h>

#include <charconv>
#include <type_traits>

#include "model/TPeek.h"

using TCIMType = TCIMValue::TCIMType;

namespace {

[[noreturn]] void Refuse(vskStatus status) { throw TVSKException(status); }

// The content of another value whose type is that of TImpl.
template <typename TImpl>
const TImpl& ContentOf(const TCIMValue& value) {
  const TCIMValueImpl* const content = vsk::detail::TPeek::Content(value);
  if (content == nullptr) Refuse(vskStatusValueIsNULL);
  return static_cast<const TImpl&>(*content);
}

// What a stream with the classic locale prints, without its cost.
template <typename TNumber, typename... TFormat>
std::string Print(TNumber number, TFormat... format) {
  char digits[32];
  return {digits, std::to_chars(digits, digits + sizeof(digits), number, format...).ptr};
}

// Two upper-case digits for each byte of the type.
template <typename TUnsigned>
std::string PrintHex(TUnsigned number) {
  std::string text(2 * sizeof(TUnsigned), '0');
  for (auto digit = text.rbegin(); number != 0; ++digit) {
    *digit = "0123456789ABCDEF"[number & 15U];
    number = static_cast<TUnsigned>(number >> 4U);
  }
  return text;
}

template <typename TNumber>
std::string PrintNumber(TNumber number, unsigned char radix) {
  if constexpr (std::is_same_v<TNumber, bool>) {
    return number ? "true" : "false";
  } else if constexpr (std::is_unsigned_v<TNumber>) {
    return radix == 16 ? PrintHex(number) : Print(number, radix);
  } else {
    if (radix != 10) Refuse(vskStatusNotSupported);
    if constexpr (std::is_integral_v<TNumber>) {
      return Print(number);
    } else {
      return Print(number, std::chars_format::general, 6);
    }
  }
}

// How deep this thread is in arrays that lie in arrays, directly or as keys of paths. Nobody means
// to make those, but nothing prevents it.
class TNesting {
 public:
  TNesting() {
    if (depth_ == kMostNested) Refuse(vskStatusNotSupported);
    ++depth_;
  }
  ~TNesting() { --depth_; }
  TNesting(const TNesting&) = delete;
  TNesting& operator=(const TNesting&) = delete;

 private:
  static constexpr int kMostNested = 64;

  static thread_local int depth_;
};

thread_local int TNesting::depth_ = 0;

std::vector<TCIMValue> CopyOf(const std::vector<TCIMValue>& elements) {
  const TNesting nesting;
  return elements;
}

}  // namespace

TCIMValueImpl::~TCIMValueImpl() = default;

TCIMValueImpl::operator bool() const { Refuse(vskStatusTypeMismatch); }
TCIMValueImpl::operator unsigned char() const { Refuse(vskStatusTypeMismatch); }
TCIMValueImpl::operator signed char() const { Refuse(vskStatusTypeMismatch); }
TCIMValueImpl::operator unsigned short() const { Refuse(vskStatusTypeMismatch); }
TCIMValueImpl::operator short() const { Refuse(vskStatusTypeMismatch); }
TCIMValueImpl::operator unsigned int() const { Refuse(vskStatusTypeMismatch); }
TCIMValueImpl::operator int() const { Refuse(vskStatusTypeMismatch); }
TCIMValueImpl::operator std::uint64_t() const { Refuse(vskStatusTypeMismatch); }
TCIMValueImpl::operator std::int64_t() const { Refuse(vskStatusTypeMismatch); }
TCIMValueImpl::operator float() const { Refuse(vskStatusTypeMismatch); }
TCIMValueImpl::operator double() const { Refuse(vskStatusTypeMismatch); }
TCIMValueImpl::operator std::string() const { Refuse(vskStatusTypeMismatch); }
TCIMValueImpl::operator TCIMDateTime() const { Refuse(vskStatusTypeMismatch); }
TCIMValueImpl::operator TCIMReference() const { Refuse(vskStatusTypeMismatch); }
TCIMValueImpl::operator std::vector<TCIMValue>&() const { Refuse(vskStatusTypeMismatch); }

// Numbers.

TCIMNumericValueImpl::TCIMNumericValueImpl(bool value) : type_(TCIMType::cimBoolean) {
  number_.boolean = value;
}
TCIMNumericValueImpl::TCIMNumericValueImpl(unsigned char value) : type_(TCIMType::cimUint8) {
  number_.uint8 = value;
}
TCIMNumericValueImpl::TCIMNumericValueImpl(signed char value) : type_(TCIMType::cimSint8) {
  number_.sint8 = value;
}
TCIMNumericValueImpl::TCIMNumericValueImpl(unsigned short value) : type_(TCIMType::cimUint16) {
  number_.uint16 = value;
}
TCIMNumericValueImpl::TCIMNumericValueImpl(short value) : type_(TCIMType::cimSint16) {
  number_.sint16 = value;
}
TCIMNumericValueImpl::TCIMNumericValueImpl(unsigned int value) : type_(TCIMType::cimUint32) {
  number_.uint32 = value;
}
TCIMNumericValueImpl::TCIMNumericValueImpl(int value) : type_(TCIMType::cimSint32) {
  number_.sint32 = value;
}
TCIMNumericValueImpl::TCIMNumericValueImpl(std::uint64_t value) : type_(TCIMType::cimUint64) {
  number_.uint64 = value;
}
TCIMNumericValueImpl::TCIMNumericValueImpl(std::int64_t value) : type_(TCIMType::cimSint64) {
  number_.sint64 = value;
}
TCIMNumericValueImpl::TCIMNumericValueImpl(float value) : type_(TCIMType::cimReal32) {
  number_.real32 = value;
}
TCIMNumericValueImpl::TCIMNumericValueImpl(double value) : type_(TCIMType::cimReal64) {
  number_.real64 = value;
}
TCIMNumericValueImpl::TCIMNumericValueImpl(const TCIMNumericValueImpl&) = default;

template <typename TNumber>
TNumber TCIMNumericValueImpl::Take(TCIMValue::ECIMType type, TNumber TNumbers::*member) const {
  if (type_ != type) Refuse(vskStatusTypeMismatch);
  return number_.*member;
}

template <typename TVisit>
auto TCIMNumericValueImpl::Visit(const TVisit& visit) const {
  switch (type_) {
    case TCIMType::cimBoolean:
      return visit(number_.boolean);
    case TCIMType::cimUint8:
      return visit(number_.uint8);
    case TCIMType::cimSint8:
      return visit(number_.sint8);
    case TCIMType::cimUint16:
      return visit(number_.uint16);
    case TCIMType::cimSint16:
      return visit(number_.sint16);
    case TCIMType::cimUint32:
      return visit(number_.uint32);
    case TCIMType::cimSint32:
      return visit(number_.sint32);
    case TCIMType::cimUint64:
      return visit(number_.uint64);
    case TCIMType::cimSint64:
      return visit(number_.sint64);
    case TCIMType::cimReal32:
      return visit(number_.real32);
    default:
      return visit(number_.real64);
  }
}

TCIMNumericValueImpl::operator bool() const {
  return Take(TCIMType::cimBoolean, &TNumbers::boolean);
}
TCIMNumericValueImpl::operator unsigned char() const {
  return Take(TCIMType::cimUint8, &TNumbers::uint8);
}
TCIMNumericValueImpl::operator signed char() const {
  return Take(TCIMType::cimSint8, &TNumbers::sint8);
}
TCIMNumericValueImpl::operator unsigned short() const {
  return Take(TCIMType::cimUint16, &TNumbers::uint16);
}
TCIMNumericValueImpl::operator short() const {
  return Take(TCIMType::cimSint16, &TNumbers::sint16);
}
TCIMNumericValueImpl::operator unsigned int() const {
  return Take(TCIMType::cimUint32, &TNumbers::uint32);
}
TCIMNumericValueImpl::operator int() const { return Take(TCIMType::cimSint32, &TNumbers::sint32); }
TCIMNumericValueImpl::operator std::uint64_t() const {
  return Take(TCIMType::cimUint64, &TNumbers::uint64);
}
TCIMNumericValueImpl::operator std::int64_t() const {
  return Take(TCIMType::cimSint64, &TNumbers::sint64);
}
TCIMNumericValueImpl::operator float() const {
  return Take(TCIMType::cimReal32, &TNumbers::real32);
}
TCIMNumericValueImpl::operator double() const {
  return Take(TCIMType::cimReal64, &TNumbers::real64);
}

std::string TCIMNumericValueImpl::ToString(unsigned char radix) const {
  if (radix != 10 && radix != 16 && radix != 8) Refuse(vskStatusNotSupported);
  return Visit([radix](auto number) { return PrintNumber(number, radix); });
}

bool TCIMNumericValueImpl::operator==(const TCIMValue& other) const {
  if (other.GetType() != type_) return false;
  return Visit([&other](auto number) { return number == static_cast<decltype(number)>(other); });
}

bool TCIMNumericValueImpl::operator<(const TCIMValue& other) const {
  if (other.GetType() != type_) return false;
  return Visit([&other](auto number) { return number < static_cast<decltype(number)>(other); });
}

// Strings.

TCIMStringValueImpl::TCIMStringValueImpl(const std::string& text) : text_(text) {}
TCIMStringValueImpl::TCIMStringValueImpl(const char* text) : text_(text) {}
TCIMStringValueImpl::TCIMStringValueImpl(const TCIMStringValueImpl&) = default;

const std::string& vsk::detail::TPeek::Text(const TCIMValue& value) {
  return ContentOf<TCIMStringValueImpl>(value).text_;
}

TCIMStringValueImpl::operator std::string() const { return text_; }

std::string TCIMStringValueImpl::ToString(unsigned char) const { return text_; }

bool TCIMStringValueImpl::operator==(const TCIMValue& other) const {
  if (other.GetType() != TCIMType::cimString) return false;
  return text_ == ContentOf<TCIMStringValueImpl>(other).text_;
}

bool TCIMStringValueImpl::operator<(const TCIMValue& other) const {
  if (other.GetType() != TCIMType::cimString) return false;
  return text_ < ContentOf<TCIMStringValueImpl>(other).text_;
}

// Date-times.

TCIMDateTimeValueImpl::TCIMDateTimeValueImpl(const TCIMDateTime& dateTime) : dateTime_(dateTime) {}
TCIMDateTimeValueImpl::TCIMDateTimeValueImpl(const TCIMDateTimeValueImpl&) = default;

TCIMDateTimeValueImpl::operator TCIMDateTime() const { return dateTime_; }

std::string TCIMDateTimeValueImpl::ToString(unsigned char) const { return dateTime_.ToString(); }

bool TCIMDateTimeValueImpl::operator==(const TCIMValue& other) const {
  if (other.GetType() != TCIMType::cimDateTime) return false;
  return dateTime_ == ContentOf<TCIMDateTimeValueImpl>(other).dateTime_;
}

bool TCIMDateTimeValueImpl::operator<(const TCIMValue& other) const {
  if (other.GetType() != TCIMType::cimDateTime) return false;
  return dateTime_ < ContentOf<TCIMDateTimeValueImpl>(other).dateTime_;
}

// Arrays.

TCIMArrayValueImpl::TCIMArrayValueImpl(const std::vector<TCIMValue>& elements)
    : elements_(CopyOf(elements)) {}
TCIMArrayValueImpl::TCIMArrayValueImpl(const TCIMArrayValueImpl& other)
    : TCIMArrayValueImpl(other.elements_) {}

TCIMArrayValueImpl::operator std::vector<TCIMValue>&() const { return elements_; }

std::string TCIMArrayValueImpl::ToString(unsigned char radix) const {
  const TNesting nesting;
  std::string text = "{ ";
  for (const TCIMValue& element : elements_) {
    if (&element != &elements_.front()) text += ", ";
    text += element.ToString(radix);
  }
  return text += " }";
}

bool TCIMArrayValueImpl::operator==(const TCIMValue&) const { Refuse(vskStatusNotImplemented); }
bool TCIMArrayValueImpl::operator<(const TCIMValue&) const { Refuse(vskStatusNotImplemented); }
