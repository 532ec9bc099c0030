// Connectors, slots, devices on the board and pointing devices.

#include "catalog/type_catalog.h"
#include "catalog/well_formed.h"

namespace kestrel::catalog {

namespace {

// Port Connector Information (Type 8)

constexpr Code kConnectors[] = {
    {0x00, "None"},
    {0x01, "Centronics"},
    {0x02, "Mini Centronics"},
    {0x03, "Proprietary"},
    {0x04, "DB-25 pin male"},
    {0x05, "DB-25 pin female"},
    {0x06, "DB-15 pin male"},
    {0x07, "DB-15 pin female"},
    {0x08, "DB-9 pin male"},
    {0x09, "DB-9 pin female"},
    {0x0A, "RJ-11"},
    {0x0B, "RJ-45"},
    {0x0C, "50-pin MiniSCSI"},
    {0x0D, "Mini-DIN"},
    {0x0E, "Micro-DIN"},
    {0x0F, "PS/2"},
    {0x10, "Infrared"},
    {0x11, "HP-HIL"},
    {0x12, "Access Bus (USB)"},
    {0x13, "SSA SCSI"},
    {0x14, "Circular DIN-8 male"},
    {0x15, "Circular DIN-8 female"},
    {0x16, "On Board IDE"},
    {0x17, "On Board Floppy"},
    {0x18, "9-pin Dual Inline (pin 10 cut)"},
    {0x19, "25-pin Dual Inline (pin 26 cut)"},
    {0x1A, "50-pin Dual Inline"},
    {0x1B, "68-pin Dual Inline"},
    {0x1C, "On Board Sound Input from CD-ROM"},
    {0x1D, "Mini-Centronics Type-14"},
    {0x1E, "Mini-Centronics Type-26"},
    {0x1F, "Mini-jack (headphones)"},
    {0x20, "BNC"},
    {0x21, "1394"},
    {0x22, "SAS/SATA Plug Receptacle"},
    {0x23, "USB Type-C Receptacle"},
    {0xA0, "PC-98"},
    {0xA1, "PC-98Hireso"},
    {0xA2, "PC-H98"},
    {0xA3, "PC-98Note"},
    {0xA4, "PC-98Full"},
    {0xFF, "Other"},
};

constexpr Code kPorts[] = {
    {0x00, "None"},
    {0x01, "Parallel Port XT/AT Compatible"},
    {0x02, "Parallel Port PS/2"},
    {0x03, "Parallel Port ECP"},
    {0x04, "Parallel Port EPP"},
    {0x05, "Parallel Port ECP/EPP"},
    {0x06, "Serial Port XT/AT Compatible"},
    {0x07, "Serial Port 16450 Compatible"},
    {0x08, "Serial Port 16550 Compatible"},
    {0x09, "Serial Port 16550A Compatible"},
    {0x0A, "SCSI Port"},
    {0x0B, "MIDI Port"},
    {0x0C, "Joy Stick Port"},
    {0x0D, "Keyboard Port"},
    {0x0E, "Mouse Port"},
    {0x0F, "SSA SCSI"},
    {0x10, "USB"},
    {0x11, "FireWire (IEEE P1394)"},
    {0x12, "PCMCIA Type I"},
    {0x13, "PCMCIA Type II"},
    {0x14, "PCMCIA Type III"},
    {0x15, "Card bus"},
    {0x16, "Access Bus Port"},
    {0x17, "SCSI II"},
    {0x18, "SCSI Wide"},
    {0x19, "PC-98"},
    {0x1A, "PC-98-Hireso"},
    {0x1B, "PC-H98"},
    {0x1C, "Video Port"},
    {0x1D, "Audio Port"},
    {0x1E, "Modem Port"},
    {0x1F, "Network Port"},
    {0x20, "SATA"},
    {0x21, "SAS"},
    {0x22, "MFDP (Multi-Function Display Port)"},
    {0x23, "Thunderbolt"},
    {0xA0, "8251 Compatible"},
    {0xA1, "8251 FIFO Compatible"},
    {0xFF, "Other"},
};

constexpr Field kPortConnectorInformation[] = {
    StringField(0x04, "internal_reference_designator"),
    CodeField(0x05, 1, "internal_connector_type", kConnectors),
    StringField(0x06, "external_reference_designator"),
    CodeField(0x07, 1, "external_connector_type", kConnectors),
    CodeField(0x08, 1, "port_type", kPorts),
};
constexpr LeastLength kPortConnectorInformationLengths[] = {{2, 0, 0x09}};

// System Slots (Type 9)

constexpr Code kSlotTypes[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "ISA"},
    {0x04, "MCA"},
    {0x05, "EISA"},
    {0x06, "PCI"},
    {0x07, "PC Card (PCMCIA)"},
    {0x08, "VL-VESA"},
    {0x09, "Proprietary"},
    {0x0A, "Processor Card Slot"},
    {0x0B, "Proprietary Memory Card Slot"},
    {0x0C, "I/O Riser Card Slot"},
    {0x0D, "NuBus"},
    {0x0E, "PCI - 66MHz Capable"},
    {0x0F, "AGP"},
    {0x10, "AGP 2X"},
    {0x11, "AGP 4X"},
    {0x12, "PCI-X"},
    {0x13, "AGP 8X"},
    {0x14, "M.2 Socket 1-DP (Mechanical Key A)"},
    {0x15, "M.2 Socket 1-SD (Mechanical Key E)"},
    {0x16, "M.2 Socket 2 (Mechanical Key B)"},
    {0x17, "M.2 Socket 3 (Mechanical Key M)"},
    {0x18, "MXM Type I"},
    {0x19, "MXM Type II"},
    {0x1A, "MXM Type III (standard connector)"},
    {0x1B, "MXM Type III (HE connector)"},
    {0x1C, "MXM Type IV"},
    {0x1D, "MXM 3.0 Type A"},
    {0x1E, "MXM 3.0 Type B"},
    {0x1F, "PCI Express Gen 2 SFF-8639 (U.2)"},
    {0x20, "PCI Express Gen 3 SFF-8639 (U.2)"},
    {0x21, "PCI Express Mini 52-pin (CEM spec. 2.0) with bottom-side keep-outs"},
    {0x22, "PCI Express Mini 52-pin (CEM spec. 2.0) without bottom-side keep-outs"},
    {0x23, "PCI Express Mini 76-pin (CEM spec. 2.0)"},
    {0x24, "PCI Express Gen 4 SFF-8639 (U.2)"},
    {0x25, "PCI Express Gen 5 SFF-8639 (U.2)"},
    {0x26, "OCP NIC 3.0 Small Form Factor (SFF)"},
    {0x27, "OCP NIC 3.0 Large Form Factor (LFF)"},
    {0x28, "OCP NIC Prior to 3.0"},
    {0x30, "CXL Flexbus 1.0"},
    {0xA0, "PC-98/C20"},
    {0xA1, "PC-98/C24"},
    {0xA2, "PC-98/E"},
    {0xA3, "PC-98/Local Bus"},
    {0xA4, "PC-98/Card"},
    {0xA5, "PCI Express"},
    {0xA6, "PCI Express x1"},
    {0xA7, "PCI Express x2"},
    {0xA8, "PCI Express x4"},
    {0xA9, "PCI Express x8"},
    {0xAA, "PCI Express x16"},
    {0xAB, "PCI Express Gen 2"},
    {0xAC, "PCI Express Gen 2 x1"},
    {0xAD, "PCI Express Gen 2 x2"},
    {0xAE, "PCI Express Gen 2 x4"},
    {0xAF, "PCI Express Gen 2 x8"},
    {0xB0, "PCI Express Gen 2 x16"},
    {0xB1, "PCI Express Gen 3"},
    {0xB2, "PCI Express Gen 3 x1"},
    {0xB3, "PCI Express Gen 3 x2"},
    {0xB4, "PCI Express Gen 3 x4"},
    {0xB5, "PCI Express Gen 3 x8"},
    {0xB6, "PCI Express Gen 3 x16"},
    {0xB8, "PCI Express Gen 4"},
    {0xB9, "PCI Express Gen 4 x1"},
    {0xBA, "PCI Express Gen 4 x2"},
    {0xBB, "PCI Express Gen 4 x4"},
    {0xBC, "PCI Express Gen 4 x8"},
    {0xBD, "PCI Express Gen 4 x16"},
    {0xBE, "PCI Express Gen 5"},
    {0xBF, "PCI Express Gen 5 x1"},
    {0xC0, "PCI Express Gen 5 x2"},
    {0xC1, "PCI Express Gen 5 x4"},
    {0xC2, "PCI Express Gen 5 x8"},
    {0xC3, "PCI Express Gen 5 x16"},
    {0xC4, "PCI Express Gen 6 and Beyond"},
    {0xC5, "Enterprise and Datacenter 1U E1 Form Factor Slot (EDSFF E1.S, E1.L)"},
    {0xC6, "Enterprise and Datacenter 3\" E3 Form Factor Slot (EDSFF E3.S, E3.L)"},
};

constexpr Code kSlotWidths[] = {
    {0x01, "Other"},      {0x02, "Unknown"},    {0x03, "8 bit"},    {0x04, "16 bit"},
    {0x05, "32 bit"},     {0x06, "64 bit"},     {0x07, "128 bit"},  {0x08, "1x or x1"},
    {0x09, "2x or x2"},   {0x0A, "4x or x4"},   {0x0B, "8x or x8"}, {0x0C, "12x or x12"},
    {0x0D, "16x or x16"}, {0x0E, "32x or x32"},
};

constexpr Code kSlotUsages[] = {
    {0x01, "Other"},  {0x02, "Unknown"},     {0x03, "Available"},
    {0x04, "In use"}, {0x05, "Unavailable"},
};

constexpr Code kSlotLengths[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "Short Length"},
    {0x04, "Long Length"},
    {0x05, "2.5\" drive form factor"},
    {0x06, "3.5\" drive form factor"},
};

