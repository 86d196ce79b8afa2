#include <gtest/gtest.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "support/TTempDir.h"

extern "C" {
#include "cpu/Cpu.h"
}

namespace {

std::string Text(TSpan span) { return std::string(span.start, span.length); }
std::string Text(TNumber number) { return number.known ? std::to_string(number.value) : "?"; }

TEST(CpuText, NumbersAreWhole) {
  const struct {
    const char* text;
    const char* number;
  } kRows[] = {
      {"0", "0"},     {"154", "154"},  {"010", "10"},  // not octal
      {"0x41", "65"}, {"0XdF", "223"}, {"18446744073709551615", "18446744073709551615"},
  };
  for (const auto& row : kRows)
    EXPECT_EQ(row.number, Text(ParseNumber(SpanOf(row.text)))) << row.text;
  for (const char* text : {"0x", "", "-1", "6 ", "2.5", "4f", "0xg", "18446744073709551616",
                           "0x10000000000000000", "99999999999999999999999"})
    EXPECT_EQ("?", Text(ParseNumber(SpanOf(text)))) << text;
  EXPECT_EQ("255", Text(AtMost(Known(255), 255)));
  EXPECT_EQ("?", Text(AtMost(Known(256), 255)));
}

TEST(CpuText, ListsOfCpus) {
  const struct {
    const char* text;
    const char* count;
    const char* first;
    bool hasThree;
  } kRows[] = {
      {"0-3,8,10-11", "7", "0", true},
      {"2", "1", "2", false},
      {"3", "1", "3", true},
      {"4-5,1-3", "5", "4", true},
      {"0-4294967295", "4294967296", "0", true},
      {"", "?", "?", false},
      {"3-1", "?", "?", false},
      {"2-", "?", "?", false},
      {"x", "?", "?", false},
      {"0-3\n", "?", "0", true},
      {"0,4294967296", "?", "0", false},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.text);
    EXPECT_EQ(row.count, Text(CountInRanges(SpanOf(row.text))));
    EXPECT_EQ(row.first, Text(FirstInRanges(SpanOf(row.text))));
    EXPECT_EQ(row.hasThree, IsInRanges(SpanOf(row.text), 3) != 0);
  }
}

TEST(CpuText, WhatIsShownIsClean) {
  const struct {
    const char* text;
    const char* shown;
  } kRows[] = {
      {"Example(R)  CPU \t @ 2.60GHz ", "Example(R) CPU @ 2.60GHz"},
      {" \x01"
       "A\xff\xc3\xa4"
       "B\x7f",
       "AB"},
      {"unknown", ""},
      {" ", ""},
      {"0123456789abcdefghijklmnopqrstuvwxyz", "0123456789abcdefghijklmnopqrstu"},
      {"0123456789abcdefghijklmnopqrst vwxyz", "0123456789abcdefghijklmnopqrst"},
  };
  for (const auto& row : kRows) {
    char buffer[32];
    CopyShown(SpanOf(row.text), buffer, sizeof buffer);
    EXPECT_STREQ(row.shown, buffer) << row.text;
  }
}

// The CPUs of a text.
struct TCpus {
  explicit TCpus(const char* text) { EXPECT_TRUE(ParseCpuInfo(text, &list)); }
  TCpus(const TCpus&) = delete;
  TCpus& operator=(const TCpus&) = delete;
  ~TCpus() { FreeItems(&list); }
  TPackage Package(std::uint32_t number) const { return ParsePackage(&list, number); }
  TCpu& operator[](std::size_t place) { return static_cast<TCpu*>(list.items)[place]; }

  TList list = {nullptr, 0, 0, sizeof(TCpu)};
};

TEST(CpuInfo, BlocksBelongToTheirCpu) {
  TCpus cpus(
      "Hardware: none\nmodel: 1\n\nprocessor\t: 7\nmodel\t\t: 154\nmodel name: A: B\nbogus\n"
      "processor: 2\nmodel: 5\n\nmodel: 6\nprocessor: 7\nmodel: 8\n\nprocessor: 4294967296\n"
      "processor: 3\nmodel:\nModel: Board 4");
  ASSERT_EQ(3u, cpus.list.count);
  EXPECT_EQ(7u, cpus[0].number);
  EXPECT_EQ("154", Text(cpus[0].facts[kModel]));
  EXPECT_EQ("A: B", Text(cpus[0].facts[kModelName]));
  EXPECT_EQ(2u, cpus[1].number);
  EXPECT_EQ("5", Text(cpus[1].facts[kModel]));
  EXPECT_EQ(3u, cpus[2].number);
  EXPECT_EQ("", Text(cpus[2].facts[kModel]));
}

