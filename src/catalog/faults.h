#pragma once

#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "base/smbios_table.h"
#include "catalog/structure_scan.h"

namespace kestrel::catalog {

enum class Severity : std::uint8_t {
  // What makes a reader go wrong, or lose data.
  Error,
  // What the standard asks for and no reader is hurt by.
  Remark,
};

// Where in a table a fault is: at a structure, at an offset, or without either in the entry point.
struct FaultPlace {
  std::optional<std::size_t> Offset = std::nullopt;
  // Those of the structure.
  std::optional<std::uint8_t> Type = std::nullopt;
  std::optional<std::uint16_t> Handle = std::nullopt;
};

// Something that is wrong with a table.
struct Fault {
  FaultPlace Place;
  Severity Kind;
  // What is wrong, with the values, of the first place that has it.
  std::string Text;
  // In how many further places the same is wrong.
  std::size_t More = 0;
};

// The faults of a table, each kind of them once for each type that has it.
class FaultList {
 public:
  // `kind` tells faults of one kind from those of others.
  void Add(const FaultPlace& place, Severity severity, std::string_view kind, std::string text);

  const std::vector<Fault>& GetFaults() const { return Faults; }
  bool HasErrors() const;

 private:
  using Key = std::tuple<std::optional<std::uint8_t>, std::string>;

  std::vector<Fault> Faults;
  std::map<Key, std::size_t> IndexOf;
};

// Everything that is wrong with the table, its entry point first, then in table order but for what
// shows in the whole of it alone. `scan` is that of the table. Sources: DMTF DSP0134, "Accessing
// SMBIOS information", "Structure header format", "Required structures and data", and the tables of
// structure types.
FaultList FindFaults(const SmbiosTable& table, const TableScan& scan);

}  // namespace kestrel::catalog
