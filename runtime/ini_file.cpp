#include "runtime/ini_file.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <system_error>

#include "runtime/ini_text.h"
#include "runtime/runtime.h"

namespace salerpt {
namespace {

namespace fs = std::filesystem;

fs::path PlaceOf(const std::string& file_name) {
  const fs::path path(file_name);
  return path.has_parent_path() ? path : Runtime::Current().GetPlatform().SettingsFile(file_name);
}

[[noreturn]] void RaiseFileAccess(const fs::path& file, std::string_view what,
                                  const std::error_code& reason = {}) {
  const std::string because = reason ? ": " + reason.message() : std::string();
  throw RuntimeError(error_number::kFileAccess, "IniFile",
                     Join("the settings file \"", file.string(), "\" ", what, because));
}

// Nothing where the file cannot be read whole.
std::optional<std::string> ReadWhole(const fs::path& file) {
  std::error_code ignored;
  if (!fs::is_regular_file(file, ignored)) return std::nullopt;
  std::ifstream in(file, std::ios::binary);
  std::string text(std::istreambuf_iterator<char>(in), {});
  if (!in.is_open() || in.bad()) return std::nullopt;
  return text;
}

void ReplaceWhole(const fs::path& file, const std::string& text) {
  fs::path temporary = file;
  temporary += Join(".", Runtime::Current().GetPlatform().ProcessID(), ".tmp");
  std::ofstream out(temporary, std::ios::binary | std::ios::trunc);
  if (!out) RaiseFileAccess(file, "cannot be written: its folder takes no file");
  std::error_code failure;
  const auto give_up = [&](std::string_view what) {
    std::error_code ignored;
    fs::remove(temporary, ignored);
    RaiseFileAccess(file, what, failure);
  };
  out.write(text.data(), static_cast<std::streamsize>(text.size()));
  out.close();
  if (!out) give_up("cannot be written");
  if (const fs::file_status old = fs::status(file, failure); fs::exists(old)) {
    fs::permissions(temporary, old.permissions(), failure);
  }
  fs::rename(temporary, file, failure);
  if (failure) give_up("cannot be replaced");
}

}  // namespace

std::string IniFile::Read(std::string_view section, std::string_view key, std::string_view absent) const {
  const std::optional<std::string> text = ReadWhole(PlaceOf(file_name_));
  if (!text) return std::string(absent);
  return std::string(FindIniValue(*text, section, key).value_or(absent));
}

void IniFile::Write(std::string_view section, std::string_view key, std::string_view value) const {
  fs::path file = PlaceOf(file_name_);
  std::error_code failure;
  // Through a link, to the file that it leads to.
  const bool exists = fs::exists(file, failure);
  if (exists) file = fs::canonical(file, failure);
  if (failure) RaiseFileAccess(file, "cannot be reached", failure);
  std::optional<std::string> text;
  if (exists) {
    text = ReadWhole(file);
    if (!text) RaiseFileAccess(file, "cannot be read; a file was expected");
  } else if (file.has_parent_path()) {
    fs::create_directories(file.parent_path(), failure);
    if (failure) RaiseFileAccess(file, "has no folder, and it cannot be made", failure);
  }
  ReplaceWhole(file, SetIniValue(text.value_or(std::string()), section, key, value));
}

}  // namespace salerpt
