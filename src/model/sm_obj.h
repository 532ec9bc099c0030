#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace kestrel {

// One decoded structure of the table: its header, its string set, and the two renderings through
// which the rest of the library uses it without knowing its type. Filled by its reader, then only
// read. Layout of a structure: DMTF DSP0134, "Structure header format" and "Text strings".
//
// Both texts are pinned with their oddities. Where a comment in types/ or mif/ points one out, such
// as a missing blank or a value that is not what its label says, the oddity is known and stays.
class SMObj {
 public:
  SMObj() = default;
  SMObj(const SMObj&) = delete;
  SMObj& operator=(const SMObj&) = delete;
  virtual ~SMObj() = default;

  // The object's line, or lines, in the MIF table of its type: complete lines, each with its
  // "\r\n". An object that numbers its row writes `rowIndex` and advances it. Empty for a type that
  // no table shows.
  virtual std::string GetMifTableRow(int& rowIndex) const;

  // The object's block of the text report, with all its line ends. Empty for a type that the
  // report does not show.
  virtual std::string ToString() const;

  void SetType(std::uint8_t type) { Type = type; }
  std::uint8_t GetType() const { return Type; }
  void SetLength(std::uint8_t length) { Length = length; }
  std::uint8_t GetLength() const { return Length; }
  void SetHandle(std::uint16_t handle) { Handle = handle; }

  // How many strings the type declares: at most that many are taken from the structure.
  void SetStringCount(std::uint8_t count) { StringCount = count; }
  std::uint8_t GetStringCount() const { return StringCount; }

  void AddString(std::string_view text) { Strings.emplace_back(text); }

  // The string that a string field names: 1 is the first. Empty for 0 and for a number beyond the
  // strings held. Valid as long as the object.
  std::string_view GetString(std::uint8_t number) const;

  const std::vector<std::string>& GetStrings() const { return Strings; }

 private:
  std::uint8_t StringCount = 0;
  std::uint16_t Handle = 0;
  std::uint8_t Length = 0;
  std::uint8_t Type = 0xFF;
  std::vector<std::string> Strings;

 protected:
  // Ends the lines within a text of several lines.
  const char* LineEnd = "\r\n";
};

// The decoded structures in table order; it owns them.
using SMObjList = std::vector<std::unique_ptr<const SMObj>>;

}  // namespace kestrel
