// Reads one file out of a zip archive, for tests of workbooks.
#pragma once

#include <zlib.h>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace salerpt::shell {

inline std::uint32_t ZipNumber(std::string_view bytes, std::size_t at, int size) {
  std::uint32_t value = 0;
  for (int i = size - 1; i >= 0; --i) {
    value = value << 8 | static_cast<unsigned char>(bytes.at(at + static_cast<std::size_t>(i)));
  }
  return value;
}

inline std::string ZipText(std::string_view archive, std::string_view name) {
  const std::size_t end = archive.rfind("PK\5\6");
  std::size_t at = ZipNumber(archive, end + 16, 4);
  while (archive.substr(at, 4) == "PK\1\2") {
    const std::size_t name_size = ZipNumber(archive, at + 28, 2);
    if (archive.substr(at + 46, name_size) != name) {
      at += 46 + name_size + ZipNumber(archive, at + 30, 2) + ZipNumber(archive, at + 32, 2);
      continue;
    }
    const std::size_t local = ZipNumber(archive, at + 42, 4);
    const std::size_t data =
        local + 30 + ZipNumber(archive, local + 26, 2) + ZipNumber(archive, local + 28, 2);
    std::string packed(archive.substr(data, ZipNumber(archive, at + 20, 4)));
    std::string text(ZipNumber(archive, at + 24, 4), '\0');
    z_stream stream{};
    inflateInit2(&stream, -MAX_WBITS);
    stream.next_in = reinterpret_cast<Bytef*>(packed.data());
    stream.avail_in = static_cast<uInt>(packed.size());
    stream.next_out = reinterpret_cast<Bytef*>(text.data());
    stream.avail_out = static_cast<uInt>(text.size());
    const int state = inflate(&stream, Z_FINISH);
    inflateEnd(&stream);
    if (state != Z_STREAM_END) throw std::runtime_error("damaged archive");
    return text;
  }
  throw std::runtime_error("no such file in the archive: " + std::string(name));
}

}  // namespace salerpt::shell
