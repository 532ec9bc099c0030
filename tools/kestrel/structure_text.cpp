#include "tools/kestrel/structure_text.h"

#include <string>

#include "base/text.h"
#include "catalog/meant_version.h"
#include "tools/kestrel/console_text.h"
#include "tools/kestrel/structure_lines.h"

namespace kestrel {

StructureText::StructureText(const SmbiosTable& table, const catalog::TableScan& scan,
                             Output& output)
    : Version(catalog::MeantVersion(table.EntryPoint.Version)),
      Target(output),
      Checker(table, scan),
      Names(scan) {}

void StructureText::Append(const catalog::Structure& structure) {
  constexpr std::size_t kIndent = 4;
  constexpr std::string_view kEntryMark = "- ";
  Target.Write(Join({IsFirst ? "" : kLineEnd, TitleOfType(structure.Type), ", type ",
                     Decimal(structure.Type), ", handle ", Hex(structure.Handle, 4), "h, at ",
                     Hex(structure.Offset, 4), "h", kLineEnd}));
  IsFirst = false;
  DescribeStructure(structure, Version, Names, [&](const StructureLine& line) {
    const std::size_t indent = kIndent * (line.Depth + 1);
    const std::string_view mark = line.BeginsEntry ? kEntryMark : std::string_view();
    Target.Write(std::string(indent - mark.size(), ' '));
    const bool isPair = !line.Label.empty() && !line.Value.empty();
    for (const std::string_view piece : {mark, line.Label,
                                         std::string_view(isPair               ? ": "
                                                          : line.Label.empty() ? ""
                                                                               : ":"),
                                         line.Value, kLineEnd}) {
      Target.Write(piece);
    }
  });
  AppendFaults(structure);
}

void StructureText::AppendFaults(const catalog::Structure& structure) {
  catalog::FaultList faults;
  Checker.Check(structure, faults);
  for (const catalog::Fault& fault : faults.GetFaults()) {
    const bool isError = fault.Severity == catalog::FaultSeverity::Error;
    Target.Write(Join({"  ! ", isError ? "error: " : "remark: ", fault.Text, kLineEnd}));
  }
}

}  // namespace kestrel
