#pragma once

#include <cstdint>

#include "model/sm_obj.h"

namespace kestrel {

class TableCursor;
class TextBlock;

// What 32-bit and 64-bit Memory Error Information have in common: what happened, without where.
class SMMemoryErrorObj : public SMObj {
 public:
  void SetErrorType(std::uint8_t value) { ErrorType = value; }
  void SetErrorGranularity(std::uint8_t value) { ErrorGranularity = value; }
  void SetErrorOperation(std::uint8_t value) { ErrorOperation = value; }
  void SetVendorSyndrome(std::uint32_t value) { VendorSyndrome = value; }

 protected:
  // Adds the lines with which both blocks begin.
  void AddCommonItems(TextBlock& block) const;

 private:
  std::uint32_t VendorSyndrome = 0;
  std::uint8_t ErrorOperation = 0;
  std::uint8_t ErrorGranularity = 0;
  std::uint8_t ErrorType = 0;
};

// Takes the fields with which both layouts go on behind the header.
void ReadMemoryErrorFields(SMMemoryErrorObj& object, TableCursor& cursor);

}  // namespace kestrel
