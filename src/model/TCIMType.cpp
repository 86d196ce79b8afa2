#include <vskcore/core/TVSKException.h>
#include <vskcore/model/TCIMValue.h>

#include <ostream>

#include "model/TypeName.h"

using TCIMType = TCIMValue::TCIMType;

namespace {

struct TTypeName {
  const char* name;
  bool readable;  // accepted from a text, not only printed
};

// By the number of the type.
constexpr TTypeName kTypeNames[] = {
    {nullptr, false}, {"boolean", true}, {"uint8", true},    {"sint8", true},
    {"uint16", true}, {"sint16", true},  {"uint32", true},   {"sint32", true},
    {"uint64", true}, {"sint64", true},  {"real32", true},   {"real64", true},
    {"char", false},  {"string", true},  {"datetime", true}, {"reference", false},
};
constexpr std::int32_t kTypeCount = sizeof(kTypeNames) / sizeof(kTypeNames[0]);

}  // namespace

const char* vsk::detail::FindTypeName(TCIMValue::ECIMType type) {
  const std::int32_t number = type & ~TCIMType::cimArrayFlag;
  return number < 0 || number >= kTypeCount ? nullptr : kTypeNames[number].name;
}

TCIMType::TCIMType(std::string name) : type_(cimNone) {
  for (char& byte : name) {
    if (byte >= 'A' && byte <= 'Z') byte = static_cast<char>(byte - 'A' + 'a');
  }
  for (std::int32_t number = 1; number < kTypeCount; ++number) {
    if (!kTypeNames[number].readable || name != kTypeNames[number].name) continue;
    type_ = static_cast<ECIMType>(number);
    return;
  }
  throw TVSKException(vskStatusTypeMismatch);
}

std::string TCIMType::ToString() const {
  const char* const name = vsk::detail::FindTypeName(type_);
  if (name == nullptr) throw TVSKException(vskStatusTypeMismatch);
  return name;
}

std::ostream& operator<<(std::ostream& stream, const TCIMType& type) {
  return stream << type.ToString();
}
