#include <gtest/gtest.h>
#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMDateTime.h>
#include <vskcore/model/TCIMProperty.h>
#include <vskcore/model/TCIMPropertyDecl.h>
#include <vskcore/model/TCIMQualifier.h>
#include <vskcore/model/TCIMQualifierDecl.h>
#include <vskcore/model/TContainer.h>

#include <limits>
#include <string>
#include <utility>
#include <vector>

#include "support/StatusOf.h"
#include "support/TLogCapture.h"

using TCIMType = TCIMValue::TCIMType;
using TTexts = std::vector<std::string>;

namespace {

TCIMValue Byte(int number) { return static_cast<unsigned char>(number); }
TCIMValue Number(std::uint64_t number) { return number; }

TCIMValue Array(TCIMValue::ECIMType type, const std::vector<TCIMValue>& elements) {
  return TCIMValue(type, 0, elements);
}

TCIMValue Strings(const TTexts& texts) {
  return Array(TCIMType::cimString, {texts.begin(), texts.end()});
}

// A property of one value under some qualifiers.
class TShownProperty {
 public:
  using TQualifiers = std::vector<std::pair<const char*, TCIMValue>>;

  TShownProperty(const TCIMValue& value, const TQualifiers& qualifiers)
      : class_(container_, "Sample_Disk", nullptr), declaration_("Size", class_, value) {
    for (const auto& [name, content] : qualifiers) {
      TCIMQualifierDecl& declared = container_.AllocateQualifierDecl(
          name, TCIMValue(), TCIMQualifierDecl::scopeProperty, TCIMQualifierDecl::flavorNone);
      declared.AddToContainer();
      declaration_.AddQualifier(*new TCIMQualifier(declared, content));
    }
  }

  std::string ToString() const { return TCIMProperty(declaration_).ToString(); }
  TTexts ToStringVector() const { return TCIMProperty(declaration_).ToStringVector(); }

 private:
  TContainer container_;
  TCIMClass class_;
  TCIMPropertyDecl declaration_;
};

std::string Show(const TCIMValue& value, const TShownProperty::TQualifiers& qualifiers) {
  return TShownProperty(value, qualifiers).ToString();
}

TTexts ShowAll(const TCIMValue& value, const TShownProperty::TQualifiers& qualifiers) {
  return TShownProperty(value, qualifiers).ToStringVector();
}

}  // namespace

TEST(PropertyDisplayUnits, Scale) {
  const struct {
    const char* unit;
    std::uint64_t value;
    const char* text;
  } kRows[] = {
      {"Bytes", 512, "512 Bytes"},
      {"Bytes", 1024, "1024 Bytes"},  // only what exceeds the divisor scales
      {"Bytes", 1025, "1 KiloBytes"},
      {"Bytes", 1536, "1.5 KiloBytes"},
      {"KiloBytes", 2048, "2 MegaBytes"},
      {"Bytes", 1048576, "1024 KiloBytes"},
      {"Bytes", 0, "0 Bytes"},
      {"Bytes", std::numeric_limits<std::uint64_t>::max(), "16384 PetaBytes"},
      {"PetaBits", 5000, "5000 PetaBits"},  // nothing is larger
      {"Bits per Second", 1000, "1000 Bits per Second"},
      {"Bits per Second", 1500, "1.5 KiloBits per Second"},
      {"Bytes per Second", 1500, "1.5 KiloBytes per Second"},
      {"GigaBits per Second", 10000, "10 TeraBits per Second"},
      {"MilliBytes", 5000, "4.9 Bytes"},
      {"MicroBytes", 5000000000, "4.7 KiloBytes"},
      {"Bytes", 16777217, "16 MegaBytes"},
      {"Watts", 7, "7"},
      {"KiloWatts", 7, "7"},
      {"bytes", 2048, "2048"},
      {"kiloBytes", 2048, "2048"},
      {"KiloKiloBytes", 2048, "2048"},
      {"", 9, "9"},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(row.text, Show(Number(row.value), {{"UNITS", row.unit}})) << row.unit << row.value;
  }
}

TEST(PropertyDisplayUnits, OnlyUnsignedNumbersScale) {
  const TShownProperty::TQualifiers bytes = {{"units", "Bytes"}};
  EXPECT_EQ("200 Bytes", Show(Byte(200), bytes));
  EXPECT_EQ("2 KiloBytes", Show(static_cast<unsigned short>(2048), bytes));
  EXPECT_EQ("2 KiloBytes", Show(2048U, bytes));
  EXPECT_EQ("2048", Show(2048, bytes));
  EXPECT_EQ("2048", Show(2048.0, bytes));
  EXPECT_EQ("text", Show("text", bytes));
  EXPECT_EQ("2048", Show(2048U, {{"UNITS", Strings({"Bytes"})}}));
  EXPECT_EQ("2048", Show(2048U, {{"UNITS", TCIMValue(TCIMType::cimString, 0)}}));
  EXPECT_EQ("{ 2048 }", Show(Array(TCIMType::cimUint32, {2048U}), bytes));
}

