// The operating system, how it is doing, and what the processor's known faults mean for it.
#ifndef VSKCORE_COLLECTORS_OS_OS_H
#define VSKCORE_COLLECTORS_OS_OS_H

#include <vskcore/model/TCIMDateTime.h>

#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "common/TSource.h"

class TCIMClass;
class TContainer;

// Each class in three steps: Read touches the machine and keeps its bytes as they are, Parse is
// pure, Write talks to the core. Collect is the three in a row.

struct TOperatingSystemSource {
  std::optional<std::string> osRelease;
  std::optional<std::string> debianVersion;
  std::optional<std::string> timeZone;
  std::optional<std::string> kernelName;
  std::optional<std::string> kernelRelease;
  std::optional<std::string> kernelVersion;
  std::optional<std::string> architecture;
  std::optional<std::string> commandLine;
  std::optional<std::string> tainted;
  std::optional<std::string> uptime;
  std::optional<std::string> stat;
  std::optional<std::string> loadAverage;
  std::optional<std::string> memInfo;
  std::vector<std::string> procNames;  // what /proc lists
};

struct TLoad {
  float oneMinute;
  float fiveMinutes;
  float fifteenMinutes;
  std::uint32_t threads;  // all that the scheduler knows
};

struct TMemory {
  std::optional<std::uint64_t> total;
  std::optional<std::uint64_t> available;
  std::optional<std::uint64_t> free;
  std::optional<std::uint64_t> swapTotal;
  std::optional<std::uint64_t> swapFree;
};

struct TOperatingSystem {
  std::optional<std::string> title;  // name and version together
  std::optional<std::string> name;
  std::optional<std::string> version;
  std::optional<std::string> pointRelease;
  std::optional<std::string> distribution;
  std::optional<std::vector<std::string>> family;
  std::optional<std::string> codename;
  std::optional<std::string> variant;
  std::optional<std::string> build;
  std::optional<TCIMDateTime> supportEnd;
  std::optional<std::string> timeZone;
  std::optional<std::string> kernelName;
  std::optional<std::string> kernelRelease;
  std::optional<std::string> kernelVersion;
  std::optional<std::string> architecture;
  std::optional<std::string> commandLine;
  std::optional<std::uint64_t> taint;
  std::optional<std::uint64_t> uptimeSeconds;
  std::optional<TCIMDateTime> lastBoot;
  std::optional<TLoad> load;
  std::optional<std::uint32_t> processes;
  TMemory memory;
};

TOperatingSystemSource ReadOperatingSystem(const TSource& source);
TOperatingSystem ParseOperatingSystem(const TOperatingSystemSource& source);
void WriteOperatingSystem(const TOperatingSystem& system, TContainer& target, TCIMClass& cimClass);
void CollectOperatingSystem(const TSource& source, TContainer& target, TCIMClass& cimClass);

// The assignments of an os-release file: a subset of a shell's, with its quotes and backslashes
// but nothing expanded. Of a name that repeats, the last stands. Lines that assign nothing are
// passed over.
std::map<std::string, std::string> ParseOsRelease(const std::string& text);
// The parts of the others that have rules of their own.
std::optional<std::uint64_t> ParseUptime(const std::string& text);    // whole seconds
std::optional<std::uint64_t> ParseBootTime(const std::string& stat);  // seconds since 1970
std::optional<TLoad> ParseLoad(const std::string& text);
TMemory ParseMemory(const std::string& memInfo);  // in bytes
std::optional<std::uint32_t> CountProcesses(const std::vector<std::string>& procNames);
std::optional<TCIMDateTime> ParseIsoDate(const std::string& text);  // yyyy-mm-dd
// The numbers of the bits that are set, ascending.
std::vector<unsigned char> TaintReasons(std::uint64_t taint);

enum class EVulnerabilityState : std::uint8_t { kNotAffected = 1, kMitigated = 2, kVulnerable = 3 };

struct TVulnerability {
  std::string name;
  std::optional<std::uint8_t> state;  // of EVulnerabilityState
  std::optional<std::string> description;
};

// The kernel's sentence becomes a state by its first words; what it says beyond them stays in the
// description. "Unknown" and words not known here give no state.
std::optional<std::uint8_t> ParseVulnerabilityState(const std::string& text);
// What the fault is called outside the kernel; its own name where that is not known here.
std::string VulnerabilityTitle(const std::string& name);
std::vector<TVulnerability> ReadVulnerabilities(const TSource& source);
void WriteVulnerability(const TVulnerability& vulnerability, TContainer& target,
                        TCIMClass& cimClass);
void CollectVulnerabilities(const TSource& source, TContainer& target, TCIMClass& cimClass);

// Joins the computer system to the operating system, once both are in the container.
void CollectRunningOS(const TSource& source, TContainer& target, TCIMClass& cimClass);

#endif
