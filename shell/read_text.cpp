#include "shell/read_text.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include "runtime/error.h"
#include "runtime/text.h"

namespace salerpt::shell {
namespace {

struct CloseFile {
  void operator()(std::FILE* file) const {
    if (file != stdin) std::fclose(file);
  }
};

}  // namespace

std::string ReadTextFile(const std::filesystem::path& file) {
  const bool is_input = file == "-";
  const auto fail = [&file, is_input] {
    throw RuntimeError(
        error_number::kInvalidCall, "Shell",
        Join(is_input ? "standard input" : file.string(), ": cannot be read: ", std::strerror(errno)));
  };
  const std::unique_ptr<std::FILE, CloseFile> open(is_input ? stdin : std::fopen(file.c_str(), "rb"));
  if (!open) fail();

  std::string text;
  std::array<char, std::size_t{64} * 1024> block;
  while (const std::size_t size = std::fread(block.data(), 1, block.size(), open.get())) {
    text.append(block.data(), size);
  }
  if (std::ferror(open.get()) != 0) fail();
  constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
  if (text.starts_with(kByteOrderMark)) text.erase(0, kByteOrderMark.size());
  return text;
}

}  // namespace salerpt::shell
