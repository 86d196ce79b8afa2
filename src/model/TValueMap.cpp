#include "model/TValueMap.h"

#include <algorithm>
#include <limits>
#include <utility>

#include "model/ScanNumber.h"

using TCIMType = TCIMValue::TCIMType;

namespace vsk::detail {

namespace {

constexpr TCIMValue::ECIMType kStringArray = TCIMType::cimString | TCIMType::cimArrayFlag;
constexpr std::uint64_t kOpenEnd = std::numeric_limits<std::uint64_t>::max();

// Whether the next two characters that are not white space are dots.
bool DotsFollow(const std::string& text, std::size_t place) {
  constexpr char kSpace[] = " \t\n\v\f\r";
  for (int dots = 0; dots < 2; ++dots, ++place) {
    place = text.find_first_not_of(kSpace, place);
    if (place == std::string::npos || text[place] != '.') return false;
  }
  return true;
}

}  // namespace

TValueMap::TValueMap(const TQualifierTable& qualifiers) : usable_(Read(qualifiers)) {
  endsAscend_ = std::is_sorted(
      ranges_.begin(), ranges_.end(),
      [](const TRange& left, const TRange& right) { return left.high < right.high; });
}

const std::string* TValueMap::Find(std::uint64_t number) const {
  auto range = ranges_.begin();
  if (endsAscend_) {  // as nearly everywhere; elsewhere all are walked
    range = std::partition_point(range, ranges_.end(),
                                 [=](const TRange& passed) { return passed.high < number; });
  }
  for (; range != ranges_.end(); ++range) {
    if (range->low <= number && number <= range->high) return &range->text;
  }
  return catchAll_.empty() ? nullptr : &catchAll_;
}

bool TValueMap::Read(const TQualifierTable& qualifiers) {
  const TCIMValue* const values = qualifiers.FindValue("values");
  if (values == nullptr) return false;
  if (values->GetType() != kStringArray) {
    return Refuse(" has a VALUE qualifier that isn't a string!");
  }
  const TCIMValue* const valueMap = qualifiers.FindValue("valuemap");
  if (valueMap != nullptr && valueMap->GetType() != kStringArray) {
    return Refuse(" has a VALUEMAP qualifier that isn't a string!");
  }
  const std::vector<TCIMValue>& texts = *values;
  ranges_.reserve(texts.size());
  if (valueMap == nullptr) return NumberTexts(texts);
  const std::vector<TCIMValue>& entries = *valueMap;
  if (texts.size() != entries.size()) {
    return Refuse(" has VALUE and VALUEMAP qualifiers that aren't the same size!");
  }
  for (std::size_t i = 0; i < entries.size(); ++i) {
    if (!ReadEntry(entries[i], texts[i].ToString(10))) return false;
  }
  return true;
}

// Values without ValueMap number their texts from 0.
bool TValueMap::NumberTexts(const std::vector<TCIMValue>& texts) {
  for (std::size_t number = 0; number < texts.size(); ++number) {
    ranges_.push_back({number, number, texts[number].ToString(10)});
  }
  return true;
}

bool TValueMap::ReadEntry(const std::string& entry, std::string text) {
  if (entry == "..") return ReadCatchAll(std::move(text));
  if (entry.compare(0, 2, "..") == 0) return ReadUpTo(entry, std::move(text));
  return ReadFrom(entry, std::move(text));
}

// "..": whatever no range holds.
bool TValueMap::ReadCatchAll(std::string text) {
  if (EndsOpen()) {
    return Refuse(" has a .. VALUEMAP entry after another entry that ends with ..!");
  }
  catchAll_ = std::move(text);
  return true;
}

// "..9": from behind the entry before to that number.
bool TValueMap::ReadUpTo(const std::string& entry, std::string text) {
  if (EndsOpen()) {
    return Refuse(" has a ..<value> VALUEMAP entry after another entry that ends with ..!");
  }
  std::uint64_t high = 0;
  std::size_t end = 2;
  if (!ReadNumber(entry, end, high)) return false;
  ranges_.push_back({next_, high, std::move(text)});
  next_ = high + 1;
  return true;
}

// "5": that number; "5..": up to the number where the next entry starts. What follows the dots is
// not looked at.
bool TValueMap::ReadFrom(const std::string& entry, std::string text) {
  std::uint64_t low = 0;
  std::size_t end = 0;
  if (!ReadNumber(entry, end, low)) return false;
  if (EndsOpen()) ranges_.back().high = low - 1;
  ranges_.push_back({low, DotsFollow(entry, end) ? kOpenEnd : low, std::move(text)});
  next_ = low + 1;
  return true;
}

bool TValueMap::ReadNumber(const std::string& entry, std::size_t& place, std::uint64_t& number) {
  const TScannedInteger scanned = ScanInteger(entry, place);
  if (!scanned.found) return Refuse(" has a VALUEMAP entry that isn't a number!");
  place = scanned.end;
  number = ToNumber<std::uint64_t>(scanned);
  return true;
}

bool TValueMap::Refuse(const char* fault) {
  fault_ = fault;
  return false;
}

bool TValueMap::EndsOpen() const { return !ranges_.empty() && ranges_.back().high == kOpenEnd; }

}  // namespace vsk::detail