TEST(CpuInfo, ListAddsThoseThatAreMissing) {
  TCpus cpus("processor: 1\nmodel: 5\n");
  EXPECT_TRUE(ParseCpuList(SpanOf("0-2,600,4294967295\n"), &cpus.list));
  ASSERT_EQ(4u, cpus.list.count);
  EXPECT_EQ("5", Text(cpus[0].facts[kModel]));
  EXPECT_EQ(0u, cpus[1].number);
  EXPECT_EQ(2u, cpus[2].number);
  EXPECT_EQ(600u, cpus[3].number);
}

std::string Picture(const TPackage& package) {
  std::string text = std::string(package.name) + "|" + package.vendor + "|" + package.stepping;
  for (const TNumber number :
       {package.implementer, package.family, package.model, package.microcode, package.threads,
        package.cores, package.performanceCores, package.efficientCores, package.currentMegahertz,
        package.dataBits, package.physicalBits, package.virtualBits, package.virtualization}) {
    text += "|" + Text(number);
  }
  return text + "|" + Text(package.features);
}

TEST(CpuPackage, EachArchitectureTellsWhatItTells) {
  const struct {
    const char* text;
    const char* picture;
  } kRows[] = {
      {"processor: 0\nvendor_id: V\ncpu family: 6\nmodel: 154\nmodel name: N\nstepping: 4\n"
       "microcode: 0x2b000603\ncpu MHz: 2599.998\ncpu cores: 2\nflags: fpu lm svm\n"
       "address sizes: 48 bits physical, 57 bits virtual\n",
       "N|V|4|?|6|154|721421827|1|2|?|?|2600|64|48|57|1|fpu lm svm"},
      {"processor: 0\nstepping: unknown\ncpu MHz: 99.4\nflags: fpu almost svmx\n",
       "|||?|?|?|?|1|?|?|?|99|32|?|?|0|fpu almost svmx"},
      {"processor: 0\nFeatures: fp asimd\nCPU implementer: 0x41\nCPU variant: 0x1\n"
       "CPU part: 0xd08\nCPU revision: 3\n\nSerial: 10\nModel: Board\n",
       "||r1p3|65|?|?|?|1|?|?|?|?|?|?|?|?|fp asimd"},
      {"processor: 0\ncpu: POWER9, altivec supported\nclock: 2300.500000MHz\nrevision: 2.2\n",
       "POWER9, altivec supported|||?|?|?|?|1|?|?|?|2301|?|?|?|?|"},
      {"processor: 0\ncpu family: Loongson\nmicrocode: 0x100000000\nCPU implementer: 0x100\n"
       "cpu MHz: 4294967296\naddress sizes: many bits physical, 65536 bits virtual\n",
       "|||?|?|?|?|1|?|?|?|?|?|?|?|?|"},
  };
  for (const auto& row : kRows) {
    EXPECT_EQ(row.picture, Picture(TCpus(row.text).Package(0))) << row.text;
  }
}

TEST(CpuPackage, CpusThatDifferLeaveNoAnswer) {
  TCpus cpus(
      "processor: 0\nmodel name: Big\nmodel: 5\nmicrocode: 0x1\ncpu MHz: 800.5\nflags: lm vmx\n\n"
      "processor: 1\nmodel name: Small\nmodel: 5\nmicrocode: 0x2\ncpu MHz: 900.4\nflags: lm\n\n"
      "processor: 2\n\nprocessor: 3\nmodel: 9\n");
  cpus[3].package = 8;
  EXPECT_EQ("Big|||?|?|5|?|3|?|?|?|900|?|?|?|?|", Picture(cpus.Package(0)));
  EXPECT_EQ("|||?|?|9|?|1|?|?|?|?|?|?|?|?|", Picture(cpus.Package(8)));
  EXPECT_EQ("0", Text(NextPackage(&cpus.list, 0)));
  EXPECT_EQ("8", Text(NextPackage(&cpus.list, 1)));
  EXPECT_EQ("?", Text(NextPackage(&cpus.list, 9)));
}

TEST(CpuPackage, CoresAreCountedOnce) {
  TCpus cpus("processor: 0\ncpu cores: 9\n\nprocessor: 1\n\nprocessor: 2\n\nprocessor: 3\n");
  EXPECT_EQ("9", Text(cpus.Package(0).cores));
  const std::uint64_t cores[] = {0, 1, 0, 3};
  const EKind kinds[] = {kPerformance, kEfficient, kPerformance, kEfficient};
  for (std::size_t i = 0; i < 4; ++i) cpus[i].core = Known(cores[i]);
  EXPECT_EQ("3", Text(cpus.Package(0).cores));
  EXPECT_EQ("?", Text(cpus.Package(0).efficientCores));
  for (std::size_t i = 0; i < 4; ++i) cpus[i].kind = kinds[i];
  const TPackage package = cpus.Package(0);
  EXPECT_EQ("3 1 2", Text(package.cores) + " " + Text(package.performanceCores) + " " +
                         Text(package.efficientCores));
}

