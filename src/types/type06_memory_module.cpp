#include "base/table_cursor.h"
#include "model/code_text.h"
#include "model/smbios_reader.h"
#include "model/text_block.h"
#include "types/memory_module.h"

namespace kestrel {

namespace {

// The codes that take the place of an exponent in a size byte.
constexpr CodeText kSizeCodes[] = {
    {0x7D, "Not determinable"},
    {0x7E, "Module is installed, but no memory has been enabled"},
    {0x7F, "Not Installed"},
};

constexpr unsigned kSizeBits = 0x7F;
constexpr unsigned kDoubleBank = 0x80;

// In place of the number of a RAS line.
constexpr unsigned kNotConnected = 0xF;

constexpr std::string_view kErrorStatus[] = {"Uncorrectable errors", "Correctable errors"};

ItemText SizeText(std::string_view label, std::uint8_t size) {
  const unsigned code = size & kSizeBits;
  const std::string_view text = TextOfCode(kSizeCodes, code, kNothing);
  if (!text.empty()) {
    return {label, text};
  }
  return {label, Decimal(MegabytesOfExponent(code)), " MB"};
}

// Memory Module Information: one socket, the module in it and its errors. Layout: DMTF DSP0134,
// "Memory Module Information (Type 6, Obsolete) structure".
class SMType6Obj final : public SMObj {
 public:
  SMType6Obj() {
    SetType(6);
    SetStringCount(1);
  }

  void SetSocketDesignation(std::uint8_t value) { SocketDesignation = value; }
  void SetBankConnections(std::uint8_t value) { BankConnections = value; }
  void SetCurrentSpeed(std::uint8_t value) { CurrentSpeed = value; }
  void SetCurrentMemoryType(std::uint16_t value) { CurrentMemoryType = value; }
  void SetInstalledSize(std::uint8_t value) { InstalledSize = value; }
  void SetEnabledSize(std::uint8_t value) { EnabledSize = value; }
  void SetErrorStatus(std::uint8_t value) { ErrorStatus = value; }

  ItemText GetSocketDesignationText() const {
    return {"Socket Designation : ", GetString(SocketDesignation)};
  }
  ItemText GetBankConnectionsText() const;
  ItemText GetCurrentSpeedText() const {
    return {"Current Speed : ", Decimal(CurrentSpeed), " ns"};
  }
  ItemText GetCurrentMemoryTypeText() const {
    return {"Current Memory Type : ",
            TextOfBits(kMemoryTypes, CurrentMemoryType, kMemoryTypeSeparator)};
  }
  ItemText GetInstalledSizeText() const { return SizeText("Installed Size : ", InstalledSize); }
  ItemText GetEnabledSizeText() const { return SizeText("Enable Size : ", EnabledSize); }
  ItemText GetBankConnectionText() const {
    return {"Bank Connection : ",
            (InstalledSize & kDoubleBank) != 0 ? "Double Bank" : "Single Bank"};
  }
  ItemText GetErrorStatusText() const {
    return {"Error Status : ", TextOfBits(kErrorStatus, ErrorStatus, " and ")};
  }

  std::string ToString() const override;

 private:
  std::uint8_t ErrorStatus = 0;
  // The two sizes hold an exponent or a code, and a bit for a double bank.
  std::uint8_t EnabledSize = 0;
  std::uint8_t InstalledSize = 0;
  std::uint16_t CurrentMemoryType = 0;
  std::uint8_t CurrentSpeed = 0;
  // A RAS number in each half.
  std::uint8_t BankConnections = 0;
  std::uint8_t SocketDesignation = 0;
};

ItemText SMType6Obj::GetBankConnectionsText() const {
  const unsigned high = BankConnections >> 4U;
  const unsigned low = BankConnections & 0xFU;
  ItemText text{"Bank Connections :"};
  if (high != kNotConnected) {
    text.Append({" RAS", Decimal(high)});
  }
  if (low != kNotConnected && low != high) {
    text.Append({" RAS", Decimal(low)});
  }
  return text;
}

std::string SMType6Obj::ToString() const {
  TextBlock block("Memory Module Information (Type 6)");
  block.Item(GetSocketDesignationText());
  block.Item(GetBankConnectionsText());
  block.Item(GetCurrentSpeedText());
  block.Item(GetCurrentMemoryTypeText());
  block.Item(GetInstalledSizeText());
  block.Item(GetEnabledSizeText());
  block.Item(GetBankConnectionText());
  block.Item(GetErrorStatusText());
  return block.Close();
}

}  // namespace

void SMBiosReader::ReadType6(TableCursor& cursor) {
  ReadStructure<SMType6Obj>(cursor, [&](auto& object) {
    object.SetSocketDesignation(cursor.U8());
    object.SetBankConnections(cursor.U8());
    object.SetCurrentSpeed(cursor.U8());
    object.SetCurrentMemoryType(cursor.U16());
    object.SetInstalledSize(cursor.U8());
    object.SetEnabledSize(cursor.U8());
    object.SetErrorStatus(cursor.U8());
  });
}

}  // namespace kestrel
