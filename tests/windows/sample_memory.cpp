// Writes a memory image of the built-in sample: its entry point in the BIOS area, and its table
// above the first megabyte, away from any round address. Argument: the file.
#include <algorithm>
#include <fstream>
#include <vector>

#include "firmware/entry_point.h"
#include "sample/sample_table.h"

int main(int /*argumentCount*/, char** arguments) {
  constexpr std::size_t kEntryPointAddress = 0xF5A30;
  constexpr std::uint32_t kTableAddress = 0x123457;
  const std::vector<std::uint8_t> table = kestrel::MakeSampleTable();
  const std::vector<std::uint8_t> entryPoint = kestrel::MakeEntryPoint(
      kestrel::kSampleVersion, kTableAddress, static_cast<std::uint16_t>(table.size()),
      kestrel::MeasureTable(table, table.size(), kestrel::EntryPointKind::Bits32));
  std::vector<char> memory(0x200000);
  std::copy(entryPoint.begin(), entryPoint.end(), memory.begin() + kEntryPointAddress);
  std::copy(table.begin(), table.end(), memory.begin() + kTableAddress);
  std::ofstream file(arguments[1], std::ios::binary);
  file.write(memory.data(), static_cast<std::streamsize>(memory.size()));
}
