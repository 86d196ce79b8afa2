#include <vskcore/identity/TCIMSchemaHelper.h>
#include <vskcore/model/TCIMClass.h>
#include <vskcore/model/TCIMInstance.h>
#include <vskcore/model/TCIMProperty.h>
#include <vskcore/model/TContainer.h>
#include <vskcore/platform/TOSSpecific.h>

#include <vector>

#include "core/base/Fail.h"

using vsk::detail::LogDebug;
using vsk::detail::Require;

// Ready before the library starts, like the platform's constants: a collector's own start may ask.
__attribute__((init_priority(200))) const std::string TCIMSchemaHelper::kSystemCreationClassName =
    "ZNTSG_ComputerSystem";
__attribute__((init_priority(200)))
const std::string TCIMSchemaHelper::kOperatingSystemCreationClassName = "ZNTSG_OperatingSystem";

namespace {

struct TProductRow {
  const char* productName;
  const char* mtm;
};

const TProductRow kProducts[] = {
    {"Tarvane 4100", "3714xxx"}, {"Tarvane 4100 K10", "3722xxx"}, {"Tarvane 4100 K20", "3741xxx"},
    {"Tarvane 4200", "3729xxx"}, {"Tarvane 6100 K10", "3736xxx"},
};

[[noreturn]] void NotFound() { throw TVSKException(vskStatusNotFound); }

[[noreturn]] void NotFound(const std::string& text) {
  LogDebug(text);
  NotFound();
}

// ASCII, whatever the locale.
bool IsAlphanumeric(char byte) {
  return (byte >= '0' && byte <= '9') || (byte >= 'A' && byte <= 'Z') ||
         (byte >= 'a' && byte <= 'z');
}

bool AreAlphanumeric(const std::string& text) {
  for (const char byte : text) {
    if (!IsAlphanumeric(byte)) return false;
  }
  return true;
}

void TrimTrailingBlanks(std::string& text) { text.erase(text.find_last_not_of(' ') + 1); }

// The string property of the class's only instance.
std::string ReadOnly(TContainer& container, const std::string& className,
                     const std::string& propertyName) {
  const std::vector<TCIMInstance*> instances =
      Require(container.FindClass(className)).EnumerateInstances(true);
  if (instances.size() != 1) NotFound();
  return Require(instances.front()->FindProperty(propertyName)).GetValue();
}

// The same for the computer system, with a line in the log for everything that is missing; trailing
// blanks are removed.
std::string ReadComputerSystem(const TCIMClass* computerSystem, const std::string& propertyName) {
  const std::string prefix = "TCIMSchemaHelper: ";
  if (computerSystem == nullptr) NotFound(prefix + "no computer system");
  const std::vector<TCIMInstance*> instances = computerSystem->EnumerateInstances(true);
  if (instances.size() != 1) NotFound(prefix + "computer system instances != 1");
  const TCIMProperty* property = instances.front()->FindProperty(propertyName);
  if (property == nullptr) NotFound(prefix + "didn't find " + propertyName + " property");
  const TCIMValue value = property->GetValue();
  if (value.IsNull()) NotFound(prefix + propertyName + " is NULL");
  if (value.GetType() != TCIMValue::TCIMType::cimString) {
    NotFound(prefix + propertyName + " wasn't a string");
  }
  std::string text = value;
  TrimTrailingBlanks(text);
  return text;
}

// What the first BIOS element says; empty when there is none or it says nothing.
std::string ReadBIOSElement(TContainer& container) {
  const TCIMClass* element = container.FindClass("ZNTSG_SystemBIOSElement");
  if (element == nullptr) return {};
  const std::vector<TCIMInstance*> instances = element->EnumerateInstances(true);
  if (instances.empty()) return {};
  const TCIMProperty* property = instances.front()->FindProperty("MachineTypeModel");
  if (property == nullptr) return {};
  const TCIMValue value = property->GetValue();
  if (value.IsNull()) return {};
  return value;
}

}  // namespace

std::string TCIMSchemaHelper::GetSystemCreationClassName(TContainer*) {
  return kSystemCreationClassName;
}

