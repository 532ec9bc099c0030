#pragma once

#include <array>
#include <bitset>
#include <cstddef>
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <unordered_map>
#include <vector>

#include "base/smbios_table.h"
#include "catalog/decoder.h"
#include "catalog/structure_scan.h"
#include "catalog/type_definition.h"

namespace kestrel::catalog {

enum class FaultSeverity : std::uint8_t {
  // Makes a reader that follows the standard go wrong, or lose data.
  Error,
  // Departs from the standard, and is harmless.
  Remark,
};

// Where in a table a fault is: in a structure, at an offset, or without any of these in the entry
// point.
struct FaultPlace {
  std::optional<std::size_t> Offset = std::nullopt;
  // Those of the structure.
  std::optional<std::uint8_t> Type = std::nullopt;
  std::optional<std::uint16_t> Handle = std::nullopt;
};

// What makes two faults the same kind. The views must outlive the list that they are added to.
struct FaultKind {
  std::string_view Name;
  // The key of the field that is wrong, if it is one.
  std::string_view Key = {};
};

// Something that is wrong with a table.
struct Fault {
  FaultPlace Place;
  FaultSeverity Severity;
  // What is wrong, with the values, in the first place that has it.
  std::string Text;
  // In how many more places the same is wrong.
  std::size_t More = 0;
};

// Faults, each kind of them once for each structure type that has it.
class FaultList {
 public:
  // Faults of one kind are added in table order. A structure counts once for each kind.
  void Add(const FaultPlace& place, FaultSeverity severity, const FaultKind& kind,
           std::string text);

  const std::vector<Fault>& GetFaults() const { return Faults; }
  bool HasErrors() const;

 private:
  using TypedKind = std::tuple<std::optional<std::uint8_t>, std::string_view, std::string_view>;
  struct Known {
    std::size_t Index;
    std::optional<std::size_t> LastOffset;
  };

  std::vector<Fault> Faults;
  std::map<TypedKind, Known> KnownFaults;
};

// Finds what is wrong with a structure, for those who show faults beside the structure that has
// them. What matters of the other structures is gathered once: a look-up takes as long whether one
// structure has a handle or all of them.
class StructureChecker {
 public:
  StructureChecker(const SmbiosTable& table, const TableScan& scan);

  // Adds the faults of a structure of the scan. Where the list was empty, their texts have the
  // values of this structure.
  void Check(const Structure& structure, FaultList& faults) const;

 private:
  // The structures that have one handle.
  struct HandleUsers {
    std::size_t FirstOffset;
    std::uint8_t FirstType;
    std::bitset<256> Types;
  };

  void CheckHandle(const Structure& structure, FaultList& faults) const;
  void CheckLength(const Structure& structure, const StructureType& type, FaultList& faults) const;
  void CheckFields(const Structure& structure, const DecodedFields& fields, std::size_t strings,
                   FaultList& faults) const;
  void CheckReference(const Structure& structure, const DecodedField& field,
                      FaultList& faults) const;

  SmbiosVersion Version;
  std::unordered_map<std::uint16_t, HandleUsers> UsersOfHandle;
  std::array<std::size_t, 256> FirstOfType;
};

// Everything that is wrong with the table: its entry point first, then its structures in table
// order, then what shows in the table as a whole. `scan` is that of the table. Time grows linearly
// with the table. Sources: DMTF DSP0134, "Accessing SMBIOS information", "Structure header format",
// "Required structures and data", "Conformance guidelines", and the tables of structure types.
FaultList FindFaults(const SmbiosTable& table, const TableScan& scan);

}  // namespace kestrel::catalog