constexpr Code kSlotHeights[] = {
    {0x00, "Not applicable"}, {0x01, "Other"},       {0x02, "Unknown"},
    {0x03, "Full height"},    {0x04, "Low-profile"},
};

constexpr Bit kSlotCharacteristics1[] = {
    {0, "Characteristics unknown"},
    {1, "Provides 5.0 volts"},
    {2, "Provides 3.3 volts"},
    {3, "Slot's opening is shared with another slot"},
    {4, "PC Card slot supports PC Card-16"},
    {5, "PC Card slot supports CardBus"},
    {6, "PC Card slot supports Zoom Video"},
    {7, "PC Card slot supports Modem Ring Resume"},
};

constexpr Bit kSlotCharacteristics2[] = {
    {0, "PCI slot supports Power Management Event (PME#) signal"},
    {1, "Slot supports hot-plug devices"},
    {2, "PCI slot supports SMBus signal"},
    {3, "PCIe slot supports bifurcation"},
    {4, "Slot supports async/surprise removal"},
    {5, "Flexbus slot, CXL 1.0 capable"},
    {6, "Flexbus slot, CXL 2.0 capable"},
    {7, "Flexbus slot, CXL 3.0 capable"},
};

constexpr Part kDeviceFunction[] = {
    NumberPart("function", 0, 3),
    NumberPart("device", 3, 5),
};

