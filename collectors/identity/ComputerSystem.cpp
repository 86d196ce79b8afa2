#include <algorithm>
#include <cctype>
#include <limits>
#include <string_view>

#include "common/TInstanceWriter.h"
#include "common/Text.h"
#include "identity/Identity.h"

namespace {

std::optional<std::string> FirstOf(const std::optional<std::string>& first,
                                   const std::optional<std::string>& second,
                                   std::optional<std::string> (*parse)(std::string_view)) {
  const std::optional<std::string> text = Then(first, parse);
  return text ? text : Then(second, parse);
}

std::optional<std::string> HostName(std::string_view text) {
  const std::optional<std::string> name = CleanText(text);
  // What a kernel is called that nobody has named.
  return name == "(none)" ? std::nullopt : name;
}

// The value of the first line of that key, with the keys compared whole.
std::optional<std::string> Line(const std::string& cpuInfo, const std::string& key) {
  const auto values = ParseColonLines(cpuInfo);
  const auto found = values.find(key);
  if (found == values.end()) return std::nullopt;
  return CleanText(found->second);
}

}  // namespace

std::optional<std::string> ParseUuid(const std::string& text) {
  // What a maker's tool writes when nobody gives it a number of its own.
  static constexpr std::string_view kTemplate = "03000200-0400-0500-0006-000700080009";
  std::string uuid(Trim(text));
  if (uuid.size() != 36) return std::nullopt;
  bool allZeros = true;
  bool allOnes = true;
  for (std::size_t at = 0; at < uuid.size(); ++at) {
    const bool dash = at == 8 || at == 13 || at == 18 || at == 23;
    const auto letter = static_cast<unsigned char>(uuid[at]);
    if (dash ? letter != '-' : std::isxdigit(letter) == 0) return std::nullopt;
    uuid[at] = static_cast<char>(std::tolower(letter));
    allZeros = allZeros && (dash || uuid[at] == '0');
    allOnes = allOnes && (dash || uuid[at] == 'f');
  }
  if (allZeros || allOnes || uuid == kTemplate) return std::nullopt;
  return uuid;
}

std::optional<std::uint16_t> ParseChassisType(const std::string& text) {
  constexpr std::uint64_t kUnknown = 2;
  constexpr std::uint64_t kLockBit = 0x80;
  const std::optional<std::uint64_t> number = ParseUnsigned(text);
  if (!number || *number > 0xFF) return std::nullopt;
  const std::uint64_t type = *number & ~kLockBit;
  if (type == 0 || type == kUnknown) return std::nullopt;
  return static_cast<std::uint16_t>(type);
}

std::optional<std::uint32_t> CountProcessors(const std::string& cpuInfo) {
  std::uint32_t count = 0;
  for (const std::string_view line : Split(cpuInfo, '\n')) {
    const std::size_t colon = line.find(':');
    if (colon == std::string_view::npos) continue;
    // Mainframes write "processor 0: ..."; others "processor<tab>: 0".
    const std::string_view key = Trim(line.substr(0, colon));
    if (key == "processor" || key.rfind("processor ", 0) == 0) ++count;
  }
  if (count == 0) return std::nullopt;
  return count;
}

std::optional<std::string> ParseProcessorName(const std::string& cpuInfo) {
  for (const char* key : {"model name", "cpu model", "cpu", "uarch"}) {
    if (const std::optional<std::string> name = Line(cpuInfo, key)) return name;
  }
  return std::nullopt;
}

std::optional<bool> ParseHypervisorFlag(const std::string& cpuInfo) {
  const std::optional<std::string> flags = Line(cpuInfo, "flags");
  if (!flags) return std::nullopt;
  const std::vector<std::string_view> words = Split(*flags, ' ');
  return std::find(words.begin(), words.end(), "hypervisor") != words.end();
}

TComputerSystemSource ReadComputerSystem(const TSource& source) {
  TComputerSystemSource read;
  read.kernelHostName = source.ReadText("/proc/sys/kernel/hostname");
  read.fileHostName = source.ReadText("/etc/hostname");
  read.vendor = ReadDmi(source, "sys_vendor");
  read.productName = ReadDmi(source, "product_name");
  read.productVersion = ReadDmi(source, "product_version");
  read.productFamily = ReadDmi(source, "product_family");
  read.sku = ReadDmi(source, "product_sku");
  read.serial = ReadDmi(source, "product_serial");
  read.uuid = ReadDmi(source, "product_uuid");
  read.assetTag = ReadDmi(source, "chassis_asset_tag");
  read.chassisType = ReadDmi(source, "chassis_type");
  read.treeModel = source.ReadText("/proc/device-tree/model");
  read.treeSerial = source.ReadText("/proc/device-tree/serial-number");
  read.cpuInfo = source.ReadText("/proc/cpuinfo");
  return read;
}

TComputerSystem ParseComputerSystem(const TComputerSystemSource& source) {
  TComputerSystem system;
  system.name = FirstOf(source.kernelHostName, source.fileHostName, HostName);
  system.manufacturer = Then(source.vendor, FirmwareText);
  system.productName = FirstOf(source.productName, source.treeModel, FirmwareText);
  system.productVersion = Then(source.productVersion, FirmwareText);
  system.productFamily = Then(source.productFamily, FirmwareText);
  system.sku = Then(source.sku, FirmwareText);
  system.serial = FirstOf(source.serial, source.treeSerial, FirmwareText);
  system.uuid = Then(source.uuid, ParseUuid);
  system.assetTag = Then(source.assetTag, FirmwareText);
  system.chassisType = Then(source.chassisType, ParseChassisType);
  system.processorName = Then(source.cpuInfo, ParseProcessorName);
  system.processors = Then(source.cpuInfo, CountProcessors);
  system.virtualMachine = Then(source.cpuInfo, ParseHypervisorFlag);
  return system;
}

void WriteComputerSystem(const TComputerSystem& system, TContainer& target, TCIMClass& cimClass) {
  TInstanceWriter(target, cimClass)
      .Set("InstanceID", "system:0")
      .Set("ElementName", system.name)
      .Set("Name", system.name)
      .Set("Manufacturer", system.manufacturer)
      .Set("ProductName", system.productName)
      .Set("ProductVersion", system.productVersion)
      .Set("ProductFamily", system.productFamily)
      .Set("SKUNumber", system.sku)
      .Set("SerialNumber", system.serial)
      .Set("UUID", system.uuid)
      .Set("AssetTag", system.assetTag)
      .Set("ChassisType", system.chassisType)
      .Set("ProcessorName", system.processorName)
      .Set("NumberOfLogicalProcessors", system.processors)
      .Set("VirtualMachine", system.virtualMachine)
      .Add();
}

void CollectComputerSystem(const TSource& source, TContainer& target, TCIMClass& cimClass) {
  WriteComputerSystem(ParseComputerSystem(ReadComputerSystem(source)), target, cimClass);
}
