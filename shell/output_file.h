// An output file that appears whole or not at all.
#pragma once

#include <filesystem>
#include <memory>
#include <ostream>

#include "shell/fd_stream.h"

namespace salerpt::shell {

// Written without a name in the folder of its target where the file system can do that, so that nothing is
// left behind whatever ends the program; elsewhere under a temporary name beside the target, which the
// destructor removes. An existing file is replaced at the moment of Commit, and stays as it is until then; a
// link stays a link. A device or pipe is written as it comes.
class OutputFile {
 public:
  // Raises RuntimeError, naming the file and the system's reason, where the folder cannot be written.
  explicit OutputFile(std::filesystem::path target);
  ~OutputFile();
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  [[nodiscard]] std::ostream& Stream() { return *stream_; }
  // Brings everything to the disk and gives the file its name. Raises RuntimeError where that cannot be done;
  // then nothing is left.
  void Commit();

 private:
  void OpenDevice();
  void Link();
  [[nodiscard]] std::filesystem::path TemporaryName() const;
  [[noreturn]] void Fail(const char* what) const;

  std::filesystem::path target_;
  std::filesystem::path temporary_;  // empty while the file has no name
  int descriptor_ = -1;
  bool is_device_ = false;
  std::unique_ptr<FdStream> stream_;
};

}  // namespace salerpt::shell
