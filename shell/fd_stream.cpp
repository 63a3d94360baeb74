#include "shell/fd_stream.h"

#include <unistd.h>

#include <cerrno>
#include <cstring>

#include "runtime/error.h"
#include "runtime/text.h"

namespace salerpt::shell {
namespace {

constexpr std::size_t kBufferBytes = std::size_t{64} * 1024;

}  // namespace

FdBuffer::FdBuffer(int descriptor, std::string place)
    : descriptor_(descriptor), place_(std::move(place)), buffer_(kBufferBytes) {
  setp(buffer_.data(), buffer_.data() + buffer_.size());
}

FdBuffer::int_type FdBuffer::overflow(int_type character) {
  Flush();
  if (!traits_type::eq_int_type(character, traits_type::eof())) sputc(traits_type::to_char_type(character));
  return traits_type::not_eof(character);
}

std::streamsize FdBuffer::xsputn(const char* text, std::streamsize size) {
  if (size > epptr() - pptr()) Flush();
  if (size > epptr() - pptr()) {
    Write(text, static_cast<std::size_t>(size));
  } else {
    std::memcpy(pptr(), text, static_cast<std::size_t>(size));
    pbump(static_cast<int>(size));
  }
  return size;
}

int FdBuffer::sync() {
  Flush();
  return 0;
}

void FdBuffer::Flush() {
  const auto size = static_cast<std::size_t>(pptr() - pbase());
  // Emptied first: what a failed write could not bring out must not be tried again by the stream's end.
  setp(buffer_.data(), buffer_.data() + buffer_.size());
  Write(buffer_.data(), size);
}

void FdBuffer::Write(const char* text, std::size_t size) {
  while (size > 0) {
    const ssize_t written = ::write(descriptor_, text, size);
    if (written < 0) {
      if (errno == EINTR) continue;
      if (errno == EPIPE) throw BrokenPipe();
      throw RuntimeError(error_number::kInvalidCall, "Shell",
                         Join(place_, ": cannot be written: ", std::strerror(errno)));
    }
    text += written;
    size -= static_cast<std::size_t>(written);
  }
}

FdStream::FdStream(int descriptor, std::string place)
    : std::ostream(nullptr), buffer_(descriptor, std::move(place)) {
  rdbuf(&buffer_);
  exceptions(std::ios::badbit);
}

}  // namespace salerpt::shell
