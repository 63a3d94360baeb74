#include "suite/accountset/shop/csv_reader.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace salerpt::accountset::shop {
namespace {

constexpr std::size_t kChunk = std::size_t{256} * 1024;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// The length of the UTF-8 sequence at the head of `bytes`, 0 where there is none.
std::size_t SequenceLength(std::string_view bytes) {
  const auto at = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
  const auto trails = [&](std::size_t count) {
    for (std::size_t i = 1; i < count; ++i) {
      if (i >= bytes.size() || (at(i) & 0xC0U) != 0x80U) return false;
    }
    return true;
  };
  const unsigned char head = at(0);
  if (head >= 0xC2 && head <= 0xDF) return trails(2) ? 2 : 0;
  if ((head & 0xF0U) == 0xE0U) {
    if (!trails(3)) return 0;
    const bool overlong = head == 0xE0 && at(1) < 0xA0;
    const bool surrogate = head == 0xED && at(1) >= 0xA0;
    return overlong || surrogate ? 0 : 3;
  }
  if (head >= 0xF0 && head <= 0xF4) {
    if (!trails(4)) return 0;
    const bool overlong = head == 0xF0 && at(1) < 0x90;
    const bool beyond = head == 0xF4 && at(1) >= 0x90;
    return overlong || beyond ? 0 : 4;
  }
  return 0;
}

}  // namespace

bool IsText(std::string_view bytes) {
  while (!bytes.empty()) {
    const auto head = static_cast<unsigned char>(bytes.front());
    const std::size_t length = head == 0 ? 0 : head < 0x80 ? 1 : SequenceLength(bytes);
    if (length == 0) return false;
    bytes.remove_prefix(length);
  }
  return true;
}

CsvReader::CsvReader(ByteSource source) : source_(std::move(source)), buffer_(kChunk + kMaxRecord) {
  while (end_ < kByteOrderMark.size() && Refill()) {
  }
  if (std::string_view(buffer_.data(), end_).starts_with(kByteOrderMark)) begin_ = kByteOrderMark.size();
}

bool CsvReader::Next(CsvRecord& record) {
  record.fields.clear();
  record.fault = {};
  record.line = record_line_ = line_;
  second_line_ = kNone;
  if (begin_ == end_ && !Refill()) return false;
  const std::size_t end = FindEnd();
  if (end == kNone) {
    SkipLine(record);
  } else {
    Take(record, end);
  }
  return true;
}

std::size_t CsvReader::FindEnd() {
  bool quoted = false;
  std::size_t scanned = 0;
  for (;;) {
    while (begin_ + scanned < end_) {
      const char* from = buffer_.data() + begin_ + scanned;
      const std::size_t left = end_ - begin_ - scanned;
      const auto* stop = static_cast<const char*>(std::memchr(from, '\n', left));
      const std::size_t span = stop != nullptr ? static_cast<std::size_t>(stop - from) : left;
      if (std::count(from, from + span, '"') % 2 != 0) quoted = !quoted;
      scanned += span;
      if (stop == nullptr) break;
      if (!quoted) return begin_ + scanned;
      if (++scanned > kMaxRecord) return kNone;
    }
    if (scanned > kMaxRecord) return kNone;
    if (!Refill()) return quoted ? kNone : end_;
  }
}

bool CsvReader::Refill() {
  if (at_end_) return false;
  if (begin_ > 0) {
    std::memmove(buffer_.data(), buffer_.data() + begin_, end_ - begin_);
    end_ -= begin_;
    begin_ = 0;
  }
  const std::size_t room = std::min(buffer_.size() - end_, kChunk);
  const std::size_t got = source_(buffer_.data() + end_, room);
  end_ += got;
  at_end_ = got == 0;
  return got > 0;
}

void CsvReader::SkipLine(CsvRecord& record) {
  const char* from = buffer_.data() + begin_;
  const auto* stop = static_cast<const char*>(std::memchr(from, '\n', end_ - begin_));
  if (stop != nullptr || at_end_) {
    record.fault = "a quote opens and never closes";
    const std::size_t size = stop != nullptr ? static_cast<std::size_t>(stop - from) : end_ - begin_;
    record.fields.emplace_back(from, size);
    begin_ += size + (stop != nullptr ? 1 : 0);
    ++line_;
    return;
  }
  // A line without an end: let it go piece by piece.
  record.fault = "longer than any record may be";
  for (bool found = false; !found;) {
    const auto* lf = static_cast<const char*>(std::memchr(buffer_.data() + begin_, '\n', end_ - begin_));
    found = lf != nullptr;
    begin_ = found ? static_cast<std::size_t>(lf - buffer_.data()) + 1 : end_;
    if (!found && !Refill()) break;
  }
  ++line_;
}

void CsvReader::Take(CsvRecord& record, std::size_t end) {
  const std::size_t begin = begin_;
  std::string_view text(buffer_.data() + begin, end - begin);
  line_ += 1 + std::count(text.begin(), text.end(), '\n');
  begin_ = std::min(end + 1, end_);
  if (const auto lf = text.find('\n'); lf != std::string_view::npos) second_line_ = begin + lf + 1;
  if (text.ends_with('\r')) text.remove_suffix(1);
  if (text.size() > kMaxRecord) {
    record.fault = "longer than any record may be";
  } else if (!IsText(text)) {
    record.fault = "it holds bytes that are no UTF-8 text";
  } else {
    Split(record, text);
  }
  if (record.fault.empty()) return;
  record.fields.assign(1, text.substr(0, text.find('\n')));
  KeepFirstLineOnly();
}

void CsvReader::KeepFirstLineOnly() {
  if (second_line_ == kNone) return;
  begin_ = second_line_;
  line_ = record_line_ + 1;
  second_line_ = kNone;
}

void CsvReader::Split(CsvRecord& record, std::string_view text) {
  if (text.find('"') == std::string_view::npos) return SplitPlain(record, text);
  scratch_.assign(text);
  char* const stop = scratch_.data() + scratch_.size();
  for (char* at = scratch_.data();; ++at) {
    at = *at == '"' && at < stop ? TakeQuoted(record, at, stop) : TakePlain(record, at, stop);
    if (at >= stop || !record.fault.empty()) return;
  }
}

void CsvReader::SplitPlain(CsvRecord& record, std::string_view text) {
  for (;;) {
    const auto comma = text.find(',');
    record.fields.push_back(text.substr(0, comma));
    if (comma == std::string_view::npos) return;
    text.remove_prefix(comma + 1);
  }
}

char* CsvReader::TakeQuoted(CsvRecord& record, char* at, char* stop) {
  // Doubled quotes are single ones; the field is put together in place.
  char* const first = ++at;
  char* last = first;
  for (; at < stop; ++at) {
    if (*at == '"' && *++at != '"') break;  // behind the text stands a zero
    *last++ = *at;
  }
  if (at < stop && *at != ',') record.fault = "text stands behind a closing quote";
  record.fields.emplace_back(first, last - first);
  return at;
}

char* CsvReader::TakePlain(CsvRecord& record, char* at, char* stop) {
  char* const comma = std::find(at, stop, ',');
  if (std::find(at, comma, '"') != comma) record.fault = "a quote stands inside a field that is not quoted";
  record.fields.emplace_back(at, comma - at);
  return comma;
}

}  // namespace salerpt::accountset::shop
