#include "catalog/decoder.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <map>
#include <optional>
#include <string_view>

#include "catalog/type_catalog.h"
#include "tests/support/tables.h"

namespace kestrel {
namespace {

// Bytes put at offsets of a structure that is all zeros otherwise, and what a field then says;
// nothing where it is not known.
TEST(DecoderTest, ReadsUnitsAndWhatFirmwareDoesNotKnow) {
  const Bytes unknown(8, 0xFF);
  const Bytes ones(4, 0xFF);
  const struct {
    std::uint8_t Type;
    std::size_t Length;
    std::map<std::size_t, Bytes> Values;
    std::string_view Key;
    std::optional<std::int64_t> Number;
  } cases[] = {
      {0, 24, {{9, {0x0F}}}, "rom_size_bytes", 1048576},
      {0, 24, {{9, {0xFF}}}, "rom_size_bytes", 16777216},
      {0, 26, {{9, {0xFF}}, {24, {32, 0}}}, "rom_size_bytes", 33554432},
      {0, 26, {{9, {0xFF}}, {24, {2, 0x40}}}, "rom_size_bytes", 2147483648},
      {0, 26, {{9, {0xFF}}, {24, {2, 0x80}}}, "rom_size_bytes", std::nullopt},
      {3, 22, {{0x11, {2}}}, "height_rack_units", 2},
      {3, 22, {{0x11, {0xFF}}}, "height_rack_units", std::nullopt},
      // Entries of no bytes take none.
      {3, 22, {{0x13, {2}}, {0x15, {1}}}, "sku_number", 1},
      {4, 32, {{0x11, {0x8C}}}, "voltage_millivolts", 1200},
      {4, 32, {{0x11, {2}}}, "voltage_millivolts", 3300},
      {4, 32, {{0x11, {3}}}, "voltage_millivolts", std::nullopt},
      {4, 32, {{0x14, {0xB8, 0x0B}}}, "max_speed_hertz", 3000000000},
      {4, 48, {{0x23, {0xFF}}, {0x2A, {0, 1}}}, "cores", 256},
      {4, 48, {}, "cores", std::nullopt},
      {4, 40, {{0x23, {0xFF}}}, "cores", 255},
      {4, 48, {{0x23, {0xFF}}}, "cores", std::nullopt},
      {4, 32, {{0x11, {3}}}, "legacy_voltages", 3},
      {4, 32, {{0x11, {0x8C}}}, "legacy_voltages", std::nullopt},
      {6, 12, {{9, {0x84}}}, "installed_size_bytes", 16777216},
      {6, 12, {{9, {0x7D}}}, "installed_size_bytes", std::nullopt},
      {6, 12, {{9, {0x7C}}}, "installed_size_bytes", std::nullopt},
      {6, 12, {{9, {0x7F}}}, "installed_size_bytes", 0},
      {7, 19, {{7, {0x00, 0x02}}}, "maximum_size_bytes", 524288},
      {7, 19, {{7, {0x10, 0x80}}}, "maximum_size_bytes", 1048576},
      {7, 27, {{7, {0xFF, 0xFF}}, {19, {0, 8, 0, 0x80}}}, "maximum_size_bytes", 134217728},
      {15, 23, {{10, {2}}, {16, {0x70, 0, 0x71}}}, "index_port", 0x70},
      {15, 23, {{10, {2}}, {16, {0x70, 0, 0x71}}}, "data_port", 0x71},
      {15, 23, {{10, {3}}}, "data_port", std::nullopt},
      {16, 15, {{7, {0, 0, 0, 0x80}}}, "maximum_capacity_bytes", std::nullopt},
      {16, 23, {{10, {0x80}}, {22, {0x40}}}, "maximum_capacity_bytes", 4611686018427387904},
      {17, 28, {{12, {0x00, 0x80}}}, "size_bytes", 0},
      {17, 28, {{12, {0x00, 0x82}}}, "size_bytes", 524288},
      {17, 28, {{12, {0xFF, 0xFF}}}, "size_bytes", std::nullopt},
      {17, 28, {{12, {0xFF, 0x7F}}}, "size_bytes", 34358689792},
      {17, 32, {{12, {0xFF, 0x7F}}, {29, {0x80}}}, "size_bytes", 34359738368},
      {17, 92, {{0x4C, unknown}}, "logical_size_bytes", std::nullopt},
      {18, 23, {{14, {0x80}}}, "memory_array_error_address_bytes", std::nullopt},
      {18, 23, {}, "syndrome", std::nullopt},
      {19, 15, {{8, {0xFF, 0xFF}}}, "ending_address_bytes", 67108863},
      {19, 31, {{4, ones}, {15, {7}}}, "starting_address_bytes", 7},
      {19, 31, {{8, ones}, {23, {7}}}, "ending_address_bytes", 4398046511103},
      {19, 31, {{4, ones}, {8, ones}, {23, {7}}}, "ending_address_bytes", 7},
      {22, 26, {{10, {100}}}, "design_capacity_milliwatt_hours", 100},
      {22, 16, {{10, {100}}}, "design_capacity_milliwatt_hours", 100},
      {22, 26, {{10, {100}}, {21, {10}}}, "design_capacity_milliwatt_hours", 1000},
      {23, 13, {{9, {2}}}, "timer_interval_seconds", 120},
      {23, 13, {{9, {0xFF, 0xFF}}}, "timer_interval_seconds", std::nullopt},
      {25, 9, {{4, {0x12, 0x31, 0x23, 0x59, 0x58}}}, "next_scheduled_power_on_second", 58},
      {25, 9, {{4, {0x1A}}}, "next_scheduled_power_on_month", std::nullopt},
      {25, 9, {{4, {0x13}}}, "next_scheduled_power_on_month", std::nullopt},
      {25, 9, {}, "next_scheduled_power_on_month", std::nullopt},
      {28, 20, {{10, {0xFE, 0xFF}}}, "resolution_millidegrees_celsius", -2},
      {33, 31, {{26, {0x80}}}, "device_error_address_bytes", std::nullopt},
      {36, 16, {{4, {0xFE, 0xFF}}}, "lower_threshold_non_critical", -2},
      {36, 16, {{6, {0x00, 0x80}}}, "upper_threshold_non_critical", std::nullopt},
      {38, 18, {{6, {0x20}}}, "i2c_target_address_7_bit", 0x10},
      {38, 18, {{8, {0xA3, 0x0C}}}, "base_address_space", 1},
      {38, 18, {{8, {0xA3, 0x0C}}}, "interface_address", 0xCA2},
      {38, 16, {{8, {0xA2, 0x0C}}}, "interface_address", 0xCA2},
      {38, 18, {{8, {0xA3, 0x0C}}, {16, {0x50}}}, "interface_address", 0xCA3},
      {38, 18, {{4, {4}}, {8, {0x20}}}, "interface_address", 0x10},
      {38, 18, {{4, {4}}, {8, {0x21}}}, "base_address_space", std::nullopt},
  };
  for (const auto& test : cases) {
    Bytes bytes(test.Length);
    for (const auto& [offset, value] : test.Values) {
      std::copy(value.begin(), value.end(), bytes.begin() + static_cast<std::ptrdiff_t>(offset));
    }
    catalog::Structure structure;
    structure.Formatted = bytes;
    std::optional<std::int64_t> number = -1;
    for (const auto& field : DecodeFields(structure, *catalog::FindStructureType(test.Type))) {
      if (field.Definition->Key == test.Key) {
        number = std::nullopt;
        if (field.IsKnown) {
          number = static_cast<std::int64_t>(field.Number);
        }
      }
    }
    EXPECT_EQ(number, test.Number) << "type " << int{test.Type} << ", " << test.Key;
  }
}

}  // namespace
}  // namespace kestrel
