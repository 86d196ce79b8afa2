#include <algorithm>
#include <array>
#include <cctype>
#include <limits>
#include <locale>
#include <sstream>
#include <string_view>

#include "common/TInstanceWriter.h"
#include "common/Text.h"
#include "common/Time.h"
#include "os/Os.h"

namespace {

constexpr std::uint64_t kBytesPerKiB = 1024;

std::optional<std::string> Named(const std::map<std::string, std::string>& values,
                                 const std::string& name) {
  const auto found = values.find(name);
  if (found == values.end()) return std::nullopt;
  return CleanText(found->second);
}

std::optional<std::string> FirstNamed(const std::map<std::string, std::string>& values,
                                      std::initializer_list<const char*> names) {
  for (const char* name : names) {
    if (std::optional<std::string> value = Named(values, name)) return value;
  }
  return std::nullopt;
}

// "16316412 kB", and nothing for another unit.
std::optional<std::uint64_t> KibiBytes(const std::map<std::string, std::string>& values,
                                       const std::string& name) {
  constexpr std::string_view kUnit = " kB";
  const std::optional<std::string> text = Named(values, name);
  if (!text || text->size() <= kUnit.size()) return std::nullopt;
  const std::size_t digits = text->size() - kUnit.size();
  if (text->compare(digits, kUnit.size(), kUnit) != 0) return std::nullopt;
  const std::optional<std::uint64_t> number = ParseUnsigned(text->substr(0, digits));
  if (!number || *number > std::numeric_limits<std::uint64_t>::max() / kBytesPerKiB) {
    return std::nullopt;
  }
  return *number * kBytesPerKiB;
}

// Words between single blanks.
std::optional<std::vector<std::string>> Words(const std::string& text) {
  std::vector<std::string> words;
  for (const std::string_view word : Split(text, ' ')) {
    if (!word.empty()) words.emplace_back(word);
  }
  return words;
}

void ParseDistribution(const TOperatingSystemSource& source, TOperatingSystem& system) {
  const auto values = ParseOsRelease(source.osRelease.value_or(""));
  system.title = FirstNamed(values, {"PRETTY_NAME", "NAME", "ID"});
  system.name = FirstNamed(values, {"NAME", "ID"});
  // A rolling distribution has no version, but builds.
  system.version = FirstNamed(values, {"VERSION_ID", "VERSION", "BUILD_ID"});
  system.distribution = Named(values, "ID");
  system.family = Then(Named(values, "ID_LIKE"), Words);
  system.codename = Named(values, "VERSION_CODENAME");
  system.variant = Named(values, "VARIANT");
  system.build = Named(values, "BUILD_ID");
  system.supportEnd = Then(Named(values, "SUPPORT_END"), ParseIsoDate);
  // Only here does the file hold a number; derived distributions leave words in it.
  const std::optional<std::string> point = Then(source.debianVersion, CleanText);
  const bool isNumber = point && std::isdigit(static_cast<unsigned char>((*point)[0])) != 0;
  if (isNumber && system.distribution == "debian") system.pointRelease = point;
}

void ParseKernel(const TOperatingSystemSource& source, TOperatingSystem& system) {
  system.kernelName = Then(source.kernelName, CleanText);
  system.kernelRelease = Then(source.kernelRelease, CleanText);
  system.kernelVersion = Then(source.kernelVersion, CleanText);
  system.architecture = Then(source.architecture, CleanText);
  system.commandLine = Then(source.commandLine, CleanText);
  system.taint = Then(source.tainted, ParseUnsigned);
}

void WriteLoad(const TLoad& load, TInstanceWriter& writer) {
  writer.Set("LoadAverage1", load.oneMinute)
      .Set("LoadAverage5", load.fiveMinutes)
      .Set("LoadAverage15", load.fifteenMinutes)
      .Set("NumberOfThreads", load.threads);
}

void WriteTaint(std::uint64_t taint, TInstanceWriter& writer) {
  writer.Set("KernelTainted", taint != 0)
      .SetList("KernelTaintReasons", TCIMValue::TCIMType::cimUint8, TaintReasons(taint));
}

}  // namespace

std::optional<std::uint64_t> ParseUptime(const std::string& text) {
  // "2243.63 4405.75": since the start, and idle.
  return ParseUnsigned(std::string_view(text).substr(0, text.find('.')));
}

std::optional<std::uint64_t> ParseBootTime(const std::string& stat) {
  constexpr std::string_view kKey = "btime ";
  for (const std::string_view line : Split(stat, '\n')) {
    if (line.rfind(kKey, 0) == 0) return ParseUnsigned(line.substr(kKey.size()));
  }
  return std::nullopt;
}

std::optional<TLoad> ParseLoad(const std::string& text) {
  // "0.03 0.05 0.01 1/91 7077": three averages, running and all threads, the youngest process.
  std::istringstream stream(text);
  stream.imbue(std::locale::classic());
  TLoad load = {};
  std::uint32_t running = 0;
  char slash = 0;
  stream >> load.oneMinute >> load.fiveMinutes >> load.fifteenMinutes >> running >> slash >>
      load.threads;
  if (!stream || slash != '/') return std::nullopt;
  return load;
}

