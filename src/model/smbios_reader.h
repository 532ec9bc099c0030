#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "model/firmware_access.h"
#include "model/sm_entry_point.h"
#include "model/sm_obj.h"

namespace kestrel {

class SMType0Obj;
class TableCursor;
struct MifGroup;

// The structure table as the firmware handed it over.
struct TableCopy {
  // As many bytes as the entry point announces; zeros after the last one that could be read.
  std::vector<std::uint8_t> Bytes;
  std::size_t BytesRead = 0;
};

// Reads the structure table through a firmware access, keeps one object per decoded structure, and
// renders them. Every member is defined where its subject lives: the readers of structure types in
// types/, the parts of the MIF document in mif/, the way to the table in firmware/.
//
// `SM` and `SMBios` are how the exports spell it, and the pinned classes follow them. What both
// families share is spelled `Smbios`.
//
// Any member except CloseAccess may throw std::bad_alloc and then leaves the list of objects as it
// was.
class SMBiosReader {
 public:
  // The version that added fields to some structures. Whether they are there is decided by the
  // version of the table, not by the Length of the structure.
  static constexpr int kSmbios23 = 23;

  // Without an access the reader finds no table; WalkTable works nevertheless.
  explicit SMBiosReader(std::unique_ptr<FirmwareAccess> access = nullptr)
      : Access(std::move(access)) {}
  SMBiosReader(const SMBiosReader&) = delete;
  SMBiosReader& operator=(const SMBiosReader&) = delete;
  // Does not close the access: call CloseAccess first.
  ~SMBiosReader() = default;

  // Return false if the access cannot be opened or closed, or if there is none.
  bool OpenAccess() { return Access && Access->Open() != 0; }
  bool CloseAccess() noexcept { return Access && Access->Close() != 0; }

  // firmware/: the way to the table.

  // Searches the BIOS area for the entry point and keeps its record. Returns 1, or 0 if there is no
  // entry point. The first anchor ends the search, even if the entry point cannot be read there.
  // Checksums are ignored.
  int FindEntryPoint();
  // The record, or nullptr if none has been found yet.
  const SMEntryPoint* GetEntryPoint() const { return EntryPoint ? &*EntryPoint : nullptr; }
  // Copies the table; searches for the entry point first, if none is held yet. Empty if there is no
  // entry point or if no byte of the table can be read.
  std::optional<TableCopy> CopyTable();
  // Copies the table and walks it, which appends its structures to those of earlier calls. Returns
  // 1, or 0 if there is no table.
  int ReadTable();

  // model/: the walk, the list and the report.

  // Appends an object for each structure whose type has a reader.
  void WalkTable(std::span<const std::uint8_t> table);
  // Major version times 10 plus minor version; 0 if no entry point is held.
  int GetSpecVersion() const;
  const SMObjList& GetObjects() const { return Objects; }
  // The first object of a type, or nullptr.
  const SMObj* GetFirstObj(std::uint8_t type) const;
  std::string BuildTextReport() const;

  // types/: a reader takes one structure, the cursor on its Length byte, and appends its object to
  // the list. It leaves the cursor after what it read, not at the next structure.
#define KESTREL_STRUCTURE_TYPE(number) void ReadType##number(TableCursor& cursor);
#include "model/type_readers.def"
#undef KESTREL_STRUCTURE_TYPE

  // The first BIOS Information object, or nullptr.
  const SMType0Obj* GetType0Obj() const;

  // mif/: the MIF document and its parts. A group writer takes one number from the ID counter and
  // returns the text of its group, followed by that of the group's table.
  std::string ObjsToMifString() const;
  std::string MakeComponentIDGroup(int& idCounter) const;
  std::string MakeSystemBiosGroup(int& idCounter) const;
  std::string MakeBiosCharacteristicGroup(int& idCounter) const;
  std::string MakeProcessorGroup(int& idCounter) const;
  std::string MakeSystemCacheGroup(int& idCounter) const;
  std::string MakeSystemSlotGroup(int& idCounter) const;
  std::string MakePhysicalMemoryArrayGroup(int& idCounter) const;
  std::string MakeMemoryArrayMappedAddressesGroup(int& idCounter) const;
  std::string MakeMemoryDeviceGroup(int& idCounter) const;
  std::string MakeMemoryDeviceMappedAddressesGroup(int& idCounter) const;
  std::string GetComponentManufacturer() const;
  std::string GetComponentProduct() const;
  std::string GetComponentVersion() const;
  std::string GetComponentSerialNumber() const;

 private:
  // What every reader of a structure type does: makes the object, reads the header, the fields and
  // the strings, and appends the object. `readFields` is called with the object, the cursor after
  // the header; it may change how many strings the object declares.
  template <typename Object, typename ReadFields>
  void ReadStructure(TableCursor& cursor, ReadFields readFields) {
    auto object = std::make_unique<Object>();
    ReadHeader(*object, cursor);
    readFields(*object);
    CollectStrings(*object, cursor);
    Objects.push_back(std::move(object));
  }
  // Reads Length and Handle, and notes where the structure starts.
  void ReadHeader(SMObj& object, TableCursor& cursor);
  // Fills the string set with the strings that follow the formatted area, at most as many as the
  // object declares. Does nothing if it declares none.
  void CollectStrings(SMObj& object, TableCursor& cursor) const;
  // Moves past the end of a string and returns the new position.
  static std::size_t SkipString(TableCursor& cursor);

  // Checks the data of the group as it is compiled (mif/mif_group_checks.h), then writes it.
  template <const MifGroup& Group>
  std::string MakeGroup(int& idCounter) const;
  std::string WriteGroup(const MifGroup& group, int& idCounter) const;
  // Empty, and the counter untouched, if the table has no rows.
  std::string MakeMifTable(int& idCounter, std::uint8_t tableCode) const;
  std::string CollectMifRows(std::uint8_t tableCode) const;

  std::unique_ptr<FirmwareAccess> Access;
  SMObjList Objects;
  // Declared after the objects, so that it is destroyed before them.
  std::optional<SMEntryPoint> EntryPoint;
  // Where in the table the structure starts that a reader reads.
  std::size_t StructureStart = 0;
};

}  // namespace kestrel
