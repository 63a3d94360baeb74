// The clock and the settings files of a scripted dialog: a folder that lives as long as the run.
#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

#include "runtime/ini_file.h"
#include "runtime/platform.h"
#include "shell/recorded/json_place.h"

namespace salerpt::shell {

// Nothing that a scripted dialog stores reaches the user's own settings.
class SettingsFolder final : public Platform {
 public:
  // The file that reports name when they are made.
  static constexpr std::string_view kReportFile = "JXCQ7SaleRpt.INI";

  // `settings`: "PROFILE/SECTION/KEY" to value, where PROFILE is a settings file or a profile of the suite.
  // Raises file access where no folder can be made.
  SettingsFolder(Date now, const std::map<std::string, std::string>& settings);
  ~SettingsFolder() override;

  // Writes the settings into their files, in the report file too: a script need not know which it is.
  void WriteGiven(IniFile& ini_file) const;
  // What the dialog has written since: "PROFILE/SECTION/KEY" to value.
  [[nodiscard]] Json Written() const;

  [[nodiscard]] Date Now() const override { return now_; }
  [[nodiscard]] std::filesystem::path SettingsFile(std::string_view file_name) const override;

 private:
  Date now_;
  const std::map<std::string, std::string>& given_;
  std::filesystem::path folder_;
};

}  // namespace salerpt::shell
