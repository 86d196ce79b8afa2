// From raw bytes of a kernel file to texts and numbers that may be stored.
#ifndef VSKCORE_COLLECTORS_COMMON_TEXT_H
#define VSKCORE_COLLECTORS_COMMON_TEXT_H

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// All pure. "Nothing" (nullopt) becomes NULL when it is written: what can't be known is never "",
// 0 or "Unknown".

// Valid UTF-8 without control characters, trimmed, each run of white space as one blank. Bytes that
// are no UTF-8 are left out. Nothing when nothing is left.
std::optional<std::string> CleanText(std::string_view raw);

// The same for what firmware says about itself: placeholders that makers leave in ("To Be Filled
// By O.E.M.", "Default string", "0123456789", all zeros) count as nothing.
std::optional<std::string> FirmwareText(std::string_view raw);
bool IsPlaceholder(std::string_view text);

// A whole decimal number with white space around it at most. Nothing for anything else.
std::optional<std::uint64_t> ParseUnsigned(std::string_view text);

std::string_view Trim(std::string_view text);
std::vector<std::string_view> Split(std::string_view text, char separator);

// "key : value" lines, as /proc/cpuinfo and /proc/meminfo have them; of a key that repeats, the
// first stands.
std::map<std::string, std::string> ParseColonLines(std::string_view text);

// Hands the text on, or nothing on: for the steps between an optional source and its parser.
template <typename TParse>
auto Then(const std::optional<std::string>& text, TParse parse) -> decltype(parse(*text)) {
  if (!text) return {};
  return parse(*text);
}

#endif
