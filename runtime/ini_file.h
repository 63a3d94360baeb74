// `IniFile`: settings in sections, on a real file.
#pragma once

#include <string>
#include <string_view>

namespace salerpt {

// The ini-file object of the foundation library: a file name, and reads and writes of one value each. Every
// call goes to the file anew, so that two processes see each other's settings. Sections and keys compare
// without regard to case.
class IniFile {
 public:
  [[nodiscard]] const std::string& FileName() const { return file_name_; }
  // A name without a folder stands where the platform keeps settings files.
  void SetFileName(std::string_view file_name) { file_name_ = file_name; }
  // The value, or `absent` where file, section or key is not there. A value in quotes is given without them.
  [[nodiscard]] std::string Read(std::string_view section, std::string_view key,
                                 std::string_view absent) const;
  // Sets one value and keeps everything else in the file, comments included; makes file and folder where they
  // are not there. Read gives the value back as it was written. The file is replaced whole: a failure (file
  // access, naming the file) leaves the old one. Raises invalid call for a section, key or value that a
  // settings file cannot hold, such as one of two lines.
  void Write(std::string_view section, std::string_view key, std::string_view value) const;

 private:
  std::string file_name_;
};

}  // namespace salerpt
