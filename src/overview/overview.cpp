#include "overview/overview.h"

#include <algorithm>
#include <iterator>
#include <limits>

#include "base/text.h"
#include "catalog/meant_version.h"
#include "catalog/uuid.h"
#include "overview/placeholders.h"
#include "overview/release_date.h"

namespace kestrel {

namespace {

using catalog::Structure;
using catalog::StructureFields;
using Quantity = std::optional<std::uint64_t>;

constexpr std::uint8_t kBios = 0;
constexpr std::uint8_t kSystem = 1;
constexpr std::uint8_t kBaseBoard = 2;
constexpr std::uint8_t kChassis = 3;
constexpr std::uint8_t kProcessor = 4;
constexpr std::uint8_t kMemoryController = 5;
constexpr std::uint8_t kMemoryModule = 6;
constexpr std::uint8_t kCache = 7;
constexpr std::uint8_t kPort = 8;
constexpr std::uint8_t kSlot = 9;
constexpr std::uint8_t kMemoryArray = 16;
constexpr std::uint8_t kMemoryDevice = 17;
constexpr std::uint8_t kBattery = 22;
constexpr std::uint8_t kPowerSupply = 39;
constexpr std::uint8_t kTpm = 43;
constexpr std::uint8_t kTypes[] = {
    kBios,         kSystem,      kBaseBoard, kChassis, kProcessor,   kMemoryController,
    kMemoryModule, kCache,       kPort,      kSlot,    kMemoryArray, kMemoryDevice,
    kBattery,      kPowerSupply, kTpm,
};

constexpr std::uint64_t kHertzPerMegahertz = 1000000;

std::string_view TextOf(const StructureFields& fields, std::string_view key) {
  return WithoutPlaceholder(fields.GetString(key));
}

// The name of a place, which may be as short as "0".
std::string_view PlaceOf(const StructureFields& fields, std::string_view key) {
  const std::string_view name = fields.GetString(key);
  return name.size() == 1 && name != " " ? name : WithoutPlaceholder(name);
}

std::string_view Unless(std::string_view nothing, std::string_view text) {
  return text == nothing ? std::string_view() : text;
}

std::string_view CodeOf(const StructureFields& fields, std::string_view key) {
  return Unless("Unknown", fields.GetCodeText(key));
}

Quantity MegahertzOf(const StructureFields& fields, std::string_view key) {
  const Quantity hertz = fields.GetQuantity(key);
  return hertz ? Quantity(*hertz / kHertzPerMegahertz) : std::nullopt;
}

// A sum that is unknown once one of its parts is, or once it is too large for a number.
class Sum {
 public:
  void Add(Quantity part) {
    IsKnown = IsKnown && part && *part <= std::numeric_limits<std::uint64_t>::max() - Total;
    Total = IsKnown ? Total + *part : 0;
    ++Count;
  }
  Quantity Get() const { return IsKnown && Count != 0 ? Quantity(Total) : std::nullopt; }

 private:
  std::uint64_t Total = 0;
  std::size_t Count = 0;
  bool IsKnown = true;
};

// The one text that all of several have.
class SameText {
 public:
  void Add(std::string_view text) {
    Text = !IsFirst && text != Text ? std::string_view() : text;
    IsFirst = false;
  }
  std::string_view Get() const { return Text; }

