// Reading a whole text file.
#pragma once

#include <filesystem>
#include <string>

namespace salerpt::shell {

// The bytes of a file, "-" for standard input. A byte order mark in front is dropped. Raises invalid-call
// naming the file and the system's reason where it cannot be read.
std::string ReadTextFile(const std::filesystem::path& file);

}  // namespace salerpt::shell
