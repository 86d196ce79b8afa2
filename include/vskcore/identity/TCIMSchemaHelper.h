// Who the examined machine is, read out of collected data.
#ifndef VSKCORE_IDENTITY_TCIMSCHEMAHELPER_H
#define VSKCORE_IDENTITY_TCIMSCHEMAHELPER_H

#include <vskcore/core/vskExport.h>

#include <string>

class TContainer;

// Static operations over instances of the classes ZNTSG_ComputerSystem, ZNTSG_SystemBIOSElement,
// ZNTSG_OperatingSystem and ZNTSG_HWQProduct, subclasses included; so there are answers only after
// those classes have been collected. Nothing is cached and nothing is locked.
//
// Without an answer they throw. Where nothing else is said, vskStatusNotFound: the class is
// unknown, it has not exactly one instance, or it lacks the property; vskStatusValueIsNULL: the
// property is NULL; vskStatusTypeMismatch: it is no string.
class VSK_EXPORT TCIMSchemaHelper {
 public:
  // Both "ZNTSG_ComputerSystem", whatever the container holds.
  static std::string GetSystemCreationClassName(TContainer* container);
  static std::string GetOperatingSystemCreationClassName(TContainer* container);

  // The computer system's Name.
  static std::string GetSystemName(TContainer* container);
  // The name of the machine that this runs on; the container isn't read. Throws vskStatusFail.
  static std::string GetOperatingSystemName(TContainer* container);
  // The operating system's Version.
  static std::string GetOperatingSystemVersion(TContainer* container);

  // Machine type and model, seven characters: from the BIOS element's MachineTypeModel, else from
  // the computer system's ProductName ("... -[ABCD12X]-", "... -[ABCD]-", or those seven alone). A
  // type without a model is completed by "xxx". Empty for a product name whose mark "-[" isn't
  // closed where it should be. Throws vskStatusNotFound, logged at level 3 where data is missing.
  static std::string GetMTM(TContainer* container);
  // Its first four characters, and the last three. GetModelNumber throws std::out_of_range when
  // GetMTM is empty.
  static std::string GetMachineType(TContainer* container);
  static std::string GetModelNumber(TContainer* container);
  // The computer system's SerialNumber, trailing blanks removed, when it is seven letters or
  // digits; else throws vskStatusNotFound, logged at level 3 where data is missing.
  static std::string GetSerialNumber(TContainer* container);

  // The product's Version, major.minor.build, and its parts: in front of the first dot, between
  // the first and the second, behind the last. A missing dot throws vskStatusNotFound.
  static std::string GetDataSourceVersion(TContainer* container);
  static std::string GetDataSourceMajorVersion(TContainer* container);
  static std::string GetDataSourceMinorVersion(TContainer* container);
  static std::string GetDataSourceBuildVersion(TContainer* container);

 private:
  static std::string MTMFromProductName(const std::string& name);
  static bool IsValidMachineType(const std::string& text);
  static bool IsValidMTM(const std::string& text);

  static const std::string kSystemCreationClassName;
  static const std::string kOperatingSystemCreationClassName;
};

#endif