TEST(PropertyDisplayUnits, SecondsAreWrittenOut) {
  const struct {
    const char* unit;
    std::uint64_t value;
    const char* text;
  } kRows[] = {
      {"Seconds", 90061, "1 day 1 hour 1 minute 1 second "},
      {"Seconds", 0, ""},
      {"Seconds", 3 * 86400 + 4 * 3600, "3 days 4 hours "},
      {"MilliSeconds", 1500, "1 second 500 milliseconds "},
      {"MicroSeconds", 1000003, "1 second 3 microseconds "},
      {"NanoSeconds", 2999, "2 microseconds "},
      {"Seconds", 86400 * ((std::uint64_t{1} << 32) + 5), "5 days "},  // days have 32 bits
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(row.text, Show(Number(row.value), {{"UNITS", row.unit}})) << row.unit << row.value;
  }
  for (const char* unit : {"PetaSeconds", "KiloSeconds"}) {
    EXPECT_EQ(vskStatusInvalidDateTime, StatusOf([&] { Show(5U, {{"UNITS", unit}}); })) << unit;
  }
}

TEST(PropertyDisplayPlain, BaseAndNull) {
  EXPECT_EQ("000000FF", Show(255U, {{"BASE", Byte(16)}}));
  EXPECT_EQ("377", Show(255U, {{"Base", Byte(8)}, {"UNITS", "Watts"}}));
  EXPECT_EQ("255", Show(255U, {{"BASE", static_cast<unsigned short>(16)}}));
  EXPECT_EQ("255 Bytes", Show(255U, {{"BASE", Byte(16)}, {"UNITS", "Bytes"}}));
  EXPECT_EQ("{ 0F }", Show(Array(TCIMType::cimUint8, {Byte(15)}), {{"BASE", Byte(16)}}));
  EXPECT_EQ(vskStatusNotSupported, StatusOf([] { Show(255U, {{"BASE", Byte(2)}}); }));
  EXPECT_EQ(vskStatusNotSupported, StatusOf([] { Show(-1, {{"BASE", Byte(16)}}); }));

  const TCIMValue null(TCIMType::cimUint8, 0);
  EXPECT_EQ("", Show(null, {}));
  EXPECT_EQ("n/a", Show(null, {{"NullDisplay", "n/a"}, {"Values", Strings({"zero"})}}));
  EXPECT_EQ("", Show(null, {{"NULLDISPLAY", 5U}}));
  EXPECT_EQ(TTexts{""}, ShowAll(null, {}));
  EXPECT_EQ(TTexts{"n/a"}, ShowAll(null, {{"NULLDISPLAY", "n/a"}}));
}

TEST(PropertyDisplayMap, NumbersItsTextsFromZero) {
  const TShownProperty::TQualifiers two = {{"Values", Strings({"No", "Yes"})}, {"UNITS", "Bytes"}};
  EXPECT_EQ("No", Show(false, two));
  EXPECT_EQ("Yes", Show(true, two));
  EXPECT_EQ("Yes", Show(Byte(1), two));
  EXPECT_EQ("Yes", Show(static_cast<unsigned short>(1), two));
  EXPECT_EQ("Yes", Show(1U, two));
  EXPECT_EQ("Yes", Show(Number(1), two));
  EXPECT_EQ("2048", Show(2048U, two));  // a miss, not two kilobytes
  EXPECT_EQ("1", Show(1, two));         // signed numbers are no codes
  EXPECT_EQ("Yes", Show(1U, {{"Values", Strings({"No", "Yes"})}, {"BASE", Byte(16)}}));
  EXPECT_EQ("2", Show(2U, {{"Values", Strings({"No", "Yes"})}, {"BASE", Byte(16)}}));
}

TEST(PropertyDisplayMap, Ranges) {
  const std::uint64_t largest = std::numeric_limits<std::uint64_t>::max();
  const struct {
    TTexts map;  // for the texts "A", "B", "C", ...
    std::vector<std::uint64_t> values;
    TTexts texts;
  } kRows[] = {
      {{"0", "1", "2..", "10", ".."}, {0, 1, 2, 9, 10, 11}, {"A", "B", "C", "C", "D", "E"}},
      {{"0x10", "..0x1F"}, {15, 16, 17, 31, 32}, {"15", "A", "B", "B", "32"}},
      {{"9", "..1", "..3", "010", " 7x"}, {1, 2, 8, 7, 10}, {"1", "C", "D", "E", "10"}},
      {{"..5", "..7"}, {0, 6, 8}, {"A", "B", "8"}},
      {{"..", "4"}, {77, 4}, {"A", "B"}},
      {{"1", "..", ".."}, {1, 9}, {"A", "C"}},
      {{"5.."}, {4, largest}, {"4", "A"}},
      {{"5 . .9", "20"}, {10, 19, 20}, {"A", "A", "B"}},  // what follows the dots is not read
      {{"1..", "3..", "6", "8."}, {2, 4, 7, 9}, {"A", "B", "7", "9"}},
      {{"3", "3"}, {3}, {"A"}},  // the first that fits
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.map[0]);
    TTexts words;
    while (words.size() < row.map.size())
      words.emplace_back(1, static_cast<char>('A' + words.size()));
    TTexts texts;
    for (const std::uint64_t value : row.values) {
      texts.push_back(
          Show(Number(value), {{"Values", Strings(words)}, {"ValueMap", Strings(row.map)}}));
    }
    EXPECT_EQ(row.texts, texts);
  }
}

