#include <vskcore/core/TVSKException.h>
#include <vskcore/model/TCIMValue.h>
#include <vskcore/model/TCIMValueImpl.h>

#include <locale>
#include <sstream>
#include <utility>

#include "core/base/Fail.h"
#include "model/ScanNumber.h"
#include "model/TPeek.h"
#include "model/TakeApart.h"
#include "model/TypeName.h"

using TCIMType = TCIMValue::TCIMType;
using vsk::detail::ScanInteger;
using vsk::detail::ToNumber;

namespace {

// "true" in any case of letters behind white space is true, whatever follows it.
bool ReadBoolean(const std::string& text) {
  constexpr char kTrue[] = "true";
  std::size_t place = text.find_first_not_of(" \t\n\v\f\r");
  for (const char* letter = kTrue; *letter != 0; ++letter, ++place) {
    if (place >= text.size() || (text[place] | 0x20) != *letter) return false;
  }
  return true;
}

template <typename TInteger>
TInteger ReadInteger(const std::string& text) {
  return ToNumber<TInteger>(ScanInteger(text));
}

// Reals are rare enough in documents to afford the stream, whose rules for them are intricate. The
// program's own locale must not count: a decimal comma belongs to no document.
template <typename TReal>
TReal ReadReal(const std::string& text) {
  std::istringstream stream(text);
  stream.imbue(std::locale::classic());
  TReal number = 0;
  stream >> number;
  return number;
}

void SetFromText(TCIMValue& value, TCIMValue::ECIMType type, const std::string& text,
                 const TContainer& container) {
  switch (type) {
    case TCIMType::cimBoolean:
      return value.Set(ReadBoolean(text));
    case TCIMType::cimUint8:
      return value.Set(static_cast<unsigned char>(ReadInteger<unsigned int>(text)));
    case TCIMType::cimSint8:
      return value.Set(static_cast<signed char>(ReadInteger<int>(text)));
    case TCIMType::cimUint16:
      return value.Set(ReadInteger<unsigned short>(text));
    case TCIMType::cimSint16:
      return value.Set(ReadInteger<short>(text));
    case TCIMType::cimUint32:
      return value.Set(ReadInteger<unsigned int>(text));
    case TCIMType::cimSint32:
      return value.Set(ReadInteger<int>(text));
    case TCIMType::cimUint64:
      return value.Set(ReadInteger<std::uint64_t>(text));
    case TCIMType::cimSint64:
      return value.Set(ReadInteger<std::int64_t>(text));
    case TCIMType::cimReal32:
      return value.Set(ReadReal<float>(text));
    case TCIMType::cimReal64:
      return value.Set(ReadReal<double>(text));
    case TCIMType::cimString:
      return value.Set(text);
    case TCIMType::cimDateTime:
      return value.Set(TCIMDateTime(text));
    case TCIMType::cimReference:
      return value.Set(TCIMReference(&container, text));
    default:
      throw TVSKException(vskStatusTypeMismatch);
  }
}

template <typename TImpl>
TCIMValueImpl* CopyAs(const TCIMValueImpl& content) {
  return new TImpl(static_cast<const TImpl&>(content));
}

// A copy of the content of a value of that type. The type tells the content's class.
TCIMValueImpl* CopyContent(TCIMValue::ECIMType type, const TCIMValueImpl& content) {
  if ((type & TCIMType::cimArrayFlag) != 0) return CopyAs<TCIMArrayValueImpl>(content);
  if (type == TCIMType::cimString) return CopyAs<TCIMStringValueImpl>(content);
  if (type == TCIMType::cimDateTime) return CopyAs<TCIMDateTimeValueImpl>(content);
  if (type == TCIMType::cimReference) return CopyAs<TCIMReferenceValueImpl>(content);
  return CopyAs<TCIMNumericValueImpl>(content);
}

// Whether a value of that type can be taken over. A char has no content class at all.
bool IsCopyable(TCIMValue::ECIMType type) {
  return (type & TCIMType::cimArrayFlag) != 0 ||
         (type >= TCIMType::cimBoolean && type <= TCIMType::cimReference &&
          type != TCIMType::cimChar);
}

// Fails at the first element of another type. A type without a name must not hide that.
void RequireElements(TCIMValue::ECIMType type, const std::vector<TCIMValue>& elements) {
  const auto nameOf = [](TCIMValue::ECIMType named) -> std::string {
    const char* const name = vsk::detail::FindTypeName(named);
    return name == nullptr ? "none" : name;
  };
  for (const TCIMValue& element : elements) {
    if (element.GetType() == type) continue;
    vsk::detail::Fail(vskStatusInvalidProperty, "ERROR: Attempting to create array of type " +
                                                    nameOf(type) + ", but element is of type " +
                                                    nameOf(element.GetType()) + ".");
  }
}

}  // namespace

const TCIMValueImpl* vsk::detail::TPeek::Content(const TCIMValue& value) { return value.impl_; }

