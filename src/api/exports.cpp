#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

#include "api/guard.h"
#include "kestrel.h"
#include "model/firmware_access.h"
#include "model/smbios_reader.h"
#include "types/type00_bios_information.h"

namespace {

using kestrel::Guard;
using kestrel::ItemText;
using kestrel::SMBiosReader;
using kestrel::SMType0Obj;

// A plain pointer, so that unloading the library destroys nothing, even if the host forgot
// CloseSMBios.
SMBiosReader* libraryReader = nullptr;

std::int32_t CopyText(std::string_view text, std::int32_t bufferSize, char* buffer) {
  if (bufferSize < 1 || buffer == nullptr) {
    return 0;
  }
  const std::size_t room = static_cast<std::size_t>(bufferSize) - 1;
  const std::size_t count = std::min(text.size(), room);
  std::memcpy(buffer, text.data(), count);
  buffer[count] = '\0';
  return static_cast<std::int32_t>(count);
}

// Copies what follows the label of an item text, with the blank that ends the label.
std::int32_t CopyBiosValue(ItemText (SMType0Obj::*itemText)() const, std::string_view label,
                           std::int32_t bufferSize, char* buffer) {
  const SMType0Obj* bios = libraryReader != nullptr ? libraryReader->GetType0Obj() : nullptr;
  if (bios == nullptr) {
    return 0;
  }
  const ItemText text = (bios->*itemText)();
  return CopyText(std::string_view(text).substr(label.size() - 1), bufferSize, buffer);
}

std::int32_t CopyRendering(std::string (SMBiosReader::*render)() const, std::int32_t bufferSize,
                           char* buffer) {
  if (libraryReader == nullptr) {
    return 0;
  }
  return CopyText((libraryReader->*render)(), bufferSize, buffer);
}

// Returns false when there is no reader.
bool CloseAndDestroyReader() {
  if (libraryReader == nullptr) {
    return false;
  }
  libraryReader->CloseAccess();
  delete libraryReader;
  libraryReader = nullptr;
  return true;
}

}  // namespace

std::int32_t KESTREL_CALL CloseSMBios() {
  return Guard([] { return CloseAndDestroyReader() ? 1 : 0; });
}

std::int32_t KESTREL_CALL GetSMBiosDate(std::int32_t bufferSize, char* buffer) {
  return Guard([=] {
    return CopyBiosValue(&SMType0Obj::GetReleaseDateText, kestrel::kReleaseDateLabel, bufferSize,
                         buffer);
  });
}

std::int32_t KESTREL_CALL GetSMBiosVendor(std::int32_t bufferSize, char* buffer) {
  return Guard([=] {
    return CopyBiosValue(&SMType0Obj::GetVendorText, kestrel::kVendorLabel, bufferSize, buffer);
  });
}

std::int32_t KESTREL_CALL GetSMBiosVersion(std::int32_t bufferSize, char* buffer) {
  return Guard([=] {
    return CopyBiosValue(&SMType0Obj::GetVersionText, kestrel::kVersionLabel, bufferSize, buffer);
  });
}

const void* KESTREL_CALL GetSMType0Obj() {
  return libraryReader != nullptr ? libraryReader->GetType0Obj() : nullptr;
}

std::int32_t KESTREL_CALL OpenSMBios() {
  const bool isReplaced = Guard([] {
    auto reader = std::make_unique<SMBiosReader>(kestrel::MakeMachineAccess());
    CloseAndDestroyReader();
    libraryReader = reader.release();
    return true;
  });
  if (!isReplaced) {
    return 0;
  }
  const bool isOpen = Guard([] { return libraryReader->OpenAccess(); });
  if (!isOpen) {
    libraryReader->CloseAccess();
  }
  return isOpen ? 1 : 0;
}

std::int32_t KESTREL_CALL ReadSMObjects() {
  return Guard([] { return libraryReader != nullptr ? libraryReader->ReadTable() : 0; });
}

std::int32_t KESTREL_CALL SMObjsToMifString(std::int32_t bufferSize, char* buffer) {
  return Guard([=] { return CopyRendering(&SMBiosReader::ObjsToMifString, bufferSize, buffer); });
}

std::int32_t KESTREL_CALL SMObjsToString(std::int32_t bufferSize, char* buffer) {
  return Guard([=] { return CopyRendering(&SMBiosReader::BuildTextReport, bufferSize, buffer); });
}
