// An output stream on a file descriptor that tells why a write failed.
#pragma once

#include <ostream>
#include <streambuf>
#include <string>
#include <vector>

namespace salerpt::shell {

// The reader at the other end of a pipe went away (`salerpt show … | head`): no error of ours, the program
// just ends.
class BrokenPipe : public std::exception {
 public:
  [[nodiscard]] const char* what() const noexcept override { return "broken pipe"; }
};

// Buffers bytes for a descriptor, which it does not own. A write that fails raises RuntimeError naming the
// place and the system's reason, or BrokenPipe.
class FdBuffer : public std::streambuf {
 public:
  // `place` stands in messages: "standard output", or a file's name.
  FdBuffer(int descriptor, std::string place);
  FdBuffer(const FdBuffer&) = delete;
  FdBuffer& operator=(const FdBuffer&) = delete;

 protected:
  int_type overflow(int_type character) override;
  std::streamsize xsputn(const char* text, std::streamsize size) override;
  int sync() override;

 private:
  void Flush();
  void Write(const char* text, std::size_t size);

  int descriptor_;
  std::string place_;
  std::vector<char> buffer_;
};

// The stream over it. Errors come out of the writing call itself.
class FdStream : public std::ostream {
 public:
  FdStream(int descriptor, std::string place);

 private:
  FdBuffer buffer_;
};

}  // namespace salerpt::shell
