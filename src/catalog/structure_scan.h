#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "base/smbios_table.h"
#include "base/structure_header.h"

namespace kestrel::catalog {

// A structure of a table. Its views live as long as the bytes of the table.
struct Structure {
  // From the start of the table.
  std::size_t Offset = 0;
  std::uint8_t Type = 0;
  // Whether the table goes on to the zeros that close the string set.
  bool IsClosed = true;
  std::uint16_t Handle = 0;
  // The header and the fields: as many bytes as Length says, 4 at least.
  std::span<const std::uint8_t> Formatted;
  // The strings, each with the zero that ends it, without the zero that closes the set.
  std::span<const std::uint8_t> StringSet;

  std::uint8_t GetLength() const { return static_cast<std::uint8_t>(Formatted.size()); }
  // The offset right after the structure.
  std::size_t GetEnd() const;
  bool HasStrings() const;
  // In order, so that string number 1 comes first. Only the first string may be empty.
  std::vector<std::string_view> GetStrings() const;
  // The same, one after the other, for a set of millions of strings.
  void ForEachString(const std::function<void(std::string_view)>& take) const;
  // The string of that number, from 1 on; empty where there is none.
  std::string_view GetString(std::uint64_t number) const;
};

// What ends a scan before the bytes do.
struct EndRule {
  // A 64-bit entry point states no more than a bound, so the first End-of-Table is the end.
  bool AfterEndOfTable = false;
  // A 32-bit entry point states how many structures there are; 0 where it does not.
  std::uint32_t StructureCount = 0;
};

enum class ScanStop {
  // By the end rule, or because nothing but zeros is left.
  Complete,
  // The next structure would have a Length below that of the header.
  LengthTooSmall,
  // The next structure would have a header or fields that go past the end of the table.
  PastEnd,
};

struct ScanEnd {
  ScanStop Stop = ScanStop::Complete;
  // The offset right after the last structure, at most the size of the table.
  std::size_t End = 0;
};

struct TableScan : ScanEnd {
  std::vector<Structure> Structures;
};

// Finds the structures of a table by the rules of DMTF DSP0134, "Structure header format" and "Text
// strings": the fields are as long as Length says, the strings end at the first pair of zeros after
// them, and the next structure follows at once.
class StructureScanner {
 public:
  // The bytes must outlive the scanner.
  StructureScanner(std::span<const std::uint8_t> table, EndRule rule) : Table(table), Rule(rule) {}
  // With the end rule of the table's entry point.
  explicit StructureScanner(const SmbiosTable& table);

  // The next structure, or nothing after the last one.
  std::optional<Structure> Next();

  // After the last structure.
  const ScanEnd& GetEnd() const { return End; }

 private:
  bool IsAtEnd() const;

  std::span<const std::uint8_t> Table;
  EndRule Rule;
  ScanEnd End;
  std::size_t Count = 0;
  std::optional<std::uint8_t> LastType;
};

// All structures of a table at once: 56 bytes for each.
TableScan ScanTable(std::span<const std::uint8_t> table, EndRule rule);
TableScan ScanTable(const SmbiosTable& table);

}  // namespace kestrel::catalog
