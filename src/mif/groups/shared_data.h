#pragma once

#include "mif/mif_group.h"

namespace kestrel {

// What several groups share word for word.

inline constexpr MifAttribute kFruGroupIndex = {
    .Name = "FRU Group Index",
    .Storage = kCommon,
    .Type = kInteger,
    .Value = "0",
    .Description =
        "If this is a Field Replaceable Unit or if it is part of \n"
        "another FRU, this provides an index into the FRU table; 'value \n"
        "= -1' indicates that the group is not a FRU.",
};

inline constexpr MifEnumItem kMemoryErrorType[] = {
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
    {12, "Corrected Single-bit error"},
    {13, "Corrected error"},
    {14, "Uncorrectable error"},
};

inline constexpr MifEnumItem kLastErrorUpdate[] = {
    {1, "Other"},
    {2, "Unknown"},
    {3, "No update since last instrumentation start."},
    {4, "Updated from information obtained prior to instrumentation start."},
    {5, "Updated during instrumentation run-time."},
};

inline constexpr MifEnumItem kErrorOperations[] = {
    {1, "Other"}, {2, "Unknown"}, {3, "Read"}, {4, "Write"}, {5, "Partial write"},
};

inline constexpr MifAttribute kErrorOperation = {
    .Name = "Error Operation",
    .Storage = kCommon,
    .Type = kEnumeration,
    .Value = "1",
    .Description = "The memory access operation that caused the current error.",
    .Items = kErrorOperations,
};

inline constexpr MifAttribute kOperationalGroupIndex = {
    .Name = "Operational Group Index",
    .Storage = kCommon,
    .Type = kInteger,
    .Value = "0",
    .Description = "The index into the Operational State Table for this device.",
};

}  // namespace kestrel
