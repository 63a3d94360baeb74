// The clock and the files of the platform, as a seam: a test, or a host on another system, puts its own in.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string_view>

#include "runtime/date.h"

namespace salerpt {

class Platform {
 public:
  virtual ~Platform() = default;
  // Local date and time.
  [[nodiscard]] virtual Date Now() const;
  // The operating system's id of this process: the key of the property store.
  [[nodiscard]] virtual std::int32_t ProcessID() const;
  // The directory that the suite's path service derives from the application's path; the switch file is
  // looked for there.
  [[nodiscard]] virtual std::filesystem::path ApplicationDirectory() const;
  // Where a settings file stands that is named without a folder, such as "JXCQ7SaleRpt.INI".
  [[nodiscard]] virtual std::filesystem::path SettingsFile(std::string_view file_name) const;
};

}  // namespace salerpt