// The new content is complete before the old one goes: the argument may be part of the old one.
template <typename TImpl, typename TArgument>
void TCIMValue::Store(ECIMType type, const TArgument& content) {
  TCIMValueImpl* const made = new TImpl(content);
  delete std::exchange(impl_, made);
  type_ = type;
  // cppcheck-suppress memleak ; impl_ has it
}

const TCIMValueImpl& TCIMValue::Content(ECIMType expected) const {
  if (impl_ == nullptr) throw TVSKException(vskStatusValueIsNULL);
  if (type_ != expected) throw TVSKException(vskStatusTypeMismatch);
  return *impl_;
}

TCIMValue::TCIMValue() : maxArraySize_(0), impl_(nullptr), referencedClass_(nullptr) {}

TCIMValue::TCIMValue(TCIMType type, unsigned int arraySize)
    : type_(type | (arraySize == 0 ? TCIMType::cimNone : TCIMType::cimArrayFlag)),
      maxArraySize_(arraySize),
      impl_(nullptr),
      referencedClass_(nullptr) {}

// Each starts as a complete value, so that its destructor cleans up when Set fails half-way.
TCIMValue::TCIMValue(bool value) : TCIMValue() { Set(value); }
TCIMValue::TCIMValue(unsigned char value) : TCIMValue() { Set(value); }
TCIMValue::TCIMValue(signed char value) : TCIMValue() { Set(value); }
TCIMValue::TCIMValue(unsigned short value) : TCIMValue() { Set(value); }
TCIMValue::TCIMValue(short value) : TCIMValue() { Set(value); }
TCIMValue::TCIMValue(unsigned int value) : TCIMValue() { Set(value); }
TCIMValue::TCIMValue(int value) : TCIMValue() { Set(value); }
TCIMValue::TCIMValue(std::uint64_t value) : TCIMValue() { Set(value); }
TCIMValue::TCIMValue(std::int64_t value) : TCIMValue() { Set(value); }
TCIMValue::TCIMValue(float value) : TCIMValue() { Set(value); }
TCIMValue::TCIMValue(double value) : TCIMValue() { Set(value); }
TCIMValue::TCIMValue(const std::string& value) : TCIMValue() { Set(value); }
TCIMValue::TCIMValue(const char* value) : TCIMValue() { Set(value); }
TCIMValue::TCIMValue(const TCIMDateTime& value) : TCIMValue() { Set(value); }
TCIMValue::TCIMValue(const TCIMReference& value) : TCIMValue() { Set(value); }
TCIMValue::TCIMValue(TCIMType type, unsigned int arraySize, const std::vector<TCIMValue>& elements)
    : TCIMValue() {
  Set(type, arraySize, elements);
}
TCIMValue::TCIMValue(TCIMType type, std::string& text, TContainer& container) : TCIMValue() {
  SetFromText(*this, type, text, container);
}
TCIMValue::TCIMValue(const TCIMValue& other) : TCIMValue() { Set(other); }

// Shows what a copy would: a bound belongs to arrays and a referenced class to references, what
// else was left in the source from an earlier type stays behind.
TCIMValue::TCIMValue(TCIMValue&& other) noexcept
    : type_(other.type_),
      maxArraySize_(other.IsArray() ? other.maxArraySize_ : 0),
      impl_(std::exchange(other.impl_, nullptr)),
      referencedClass_(other.IsReference() ? other.referencedClass_ : nullptr) {}

TCIMValue::~TCIMValue() {
  if (impl_ == nullptr || !IsArray()) {
    delete impl_;
  } else {
    vsk::detail::TakeApart(static_cast<TCIMArrayValueImpl*>(impl_), &TCIMArrayValueImpl::nextToGo_);
  }
}

// NOLINTNEXTLINE(bugprone-unhandled-self-assignment): Set compares first
TCIMValue& TCIMValue::operator=(const TCIMValue& other) {
  Set(other);
  return *this;
}

void TCIMValue::Set(bool value) { Store<TCIMNumericValueImpl>(TCIMType::cimBoolean, value); }
void TCIMValue::Set(unsigned char value) { Store<TCIMNumericValueImpl>(TCIMType::cimUint8, value); }
void TCIMValue::Set(signed char value) { Store<TCIMNumericValueImpl>(TCIMType::cimSint8, value); }
void TCIMValue::Set(unsigned short value) {
  Store<TCIMNumericValueImpl>(TCIMType::cimUint16, value);
}
void TCIMValue::Set(short value) { Store<TCIMNumericValueImpl>(TCIMType::cimSint16, value); }
void TCIMValue::Set(unsigned int value) { Store<TCIMNumericValueImpl>(TCIMType::cimUint32, value); }
void TCIMValue::Set(int value) { Store<TCIMNumericValueImpl>(TCIMType::cimSint32, value); }
void TCIMValue::Set(std::uint64_t value) {
  Store<TCIMNumericValueImpl>(TCIMType::cimUint64, value);
}
void TCIMValue::Set(std::int64_t value) { Store<TCIMNumericValueImpl>(TCIMType::cimSint64, value); }
void TCIMValue::Set(float value) { Store<TCIMNumericValueImpl>(TCIMType::cimReal32, value); }
void TCIMValue::Set(double value) { Store<TCIMNumericValueImpl>(TCIMType::cimReal64, value); }
void TCIMValue::Set(const std::string& value) {
  Store<TCIMStringValueImpl>(TCIMType::cimString, value);
}
void TCIMValue::Set(const char* value) { Store<TCIMStringValueImpl>(TCIMType::cimString, value); }
void TCIMValue::Set(const TCIMDateTime& value) {
  Store<TCIMDateTimeValueImpl>(TCIMType::cimDateTime, value);
}
void TCIMValue::Set(const TCIMReference& value) {
  Store<TCIMReferenceValueImpl>(TCIMType::cimReference, value);
  referencedClass_ = &value.GetClass();
}

