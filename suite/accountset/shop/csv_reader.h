// Reads comma-separated records (RFC 4180) from a stream of bytes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace salerpt::accountset::shop {

// Fills the buffer with up to `size` bytes and tells how many; 0 at the end. May raise RuntimeError.
using ByteSource = std::function<std::size_t(char* buffer, std::size_t size)>;

struct CsvRecord {
  std::int64_t line = 0;  // where it begins, the first line of the file being 1
  // Unquoted. They live until the next record is read.
  std::vector<std::string_view> fields;
  // Not empty: why the record is damaged. Then there is one field, its first line as it stands, for showing.
  std::string_view fault;
};

// A record ends with LF or CRLF; within quotes both belong to the field. A byte order mark at the beginning
// is passed over. A damaged record (a quote that never closes, stray quotes, bytes that are no UTF-8, an
// endless line) costs one line and no more: reading goes on behind its line end.
class CsvReader {
 public:
  // The longest record; a quote that stays open longer is taken for a damaged one.
  static constexpr std::size_t kMaxRecord = std::size_t{64} * 1024;

  explicit CsvReader(ByteSource source);

  // False at the end of the stream.
  bool Next(CsvRecord& record);

  // Takes back all but the first line of the record just read: what looked like one record over many lines
  // was a damaged quote after all. Does nothing for a record of one line.
  void KeepFirstLineOnly();

 private:
  // Where the record at begin_ ends: the place of its LF, or the end of the stream. Nothing with a fault set.
  std::size_t FindEnd();
  bool Refill();
  void SkipLine(CsvRecord& record);
  void Take(CsvRecord& record, std::size_t end);
  void Split(CsvRecord& record, std::string_view text);
  static void SplitPlain(CsvRecord& record, std::string_view text);
  // Both add the field that begins at `at` and give the place behind it: a comma, or `stop`.
  static char* TakeQuoted(CsvRecord& record, char* at, char* stop);
  static char* TakePlain(CsvRecord& record, char* at, char* stop);

  static constexpr std::size_t kNone = static_cast<std::size_t>(-1);

  ByteSource source_;
  std::vector<char> buffer_;
  std::size_t begin_ = 0;
  std::size_t end_ = 0;
  bool at_end_ = false;
  std::int64_t line_ = 1;
  // Of the record just read: behind its first line end when it has several lines, else kNone.
  std::size_t second_line_ = kNone;
  std::int64_t record_line_ = 1;
  std::string
      scratch_;  // the text of a record with quotes: unquoting writes, and the record may be read again
};

// True for well-formed UTF-8 without a zero byte.
bool IsText(std::string_view bytes);

}  // namespace salerpt::accountset::shop
