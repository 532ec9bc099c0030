#include "tools/kestrel/json_document.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <string>
#include <string_view>
#include <vector>

#include "sample/sample_table.h"
#include "tests/support/tables.h"

namespace kestrel {
namespace {

std::string DocumentOf(const Bytes& bytes, SmbiosVersion version,
                       EntryPointKind kind = EntryPointKind::None,
                       const std::vector<std::uint8_t>& types = {}) {
  SmbiosTable table;
  table.EntryPoint.Kind = kind;
  table.EntryPoint.Version = version;
  table.EntryPoint.TableLength = static_cast<std::uint32_t>(bytes.size());
  table.Bytes = bytes;
  TextOutput output;
  WriteJsonDocument(table, {.Types = types}, output);
  output.Finish();
  return output.GetText();
}

// The document without line ends and indent.
std::string JoinLines(std::string_view document) {
  std::string joined;
  for (std::size_t index = 0; index < document.size(); ++index) {
    if (document[index] == '\n') {
      index = std::min(document.find_first_not_of(' ', index + 1), document.size());
    }
    joined.append(document.substr(index, 1));
  }
  return joined;
}

// The fields of the first structure, without line ends and indent.
std::string FieldsOf(const Bytes& table, std::uint8_t minorVersion = 6) {
  const std::string document = JoinLines(DocumentOf(table, {2, minorVersion}));
  const std::size_t start = document.find("\"fields\": ") + 10;
  return document.substr(start, document.find(",\"strings\"", start) - start);
}

TEST(JsonDocumentTest, ShowsEveryKindOfField) {
  const Bytes table =
      Join({Structure(1, {1, 2, 0, 9, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 6},
                      {"Maker \x80\x81\xFF", "PC\x7F\"\\\x01\t"}),
            {2, 19, 0x34, 0x12, 0, 0, 0, 0, 0, 0x89, 0, 0, 2, 3, 2, 0x11, 0x22, 0x33, 0x44, 0, 0},
            Structure(3, {0, 0x83, 0, 0, 0, 9, 3, 4, 3, 1, 0, 0, 0x80, 2, 1, 1, 3, 0x82, 0, 1, 1},
                      {"SKU"}),
            Structure(28, {1, 0x63, 0xCE, 0xFF, 0, 0x80}, {"CPU"}),
            Structure(32, {0, 0, 0, 0, 0, 0, 1, 0xAB, 0xCD}),
            Structure(43, {'I', 'F', 'X', 0}),
            Structure(60, {1, 2}),
            {200, 4, 0xFF, 0xFF, 'A', 'n', 'y', 0, 0}});
  EXPECT_EQ(
      JoinLines(DocumentOf(table, {2, 6}, EntryPointKind::Bits32)),
      R"({"schema": 1,"smbios": {"version": "2.6","entry_point": "_SM_","table_length": 152},)"
      R"("structures": [)"
      R"({"offset": 0,"handle": 0,"type": 1,"name": "System Information","length": 25,)"
      R"("fields": {"manufacturer": "Maker €\u0081ÿ","product_name": "PC\u007f\"\\\u0001\t",)"
      R"("version": null,"serial_number": null,"uuid": "03020100-0504-0706-0809-0A0B0C0D0E0F",)"
      R"("wake_up_type": {"code": 6,"text": "Power Switch"}},"strings": ["Maker €\u0081ÿ",)"
      R"("PC\u007f\"\\\u0001\t"],"data": "0119000001020009000102030405060708090a0b0c0d0e0f06"},)"
      R"({"offset": 44,"handle": 4660,"type": 2,"name": "Base Board Information","length": 19,)"
      R"("fields": {"manufacturer": null,"product": null,"version": null,"serial_number": null,)"
      R"("asset_tag": null,"feature_flags": {"value": 137,)"
      R"("set": ["The board is a hosting board","The board is replaceable"]},)"
      R"("location_in_chassis": null,"chassis_handle": 512,"board_type": {"code": 3,)"
      R"("text": "Server Blade"},"number_of_contained_object_handles": 2,)"
      R"("contained_object_handles": [8721,17459]},"strings": [],)"
      R"("data": "02133412000000000089000002030211223344"},)"
      R"({"offset": 65,"handle": 0,"type": 3,"name": "System Enclosure or Chassis",)"
      R"("length": 25,"fields": {"manufacturer": null,"type": {"value": 131,"code": 3,)"
      R"("text": "Desktop","chassis_lock_present": true},"version": null,"serial_number": null,)"
      R"("asset_tag_number": null,"boot_up_state": {"code": 9,"text": null},)"
      R"("power_supply_state": {"code": 3,"text": "Safe"},"thermal_state": {"code": 4,)"
      R"("text": "Warning"},"security_status": {"code": 3,"text": "None"},)"
      R"("oem_defined": 2147483649,"height": 2,"height_rack_units": 2,"number_of_power_cords": 1,)"
      R"("contained_element_count": 1,"contained_element_record_length": 3,)"
      R"("contained_elements": [{"contained_element_type": {"value": 130,"type": 2,)"
      R"("type_select": {"code": 1,"text": "SMBIOS structure type"}},)"
      R"("contained_element_minimum": 0,"contained_element_maximum": 1}],"sku_number": "SKU"},)"
      R"("strings": ["SKU"],"data": "03190000008300000009030403010000800201010382000101"},)"
      R"({"offset": 95,"handle": 0,"type": 28,"name": "Temperature Probe","length": 10,)"
      R"("fields": {"description": "CPU","location_and_status": {"value": 99,)"
      R"("location": {"code": 3,"text": "Processor"},"status": {"code": 3,"text": "OK"}},)"
      R"("maximum_value": 65486,"maximum_value_millidegrees_celsius": -5000,)"
      R"("minimum_value": 32768,"minimum_value_millidegrees_celsius": null},"strings": ["CPU"],)"
      R"("data": "1c0a00000163ceff0080"},)"
      R"({"offset": 110,"handle": 0,"type": 32,"name": "System Boot Information","length": 13,)"
      R"("fields": {"boot_status": {"code": 1,"text": "No bootable media"},)"
      R"("boot_status_data": "abcd"},"strings": [],"data": "200d000000000000000001abcd"},)"
      R"({"offset": 125,"handle": 0,"type": 43,"name": "TPM Device","length": 8,)"
      R"("fields": {"vendor_id": "IFX"},"strings": [],"data": "2b08000049465800"},)"
      R"({"offset": 135,"handle": 0,"type": 60,"name": null,"length": 6,"fields": {},)"
      R"("strings": [],"data": "3c0600000102"},)"
      R"({"offset": 143,"handle": 65535,"type": 200,"name": "OEM","length": 4,"fields": {},)"
      R"("strings": ["Any"],"data": "c804ffff"}],"overview": {)"
      R"("system": {"manufacturer": "Maker €\u0081ÿ","product_name": "PC\u007f\"\\\u0001",)"
      R"("version": null,"serial_number": null,"uuid": null,"sku_number": null,"family": null},)"
      R"("base_board": {"manufacturer": null,"product": null,"version": null,)"
      R"("serial_number": null,"asset_tag": null},"chassis": {"manufacturer": null,)"
      R"("type": "Desktop","version": null,"serial_number": null,"asset_tag": null},)"
      R"("bios": {"vendor": null,"version": null,"release_date": null,"rom_size_bytes": null,)"
      R"("uefi": null,"virtual_machine": null},"processors": [],)"
      R"("memory": {"installed_bytes": null,"maximum_bytes": null,"slots": null,)"
      R"("slots_used": null,"error_correction": null,"devices": []},"slots": [],"ports": [],)"
      R"("power_supplies": [],"batteries": [],"tpm": {"vendor": "IFX","version": null}}})");
}

