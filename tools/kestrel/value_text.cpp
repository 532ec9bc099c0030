#include "tools/kestrel/value_text.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "base/text.h"
#include "catalog/type_catalog.h"
#include "tools/kestrel/windows_1252.h"

namespace kestrel {

namespace {

// Words of keys that are not written like others; in order.
constexpr std::pair<std::string_view, std::string_view> kAcronyms[] = {
    {"bios", "BIOS"}, {"bis", "BIS"},   {"cpu", "CPU"}, {"i2c", "I2C"},     {"id", "ID"},
    {"ipmi", "IPMI"}, {"l1", "L1"},     {"l2", "L2"},   {"l3", "L3"},       {"ls", "LS"},
    {"nv", "NV"},     {"oem", "OEM"},   {"pci", "PCI"}, {"pmic0", "PMIC0"}, {"rcd", "RCD"},
    {"rom", "ROM"},   {"sbds", "SBDS"}, {"sku", "SKU"}, {"sram", "SRAM"},   {"tpm", "TPM"},
    {"uuid", "UUID"},
};

// Words of the keys whose numbers are hexadecimal.
constexpr std::string_view kHexadecimal[] = {
    "address", "bis",  "bus",      "checksum",    "firmware_version", "id",       "oem",
    "offset",  "port", "revision", "sbds_serial", "segment",          "syndrome", "token",
};

// What keys of quantities end in. A shown number has `Decimals` digits after the point at most, the
// last ones of the quantity.
struct Unit {
  std::string_view Ending;
  int Decimals;
  std::string_view Text;
};
constexpr Unit kUnits[] = {
    {"_bits", 0, " bits"},
    {"_hertz", 6, " MHz"},
    {"_megatransfers_per_second", 0, " MT/s"},
    {"_microamperes", 3, " mA"},
    {"_microvolts", 3, " mV"},
    {"_milliamperes", 3, " A"},
    {"_millidegrees_celsius", 3, " °C"},
    {"_millivolts", 3, " V"},
    {"_milliwatt_hours", 3, " Wh"},
    {"_nanoseconds", 0, " ns"},
    {"_parts_per_million", 4, " %"},
    {"_percent", 0, " %"},
    {"_rack_units", 0, " U"},
    {"_rpm", 0, " rpm"},
    {"_seconds", 0, " s"},
    {"_watts", 0, " W"},
};

// Whether one or more whole words of the key are these.
bool HasWord(std::string_view key, std::string_view word) {
  for (std::size_t start = key.find(word); start != std::string_view::npos;
       start = key.find(word, start + 1)) {
    const std::size_t end = start + word.size();
    if ((start == 0 || key[start - 1] == '_') && (end == key.size() || key[end] == '_')) {
      return true;
    }
  }
  return false;
}

bool IsHexadecimal(std::string_view key) {
  return std::any_of(std::begin(kHexadecimal), std::end(kHexadecimal),
                     [key](std::string_view word) { return HasWord(key, word); });
}

std::string HexadecimalOf(std::uint64_t number, std::size_t width) {
  return Join({Hex(number, 2 * width), "h"});
}

// The number with the point before its last `decimals` digits, without zeros at the end.
std::string TextOfDecimal(std::uint64_t magnitude, int decimals) {
  std::uint64_t one = 1;
  for (int count = 0; count < decimals; ++count) {
    one *= 10;
  }
  std::string text = Join({Decimal(magnitude / one)});
  if (magnitude % one != 0) {
    // The digit before the fraction keeps its zeros.
    const std::string fraction = Join({Decimal(one + magnitude % one)}).substr(1);
    Append(text, {".", std::string_view(fraction).substr(0, fraction.find_last_not_of('0') + 1)});
  }
  return text;
}

}  // namespace

std::string LabelOf(std::string_view key) {
  std::string label;
  while (!key.empty()) {
    const std::string_view word = key.substr(0, key.find('_'));
    key.remove_prefix(std::min(word.size() + 1, key.size()));
    const auto acronym =
        std::lower_bound(std::begin(kAcronyms), std::end(kAcronyms), word,
                         [](const auto& row, std::string_view text) { return row.first < text; });
    const bool isAcronym = acronym != std::end(kAcronyms) && acronym->first == word;
    Append(label, {label.empty() ? "" : " ", isAcronym ? acronym->second : word});
  }
  if (!label.empty() && label.front() >= 'a' && label.front() <= 'z') {
    label.front() = static_cast<char>(label.front() - 'a' + 'A');
  }
  return label;
}

std::string TextOfFirmware(std::string_view bytes) {
  std::string text;
  text.reserve(bytes.size());
  for (const char byte : bytes) {
    const char16_t unit = FromWindows1252(static_cast<unsigned char>(byte));
    const bool isControl = unit < 0x20 || (unit >= 0x7F && unit < 0xA0);
    AppendUtf8(text, byte == '\t' ? u' ' : isControl ? kReplacement : unit);
  }
  return text;
}

std::string TextOfSize(std::uint64_t bytes) {
  constexpr std::string_view kSizes[] = {" bytes", " KiB", " MiB", " GiB", " TiB", " PiB", " EiB"};
  const std::string_view* unit = std::begin(kSizes);
  for (; bytes != 0 && bytes % 1024 == 0; bytes /= 1024) {
    ++unit;
  }
  return Join({Decimal(bytes), bytes == 1 && unit == std::begin(kSizes) ? " byte" : *unit});
}

std::string TextOfQuantity(std::string_view key, std::uint64_t number, bool isSigned) {
  if (IsHexadecimal(key)) {
    constexpr std::size_t kAddressWidth = 4;
    return HexadecimalOf(number, key.ends_with("_bytes") ? kAddressWidth : number > 0xFF ? 2 : 1);
  }
  if (key.ends_with("_bytes")) {
    return TextOfSize(number);
  }
  constexpr Unit kNone = {"", 0, ""};
  const auto* found = std::find_if(std::begin(kUnits), std::end(kUnits),
                                   [key](const Unit& row) { return key.ends_with(row.Ending); });
  const Unit& unit = found != std::end(kUnits) ? *found : kNone;
  const bool isNegative = isSigned && static_cast<std::int64_t>(number) < 0;
  return Join({isNegative ? "-" : "",
               TextOfDecimal(isNegative ? 0 - number : number, unit.Decimals), unit.Text});
}

std::string TextOfNumber(std::string_view key, std::uint64_t number, std::size_t width,
                         std::span<const catalog::Code> codes) {
  const std::string_view text = catalog::FindText(codes, number);
  return !text.empty()        ? std::string(text)
         : IsHexadecimal(key) ? HexadecimalOf(number, width)
                              : Join({Decimal(number)});
}

std::string TextOfCode(std::span<const catalog::Code> codes, std::uint64_t code,
                       std::size_t width) {
  const std::string_view text = catalog::FindText(codes, code);
  return text.empty() ? HexadecimalOf(code, width) : std::string(text);
}

std::string TextOfBytes(std::span<const std::uint8_t> bytes) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string text;
  text.reserve(3 * bytes.size());
  // By digits, since a piece for each byte is 9% of a page's instructions.
  for (const std::uint8_t byte : bytes) {
    if (!text.empty()) {
      text.push_back(' ');
    }
    text.push_back(kDigits[byte >> 4]);
    text.push_back(kDigits[byte & 0xFU]);
  }
  return text;
}

}  // namespace kestrel
