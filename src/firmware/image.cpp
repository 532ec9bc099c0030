#include "firmware/image.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "base/entry_point_layout.h"
#include "base/structure_header.h"
#include "base/table_cursor.h"
#include "firmware/entry_point.h"
#include "firmware/entry_point_search.h"
#include "firmware/file_reader.h"
#include "firmware/table_folder.h"
#include "model/table_walk.h"

namespace kestrel {

namespace {

constexpr std::uint64_t kFirstMegabyte = 0x100000;
constexpr std::size_t kBiosAreaSize = kBiosAreaEnd - kBiosAreaStart;

// A 64-bit entry point begins at a multiple of this.
constexpr std::size_t kParagraph = 16;

// Where most programs that save a dump put the table.
constexpr std::uint64_t kUsualTableOffset = 0x20;

// The place of the entry point in a BIOS area: of the first 32-bit one, or without any of the first
// 64-bit one.
std::optional<std::size_t> FindInBiosArea(std::span<const std::uint8_t> area) {
  std::size_t offset = 0;
  if (FindDword(area, kAnchor, offset) != 0) {
    return offset;
  }
  for (offset = 0; offset < area.size(); offset += kParagraph) {
    if (HasEntryPointAnchor(area.subspan(offset))) {
      return offset;
    }
  }
  return std::nullopt;
}

class Image {
 public:
  Image(FileReader& file, SmbiosVersion rawVersion) : File(file), RawVersion(rawVersion) {}

  ImageResult Recognise();
  SourceResult Load(ImageKind kind);

 private:
  SourceResult LoadMemory();
  SourceResult LoadDump();
  SourceResult LoadRsmb();
  SourceResult LoadRaw();
  SourceResult LoadTable(EntryPointFacts entryPoint, std::uint64_t offset);
  std::optional<std::uint64_t> FindTable(const EntryPointFacts& entryPoint);
  bool HasOnlyZeros(std::uint64_t start, std::uint64_t end);
  bool HoldsStructure(std::uint64_t offset);