// The computer system's name here, too: consumers of the identity rely on the two being the same.
std::string TCIMSchemaHelper::GetOperatingSystemCreationClassName(TContainer*) {
  return kSystemCreationClassName;
}

std::string TCIMSchemaHelper::GetSystemName(TContainer* container) {
  return ReadOnly(*container, kSystemCreationClassName, "Name");
}

std::string TCIMSchemaHelper::GetOperatingSystemName(TContainer*) {
  return TOSSpecific::GetOperatingSystemName();
}

std::string TCIMSchemaHelper::GetOperatingSystemVersion(TContainer* container) {
  return ReadOnly(*container, kOperatingSystemCreationClassName, "Version");
}

std::string TCIMSchemaHelper::GetMTM(TContainer* container) {
  std::string mtm = ReadBIOSElement(*container);
  if (mtm.empty()) {
    mtm = MTMFromProductName(
        ReadComputerSystem(container->FindClass(kSystemCreationClassName), "ProductName"));
  }
  if (mtm.size() >= 7 && mtm.compare(4, 3, "   ") == 0) mtm.replace(4, std::string::npos, "xxx");
  LogDebug("TCIMSchemaHelper- Detected MTM " + mtm);
  return mtm;
}

std::string TCIMSchemaHelper::MTMFromProductName(const std::string& name) {
  for (const TProductRow& row : kProducts) {
    if (name == row.productName) return row.mtm;
  }
  const std::size_t mark = name.find("-[");
  if (mark != std::string::npos && mark + 10 < name.size()) {
    if (name[mark + 9] != ']' || name[mark + 10] != '-') return {};
    const std::string marked = name.substr(mark + 2, 7);
    if (!IsValidMTM(marked)) NotFound();
    return marked;
  }
  if (mark != std::string::npos && mark + 7 < name.size()) {
    if (name[mark + 6] != ']' || name[mark + 7] != '-') return {};
    const std::string marked = name.substr(mark + 2, 4);
    if (!IsValidMachineType(marked)) NotFound();
    return marked + "xxx";
  }
  if (name.size() != 7 || !IsValidMTM(name)) NotFound();
  return name;
}

std::string TCIMSchemaHelper::GetMachineType(TContainer* container) {
  return GetMTM(container).substr(0, 4);
}

std::string TCIMSchemaHelper::GetModelNumber(TContainer* container) {
  return GetMTM(container).substr(4, 3);
}

std::string TCIMSchemaHelper::GetSerialNumber(TContainer* container) {
  const std::string serial =
      ReadComputerSystem(container->FindClass(kSystemCreationClassName), "SerialNumber");
  if (serial.size() != 7 || !AreAlphanumeric(serial)) NotFound();
  return serial;
}

std::string TCIMSchemaHelper::GetDataSourceVersion(TContainer* container) {
  return ReadOnly(*container, "ZNTSG_HWQProduct", "Version");
}

std::string TCIMSchemaHelper::GetDataSourceMajorVersion(TContainer* container) {
  const std::string version = GetDataSourceVersion(container);
  const std::size_t dot = version.find('.');
  if (dot == std::string::npos) NotFound();
  return version.substr(0, dot);
}

std::string TCIMSchemaHelper::GetDataSourceMinorVersion(TContainer* container) {
  const std::string version = GetDataSourceVersion(container);
  const std::size_t first = version.find('.');
  if (first == std::string::npos) NotFound();
  const std::size_t second = version.find('.', first + 1);
  if (second == std::string::npos) NotFound();
  return version.substr(first + 1, second - first - 1);
}

std::string TCIMSchemaHelper::GetDataSourceBuildVersion(TContainer* container) {
  const std::string version = GetDataSourceVersion(container);
  const std::size_t dot = version.rfind('.');
  if (dot == std::string::npos) NotFound();
  return version.substr(dot + 1);
}

bool TCIMSchemaHelper::IsValidMachineType(const std::string& text) {
  return AreAlphanumeric(text.substr(0, 4));
}

bool TCIMSchemaHelper::IsValidMTM(const std::string& text) {
  if (!IsValidMachineType(text)) return false;
  for (const char byte : text.substr(4, 3)) {
    if (!IsAlphanumeric(byte) && byte != ' ') return false;
  }
  return true;
}
