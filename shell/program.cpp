#include "shell/program.h"

#include <ostream>
#include <string>
#include <vector>

#include "runtime/error.h"
#include "runtime/text.h"
#include "shell/escape.h"
#include "shell/failure.h"
#include "shell/fd_stream.h"
#include "shell/suggest.h"

namespace salerpt::shell {
namespace {

void AddCommands(CLI::App& app, Shell& shell) {
  app.require_subcommand(1);
  app.footer(
      "Each command tells more with --help. Where an account set is opened, --db names it; it defaults to "
      "the\n"
      "environment variable SALERPT_DB, else to salerpt.db in the current folder.");
  AddInitCommand(app, shell);
  AddImportCommand(app, shell);
  AddReportsCommand(app, shell);
  AddShowCommand(app, shell);
  AddDrillCommand(app, shell);
  AddSqlCommand(app, shell);
  AddRequestCommand(app, shell);
  AddDialogCommand(app, shell);
  AddInfoCommand(app, shell);
  AddPlansCommand(app, shell);
  AddLogCommand(app, shell);
}

// Tells a mistyped command by its name; the parser itself would only say that a command is missing.
void RequireCommand(const CLI::App& app, std::string_view word) {
  if (word.starts_with('-')) return;
  std::vector<std::string_view> names;
  for (const CLI::App* command : app.get_subcommands([](const CLI::App*) { return true; })) {
    if (command->get_name() == word) return;
    names.push_back(command->get_name());
  }
  RaiseUsage(Join("unknown command \"", word, "\"", KnownNames(word, names)));
}

int Report(std::string_view message, int status, Shell& shell) {
  // What a command has printed so far comes first.
  shell.out.flush();
  std::string line = "salerpt: ";
  AppendTerminalText(line, message);
  shell.err << line << '\n' << std::flush;
  return status;
}

int Run(int count, const char* const* arguments, Shell& shell) {
  CLI::App app("Sales reports at the command line, over an account set in one file.", "salerpt");
  try {
    AddCommands(app, shell);
    if (count > 1) RequireCommand(app, arguments[1]);
    app.parse(count, arguments);
  } catch (const CLI::CallForHelp&) {
    shell.out << app.help();
  } catch (const CLI::CallForAllHelp&) {
    shell.out << app.help("", CLI::AppFormatMode::All);
  } catch (const CLI::ParseError& error) {
    return Report(error.what(), kUnusable, shell);
  } catch (const ReportFailure& failure) {
    return Report(failure.Description(), kReportFailed, shell);
  } catch (const RuntimeError& error) {
    return Report(error.Description(), kUnusable, shell);
  } catch (const std::bad_alloc&) {
    return Report("out of memory", kUnusable, shell);
  }
  shell.out.flush();
  shell.err.flush();
  return shell.status;
}

}  // namespace

int RunProgram(int count, const char* const* arguments, Shell& shell) {
  try {
    return Run(count, arguments, shell);
  } catch (const BrokenPipe&) {
    return kDone;  // the reader has seen enough
  } catch (const RuntimeError& error) {
    // Standard output itself failed while the last of it went out.
    shell.err << "salerpt: " << error.Description() << '\n' << std::flush;
    return kUnusable;
  }
}

}  // namespace salerpt::shell
