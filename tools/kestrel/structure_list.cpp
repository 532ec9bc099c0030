#include "tools/kestrel/structure_list.h"

#include "base/text.h"
#include "catalog/type_catalog.h"
#include "tools/kestrel/console_text.h"

namespace kestrel {

namespace {

std::string_view NameOf(std::uint8_t type) {
  const std::string_view name = catalog::GetTypeName(type);
  return name.empty() ? "Unknown" : name;
}

void AppendRightAligned(std::string& line, std::string_view number, std::size_t width) {
  line.append(width - number.size(), ' ').append(number);
}

}  // namespace

void ListStructures(const catalog::TableScan& scan, const WalkComparison& comparison,
                    Output& output) {
  std::string line;
  for (const catalog::Structure& structure : scan.Structures) {
    line.clear();
    Append(line, {Hex(structure.Offset, 4), "h  "});
    AppendRightAligned(line, Decimal(structure.Type), 3);
    line.append("  ");
    AppendRightAligned(line, Decimal(structure.GetLength()), 3);
    Append(line, {"  ", Hex(structure.Handle, 4), "h  ", NameOf(structure.Type),
                  comparison.Differs(structure.Offset) ? "  *" : "", kLineEnd});
    output.Write(line);
  }
}

std::vector<std::string> NotesOnList(const catalog::TableScan& scan,
                                     const WalkComparison& comparison) {
  std::vector<std::string> notes;
  if (!comparison.Lost.empty() || !comparison.CutShort.empty()) {
    notes.emplace_back("* marks what the report and the MIF document lose or show differently");
  }
  if (!comparison.Invented.empty()) {
    Append(notes.emplace_back(),
           {"structures that the report and the MIF document see and that are none: ",
            Decimal(comparison.Invented.size()), ", the first at ",
            Hex(comparison.Invented.front().Offset, 4), "h"});
  }
  const std::vector<std::string> end = NotesOnEnd(scan);
  notes.insert(notes.end(), end.begin(), end.end());
  return notes;
}

std::vector<std::string> NotesOnEnd(const catalog::ScanEnd& end) {
  std::vector<std::string> notes;
  if (end.Stop != catalog::ScanStop::Complete) {
    Append(notes.emplace_back(),
           {"the structures end at ", Hex(end.End, 4), "h: another one there would ",
            end.Stop == catalog::ScanStop::PastEnd ? "go past the end of the table"
                                                   : "have a Length below 4"});
  }
  return notes;
}

}  // namespace kestrel
