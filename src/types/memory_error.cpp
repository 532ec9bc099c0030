#include "types/memory_error.h"

#include "base/table_cursor.h"
#include "model/code_text.h"

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

}  // namespace

ItemText SMMemoryErrorObj::GetErrorTypeText() const {
  return {"Error Type : ", TextOfCode(kErrorTypes, ErrorType, kNothing)};
}

ItemText SMMemoryErrorObj::GetErrorGranularityText() const {
  return {"Error Granularity : ", TextOfCode(kErrorGranularities, ErrorGranularity, kNothing)};
}

ItemText SMMemoryErrorObj::GetErrorOperationText() const {
  return {"Error Operation : ", TextOfCode(kErrorOperations, ErrorOperation, kNothing)};
}

// No "h" after the digits: intended.
ItemText SMMemoryErrorObj::GetVendorSyndromeText() const {
  return {"Vendor Syndrome : ", Hex(VendorSyndrome, 8)};
}

void SMMemoryErrorObj::AddCommonItems(TextBlock& block) const {
  block.Item(GetErrorTypeText());
  block.Item(GetErrorGranularityText());
  block.Item(GetErrorOperationText());
  block.Item(GetVendorSyndromeText());
}

void ReadMemoryErrorFields(SMMemoryErrorObj& object, TableCursor& cursor) {
  object.SetErrorType(cursor.U8());
  object.SetErrorGranularity(cursor.U8());
  object.SetErrorOperation(cursor.U8());
  object.SetVendorSyndrome(cursor.U32());
}

}  // namespace kestrel
