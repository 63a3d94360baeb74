#include <unistd.h>

#include <csignal>
#include <cstdlib>

#include "shell/fd_stream.h"
#include "shell/interrupt.h"
#include "shell/program.h"

namespace {

bool IsColorWanted() {
  const char* no_color = std::getenv("NO_COLOR");
  const char* terminal = std::getenv("TERM");
  return (no_color == nullptr || *no_color == '\0') && terminal != nullptr &&
         std::string_view(terminal) != "dumb";
}

}  // namespace

int main(int argc, char** argv) {
  using namespace salerpt::shell;
  // A reader that went away and a file that outgrows its limit are told by the write that fails.
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);
  FdStream out(STDOUT_FILENO, "standard output");
  FdStream err(STDERR_FILENO, "standard error");
  Shell shell{out, err};
  shell.out_is_terminal = isatty(STDOUT_FILENO) == 1;
  shell.err_is_terminal = isatty(STDERR_FILENO) == 1;
  shell.use_color = shell.out_is_terminal && IsColorWanted();
  try {
    return RunProgram(argc, argv, shell);
  } catch (const Interrupted& interrupted) {
    // Ends as the signal would have ended it, now that nothing is left half made.
    std::signal(interrupted.Signal(), SIG_DFL);
    return std::raise(interrupted.Signal());
  } catch (const std::exception&) {
    // Not even the message could be written.
    return 2;
  }
}
