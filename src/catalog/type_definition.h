#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <tuple>

// What the standard publishes of structures, as data: each structure type is a table of fields, and
// everything that reads structures knows kinds of fields and no types. Source of all tables: DMTF
// DSP0134, "System Management BIOS (SMBIOS) Reference", version 3.9.0; of host interfaces DSP0239.
namespace kestrel::catalog {

// A code of an enumerated field, or a range of codes. Texts are those of the standard.
struct Code {
  constexpr Code(std::uint16_t code, std::string_view text) : Code(code, code, text) {}
  constexpr Code(std::uint16_t first, std::uint16_t last, std::string_view text)
      : First(first), Last(last), Text(text) {}

  std::uint16_t First;
  std::uint16_t Last;
  std::string_view Text;
};

// A bit of a bit field, counted from 0, and what it means when it is set.
struct Bit {
  std::uint8_t Number;
  std::string_view Text;
};

enum class PartKind : std::uint8_t { Number, Flag, Code };

// One of several values that share the bits of one field.
struct Part {
  // Empty for a code that is the field itself, with flags beside it.
  std::string_view Key;
  std::uint8_t FirstBit;
  std::uint8_t Width;
  PartKind Kind = PartKind::Number;
  // Of a number: those that say something else than a number.
  std::span<const Code> Codes = {};
};

constexpr std::uint64_t ValueOf(const Part& part, std::uint64_t whole) {
  return whole >> part.FirstBit & ((std::uint64_t{1} << part.Width) - 1);
}

constexpr Part NumberPart(std::string_view key, std::uint8_t firstBit, std::uint8_t width,
                          std::span<const Code> codes = {}) {
  return {key, firstBit, width, PartKind::Number, codes};
}
constexpr Part FlagPart(std::string_view key, std::uint8_t bit) {
  return {key, bit, 1, PartKind::Flag};
}
constexpr Part CodePart(std::string_view key, std::uint8_t firstBit, std::uint8_t width,
                        std::span<const Code> codes) {
  return {key, firstBit, width, PartKind::Code, codes};
}

enum class FieldKind : std::uint8_t {
  Number,      // unsigned, little-endian
  String,      // the number of a string of the set
  Code,        // a number with a text
  Bits,        // flags, each with a text
  Parts,       // several values in one number
  Handle,      // of another structure
  Uuid,        // 16 bytes
  Characters,  // ASCII characters that stand in the formatted area
  Bytes,       // of any meaning, in hexadecimal
  Reserved,    // passed over
  List,        // entries that repeat
  Quantity,    // what a stored number means, by its conversion; mostly in a base unit
};

// A number that stands elsewhere in the same structure.
struct NumberPlace {
  std::uint8_t Offset;
  std::uint8_t Width;
  // Whether the number says more than what the quantity takes from it, and is shown beside it.
  bool SaysMore = false;
};

// The numbers at the places that a conversion names; none where the structure is too short for one,
// as those of older versions are.
using OtherNumbers = std::array<std::optional<std::uint64_t>, 2>;

// How a number is made of the stored one.
struct ConversionRule {
  std::uint32_t Factor = 1;
  // Whether the number is signed; the quantity is signed then, too.
  bool IsSigned = false;
  // The number by which firmware says that it does not know.
  std::optional<std::uint64_t> Unknown = {};
  // In place of the factor, for what is no multiple of the number. Gives nothing where the numbers
  // have no meaning.
  std::optional<std::uint64_t> (*Convert)(std::uint64_t number,
                                          const OtherNumbers& others) = nullptr;
  NumberPlace Others[std::tuple_size_v<OtherNumbers>] = {};
};

struct List;
struct Field;

// A field that stands right after one whose size stands in the structure, and so at no fixed
// offset.
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
  FieldKind Kind;
  // Of a number, or of several values in one: the numbers that say something else, as that there is
  // none.
  std::span<const Code> Codes = {};
  std::span<const Bit> Bits = {};
  std::span<const Part> Parts = {};
  // For a handle: the types of structures that it may name. Empty where any may be.
  std::span<const std::uint8_t> Targets = {};
  const List* Entries = nullptr;
  // For Bytes of varying size: the offset, in the same structure or entry, of the byte that tells
  // the size. 0 where none does.
  std::uint8_t LengthOffset = 0;
  // For a quantity, and for what says in another way what the field before it says.
  ConversionRule Conversion = {};
};

// Whether the field takes no bytes, and is made of the number of the field before it.
constexpr bool IsMadeOfNumberBefore(const Field& field) {
  return field.Width == 0 && (field.Kind == FieldKind::Quantity || field.Kind == FieldKind::Code ||
                              field.Kind == FieldKind::Bits);
}

// Entries that repeat, all of one layout. What a count or a size claims beyond the formatted area
// is not there.
struct List {
  // How many there are, and how long each is.
  enum class Count : std::uint8_t {
    FieldBefore,  // in the field right before the list
    FromField,    // in the byte at offset CountOffset of the structure
    ToTheEnd,
  };
  enum class Size : std::uint8_t {
    Fixed,        // SizeOrOffset bytes
    FromField,    // in the byte at offset SizeOrOffset of the structure
    FirstByte,    // in the entry's own first byte, that byte included
    AsItsFields,  // as long as its fields turn out to be
  };