TEST(JsonDocumentTest, ShowsTheSampleAtAGlance) {
  SmbiosTable table;
  table.Bytes = MakeSampleTable();
  table.EntryPoint.Version = kSampleVersion;
  TextOutput output;
  WriteJsonDocument(table, {.OneLine = true, .OnlyOverview = true}, output);
  output.Finish();
  EXPECT_EQ(output.GetText(),
            R"({"schema":1,"smbios":{"version":"2.3","entry_point":null,"table_length":0},)"
            R"("overview":{"system":{"manufacturer":"Alderwick Computers",)"
            R"("product_name":"Tarn 2400","version":"Revision B",)"
            R"("serial_number":"AW-2002-004711","uuid":"5A0C2400-11D6-4B02-9F31-00407E1820A2",)"
            R"("sku_number":null,"family":null},)"
            R"("base_board":{"manufacturer":"Alderwick Computers","product":"TN24 main board",)"
            R"("version":"B2","serial_number":"TB-118204","asset_tag":null},)"
            R"("chassis":{"manufacturer":"Alderwick Computers","type":"Mini Tower",)"
            R"("version":"T-Case 3","serial_number":"TC-77120","asset_tag":"Desk 14"},)"
            R"("bios":{"vendor":"Alderwick Firmware Works","version":"TN24-1.07",)"
            R"("release_date":"2002-05-14","rom_size_bytes":524288,"uefi":null,)"
            R"("virtual_machine":null},"processors":[{"socket":"CPU 1","populated":true,)"
            R"("manufacturer":"Quern Microdevices","version":"Quern Q4 2.40","cores":null,)"
            R"("cores_enabled":null,"threads":null,"maximum_speed_megahertz":2400,)"
            R"("current_speed_megahertz":2400,"l1_cache_bytes":8192,"l2_cache_bytes":524288,)"
            R"("l3_cache_bytes":null}],"memory":{"installed_bytes":268435456,)"
            R"("maximum_bytes":1073741824,"slots":2,"slots_used":1,)"
            R"("error_correction":"Single-bit ECC","devices":[{"locator":"DIMM 1",)"
            R"("bank":"Bank 0","size_bytes":268435456,"form_factor":"DIMM","type":"SDRAM",)"
            R"("speed_megatransfers_per_second":266,)"
            R"("configured_speed_megatransfers_per_second":null,"manufacturer":"Tessel Memory",)"
            R"("part_number":"TM256-266E","serial_number":"TM-20419"},{"locator":"DIMM 2",)"
            R"("bank":"Bank 1","size_bytes":0,"form_factor":"DIMM","type":null,)"
            R"("speed_megatransfers_per_second":null,)"
            R"("configured_speed_megatransfers_per_second":null,"manufacturer":null,)"
            R"("part_number":null,"serial_number":null}]},"slots":[{"designation":"AGP",)"
            R"("type":"AGP 4X","in_use":true},{"designation":"PCI 1","type":"PCI",)"
            R"("in_use":false}],"ports":[{"designation":"Keyboard","connector":"PS/2",)"
            R"("type":"Keyboard Port"},{"designation":"J9 Primary IDE",)"
            R"("connector":"On Board IDE","type":"Other"},{"designation":"USB 1",)"
            R"-("connector":"Access Bus (USB)","type":"USB"}],)-"
            R"("power_supplies":[{"location":"Rear","name":"Supply 1",)"
            R"("manufacturer":"Garth Power","serial_number":"GP-31007","maximum_watts":250,)"
            R"("present":true}],"batteries":[{"name":"CC-44","manufacturer":"Corrie Cells",)"
            R"("design_capacity_milliwatt_hours":44000,"chemistry":"Lithium-ion"}],"tpm":null}})"
            "\n");
}

