#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

// What the standard publishes of structures, as data: each structure type is a table of fields, and
// everything that reads structures knows kinds of fields and no types. Source of all tables: DMTF
// DSP0134, "System Management BIOS (SMBIOS) Reference", up to version 3.7.0.
namespace kestrel::catalog {

// A code of an enumerated field. Texts are those of the standard.
struct Code {
  std::uint16_t Value;
  std::string_view Text;
};

// A bit of a bit field, counted from 0, and what it means when it is set.
struct Bit {
  std::uint8_t Number;
  std::string_view Text;
};

// One of several values that share the bits of one field.
struct Part {
  enum class Kind : std::uint8_t { Number, Flag, Code };

  // Empty for a code that is the field itself, with flags beside it.
  std::string_view Key;
  std::uint8_t FirstBit;
  std::uint8_t Width;
  Kind PartKind = Kind::Number;
  std::span<const Code> Codes = {};
};

constexpr Part NumberPart(std::string_view key, std::uint8_t firstBit, std::uint8_t width) {
  return {key, firstBit, width};
}
constexpr Part FlagPart(std::string_view key, std::uint8_t bit) {
  return {key, bit, 1, Part::Kind::Flag};
}
constexpr Part CodePart(std::string_view key, std::uint8_t firstBit, std::uint8_t width,
                        std::span<const Code> codes) {
  return {key, firstBit, width, Part::Kind::Code, codes};
}

enum class Kind : std::uint8_t {
  Number,      // unsigned, little-endian
  String,      // the number of a string of the set
  Code,        // a number with a text
  Bits,        // flags, each with a text
  Parts,       // several values in one number
  Handle,      // of another structure
  Uuid,        // 16 bytes
  Characters,  // ASCII characters that stand in the formatted area
  Bytes,       // whatever they mean, in hexadecimal
  Reserved,    // passed over
  List,        // entries that repeat
  Derived,     // takes no bytes: what other fields say, in a base unit
};

// How a derived field is made of the fields that it names. A result is unknown where the firmware
// says so, or where the values have no meaning.
enum class Formula : std::uint8_t {
  // One field times Factor; unknown when it equals Unknown.
  Scaled,
  // The same with a signed field of two bytes.
  ScaledSigned,
  // The first field times Factor or, when it equals Unknown, the second times SecondFactor.
  ScaledOrExtended,
  RomSize,            // 64 KiB units less one; FFh: the extended size
  CacheSize,          // 1 KiB or 64 KiB units by bit 15; FFFFh: the second size, by bit 31
  MemoryDeviceSize,   // MiB or KiB by bit 15; 7FFFh: the extended size in MiB; FFFFh: unknown
  MemoryModuleSize,   // an exponent of MiB in bits 6:0; 7Dh to 7Fh: none
  MaximumModuleSize,  // an exponent of MiB
  RangeStart,         // KiB; FFFFFFFFh: the extended address in bytes
  RangeEnd,           // the last byte of that KiB; FFFFFFFFh: the extended address in bytes
  ProcessorVoltage,   // tenths of a volt with bit 7 set, else one legacy voltage bit
  BatteryCapacity,    // the first field times the second, a multiplier
};

struct List;
struct Field;

// Which fields a derived one is made of, by their offsets, and how.
struct Derivation {
  Formula How;
  std::uint8_t First;
  std::uint8_t Second = 0;
  std::uint8_t FirstWidth = 2;
  std::uint8_t SecondWidth = 4;
  std::int32_t Factor = 1;
  std::int32_t SecondFactor = 1;
  std::uint64_t Unknown = 0;
  bool HasUnknown = false;
  bool ZeroIsUnknown = false;
};

// A field that stands right after one whose size the structure tells, and so at no fixed offset.
inline constexpr std::uint8_t kFollows = 0;
// A field that takes all that is left of the formatted area, or of its entry.
inline constexpr std::uint8_t kRest = 0;

// NOLINTNEXTLINE(clang-analyzer-optin.performance.Padding): in the order of a line of the standard.
struct Field {
  // From the start of the structure or, in a list, of the entry; kFollows where it varies. Fields
  // stand in the order of their bytes, without a gap.
  std::uint8_t Offset;
  // Bytes that it takes. For Bytes and Characters kRest, or the size that LengthOffset tells.
  std::uint8_t Width;
  // The standard's name of the field in lower case with underscores.
  std::string_view Key;
  Kind FieldKind;
  std::span<const Code> Codes = {};
  std::span<const Bit> Bits = {};
  std::span<const Part> Parts = {};
  // For a handle: the types of structures that it may name. Empty where any may be.
  std::span<const std::uint8_t> Targets = {};
  const List* Entries = nullptr;
  const Derivation* Derived = nullptr;
  // For Bytes of varying size: the offset, in the same structure or entry, of the byte that tells
  // the size. 0 where none does.
  std::uint8_t LengthOffset = 0;
};

// Entries that repeat, all of one layout. What a count or a size claims beyond the formatted area
// is not there.
struct List {
  // How many there are, and how long each is.
  enum class Count : std::uint8_t {
    FieldBefore,  // as the field right before the list tells
    FromField,    // as the byte at offset CountOffset of the structure tells
    ToTheEnd,
  };
  enum class Size : std::uint8_t {
    Fixed,        // SizeOrOffset bytes
    FromField,    // as the byte at offset SizeOrOffset of the structure tells
    FirstByte,    // as the entry's own first byte tells, that byte included
    AsItsFields,  // as long as its fields turn out to be
  };

