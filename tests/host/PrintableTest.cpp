#include "Printable.h"

#include <gtest/gtest.h>

namespace {

TEST(Printable, LetsNothingThroughThatATerminalObeys) {
  const struct {
    std::string text, printable;
  } kRows[] = {
      {"plain \"text\"", "plain \"text\""},
      {"b\xC3\xBCro \xE2\x82\xAC \xF0\x9F\x96\xA5", "b\xC3\xBCro \xE2\x82\xAC \xF0\x9F\x96\xA5"},
      {"a\x1B[2Jb", "a [2Jb"},
      {std::string("nul\0line\nend\x7F", 13), "nul line end "},
      {"c1 \xC2\x9B \xC2\xA0", "c1   \xC2\xA0"},
      {"latin \xFC!", "latin \xEF\xBF\xBD!"},
      {"cut \xE2\x82", "cut \xEF\xBF\xBD\xEF\xBF\xBD"},
      {"\xC0\xAF", "\xEF\xBF\xBD\xEF\xBF\xBD"},
      {"\xED\xA0\x80", "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"},
      {"\xF4\x8F\xBF\xBF", "\xF4\x8F\xBF\xBF"},
      {"\xF4\x90\x80\x80", "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"},
      {"", ""},
  };
  for (const auto& row : kRows) EXPECT_EQ(row.printable, Printable(row.text));
}

TEST(Printable, CharactersAreCountedNotBytes) {
  EXPECT_EQ(6u, CountCharacters("b\xC3\xBCro \xE2\x82\xAC"));
}

}  // namespace
