#include <cstddef>
#include <utility>
#include <vector>

#include "base/table_cursor.h"
#include "model/code_text.h"
#include "model/smbios_reader.h"
#include "model/text_block.h"

namespace kestrel {

namespace {

constexpr CodeText kChannelTypes[] = {
    {1, "Other"},
    {2, "Unknown"},
    {3, "RamBus"},
    {4, "SyncLink"},
};

struct MemoryChannelDevice {
  std::uint8_t DeviceLoad;
  std::uint16_t DeviceHandle;
};

// Memory Channel: the memory devices that share a channel, each with its load on the channel.
// Layout: DMTF DSP0134, "Memory Channel (Type 37) structure".
class SMType37Obj final : public SMObj {
 public:
  SMType37Obj() { SetType(37); }

  void SetChannelType(std::uint8_t value) { ChannelType = value; }
  void SetMaximumChannelLoad(std::uint8_t value) { MaximumChannelLoad = value; }
  void SetMemoryDeviceCount(std::uint8_t value) { MemoryDeviceCount = value; }
  void SetMemoryDevices(std::vector<MemoryChannelDevice> devices) {
    MemoryDevices = std::move(devices);
  }

  ItemText GetChannelTypeText() const {
    return {"Channel Type : ", TextOfCode(kChannelTypes, ChannelType, kNothing)};
  }
  ItemText GetMaximumChannelLoadText() const {
    return {"Maximum Channel Load : ", Decimal(MaximumChannelLoad)};
  }
  ItemText GetMemoryDeviceCountText() const {
    return {"Memory Device Count : ", Decimal(MemoryDeviceCount)};
  }
  // The label and the devices, each with its line end. The first device stands on the line of the
  // label, two tabs after it.
  std::string GetMemoryDevicesText() const;
  ItemText GetMemoryDeviceText(std::size_t index) const {
    const MemoryChannelDevice& device = MemoryDevices[index];
    return {Decimal(index),
            ")Load--",
            Hex(device.DeviceLoad, 2),
            "h, Handle--",
            Hex(device.DeviceHandle, 4),
            "h"};
  }

  std::string ToString() const override;

 private:
  std::vector<MemoryChannelDevice> MemoryDevices;
  std::uint8_t MemoryDeviceCount = 0;
  std::uint8_t MaximumChannelLoad = 0;
  std::uint8_t ChannelType = 0;
};

std::string SMType37Obj::GetMemoryDevicesText() const {
  std::string text = "Memory Devices :";
  for (std::size_t index = 0; index < MemoryDevices.size(); ++index) {
    Append(text, {"\t\t", GetMemoryDeviceText(index), LineEnd});
  }
  return text;
}

std::string SMType37Obj::ToString() const {
  TextBlock block("Memory Channel (Type 37)");
  block.Item(GetChannelTypeText());
  block.Item(GetMaximumChannelLoadText());
  block.Item(GetMemoryDeviceCountText());
  block.Item(GetMemoryDevicesText());
  // The item's line end is the empty line. Without devices it ends the label, and there is none.
  return block.CloseWithoutEmptyLine();
}

}  // namespace

void SMBiosReader::ReadType37(TableCursor& cursor) {
  ReadStructure<SMType37Obj>(cursor, [&](auto& object) {
    object.SetChannelType(cursor.U8());
    object.SetMaximumChannelLoad(cursor.U8());
    const std::uint8_t count = cursor.U8();
    object.SetMemoryDeviceCount(count);
    std::vector<MemoryChannelDevice> devices(count);
    for (MemoryChannelDevice& device : devices) {
      device.DeviceLoad = cursor.U8();
      device.DeviceHandle = cursor.U16();
    }
    object.SetMemoryDevices(std::move(devices));
  });
}

}  // namespace kestrel