  Count CountRule = Count::FieldBefore;
  std::uint8_t CountOffset = 0;
  Size SizeRule = Size::Fixed;
  std::uint8_t SizeOrOffset = 0;
  // A single field with an empty key makes a list of plain values rather than of objects.
  std::span<const Field> Fields;
};

// What a structure's Length is at least from a version of the standard on.
struct LeastLength {
  std::uint8_t Major;
  std::uint8_t Minor;
  std::uint8_t Length;
};

// NOLINTNEXTLINE(clang-analyzer-optin.performance.Padding): in the order of a line of the standard.
struct StructureType {
  std::uint8_t Type;
  std::string_view Name;
  std::span<const Field> Fields;
  // In ascending order of versions.
  std::span<const LeastLength> LeastLengths;
  // Whether a table has one such structure at the most.
  bool IsSingle = false;
};

// Makers of fields, so that a table of them reads like the table of the standard: offset, width
// where the kind does not give it, key.

constexpr Field Number(std::uint8_t offset, std::uint8_t width, std::string_view key) {
  return {offset, width, key, Kind::Number};
}
constexpr Field String(std::uint8_t offset, std::string_view key) {
  return {offset, 1, key, Kind::String};
}
constexpr Field CodeOf(std::uint8_t offset, std::uint8_t width, std::string_view key,
                       std::span<const Code> codes) {
  return {.Offset = offset, .Width = width, .Key = key, .FieldKind = Kind::Code, .Codes = codes};
}
constexpr Field BitsOf(std::uint8_t offset, std::uint8_t width, std::string_view key,
                       std::span<const Bit> bits) {
  return {.Offset = offset, .Width = width, .Key = key, .FieldKind = Kind::Bits, .Bits = bits};
}
constexpr Field PartsOf(std::uint8_t offset, std::uint8_t width, std::string_view key,
                        std::span<const Part> parts) {
  return {.Offset = offset, .Width = width, .Key = key, .FieldKind = Kind::Parts, .Parts = parts};
}
constexpr Field Handle(std::uint8_t offset, std::string_view key,
                       std::span<const std::uint8_t> targets = {}) {
  return {.Offset = offset, .Width = 2, .Key = key, .FieldKind = Kind::Handle, .Targets = targets};
}
constexpr Field Uuid(std::uint8_t offset, std::string_view key) {
  return {offset, 16, key, Kind::Uuid};
}
constexpr Field Characters(std::uint8_t offset, std::uint8_t width, std::string_view key) {
  return {offset, width, key, Kind::Characters};
}
// `width` bytes, or with kRest all that are left.
constexpr Field Binary(std::uint8_t offset, std::uint8_t width, std::string_view key) {
  return {offset, width, key, Kind::Bytes};
}
// As many bytes as the byte at `lengthOffset` tells.
constexpr Field BytesOfLength(std::uint8_t offset, std::string_view key,
                              std::uint8_t lengthOffset) {
  return {.Offset = offset,
          .Width = 0,
          .Key = key,
          .FieldKind = Kind::Bytes,
          .LengthOffset = lengthOffset};
}
constexpr Field Reserved(std::uint8_t offset, std::uint8_t width) {
  return {offset, width, {}, Kind::Reserved};
}
constexpr Field ListOf(std::uint8_t offset, std::string_view key, const List& entries) {
  return {.Offset = offset, .Width = 0, .Key = key, .FieldKind = Kind::List, .Entries = &entries};
}
// Stands after the first field that it is made of.
constexpr Field DerivedAs(std::string_view key, const Derivation& derivation) {
  return {.Offset = 0, .Width = 0, .Key = key, .FieldKind = Kind::Derived, .Derived = &derivation};
}

}  // namespace kestrel::catalog
