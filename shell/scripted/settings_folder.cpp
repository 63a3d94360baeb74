#include "shell/scripted/settings_folder.h"

#include <cstdlib>
#include <fstream>
#include <system_error>

#include "runtime/error.h"
#include "runtime/text.h"

namespace salerpt::shell {
namespace {

namespace fs = std::filesystem;

struct Setting {
  std::string_view profile, section, key;
};

// The section stands between the first and the last slash.
Setting SplitSetting(std::string_view place) {
  const std::size_t first = place.find('/');
  const std::size_t last = place.rfind('/');
  return {place.substr(0, first), place.substr(first + 1, last - first - 1), place.substr(last + 1)};
}

bool IsSettingsFile(std::string_view profile) {
  return UpperCase(profile).ends_with(".INI");
}

}  // namespace

SettingsFolder::SettingsFolder(Date now, const std::map<std::string, std::string>& settings)
    : now_(now), given_(settings) {
  std::string name = (fs::temp_directory_path() / "salerpt-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) {
    throw RuntimeError(error_number::kFileAccess, "Shell",
                       Join(name, ": a folder for settings cannot be made"));
  }
  folder_ = name;
}

SettingsFolder::~SettingsFolder() {
  std::error_code ignored;
  fs::remove_all(folder_, ignored);
}

fs::path SettingsFolder::SettingsFile(std::string_view file_name) const {
  return folder_ / file_name.substr(file_name.find_last_of("/\\") + 1);
}

void SettingsFolder::WriteGiven(IniFile& ini_file) const {
  for (const auto& [place, value] : given_) {
    const Setting setting = SplitSetting(place);
    if (IsSettingsFile(setting.profile)) {
      ini_file.SetFileName(setting.profile);
      ini_file.Write(setting.section, setting.key, value);
    }
    ini_file.SetFileName(kReportFile);
    ini_file.Write(setting.section, setting.key, value);
  }
}

Json SettingsFolder::Written() const {
  Json written = Json::object();
  std::ifstream in(SettingsFile(kReportFile));
  std::string section;
  for (std::string line; std::getline(in, line);) {
    if (line.ends_with('\r')) line.pop_back();
    if (line.starts_with('[')) {
      section = line.substr(1, line.find(']') - 1);
      continue;
    }
    const std::size_t equals = line.find('=');
    if (equals == std::string::npos) continue;
    const std::string key(Trim(std::string_view(line).substr(0, equals)));
    IniFile file;
    file.SetFileName(SettingsFile(kReportFile).string());
    const std::string value = file.Read(section, key, "");
    bool is_given = false;
    for (const auto& [place, given] : given_) {
      const Setting setting = SplitSetting(place);
      is_given = is_given ||
                 (EqualNames(setting.section, section) && EqualNames(setting.key, key) && given == value);
    }
    if (!is_given) written[Join(kReportFile, "/", section, "/", key)] = value;
  }
  return written;
}

}  // namespace salerpt::shell
