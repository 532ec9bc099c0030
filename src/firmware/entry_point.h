#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "base/smbios_table.h"
#include "firmware/table_measure.h"
#include "model/sm_entry_point.h"

namespace kestrel {

// The most bytes that a 32-bit entry point can announce.
inline constexpr std::size_t kLongestTable = 65535;

// The most bytes of a table that are loaded, however long it claims to be. No firmware comes close.
inline constexpr std::uint32_t kLargestLoad = 16U * 1024U * 1024U;

// Whether `bytes` start like a 32-bit or 64-bit entry point.
bool HasEntryPointAnchor(std::span<const std::uint8_t> bytes);

// Reads the entry point at the start of `bytes`. Nothing when there is none, or only a part of one.
// Checksums are not verified.
std::optional<EntryPointFacts> ParseEntryPoint(std::span<const std::uint8_t> bytes);

// The bytes of the record, in the order of its layout.
std::vector<std::uint8_t> EntryPointBytes(const SMEntryPoint& record);

// A 32-bit entry point with both checksums, for a table of `tableLength` bytes with the structures
// of `size`.
std::vector<std::uint8_t> MakeEntryPoint(SmbiosVersion version, std::uint32_t tableAddress,
                                         std::uint16_t tableLength, const TableSize& size);

// A 64-bit entry point for a table that is too long for a 32-bit one.
std::vector<std::uint8_t> Make64BitEntryPoint(SmbiosVersion version, std::uint64_t tableAddress,
                                              std::uint32_t tableLength);

// The bytes of an entry point, with another table address. The checksum changes by as much as the
// address, so that a wrong one stays wrong.
std::vector<std::uint8_t> WithTableAddress(const EntryPointFacts& entryPoint,
                                           std::uint32_t tableAddress);

}  // namespace kestrel
