#include "runtime/text_arena.h"

#include "runtime/error.h"
#include "runtime/recordset.h"
#include "runtime/text.h"

namespace salerpt {

TextArena::Ref TextArena::Overwrite(Ref old, std::string_view text) {
  if (text.empty() || text.size() > (old & kLongestText)) return Add(text);
  const std::string_view before = Get(old);
  // The new text may be a part of the old one.
  std::memmove(const_cast<char*>(before.data()), text.data(), text.size());
  return (old & ~Ref{kLongestText}) | text.size();
}

void TextArena::MakeRoom(std::size_t bytes) {
  if (bytes > kLongestText) {
    throw RuntimeError(error_number::kWrongArguments, std::string(Recordset::kClassName),
                       Join("a text of ", std::to_string(bytes), " bytes is longer than the ",
                            std::to_string(kLongestText), " bytes that a row set holds"));
  }
  const std::size_t count = (bytes + kChunkBytes - 1) / kChunkBytes;
  allocations_.push_back(std::make_unique_for_overwrite<char[]>(count * kChunkBytes));
  end_ = std::uint64_t{chunks_.size()} * kChunkBytes;
  for (std::size_t i = 0; i < count; ++i) chunks_.push_back(allocations_.back().get() + i * kChunkBytes);
  room_ = count * kChunkBytes;
}

}  // namespace salerpt
