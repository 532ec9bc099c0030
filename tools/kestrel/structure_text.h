#pragma once

#include "base/smbios_table.h"
#include "catalog/faults.h"
#include "catalog/structure_scan.h"
#include "tools/kestrel/handle_names.h"
#include "tools/kestrel/output.h"

namespace kestrel {

// Writes structures for people, a block for each: name, type, handle and offset, the lines of
// DescribeStructure, then what is wrong with it, after an exclamation mark. UTF-8, with the line
// ends of this system.
class StructureText {
 public:
  // `scan` is that of the table. Both must outlive the object, as must the output.
  StructureText(const SmbiosTable& table, const catalog::TableScan& scan, Output& output);

  void Append(const catalog::Structure& structure);

 private:
  void AppendFaults(const catalog::Structure& structure);

  SmbiosVersion Version;
  Output& Target;
  catalog::StructureChecker Checker;
  HandleNames Names;
  bool IsFirst = true;
};

}  // namespace kestrel
