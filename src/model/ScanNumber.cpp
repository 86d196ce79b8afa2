#include "model/ScanNumber.h"

namespace vsk::detail {

namespace {

constexpr std::uint64_t kMax = std::numeric_limits<std::uint64_t>::max();

bool IsSpace(char byte) { return byte == ' ' || (byte >= '\t' && byte <= '\r'); }

// 16 for what is no digit in any base.
unsigned int DigitOf(char byte) {
  if (byte >= '0' && byte <= '9') return static_cast<unsigned int>(byte - '0');
  if (byte >= 'a' && byte <= 'f') return static_cast<unsigned int>(byte - 'a') + 10;
  if (byte >= 'A' && byte <= 'F') return static_cast<unsigned int>(byte - 'A') + 10;
  return 16;
}

// Takes the sign, if any.
void ScanSign(const std::string& text, TScannedInteger& scanned) {
  if (scanned.end == text.size()) return;
  scanned.negative = text[scanned.end] == '-';
  if (scanned.negative || text[scanned.end] == '+') ++scanned.end;
}

// Takes the mark of the base. An octal mark is a digit already, a hexadecimal one still needs one.
unsigned int ScanBase(const std::string& text, TScannedInteger& scanned) {
  if (scanned.end == text.size() || text[scanned.end] != '0') return 10;
  ++scanned.end;
  if (scanned.end < text.size() && (text[scanned.end] == 'x' || text[scanned.end] == 'X')) {
    ++scanned.end;
    return 16;
  }
  scanned.found = true;
  return 8;
}

}  // namespace

TScannedInteger ScanInteger(const std::string& text, std::size_t begin) {
  TScannedInteger scanned{false, false, false, 0, begin};
  while (scanned.end < text.size() && IsSpace(text[scanned.end])) ++scanned.end;
  ScanSign(text, scanned);
  const unsigned int base = ScanBase(text, scanned);
  for (; scanned.end < text.size(); ++scanned.end) {
    const unsigned int digit = DigitOf(text[scanned.end]);
    if (digit >= base) break;
    scanned.found = true;
    scanned.overflow = scanned.overflow || scanned.magnitude > (kMax - digit) / base;
    scanned.magnitude = scanned.magnitude * base + digit;
  }
  return scanned;
}

}  // namespace vsk::detail
