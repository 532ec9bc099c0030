#pragma once

#include "base/smbios_table.h"
#include "catalog/structure_scan.h"
#include "tools/kestrel/handle_names.h"
#include "tools/kestrel/output.h"

namespace kestrel {

// Writes structures for people, a block for each: name, type, handle and offset, then the lines of
// DescribeStructure. UTF-8, with the line ends of this system.
class StructureText {
 public:
  // `scan` is that of the whole table. It must outlive the object, as must the output.
  StructureText(const catalog::TableScan& scan, SmbiosVersion version, Output& output);

  void Append(const catalog::Structure& structure);

 private:
  SmbiosVersion Version;
  Output& Target;
  HandleNames Names;
  bool IsFirst = true;
};

}  // namespace kestrel
