#include "model/PropertyDisplay.h"

#include <vskcore/model/TCIMDateTime.h>
#include <vskcore/model/TCIMPropertyDecl.h>
#include <vskcore/model/TCIMQualifier.h>
#include <vskcore/model/TCIMValue.h>

#include <charconv>
#include <cstdint>
#include <limits>
#include <utility>

#include "core/base/Fail.h"
#include "model/ScanNumber.h"
#include "model/TPeek.h"

using TCIMType = TCIMValue::TCIMType;
using vsk::detail::TPeek;

namespace {

constexpr TCIMValue::ECIMType kStringArray = TCIMType::cimString | TCIMType::cimArrayFlag;
constexpr std::uint64_t kOpenEnd = std::numeric_limits<std::uint64_t>::max();

// One line of a value map: the numbers from low to high, both included, read as text.
struct TMapEntry {
  std::uint64_t low;
  std::uint64_t high;  // kOpenEnd until the next entry, if any, closes it
  std::string text;
};
using TMapEntries = std::vector<TMapEntry>;

// The value of a qualifier of the declaration; null when it is absent or NULL.
const TCIMValue* FindValue(const TCIMPropertyDecl& declaration, const char* name) {
  const TCIMQualifier* const qualifier = declaration.FindQualifier(name);
  if (qualifier == nullptr || TPeek::Value(*qualifier).IsNull()) return nullptr;
  return &TPeek::Value(*qualifier);
}

// Likewise; null also when the value is of another type.
const TCIMValue* FindValue(const TCIMPropertyDecl& declaration, const char* name,
                           TCIMValue::ECIMType type) {
  const TCIMValue* const value = FindValue(declaration, name);
  return value != nullptr && value->GetType() == type ? value : nullptr;
}

const std::vector<TCIMValue>& Elements(const TCIMValue& value) { return value; }

// Tells why a value map can't be used, for whoever wrote the schema. The display goes on without.
bool Refuse(const TCIMPropertyDecl& declaration, const char* fault) {
  vsk::detail::LogDebug("Property " + declaration.GetName() + fault);
  return false;
}

// Whether the next two characters that are not white space are dots.
bool DotsFollow(const std::string& text, std::size_t place) {
  constexpr char kSpace[] = " \t\n\v\f\r";
  for (int dots = 0; dots < 2; ++dots, ++place) {
    place = text.find_first_not_of(kSpace, place);
    if (place == std::string::npos || text[place] != '.') return false;
  }
  return true;
}

// Turns the entries of ValueMap, in their order, into ranges. Each operation is false, and has
// logged why, when the map is faulty.
class TRangeReader {
 public:
  TRangeReader(const TCIMPropertyDecl& declaration, TMapEntries& entries, std::string& catchAll)
      : declaration_(declaration), entries_(entries), catchAll_(catchAll) {}

  bool Read(const std::string& range, std::string text) {
    if (range == "..") return ReadCatchAll(std::move(text));
    if (range.compare(0, 2, "..") == 0) return ReadUpTo(range, std::move(text));
    return ReadFrom(range, std::move(text));
  }

 private:
  // "..": whatever no range holds.
  bool ReadCatchAll(std::string text) {
    if (EndsOpen()) {
      return Refuse(declaration_,
                    " has a .. VALUEMAP entry after another entry that ends with ..!");
    }
    catchAll_ = std::move(text);
    return true;
  }

  // "..9": from behind the entry before to that number.
  bool ReadUpTo(const std::string& range, std::string text) {
    if (EndsOpen()) {
      return Refuse(declaration_,
                    " has a ..<value> VALUEMAP entry after another entry that ends with ..!");
    }
    std::uint64_t high = 0;
    std::size_t end = 2;
    if (!ReadNumber(range, end, high)) return false;
    entries_.push_back({next_, high, std::move(text)});
    next_ = high + 1;
    return true;
  }

  // "5": that number; "5..": up to the number where the next entry starts. What follows the dots
  // is not looked at.
  bool ReadFrom(const std::string& range, std::string text) {
    std::uint64_t low = 0;
    std::size_t end = 0;
    if (!ReadNumber(range, end, low)) return false;
    if (EndsOpen()) entries_.back().high = low - 1;
    entries_.push_back({low, DotsFollow(range, end) ? kOpenEnd : low, std::move(text)});
    next_ = low + 1;
    return true;
  }

