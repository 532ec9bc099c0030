#include "firmware/access_driver.h"

namespace kestrel {

std::unique_ptr<FirmwareAccess> MakeMachineAccess() { return std::make_unique<AccessDriver>(); }

}  // namespace kestrel
