#include "shell/xlsx_check.h"

#include <zlib.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "runtime/error.h"

namespace salerpt::shell {
namespace {

constexpr std::string_view kSheetName = "xl/worksheets/sheet1.xml";
constexpr std::string_view kSheetEnd = "</worksheet>";
// Layout of a zip archive: the record at its end, the entries of its directory, the header before a file's
// data.
constexpr std::string_view kEndMark = "PK\5\6";
constexpr std::string_view kEntryMark = "PK\1\2";
constexpr std::size_t kEndBytes = 22;
constexpr std::size_t kEntryBytes = 46;
constexpr std::size_t kLocalBytes = 30;
constexpr std::size_t kBlockBytes = std::size_t{64} * 1024;

[[noreturn]] void Fail() {
  throw RuntimeError(
      error_number::kInvalidCall, "Shell",
      "the workbook cannot be written: its working files did not hold all rows (is the disk full?)");
}

std::uint32_t Number(std::string_view bytes, std::size_t at, std::size_t size) {
  if (at + size > bytes.size()) Fail();
  std::uint32_t value = 0;
  for (std::size_t i = size; i > 0; --i) value = value << 8 | static_cast<unsigned char>(bytes[at + i - 1]);
  return value;
}

std::string Read(std::FILE* file, long at, std::size_t size) {
  std::string bytes(size, '\0');
  if (std::fseek(file, at, SEEK_SET) != 0 || std::fread(bytes.data(), 1, size, file) != size) Fail();
  return bytes;
}

long SizeOf(std::FILE* file) {
  std::fseek(file, 0, SEEK_END);
  return std::ftell(file);
}

struct Packed {
  long at;
  std::uint32_t size;
};

// Where the packed sheet lies.
Packed FindSheet(std::FILE* file) {
  const long size = SizeOf(file);
  if (size < static_cast<long>(kEndBytes)) Fail();
  const std::string end = Read(file, size - static_cast<long>(kEndBytes), kEndBytes);
  if (!end.starts_with(kEndMark)) Fail();
  const std::string directory = Read(file, Number(end, 16, 4), Number(end, 12, 4));
  for (std::size_t at = 0; at + kEntryBytes <= directory.size();) {
    const std::string_view entry = std::string_view(directory).substr(at);
    if (!entry.starts_with(kEntryMark)) Fail();
    const std::size_t name_size = Number(entry, 28, 2);
    if (entry.substr(kEntryBytes, name_size) == kSheetName) {
      const long local = Number(entry, 42, 4);
      const std::string header = Read(file, local, kLocalBytes);
      const auto skipped = static_cast<long>(kLocalBytes + Number(header, 26, 2) + Number(header, 28, 2));
      return {local + skipped, Number(entry, 20, 4)};
    }
    at += kEntryBytes + name_size + Number(entry, 30, 2) + Number(entry, 32, 2);
  }
  Fail();
}

// Unpacks a stream and keeps its last characters only.
class TailReader {
 public:
  TailReader() : block_(kBlockBytes) {
    // Raw data, without a header of its own.
    if (inflateInit2(&stream_, -MAX_WBITS) != Z_OK) Fail();
  }
  ~TailReader() { inflateEnd(&stream_); }
  TailReader(const TailReader&) = delete;
  TailReader& operator=(const TailReader&) = delete;

  void Add(std::string& packed) {
    stream_.next_in = reinterpret_cast<Bytef*>(packed.data());
    stream_.avail_in = static_cast<uInt>(packed.size());
    while (stream_.avail_in > 0 && !ended_) {
      stream_.next_out = reinterpret_cast<Bytef*>(block_.data());
      stream_.avail_out = static_cast<uInt>(block_.size());
      const int state = inflate(&stream_, Z_NO_FLUSH);
      if (state != Z_OK && state != Z_STREAM_END) Fail();
      ended_ = state == Z_STREAM_END;
      Keep(std::string_view(block_.data(), block_.size() - stream_.avail_out));
    }
  }
  [[nodiscard]] bool EndsWith(std::string_view text) const { return ended_ && tail_.ends_with(text); }

 private:
  void Keep(std::string_view text) {
    tail_.append(text.substr(text.size() - std::min(text.size(), kSheetEnd.size())));
    tail_.erase(0, tail_.size() - std::min(tail_.size(), kSheetEnd.size()));
  }

  z_stream stream_{};
  std::vector<char> block_;
  std::string tail_;
  bool ended_ = false;
};

}  // namespace

void RequireWholeWorkbook(std::FILE* workbook) {
  const Packed sheet = FindSheet(workbook);
  TailReader reader;
  for (std::uint32_t done = 0; done < sheet.size;) {
    const std::uint32_t size = std::min<std::uint32_t>(kBlockBytes, sheet.size - done);
    std::string packed = Read(workbook, sheet.at + done, size);
    reader.Add(packed);
    done += size;
  }
  if (!reader.EndsWith(kSheetEnd)) Fail();
}

}  // namespace salerpt::shell
