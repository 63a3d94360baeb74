// The program behind `salerpt`.
#pragma once

#include "shell/commands.h"

namespace salerpt::shell {

// Runs one command line (`arguments[0]` is the program's name). Gives the exit status: 0 done, 1 the report
// or dialog answered a failure, 2 wrong usage or unreadable input; an error stands on `shell.err` as one line
// "salerpt: …". Raises only Interrupted.
int RunProgram(int count, const char* const* arguments, Shell& shell);

}  // namespace salerpt::shell
