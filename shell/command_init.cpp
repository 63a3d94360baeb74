// `salerpt init`: a new account set with a made-up company.
#include <memory>
#include <ostream>
#include <string>

#include "shell/commands.h"
#include "shell/interrupt.h"
#include "shell/progress_bar.h"
#include "shell/report_command.h"
#include "suite/accountset/accountset.h"

namespace salerpt::shell {
namespace {

struct InitOptions {
  std::string db;
  accountset::GenerateOptions generate;
};

void RunInit(const InitOptions& options, Shell& shell) {
  {
    ProgressBar bar(shell.err, ProgressStyle(shell, false));
    const InterruptGuard guard;
    bar.SetMessage("making " + options.db);
    accountset::Create(options.db, options.generate, [&bar](std::int64_t done, std::int64_t total) {
      InterruptGuard::Check();
      bar.SetBar(done, total);
    });
  }
  shell.out << options.db << ": account set made, about " << options.generate.lines << " bill lines, seed "
            << options.generate.seed << '\n';
}

}  // namespace

void AddInitCommand(CLI::App& app, Shell& shell) {
  auto options = std::make_shared<InitOptions>();
  CLI::App* command = app.add_subcommand("init", "Make a new account set with a made-up company");
  command->add_option("DB", options->db, "File to make; an existing one is never overwritten")->required();
  command->add_option("--seed", options->generate.seed, "The same seed gives the same company")
      ->capture_default_str()
      ->type_name("N");
  command
      ->add_option("--lines", options->generate.lines,
                   "About how many bill lines the company has in all, 100 to 20000000")
      ->capture_default_str()
      ->type_name("N");
  command->callback([options, &shell] { RunInit(*options, shell); });
}

}  // namespace salerpt::shell
