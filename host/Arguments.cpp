#include "Arguments.h"

#include <vskcore/core/vskVersion.h>

#include <CLI/CLI.hpp>

namespace {

// A command with what all of them take.
CLI::App& DeclareCommand(CLI::App& app, TArguments& arguments, ECommand command, const char* name,
                         const char* description) {
  CLI::App& declared = *app.add_subcommand(name, description);
  declared.parse_complete_callback([&arguments, command] { arguments.command = command; });
  declared
      .add_option("--log-level", arguments.logLevel,
                  "What the log tells on standard error: 0 errors, 1 warnings, 2 status, 3 debug, "
                  "4 everything, -1 nothing")
      ->type_name("N")
      ->check(CLI::Range(-1, 4));
  return declared;
}

void DeclareName(CLI::App& command, const char* option, std::string& target,
                 const char* description) {
  command.add_option(option, target, description)->type_name("NAME");
}

void DeclareCollect(CLI::App& app, TArguments& arguments) {
  CLI::App& collect = DeclareCommand(app, arguments, ECommand::kCollect, "collect",
                                     "Collect what this machine is, and print it");
  collect.add_option("--class", arguments.classNames, "Collect this class only; may be repeated")
      ->type_name("NAME")
      ->allow_extra_args(false);
  collect.add_flag("--json", arguments.json, "Print one JSON object instead of text");
}

void DeclareWalks(CLI::App& app, TArguments& arguments) {
  CLI::App& associators = DeclareCommand(app, arguments, ECommand::kAssociators, "associators",
                                         "List what is associated with a class or an instance");
  CLI::App& references = DeclareCommand(app, arguments, ECommand::kReferences, "references",
                                        "List the associations of a class or an instance");
  for (CLI::App* walk : {&associators, &references}) {
    walk->add_option("object", arguments.object, "CLASS, or CLASS.key=\"value\",...")->required();
    DeclareName(*walk, "--role", arguments.role, "The object stands under this reference");
    DeclareName(*walk, "--result-class", arguments.resultClass, "List only this class's kind");
  }
  DeclareName(associators, "--assoc-class", arguments.assocClass, "Only over this association");
  DeclareName(associators, "--result-role", arguments.resultRole,
              "What is listed stands under this reference");
}

void Declare(CLI::App& app, TArguments& arguments) {
  app.set_version_flag("--version", "vsk " VSK_VERSION, "Print the version and exit");
  app.set_help_flag("-h,--help", "Print this help and exit");
  app.require_subcommand(1);
  DeclareCollect(app, arguments);
  DeclareCommand(app, arguments, ECommand::kIdentity, "identity",
                 "Tell the machine's name, type and serial number");
  DeclareCommand(app, arguments, ECommand::kPlugins, "plugins", "List the collector plug-ins");
  DeclareWalks(app, arguments);
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
