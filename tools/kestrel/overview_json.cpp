#include "tools/kestrel/overview_json.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "tools/kestrel/json_text.h"

namespace kestrel {

namespace {

// Writes objects by their members.
template <typename Writer>
class OverviewWriter {
 public:
  explicit OverviewWriter(Writer& json) : Json(json) {}

  void Write(const Overview& overview);

 private:
  void Text(std::string_view key, std::string_view text) {
    Json.PlainText(key);
    if (text.empty()) {
      Json.Null();
      return;
    }
    Scratch.clear();
    AppendQuotedFirmwareText(Scratch, text);
    Json.QuotedText(Scratch);
  }
  void Number(std::string_view key, const std::optional<std::uint64_t>& number) {
    Json.PlainText(key);
    Json.UintOrNull(number);
  }
  void Flag(std::string_view key, const std::optional<bool>& flag) {
    Json.PlainText(key);
    Json.BoolOrNull(flag);
  }
  void Begin(std::string_view key) {
    Json.PlainText(key);
    Json.StartObject();
  }
  void End() { Json.EndObject(); }

  // An array of objects, of which `forEach` hands over the rows.
  template <typename Facts>
  void List(std::string_view key, const Overview& overview,
            void (Overview::*forEach)(const Overview::Take<Facts>& take) const) {
    Json.PlainText(key);
    Json.StartArray();
    (overview.*forEach)([this](const Facts& facts) {
      Json.StartObject();
      Members(facts);
      Json.EndObject();
    });
    Json.EndArray();
  }

  void Members(const SystemFacts& system);
  void Members(const BaseBoardFacts& board);
  void Members(const ChassisFacts& chassis);
  void Members(const BiosFacts& bios);
  void Members(const ProcessorFacts& processor);
  void Members(const MemoryFacts& memory);
  void Members(const MemoryDeviceFacts& device);
  void Members(const SlotFacts& slot);
  void Members(const PortFacts& port);
  void Members(const PowerSupplyFacts& supply);
  void Members(const BatteryFacts& battery);
  void Members(const TpmFacts& tpm);

  template <typename Facts>
  void Object(std::string_view key, const Facts& facts) {
    Begin(key);
    Members(facts);
    End();
  }

