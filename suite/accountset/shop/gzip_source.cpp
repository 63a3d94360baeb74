#include "suite/accountset/shop/gzip_source.h"

#include <fmt/format.h>
#include <zlib.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <system_error>
#include <utility>

#include "suite/accountset/errors.h"

namespace salerpt::accountset::shop {
namespace {

constexpr const char* kSource = "AccountSet:Import";

}  // namespace

void GzipSource::Close::operator()(gzFile_s* file) const noexcept {
  gzclose_r(file);
}

GzipSource::GzipSource(std::filesystem::path path) : path_(std::move(path)) {
  std::error_code error;
  const auto status = std::filesystem::status(path_, error);
  if (status.type() == std::filesystem::file_type::not_found) {
    throw RuntimeError(kFileNotFound, kSource, fmt::format("{}: no such file", path_.string()));
  }
  if (status.type() == std::filesystem::file_type::directory) {
    throw RuntimeError(
        kPathAccess, kSource,
        fmt::format("{}: a folder, where a file of invoice lines was expected", path_.string()));
  }
  file_.reset(gzopen(path_.c_str(), "rb"));
  if (!file_) {
    throw RuntimeError(kPathAccess, kSource,
                       fmt::format("{}: cannot be read: {}", path_.string(), std::strerror(errno)));
  }
  constexpr unsigned kBuffer = 256 * 1024;
  gzbuffer(file_.get(), kBuffer);
  const auto size = std::filesystem::file_size(path_, error);
  if (!error) size_ = std::max<std::int64_t>(1, static_cast<std::int64_t>(size));
}

std::size_t GzipSource::Read(char* buffer, std::size_t size) {
  const int got = gzread(file_.get(), buffer, static_cast<unsigned>(size));
  int code = Z_OK;
  const char* message = gzerror(file_.get(), &code);
  if (got > 0) return static_cast<std::size_t>(got);
  if (code == Z_BUF_ERROR) {
    throw RuntimeError(kBadFormat, kSource, fmt::format("{}: the packed file breaks off", path_.string()));
  }
  if (code == Z_ERRNO) message = std::strerror(errno);
  if (got < 0) {
    throw RuntimeError(kBadFormat, kSource,
                       fmt::format("{}: cannot be unpacked: {}", path_.string(), message));
  }
  return 0;
}

std::int64_t GzipSource::Done() const {
  return std::min<std::int64_t>(size_, gzoffset(file_.get()));
}

}  // namespace salerpt::accountset::shop
