#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "model/sm_entry_point.h"
#include "model/sm_obj.h"

namespace kestrel {

class FirmwareAccess;
class SMType0Obj;
class TableCursor;
struct MifGroupText;

// The structure table as the firmware handed it over.
struct TableCopy {
  // As many bytes as the entry point announces, zeros behind those that could be read.
  std::vector<std::uint8_t> Bytes;
  std::size_t BytesRead = 0;
};

// Reads the structure table through a firmware access, keeps one object per decoded structure, and
// renders them. Every member is defined where its subject lives: the readers of structure types in
// types/, the parts of the MIF document in mif/, the way to the table in firmware/.
//
// Any member but CloseAccess may throw std::bad_alloc; the list of objects is then as it was before
// the call.
class SMBiosReader {
 public:
  // The version that gave some structures further fields. The version of the table tells whether
  // they are there, not the Length of the structure.
  static constexpr int kSmbios23 = 23;

  // Without an access the reader never finds a table; WalkTable works all the same.
  explicit SMBiosReader(std::unique_ptr<FirmwareAccess> access = nullptr);
  SMBiosReader(const SMBiosReader&) = delete;
  SMBiosReader& operator=(const SMBiosReader&) = delete;
  // Does not close the access.
  ~SMBiosReader();

  // firmware/: the access and the way to the table.

  // Open and close the access: false when that fails or there is none.
  bool OpenAccess();
  bool CloseAccess() noexcept;
  // Finds the entry point in the BIOS area and keeps its record: 1, or 0 when there is none.
  int FindEntryPoint();
  // The record, or nullptr as long as none was found.
  const SMEntryPoint* GetEntryPoint() const { return EntryPoint ? &*EntryPoint : nullptr; }
  // Copies the table, after a search for the entry point if none is held yet. Nothing when there is
  // no entry point, or when none of the table's bytes could be read.
  std::optional<TableCopy> CopyTable();
  // Copies the table and walks it, which appends its structures behind those of earlier calls: 1,
  // or 0 and an unchanged list when there is no table.
  int ReadTable();

  // model/: the walk, the list and the report.

  // Appends one object for each structure of a type that has a reader.
  void WalkTable(std::span<const std::uint8_t> table);
  // Major version times 10 plus minor version; 0 while no entry point is held.
  int GetSpecVersion() const;
  const SMObjList& GetObjects() const { return Objects; }
  // The first object of a type, or nullptr.
  const SMObj* GetFirstObj(std::uint8_t type) const;
  std::string BuildTextReport() const;

  // types/: each reader takes one structure, with the cursor on its Length byte, and appends its
  // object to the list.
#define KESTREL_STRUCTURE_TYPE(number) void ReadType##number(TableCursor& cursor);
#include "model/structure_types.def"
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
  // What the readers of structure types share.

  // Takes Length and Handle.
  static void ReadHeader(SMObj& object, TableCursor& cursor);
  // Fills the string set from the first byte behind the formatted area, with at most the declared
  // number of strings.
  void CollectStrings(SMObj& object, TableCursor& cursor) const;
  // Moves past the end of one string; gives the new position.
  static std::size_t SkipString(TableCursor& cursor);
  void AppendObject(std::unique_ptr<const SMObj> object);

  std::string MakeGroup(const MifGroupText& group, int& idCounter) const;
  // Empty, and the counter untouched, if the table has no rows.
  std::string MakeMifTable(int& idCounter, std::uint8_t tableCode) const;
  std::string CollectMifRows(std::uint8_t tableCode) const;

  std::unique_ptr<FirmwareAccess> Access;
  SMObjList Objects;
  // Declared after the objects, so that it is destroyed before them.
  std::optional<SMEntryPoint> EntryPoint;
  // During a walk: where in the table copy the current structure begins, and the list of what was
  // read so far, which joins Objects only when the walk is done.
  std::size_t StructureStart = 0;
  SMObjList* Walked = nullptr;
};

}  // namespace kestrel
