#include <algorithm>
#include <cctype>
#include <string_view>

#include "common/TInstanceWriter.h"
#include "common/Text.h"
#include "common/Time.h"
#include "identity/Identity.h"

namespace {

constexpr char kSecureBootVariable[] =
    "/sys/firmware/efi/efivars/SecureBoot-8be4df61-93ca-11d2-aa0d-00e098032b8c";

bool IsLetterOrDigit(char letter) { return std::isalnum(static_cast<unsigned char>(letter)) != 0; }
bool IsDigit(char letter) { return std::isdigit(static_cast<unsigned char>(letter)) != 0; }

bool IsCode(std::string_view text) {
  return std::all_of(text.begin(), text.end(), IsLetterOrDigit) &&
         std::any_of(text.begin(), text.end(), IsDigit);
}

std::optional<std::uint16_t> FirmwareType(const TFirmwareSource& source) {
  if (source.hasEfi) return static_cast<std::uint16_t>(EFirmwareType::kUefi);
  if (source.hasDmi) return static_cast<std::uint16_t>(EFirmwareType::kBios);
  return std::nullopt;
}

}  // namespace

std::optional<TCIMDateTime> ParseFirmwareDate(const std::string& text) {
  const std::vector<std::string_view> parts = Split(Trim(text), '/');
  if (parts.size() != 3) return std::nullopt;
  const auto month = ParseUnsigned(parts[0]);
  const auto day = ParseUnsigned(parts[1]);
  const auto year = ParseUnsigned(parts[2]);
  if (!month || !day || !year) return std::nullopt;
  // Two digits of a year are those of the last century: tables that write them are that old.
  return DayTimestamp(*year < 100 ? *year + 1900 : *year, *month, *day);
}

std::optional<std::string> ParseRelease(const std::string& text) {
  const std::vector<std::string_view> parts = Split(Trim(text), '.');
  if (parts.size() != 2) return std::nullopt;
  const auto major = ParseUnsigned(parts[0]);
  const auto minor = ParseUnsigned(parts[1]);
  if (!major || !minor || (*major == 255 && *minor == 255)) return std::nullopt;
  return std::to_string(*major) + "." + std::to_string(*minor);
}

std::optional<std::string> ParseMachineTypeModel(const std::string& productName) {
  constexpr std::size_t kTypeLength = 4;
  constexpr std::size_t kFullLength = 7;
  std::string_view name = Trim(productName);
  const std::size_t open = name.find("-[");
  if (open != std::string_view::npos) {
    const std::size_t close = name.find("]-", open);
    if (close == std::string_view::npos) return std::nullopt;
    name = Trim(name.substr(open + 2, close - open - 2));
    if (name.size() == kTypeLength && IsCode(name)) return std::string(name) + "xxx";
  }
  if (name.size() != kFullLength || !IsCode(name)) return std::nullopt;
  return std::string(name);
}

std::optional<bool> ParseSecureBoot(const std::string& variable) {
  if (variable.size() != 5) return std::nullopt;
  const char state = variable[4];
  if (state != 0 && state != 1) return std::nullopt;
  return state == 1;
}

TFirmwareSource ReadFirmware(const TSource& source) {
  TFirmwareSource read;
  read.vendor = ReadDmi(source, "bios_vendor");
  read.version = ReadDmi(source, "bios_version");
  read.date = ReadDmi(source, "bios_date");
  read.release = ReadDmi(source, "bios_release");
  read.controllerRelease = ReadDmi(source, "ec_firmware_release");
  read.productName = ReadDmi(source, "product_name");
  read.secureBoot = source.ReadText(kSecureBootVariable);
  read.hasDmi = source.HasFolder(kDmiFolder);
  read.hasEfi = source.HasFolder("/sys/firmware/efi");
  return read;
}

TFirmware ParseFirmware(const TFirmwareSource& source) {
  TFirmware firmware;
  firmware.manufacturer = Then(source.vendor, FirmwareText);
  firmware.version = Then(source.version, FirmwareText);
  firmware.releaseDate = Then(source.date, ParseFirmwareDate);
  firmware.release = Then(source.release, ParseRelease);
  firmware.controllerRelease = Then(source.controllerRelease, ParseRelease);
  firmware.machineTypeModel = Then(source.productName, ParseMachineTypeModel);
  firmware.type = FirmwareType(source);
  firmware.secureBoot = Then(source.secureBoot, ParseSecureBoot);
  return firmware;
}

void WriteFirmware(const TFirmware& firmware, TContainer& target, TCIMClass& cimClass) {
  TInstanceWriter(target, cimClass)
      .Set("InstanceID", "bios:0")
      .Set("ElementName", "System firmware")
      .Set("Manufacturer", firmware.manufacturer)
      .Set("Version", firmware.version)
      .Set("ReleaseDate", firmware.releaseDate)
      .Set("Release", firmware.release)
      .Set("EmbeddedControllerRelease", firmware.controllerRelease)
      .Set("MachineTypeModel", firmware.machineTypeModel)
      .Set("FirmwareType", firmware.type)
      .Set("SecureBoot", firmware.secureBoot)
      .Add();
}

void CollectFirmware(const TSource& source, TContainer& target, TCIMClass& cimClass) {
  const TFirmwareSource read = ReadFirmware(source);
  if (read.hasDmi || read.hasEfi) WriteFirmware(ParseFirmware(read), target, cimClass);
}
