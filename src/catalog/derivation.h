#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <variant>

#include "catalog/type_definition.h"

namespace kestrel::catalog {

// A quantity in its base unit: signed where the field that it is made of is.
using Quantity = std::variant<std::uint64_t, std::int64_t>;

// The little-endian number of `width` bytes, eight at most, at `offset`.
std::uint64_t ReadNumber(std::span<const std::uint8_t> bytes, std::size_t offset,
                         std::size_t width);

// What the derivation makes of a structure's formatted area, unless that is unknown. Its first
// field must be there; a second one that is not makes a result unknown that needs it.
std::optional<Quantity> Derive(const Derivation& derivation,
                               std::span<const std::uint8_t> formatted);

}  // namespace kestrel::catalog
