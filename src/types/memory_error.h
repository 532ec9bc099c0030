#pragma once

#include <cstdint>

#include "model/sm_obj.h"
#include "model/text_block.h"

namespace kestrel {

class TableCursor;

// What 32-bit and 64-bit Memory Error Information have in common: what happened, but not where.
class SMMemoryErrorObj : public SMObj {
 public:
  void SetErrorType(std::uint8_t value) { ErrorType = value; }
  void SetErrorGranularity(std::uint8_t value) { ErrorGranularity = value; }
  void SetErrorOperation(std::uint8_t value) { ErrorOperation = value; }
  void SetVendorSyndrome(std::uint32_t value) { VendorSyndrome = value; }

  ItemText GetErrorTypeText() const;
  ItemText GetErrorGranularityText() const;
  ItemText GetErrorOperationText() const;
  ItemText GetVendorSyndromeText() const;

 protected:
  // Adds the lines that both blocks begin with.
  void AddCommonItems(TextBlock& block) const;

 private:
  std::uint32_t VendorSyndrome = 0;
  std::uint8_t ErrorOperation = 0;
  std::uint8_t ErrorGranularity = 0;
  std::uint8_t ErrorType = 0;
};

// Reads the fields that follow the header in both layouts.
void ReadMemoryErrorFields(SMMemoryErrorObj& object, TableCursor& cursor);

}  // namespace kestrel
