// Who made this machine, which one it is, and what its firmware says.
#ifndef VSKCORE_COLLECTORS_IDENTITY_IDENTITY_H
#define VSKCORE_COLLECTORS_IDENTITY_IDENTITY_H

#include <vskcore/model/TCIMDateTime.h>

#include <cstdint>
#include <optional>
#include <string>

#include "common/TSource.h"

class TCIMClass;
class TContainer;

// Each class in three steps: Read touches the machine and keeps its bytes as they are, Parse is
// pure, Write talks to the core. Collect is the three in a row.

// The files below /sys/class/dmi/id are the firmware's tables (SMBIOS) as the kernel read them.
// Serial numbers and the UUID are open to root only. A machine without such tables, as many on
// ARM, may tell its model and serial number through the device tree.
constexpr char kDmiFolder[] = "/sys/class/dmi/id";
std::optional<std::string> ReadDmi(const TSource& source, const std::string& name);

struct TComputerSystemSource {
  std::optional<std::string> kernelHostName;  // the running kernel's
  std::optional<std::string> fileHostName;    // /etc/hostname, for a tree without /proc
  std::optional<std::string> vendor;
  std::optional<std::string> productName;
  std::optional<std::string> productVersion;
  std::optional<std::string> productFamily;
  std::optional<std::string> sku;
  std::optional<std::string> serial;
  std::optional<std::string> uuid;
  std::optional<std::string> assetTag;
  std::optional<std::string> chassisType;
  std::optional<std::string> treeModel;  // of the device tree
  std::optional<std::string> treeSerial;
  std::optional<std::string> cpuInfo;
};

struct TComputerSystem {
  std::optional<std::string> name;
  std::optional<std::string> manufacturer;
  std::optional<std::string> productName;
  std::optional<std::string> productVersion;
  std::optional<std::string> productFamily;
  std::optional<std::string> sku;
  std::optional<std::string> serial;
  std::optional<std::string> uuid;
  std::optional<std::string> assetTag;
  std::optional<std::uint16_t> chassisType;
  std::optional<std::string> processorName;
  std::optional<std::uint32_t> processors;
  std::optional<bool> virtualMachine;
};

TComputerSystemSource ReadComputerSystem(const TSource& source);
TComputerSystem ParseComputerSystem(const TComputerSystemSource& source);
void WriteComputerSystem(const TComputerSystem& system, TContainer& target, TCIMClass& cimClass);
void CollectComputerSystem(const TSource& source, TContainer& target, TCIMClass& cimClass);

// The parts of it that have rules of their own.
std::optional<std::string> ParseUuid(const std::string& text);
std::optional<std::uint16_t> ParseChassisType(const std::string& text);
// Logical processors; nothing when the text lists none.
std::optional<std::uint32_t> CountProcessors(const std::string& cpuInfo);
std::optional<std::string> ParseProcessorName(const std::string& cpuInfo);
// Whether the processor says that a hypervisor is underneath. Nothing where it has no flag for it.
std::optional<bool> ParseHypervisorFlag(const std::string& cpuInfo);

struct TFirmwareSource {
  std::optional<std::string> vendor;
  std::optional<std::string> version;
  std::optional<std::string> date;
  std::optional<std::string> release;
  std::optional<std::string> controllerRelease;
  std::optional<std::string> productName;  // may carry the machine type
  std::optional<std::string> secureBoot;   // the EFI variable
  bool hasDmi = false;
  bool hasEfi = false;
};

enum class EFirmwareType : std::uint16_t { kBios = 1, kUefi = 2 };

struct TFirmware {
  std::optional<std::string> manufacturer;
  std::optional<std::string> version;
  std::optional<TCIMDateTime> releaseDate;
  std::optional<std::string> release;
  std::optional<std::string> controllerRelease;
  std::optional<std::string> machineTypeModel;
  std::optional<std::uint16_t> type;
  std::optional<bool> secureBoot;
};

TFirmwareSource ReadFirmware(const TSource& source);
TFirmware ParseFirmware(const TFirmwareSource& source);
void WriteFirmware(const TFirmware& firmware, TContainer& target, TCIMClass& cimClass);
// Without firmware tables and without EFI there is nothing to tell, so no instance.
void CollectFirmware(const TSource& source, TContainer& target, TCIMClass& cimClass);

// "mm/dd/yyyy" or "mm/dd/yy", as SMBIOS writes dates.
std::optional<TCIMDateTime> ParseFirmwareDate(const std::string& text);
// "major.minor"; nothing for 255.255, which stands for "none".
std::optional<std::string> ParseRelease(const std::string& text);
// Four characters of machine type and three of model: the whole name, when it is seven letters
// and digits with a digit among them, or what stands between "-[" and "]-" in it. A machine type
// without a model is completed by "xxx".
std::optional<std::string> ParseMachineTypeModel(const std::string& productName);
// Four bytes of attributes, then 0 or 1.
std::optional<bool> ParseSecureBoot(const std::string& variable);

struct TBaseBoardSource {
  std::optional<std::string> vendor;
  std::optional<std::string> name;
  std::optional<std::string> version;
  std::optional<std::string> serial;
  std::optional<std::string> assetTag;
};

struct TBaseBoard {
  std::optional<std::string> manufacturer;
  std::optional<std::string> product;
  std::optional<std::string> version;
  std::optional<std::string> serial;
  std::optional<std::string> assetTag;
};

TBaseBoardSource ReadBaseBoard(const TSource& source);
TBaseBoard ParseBaseBoard(const TBaseBoardSource& source);
void WriteBaseBoard(const TBaseBoard& board, TContainer& target, TCIMClass& cimClass);
// A board that tells nothing about itself gives no instance.
void CollectBaseBoard(const TSource& source, TContainer& target, TCIMClass& cimClass);

// The data source itself: this library and its version. Reads nothing.
void CollectProduct(const TSource& source, TContainer& target, TCIMClass& cimClass);

#endif
