#include <cstdint>
#include <string>
#include <string_view>

#include "base/table_cursor.h"
#include "model/code_text.h"
#include "model/smbios_reader.h"
#include "model/text_block.h"

namespace kestrel {

namespace {

constexpr CodeText kErrorTypes[] = {
    {1, "Other"},
    {2, "Unknown"},
    {3, "OK"},
    {4, "Bad read"},
    {5, "Parity error"},
    {6, "Single-bit error"},
    {7, "Double-bit error"},
    {8, "Multi-bit error"},
    {9, "Nibble error"},
    {10, "Checksum error"},
    {11, "CRC error"},
    {12, "Corrected single-bit error"},
    {13, "Corrected error"},
    {14, "Uncorrectable error"},
};

constexpr CodeText kErrorGranularities[] = {
    {1, "Other"},
    {2, "Unknown"},
    {3, "Device level"},
    {4, "Memory partition level"},
};

constexpr CodeText kErrorOperations[] = {
    {1, "Other"}, {2, "Unknown"}, {3, "Read"}, {4, "Write"}, {5, "Partial write"},
};

// The upper 32 bits of a number that the firmware does not know; the others do not count.
constexpr std::uint32_t kUnknownNumber = 0x80000000;

// The last memory error. `Address` is as wide as the addresses of the layout.
template <typename Address>
class SMMemoryErrorObj : public SMObj {
 public:
  void SetErrorType(std::uint8_t value) { ErrorType = value; }
  void SetErrorGranularity(std::uint8_t value) { ErrorGranularity = value; }
  void SetErrorOperation(std::uint8_t value) { ErrorOperation = value; }
  void SetVendorSyndrome(std::uint32_t value) { VendorSyndrome = value; }
  void SetMemoryArrayErrorAddress(Address value) { MemoryArrayErrorAddress = value; }
  void SetDeviceErrorAddress(Address value) { DeviceErrorAddress = value; }
  void SetErrorResolution(std::uint32_t value) { ErrorResolution = value; }

  ItemText GetErrorTypeText() const {
    return {"Error Type : ", TextOfCode(kErrorTypes, ErrorType, kNothing)};
  }
  ItemText GetErrorGranularityText() const {
    return {"Error Granularity : ", TextOfCode(kErrorGranularities, ErrorGranularity, kNothing)};
  }
  ItemText GetErrorOperationText() const {
    return {"Error Operation : ", TextOfCode(kErrorOperations, ErrorOperation, kNothing)};
  }
  // No "h" after the digits.
  ItemText GetVendorSyndromeText() const { return {"Vendor Syndrome : ", Hex(VendorSyndrome, 8)}; }
  ItemText GetMemoryArrayErrorAddressText() const {
    return {"Memory Array Error Address : ", TextOfNumber(MemoryArrayErrorAddress)};
  }
  ItemText GetDeviceErrorAddressText() const {
    return {"Device Error Address : ", TextOfNumber(DeviceErrorAddress)};
  }
  ItemText GetErrorResolutionText() const {
    return {"Error Resolution : ", TextOfNumber(ErrorResolution)};
  }

  std::string ToString() const override {
    TextBlock block(Title);
    block.Item(GetErrorTypeText());
    block.Item(GetErrorGranularityText());
    block.Item(GetErrorOperationText());
    block.Item(GetVendorSyndromeText());
    block.Item(GetMemoryArrayErrorAddressText());
    block.Item(GetDeviceErrorAddressText());
    block.Item(GetErrorResolutionText());
    return block.Close();
  }

 protected:
  // The title must outlive the object.
  SMMemoryErrorObj(std::uint8_t type, std::string_view title) : Title(title) { SetType(type); }

 private:
  template <typename Number>
  static ItemText TextOfNumber(Number number) {
    const unsigned digits = 2 * sizeof(Number);
    // The 32-bit layout shows bare digits, even where the number is unknown.
    if (sizeof(Address) == 4) {
      return {Hex(number, digits)};
    }
    if (number >> (4 * digits - 32) == kUnknownNumber) {
      return {kUnknown};
    }
    return {Hex(number, digits), "h"};
  }

  std::string_view Title;
  std::uint32_t ErrorResolution = 0;
  Address DeviceErrorAddress = 0;
  Address MemoryArrayErrorAddress = 0;
  std::uint32_t VendorSyndrome = 0;
  std::uint8_t ErrorOperation = 0;
  std::uint8_t ErrorGranularity = 0;
  std::uint8_t ErrorType = 0;
};

// 32-bit Memory Error Information. Layout: DMTF DSP0134, "32-Bit Memory Error Information (Type 18)
// structure".
class SMType18Obj final : public SMMemoryErrorObj<std::uint32_t> {
 public:
  SMType18Obj() : SMMemoryErrorObj(18, "32-bit Memory Error Information (Type 18)") {}
};

// 64-bit Memory Error Information. Layout: DMTF DSP0134, "64-Bit Memory Error Information (Type 33)
// structure".
class SMType33Obj final : public SMMemoryErrorObj<std::uint64_t> {
 public:
  SMType33Obj() : SMMemoryErrorObj(33, "64-bit Memory Error Information (Type 33)") {}
};

template <typename Object, typename TakeAddress>
void ReadMemoryError(Object& object, TableCursor& cursor, TakeAddress takeAddress) {
  object.SetErrorType(cursor.U8());
  object.SetErrorGranularity(cursor.U8());
  object.SetErrorOperation(cursor.U8());
  object.SetVendorSyndrome(cursor.U32());
  object.SetMemoryArrayErrorAddress(takeAddress());
  object.SetDeviceErrorAddress(takeAddress());
  object.SetErrorResolution(cursor.U32());
}

}  // namespace

void SMBiosReader::ReadType18(TableCursor& cursor) {
  ReadStructure<SMType18Obj>(
      cursor, [&](auto& object) { ReadMemoryError(object, cursor, [&] { return cursor.U32(); }); });
}

void SMBiosReader::ReadType33(TableCursor& cursor) {
  ReadStructure<SMType33Obj>(
      cursor, [&](auto& object) { ReadMemoryError(object, cursor, [&] { return cursor.U64(); }); });
}

}  // namespace kestrel