// The standard asks for FFh in all fields of an address that there is not; some fill both bytes.
constexpr Code kNoSegmentGroups[] = {{0x00FF, "none"}, {0xFFFF, "none"}};

constexpr Field kPeerGroup[] = {
    NumberField(0x00, 2, "segment_group_number", kNoSegmentGroups),
    NumberField(0x02, 1, "bus_number", kNoneIsFFh),
    PartsField(0x03, 1, "device_function_number", kDeviceFunction, kNoneIsFFh),
    NumberField(0x04, 1, "data_bus_width"),
};
constexpr List kPeerGroups = {.SizeOrOffset = 5, .Fields = kPeerGroup};

constexpr Field kSystemSlots[] = {
    StringField(0x04, "slot_designation"),
    CodeField(0x05, 1, "slot_type", kSlotTypes),
    CodeField(0x06, 1, "slot_data_bus_width", kSlotWidths),
    CodeField(0x07, 1, "current_usage", kSlotUsages),
    CodeField(0x08, 1, "slot_length", kSlotLengths),
    NumberField(0x09, 2, "slot_id"),
    BitsField(0x0B, 1, "slot_characteristics_1", kSlotCharacteristics1),
    BitsField(0x0C, 1, "slot_characteristics_2", kSlotCharacteristics2),
    NumberField(0x0D, 2, "segment_group_number", kNoSegmentGroups),
    NumberField(0x0F, 1, "bus_number", kNoneIsFFh),
    PartsField(0x10, 1, "device_function_number", kDeviceFunction, kNoneIsFFh),
    NumberField(0x11, 1, "data_bus_width"),
    NumberField(0x12, 1, "peer_grouping_count"),
    ListField(0x13, "peer_groups", kPeerGroups),
    NumberField(kFollows, 1, "slot_information"),
    CodeField(kFollows, 1, "slot_physical_width", kSlotWidths),
    NumberField(kFollows, 2, "slot_pitch"),
    CodeField(kFollows, 1, "slot_height", kSlotHeights),
};
// Version 3.2 and later add fields, and still ask for 11h.
constexpr LeastLength kSystemSlotsLengths[] = {{2, 0, 0x0C}, {2, 1, 0x0D}, {2, 6, 0x11}};

// On Board Devices Information (Type 10)

constexpr Code kOnBoardDeviceTypes[] = {
    {0x01, "Other"},           {0x02, "Unknown"},        {0x03, "Video"}, {0x04, "SCSI Controller"},
    {0x05, "Ethernet"},        {0x06, "Token Ring"},     {0x07, "Sound"}, {0x08, "PATA Controller"},
    {0x09, "SATA Controller"}, {0x0A, "SAS Controller"},
};