  Writer& Json;
  std::string Scratch;
};

template <typename Writer>
void OverviewWriter<Writer>::Write(const Overview& overview) {
  Json.StartObject();
  Object("system", overview.GetSystem());
  Object("base_board", overview.GetBaseBoard());
  Object("chassis", overview.GetChassis());
  Object("bios", overview.GetBios());
  List("processors", overview, &Overview::ForEachProcessor);
  Begin("memory");
  Members(overview.GetMemory());
  List("devices", overview, &Overview::ForEachMemoryDevice);
  End();
  List("slots", overview, &Overview::ForEachSlot);
  List("ports", overview, &Overview::ForEachPort);
  List("power_supplies", overview, &Overview::ForEachPowerSupply);
  List("batteries", overview, &Overview::ForEachBattery);
  if (const std::optional<TpmFacts> tpm = overview.GetTpm()) {
    Object("tpm", *tpm);
  } else {
    Text("tpm", {});
  }
  Json.EndObject();
}

template <typename Writer>
void OverviewWriter<Writer>::Members(const SystemFacts& system) {
  Text("manufacturer", system.Manufacturer);
  Text("product_name", system.ProductName);
  Text("version", system.Version);
  Text("serial_number", system.SerialNumber);
  Text("uuid", system.Uuid);
  Text("sku_number", system.SkuNumber);
  Text("family", system.Family);
}

template <typename Writer>
void OverviewWriter<Writer>::Members(const BaseBoardFacts& board) {
  Text("manufacturer", board.Manufacturer);
  Text("product", board.Product);
  Text("version", board.Version);
  Text("serial_number", board.SerialNumber);
  Text("asset_tag", board.AssetTag);
}

template <typename Writer>
void OverviewWriter<Writer>::Members(const ChassisFacts& chassis) {
  Text("manufacturer", chassis.Manufacturer);
  Text("type", chassis.Type);
  Text("version", chassis.Version);
  Text("serial_number", chassis.SerialNumber);
  Text("asset_tag", chassis.AssetTag);
}

template <typename Writer>
void OverviewWriter<Writer>::Members(const BiosFacts& bios) {
  Text("vendor", bios.Vendor);
  Text("version", bios.Version);
  Text("release_date", bios.ReleaseDate);
  Number("rom_size_bytes", bios.RomSizeBytes);
  Flag("uefi", bios.Uefi);
  Flag("virtual_machine", bios.VirtualMachine);
}

template <typename Writer>
void OverviewWriter<Writer>::Members(const ProcessorFacts& processor) {
  const auto& [l1, l2, l3] = processor.CacheBytes;
  Text("socket", processor.Socket);
  Flag("populated", processor.Populated);
  Text("manufacturer", processor.Manufacturer);
  Text("version", processor.Version);
  Number("cores", processor.Cores);
  Number("cores_enabled", processor.CoresEnabled);
  Number("threads", processor.Threads);
  Number("maximum_speed_megahertz", processor.MaximumSpeedMegahertz);
  Number("current_speed_megahertz", processor.CurrentSpeedMegahertz);
  Number("l1_cache_bytes", l1);
  Number("l2_cache_bytes", l2);
  Number("l3_cache_bytes", l3);
}

template <typename Writer>
void OverviewWriter<Writer>::Members(const MemoryFacts& memory) {
  Number("installed_bytes", memory.InstalledBytes);
  Number("maximum_bytes", memory.MaximumBytes);
  Number("slots", memory.Slots);
  Number("slots_used", memory.SlotsUsed);
  Text("error_correction", memory.ErrorCorrection);
}

template <typename Writer>
void OverviewWriter<Writer>::Members(const MemoryDeviceFacts& device) {
  Text("locator", device.Locator);
  Text("bank", device.Bank);
  Number("size_bytes", device.SizeBytes);
  Text("form_factor", device.FormFactor);
  Text("type", device.Type);
  Number("speed_megatransfers_per_second", device.SpeedMegatransfersPerSecond);
  Number("configured_speed_megatransfers_per_second", device.ConfiguredSpeedMegatransfersPerSecond);
  Text("manufacturer", device.Manufacturer);
  Text("part_number", device.PartNumber);
  Text("serial_number", device.SerialNumber);
}

template <typename Writer>
void OverviewWriter<Writer>::Members(const SlotFacts& slot) {
  Text("designation", slot.Designation);
  Text("type", slot.Type);
  Flag("in_use", slot.InUse);
}

template <typename Writer>
void OverviewWriter<Writer>::Members(const PortFacts& port) {
  Text("designation", port.Designation);
  Text("connector", port.Connector);
  Text("type", port.Type);
}

template <typename Writer>
void OverviewWriter<Writer>::Members(const PowerSupplyFacts& supply) {
  Text("location", supply.Location);
  Text("name", supply.Name);
  Text("manufacturer", supply.Manufacturer);
  Text("serial_number", supply.SerialNumber);
  Number("maximum_watts", supply.MaximumWatts);
  Flag("present", supply.Present);
}

template <typename Writer>
void OverviewWriter<Writer>::Members(const BatteryFacts& battery) {
  Text("name", battery.Name);
  Text("manufacturer", battery.Manufacturer);
  Number("design_capacity_milliwatt_hours", battery.DesignCapacityMilliwattHours);
  Text("chemistry", battery.Chemistry);
}

template <typename Writer>
void OverviewWriter<Writer>::Members(const TpmFacts& tpm) {
  Text("vendor", tpm.Vendor);
  Text("version", tpm.Version);
}

}  // namespace

template <typename Writer>
void WriteJsonOverview(Writer& json, const Overview& overview) {
  OverviewWriter<Writer>(json).Write(overview);
}

template void WriteJsonOverview(JsonLineWriter& json, const Overview& overview);
template void WriteJsonOverview(JsonIndentedWriter& json, const Overview& overview);

}  // namespace kestrel
