#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace kestrel {

// Each of these appends a JSON string, quotes included. All control characters are escaped, DEL and
// those from 80h to 9Fh among them, which JSON would let through.

// A text of the firmware, in Windows-1252. At most six bytes for each of its own, and the quotes.
void AppendQuotedFirmwareText(std::string& json, std::string_view text);

// A name or a message. What is not UTF-8 becomes U+FFFD, one for each byte.
void AppendQuotedUtf8(std::string& json, std::string_view text);

// Bytes in hexadecimal.
void AppendQuotedHex(std::string& json, std::span<const std::uint8_t> bytes);

}  // namespace kestrel