TEST(JsonDocumentTest, ChoosesTypesAndTellsWhatIsUnknown) {
  const Bytes table = Join({Structure(60, {}), Structure(127, {9})});
  EXPECT_EQ(DocumentOf(table, {3, 10}, EntryPointKind::None, {127}), R"({
  "schema": 1,
  "smbios": {
    "version": "3.10",
    "entry_point": null,
    "table_length": 13
  },
  "structures": [
    {
      "offset": 6,
      "handle": 0,
      "type": 127,
      "name": "End-of-Table",
      "length": 5,
      "fields": {},
      "strings": [],
      "data": "7f05000009"
    }
  ]
}
)");
  EXPECT_THAT(DocumentOf({}, {2, 3}), testing::HasSubstr("\n  \"structures\": [],\n"));
}

TEST(JsonDocumentTest, EndsAtTheFirstFieldThatIsCut) {
  const struct {
    Bytes Structure;
    std::string_view Fields;
  } cases[] = {
      {Structure(16, {}), "{}"},
      {Structure(16, {3}), R"({"location": {"code": 3,"text": "System board or motherboard"}})"},
      {Structure(19, {1, 0, 0}), "{}"},
      {Structure(19, {1, 0, 0, 0, 2, 0, 0}),
       R"({"starting_address": 1,"starting_address_bytes": 1024})"},
      {Structure(1, {0, 0, 0, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15}),
       R"({"manufacturer": null,"product_name": null,"version": null,"serial_number": null})"},
      {Structure(25, {0x12, 0x31}),
       R"({"next_scheduled_power_on_month": 12,"next_scheduled_power_on_day_of_month": 31})"},
      {Structure(43, {0, 'I', 'F', 0, 2}), R"({"vendor_id": "IF","major_spec_version": 2})"},
      {Structure(14, {0, 4, 1, 0, 5, 2}),
       R"({"group_name": null,"items": [{"item_type": 4,"item_handle": 1}]})"},
      // Entries that say how long they are: none, and longer than what is left.
      {Structure(40, {2, 0, 0, 0, 0, 0}),
       R"({"number_of_additional_information_entries": 2,"additional_information_entries": []})"},
      {Structure(40, {2, 6, 0x34, 0x12, 5, 1, 0xEE, 6, 1, 0, 4, 0}, {"S"}),
       R"({"number_of_additional_information_entries": 2,"additional_information_entries": [)"
       R"({"entry_length": 6,"referenced_handle": 4660,"referenced_offset": 5,"string": "S",)"
       R"("value": "ee"}]})"},
      {Structure(42, {2, 200, 1, 2}),
       R"({"interface_type": {"code": 2,"text": "KCS: Keyboard Controller Style"},)"
       R"("interface_type_specific_data_length": 200})"},
      {Structure(42, {2, 2, 0x0A, 0x0B, 2, 3, 3, 1, 2, 3, 3, 1}),
       R"({"interface_type": {"code": 2,"text": "KCS: Keyboard Controller Style"},)"
       R"("interface_type_specific_data_length": 2,"interface_type_specific_data": "0a0b",)"
       R"("number_of_protocol_records": 2,"protocol_records": [{"protocol_type": {"code": 3,)"
       R"("text": "MCTP: Management Component Transport Protocol"},)"
       R"("protocol_type_specific_data_length": 3,"protocol_type_specific_data": "010203"}]})"},
  };
  for (const auto& test : cases) {
    EXPECT_EQ(FieldsOf(test.Structure), test.Fields);
  }
  // A list whose count lies has what is there, and nothing follows it.
  EXPECT_THAT(FieldsOf(Structure(5, {0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 255, 1, 0, 2})),
              testing::EndsWith(R"(": 255,"memory_module_configuration_handles": [1]})"));
  EXPECT_THAT(FieldsOf(Structure(45, Bytes(16, 0xFE))),
              testing::HasSubstr(R"("image_size_bytes": 18374403900871474942})"));
}

TEST(JsonDocumentTest, OrdersTheBytesOfAUuidByTheVersion) {
  const Bytes table =
      Structure(1, {0, 0, 0, 0, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 6});
  for (const std::uint8_t minorVersion : Bytes{5, 31, 33}) {
    EXPECT_THAT(FieldsOf(table, minorVersion),
                testing::HasSubstr(R"("uuid": "00010203-0405-0607-0809-0A0B0C0D0E0F")"));
  }
  EXPECT_THAT(FieldsOf(table, 51), testing::HasSubstr(R"("uuid": "03020100-0504-0706-0809-)"));
  for (const auto byte : {std::uint8_t{0}, std::uint8_t{0xFF}}) {
    EXPECT_THAT(FieldsOf(Structure(1, Bytes(20, byte))), testing::HasSubstr(R"("uuid": null})"));
  }
}

}  // namespace
}  // namespace kestrel