TMemory ParseMemory(const std::string& memInfo) {
  const auto values = ParseColonLines(memInfo);
  TMemory memory;
  memory.total = KibiBytes(values, "MemTotal");
  memory.available = KibiBytes(values, "MemAvailable");
  memory.free = KibiBytes(values, "MemFree");
  memory.swapTotal = KibiBytes(values, "SwapTotal");
  memory.swapFree = KibiBytes(values, "SwapFree");
  return memory;
}

std::optional<std::uint32_t> CountProcesses(const std::vector<std::string>& procNames) {
  std::uint32_t count = 0;
  for (const std::string& name : procNames) {
    if (ParseUnsigned(name)) ++count;
  }
  if (count == 0) return std::nullopt;
  return count;
}

std::optional<TCIMDateTime> ParseIsoDate(const std::string& text) {
  const std::vector<std::string_view> parts = Split(text, '-');
  if (parts.size() != 3) return std::nullopt;
  const auto year = ParseUnsigned(parts[0]);
  const auto month = ParseUnsigned(parts[1]);
  const auto day = ParseUnsigned(parts[2]);
  if (!year || !month || !day) return std::nullopt;
  return DayTimestamp(*year, *month, *day);
}

std::vector<unsigned char> TaintReasons(std::uint64_t taint) {
  std::vector<unsigned char> bits;
  for (unsigned char bit = 0; bit < 64; ++bit) {
    if ((taint >> bit & 1) != 0) bits.push_back(bit);
  }
  return bits;
}

TOperatingSystemSource ReadOperatingSystem(const TSource& source) {
  TOperatingSystemSource read;
  read.osRelease = source.ReadText("/etc/os-release");
  if (!read.osRelease) read.osRelease = source.ReadText("/usr/lib/os-release");
  read.debianVersion = source.ReadText("/etc/debian_version");
  read.timeZone = source.ReadText("/etc/timezone");
  read.kernelName = source.ReadText("/proc/sys/kernel/ostype");
  read.kernelRelease = source.ReadText("/proc/sys/kernel/osrelease");
  read.kernelVersion = source.ReadText("/proc/sys/kernel/version");
  read.architecture = source.ReadText("/proc/sys/kernel/arch");
  read.commandLine = source.ReadText("/proc/cmdline");
  read.tainted = source.ReadText("/proc/sys/kernel/tainted");
  read.uptime = source.ReadText("/proc/uptime");
  read.stat = source.ReadText("/proc/stat");
  read.loadAverage = source.ReadText("/proc/loadavg");
  read.memInfo = source.ReadText("/proc/meminfo");
  read.procNames = source.List("/proc");
  return read;
}

TOperatingSystem ParseOperatingSystem(const TOperatingSystemSource& source) {
  TOperatingSystem system;
  ParseDistribution(source, system);
  ParseKernel(source, system);
  system.timeZone = Then(source.timeZone, CleanText);
  system.uptimeSeconds = Then(source.uptime, ParseUptime);
  const std::optional<std::uint64_t> boot = Then(source.stat, ParseBootTime);
  if (boot) system.lastBoot = LocalTimestamp(*boot);
  system.load = Then(source.loadAverage, ParseLoad);
  system.processes = CountProcesses(source.procNames);
  if (source.memInfo) system.memory = ParseMemory(*source.memInfo);
  return system;
}

void WriteOperatingSystem(const TOperatingSystem& system, TContainer& target, TCIMClass& cimClass) {
  TInstanceWriter writer(target, cimClass);
  writer.Set("InstanceID", "os:running")
      .Set("ElementName", system.title)
      .Set("Name", system.name)
      .Set("Version", system.version)
      .Set("PointRelease", system.pointRelease)
      .Set("Distribution", system.distribution)
      .Set("Codename", system.codename)
      .Set("Variant", system.variant)
      .Set("BuildNumber", system.build)
      .Set("SupportEndDate", system.supportEnd)
      .Set("TimeZone", system.timeZone)
      .Set("KernelName", system.kernelName)
      .Set("KernelRelease", system.kernelRelease)
      .Set("KernelVersion", system.kernelVersion)
      .Set("Architecture", system.architecture)
      .Set("KernelCommandLine", system.commandLine)
      .Set("SystemUpTime", system.uptimeSeconds)
      .Set("LastBootUpTime", system.lastBoot)
      .Set("NumberOfProcesses", system.processes)
      .Set("TotalVisibleMemorySize", system.memory.total)
      .Set("AvailableMemory", system.memory.available)
      .Set("FreePhysicalMemory", system.memory.free)
      .Set("TotalSwapSpaceSize", system.memory.swapTotal)
      .Set("FreeSwapSpaceSize", system.memory.swapFree);
  if (system.family) {
    writer.SetList("DistributionFamily", TCIMValue::TCIMType::cimString, *system.family);
  }
  if (system.load) WriteLoad(*system.load, writer);
  if (system.taint) WriteTaint(*system.taint, writer);
  writer.Add();
}

void CollectOperatingSystem(const TSource& source, TContainer& target, TCIMClass& cimClass) {
  WriteOperatingSystem(ParseOperatingSystem(ReadOperatingSystem(source)), target, cimClass);
}
