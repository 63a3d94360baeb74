// The commands of the shell: one file and one function each.
#pragma once

#include <CLI/CLI.hpp>
#include <iosfwd>

namespace salerpt::shell {

// What a command is given of the world, and what it gives back.
struct Shell {
  std::ostream& out;  // UTF-8; results only
  std::ostream& err;  // messages and progress
  bool out_is_terminal = false;
  bool err_is_terminal = false;
  bool use_color = false;  // on standard output: a terminal, and NO_COLOR is not set
  // The exit status: 0 done, 1 the report or dialog answered a failure. A command that fails raises
  // RuntimeError: it ends as one line "salerpt: <description>" on `err` and exit status 2.
  int status = 0;
};

// Each adds its command to the program: name, help, options, and the callback that runs it.
void AddInitCommand(CLI::App& app, Shell& shell);
void AddImportCommand(CLI::App& app, Shell& shell);
void AddReportsCommand(CLI::App& app, Shell& shell);
void AddShowCommand(CLI::App& app, Shell& shell);
void AddDrillCommand(CLI::App& app, Shell& shell);
void AddSqlCommand(CLI::App& app, Shell& shell);
void AddRequestCommand(CLI::App& app, Shell& shell);
void AddDialogCommand(CLI::App& app, Shell& shell);
void AddInfoCommand(CLI::App& app, Shell& shell);
void AddPlansCommand(CLI::App& app, Shell& shell);
void AddLogCommand(CLI::App& app, Shell& shell);

}  // namespace salerpt::shell
