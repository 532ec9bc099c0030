#include "firmware/image_firmware.h"

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

#include "firmware/entry_point_search.h"
#include "model/table_cursor.h"
#include "model/table_walk.h"

namespace kestrel {

namespace {

constexpr std::uint64_t kAddressSpace = 0x100000000;
constexpr std::uint64_t kFirstMegabyte = 0x100000;
constexpr std::uint64_t kBiosAreaSize = kBiosAreaEnd - kBiosAreaStart;

constexpr std::size_t kRsmbHeaderSize = 8;

// Where a 64-bit entry point may stand.
constexpr std::size_t kParagraph = 16;

// The entry point of a BIOS area: the first 32-bit one, or without any the first 64-bit one.
std::optional<EntryPointParse> FindInBiosArea(std::span<const std::uint8_t> area,
                                              EntryPointFacts& facts) {
  std::size_t offset = 0;
  if (FindDword(area, kAnchor, offset) != 0) {
    return ParseEntryPoint(area.subspan(offset), facts);
  }
  for (offset = 0; offset < area.size(); offset += kParagraph) {
    const EntryPointParse parse = ParseEntryPoint(area.subspan(offset), facts);
    if (parse != EntryPointParse::NotThere) {
      return parse;
    }
  }
  return std::nullopt;
}

}  // namespace

ImageFirmware::ImageFirmware(std::string path, ImageKind kind, SmbiosVersion rawVersion)
    : Path(std::move(path)), Kind(kind), RawVersion(rawVersion) {}

int ImageFirmware::Open() {
  Problem = OpenFile();
  if (Problem == ImageProblem::None) {
    Problem = Kind == ImageKind::Auto ? Recognise() : Load(Kind);
  }
  if (Problem != ImageProblem::None || !IsMemory) {
    File.Close();
  }
  return Problem == ImageProblem::None ? 1 : 0;
}

int ImageFirmware::Close() noexcept {
  File.Close();
  PresentNothing();
  IsMemory = false;
  return 1;
}

std::uint32_t ImageFirmware::ReadPhysical(std::uint32_t address, std::span<std::uint8_t> buffer) {
  if (!IsMemory) {
    return TableFirmware::ReadPhysical(address, buffer);
  }
  if (address < MemoryStart) {
    return 0;
  }
  return static_cast<std::uint32_t>(File.Read(address - MemoryStart, buffer));
}

ImageProblem ImageFirmware::OpenFile() {
  bool notAFile = false;
  Error = File.Open(Path, notAFile);
  if (Error) {
    return ImageProblem::CannotOpen;
  }
  if (notAFile) {
    return ImageProblem::NotAFile;
  }
  if (File.GetSize() == 0) {
    return ImageProblem::Empty;
  }
  return File.GetSize() > kAddressSpace ? ImageProblem::TooLarge : ImageProblem::None;
}

ImageProblem ImageFirmware::Recognise() {
  ImageProblem first = ImageProblem::NotRecognised;
  for (const ImageKind kind : {ImageKind::Memory, ImageKind::Dump, ImageKind::Rsmb}) {
    const ImageProblem problem = Load(kind);
    if (problem == ImageProblem::None) {
      return problem;
    }
    // The first kind whose outer form fits knows best what is wrong.
    if (first == ImageProblem::NotRecognised) {
      first = problem;
    }
  }
  if (first == ImageProblem::NotRecognised && LooksLikeTable()) {
    return Load(ImageKind::Raw);
  }
  return first;
}

ImageProblem ImageFirmware::Load(ImageKind kind) {
  ImageProblem problem = ImageProblem::NotRecognised;
  switch (kind) {
    case ImageKind::Auto:
      break;
    case ImageKind::Memory:
      problem = LoadMemory();
      break;
    case ImageKind::Dump:
      problem = LoadDump();
      break;
    case ImageKind::Rsmb:
      problem = LoadRsmb();
      break;
    case ImageKind::Raw:
      problem = LoadRaw();
      break;
  }
  if (problem == ImageProblem::None) {
    Kind = kind;
  }
  return problem;
}

ImageProblem ImageFirmware::LoadMemory() {
  std::uint32_t start = 0;
  if (File.GetSize() == kBiosAreaSize) {
    start = kBiosAreaStart;
  } else if (File.GetSize() < kFirstMegabyte) {
    return ImageProblem::NotRecognised;
  }
  const auto area = File.Read(kBiosAreaStart - start, static_cast<std::size_t>(kBiosAreaSize));
  EntryPointFacts facts;
  const auto parse = FindInBiosArea(area, facts);
  if (!parse) {
    return ImageProblem::NoEntryPoint;
  }
  if (*parse == EntryPointParse::Cut) {
    return ImageProblem::EntryPointCut;
  }
  if (facts.TableLength == 0) {
    return ImageProblem::TableEmpty;
  }
  if (facts.TableAddress < start || facts.TableAddress - start >= File.GetSize()) {
    return ImageProblem::TableOutside;
  }
  if (facts.Is64Bit) {
    return PresentFromFile(facts, facts.TableAddress - start);
  }
  IsMemory = true;
  MemoryStart = start;
  return ImageProblem::None;
}

ImageProblem ImageFirmware::LoadDump() {
  EntryPointFacts facts;
  switch (ParseEntryPoint(File.Read(0, kLargestEntryPoint), facts)) {
    case EntryPointParse::NotThere:
      return ImageProblem::NotRecognised;
    case EntryPointParse::Cut:
      return ImageProblem::EntryPointCut;
    case EntryPointParse::Parsed:
      break;
  }
  if (facts.TableLength == 0) {
    return ImageProblem::TableEmpty;
  }
  if (facts.TableAddress < facts.Size) {
    return ImageProblem::TableOutside;
  }
  return PresentFromFile(facts, facts.TableAddress);
}

ImageProblem ImageFirmware::LoadRsmb() {
  const auto header = File.Read(0, kRsmbHeaderSize);
  TableCursor cursor(header);
  cursor.Skip(1);
  EntryPointFacts facts;
  facts.Version.Major = cursor.U8();
  facts.Version.Minor = cursor.U8();
  cursor.Skip(1);
  facts.TableLength = cursor.U32();
  if (header.size() < kRsmbHeaderSize || File.GetSize() != kRsmbHeaderSize + facts.TableLength) {
    return ImageProblem::NotRecognised;
  }
  if (facts.TableLength == 0) {
    return ImageProblem::TableEmpty;
  }
  return PresentFromFile(facts, kRsmbHeaderSize);
}

ImageProblem ImageFirmware::LoadRaw() {
  if (File.GetSize() > kLongestTable) {
    return ImageProblem::TooLarge;
  }
  EntryPointFacts facts;
  facts.Version = RawVersion;
  facts.TableLength = static_cast<std::uint32_t>(File.GetSize());
  return PresentFromFile(facts, 0);
}

ImageProblem ImageFirmware::PresentFromFile(const EntryPointFacts& facts,
                                            std::uint64_t tableOffset) {
  if (tableOffset >= File.GetSize()) {
    return ImageProblem::TableOutside;
  }
  Present(facts, File.Read(tableOffset, std::min<std::size_t>(facts.TableLength, kLargestLoad)));
  return ImageProblem::None;
}

// A bare table has nothing that names it, so its first structure must be whole: a text, or any file
// without the pair of zeros that closes a structure, is none.
bool ImageFirmware::LooksLikeTable() {
  if (File.GetSize() > kLongestTable) {
    return false;
  }
  const auto bytes = File.Read(0, kLongestTable);
  TableCursor cursor(bytes);
  const std::uint8_t length = cursor.Peek(1);
  MoveToNextStructure(cursor, 0);
  return length >= kHeaderSize && bytes.size() >= length + std::size_t{2} && !cursor.IsPastEnd();
}

}  // namespace kestrel