TEST(PropertyDisplayMap, FaultIsLoggedAndLeftOut) {
  const TCIMValue none(TCIMType::cimString, 0);
  const TCIMValue one = Strings({"A"});
  const TCIMValue two = Strings({"A", "B"});
  const struct {
    TCIMValue values;
    TCIMValue map;
    const char* fault;  // null: nothing to tell
  } kRows[] = {
      {none, two, nullptr},
      {"A", none, " has a VALUE qualifier that isn't a string!"},
      {Array(TCIMType::cimUint8, {Byte(1)}), none, " has a VALUE qualifier that isn't a string!"},
      {one, "0", " has a VALUEMAP qualifier that isn't a string!"},
      {one, two, " has VALUE and VALUEMAP qualifiers that aren't the same size!"},
      {two, Strings({"5..", ".."}),
       " has a .. VALUEMAP entry after another entry that ends with ..!"},
      {two, Strings({"5..", "..9"}),
       " has a ..<value> VALUEMAP entry after another entry that ends with ..!"},
      {one, Strings({""}), " has a VALUEMAP entry that isn't a number!"},
      {two, Strings({"0", "..x"}), " has a VALUEMAP entry that isn't a number!"},
      {two, Strings({"0", "0x"}), " has a VALUEMAP entry that isn't a number!"},
      {two, Strings({"0", "..."}), " has a VALUEMAP entry that isn't a number!"},
  };
  for (const auto& row : kRows) {
    TLogCapture log;
    const TShownProperty::TQualifiers qualifiers = {
        {"Values", row.values}, {"ValueMap", row.map}, {"UNITS", "Bytes"}};
    EXPECT_EQ("0 Bytes", Show(0U, qualifiers));
    const std::string line =
        row.fault == nullptr ? "" : std::string("[3] Property Size") + row.fault;
    EXPECT_EQ(line, log.Take());
    EXPECT_EQ(TTexts{"0 Bytes"}, ShowAll(Array(TCIMType::cimUint32, {0U}), qualifiers));
    EXPECT_EQ(line, log.Take());
  }
  EXPECT_EQ("A", Show(0U, {{"Values", one}, {"ValueMap", none}}));  // as without ValueMap
}

TEST(PropertyDisplayMap, NullElementsFail) {
  const TCIMValue holed = Array(TCIMType::cimString, {TCIMValue(TCIMType::cimString, 0)});
  const TCIMValue whole = Strings({"5"});
  EXPECT_EQ(vskStatusValueIsNULL, StatusOf([&] { Show(5U, {{"Values", holed}}); }));
  EXPECT_EQ(vskStatusValueIsNULL, StatusOf([&] {
              Show(5U, {{"Values", holed}, {"ValueMap", whole}});
            }));
  EXPECT_EQ(vskStatusValueIsNULL, StatusOf([&] {
              Show(5U, {{"Values", whole}, {"ValueMap", holed}});
            }));
}

TEST(PropertyDisplayArray, ElementByElement) {
  const TCIMValue null(TCIMType::cimUint32, 0);
  const TCIMValue sizes = Array(TCIMType::cimUint32, {1U, 1536U, null});
  EXPECT_EQ((TTexts{"1 Bytes", "1.5 KiloBytes", "n/a"}),
            ShowAll(sizes, {{"UNITS", "Bytes"}, {"NULLDISPLAY", "n/a"}}));
  const TShownProperty::TQualifiers map = {{"Values", Strings({"A", "B"})}, {"UNITS", "Bytes"}};
  EXPECT_EQ((TTexts{"B", "1536"}), ShowAll(Array(TCIMType::cimUint32, {1U, 1536U}), map));
  EXPECT_EQ(vskStatusValueIsNULL, StatusOf([&] { ShowAll(sizes, map); }));
  EXPECT_EQ((TTexts{"B", "A"}), ShowAll(Array(TCIMType::cimBoolean, {true, false}), map));
  EXPECT_EQ((TTexts{"1"}), ShowAll(Array(TCIMType::cimSint32, {1}), map));
  EXPECT_EQ(TTexts{}, ShowAll(Array(TCIMType::cimUint8, {}), map));
  EXPECT_EQ(TTexts{"1 Bytes"}, ShowAll(1U, map));  // one text, and never from the map
  EXPECT_EQ("{ 1, 0 }", Show(Array(TCIMType::cimUint8, {Byte(1), Byte(0)}), map));
  EXPECT_EQ(vskStatusValueIsNULL,
            StatusOf([&] { ShowAll(TCIMValue(TCIMType::cimUint8, 4), map); }));
}
