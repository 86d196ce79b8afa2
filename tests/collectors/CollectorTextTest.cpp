#include <gtest/gtest.h>

#include "common/Text.h"
#include "common/Time.h"
#include "support/TZone.h"

namespace {

using TText = std::optional<std::string>;

TEST(CollectorText, IsTrimmedUtf8WithoutControls) {
  const struct {
    const char* raw;
    TText clean;
  } kRows[] = {
      {" \tvm\n", "vm"},
      {"one\r\n  two\tthree  four", "one two three four"},
      {"b\xC3\xBCro \xE2\x82\xAC \xF0\x9F\x96\xA5", "b\xC3\xBCro \xE2\x82\xAC \xF0\x9F\x96\xA5"},
      {"a\x1B[31mb\x7F", "a[31mb"},
      {"c1\xC2\x9B!", "c1!"},            // a control character of two bytes
      {"cut \xE2\x82", "cut"},           // a sequence that ends too early
      {"over\xC0\xAFlong", "overlong"},  // a longer spelling of "/"
      {"sur\xED\xA0\x80rogate", "surrogate"},
      {"\xF4\x90\x80\x80 too large", "too large"},
      {"latin \xFC", "latin"},
      {"", std::nullopt},
      {" \n", std::nullopt},
      {"\x01\x02", std::nullopt},
  };
  for (const auto& row : kRows) EXPECT_EQ(row.clean, CleanText(row.raw)) << row.raw;
  EXPECT_EQ(TText("tree"), CleanText(std::string("tree\0", 5)));
}

TEST(CollectorText, PlaceholdersOfFirmwareAreNothing) {
  for (const char* placeholder :
       {"To Be Filled By O.E.M.", "Default string", "0123456789", "00000000", "FFFFFFFF", "xxxxxxx",
        "........", " none ", "N/A", "Not Specified", "System Serial Number", "0", "-"}) {
    EXPECT_EQ(std::nullopt, FirmwareText(placeholder)) << placeholder;
  }
  // Real ones come close.
  for (const char* real : {"00000001", "0123456789A", "R90XK4T", "System X", "1", "Default 2"}) {
    EXPECT_EQ(TText(real), FirmwareText(real));
  }
}

TEST(CollectorText, NumbersAreWholeAndDecimal) {
  const struct {
    const char* text;
    std::optional<std::uint64_t> number;
  } kRows[] = {
      {" 42\n", 42u},
      {"010", 10u},  // never octal
      {"18446744073709551615", 18446744073709551615u},
      {"18446744073709551616", std::nullopt},
      {"0x10", std::nullopt},
      {"-1", std::nullopt},
      {"4 2", std::nullopt},
      {"", std::nullopt},
  };
  for (const auto& row : kRows) EXPECT_EQ(row.number, ParseUnsigned(row.text)) << row.text;
}

TEST(CollectorText, ColonLinesKeepTheFirstOfAKey) {
  const auto values = ParseColonLines("b\t: 2: x\nno colon\na:1\nb: 3\n: empty key\n");
  EXPECT_EQ((std::map<std::string, std::string>{{"", "empty key"}, {"a", "1"}, {"b", "2: x"}}),
            values);
}

TEST(CollectorTime, InstantsAreShownInTheLocalZone) {
  const struct {
    const char* zone;
    std::uint64_t seconds;
    const char* text;
  } kRows[] = {
      {"UTC", 0, "19700101000000.000000+000"},
      {"UTC", 951826332, "20000229121212.000000+000"},
      {"CET-1CEST,M3.5.0,M10.5.0/3", 1730397558, "20241031185918.000000+060"},
      {"CET-1CEST,M3.5.0,M10.5.0/3", 1719792000, "20240701020000.000000+120"},
      {"XST3:30", 1709175600,
       "20240228233000.000000-210"},  // the day before, on a leap month's end
      {"UTC", 2147483647, "20380119031407.000000+000"},
  };
  for (const auto& row : kRows) {
    const TZone zone(row.zone);
    const std::optional<TCIMDateTime> time = LocalTimestamp(row.seconds);
    ASSERT_TRUE(time) << row.text;
    EXPECT_EQ(row.text, time->ToString());
  }
  EXPECT_FALSE(LocalTimestamp(2147483648u));
  const TZone before("XST3:30");
  EXPECT_FALSE(LocalTimestamp(2147483647u));  // ends earlier there
  setenv("TZ", "AAA-5:07", 1);                // nobody announces it
  EXPECT_EQ("19700101050700.000000+307", LocalTimestamp(0)->ToString());
}

TEST(CollectorTime, DaysFollowTheCalendar) {
  const TZone zone("UTC");
  EXPECT_EQ("20240229000000.000000+000", DayTimestamp(2024, 2, 29)->ToString());
  const struct {
    std::uint64_t year, month, day;
  } kBad[] = {{2023, 2, 29}, {2024, 2, 30}, {2024, 4, 31}, {2024, 0, 1},
              {2024, 13, 1}, {2024, 1, 0},  {1969, 1, 1},  {2038, 1, 1}};
  for (const auto& row : kBad) EXPECT_FALSE(DayTimestamp(row.year, row.month, row.day));
}

}  // namespace
