#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "base/smbios_table.h"
#include "catalog/structure_scan.h"
#include "model/smbios_reader.h"
#include "tools/kestrel/walk_comparison.h"

namespace kestrel {

// A table as the library gets to see it, and what there is beyond that.
struct LibraryView {
  // Holds the structures that the library finds.
  std::unique_ptr<SMBiosReader> Reader;
  catalog::TableScan Scan;
  WalkComparison Comparison;
  // Whether the table is too long for a 32-bit entry point, so that the library gets no more than
  // `Size` bytes of it.
  bool IsShortened = false;
  std::size_t Size = 0;
};

LibraryView ViewAsLibrary(const SmbiosTable& table);

// What a reader of the library's texts should know, one line each.
std::vector<std::string> NotesOnTexts(const LibraryView& view);

// Vendor, version and release date of the BIOS: as the library has them or, where its walk loses
// BIOS Information, as the table has them. Lines end with "\r\n"; empty where there is none.
std::string TextOfBios(const LibraryView& view);

}  // namespace kestrel
