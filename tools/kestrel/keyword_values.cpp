#include "tools/kestrel/keyword_values.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <optional>
#include <utility>
#include <vector>

#include "base/text.h"
#include "catalog/uuid.h"
#include "tools/kestrel/console_text.h"
#include "tools/kestrel/value_text.h"

namespace kestrel {

namespace {

using catalog::StructureFields;

std::string StringValue(const StructureFields& fields, std::string_view key,
                        SmbiosVersion /*version*/) {
  const std::string text = TextOfFirmware(fields.GetString(key));
  const std::size_t first = text.find_first_not_of(' ');
  return first == std::string::npos ? std::string()
                                    : text.substr(first, text.find_last_not_of(' ') + 1 - first);
}

// Major and minor number, which stand in two fields; all ones where there is no such thing.
std::string ReleaseValue(const StructureFields& fields, std::string_view key,
                         SmbiosVersion /*version*/) {
  constexpr std::uint64_t kNone = 0xFF;
  const auto major = fields.GetNumber(Join({key, "_major_release"}));
  const auto minor = fields.GetNumber(Join({key, "_minor_release"}));
  return !major || !minor || major == kNone || minor == kNone
             ? std::string()
             : Join({Decimal(*major), ".", Decimal(*minor)});
}

std::string UuidValue(const StructureFields& fields, std::string_view key, SmbiosVersion version) {
  const std::optional<catalog::DecodedValue> field = fields.Find(key);
  if (!field || !field->IsKnown) {
    return {};
  }
  std::string text = catalog::TextOfUuid(field->Bytes, version);
  std::transform(text.begin(), text.end(), text.begin(), [](char character) {
    return character >= 'A' && character <= 'F' ? static_cast<char>(character - 'A' + 'a')
                                                : character;
  });
  return text;
}

std::string CodeValue(const StructureFields& fields, std::string_view key,
                      SmbiosVersion /*version*/) {
  const std::optional<std::uint64_t> number = fields.GetNumber(key);
  const std::string_view text = fields.GetCodeText(key);
  return number && text.empty() ? Join({Hex(*number, 2), "h"}) : std::string(text);
}

// Families beyond one byte stand in a second field.
std::string FamilyValue(const StructureFields& fields, std::string_view key,
                        SmbiosVersion version) {
  constexpr std::uint64_t kSecondField = 0xFE;
  constexpr std::string_view kSecondKey = "processor_family_2";
  const bool isSecond = fields.GetNumber(key) == kSecondField && fields.GetNumber(kSecondKey);
  return CodeValue(fields, isSecond ? kSecondKey : key, version);
}

std::string QuantityValue(const StructureFields& fields, std::string_view key,
                          SmbiosVersion /*version*/) {
  const std::optional<std::uint64_t> quantity = fields.GetQuantity(key);
  return quantity ? TextOfQuantity(key, *quantity) : std::string();
}

constexpr Keyword kKeywords[] = {
    {"bios-vendor", 0, "vendor", StringValue},
    {"bios-version", 0, "bios_version", StringValue},
    {"bios-release-date", 0, "bios_release_date", StringValue},
    {"bios-revision", 0, "system_bios", ReleaseValue},
    {"firmware-revision", 0, "embedded_controller_firmware", ReleaseValue},
    {"system-manufacturer", 1, "manufacturer", StringValue},
    {"system-product-name", 1, "product_name", StringValue},
    {"system-version", 1, "version", StringValue},
    {"system-serial-number", 1, "serial_number", StringValue},
    {"system-uuid", 1, "uuid", UuidValue},
    {"system-sku-number", 1, "sku_number", StringValue},
    {"system-family", 1, "family", StringValue},
    {"baseboard-manufacturer", 2, "manufacturer", StringValue},
    {"baseboard-product-name", 2, "product", StringValue},
    {"baseboard-version", 2, "version", StringValue},
    {"baseboard-serial-number", 2, "serial_number", StringValue},
    {"baseboard-asset-tag", 2, "asset_tag", StringValue},
    {"chassis-manufacturer", 3, "manufacturer", StringValue},
    {"chassis-type", 3, "type", CodeValue},
    {"chassis-version", 3, "version", StringValue},
    {"chassis-serial-number", 3, "serial_number", StringValue},
    {"chassis-asset-tag", 3, "asset_tag_number", StringValue},
    {"processor-family", 4, "processor_family", FamilyValue},
    {"processor-manufacturer", 4, "processor_manufacturer", StringValue},
    {"processor-version", 4, "processor_version", StringValue},
    {"processor-frequency", 4, "current_speed_hertz", QuantityValue},
};

// How far the name is from a keyword: a character that is missing counts once, one too many twice,
// since people leave words out.
std::size_t DistanceOf(std::string_view name, std::string_view keyword) {
  constexpr std::size_t kMissing = 1;
  constexpr std::size_t kTooMany = 2;
  // From the part of the name so far to each first part of the keyword.
  std::vector<std::size_t> distances(keyword.size() + 1);
  std::iota(distances.begin(), distances.end(), std::size_t{0});
  for (const char character : name) {
    std::size_t before = distances[0];
    distances[0] += kTooMany;
    for (std::size_t column = 0; column < keyword.size(); ++column) {
      const std::size_t other =
          std::min(distances[column] + kMissing, distances[column + 1] + kTooMany);
      const std::size_t same = character == keyword[column] ? before : other;
      before = std::exchange(distances[column + 1], std::min(same, other));
    }
  }
  return distances.back();
}

}  // namespace

std::span<const Keyword> GetKeywords() { return kKeywords; }

const Keyword* FindKeyword(std::string_view name) {
  const auto* found = std::find_if(std::begin(kKeywords), std::end(kKeywords),
                                   [name](const Keyword& keyword) { return keyword.Name == name; });
  return found != std::end(kKeywords) ? found : nullptr;
}

std::string_view NearestKeyword(std::string_view name) {
  return std::min_element(std::begin(kKeywords), std::end(kKeywords),
                          [name](const Keyword& left, const Keyword& right) {
                            return DistanceOf(name, left.Name) < DistanceOf(name, right.Name);
                          })
      ->Name;
}

bool WriteKeyword(const Keyword& keyword, const catalog::TableScan& scan, SmbiosVersion version,
                  Output& output) {
  bool isAny = false;
  for (const catalog::Structure& structure : scan.Structures) {
    if (structure.Type != keyword.Type) {
      continue;
    }
    const std::string value = keyword.ValueOf(StructureFields(structure), keyword.Key, version);
    if (!value.empty()) {
      output.Write(value);
      output.Write(kLineEnd);
      isAny = true;
    }
  }
  return isAny;
}

}  // namespace kestrel
