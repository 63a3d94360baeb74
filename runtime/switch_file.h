// The suite's local switch database.
#pragma once

#include <filesystem>
#include <optional>
#include <string>

namespace salerpt {

// Connection string for the switch file: `file` where it is given, otherwise the first of the known names
// that stands in the application's directory; empty where there is none or it cannot be opened (a message box
// then tells it). A read-only file is made writable first.
std::string ConnectSwitchFile(const std::optional<std::filesystem::path>& file = std::nullopt);
// Opens the file with either of the two providers and gives the connection string of the open connection.
std::string OpenJetConnectString(const std::filesystem::path& file);

}  // namespace salerpt
