#include "Arguments.h"

#include <vskcore/core/vskVersion.h>

#include <CLI/CLI.hpp>

namespace {

void Declare(CLI::App& app, TArguments& arguments) {
  app.set_version_flag("--version", "vsk " VSK_VERSION, "Print the version and exit");
  app.set_help_flag("-h,--help", "Print this help and exit");
  app.require_subcommand(1);
  CLI::App& collect = *app.add_subcommand("collect", "Collect what this machine is, and print it");
  collect.add_option("--class", arguments.classNames, "Collect this class only; may be repeated")
      ->type_name("NAME")
      ->allow_extra_args(false);
  collect.add_flag("--json", arguments.json, "Print one JSON object instead of text");
  collect
      .add_option("--log-level", arguments.logLevel,
                  "What the log tells on standard error: 0 errors, 1 warnings, 2 status, 3 debug, "
                  "4 everything, -1 nothing")
      ->type_name("N")
      ->check(CLI::Range(-1, 4));
}

}  // namespace

std::optional<TArguments> ParseArguments(int argc, const char* const* argv, EExit& exitStatus) {
  TArguments arguments;
  CLI::App app("Tells what this machine is: its maker and model, its firmware, its system.", "vsk");
  Declare(app, arguments);
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& error) {
    exitStatus = app.exit(error) == 0 ? kExitDone : kExitCommandLine;
    return std::nullopt;
  }
  return arguments;
}