  Count CountRule = Count::FieldBefore;
  std::uint8_t CountOffset = 0;
  Size SizeRule = Size::Fixed;
  std::uint8_t SizeOrOffset = 0;
  // A single field with an empty key makes a list of plain values rather than of objects.
  std::span<const Field> Fields;
};

// What a structure's Length is at least from a version of the standard on: what the Length row of
// the type's table says, which may be less than the fields of that version take. The first row is
// of the version that brought the type.
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

// Numbers by which firmware says that there is none, or that it does not know.
inline constexpr Code kNoneIsZero[] = {{0x00, "none"}};
inline constexpr Code kNoneIsFFh[] = {{0xFF, "none"}};
inline constexpr Code kUnknownIsZero[] = {{0x00, "unknown"}};

inline constexpr std::uint64_t kKiB = 1024;
inline constexpr std::uint64_t kMiB = 1024 * kKiB;
inline constexpr std::uint64_t kGiB = 1024 * kMiB;

// Makers of fields, so that a table of them reads like the table of the standard: offset, width
// where the kind does not give it, key.

constexpr Field NumberField(std::uint8_t offset, std::uint8_t width, std::string_view key,
                            std::span<const Code> codes = {}) {
  return {.Offset = offset, .Width = width, .Key = key, .Kind = FieldKind::Number, .Codes = codes};
}
constexpr Field StringField(std::uint8_t offset, std::string_view key) {
  return {offset, 1, key, FieldKind::String};
}
constexpr Field CodeField(std::uint8_t offset, std::uint8_t width, std::string_view key,
                          std::span<const Code> codes) {
  return {.Offset = offset, .Width = width, .Key = key, .Kind = FieldKind::Code, .Codes = codes};
}
constexpr Field BitsField(std::uint8_t offset, std::uint8_t width, std::string_view key,
                          std::span<const Bit> bits) {
  return {.Offset = offset, .Width = width, .Key = key, .Kind = FieldKind::Bits, .Bits = bits};
}
constexpr Field PartsField(std::uint8_t offset, std::uint8_t width, std::string_view key,
                           std::span<const Part> parts, std::span<const Code> codes = {}) {
  return {.Offset = offset,
          .Width = width,
          .Key = key,
          .Kind = FieldKind::Parts,
          .Codes = codes,
          .Parts = parts};
}
constexpr Field HandleField(std::uint8_t offset, std::string_view key,
                            std::span<const std::uint8_t> targets = {}) {
  return {.Offset = offset, .Width = 2, .Key = key, .Kind = FieldKind::Handle, .Targets = targets};
}
constexpr Field UuidField(std::uint8_t offset, std::string_view key) {
  return {offset, 16, key, FieldKind::Uuid};
}
constexpr Field CharactersField(std::uint8_t offset, std::uint8_t width, std::string_view key) {
  return {offset, width, key, FieldKind::Characters};
}
// `width` bytes, or with kRest all that are left.
constexpr Field BytesField(std::uint8_t offset, std::uint8_t width, std::string_view key) {
  return {offset, width, key, FieldKind::Bytes};
}
// As many bytes as the byte at `lengthOffset` says.
constexpr Field CountedBytesField(std::uint8_t offset, std::string_view key,
                                  std::uint8_t lengthOffset) {
  return {.Offset = offset,
          .Width = 0,
          .Key = key,
          .Kind = FieldKind::Bytes,
          .LengthOffset = lengthOffset};
}
constexpr Field ReservedField(std::uint8_t offset, std::uint8_t width) {
  return {offset, width, {}, FieldKind::Reserved};
}
constexpr Field ListField(std::uint8_t offset, std::string_view key, const List& entries) {
  return {.Offset = offset, .Width = 0, .Key = key, .Kind = FieldKind::List, .Entries = &entries};
}
constexpr Field QuantityField(std::uint8_t offset, std::uint8_t width, std::string_view key,
                              const ConversionRule& conversion) {
  return {.Offset = offset,
          .Width = width,
          .Key = key,
          .Kind = FieldKind::Quantity,
          .Conversion = conversion};
}

// These three stand right after the field that they are made of.

constexpr Field QuantityField(std::string_view key, const ConversionRule& conversion) {
  return QuantityField(0, 0, key, conversion);
}
constexpr Field CodeField(std::string_view key, std::span<const Code> codes,
                          const ConversionRule& conversion) {
  return {.Offset = 0,
          .Width = 0,
          .Key = key,
          .Kind = FieldKind::Code,
          .Codes = codes,
          .Conversion = conversion};
}
constexpr Field BitsField(std::string_view key, std::span<const Bit> bits,
                          const ConversionRule& conversion) {
  return {.Offset = 0,
          .Width = 0,
          .Key = key,
          .Kind = FieldKind::Bits,
          .Bits = bits,
          .Conversion = conversion};
}

}  // namespace kestrel::catalog
