#include "base/table_cursor.h"
#include "model/code_text.h"
#include "model/smbios_reader.h"
#include "model/text_block.h"

namespace kestrel {

namespace {

constexpr CodeText kConnectorTypes[] = {
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
    {0x0C, "50 Pin MiniSCSI"},
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
    {0x18, "9 Pin Dual Inline (pin 10 cut)"},
    {0x19, "25 Pin Dual Inline (pin 26 cut)"},
    {0x1A, "50 Pin Dual Inline"},
    {0x1B, "68 Pin Dual Inline"},
    {0x1C, "On Board Sound Input from CD-ROM"},
    {0x1D, "Mini-Centronics Type-14"},
    {0x1E, "Mini-Centronics Type-26"},
    {0x1F, "Mini-jack (headphones)"},
    {0x20, "BNC"},
    {0x21, "1394"},
    {0xA0, "PC-98"},
    {0xA1, "PC-98Hireso"},  // One hyphen here, two among the port types.
    {0xA2, "PC-H98"},
    {0xA3, "PC-98Note"},
    {0xA4, "PC-98Full"},
    {0xFF, "Other"},
};

constexpr std::uint8_t kOtherConnector = 0xFF;
constexpr std::string_view kKeyboardConnector = "PC-H98";

constexpr CodeText kPortTypes[] = {
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
    {0x15, "Cardbus"},
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
    {0xA0, "8251 Compatible"},
    {0xA1, "8251 FIFO Compatible"},
    {0xFF, "Other"},
};

// Port Connector Information: one connector inside and outside the housing, and the port behind
// it. Layout: DMTF DSP0134, "Port Connector Information (Type 8) structure".
class SMType8Obj final : public SMObj {
 public:
  SMType8Obj() {
    SetType(8);
    SetStringCount(2);
  }

  void SetInternalReferenceDesignator(std::uint8_t value) { InternalReferenceDesignator = value; }
  void SetInternalConnectorType(std::uint8_t value) { InternalConnectorType = value; }
  void SetExternalReferenceDesignator(std::uint8_t value) { ExternalReferenceDesignator = value; }
  void SetExternalConnectorType(std::uint8_t value) { ExternalConnectorType = value; }
  void SetPortType(std::uint8_t value) { PortType = value; }

  ItemText GetInternalReferenceDesignatorText() const {
    return {"Internal Designator : ", GetString(InternalReferenceDesignator)};
  }
  ItemText GetInternalConnectorTypeText() const;
  ItemText GetExternalReferenceDesignatorText() const {
    return {"External Designator : ", GetString(ExternalReferenceDesignator)};
  }
  ItemText GetExternalConnectorTypeText() const {
    return {"External Connector Type : ",
            TextOfCode(kConnectorTypes, ExternalConnectorType, kNothing)};
  }
  ItemText GetPortTypeText() const {
    return {"Port Type : ", TextOfCode(kPortTypes, PortType, kNothing)};
  }

  std::string ToString() const override;

 private:
  std::uint8_t PortType = 0;
  std::uint8_t ExternalConnectorType = 0;
  std::uint8_t ExternalReferenceDesignator = 0;
  std::uint8_t InternalConnectorType = 0;
  std::uint8_t InternalReferenceDesignator = 0;
};

ItemText SMType8Obj::GetInternalConnectorTypeText() const {
  // Only by the designator can a keyboard's connector be told from others without a code.
  const bool isKeyboard =
      InternalConnectorType == kOtherConnector &&
      GetString(InternalReferenceDesignator).find("Keyboard") != std::string_view::npos;
  return {"Internal Connector Type : ",
          isKeyboard ? kKeyboardConnector
                     : TextOfCode(kConnectorTypes, InternalConnectorType, kNothing)};
}

std::string SMType8Obj::ToString() const {
  TextBlock block("Port Connector Information (Type 8)");
  block.Item(GetInternalReferenceDesignatorText());
  block.Item(GetInternalConnectorTypeText());
  block.Item(GetExternalReferenceDesignatorText());
  block.Item(GetExternalConnectorTypeText());
  block.Item(GetPortTypeText());
  return block.Close();
}

}  // namespace

void SMBiosReader::ReadType8(TableCursor& cursor) {
  ReadStructure<SMType8Obj>(cursor, [&](auto& object) {
    object.SetInternalReferenceDesignator(cursor.U8());
    object.SetInternalConnectorType(cursor.U8());
    object.SetExternalReferenceDesignator(cursor.U8());
    object.SetExternalConnectorType(cursor.U8());
    object.SetPortType(cursor.U8());
  });
}

}  // namespace kestrel
