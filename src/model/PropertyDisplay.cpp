#include "model/PropertyDisplay.h"

#include <vskcore/core/ILogger.h>
#include <vskcore/core/TRootObject.h>
#include <vskcore/model/TCIMDateTime.h>
#include <vskcore/model/TCIMPropertyDecl.h>
#include <vskcore/model/TCIMValue.h>

#include <charconv>
#include <cstdint>

#include "core/base/Fail.h"
#include "model/TCIMPropertyDeclImpl.h"
#include "model/TPeek.h"
#include "model/TValueMap.h"

using TCIMType = TCIMValue::TCIMType;
using vsk::detail::TPeek;
using vsk::detail::TValueMap;

namespace {

// The value of a qualifier of the declaration; null when it is absent, NULL or of another type.
const TCIMValue* FindValue(const TCIMPropertyDecl& declaration, const char* key,
                           TCIMValue::ECIMType type) {
  const TCIMValue* const value = TPeek::Impl(declaration).Qualifiers().FindValue(key);
  return value != nullptr && value->GetType() == type ? value : nullptr;
}

const std::vector<TCIMValue>& Elements(const TCIMValue& value) { return value; }

bool IsUnsigned(TCIMValue::ECIMType type) {
  return type == TCIMType::cimUint8 || type == TCIMType::cimUint16 || type == TCIMType::cimUint32 ||
         type == TCIMType::cimUint64;
}

// Whether values of that type are codes that a map can put into words. Signed numbers never are.
bool IsCode(TCIMValue::ECIMType type) { return type == TCIMType::cimBoolean || IsUnsigned(type); }

// The number behind a code. Throws vskStatusValueIsNULL, and vskStatusTypeMismatch for no code.
std::uint64_t CodeOf(const TCIMValue& value) {
  switch (value.GetType()) {
    case TCIMType::cimBoolean:
      return static_cast<bool>(value) ? 1 : 0;
    case TCIMType::cimUint8:
      return static_cast<unsigned char>(value);
    case TCIMType::cimUint16:
      return static_cast<unsigned short>(value);
    case TCIMType::cimUint32:
      return static_cast<unsigned int>(value);
    default:
      return static_cast<std::uint64_t>(value);
  }
}

// A code that the map doesn't know shows in decimal, whatever BASE and UNITS say.
std::string LookUpValue(const TCIMValue& value, const TValueMap& map) {
  const std::string* const text = map.Find(CodeOf(value));
  return text == nullptr ? value.ToString(10) : *text;
}

std::string FormatPlainValue(const TCIMPropertyDecl& declaration, const TCIMValue& value) {
  const TCIMValue* const base = FindValue(declaration, "base", TCIMType::cimUint8);
  return value.ToString(base == nullptr ? 10 : static_cast<unsigned char>(*base));
}

// What can stand in front of a unit, from the largest to the smallest. The empty word in the
// middle is no scale.
constexpr const char* kScaleWords[] = {"Peta", "Tera",  "Giga",  "Mega", "Kilo",
                                       "",     "Milli", "Micro", "Nano"};
constexpr int kScaleCount = 9;
constexpr int kKilo = 4;
constexpr int kNoScale = 5;
constexpr int kMilli = 6;
constexpr int kMicro = 7;

// Cuts the scale word, if any, off the unit and gives its place.
int CutScale(std::string& unit) {
  for (int scale = 0; scale < kScaleCount; ++scale) {
    const std::string word = kScaleWords[scale];
    if (word.empty() || unit.compare(0, word.size(), word) != 0) continue;
    unit.erase(0, word.size());
    return scale;
  }
  return kNoScale;
}

TCIMDateTime MakeInterval(std::uint64_t seconds, unsigned int microseconds) {
  return TCIMDateTime(static_cast<unsigned int>(seconds / 86400),
                      static_cast<unsigned short>(seconds / 3600 % 24),
                      static_cast<unsigned short>(seconds / 60 % 60),
                      static_cast<unsigned short>(seconds % 60), microseconds);
}

// A count of seconds, written out. Scales above the second are not supported.
std::string FormatInterval(std::uint64_t number, int scale) {
  if (scale <= kKilo) throw TVSKException(vskStatusInvalidDateTime);
  if (scale == kNoScale) return MakeInterval(number, 0).ToUIString();
  const std::uint64_t total = scale == kMilli   ? number * 1000
                              : scale == kMicro ? number
                                                : number / 1000;
  return MakeInterval(total / 1000000, static_cast<unsigned int>(total % 1000000)).ToUIString();
}

// What makes the next larger unit; 0 for a unit that doesn't scale.
float DivisorOf(const std::string& unit) {
  if (unit == "Bytes" || unit == "Bits" || unit == "Bytes per Second") return 1024;
  return unit == "Bits per Second" ? 1000.0F : 0.0F;
}

// One decimal, but none where it would be 0.
std::string PrintScaled(float number) {
  char digits[64];
  char* const end =
      std::to_chars(digits, digits + sizeof(digits), number, std::chars_format::fixed, 1).ptr;
  const std::string text(digits, end);
  const std::size_t whole = text.size() - 2;
  return text.compare(whole, 2, ".0") == 0 ? text.substr(0, whole) : text;
}

std::string FormatScaled(float number, float divisor, int scale, const std::string& unit) {
  for (; number > divisor && scale > 0; --scale) number /= divisor;
  return PrintScaled(number) + " " + kScaleWords[scale] + unit;
}

std::string FormatNull(const TCIMPropertyDecl& declaration) {
  const TCIMValue* const text = FindValue(declaration, "nulldisplay", TCIMType::cimString);
  return text == nullptr ? std::string() : static_cast<std::string>(*text);
}

std::string FormatValue(const TCIMPropertyDecl& declaration, const TCIMValue& value) {
  if (value.IsNull()) return FormatNull(declaration);
  if (!IsUnsigned(value.GetType())) return FormatPlainValue(declaration, value);
  const TCIMValue* const units = FindValue(declaration, "units", TCIMType::cimString);
  if (units == nullptr) return FormatPlainValue(declaration, value);
  std::string unit = *units;
  const int scale = CutScale(unit);
  if (unit == "Seconds") return FormatInterval(CodeOf(value), scale);
  const float divisor = DivisorOf(unit);
  if (divisor == 0) return FormatPlainValue(declaration, value);
  return FormatScaled(static_cast<float>(CodeOf(value)), divisor, scale, unit);
}

std::vector<std::string> FormatAllValues(const TCIMPropertyDecl& declaration,
                                         const TCIMValue& value) {
  if (!declaration.IsArray()) return {FormatValue(declaration, value)};
  const std::vector<TCIMValue>& elements = Elements(value);
  std::vector<std::string> texts;
  texts.reserve(elements.size());
  for (const TCIMValue& element : elements) texts.push_back(FormatValue(declaration, element));
  return texts;
}

// Tells why a value map can't be used, for whoever wrote the schema. The display goes on without.
void TellFault(const TCIMPropertyDecl& declaration, const char* fault) {
  if (TRootObject::GetCoreLogger()->GetLevel() < 3) return;
  vsk::detail::LogDebug("Property " + declaration.GetName() + fault);
}

// The map to be used for that value; null for none.
const TValueMap* FindMap(const TCIMPropertyDecl& declaration, const TCIMValue& value,
                         TCIMValue::ECIMType codeType) {
  if (value.IsNull() || !IsCode(codeType)) return nullptr;
  const TValueMap& map = TPeek::Impl(declaration).ValueMap();
  if (map.GetFault() != nullptr) TellFault(declaration, map.GetFault());
  return map.IsUsable() ? &map : nullptr;
}

}  // namespace

std::string vsk::detail::DisplayValue(const TCIMPropertyDecl& declaration, const TCIMValue& value) {
  const TValueMap* const map = FindMap(declaration, value, declaration.GetType());
  return map == nullptr ? FormatValue(declaration, value) : LookUpValue(value, *map);
}

std::vector<std::string> vsk::detail::DisplayValues(const TCIMPropertyDecl& declaration,
                                                    const TCIMValue& value) {
  const TCIMValue::ECIMType elementType = declaration.GetType() & ~TCIMType::cimArrayFlag;
  const TValueMap* const map =
      declaration.IsArray() ? FindMap(declaration, value, elementType) : nullptr;
  if (map == nullptr) return FormatAllValues(declaration, value);
  std::vector<std::string> texts;
  for (const TCIMValue& element : Elements(value)) texts.push_back(LookUpValue(element, *map));
  return texts;
}
