// The program, run as a shell would run it.
#pragma once

#include <sys/wait.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "test_places.h"

namespace salerpt::shell {

struct Outcome {
  int status = -1;  // the exit status, or 128 and the signal
  std::string out, err;
};

inline std::string Content(const std::filesystem::path& file) {
  std::ostringstream text;
  text << std::ifstream(file, std::ios::binary).rdbuf();
  return text.str();
}

// Runs `salerpt` with these words in a folder, whose t.db is the account set unless they say otherwise.
// `before` comes in front of it, such as a variable.
inline Outcome RunProgramIn(const std::filesystem::path& folder, const std::string& words,
                            const std::string& before = "") {
  const std::string command = "cd '" + folder.string() + "' && " + before + " NO_COLOR= SALERPT_DB=t.db '" +
                              tests::Program() + "' " + words + " >.out 2>.err </dev/null";
  const int state = std::system(command.c_str());
  return {WIFEXITED(state) ? WEXITSTATUS(state) : 128 + WTERMSIG(state), Content(folder / ".out"),
          Content(folder / ".err")};
}

}  // namespace salerpt::shell
