#include "identity/Identity.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

using TText = std::optional<std::string>;

// A picture of what comes out of these texts.
struct TRow {
  TText expected;
  std::vector<const char*> texts;
};

std::string PictureOf(const std::string& text) { return text; }
std::string PictureOf(bool value) { return value ? "yes" : "no"; }
std::string PictureOf(std::uint32_t number) { return std::to_string(number); }
std::string PictureOf(std::uint16_t number) { return std::to_string(number); }
std::string PictureOf(const TCIMDateTime& time) { return time.ToString().substr(0, 8); }

template <typename TParse>
void ExpectRows(TParse parse, std::initializer_list<TRow> rows) {
  for (const TRow& row : rows) {
    for (const char* text : row.texts) {
      const auto parsed = parse(text);
      EXPECT_EQ(row.expected, parsed ? TText(PictureOf(*parsed)) : std::nullopt) << text;
    }
  }
}

TEST(IdentityParse, Uuid) {
  ExpectRows(ParseUuid,
             {{"9f3c1b2a-77d4-4e0b-8c15-0a6d5e4f3b21", {"9F3C1B2A-77D4-4E0B-8C15-0A6D5E4F3B21\n"}},
              {{},
               {"00000000-0000-0000-0000-000000000000", "FFFFFFFF-FFFF-FFFF-FFFF-FFFFFFFFFFFF",
                "03000200-0400-0500-0006-000700080009", "9F3C1B2A77D44E0B8C150A6D5E4F3B21",
                "9F3C1B2A-77D4-4E0B-8C15-0A6D5E4F3B2G", "9F3C1B2A077D4-4E0B-8C15-0A6D5E4F3B21"}}});
}

TEST(IdentityParse, ChassisType) {
  // The high bit tells of a lock; 2 is "unknown".
  ExpectRows(ParseChassisType, {{"10", {"10\n", "138"}},
                                {"36", {"36"}},
                                {"99", {"99"}},
                                {{}, {"2", "130", "0", "256", "Laptop"}}});
}

TEST(IdentityParse, Processors) {
  ExpectRows(CountProcessors,
             {{"2",
               {"processor\t: 0\nmodel\t: 1\n\nprocessor\t: 1\n",
                "vendor_id       : IBM\nprocessor 0: version = FF\nprocessor 1: version = FF\n"}},
              {{}, {"processors: 4\n", ""}}});
  ExpectRows(ParseProcessorName,
             {{"Swift", {"model\t: 7\nmodel name\t:  Swift  \nmodel name\t: Slow"}},
              {"POWER9, altivec", {"cpu\t\t: POWER9, altivec\n"}},
              {{}, {"model name\t:\n", "cpu family\t: 6\n"}}});
  ExpectRows(ParseHypervisorFlag, {{"yes", {"flags\t: fpu hypervisor lahf\n"}},
                                   {"no", {"flags\t: fpu hypervisorless\n"}},
                                   {{}, {"Features\t: fp asimd\n"}}});
}

TEST(IdentityParse, FirmwareDatesAndReleases) {
  ExpectRows(ParseFirmwareDate, {{"20240229", {"02/29/2024\n"}},
                                 {"19991231", {"12/31/99"}},
                                 {{}, {"02/29/2023", "31/12/2020", "2020-12-31", ""}}});
  ExpectRows(ParseRelease, {{"1.26", {"1.26\n"}},
                            {"0.0", {"0.0"}},
                            {"255.1", {"255.1"}},
                            {{}, {"255.255", "1.2.3", "1"}}});
}

TEST(IdentityParse, MachineTypeAndModel) {
  ExpectRows(ParseMachineTypeModel,
             {{"21AB7CD", {"Wayfarer 14 -[21AB7CD]-   \n", "21AB7CD"}},
              {"21ABxxx", {"Wayfarer 14 -[21AB]-", "Wayfarer 14 -[21AB   ]-"}},
              {{}, {"Wayfarer 14 -[21AB7CD", "Wayfarer 14 -[21AB7]-", "21AB-CD", "21AB7CDE", ""}},
              {{}, {"Machine"}}});  // seven letters are a word
}

TEST(IdentityParse, SecureBoot) {
  EXPECT_EQ(true, ParseSecureBoot(std::string("\6\0\0\0\1", 5)));
  EXPECT_EQ(false, ParseSecureBoot(std::string("\6\0\0\0\0", 5)));
  EXPECT_EQ(std::nullopt, ParseSecureBoot(std::string("\6\0\0\0\2", 5)));
  EXPECT_EQ(std::nullopt, ParseSecureBoot("\1"));
}

TEST(IdentityParse, FirmwareTypeNeedsAWitness) {
  TFirmwareSource source;
  EXPECT_EQ(std::nullopt, ParseFirmware(source).type);
  source.hasDmi = true;
  EXPECT_EQ(1, ParseFirmware(source).type);
  source.hasEfi = true;
  EXPECT_EQ(2, ParseFirmware(source).type);
}

TEST(IdentityParse, NamesComeFromTheFirstSourceThatTells) {
  TComputerSystemSource source;
  source.kernelHostName = "(none)\n";
  source.fileHostName = "garden\n";
  source.productName = "Default string\n";
  source.treeModel = std::string("Example Board\0", 14);
  const TComputerSystem system = ParseComputerSystem(source);
  EXPECT_EQ("garden", system.name);
  EXPECT_EQ("Example Board", system.productName);
}

}  // namespace
