// Reads integers out of texts, without the cost of a string stream.
#ifndef VSKCORE_SRC_MODEL_SCANNUMBER_H
#define VSKCORE_SRC_MODEL_SCANNUMBER_H

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <type_traits>

namespace vsk::detail {

// An integer at the start of a text, in the wide form that every integer type is cut from.
struct TScannedInteger {
  bool found;               // false: there is no digit where one is due
  bool negative;            // a minus stands in front
  bool overflow;            // more than 64 bits
  std::uint64_t magnitude;  // without the sign
  std::size_t end;          // the place behind the last digit
};

// Takes exactly the characters that a standard stream takes with its base field cleared and the
// classic locale: white space, a sign, "0x" or "0X" for hexadecimal, another leading "0" for octal,
// digits up to the first that is none.
TScannedInteger ScanInteger(const std::string& text, std::size_t begin = 0);

// The number in a type, as the stream's extractor gives it: 0 when there is none, the nearest limit
// when it doesn't fit. A minus before an unsigned number that fits wraps it.
template <typename TNumber>
TNumber ToNumber(const TScannedInteger& scanned) {
  using TLimits = std::numeric_limits<TNumber>;
  if (!scanned.found) return 0;
  const bool below = std::is_signed_v<TNumber> && scanned.negative;
  if (scanned.overflow || scanned.magnitude > static_cast<std::uint64_t>(TLimits::max())) {
    return below ? TLimits::min() : TLimits::max();
  }
  return static_cast<TNumber>(scanned.negative ? 0 - scanned.magnitude : scanned.magnitude);
}

}  // namespace vsk::detail

#endif
