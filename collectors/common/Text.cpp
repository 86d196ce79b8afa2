#include "common/Text.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace {

constexpr std::string_view kSpace = " \t\r\n\v\f";

// How many bytes the valid UTF-8 sequence at the front has; 0 when there is none.
std::size_t SequenceLength(std::string_view text) {
  const auto byte = [&](std::size_t at) { return static_cast<unsigned char>(text[at]); };
  const unsigned char first = byte(0);
  if (first < 0x80) return 1;
  const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4 || text.size() < length) return 0;
  for (std::size_t at = 1; at < length; ++at) {
    if ((byte(at) & 0xC0) != 0x80) return 0;
  }
  const unsigned char second = byte(1);
  const bool overlong = (first == 0xE0 && second < 0xA0) || (first == 0xF0 && second < 0x90);
  const bool surrogate = first == 0xED && second >= 0xA0;
  const bool tooLarge = first == 0xF4 && second >= 0x90;
  return overlong || surrogate || tooLarge ? 0 : length;
}

bool IsControl(std::string_view sequence) {
  const auto first = static_cast<unsigned char>(sequence[0]);
  if (sequence.size() == 1) return first < 0x20 || first == 0x7F;
  return first == 0xC2 && static_cast<unsigned char>(sequence[1]) < 0xA0;
}

std::string LowerCase(std::string_view text) {
  std::string lower(text);
  for (char& letter : lower) {
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
  }
  return lower;
}

// One character repeated, as in "00000000", "XXXXXXX" and "........".
bool IsFiller(std::string_view text) {
  return std::string_view("0fFxX.-_ *?").find(text[0]) != std::string_view::npos &&
         text.find_first_not_of(text[0]) == std::string_view::npos;
}

}  // namespace

std::string_view Trim(std::string_view text) {
  const std::size_t first = text.find_first_not_of(kSpace);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kSpace) - first + 1);
}

std::optional<std::string> CleanText(std::string_view raw) {
  std::string clean;
  for (std::string_view rest = Trim(raw); !rest.empty();) {
    const std::size_t length = SequenceLength(rest);
    const std::string_view sequence = rest.substr(0, std::max<std::size_t>(length, 1));
    rest.remove_prefix(sequence.size());
    if (kSpace.find(sequence[0]) != std::string_view::npos) {
      if (!clean.empty() && clean.back() != ' ') clean += ' ';
    } else if (length != 0 && !IsControl(sequence)) {
      clean += sequence;
    }
  }
  // What is left out may have stood at an end.
  const std::string_view trimmed = Trim(clean);
  if (trimmed.empty()) return std::nullopt;
  return std::string(trimmed);
}

bool IsPlaceholder(std::string_view text) {
  static constexpr std::array kPlaceholders = {
      std::string_view("to be filled by o.e.m."),
      std::string_view("to be filled by o.e.m"),
      std::string_view("to be filled"),
      std::string_view("o.e.m."),
      std::string_view("oem"),
      std::string_view("default string"),
      std::string_view("default"),
      std::string_view("0123456789"),
      std::string_view("123456789"),
      std::string_view("1234567890"),
      std::string_view("system manufacturer"),
      std::string_view("system product name"),
      std::string_view("system version"),
      std::string_view("system serial number"),
      std::string_view("system sku"),
      std::string_view("sku"),
      std::string_view("base board manufacturer"),
      std::string_view("base board product name"),
      std::string_view("base board version"),
      std::string_view("base board serial number"),
      std::string_view("chassis manufacturer"),
      std::string_view("chassis version"),
      std::string_view("chassis serial number"),
      std::string_view("asset tag"),
      std::string_view("asset-1234567890"),
      std::string_view("no asset tag"),
      std::string_view("no asset information"),
      std::string_view("not specified"),
      std::string_view("not applicable"),
      std::string_view("not available"),
      std::string_view("not defined"),
      std::string_view("not set"),
      std::string_view("undefined"),
      std::string_view("unspecified"),
      std::string_view("unknown"),
      std::string_view("invalid"),
      std::string_view("empty"),
      std::string_view("none"),
      std::string_view("null"),
      std::string_view("n/a"),
  };
  const std::string lower = LowerCase(Trim(text));
  return lower.empty() || IsFiller(lower) ||
         std::find(kPlaceholders.begin(), kPlaceholders.end(), lower) != kPlaceholders.end();
}

std::optional<std::string> FirmwareText(std::string_view raw) {
  std::optional<std::string> text = CleanText(raw);
  if (text && IsPlaceholder(*text)) text.reset();
  return text;
}

std::optional<std::uint64_t> ParseUnsigned(std::string_view text) {
  const std::string_view digits = Trim(text);
  std::uint64_t number = 0;
  const char* end = digits.data() + digits.size();
  const auto [stop, error] = std::from_chars(digits.data(), end, number);
  if (error != std::errc() || stop != end) return std::nullopt;
  return number;
}

std::vector<std::string_view> Split(std::string_view text, char separator) {
  std::vector<std::string_view> parts;
  while (true) {
    const std::size_t end = text.find(separator);
    parts.push_back(text.substr(0, end));
    if (end == std::string_view::npos) return parts;
    text.remove_prefix(end + 1);
  }
}

std::map<std::string, std::string> ParseColonLines(std::string_view text) {
  std::map<std::string, std::string> values;
  for (const std::string_view line : Split(text, '\n')) {
    const std::size_t colon = line.find(':');
    if (colon == std::string_view::npos) continue;
    values.emplace(Trim(line.substr(0, colon)), Trim(line.substr(colon + 1)));
  }
  return values;
}
