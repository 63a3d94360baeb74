// Platform and toolkit of a test: a folder of its own, a fixed process, boxes and messages written down.
#pragma once

#include <filesystem>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/platform.h"
#include "runtime/toolkit.h"

namespace salerpt::testing {

// A folder that is empty at first and gone at the end.
class TempFolder {
 public:
  TempFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "salerpt-test-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder: " + name);
    path_ = name;
  }
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::permissions(path_, std::filesystem::perms::owner_all, ignored);
    std::filesystem::remove_all(path_, ignored);
  }
  TempFolder(const TempFolder&) = delete;
  TempFolder& operator=(const TempFolder&) = delete;

  [[nodiscard]] const std::filesystem::path& Path() const { return path_; }
  // Writes a file with these bytes and gives its path.
  std::filesystem::path Write(const std::filesystem::path& name, std::string_view bytes) const {
    const std::filesystem::path file = path_ / name;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << bytes;
    return file;
  }
  [[nodiscard]] std::string Read(const std::filesystem::path& name) const {
    std::ifstream in(path_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }

 private:
  std::filesystem::path path_;
};

// Settings and switch file stand in one folder.
class FakePlatform : public Platform {
 public:
  static constexpr std::int32_t kProcess = 4711;

  explicit FakePlatform(std::filesystem::path folder) : folder_(std::move(folder)) {}
  [[nodiscard]] Date Now() const override { return Date::FromYmd(2003, 7, 1, 8, 30); }
  [[nodiscard]] std::int32_t ProcessID() const override { return kProcess; }
  [[nodiscard]] std::filesystem::path ApplicationDirectory() const override { return folder_; }
  [[nodiscard]] std::filesystem::path SettingsFile(std::string_view file_name) const override {
    return folder_ / file_name;
  }

 private:
  std::filesystem::path folder_;
};

struct RecordedBox {
  std::string text;
  int style;
  std::string title;
  bool operator==(const RecordedBox&) const = default;
};

class FakeToolkit : public Toolkit {
 public:
  std::vector<RecordedBox> boxes;
  int messages_run = 0;
  // What runs while messages run.
  std::function<void()> on_messages;

  using Toolkit::ShowModal;
  void DoEvents() override {
    ++messages_run;
    if (on_messages) on_messages();
  }
  BoxAnswer MessageBox(std::string_view text, int style, std::string_view title) override {
    boxes.push_back({std::string(text), style, std::string(title)});
    return BoxAnswer::kOk;
  }
};

}  // namespace salerpt::testing