constexpr Part kOnBoardDeviceType[] = {
    CodePart("", 0, 7, kOnBoardDeviceTypes),
    FlagPart("enabled", 7),
};

constexpr Field kOnBoardDevice[] = {
    PartsField(0x00, 1, "device_type", kOnBoardDeviceType),
    StringField(0x01, "description_string"),
};
constexpr List kOnBoardDevices = {
    .CountRule = List::Count::ToTheEnd, .SizeOrOffset = 2, .Fields = kOnBoardDevice};

constexpr Field kOnBoardDevicesInformation[] = {
    ListField(0x04, "devices", kOnBoardDevices),
};
// "4 + 2 * (Number of Devices)", of which there may be none.
constexpr LeastLength kOnBoardDevicesInformationLengths[] = {{2, 0, 0x04}};

// Built-in Pointing Device (Type 21)

constexpr Code kPointingDeviceTypes[] = {
    {0x01, "Other"},      {0x02, "Unknown"},      {0x03, "Mouse"},
    {0x04, "Track Ball"}, {0x05, "Track Point"},  {0x06, "Glide Point"},
    {0x07, "Touch Pad"},  {0x08, "Touch Screen"}, {0x09, "Optical Sensor"},
};

constexpr Code kPointingDeviceInterfaces[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "Serial"},
    {0x04, "PS/2"},
    {0x05, "Infrared"},
    {0x06, "HP-HIL"},
    {0x07, "Bus mouse"},
    {0x08, "ADB (Apple Desktop Bus)"},
    {0xA0, "Bus mouse DB-9"},
    {0xA1, "Bus mouse micro-DIN"},
    {0xA2, "USB"},
    {0xA3, "I2C"},
    {0xA4, "SPI"},
};

constexpr Field kBuiltInPointingDevice[] = {
    CodeField(0x04, 1, "type", kPointingDeviceTypes),
    CodeField(0x05, 1, "interface", kPointingDeviceInterfaces),
    NumberField(0x06, 1, "number_of_buttons"),
};
constexpr LeastLength kBuiltInPointingDeviceLengths[] = {{2, 1, 0x07}};

// Onboard Devices Extended Information (Type 41)

constexpr Code kOnboardDeviceTypes[] = {
    {0x01, "Other"},
    {0x02, "Unknown"},
    {0x03, "Video"},
    {0x04, "SCSI Controller"},
    {0x05, "Ethernet"},
    {0x06, "Token Ring"},
    {0x07, "Sound"},
    {0x08, "PATA Controller"},
    {0x09, "SATA Controller"},
    {0x0A, "SAS Controller"},
    {0x0B, "Wireless LAN"},
    {0x0C, "Bluetooth"},
    {0x0D, "WWAN"},
    {0x0E, "eMMC (embedded Multi-Media Controller)"},
    {0x0F, "NVMe Controller"},
    {0x10, "UFS Controller"},
};

constexpr Part kOnboardDeviceType[] = {
    CodePart("", 0, 7, kOnboardDeviceTypes),
    FlagPart("enabled", 7),
};

constexpr Field kOnboardDevicesExtendedInformation[] = {
    StringField(0x04, "reference_designation"),
    PartsField(0x05, 1, "device_type", kOnboardDeviceType),
    NumberField(0x06, 1, "device_type_instance"),
    NumberField(0x07, 2, "segment_group_number", kNoSegmentGroups),
    NumberField(0x09, 1, "bus_number", kNoneIsFFh),
    PartsField(0x0A, 1, "device_function_number", kDeviceFunction, kNoneIsFFh),
};
constexpr LeastLength kOnboardDevicesExtendedInformationLengths[] = {{2, 6, 0x0B}};

constexpr StructureType kConnectorTypeList[] = {
    {8, "Port Connector Information", kPortConnectorInformation, kPortConnectorInformationLengths},
    {9, "System Slots", kSystemSlots, kSystemSlotsLengths},
    {10, "On Board Devices Information", kOnBoardDevicesInformation,
     kOnBoardDevicesInformationLengths},
    {21, "Built-in Pointing Device", kBuiltInPointingDevice, kBuiltInPointingDeviceLengths},
    {41, "Onboard Devices Extended Information", kOnboardDevicesExtendedInformation,
     kOnboardDevicesExtendedInformationLengths},
};
static_assert(AreWellFormed(kConnectorTypeList));

}  // namespace

constinit const std::span<const StructureType> kConnectorTypes = kConnectorTypeList;

}  // namespace kestrel::catalog
