#pragma once

#include <string>

#include "catalog/faults.h"
#include "overview/overview.h"

namespace kestrel {

// The machine on one screen: UTF-8, no line longer than 100 characters, with the line ends of this
// system. Nothing is shown that the table does not say; long lists and texts are cut. Empty where
// the table says nothing of the machine.
std::string OverviewText(const Overview& overview, const catalog::FaultList& faults);

}  // namespace kestrel
