// Makes the folders "texts" and "images" with the first inputs of the targets of those names, in
// the folder that is the argument.

#include <algorithm>
#include <array>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "firmware/entry_point.h"
#include "firmware/entry_point_search.h"
#include "sample/sample_table.h"
#include "sample/table_builder.h"

namespace {

using Bytes = std::vector<std::uint8_t>;
using View = std::span<const std::uint8_t>;

constexpr std::uint32_t kTableOffset = 0x20;

void Write(const std::filesystem::path& path, std::initializer_list<View> parts) {
  std::filesystem::create_directories(path.parent_path());
  std::ofstream file(path, std::ios::binary);
  for (const View part : parts) {
    std::copy(part.begin(), part.end(), std::ostreambuf_iterator<char>(file));
  }
}

// Besides the sample a structure of every type, longer than any version has it.
void WriteTexts(const std::filesystem::path& folder, View sample) {
  constexpr std::array<std::uint8_t, 3> kHeaderOfSample = {2, 3, 1};
  constexpr std::array<std::uint8_t, 3> kHeaderOfOthers = {3, 7, 2};
  Write(folder / "sample", {kHeaderOfSample, sample});
  constexpr std::uint8_t kTypes = 47;
  constexpr std::array<std::string_view, 2> kStrings = {"A", "\x1B\x9B"};
  for (std::uint8_t type = 0; type < kTypes; ++type) {
    Bytes table;
    kestrel::AppendStructure(table, type, type, Bytes(96, 2), kStrings);
    Write(folder / ("type-" + std::to_string(type)), {kHeaderOfOthers, table});
  }
}

// The headers name the kind, the form of the file and the place in it.
void WriteImages(const std::filesystem::path& folder, View sample) {
  constexpr kestrel::SmbiosVersion kVersion = {2, 3};
  const View table = sample.first(256);
  const auto pointTo = [&](std::uint32_t address) {
    Bytes bytes = kestrel::MakeEntryPoint(kVersion, address, 256, {});
    bytes.resize(kTableOffset);
    return bytes;
  };
  Bytes pointTo64 = kestrel::Make64BitEntryPoint(kVersion, kTableOffset, 256);
  pointTo64.resize(kTableOffset);
  constexpr std::array<std::uint8_t, 8> kRsmb = {0, 2, 3, 0, 0, 1, 0, 0};
  Write(folder / "memory",
        {Bytes{0, 2, 16, 0}, pointTo(kestrel::kBiosAreaStart + 16 + kTableOffset), table});
  Write(folder / "area",
        {Bytes{1, 1, 0, 0}, pointTo(kestrel::kBiosAreaStart + kTableOffset), table});
  Write(folder / "dump", {Bytes{0, 0, 0, 0}, pointTo(kTableOffset), table});
  Write(folder / "dump-elsewhere", {Bytes{2, 0, 0, 0}, pointTo(0xFFFFFF), table});
  Write(folder / "dump-64", {Bytes{2, 0, 0, 0}, pointTo64, table});
  Write(folder / "rsmb", {Bytes{3, 0, 0, 0}, kRsmb, table});
  Write(folder / "raw", {Bytes{4, 0, 0, 0}, table});
  Write(folder / "folder", {Bytes{5, 3, 0, 0}, pointTo(0), table});
}

}  // namespace

int main(int argumentCount, char** arguments) {
  if (argumentCount != 2) {
    return 1;
  }
  const std::filesystem::path folder = arguments[1];
  const Bytes sample = kestrel::MakeSampleTable();
  std::filesystem::remove_all(folder);
  WriteTexts(folder / "texts", sample);
  WriteImages(folder / "images", sample);
  return 0;
}
