#include <memory>
#include <utility>

#include "firmware/firmware_access.h"
#include "model/smbios_reader.h"

namespace kestrel {

SMBiosReader::SMBiosReader(std::unique_ptr<FirmwareAccess> access) : Access(std::move(access)) {}

SMBiosReader::~SMBiosReader() = default;

bool SMBiosReader::OpenAccess() { return Access && Access->Open() != 0; }

bool SMBiosReader::CloseAccess() noexcept { return Access && Access->Close() != 0; }

}  // namespace kestrel
