#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>

namespace kestrel {

// A structure as the walk takes it, whatever its bytes claim: any of these places may lie past the
// end of the table.
struct WalkedStructure {
  // The offset of the type byte.
  std::size_t Start;
  std::uint8_t Type;
  // The size of the formatted area, even one below 4.
  std::uint8_t Length;
  bool HasStrings;
  // Where the walk looks for the next structure: after the formatted area and the string set.
  // Always greater than Start.
  std::size_t Next;
};

// The structure that starts at the offset `start`.
WalkedStructure WalkedStructureAt(std::span<const std::uint8_t> table, std::size_t start);

// The structures of a table, one after the other. Neither an End-of-Table structure nor a count
// ends the walk, but the end of the table does. The table must outlive the walk.
class TableWalk {
 public:
  explicit TableWalk(std::span<const std::uint8_t> table) : Table(table) {}

  // Returns nothing after the last structure.
  std::optional<WalkedStructure> Next();

 private:
  std::span<const std::uint8_t> Table;
  std::size_t Start = 0;
};

}  // namespace kestrel
