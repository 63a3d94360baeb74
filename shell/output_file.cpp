#include "shell/output_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <string>
#include <system_error>

#include "runtime/error.h"
#include "runtime/text.h"

namespace salerpt::shell {
namespace {

constexpr mode_t kMode = 0666;

std::string DescriptorPath(int descriptor) {
  return Join("/proc/self/fd/", descriptor);
}

}  // namespace

OutputFile::OutputFile(std::filesystem::path target) : target_(std::move(target)) {
  std::error_code unknown;
  // A link stays, and what it leads to is written.
  if (std::filesystem::is_symlink(target_, unknown)) {
    const std::filesystem::path led_to = std::filesystem::weakly_canonical(target_, unknown);
    if (!unknown) target_ = led_to;
  }
  const std::filesystem::file_status status = std::filesystem::status(target_, unknown);
  if (std::filesystem::is_directory(status)) {
    errno = EISDIR;
    Fail("cannot be written");
  }
  if (std::filesystem::exists(status) && !std::filesystem::is_regular_file(status)) {
    OpenDevice();
    return;
  }
  const std::filesystem::path folder = target_.has_parent_path() ? target_.parent_path() : ".";
#ifdef O_TMPFILE
  descriptor_ = ::open(folder.c_str(), O_TMPFILE | O_RDWR | O_CLOEXEC, kMode);
#endif
  if (descriptor_ < 0) {
    temporary_ = TemporaryName();
    descriptor_ = ::open(temporary_.c_str(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, kMode);
    if (descriptor_ < 0) {
      temporary_.clear();
      Fail("cannot be written");
    }
  }
  stream_ = std::make_unique<FdStream>(descriptor_, target_.string());
}

// A device, a pipe or a terminal takes what is written as it comes; it is never replaced.
void OutputFile::OpenDevice() {
  is_device_ = true;
  descriptor_ = ::open(target_.c_str(), O_WRONLY | O_CLOEXEC);
  if (descriptor_ < 0) Fail("cannot be written");
  stream_ = std::make_unique<FdStream>(descriptor_, target_.string());
}

OutputFile::~OutputFile() {
  if (descriptor_ >= 0) ::close(descriptor_);
  if (!temporary_.empty()) ::unlink(temporary_.c_str());
}

void OutputFile::Commit() {
  stream_->flush();
  if (is_device_) return;
  if (::fsync(descriptor_) != 0) Fail("cannot be written");
  if (temporary_.empty()) Link();
  if (::rename(temporary_.c_str(), target_.c_str()) != 0) Fail("cannot be written");
  temporary_.clear();
}

// A file that bears the name already was left by a killed program whose process number came round again.
std::filesystem::path OutputFile::TemporaryName() const {
  std::filesystem::path name = Join(target_.string(), ".", static_cast<int>(::getpid()), ".tmp");
  ::unlink(name.c_str());
  return name;
}

// A name cannot be taken over by linking, so the file gets one beside the target first.
void OutputFile::Link() {
  std::filesystem::path name = TemporaryName();
  if (::linkat(AT_FDCWD, DescriptorPath(descriptor_).c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) !=
      0) {
    Fail("cannot be written");
  }
  temporary_ = std::move(name);
}

void OutputFile::Fail(const char* what) const {
  throw RuntimeError(error_number::kInvalidCall, "Shell",
                     Join(target_.string(), ": ", what, ": ", std::strerror(errno)));
}

}  // namespace salerpt::shell
