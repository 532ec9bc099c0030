#include "catalog/type_catalog.h"

#include <gtest/gtest.h>
#include <string>

#include "base/text.h"
#include "catalog/type_definition.h"

namespace kestrel::catalog {
namespace {

TEST(TypeCatalogTest, NamesEveryPublishedType) {
  const struct {
    std::uint8_t Type;
    std::string_view Name;
  } cases[] = {
      {31, "Boot Integrity Services (BIS) Entry Point"},
      {46, "String Property"},
      {47, ""},
      {126, "Inactive"},
      {127, "End-of-Table"},
      {128, "OEM"},
  };
  for (const auto& test : cases) {
    EXPECT_EQ(GetTypeName(test.Type), test.Name) << int{test.Type};
  }
  for (std::uint8_t type = 0; type <= 46; ++type) {
    EXPECT_NE(GetTypeName(type), "") << int{type};
  }
}

// The keys of fields, in order; those of parts and entries follow in brackets.
std::string KeysOf(std::span<const Field> fields) {
  std::string keys;
  for (const Field& field : fields) {
    if (field.Kind == FieldKind::Reserved) {
      continue;
    }
    Append(keys, {keys.empty() ? "" : " ", field.Key});
    std::string inside;
    for (const Part& part : field.Parts) {
      Append(inside, {inside.empty() ? "" : " ", part.Key});
    }
    if (field.Entries != nullptr) {
      inside = KeysOf(field.Entries->Fields);
    }
    if (!inside.empty()) {
      Append(keys, {"[", inside, "]"});
    }
  }
  return keys;
}

TEST(TypeCatalogTest, KeepsTheKeysOfJson) {
  const struct {
    std::uint8_t Type;
    std::string_view Keys;
  } cases[] = {
      {0,
       "vendor bios_version bios_starting_address_segment bios_release_date bios_rom_size "
       "rom_size_bytes bios_characteristics bios_characteristics_extension_byte_1 "
       "bios_characteristics_extension_byte_2 system_bios_major_release "
       "system_bios_minor_release embedded_controller_firmware_major_release "
       "embedded_controller_firmware_minor_release extended_bios_rom_size[size unit]"},
      {1,
       "manufacturer product_name version serial_number uuid wake_up_type sku_number "
       "family"},
      {2,
       "manufacturer product version serial_number asset_tag feature_flags "
       "location_in_chassis chassis_handle board_type number_of_contained_object_handles "
       "contained_object_handles"},
      {3,
       "manufacturer type[chassis_lock_present] version serial_number asset_tag_number "
       "boot_up_state power_supply_state thermal_state security_status oem_defined height "
       "height_rack_units number_of_power_cords contained_element_count "
       "contained_element_record_length contained_elements[contained_element_type[type "
       "type_select] contained_element_minimum contained_element_maximum] sku_number "
       "rack_type rack_height"},
      {4,
       "socket_designation processor_type processor_family processor_manufacturer "
       "processor_id processor_version voltage voltage_millivolts legacy_voltages "
       "external_clock external_clock_hertz max_speed max_speed_hertz current_speed "
       "current_speed_hertz status[cpu_status socket_populated] processor_upgrade "
       "l1_cache_handle l2_cache_handle l3_cache_handle serial_number asset_tag "
       "part_number core_count cores core_enabled enabled_cores thread_count threads "
       "processor_characteristics processor_family_2 core_count_2 core_enabled_2 "
       "thread_count_2 thread_enabled socket_type"},
      {5,
       "error_detecting_method error_correcting_capability supported_interleave "
       "current_interleave maximum_memory_module_size maximum_memory_module_size_bytes "
       "supported_speeds supported_memory_types memory_module_voltage "
       "number_of_associated_memory_slots memory_module_configuration_handles "
       "enabled_error_correcting_capabilities"},
      {6,
       "socket_designation bank_connections[second_row_address_strobe "
       "first_row_address_strobe] current_speed current_speed_nanoseconds "
       "current_memory_type installed_size[size double_bank_connection] "
       "installed_size_bytes enabled_size[size double_bank_connection] enabled_size_bytes "
       "error_status"},
      {7,
       "socket_designation cache_configuration[cache_level cache_socketed location "
       "enabled_at_boot_time operational_mode] maximum_cache_size maximum_size_bytes "
       "installed_size installed_size_bytes supported_sram_type current_sram_type "
       "cache_speed cache_speed_nanoseconds error_correction_type system_cache_type "
       "associativity maximum_cache_size_2 installed_cache_size_2"},
      {8,
       "internal_reference_designator internal_connector_type "
       "external_reference_designator external_connector_type port_type"},
      {9,
       "slot_designation slot_type slot_data_bus_width current_usage slot_length slot_id "
       "slot_characteristics_1 slot_characteristics_2 segment_group_number bus_number "
       "device_function_number[function device] data_bus_width peer_grouping_count "
       "peer_groups[segment_group_number bus_number device_function_number[function "
       "device] data_bus_width] slot_information slot_physical_width slot_pitch "
       "slot_height"},
      {10, "devices[device_type[enabled] description_string]"},
      {11, "count"},
      {12, "count"},
      {13, "installable_languages flags current_language"},
      {14, "group_name items[item_type item_handle]"},
      {15,
       "log_area_length log_header_start_offset log_data_start_offset access_method "
       "log_status log_change_token access_method_address index_port data_port "
       "log_header_format number_of_supported_log_type_descriptors "
       "length_of_each_log_type_descriptor "
       "list_of_supported_event_log_type_descriptors[log_type variable_data_format_type]"},
      {16,
       "location use memory_error_correction maximum_capacity maximum_capacity_bytes "
       "memory_error_information_handle number_of_memory_devices extended_maximum_capacity"},
      {17,
       "physical_memory_array_handle memory_error_information_handle total_width "
       "total_width_bits data_width data_width_bits size size_bytes form_factor device_set "
       "device_locator bank_locator memory_type type_detail speed "
       "speed_megatransfers_per_second manufacturer serial_number asset_tag part_number "
       "attributes[rank] extended_size configured_memory_speed "
       "configured_memory_speed_megatransfers_per_second minimum_voltage "
       "minimum_voltage_millivolts maximum_voltage maximum_voltage_millivolts "
       "configured_voltage configured_voltage_millivolts memory_technology "
       "memory_operating_mode_capability firmware_version module_manufacturer_id "
       "module_product_id memory_subsystem_controller_manufacturer_id "
       "memory_subsystem_controller_product_id non_volatile_size non_volatile_size_bytes "
       "volatile_size volatile_size_bytes cache_size cache_size_bytes logical_size "
       "logical_size_bytes extended_speed extended_configured_memory_speed "
       "pmic0_manufacturer_id pmic0_revision_number rcd_manufacturer_id "
       "rcd_revision_number"},
      {18,
       "error_type error_granularity error_operation vendor_syndrome syndrome "
       "memory_array_error_address memory_array_error_address_bytes device_error_address "
       "device_error_address_bytes error_resolution error_resolution_bytes"},
      {19,
       "starting_address starting_address_bytes ending_address ending_address_bytes "
       "memory_array_handle partition_width extended_starting_address "
       "extended_ending_address"},
      {20,
       "starting_address starting_address_bytes ending_address ending_address_bytes "
       "memory_device_handle memory_array_mapped_address_handle partition_row_position "
       "partition_row interleave_position interleave_order interleaved_data_depth "
       "interleaved_rows extended_starting_address extended_ending_address"},
      {21, "type interface number_of_buttons"},
      {22,
       "location manufacturer manufacture_date serial_number device_name device_chemistry "
       "design_capacity design_capacity_milliwatt_hours design_voltage "
       "design_voltage_millivolts sbds_version_number maximum_error_in_battery_data "
       "maximum_error_percent sbds_serial_number sbds_manufacture_date[day month "
       "years_since_1980] sbds_device_chemistry design_capacity_multiplier oem_specific"},
      {23,
       "capabilities[status_enabled boot_option boot_option_on_limit watchdog_timer] "
       "reset_count resets reset_limit allowed_resets timer_interval "
       "timer_interval_seconds timeout timeout_seconds"},
      {24,
       "hardware_security_settings[front_panel_reset_status administrator_password_status "
       "keyboard_password_status power_on_password_status]"},
      {25,
       "next_scheduled_power_on_month next_scheduled_power_on_day_of_month "
       "next_scheduled_power_on_hour next_scheduled_power_on_minute "
       "next_scheduled_power_on_second"},
      {26,
       "description location_and_status[location status] maximum_value "
       "maximum_value_millivolts minimum_value minimum_value_millivolts resolution "
       "resolution_microvolts tolerance tolerance_millivolts accuracy "
       "accuracy_parts_per_million oem_defined nominal_value nominal_value_millivolts"},
      {27,
       "temperature_probe_handle device_type_and_status[device_type status] "
       "cooling_unit_group oem_defined nominal_speed nominal_speed_rpm description"},
      {28,
       "description location_and_status[location status] maximum_value "
       "maximum_value_millidegrees_celsius minimum_value "
       "minimum_value_millidegrees_celsius resolution resolution_millidegrees_celsius "
       "tolerance tolerance_millidegrees_celsius accuracy accuracy_parts_per_million "
       "oem_defined nominal_value nominal_value_millidegrees_celsius"},
      {29,
       "description location_and_status[location status] maximum_value "
       "maximum_value_milliamperes minimum_value minimum_value_milliamperes resolution "
       "resolution_microamperes tolerance tolerance_milliamperes accuracy "
       "accuracy_parts_per_million oem_defined nominal_value nominal_value_milliamperes"},
      {30, "manufacturer_name connections"},
      {31, "checksum bis_entry_16 bis_entry_32"},
      {32, "boot_status boot_status_data"},
      {33,
       "error_type error_granularity error_operation vendor_syndrome syndrome "
       "memory_array_error_address memory_array_error_address_bytes device_error_address "
       "device_error_address_bytes error_resolution error_resolution_bytes"},
      {34, "description type address address_type"},
      {35, "description management_device_handle component_handle threshold_handle"},
      {36,
       "lower_threshold_non_critical upper_threshold_non_critical lower_threshold_critical "
       "upper_threshold_critical lower_threshold_non_recoverable "
       "upper_threshold_non_recoverable"},
      {37, "channel_type maximum_channel_load memory_device_count memory_devices[load handle]"},
      {38,
       "interface_type ipmi_specification_revision[minor major] i2c_target_address "
       "i2c_target_address_7_bit nv_storage_device_address base_address interface_address "
       "base_address_space base_address_modifier_interrupt_info[interrupt_trigger_mode "
       "interrupt_polarity interrupt_info_specified ls_bit_for_addresses register_spacing] "
       "interrupt_number"},
      {39,
       "power_unit_group location device_name manufacturer serial_number asset_tag_number "
       "model_part_number revision_level max_power_capacity max_power_capacity_watts "
       "power_supply_characteristics[hot_replaceable present unplugged_from_the_wall "
       "input_voltage_range_switching status type] input_voltage_probe_handle "
       "cooling_device_handle input_current_probe_handle"},
      {40,
       "number_of_additional_information_entries "
       "additional_information_entries[entry_length referenced_handle referenced_offset "
       "string value]"},
      {41,
       "reference_designation device_type[enabled] device_type_instance "
       "segment_group_number bus_number device_function_number[function device]"},
      {42,
       "interface_type interface_type_specific_data_length interface_type_specific_data "
       "number_of_protocol_records protocol_records[protocol_type "
       "protocol_type_specific_data_length protocol_type_specific_data]"},
      {43,
       "vendor_id major_spec_version minor_spec_version firmware_version_1 "
       "firmware_version_2 description characteristics oem_defined"},
      {44, "referenced_handle block_length processor_type processor_specific_data"},
      {45,
       "firmware_component_name firmware_version firmware_version_format firmware_id "
       "firmware_id_format release_date manufacturer lowest_supported_firmware_version "
       "image_size image_size_bytes characteristics state number_of_associated_components "
       "associated_component_handles"},
      {46, "string_property_id string_property_value parent_handle"},
  };
  for (const auto& test : cases) {
    const StructureType* type = FindStructureType(test.Type);
    ASSERT_NE(type, nullptr) << int{test.Type};
    EXPECT_EQ(KeysOf(type->Fields), test.Keys) << int{test.Type};
  }
}

TEST(TypeCatalogTest, FindsTheTextOfACodeOrItsRange) {
  const Code codes[] = {{1, "One"}, {0x80, 0xFE, "Range"}};
  std::string texts;
  for (const std::uint64_t code : {0x00U, 0x01U, 0x02U, 0x7FU, 0x80U, 0xFEU, 0xFFU}) {
    texts.append(FindText(codes, code)).append(";");
  }
  EXPECT_EQ(texts, ";One;;;Range;Range;;");
}

}  // namespace
}  // namespace kestrel::catalog
