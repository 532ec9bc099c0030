#include "catalog/derivation.h"

#include "base/table_cursor.h"

namespace kestrel::catalog {

namespace {

constexpr std::uint64_t kKiB = 1024;
constexpr std::uint64_t kMiB = 1024 * kKiB;
constexpr std::uint64_t kGiB = 1024 * kMiB;

using Unsigned = std::optional<std::uint64_t>;

// The numbers that a derivation starts from. The second one is not there in a structure that is too
// short for it, as those of older versions are; what refers to it there is taken at its word.
struct Operands {
  std::uint64_t First;
  Unsigned Second;
};

Unsigned PowerOfMiB(std::uint64_t exponent) {
  constexpr std::uint64_t kLargestExponent = 43;
  return exponent <= kLargestExponent ? Unsigned(kMiB << exponent) : std::nullopt;
}

Unsigned Scale(const Derivation& derivation, std::uint64_t value) {
  const bool isUnknown = (derivation.HasUnknown && value == derivation.Unknown) ||
                         (derivation.ZeroIsUnknown && value == 0);
  return isUnknown ? std::nullopt : Unsigned(value * static_cast<std::uint64_t>(derivation.Factor));
}

Unsigned ScaleOrExtend(const Derivation& derivation, const Operands& operands) {
  if (operands.First != derivation.Unknown) {
    return Scale(derivation, operands.First);
  }
  if (!operands.Second || (derivation.ZeroIsUnknown && *operands.Second == 0)) {
    return std::nullopt;
  }
  return *operands.Second * static_cast<std::uint64_t>(derivation.SecondFactor);
}

Unsigned RomSize(const Operands& operands) {
  if (operands.First != 0xFF || !operands.Second) {
    return (operands.First + 1) * 64 * kKiB;
  }
  const std::uint64_t size = *operands.Second & 0x3FFFU;
  switch (*operands.Second >> 14) {
    case 0:
      return size * kMiB;
    case 1:
      return size * kGiB;
    default:
      return std::nullopt;
  }
}

Unsigned CacheSize(const Operands& operands) {
  const bool isExtended = operands.First == 0xFFFF && operands.Second;
  const std::uint64_t value = isExtended ? *operands.Second : operands.First;
  const std::uint64_t granularity = isExtended ? 1U << 31 : 1U << 15;
  return (value & (granularity - 1)) * ((value & granularity) != 0 ? 64 * kKiB : kKiB);
}

Unsigned MemoryDeviceSize(const Operands& operands) {
  if (operands.First == 0xFFFF) {
    return std::nullopt;
  }
  if (operands.First == 0x7FFF && operands.Second) {
    return (*operands.Second & 0x7FFFFFFFU) * kMiB;
  }
  return (operands.First & 0x7FFFU) * ((operands.First & 0x8000U) != 0 ? kKiB : kMiB);
}

Unsigned MemoryModuleSize(std::uint64_t first) {
  switch (first & 0x7FU) {
    case 0x7D:
      return std::nullopt;
    case 0x7E:
    case 0x7F:
      return 0;
    default:
      return PowerOfMiB(first & 0x7FU);
  }
}

Unsigned RangeEdge(const Operands& operands, std::uint64_t byteOfKiB) {
  if (operands.First == 0xFFFFFFFF && operands.Second) {
    return operands.Second;
  }
  return operands.First * kKiB + byteOfKiB;
}

Unsigned ProcessorVoltage(std::uint64_t first) {
  if ((first & 0x80U) != 0) {
    return (first & 0x7FU) * 100;
  }
  switch (first & 7U) {
    case 1:
      return 5000;
    case 2:
      return 3300;
    case 4:
      return 2900;
    default:
      return std::nullopt;
  }
}

Unsigned BatteryCapacity(const Operands& operands) {
  return operands.First == 0 ? std::nullopt
                             : Unsigned(operands.First * operands.Second.value_or(1));
}

Unsigned DeriveUnsigned(const Derivation& derivation, const Operands& operands) {
  switch (derivation.How) {
    case Formula::Scaled:
    case Formula::ScaledSigned:
      return Scale(derivation, operands.First);
    case Formula::ScaledOrExtended:
      return ScaleOrExtend(derivation, operands);
    case Formula::RomSize:
      return RomSize(operands);
    case Formula::CacheSize:
      return CacheSize(operands);
    case Formula::MemoryDeviceSize:
      return MemoryDeviceSize(operands);
    case Formula::MemoryModuleSize:
      return MemoryModuleSize(operands.First);
    case Formula::MaximumModuleSize:
      return PowerOfMiB(operands.First);
    case Formula::RangeStart:
      return RangeEdge(operands, 0);
    case Formula::RangeEnd:
      return RangeEdge(operands, kKiB - 1);
    case Formula::ProcessorVoltage:
      return ProcessorVoltage(operands.First);
    case Formula::BatteryCapacity:
      return BatteryCapacity(operands);
  }
  return std::nullopt;
}

}  // namespace

std::uint64_t ReadNumber(std::span<const std::uint8_t> bytes, std::size_t offset,
                         std::size_t width) {
  TableCursor cursor(bytes);
  cursor.MoveTo(offset);
  std::uint64_t number = 0;
  for (std::size_t index = 0; index < width; ++index) {
    number |= std::uint64_t{cursor.U8()} << (8 * index);
  }
  return number;
}

std::optional<Quantity> Derive(const Derivation& derivation,
                               std::span<const std::uint8_t> formatted) {
  Operands operands{ReadNumber(formatted, derivation.First, derivation.FirstWidth), std::nullopt};
  if (derivation.Second != 0 &&
      std::size_t{derivation.Second} + derivation.SecondWidth <= formatted.size()) {
    operands.Second = ReadNumber(formatted, derivation.Second, derivation.SecondWidth);
  }
  const Unsigned number = DeriveUnsigned(derivation, operands);
  if (!number) {
    return std::nullopt;
  }
  if (derivation.How == Formula::ScaledSigned) {
    return std::int64_t{static_cast<std::int16_t>(operands.First)} * derivation.Factor;
  }
  return *number;
}

}  // namespace kestrel::catalog
