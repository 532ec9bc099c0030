#include "tools/kestrel/library_view.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "base/structure_header.h"
#include "base/text.h"
#include "catalog/decoder.h"
#include "catalog/type_catalog.h"
#include "firmware/table_firmware.h"
#include "types/type0_bios_information.h"

namespace kestrel {

namespace {

void AppendCount(std::string& text, std::size_t count, std::string_view verb) {
  if (count != 0) {
    Append(text, {text.empty() ? "" : " and ", verb, " ", Decimal(count)});
  }
}

std::string NoteOnDifferences(const LibraryView& view) {
  std::vector<StructurePlace> lost = view.Comparison.Lost;
  if (view.IsShortened) {
    std::erase_if(lost, [&](const StructurePlace& place) { return place.Offset >= view.Size; });
  }
  const std::vector<StructurePlace>& invented = view.Comparison.Invented;
  if (lost.empty() && invented.empty()) {
    return {};
  }
  std::string counts;
  AppendCount(counts, lost.size(), "loses");
  AppendCount(counts, invented.size(), "invents");
  const bool lostIsFirst =
      !lost.empty() && (invented.empty() || lost.front().Offset < invented.front().Offset);
  const StructurePlace first = lostIsFirst ? lost.front() : invented.front();
  std::string note;
  Append(note, {"the library ", counts, " of the structures, the first at ", Hex(first.Offset, 4),
                "h (Type ", Decimal(first.Type), "): see 'kestrel check'"});
  return note;
}

std::string_view StringOf(const catalog::DecodedFields& fields, std::string_view key,
                          const std::vector<std::string_view>& strings) {
  for (const catalog::DecodedField& field : fields) {
    if (field.Definition->Key == key && field.Number != 0 && field.Number <= strings.size()) {
      return strings[static_cast<std::size_t>(field.Number) - 1];
    }
  }
  return {};
}

std::string TextOfScannedBios(const catalog::Structure& bios) {
  const auto fields = catalog::DecodeFields(bios, *catalog::FindStructureType(kBiosInformation));
  const auto strings = bios.GetStrings();
  std::string text;
  Append(text,
         {"Vendor Name : ", StringOf(fields, "vendor", strings),
          "\r\nBIOS Version : ", StringOf(fields, "bios_version", strings),
          "\r\nBIOS Release Date : ", StringOf(fields, "bios_release_date", strings), "\r\n"});
  return text;
}

}  // namespace

LibraryView ViewAsLibrary(const SmbiosTable& table) {
  LibraryView view;
  auto firmware = std::make_unique<TableFirmware>(table);
  view.IsShortened = firmware->IsShortened();
  view.Reader = std::make_unique<SMBiosReader>(std::move(firmware));
  const TableCopy copy = view.Reader->CopyTable().value_or(TableCopy{});
  view.Reader->WalkTable(copy.Bytes);
  view.Size = copy.Bytes.size();
  view.Scan = catalog::ScanTable(table);
  view.Comparison = CompareWithWalk(view.Scan, copy.Bytes);
  return view;
}

std::vector<std::string> NotesOnTexts(const LibraryView& view) {
  std::vector<std::string> notes;
  if (view.IsShortened) {
    notes.emplace_back(
        "the table is longer than 65,535 bytes: the structures after them are left out");
  }
  std::string note = NoteOnDifferences(view);
  if (!note.empty()) {
    notes.push_back(std::move(note));
  }
  return notes;
}

std::string TextOfBios(const LibraryView& view) {
  const auto& structures = view.Scan.Structures;
  const auto bios = std::find_if(
      structures.begin(), structures.end(),
      [](const catalog::Structure& structure) { return structure.Type == kBiosInformation; });
  if (bios != structures.end() && view.Comparison.Differs(bios->Offset)) {
    return TextOfScannedBios(*bios);
  }
  std::string text;
  if (const SMType0Obj* object = view.Reader->GetType0Obj()) {
    Append(text, {object->GetVendorText(), "\r\n", object->GetVersionText(), "\r\n",
                  object->GetReleaseDateText(), "\r\n"});
  }
  return text;
}

}  // namespace kestrel
