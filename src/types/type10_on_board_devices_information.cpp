#include <cstddef>
#include <utility>
#include <vector>

#include "base/structure_header.h"
#include "base/table_cursor.h"
#include "model/code_text.h"
#include "model/smbios_reader.h"
#include "model/text_block.h"

namespace kestrel {

namespace {

constexpr CodeText kOnBoardDeviceTypes[] = {
    {1, "Other"},    {2, "Unknown"},    {3, "Video"}, {4, "SCSI Controller"},
    {5, "Ethernet"}, {6, "Token Ring"}, {7, "Sound"},
};

constexpr unsigned kEnabledBit = 0x80;

struct Device {
  std::uint8_t TypeAndEnabled;
  // A string number.
  std::uint8_t Description;
};

// On Board Devices Information: the devices that are built into the main board. Layout: DMTF
// DSP0134, "On Board Devices Information (Type 10, Obsolete) structure".
class SMType10Obj final : public SMObj {
 public:
  SMType10Obj() { SetType(10); }

  void SetDeviceCount(std::uint8_t value) { DeviceCount = value; }
  void SetDevices(std::vector<Device> devices) { Devices = std::move(devices); }

  std::uint8_t GetDeviceCount() const { return DeviceCount; }

  // Without the number at the start of the device's line.
  ItemText GetDeviceText(const Device& device) const {
    return {TextOfCode(kOnBoardDeviceTypes, device.TypeAndEnabled & ~kEnabledBit, kNothing),
            (device.TypeAndEnabled & kEnabledBit) != 0 ? ";Enabled;" : ";Disabled;",
            GetString(device.Description)};
  }

  std::string ToString() const override;

 private:
  std::uint8_t DeviceCount = 0;
  std::vector<Device> Devices;
};

std::string SMType10Obj::ToString() const {
  TextBlock block("On Board Devices Information (Type 10)");
  for (std::size_t index = 0; index < Devices.size(); ++index) {
    block.Item(ItemText{Decimal(index), ") ", GetDeviceText(Devices[index])});
  }
  return block.Close();
}

// A Length shorter than the header leaves no room for a device.
std::uint8_t CountDevices(std::uint8_t length) {
  return length < kHeaderSize ? std::uint8_t{0}
                              : static_cast<std::uint8_t>((length - kHeaderSize) / 2);
}

}  // namespace

void SMBiosReader::ReadType10(TableCursor& cursor) {
  ReadStructure<SMType10Obj>(cursor, [&](auto& object) {
    object.SetDeviceCount(CountDevices(object.GetLength()));
    object.SetStringCount(object.GetDeviceCount());
    std::vector<Device> devices(object.GetDeviceCount());
    for (Device& device : devices) {
      device.TypeAndEnabled = cursor.U8();
      device.Description = cursor.U8();
    }
    object.SetDevices(std::move(devices));
  });
}

}  // namespace kestrel
