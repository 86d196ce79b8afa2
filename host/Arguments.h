// What the command line asks for.
#ifndef VSKCORE_HOST_ARGUMENTS_H
#define VSKCORE_HOST_ARGUMENTS_H

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

enum class ECommand { kCollect, kIdentity, kPlugins, kAssociators, kReferences };

struct TArguments {
  ECommand command = ECommand::kCollect;
  std::vector<std::string> classNames;  // as typed; empty for all classes
  bool json = false;
  std::optional<std::int32_t> logLevel;

  // Of the two walks. An empty text restricts nothing.
  std::string object;  // a class's name or an instance's path
  std::string assocClass;
  std::string resultClass;
  std::string role;
  std::string resultRole;
};

// The exit statuses of the program.
enum EExit : int {
  kExitDone = 0,
  kExitFailed = 1,       // the core did not start, or nothing could be collected
  kExitCommandLine = 2,  // the command line is wrong
};

// Answers --help and --version itself, and says on standard error what is wrong with a command
// line; exitStatus then holds how to end, and the result is nothing.
std::optional<TArguments> ParseArguments(int argc, const char* const* argv, EExit& exitStatus);

#endif
