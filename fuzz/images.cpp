// Saved images of every kind. An input is the kind asked for (a byte), the form of the file (a
// byte), a place in it (two bytes), and its bytes.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "base/entry_point_layout.h"
#include "base/table_cursor.h"
#include "catalog/faults.h"
#include "catalog/structure_scan.h"
#include "firmware/entry_point.h"
#include "firmware/entry_point_search.h"
#include "firmware/image.h"
#include "firmware/table_measure.h"
#include "fuzz/support.h"
#include "tools/kestrel/dump.h"

namespace kestrel {
namespace {

constexpr ImageKind kKinds[] = {ImageKind::Auto, ImageKind::Memory, ImageKind::Dump,
                                ImageKind::Rsmb, ImageKind::Raw,    ImageKind::Folder};

std::vector<MemoryFile> FilesOf(std::uint8_t form, std::uint16_t place,
                                std::span<const std::uint8_t> bytes) {
  constexpr std::size_t kBiosAreaSize = kBiosAreaEnd - kBiosAreaStart;
  switch (form % 4) {
    case 0:
      return {{"image", bytes}};
    case 1:
      return {{"image", bytes.first(std::min(bytes.size(), kBiosAreaSize - place)), place,
               kBiosAreaSize}};
    case 2:
      return {{"image", bytes, kBiosAreaStart + place, kBiosAreaEnd + bytes.size()}};
    default: {
      const auto entryPoint = bytes.first(std::min(bytes.size(), kLargestEntryPoint));
      return {{"image/smbios_entry_point", entryPoint},
              {"image/DMI", bytes.subspan(entryPoint.size())}};
    }
  }
}

void CheckDump(const SmbiosTable& table) {
  const std::string dump = DumpOf(table);
  const std::vector<std::uint8_t> bytes(dump.begin(), dump.end());
  SetMemoryFiles({{"dump", bytes}});
  const SmbiosTable again = ReadImage("dump", ImageKind::Dump, {}).Source.Table;
  Require(again.Bytes == table.Bytes, "a dump has another table");
  Require(again.EntryPoint.Version == table.EntryPoint.Version, "a dump has another version");
  Require(
      again.EntryPoint.TableLength == table.EntryPoint.TableLength && IsCut(again) == IsCut(table),
      "a dump announces another length");
  Require(DumpOf(again) == dump, "the dump of a dump is another one");
}

void Fuzz(std::span<const std::uint8_t> input) {
  constexpr std::size_t kHeader = 4;
  TableCursor cursor(input);
  const ImageKind kind = kKinds[cursor.U8() % std::size(kKinds)];
  const std::uint8_t form = cursor.U8();
  const std::uint16_t place = cursor.U16();
  SetMemoryFiles(FilesOf(form, place, input.subspan(std::min(input.size(), kHeader))));

  const auto [source, recognised] = ReadImage("image", kind, {});
  const SmbiosTable& table = source.Table;
  if (source.Problem != SourceProblem::None) {
    Require(table.Bytes.empty(), "there is a table, and a reason why there is none");
    return;
  }
  Require(table.Bytes.size() <= std::min(table.EntryPoint.TableLength, kLargestLoad),
          "a table has more bytes than it may");
  Require(recognised != ImageKind::Auto &&
              ReadImage("image", recognised, {}).Source.Table.Bytes == table.Bytes,
          "the kind that was recognised is not that of the image");
  if (!table.Bytes.empty()) {
    // Only here have entry points any faults.
    const catalog::FaultList faults = catalog::FindFaults(table, catalog::ScanTable(table));
    for (const catalog::Fault& fault : faults.GetFaults()) {
      Require(!fault.Text.empty(), "a fault has no text");
    }
    CheckDump(table);
  }
}

}  // namespace
}  // namespace kestrel

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  kestrel::Fuzz({data, size});
  return 0;
}