  FileReader& File;
  SmbiosVersion RawVersion;
};

ImageResult Image::Recognise() {
  SourceResult first = SourceProblem::NotRecognised;
  for (const ImageKind kind : {ImageKind::Memory, ImageKind::Dump, ImageKind::Rsmb}) {
    SourceResult result = Load(kind);
    if (result.Problem == SourceProblem::None) {
      return {std::move(result), kind};
    }
    // The first kind whose outer form fits knows best what is wrong.
    if (first.Problem == SourceProblem::NotRecognised) {
      first = std::move(result);
    }
  }
  // Nothing marks a bare table, so its first structure must be whole: a file without the pair of
  // zeros that ends a structure, such as a text, is not a table.
  if (first.Problem == SourceProblem::NotRecognised && HoldsStructure(0)) {
    return {Load(ImageKind::Raw), ImageKind::Raw};
  }
  return {std::move(first), ImageKind::Auto};
}

SourceResult Image::Load(ImageKind kind) {
  switch (kind) {
    case ImageKind::Memory:
      return LoadMemory();
    case ImageKind::Dump:
      return LoadDump();
    case ImageKind::Rsmb:
      return LoadRsmb();
    case ImageKind::Raw:
      return LoadRaw();
    case ImageKind::Auto:
    case ImageKind::Folder:
      break;
  }
  return SourceProblem::NotRecognised;
}

SourceResult Image::LoadMemory() {
  std::uint64_t start = 0;
  if (File.GetSize() == kBiosAreaSize) {
    start = kBiosAreaStart;
  } else if (File.GetSize() < kFirstMegabyte) {
    return SourceProblem::NotRecognised;
  }
  const std::uint64_t area = kBiosAreaStart - start;
  const auto place = FindInBiosArea(File.Read(area, kBiosAreaSize));
  if (!place) {
    return SourceProblem::NoEntryPoint;
  }
  auto entryPoint = ParseEntryPoint(File.Read(area + *place, kLargestEntryPoint));
  if (!entryPoint) {
    return SourceProblem::EntryPointCut;
  }
  if (entryPoint->TableAddress < start) {
    return SourceProblem::TableOutside;
  }
  const std::uint64_t offset = entryPoint->TableAddress - start;
  return LoadTable(std::move(*entryPoint), offset);
}

SourceResult Image::LoadDump() {
  const auto bytes = File.Read(0, kLargestEntryPoint);
  auto entryPoint = ParseEntryPoint(bytes);
  if (!entryPoint) {
    return HasEntryPointAnchor(bytes) ? SourceProblem::EntryPointCut : SourceProblem::NotRecognised;
  }
  const auto offset = FindTable(*entryPoint);
  if (!offset) {
    return entryPoint->TableLength == 0 ? SourceProblem::TableEmpty : SourceProblem::TableOutside;
  }
  const bool isElsewhere = *offset != entryPoint->TableAddress;
  SourceResult result = LoadTable(std::move(*entryPoint), *offset);
  result.Table.IsElsewhere = isElsewhere;
  return result;
}

SourceResult Image::LoadRsmb() {
  auto facts = ParseRsmbHeader(File.Read(0, kRsmbHeaderSize));
  if (!facts || File.GetSize() != kRsmbHeaderSize + std::uint64_t{facts->TableLength}) {
    return SourceProblem::NotRecognised;
  }
  return LoadTable(std::move(*facts), kRsmbHeaderSize);
}

SourceResult Image::LoadRaw() {
  if (File.GetSize() > kLargestLoad) {
    return SourceProblem::TooLarge;
  }
  EntryPointFacts facts;
  facts.Version = RawVersion;
  facts.TableLength = static_cast<std::uint32_t>(File.GetSize());
  return LoadTable(std::move(facts), 0);
}

SourceResult Image::LoadTable(EntryPointFacts entryPoint, std::uint64_t offset) {
  if (entryPoint.TableLength == 0) {
    return SourceProblem::TableEmpty;
  }
  auto bytes = File.Read(offset, std::min(entryPoint.TableLength, kLargestLoad));
  if (bytes.empty()) {
    return SourceProblem::TableOutside;
  }
  return SmbiosTable{.EntryPoint = std::move(entryPoint), .Bytes = std::move(bytes)};
}

// Many dumps keep the table's address in the machine's memory. In these the table follows the entry
// point, either directly or after zeros up to 20h.
std::optional<std::uint64_t> Image::FindTable(const EntryPointFacts& entryPoint) {
  const std::uint64_t end = entryPoint.Bytes.size();
  const std::uint64_t address = entryPoint.TableAddress;
  if (address < File.GetSize()) {
    return address < end ? std::nullopt : std::optional(address);
  }
  // Bytes in the midst of a structure may look like another one, so the likelier place comes first:
  // the one from which the table reaches to the end of the file, or else 20h if zeros precede it.
  const std::uint64_t fitting = File.GetSize() - entryPoint.TableLength;
  const bool isPadded =
      fitting == kUsualTableOffset || (fitting != end && HasOnlyZeros(end, kUsualTableOffset));
  const std::uint64_t likely = isPadded ? kUsualTableOffset : end;
  const std::uint64_t other = isPadded ? end : kUsualTableOffset;
  if (HoldsStructure(likely)) {
    return likely;
  }
  return HoldsStructure(other) ? std::optional(other) : std::nullopt;
}

bool Image::HasOnlyZeros(std::uint64_t start, std::uint64_t end) {
  const auto bytes = File.Read(start, static_cast<std::size_t>(end - start));
  return std::all_of(bytes.begin(), bytes.end(), [](std::uint8_t byte) { return byte == 0; });
}

// Whether a whole structure begins there.
bool Image::HoldsStructure(std::uint64_t offset) {
  const auto bytes = File.Read(offset, kLongestTable);
  const WalkedStructure structure = WalkedStructureAt(bytes, 0);
  return structure.Length >= kHeaderSize && structure.Length + std::size_t{2} <= bytes.size() &&
         structure.Next <= bytes.size();
}

ImageResult ReadFrom(FileReader& file, bool isOpen, ImageKind kind, SmbiosVersion rawVersion) {
  ImageResult result = {SourceProblem::NotAFile, kind};
  if (isOpen && file.GetSize() == 0) {
    result.Source = SourceProblem::Empty;
  } else if (isOpen) {
    Image image(file, rawVersion);
    result = kind == ImageKind::Auto ? image.Recognise() : ImageResult{image.Load(kind), kind};
  }
  if (file.GetError()) {
    return {{SourceProblem::CannotRead, file.GetError()}, kind};
  }
  return result;
}

}  // namespace

ImageResult ReadImage(const std::filesystem::path& path, ImageKind kind, SmbiosVersion rawVersion) {
  if (kind == ImageKind::Folder || (kind == ImageKind::Auto && IsFolder(path))) {
    return {ReadTableFolder(path), ImageKind::Folder};
  }
  const bool isTableOfFolder = kind == ImageKind::Raw && IsFolder(path);
  FileReader file;
  const bool isOpen = file.Open(isTableOfFolder ? path / kTableFile : path);
  return ReadFrom(file, isOpen, kind, rawVersion);
}

ImageResult ReadImageFromStandardInput(ImageKind kind, SmbiosVersion rawVersion) {
  FileReader file;
  const bool isOpen = file.OpenStandardInput();
  return ReadFrom(file, isOpen, kind, rawVersion);
}

std::optional<EntryPointFacts> ParseRsmbHeader(std::span<const std::uint8_t> bytes) {
  if (bytes.size() < kRsmbHeaderSize) {
    return std::nullopt;
  }
  TableCursor cursor(bytes);
  cursor.Skip(1);  // calling method
  EntryPointFacts facts;
  facts.Version.Major = cursor.U8();
  facts.Version.Minor = cursor.U8();
  cursor.Skip(1);  // revision
  facts.TableLength = cursor.U32();
  return facts;
}

}  // namespace kestrel
