#include "IdentityReport.h"

#include <vskcore/core/TRootObject.h>
#include <vskcore/core/TVSKException.h>
#include <vskcore/identity/TCIMSchemaHelper.h>
#include <vskcore/plugin/IQueryManager.h>

#include <exception>

#include "Collection.h"
#include "Printable.h"

namespace {

struct TQuestion {
  const char* label;
  std::string (*ask)(TContainer*);
};

const TQuestion kQuestions[] = {
    {"System name", TCIMSchemaHelper::GetSystemName},
    {"System class", TCIMSchemaHelper::GetSystemCreationClassName},
    {"Machine type and model", TCIMSchemaHelper::GetMTM},
    {"Machine type", TCIMSchemaHelper::GetMachineType},
    {"Model number", TCIMSchemaHelper::GetModelNumber},
    {"Serial number", TCIMSchemaHelper::GetSerialNumber},
    {"Operating system name", TCIMSchemaHelper::GetOperatingSystemName},
    {"Operating system class", TCIMSchemaHelper::GetOperatingSystemCreationClassName},
    {"Operating system version", TCIMSchemaHelper::GetOperatingSystemVersion},
    {"Data source version", TCIMSchemaHelper::GetDataSourceVersion},
    {"Data source major version", TCIMSchemaHelper::GetDataSourceMajorVersion},
    {"Data source minor version", TCIMSchemaHelper::GetDataSourceMinorVersion},
    {"Data source build version", TCIMSchemaHelper::GetDataSourceBuildVersion},
};
constexpr std::size_t kLabelWidth = 27;

std::string Reason(vskStatus status) {
  switch (status) {
    case vskStatusNotFound:
      return "not collected, or not of the form expected";
    case vskStatusValueIsNULL:
      return "not known on this machine";
    case vskStatusTypeMismatch:
      return "collected with another type than text";
    default:
      return "failed";
  }
}

std::string AnswerOrReason(const TQuestion& question, TContainer& container) {
  try {
    const std::string answer = question.ask(&container);
    return answer.empty() ? "(no answer: the source is empty)" : Printable(answer);
  } catch (const TVSKException& exception) {
    return "(no answer: " + Reason(exception.status) + "; " + exception.what() + ")";
  } catch (const std::exception&) {  // an empty machine type has no model behind it
    return "(no answer: machine type and model are empty)";
  }
}

}  // namespace

std::string IdentityReport(const TArguments& arguments) {
  TContainer& container = LoadCore(arguments);
  TRootObject::GetQueryManager()->QueryClasses(
      &container, {"ZNTSG_ComputerSystem", "ZNTSG_SystemBIOSElement", "ZNTSG_OperatingSystem",
                   "ZNTSG_HWQProduct"});
  std::string report;
  for (const TQuestion& question : kQuestions) {
    std::string line = question.label;
    line.resize(kLabelWidth, ' ');
    report += line + AnswerOrReason(question, container) + '\n';
  }
  return report;
}
