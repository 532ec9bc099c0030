#pragma once

#include <cstddef>
#include <functional>
#include <string_view>

#include "base/smbios_table.h"
#include "catalog/structure_scan.h"
#include "tools/kestrel/handle_names.h"

namespace kestrel {

// A line of what a structure says. Its texts are UTF-8 without control characters; they live as
// long as the call that hands the line over.
struct StructureLine {
  // 0 for a field; 1 for a part, a bit or an entry of the field before it, and so on.
  std::size_t Depth = 0;
  // Whether an entry of several fields begins here.
  bool BeginsEntry = false;
  // Empty for an entry of a list of plain values.
  std::string_view Label = {};
  // Empty where lines of the next depth follow in its place.
  std::string_view Value = {};
  // The structure that a handle names.
  const catalog::Structure* Target = nullptr;
};

using TakeLine = std::function<void(const StructureLine&)>;

// Puts a structure into words, a line for each field in the order of the fields. A quantity stands
// in place of the numbers that it is made of. Of types that are not published there are strings and
// bytes.
void DescribeStructure(const catalog::Structure& structure, SmbiosVersion version,
                       HandleNames& names, const TakeLine& take);

}  // namespace kestrel