TEST(CpuPackage, PartsOfMixedCores) {
  TCpus cpus(
      "processor: 0\nCPU part: 0xd41\n\nprocessor: 1\nCPU part: 0xd05\n\nprocessor: 2\n"
      "CPU part: 0xd41\n\nprocessor: 3\nCPU part: 0x10000\n\nprocessor: 4\nCPU part: 0xd44\n");
  cpus[4].package = 1;
  TList parts = {nullptr, 0, 0, sizeof(std::uint16_t)};
  EXPECT_TRUE(ParseParts(&cpus.list, 0, &parts));
  const auto* part = static_cast<const std::uint16_t*>(parts.items);
  EXPECT_EQ((std::vector<std::uint16_t>{0xd41, 0xd05}),
            std::vector<std::uint16_t>(part, part + parts.count));
  FreeItems(&parts);
}

TEST(CpuCache, Sizes) {
  const struct {
    const char* text;
    const char* bytes;
  } kRows[] = {
      {"48K", "49152"},
      {"2048K", "2097152"},
      {"32M", "33554432"},
      {"1G", "1073741824"},
      {"16777215T", "18446742974197923840"},
      {"512", "512"},
  };
  for (const auto& row : kRows) EXPECT_EQ(row.bytes, Text(ParseSize(SpanOf(row.text)))) << row.text;
  for (const char* text : {"16777216T" /* 2^64 */, "0K", "", "K", "4X", "4KB", "unknown"})
    EXPECT_EQ("?", Text(ParseSize(SpanOf(text)))) << text;
}

TEST(CpuCache, FilesThatAreMissing) {
  const struct {
    std::vector<const char*> files;  // in the order of ECacheFile
    const char* picture;             // kind, first CPU, sharers, size, line, ways, sets
  } kRows[] = {
      {{"1\n", "Data\n", "4,36\n", "48K\n", "64\n", "12\n", "64\n"}, "L1d 4 2 49152 64 12 64"},
      {{"1", "Instruction", "9", "0K", "0", "0", "0"}, "L1i 9 1 ? ? ? ?"},
      {{"3", "Unified", "0-3 and more", "x", "-1", "", "1.5"}, "L3 0 ? ? ? ? ?"},
      {{"2", nullptr, nullptr, nullptr, nullptr, nullptr, nullptr}, "L2 17 ? ? ? ? ?"},
      {{nullptr, "Data", "4", "48K", "64", "12", "64"}, "none"},
      {{"256", "Data", "4", "48K", "64", "12", "64"}, "none"},
  };
  for (const auto& row : kRows) {
    SCOPED_TRACE(row.picture);
    std::vector<std::string> texts;
    for (const char* file : row.files) texts.emplace_back(file == nullptr ? "" : file);
    char* files[kCacheFileCount];
    for (std::size_t i = 0; i < texts.size(); ++i) {
      files[i] = row.files[i] == nullptr ? nullptr : texts[i].data();
    }
    TCache cache;
    std::string picture = "none";
    if (ParseCache(files, 17, &cache)) {
      char kind[8];
      ParseCacheKind(&cache, kind, sizeof kind);
      picture = std::string(kind) + " " + std::to_string(cache.firstCpu);
      for (const TNumber number :
           {cache.sharers, cache.size, cache.lineSize, cache.ways, cache.sets}) {
        picture += " " + Text(number);
      }
    }
    EXPECT_EQ(row.picture, picture);
  }
}

TEST(CpuRead, NothingToReadIsNoFailure) {
  for (const std::string& root : {std::string(VSK_TEST_TREES "/absent"), std::string(5000, 'x')}) {
    TMachine machine;
    EXPECT_TRUE(ReadMachine(root.c_str(), &machine));
    EXPECT_EQ(0u, machine.cpus.count + machine.caches.count + machine.links.count);
    FreeMachine(&machine);
  }
  EXPECT_EQ(nullptr, ReadText(VSK_TEST_TREES, "/server"));  // a folder
}

TEST(CpuRead, SharedCachesStandOnce) {
  TMachine machine;
  ASSERT_TRUE(ReadMachine(VSK_TEST_TREES "/server", &machine));
  const auto* cache = static_cast<const TCache*>(machine.caches.items);
  std::string sharers;
  for (std::size_t i = 0; i < machine.caches.count; ++i)
    sharers += cache[i].sharedBy + std::string(" ");
  EXPECT_EQ("0-1 0-1 0-1 0-3 2 2-3 3 4 4 ", sharers);
  FreeMachine(&machine);
}

TEST(CpuRead, FilesAreReadWhole) {
  for (const std::size_t size : {0u, 254u, 255u, 256u, 511u, 100000u}) {
    const TTempDir folder;
    const std::string content(size, 'x');
    folder.MakeFile("file", content);
    char* text = ReadText(folder.Path().c_str(), "/file");
    ASSERT_NE(nullptr, text);
    EXPECT_EQ(content, text);
    std::free(text);
  }
}

}  // namespace