 private:
  std::string_view Text;
  bool IsFirst = true;
};

// Of a memory device or module.
Quantity SizeOf(const StructureFields& fields) {
  const Quantity size = fields.GetQuantity("size_bytes");
  return size ? size : fields.GetQuantity("installed_size_bytes");
}

MemoryDeviceFacts DeviceOf(const StructureFields& fields) {
  return {
      .Array = fields.GetNumber("physical_memory_array_handle"),
      .Locator = PlaceOf(fields, "device_locator"),
      .Bank = PlaceOf(fields, "bank_locator"),
      .SizeBytes = SizeOf(fields),
      .FormFactor = CodeOf(fields, "form_factor"),
      .Type = CodeOf(fields, "memory_type"),
      .SpeedMegatransfersPerSecond = fields.GetQuantity("speed_megatransfers_per_second"),
      .ConfiguredSpeedMegatransfersPerSecond =
          fields.GetQuantity("configured_memory_speed_megatransfers_per_second"),
      .Manufacturer = TextOf(fields, "manufacturer"),
      .PartNumber = TextOf(fields, "part_number"),
      .SerialNumber = TextOf(fields, "serial_number"),
  };
}

// The text of the first of the bits that is set.
std::string_view FirstOf(const StructureFields& fields, std::string_view key,
                         std::initializer_list<std::uint8_t> bits) {
  const std::optional<catalog::DecodedValue> field = fields.Find(key);
  for (const std::uint8_t bit : bits) {
    if (field && (field->Number >> bit & 1U) != 0) {
      const auto known = field->Definition->Bits;
      return std::find_if(known.begin(), known.end(),
                          [bit](const catalog::Bit& row) { return row.Number == bit; })
          ->Text;
    }
  }
  return {};
}

MemoryDeviceFacts ModuleOf(const StructureFields& fields) {
  constexpr std::uint8_t kStandard = 2, kFastPageMode = 3, kEdo = 4, kSimm = 7, kDimm = 8,
                         kBurstEdo = 9, kSdram = 10;
  return {
      .Array = {},
      .Locator = PlaceOf(fields, "socket_designation"),
      .Bank = {},
      .SizeBytes = SizeOf(fields),
      .FormFactor = FirstOf(fields, "current_memory_type", {kDimm, kSimm}),
      .Type = FirstOf(fields, "current_memory_type",
                      {kSdram, kBurstEdo, kEdo, kFastPageMode, kStandard}),
      .SpeedMegatransfersPerSecond = {},
      .ConfiguredSpeedMegatransfersPerSecond = {},
      .Manufacturer = {},
      .PartNumber = {},
      .SerialNumber = {},
  };
}

// An array that does not say what it is for is taken for system memory.
bool IsForSystemMemory(const StructureFields& array) {
  constexpr std::uint64_t kSystemMemory = 3;
  return array.GetNumber("use").value_or(kSystemMemory) == kSystemMemory;
}

StructureFields FieldsOf(const Structure* structure) {
  return structure != nullptr ? StructureFields(*structure) : StructureFields();
}

// What the controller can take: so many modules of the largest size.
Quantity CapacityOf(const StructureFields& controller) {
  const Quantity size = controller.GetQuantity("maximum_memory_module_size_bytes");
  const Quantity slots = controller.GetNumber("number_of_associated_memory_slots");
  if (!size || !slots ||
      (*slots != 0 && *size > std::numeric_limits<std::uint64_t>::max() / *slots)) {
    return std::nullopt;
  }
  return *size * *slots;
}

// What is known by the handle that the field holds.
template <typename Value>
std::optional<Value> FindByHandle(const std::unordered_map<std::uint16_t, Value>& values,
                                  const StructureFields& fields, std::string_view key) {
  // Stands in fields that name no structure.
  constexpr std::uint64_t kNoHandle = 0xFFFF;
  const auto handle = static_cast<std::uint16_t>(fields.GetNumber(key).value_or(kNoHandle));
  const auto found = handle != kNoHandle ? values.find(handle) : values.end();
  return found != values.end() ? std::optional(found->second) : std::nullopt;
}

template <typename Visit>
void ForEachOfType(const std::deque<Structure>& structures, std::uint8_t type, Visit visit) {
  for (const Structure& structure : structures) {
    if (structure.Type == type) {
      visit(StructureFields(structure));
    }
  }
}

}  // namespace

Overview::Overview(const SmbiosTable& table)
    : Version(catalog::MeantVersion(table.EntryPoint.Version)) {
  catalog::StructureScanner scanner(table);
  while (const auto found = scanner.Next()) {
    if (std::find(std::begin(kTypes), std::end(kTypes), found->Type) == std::end(kTypes)) {
      continue;
    }
    const Structure& structure = Structures.emplace_back(*found);
    const Structure*& first = FirstOfType[structure.Type];
    first = first != nullptr ? first : &structure;
    if (structure.Type == kCache) {
      CacheSizes.try_emplace(structure.Handle,
                             StructureFields(structure).GetQuantity("installed_size_bytes"));
    } else if (structure.Type == kMemoryArray) {
      SystemMemoryArrays.try_emplace(structure.Handle,
                                     IsForSystemMemory(StructureFields(structure)));
    }
  }
}

StructureFields Overview::FieldsOfFirst(std::uint8_t type) const {
  return FieldsOf(FirstOfType[type]);
}

SystemFacts Overview::GetSystem() const {
  const StructureFields fields = FieldsOfFirst(kSystem);
  const std::optional<catalog::DecodedValue> uuid = fields.Find("uuid");
  return {
      .Manufacturer = TextOf(fields, "manufacturer"),
      .ProductName = TextOf(fields, "product_name"),
      .Version = TextOf(fields, "version"),
      .SerialNumber = TextOf(fields, "serial_number"),
      .Uuid = std::string(WithoutPlaceholder(
          uuid && uuid->IsKnown ? catalog::TextOfUuid(uuid->Bytes, Version) : std::string())),
      .SkuNumber = TextOf(fields, "sku_number"),
      .Family = TextOf(fields, "family"),
  };
}

const Structure* Overview::FindBaseBoard() const {
  constexpr std::uint8_t kHostingBoard = 0;
  const auto hosts = [](const Structure& structure) {
    return structure.Type == kBaseBoard &&
           StructureFields(structure).GetBit("feature_flags", kHostingBoard) == true;
  };
  const auto found = std::find_if(Structures.begin(), Structures.end(), hosts);
  return found != Structures.end() ? &*found : FirstOfType[kBaseBoard];
}

BaseBoardFacts Overview::GetBaseBoard() const {
  const StructureFields fields = FieldsOf(FindBaseBoard());
  return {
      .Manufacturer = TextOf(fields, "manufacturer"),
      .Product = TextOf(fields, "product"),
      .Version = TextOf(fields, "version"),
      .SerialNumber = TextOf(fields, "serial_number"),
      .AssetTag = TextOf(fields, "asset_tag"),
  };
}

const Structure* Overview::FindChassis() const {
  const Quantity handle = FieldsOf(FindBaseBoard()).GetNumber("chassis_handle");
  const auto isNamed = [handle](const Structure& structure) {
    return structure.Type == kChassis && structure.Handle == handle;
  };
  const auto found = std::find_if(Structures.begin(), Structures.end(), isNamed);
  return found != Structures.end() ? &*found : FirstOfType[kChassis];
}

ChassisFacts Overview::GetChassis() const {
  const StructureFields fields = FieldsOf(FindChassis());
  return {
      .Manufacturer = TextOf(fields, "manufacturer"),
      .Type = CodeOf(fields, "type"),
      .Version = TextOf(fields, "version"),
      .SerialNumber = TextOf(fields, "serial_number"),
      .AssetTag = TextOf(fields, "asset_tag_number"),
  };
}

BiosFacts Overview::GetBios() const {
  constexpr std::string_view kFlags = "bios_characteristics_extension_byte_2";
  constexpr std::uint8_t kUefi = 3;
  constexpr std::uint8_t kVirtualMachine = 4;
  const StructureFields fields = FieldsOfFirst(kBios);
  std::optional<bool> uefi = fields.GetBit(kFlags, kUefi);
  // Before version 2.7 the bit was reserved.
  const bool isOld = Version.Major < 2 || (Version.Major == 2 && Version.Minor < 7);
  if (isOld && uefi == false) {
    uefi = std::nullopt;
  }
  const bool isVirtual = fields.GetBit(kFlags, kVirtualMachine) == true;
  return {
      .Vendor = TextOf(fields, "vendor"),
      .Version = TextOf(fields, "bios_version"),
      .ReleaseDate = IsoDateOf(TextOf(fields, "bios_release_date")),
      .RomSizeBytes = fields.GetQuantity("rom_size_bytes"),
      .Uefi = uefi,
      .VirtualMachine = isVirtual ? std::optional(true) : std::nullopt,
  };
}

std::optional<TpmFacts> Overview::GetTpm() const {
  if (FirstOfType[kTpm] == nullptr) {
    return std::nullopt;
  }
  const StructureFields fields = FieldsOfFirst(kTpm);
  const Quantity major = fields.GetNumber("major_spec_version");
  const Quantity minor = fields.GetNumber("minor_spec_version");
  return TpmFacts{
      .Vendor = WithoutPlaceholder(fields.GetCharacters("vendor_id")),
      .Version = major && minor ? Join({Decimal(*major), ".", Decimal(*minor)}) : std::string(),
  };
}

bool Overview::CountsAsMemory(const StructureFields& device) const {
  return FindByHandle(SystemMemoryArrays, device, "physical_memory_array_handle").value_or(true);
}

bool Overview::HasMemoryModules() const {
  return FirstOfType[kMemoryArray] == nullptr && FirstOfType[kMemoryDevice] == nullptr;
}

template <typename Visit>
void Overview::ForEachDeviceThatCounts(Visit visit) const {
  ForEachOfType(Structures, HasMemoryModules() ? kMemoryModule : kMemoryDevice,
                [&](const StructureFields& device) {
                  if (CountsAsMemory(device)) {
                    visit(device);
                  }
                });
}

void Overview::ForEachMemoryDevice(const Take<MemoryDeviceFacts>& take) const {
  ForEachDeviceThatCounts([&](const StructureFields& device) {
    take(HasMemoryModules() ? ModuleOf(device) : DeviceOf(device));
  });
}

MemoryFacts Overview::GetMemory() const {
  Sum maximum;
  SameText correction;
  if (HasMemoryModules()) {
    ForEachOfType(Structures, kMemoryController, [&](const StructureFields& controller) {
      maximum.Add(CapacityOf(controller));
      correction.Add(CodeOf(controller, "error_detecting_method"));
    });
  }
  ForEachOfType(Structures, kMemoryArray, [&](const StructureFields& array) {
    if (IsForSystemMemory(array)) {
      maximum.Add(array.GetQuantity("maximum_capacity_bytes"));
      correction.Add(CodeOf(array, "memory_error_correction"));
    }
  });
  Sum installed;
  std::uint64_t slots = 0;
  std::uint64_t used = 0;
  ForEachDeviceThatCounts([&](const StructureFields& device) {
    const Quantity size = SizeOf(device);
    installed.Add(size);
    ++slots;
    used += size == 0U ? 0 : 1;
  });
  return {
      .InstalledBytes = installed.Get(),
      .MaximumBytes = maximum.Get(),
      .Slots = slots != 0 ? Quantity(slots) : std::nullopt,
      .SlotsUsed = slots != 0 ? Quantity(used) : std::nullopt,
      .ErrorCorrection = correction.Get(),
  };
}

void Overview::ForEachProcessor(const Take<ProcessorFacts>& take) const {
  constexpr std::uint8_t kPopulated = 6;
  constexpr std::uint64_t kStatus = 7;
  constexpr std::uint64_t kDisabledByUser = 2;
  constexpr std::uint64_t kDisabledByFirmware = 3;
  ForEachOfType(Structures, kProcessor, [&](const StructureFields& fields) {
    const std::uint64_t status = fields.GetNumber("status").value_or(0) & kStatus;
    ProcessorFacts processor = {
        .Socket = PlaceOf(fields, "socket_designation"),
        .Populated = fields.GetBit("status", kPopulated),
        .IsDisabled = status == kDisabledByUser || status == kDisabledByFirmware,
        .Manufacturer = TextOf(fields, "processor_manufacturer"),
        .Version = TextOf(fields, "processor_version"),
        .Cores = fields.GetQuantity("cores"),
        .CoresEnabled = fields.GetQuantity("enabled_cores"),
        .Threads = fields.GetQuantity("threads"),
        .MaximumSpeedMegahertz = MegahertzOf(fields, "max_speed_hertz"),
        .CurrentSpeedMegahertz = MegahertzOf(fields, "current_speed_hertz"),
        .CacheBytes = {},
    };
    constexpr std::string_view kCaches[] = {"l1_cache_handle", "l2_cache_handle",
                                            "l3_cache_handle"};
    for (std::size_t level = 0; level < processor.CacheBytes.size(); ++level) {
      processor.CacheBytes[level] =
          FindByHandle(CacheSizes, fields, kCaches[level]).value_or(std::nullopt);
    }
    take(processor);
  });
}

void Overview::ForEachSlot(const Take<SlotFacts>& take) const {
  constexpr std::uint64_t kAvailable = 3;
  constexpr std::uint64_t kInUse = 4;
  ForEachOfType(Structures, kSlot, [&](const StructureFields& fields) {
    const Quantity usage = fields.GetNumber("current_usage");
    std::optional<bool> inUse;
    if (usage == kInUse) {
      inUse = true;
    } else if (usage == kAvailable) {
      inUse = false;
    }
    take({
        .Designation = PlaceOf(fields, "slot_designation"),
        .Type = CodeOf(fields, "slot_type"),
        .InUse = inUse,
    });
  });
}

void Overview::ForEachPort(const Take<PortFacts>& take) const {
  ForEachOfType(Structures, kPort, [&](const StructureFields& fields) {
    const std::string_view designation = PlaceOf(fields, "external_reference_designator");
    const std::string_view connector = Unless("None", CodeOf(fields, "external_connector_type"));
    take({
        .Designation =
            designation.empty() ? PlaceOf(fields, "internal_reference_designator") : designation,
        .Connector = connector.empty() ? Unless("None", CodeOf(fields, "internal_connector_type"))
                                       : connector,
        .Type = Unless("None", CodeOf(fields, "port_type")),
    });
  });
}

void Overview::ForEachPowerSupply(const Take<PowerSupplyFacts>& take) const {
  constexpr std::uint8_t kPresent = 1;
  ForEachOfType(Structures, kPowerSupply, [&](const StructureFields& fields) {
    take({
        .Location = PlaceOf(fields, "location"),
        .Name = TextOf(fields, "device_name"),
        .Manufacturer = TextOf(fields, "manufacturer"),
        .SerialNumber = TextOf(fields, "serial_number"),
        .MaximumWatts = fields.GetQuantity("max_power_capacity_watts"),
        .Present = fields.GetBit("power_supply_characteristics", kPresent),
    });
  });
}

void Overview::ForEachBattery(const Take<BatteryFacts>& take) const {
  ForEachOfType(Structures, kBattery, [&](const StructureFields& fields) {
    const std::string_view chemistry = CodeOf(fields, "device_chemistry");
    take({
        .Name = TextOf(fields, "device_name"),
        .Manufacturer = TextOf(fields, "manufacturer"),
        .DesignCapacityMilliwattHours = fields.GetQuantity("design_capacity_milliwatt_hours"),
        // Smart batteries name it in letters, and leave the code unknown.
        .Chemistry = chemistry.empty() ? TextOf(fields, "sbds_device_chemistry") : chemistry,
    });
  });
}

}  // namespace kestrel
