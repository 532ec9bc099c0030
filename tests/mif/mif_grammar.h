#pragma once

#include <string>
#include <string_view>

namespace kestrel {

// Reads a document as a management console does: by the MIF grammar of DMTF DSP0001, and by what a
// console takes for granted of it. Gives the first fault, or nothing for a sound document.
//
// Known of the library's documents, intended, and therefore no fault:
// - Keywords come in several spellings (NAME, CLASS, "Start Enum"); the grammar knows no case.
// - All rows of the processors, and all of the BIOS, have the same key.
// - A number of an enumerated type need not be an item; it is the firmware's code. Only defaults
//   are held to the items.
// - Numbers are unsigned, up to 4294967295 where the grammar would end at 2147483647.
// - A date may be empty or short, a string longer than its type says.
// - An attribute may have no value although its group is no template (System Cache).
// - Nothing within a string is escaped. A quote or a backslash in a string of the firmware is a
//   fault all the same: no console could read on.
std::string FaultOf(std::string_view document);

}  // namespace kestrel
