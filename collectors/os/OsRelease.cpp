#include <cctype>
#include <string_view>

#include "common/Text.h"
#include "os/Os.h"

namespace {

bool IsName(std::string_view text) {
  for (const char letter : text) {
    if (std::isalnum(static_cast<unsigned char>(letter)) == 0 && letter != '_') return false;
  }
  return !text.empty();
}

// A word as a shell reads it. Inside single quotes everything stands for itself; inside double
// quotes a backslash keeps its meaning only in front of what it can quote there.
std::string Unquote(std::string_view word) {
  std::string value;
  char quote = 0;
  for (std::size_t at = 0; at < word.size(); ++at) {
    const char letter = word[at];
    if (quote == 0 && (letter == '"' || letter == '\'')) {
      quote = letter;
    } else if (quote != 0 && letter == quote) {
      quote = 0;
    } else if (letter == '\\' && quote != '\'' && at + 1 < word.size()) {
      const char next = word[++at];
      const bool quotable =
          quote == 0 || std::string_view("\"$`\\").find(next) != std::string_view::npos;
      if (!quotable) value += letter;
      value += next;
    } else {
      value += letter;
    }
  }
  return value;
}

}  // namespace

std::map<std::string, std::string> ParseOsRelease(const std::string& text) {
  std::map<std::string, std::string> values;
  for (const std::string_view raw : Split(text, '\n')) {
    const std::string_view line = Trim(raw);
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos || !IsName(line.substr(0, equals))) continue;
    values[std::string(line.substr(0, equals))] = Unquote(line.substr(equals + 1));
  }
  return values;
}
