// Storage of the texts of a row set.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>
#include <vector>

namespace salerpt {

// Keeps texts one behind the other in chunks that never move, so that a view lives as long as the arena or
// until its text is overwritten. A text is known by a `Ref` of eight bytes. Nothing is given back before the
// arena goes.
class TextArena {
 public:
  // Place of the text (upper 40 bits) and its length in bytes (lower 24 bits).
  using Ref = std::uint64_t;
  static constexpr std::size_t kLongestText = (std::size_t{1} << 24) - 1;

  // Copies the text in. Raises wrong-arguments for one of more than `kLongestText` bytes.
  Ref Add(std::string_view text) {
    if (text.empty()) return 0;
    if (text.size() > room_) MakeRoom(text.size());
    std::memcpy(chunks_[static_cast<std::size_t>(end_ / kChunkBytes)] + end_ % kChunkBytes, text.data(),
                text.size());
    const Ref ref = (end_ << 24) | text.size();
    end_ += text.size();
    room_ -= text.size();
    return ref;
  }
  // Puts a text in the place of another: where it fits over the old one, otherwise at the end.
  Ref Overwrite(Ref old, std::string_view text);

  [[nodiscard]] std::string_view Get(Ref ref) const {
    if (ref == 0) return {};
    const std::uint64_t place = ref >> 24;
    return {chunks_[static_cast<std::size_t>(place / kChunkBytes)] + place % kChunkBytes,
            static_cast<std::size_t>(ref & kLongestText)};
  }
  // Memory held, in bytes.
  [[nodiscard]] std::size_t Bytes() const { return chunks_.size() * kChunkBytes; }

 private:
// The build with blocks of a single row has small chunks too, so that borders are met in every test.
#ifdef SALERPT_BLOCK_ROWS
  static constexpr std::size_t kChunkBytes = 64;
#else
  static constexpr std::size_t kChunkBytes = 65536;
#endif

  void MakeRoom(std::size_t bytes);

  // A text longer than a chunk lies in one allocation that several entries of `chunks_` point into.
  std::vector<char*> chunks_;
  std::vector<std::unique_ptr<char[]>> allocations_;
  std::uint64_t end_ = 0;
  std::size_t room_ = 0;
};

}  // namespace salerpt
