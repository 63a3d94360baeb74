#include "runtime/platform.h"

#include <cstdlib>
#include <ctime>
#include <system_error>

#ifdef _WIN32
#include <process.h>
#else
#include <unistd.h>
#endif

namespace salerpt {
namespace {

std::filesystem::path FolderFromEnvironment(const char* variable) {
  const char* value = std::getenv(variable);
  return value == nullptr ? std::filesystem::path() : std::filesystem::path(value);
}

}  // namespace

Date Platform::Now() const {
  const std::time_t now = std::time(nullptr);
  const std::tm& local = *std::localtime(&now);
  // A leap second counts as the one before it.
  const int second = local.tm_sec > 59 ? 59 : local.tm_sec;
  return Date::FromYmd(local.tm_year + 1900, local.tm_mon + 1, local.tm_mday, local.tm_hour, local.tm_min,
                       second);
}

std::int32_t Platform::ProcessID() const {
#ifdef _WIN32
  return _getpid();
#else
  return getpid();
#endif
}

std::filesystem::path Platform::ApplicationDirectory() const {
  std::error_code failure;
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", failure);
  return failure ? std::filesystem::current_path() : program.parent_path();
}

std::filesystem::path Platform::SettingsFile(std::string_view file_name) const {
  constexpr const char* kFolder = "salerpt";
  if (const auto config = FolderFromEnvironment("XDG_CONFIG_HOME"); config.is_absolute()) {
    return config / kFolder / file_name;
  }
  if (const auto home = FolderFromEnvironment("HOME"); home.is_absolute()) {
    return home / ".config" / kFolder / file_name;
  }
  return ApplicationDirectory() / file_name;
}

}  // namespace salerpt
