// The bytes of a file, unpacked where it is packed.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>

struct gzFile_s;

namespace salerpt::accountset::shop {

// Reads a plain file or one packed with gzip; which of both is seen from its first bytes, not from its name.
class GzipSource {
 public:
  // Raises RuntimeError (source "AccountSet:Import") when the file is missing or cannot be read.
  explicit GzipSource(std::filesystem::path path);

  // Fills the buffer with up to `size` bytes; 0 at the end. Raises RuntimeError when the file cannot be read
  // or the packing is damaged or breaks off.
  std::size_t Read(char* buffer, std::size_t size);

  // Bytes of the file as it lies on the disk: in all (at least 1), and read so far.
  [[nodiscard]] std::int64_t Size() const { return size_; }
  [[nodiscard]] std::int64_t Done() const;

 private:
  struct Close {
    void operator()(gzFile_s* file) const noexcept;
  };
  std::filesystem::path path_;
  std::unique_ptr<gzFile_s, Close> file_;
  std::int64_t size_ = 1;
};

}  // namespace salerpt::accountset::shop
