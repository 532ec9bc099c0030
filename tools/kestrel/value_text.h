#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "catalog/type_definition.h"

// How keys and values of the catalog read for people, in texts and on pages. All texts are UTF-8
// without control characters.
namespace kestrel {

// "BIOS release date" of "bios_release_date".
std::string LabelOf(std::string_view key);

// A text of the firmware: Windows-1252 becomes UTF-8, a tab a blank, and every other control
// character U+FFFD.
std::string TextOfFirmware(std::string_view bytes);

// A number with the unit in which it is whole: "16 GiB", "1536 MiB", "1 byte".
std::string TextOfSize(std::uint64_t bytes);

// A quantity in the unit that people use for it, which its key names: "3200 MT/s", "-5 °C". Signed
// numbers are those of an std::int64_t.
std::string TextOfQuantity(std::string_view key, std::uint64_t number, bool isSigned = false);

// Decimal, or hexadecimal where the key is that of an address, an identifier or the like. `width`
// is that of the field, in bytes. A number that is among `codes` is shown by its text.
std::string TextOfNumber(std::string_view key, std::uint64_t number, std::size_t width,
                         std::span<const catalog::Code> codes = {});

// The text of a code, else the number in hexadecimal.
std::string TextOfCode(std::span<const catalog::Code> codes, std::uint64_t code, std::size_t width);

// "0A 1B 2C".
std::string TextOfBytes(std::span<const std::uint8_t> bytes);

}  // namespace kestrel
