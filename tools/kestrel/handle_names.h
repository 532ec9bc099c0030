#pragma once

#include <cstdint>
#include <string>
#include <unordered_map>

#include "catalog/structure_scan.h"

namespace kestrel {

// What handles name: of several structures with one handle, the first.
class HandleNames {
 public:
  // The scan must outlive the object.
  explicit HandleNames(const catalog::TableScan& scan);

  // The structure, or nullptr.
  const catalog::Structure* Find(std::uint16_t handle) const;

  // The name of its type, and its own designation where it has one: "Memory Device, DIMM 0". UTF-8
  // without control characters, and never long.
  const std::string& NameOf(const catalog::Structure& structure);

 private:
  std::unordered_map<std::uint16_t, const catalog::Structure*> Structures;
  // As they come up, by offset.
  std::unordered_map<std::size_t, std::string> Names;
};

// What HandleNames calls a structure.
std::string MakeNameOf(const catalog::Structure& structure);

// The name of a type, "Unknown" where none is published.
std::string_view TitleOfType(std::uint8_t type);

}  // namespace kestrel