  bool ReadNumber(const std::string& range, std::size_t& place, std::uint64_t& number) const {
    const vsk::detail::TScannedInteger scanned = vsk::detail::ScanInteger(range, place);
    if (!scanned.found) {
      return Refuse(declaration_, " has a VALUEMAP entry that isn't a number!");
    }
    place = scanned.end;
    number = vsk::detail::ToNumber<std::uint64_t>(scanned);
    return true;
  }

  bool EndsOpen() const { return !entries_.empty() && entries_.back().high == kOpenEnd; }

  const TCIMPropertyDecl& declaration_;
  TMapEntries& entries_;
  std::string& catchAll_;
  std::uint64_t next_ = 0;
};

// Values without ValueMap number their texts from 0.
void NumberTexts(const std::vector<TCIMValue>& texts, TMapEntries& entries) {
  for (std::uint64_t number = 0; number < texts.size(); ++number) {
    entries.push_back({number, number, texts[number].ToString(10)});
  }
}

// False when the property has no map, or none that can be used.
bool BuildValueMap(const TCIMPropertyDecl& declaration, TMapEntries& entries,
                   std::string& catchAll) {
  const TCIMValue* const values = FindValue(declaration, "Values");
  if (values == nullptr) return false;
  if (values->GetType() != kStringArray) {
    return Refuse(declaration, " has a VALUE qualifier that isn't a string!");
  }
  const TCIMValue* const valueMap = FindValue(declaration, "ValueMap");
  if (valueMap != nullptr && valueMap->GetType() != kStringArray) {
    return Refuse(declaration, " has a VALUEMAP qualifier that isn't a string!");
  }
  const std::vector<TCIMValue>& texts = Elements(*values);
  entries.reserve(texts.size());
  if (valueMap == nullptr) {
    NumberTexts(texts, entries);
    return true;
  }
  const std::vector<TCIMValue>& ranges = Elements(*valueMap);
  if (texts.size() != ranges.size()) {
    return Refuse(declaration, " has VALUE and VALUEMAP qualifiers that aren't the same size!");
  }
  TRangeReader reader(declaration, entries, catchAll);
  for (std::size_t i = 0; i < ranges.size(); ++i) {
    if (!reader.Read(ranges[i], texts[i].ToString(10))) return false;
  }
  return true;
}

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
std::string LookUpValue(const TCIMValue& value, const TMapEntries& entries,
                        const std::string& catchAll) {
  const std::uint64_t number = CodeOf(value);
  for (const TMapEntry& entry : entries) {
    if (entry.low <= number && number <= entry.high) return entry.text;
  }
  return catchAll.empty() ? value.ToString(10) : catchAll;
}

std::string FormatPlainValue(const TCIMPropertyDecl& declaration, const TCIMValue& value) {
  const TCIMValue* const base = FindValue(declaration, "BASE", TCIMType::cimUint8);
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
  const TCIMValue* const text = FindValue(declaration, "NULLDISPLAY", TCIMType::cimString);
  return text == nullptr ? std::string() : static_cast<std::string>(*text);
}

std::string FormatValue(const TCIMPropertyDecl& declaration, const TCIMValue& value) {
  if (value.IsNull()) return FormatNull(declaration);
  if (!IsUnsigned(value.GetType())) return FormatPlainValue(declaration, value);
  const TCIMValue* const units = FindValue(declaration, "UNITS", TCIMType::cimString);
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

// Whether a map of the declaration is to be used for that value; if so, the map.
bool FindMap(const TCIMPropertyDecl& declaration, const TCIMValue& value,
             TCIMValue::ECIMType codeType, TMapEntries& entries, std::string& catchAll) {
  return !value.IsNull() && IsCode(codeType) && BuildValueMap(declaration, entries, catchAll);
}

}  // namespace

std::string vsk::detail::DisplayValue(const TCIMPropertyDecl& declaration, const TCIMValue& value) {
  TMapEntries entries;
  std::string catchAll;
  if (!FindMap(declaration, value, declaration.GetType(), entries, catchAll)) {
    return FormatValue(declaration, value);
  }
  return LookUpValue(value, entries, catchAll);
}

std::vector<std::string> vsk::detail::DisplayValues(const TCIMPropertyDecl& declaration,
                                                    const TCIMValue& value) {
  TMapEntries entries;
  std::string catchAll;
  const TCIMValue::ECIMType elementType = declaration.GetType() & ~TCIMType::cimArrayFlag;
  if (!declaration.IsArray() || !FindMap(declaration, value, elementType, entries, catchAll)) {
    return FormatAllValues(declaration, value);
  }
  std::vector<std::string> texts;
  for (const TCIMValue& element : Elements(value)) {
    texts.push_back(LookUpValue(element, entries, catchAll));
  }
  return texts;
}
