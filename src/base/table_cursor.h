#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace kestrel {

// A read position in a copy of the structure table, and the only way to the bytes of one.
//
// The bytes come from firmware and may claim anything, so every read is safe wherever the position
// stands: a byte past the end of the copy reads as zero, and the position may be moved past the
// end. Integers are little-endian. The copy must outlive the cursor and every view it hands out.
class TableCursor {
 public:
  explicit TableCursor(std::span<const std::uint8_t> table) : Table(table) {}

  std::size_t GetPosition() const { return Position; }
  bool IsAtEnd() const { return Position >= Table.size(); }

  void MoveTo(std::size_t position) { Position = position; }
  void Skip(std::size_t count) { Position += count; }
  // Moves past the next zero byte.
  void SkipString() { Skip(String().size() + 1); }

  // The byte `ahead` of the position; the position stays.
  std::uint8_t Peek(std::size_t ahead = 0) const {
    const std::size_t index = Position + ahead;
    return index < Table.size() ? Table[index] : std::uint8_t{0};
  }

  std::uint8_t U8() {
    const std::uint8_t value = Peek();
    Skip(1);
    return value;
  }
  std::uint16_t U16() { return LittleEndian<std::uint16_t>(); }
  std::uint32_t U32() { return LittleEndian<std::uint32_t>(); }
  std::uint64_t U64() { return LittleEndian<std::uint64_t>(); }

  // Fills `target` from the position and moves past as many bytes.
  void Bytes(std::span<std::uint8_t> target) {
    const auto held = Rest();
    const auto copied = std::min(held.size(), target.size());
    std::copy_n(held.begin(), copied, target.begin());
    std::fill(target.begin() + static_cast<std::ptrdiff_t>(copied), target.end(), std::uint8_t{0});
    Skip(target.size());
  }

  // The text from the position up to the next zero byte, or up to the end of the copy; the
  // position stays.
  std::string_view String() const {
    const auto held = Rest();
    // Text and bytes share their storage; char may alias any object.
    const std::string_view text(reinterpret_cast<const char*>(held.data()), held.size());
    return text.substr(0, text.find('\0'));
  }

 private:
  std::span<const std::uint8_t> Rest() const {
    return Table.subspan(std::min(Position, Table.size()));
  }

  template <typename Integer>
  Integer LittleEndian() {
    Integer value = 0;
    for (std::size_t index = 0; index < sizeof(Integer); ++index) {
      value = static_cast<Integer>(value | static_cast<Integer>(Peek(index)) << (8 * index));
    }
    Skip(sizeof(Integer));
    return value;
  }

  std::span<const std::uint8_t> Table;
  std::size_t Position = 0;
};

}  // namespace kestrel
