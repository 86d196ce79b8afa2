#include "os/Os.h"

#include <gtest/gtest.h>

namespace {

using TValues = std::map<std::string, std::string>;

TEST(OsParse, OsReleaseQuotesAsAShellDoes) {
  const struct {
    const char* text;
    TValues values;
  } kRows[] = {
      {"ID=debian\nNAME=\"Debian GNU/Linux\"\n", {{"ID", "debian"}, {"NAME", "Debian GNU/Linux"}}},
      {"A=\"\\\"x\\\" \\$y \\\\z \\`w\\` \\n\"", {{"A", "\"x\" $y \\z `w` \\n"}}},
      {"A='it \\ \"is\"'", {{"A", "it \\ \"is\""}}},
      {"A=two\\ words", {{"A", "two words"}}},
      {"A=1\nA=2", {{"A", "2"}}},
      {"A=\"open", {{"A", "open"}}},
      {"A=back\\", {{"A", "back\\"}}},
      {"A=", {{"A", ""}}},
      {"A=b=c", {{"A", "b=c"}}},
      {" A=padded \r\n", {{"A", "padded"}}},
      {"#A=1\nnothing\n=x\nA B=1\n", {}},
  };
  for (const auto& row : kRows) EXPECT_EQ(row.values, ParseOsRelease(row.text)) << row.text;
}

TOperatingSystem ParseDistribution(const char* osRelease, const char* debianVersion) {
  TOperatingSystemSource source;
  source.osRelease = osRelease;
  source.debianVersion = debianVersion;
  return ParseOperatingSystem(source);
}

TEST(OsParse, VersionOrBuild) {
  EXPECT_EQ("12", ParseDistribution("VERSION_ID=12\nVERSION=x\nBUILD_ID=7", "").version);
  EXPECT_EQ("12 (x)", ParseDistribution("VERSION='12 (x)'\nBUILD_ID=7", "").version);
  EXPECT_EQ("7", ParseDistribution("BUILD_ID=7", "").version);
  EXPECT_EQ(std::nullopt, ParseDistribution("VERSION_ID=\"\"", "").version);
}

TEST(OsParse, PointReleaseIsDebiansOwn) {
  EXPECT_EQ("12.11", ParseDistribution("ID=debian", "12.11\n").pointRelease);
  EXPECT_EQ(std::nullopt, ParseDistribution("ID=debian", "trixie/sid\n").pointRelease);
  EXPECT_EQ(std::nullopt, ParseDistribution("ID=sample", "12.11\n").pointRelease);
}

TEST(OsParse, KernelCounters) {
  EXPECT_EQ(2243u, ParseUptime("2243.63 4405.75\n"));
  EXPECT_EQ(7u, ParseUptime("7"));
  EXPECT_EQ(std::nullopt, ParseUptime("soon"));
  EXPECT_EQ(1795386228u, ParseBootTime("cpu 1 2\nxbtime 3\nbtime 1795386228\nctxt 4\n"));
  EXPECT_EQ(std::nullopt, ParseBootTime("cpu 1 2\n"));
  EXPECT_EQ(2u, CountProcesses({"1", "2a", "acpi", "31", "self"}));
  EXPECT_EQ(std::nullopt, CountProcesses({"acpi"}));
}

TEST(OsParse, LoadNeedsAllItsParts) {
  const std::optional<TLoad> load = ParseLoad("0.52 1.25 10.75 3/1187 48213\n");
  ASSERT_TRUE(load);
  EXPECT_FLOAT_EQ(0.52f, load->oneMinute);
  EXPECT_FLOAT_EQ(1.25f, load->fiveMinutes);
  EXPECT_FLOAT_EQ(10.75f, load->fifteenMinutes);
  EXPECT_EQ(1187u, load->threads);
  for (const char* bad : {"", "0.52 1.25", "0.52 1.25 0.75 3-1187", "a b c 1/2"}) {
    EXPECT_FALSE(ParseLoad(bad)) << bad;
  }
}

TEST(OsParse, MemoryIsInBytes) {
  const TMemory memory = ParseMemory(
      "MemTotal:       16090412 kB\nMemFree: 1 MB\nMemAvailable:\nSwapTotal: 0 kB\nSwapFree: kB\n");
  EXPECT_EQ(16476581888u, memory.total);
  EXPECT_EQ(std::nullopt, memory.free);
  EXPECT_EQ(std::nullopt, memory.available);
  EXPECT_EQ(0u, memory.swapTotal);
  EXPECT_EQ(std::nullopt, memory.swapFree);
  EXPECT_EQ(std::nullopt, ParseMemory("MemTotal: 18014398509481984 kB\n").total);  // 2^64 bytes
}

TEST(OsParse, TaintIsASetOfBits) {
  EXPECT_EQ((std::vector<unsigned char>{0, 12, 13}), TaintReasons(12289));
  EXPECT_EQ((std::vector<unsigned char>{63}), TaintReasons(std::uint64_t{1} << 63));
  EXPECT_TRUE(TaintReasons(0).empty());
}

TEST(OsParse, VulnerabilityStates) {
  const struct {
    std::optional<int> state;
    std::vector<const char*> texts;
  } kRows[] = {
      {1, {"Not affected\n"}},
      {2,
       {"Mitigation: PTI\n", "Mitigation; SMT vulnerable\n",
        "KVM: Mitigation: Split huge pages\n"}},
      {3,
       {"Vulnerable: Clear CPU buffers attempted, no microcode\n", "KVM: Vulnerable\n",
        "Processor vulnerable\n"}},
      {std::nullopt, {"Unknown: Dependent on hypervisor status\n", "Not\n", ""}},
  };
  for (const auto& row : kRows) {
    for (const char* text : row.texts) EXPECT_EQ(row.state, ParseVulnerabilityState(text)) << text;
  }
}

}  // namespace