void TCIMValue::Set(TCIMType type, unsigned int arraySize, const std::vector<TCIMValue>& elements) {
  Store<TCIMArrayValueImpl>(type | TCIMType::cimArrayFlag, elements);
  maxArraySize_ = arraySize;
  RequireElements(type & ~TCIMType::cimArrayFlag, *this);
}

void TCIMValue::Set(const TCIMValue& other) {
  if (*this == other) return;
  const TCIMType type = other.type_;
  if (!IsCopyable(type)) {
    SetNullValue(type, 0);
    throw TVSKException(vskStatusTypeMismatch);
  }
  TCIMValueImpl* const made = other.IsNull() ? nullptr : CopyContent(type, *other.impl_);
  if (other.IsArray()) maxArraySize_ = other.maxArraySize_;
  if (other.IsReference()) referencedClass_ = other.referencedClass_;
  type_ = type;
  delete std::exchange(impl_, made);
}

void TCIMValue::SetNullValue(ECIMType type, unsigned int arraySize) {
  type_ = type;
  if (IsArray()) maxArraySize_ = arraySize;
  delete std::exchange(impl_, nullptr);
}

void TCIMValue::SetReferencedClass(TCIMClass& referencedClass) {
  if (!IsNull()) throw TVSKException(vskStatusInvalidOpSequence);
  referencedClass_ = &referencedClass;
}

TCIMClass& TCIMValue::GetReferencedClass() const {
  if (referencedClass_ == nullptr) throw TVSKException(vskStatusInvalidReference);
  return *referencedClass_;
}

std::string TCIMValue::ToString(unsigned char radix) const {
  if (IsNull()) throw TVSKException(vskStatusValueIsNULL);
  return impl_->ToString(radix);
}

TCIMValue::operator bool() const { return Content(TCIMType::cimBoolean).operator bool(); }
TCIMValue::operator unsigned char() const {
  return Content(TCIMType::cimUint8).operator unsigned char();
}
TCIMValue::operator signed char() const {
  return Content(TCIMType::cimSint8).operator signed char();
}
TCIMValue::operator unsigned short() const {
  return Content(TCIMType::cimUint16).operator unsigned short();
}
TCIMValue::operator short() const { return Content(TCIMType::cimSint16).operator short(); }
TCIMValue::operator unsigned int() const {
  return Content(TCIMType::cimUint32).operator unsigned int();
}
TCIMValue::operator int() const { return Content(TCIMType::cimSint32).operator int(); }
TCIMValue::operator std::uint64_t() const {
  return Content(TCIMType::cimUint64).operator std::uint64_t();
}
TCIMValue::operator std::int64_t() const {
  return Content(TCIMType::cimSint64).operator std::int64_t();
}
TCIMValue::operator float() const { return Content(TCIMType::cimReal32).operator float(); }
TCIMValue::operator double() const { return Content(TCIMType::cimReal64).operator double(); }
TCIMValue::operator std::string() const {
  return Content(TCIMType::cimString).operator std::string();
}
TCIMValue::operator TCIMDateTime() const {
  return Content(TCIMType::cimDateTime).operator TCIMDateTime();
}
TCIMValue::operator TCIMReference() const {
  return Content(TCIMType::cimReference).operator TCIMReference();
}
TCIMValue::operator std::vector<TCIMValue>&() const {
  return Content(type_ | TCIMType::cimArrayFlag).operator std::vector<TCIMValue>&();
}

bool TCIMValue::operator==(const TCIMValue& other) const {
  if (IsNull() != other.IsNull() || type_ != other.type_) return false;
  if (!IsNull()) return *impl_ == other;
  if (IsReference()) return referencedClass_ == other.referencedClass_;
  return !IsArray() || maxArraySize_ == other.maxArraySize_;
}

bool TCIMValue::operator!=(const TCIMValue& other) const { return !(*this == other); }

bool TCIMValue::operator<(const TCIMValue& other) const {
  if (IsNull() || other.IsNull()) return IsNull() && !other.IsNull();
  return type_ == other.type_ ? *impl_ < other : type_ < other.type_;
}

bool TCIMValue::operator<=(const TCIMValue& other) const { return *this == other || *this < other; }

bool TCIMValue::operator>(const TCIMValue& other) const {
  return !(*this == other) && !(*this < other);
}

bool TCIMValue::operator>=(const TCIMValue& other) const { return !(*this < other); }
