#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "base/smbios_table.h"
#include "catalog/structure_fields.h"
#include "catalog/structure_scan.h"

// The machine as its owner sees it, made of the decoded structures of a table.
//
// What the table does not say, or says that it does not know, is an empty text or nullopt. Texts
// are as the firmware wrote them, in Windows-1252, without blanks around them; placeholders (see
// placeholders.h) are empty. Views live as long as the bytes of the table.
namespace kestrel {

struct SystemFacts {
  std::string_view Manufacturer;
  std::string_view ProductName;
  std::string_view Version;
  std::string_view SerialNumber;
  std::string Uuid;
  std::string_view SkuNumber;
  std::string_view Family;
};

struct BaseBoardFacts {
  std::string_view Manufacturer;
  std::string_view Product;
  std::string_view Version;
  std::string_view SerialNumber;
  std::string_view AssetTag;
};

struct ChassisFacts {
  std::string_view Manufacturer;
  std::string_view Type;
  std::string_view Version;
  std::string_view SerialNumber;
  std::string_view AssetTag;
};

struct BiosFacts {
  std::string_view Vendor;
  std::string_view Version;
  // As in "2021-09-14".
  std::string ReleaseDate;
  std::optional<std::uint64_t> RomSizeBytes;
  std::optional<bool> Uefi;
  // True or unknown: firmware that does not say so may be that of a virtual machine all the same.
  std::optional<bool> VirtualMachine;
};

struct ProcessorFacts {
  std::string_view Socket;
  std::optional<bool> Populated;
  // By its owner, or by firmware that found it faulty.
  bool IsDisabled = false;
  std::string_view Manufacturer;
  std::string_view Version;
  std::optional<std::uint64_t> Cores;
  std::optional<std::uint64_t> CoresEnabled;
  std::optional<std::uint64_t> Threads;
  std::optional<std::uint64_t> MaximumSpeedMegahertz;
  std::optional<std::uint64_t> CurrentSpeedMegahertz;
  // Of levels 1 to 3.
  std::array<std::optional<std::uint64_t>, 3> CacheBytes;
};

// Of all memory devices that count.
struct MemoryFacts {
  // Unknown as soon as the size of one device is.
  std::optional<std::uint64_t> InstalledBytes;
  // Unknown as soon as the capacity of one array is.
  std::optional<std::uint64_t> MaximumBytes;
  std::optional<std::uint64_t> Slots;
  std::optional<std::uint64_t> SlotsUsed;
  // Empty where arrays differ.
  std::string_view ErrorCorrection;
};

struct MemoryDeviceFacts {
  // The handle of the array that has the device, or the slot.
  std::optional<std::uint64_t> Array;
  std::string_view Locator;
  std::string_view Bank;
  // 0 for an empty slot.
  std::optional<std::uint64_t> SizeBytes;
  std::string_view FormFactor;
  std::string_view Type;
  std::optional<std::uint64_t> SpeedMegatransfersPerSecond;
  std::optional<std::uint64_t> ConfiguredSpeedMegatransfersPerSecond;
  std::string_view Manufacturer;
  std::string_view PartNumber;
  std::string_view SerialNumber;
};

struct SlotFacts {
  std::string_view Designation;
  std::string_view Type;
  std::optional<bool> InUse;
};

// The outer side of a port, or the inner one where there is no other.
struct PortFacts {
  std::string_view Designation;
  std::string_view Connector;
  std::string_view Type;
};

struct PowerSupplyFacts {
  std::string_view Location;
  std::string_view Name;
  std::string_view Manufacturer;
  std::string_view SerialNumber;
  std::optional<std::uint64_t> MaximumWatts;
  std::optional<bool> Present;
};

struct BatteryFacts {
  std::string_view Name;
  std::string_view Manufacturer;
  std::optional<std::uint64_t> DesignCapacityMilliwattHours;
  std::string_view Chemistry;
};

struct TpmFacts {
  std::string_view Vendor;
  // As in "2.0".
  std::string Version;
};

// Which structures count:
// - Of system, BIOS and TPM the first structure.
// - The base board is the first one that is a hosting board, else the first one.
// - The chassis is the one that the base board names, else the first one.
// - Memory devices count but those of arrays for other uses than system memory. Machines of old
//   that have neither arrays nor devices (types 16, 17) have memory controllers and modules (5, 6).
class Overview {
 public:
  // Keeps 56 bytes for each structure that it is made of. The table must outlive the overview.
  explicit Overview(const SmbiosTable& table);

  SystemFacts GetSystem() const;
  BaseBoardFacts GetBaseBoard() const;
  ChassisFacts GetChassis() const;
  BiosFacts GetBios() const;
  MemoryFacts GetMemory() const;
  std::optional<TpmFacts> GetTpm() const;

  // Calls `take` for each row of a list, in table order. Rows are made one at a time, since a table
  // may have millions of them.
  template <typename Facts>
  using Take = std::function<void(const Facts&)>;
  void ForEachProcessor(const Take<ProcessorFacts>& take) const;
  void ForEachMemoryDevice(const Take<MemoryDeviceFacts>& take) const;
  void ForEachSlot(const Take<SlotFacts>& take) const;
  void ForEachPort(const Take<PortFacts>& take) const;
  void ForEachPowerSupply(const Take<PowerSupplyFacts>& take) const;
  void ForEachBattery(const Take<BatteryFacts>& take) const;

 private:
  catalog::StructureFields FieldsOfFirst(std::uint8_t type) const;
  const catalog::Structure* FindBaseBoard() const;
  const catalog::Structure* FindChassis() const;
  template <typename Visit>
  void ForEachDeviceThatCounts(Visit visit) const;
  bool CountsAsMemory(const catalog::StructureFields& device) const;
  // Whether memory is described as it was before there were arrays and devices.
  bool HasMemoryModules() const;

  SmbiosVersion Version;
  // Those of the types that the overview is made of. They keep their places as more come.
  std::deque<catalog::Structure> Structures;
  // The first structure of each type.
  std::array<const catalog::Structure*, 256> FirstOfType{};
  // What each cache holds, and whether each array is for system memory, by handle. Of several with
  // one handle the first counts.
  std::unordered_map<std::uint16_t, std::optional<std::uint64_t>> CacheSizes;
  std::unordered_map<std::uint16_t, bool> SystemMemoryArrays;
};

}  // namespace kestrel
