// vsk: collects what the machine is, and prints it.
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <exception>
#include <iostream>
#include <string>

#include "Arguments.h"
#include "Collection.h"
#include "IdentityReport.h"
#include "JsonReport.h"
#include "PluginReport.h"
#include "TextReport.h"
#include "WalkReport.h"

namespace {

// A reader that has gone, as head does, is no failure: usually a signal ends the program first, but
// that may be ignored.
EExit Print(const std::string& report) {
  const bool written = std::fwrite(report.data(), 1, report.size(), stdout) == report.size() &&
                       std::fflush(stdout) == 0;
  if (written || errno == EPIPE) return kExitDone;
  std::cerr << "vsk: can't write the report: " << std::strerror(errno) << '\n';
  return kExitFailed;
}

std::string CollectionReport(const TArguments& arguments) {
  const std::vector<const TCIMClass*> classes = Collect(arguments);
  return arguments.json ? JsonReport(classes) : TextReport(classes);
}

std::string Report(const TArguments& arguments) {
  switch (arguments.command) {
    case ECommand::kIdentity:
      return IdentityReport(arguments);
    case ECommand::kPlugins:
      return PluginReport(arguments);
    case ECommand::kAssociators:
    case ECommand::kReferences:
      return WalkReport(arguments);
    case ECommand::kCollect:
      break;
  }
  return CollectionReport(arguments);
}

EExit Run(int argc, const char* const* argv) {
  EExit exitStatus = kExitDone;
  const std::optional<TArguments> arguments = ParseArguments(argc, argv, exitStatus);
  if (!arguments) return exitStatus;
  return Print(Report(*arguments));
}

}  // namespace

int main(int argc, char** argv) {
  try {
    return Run(argc, argv);
  } catch (const THostFailure& failure) {
    std::cerr << "vsk: " << failure.what() << '\n';
    return failure.GetExit();
  } catch (const std::exception& exception) {
    std::cerr << "vsk: " << exception.what() << '\n';
    return kExitFailed;
  }
}
