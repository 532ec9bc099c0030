#include <utility>

#include "firmware/linux_firmware.h"
#include "firmware/table_folder.h"
#include "tools/kestrel/machine.h"

namespace kestrel {

namespace {

std::string TextOfProblem(const SourceResult& result) {
  const std::string tables = "this machine's SMBIOS tables ";
  // A container may have another kind of file in the place of one that it hides.
  if (result.Problem == SourceProblem::NotAFile ||
      result.Error == std::errc::no_such_file_or_directory ||
      result.Error == std::errc::not_a_directory) {
    return std::string("this machine publishes no SMBIOS tables in ") + kKernelTables +
           ": in a container, run it outside";
  }
  if (result.Problem != SourceProblem::CannotRead) {
    return tables + "have no entry point of a known kind: use --image " + kKernelTables +
           " --format raw";
  }
  if (result.Error == std::errc::permission_denied ||
      result.Error == std::errc::operation_not_permitted) {
    return tables + "cannot be read (" + result.Error.message() + "): run it as root";
  }
  return tables + "cannot be read (" + result.Error.message() + "): try again";
}

}  // namespace

std::optional<SmbiosTable> ReadMachine(std::string& failure) {
  SourceResult result = ReadTableFolder(kKernelTables);
  if (result.Problem != SourceProblem::None) {
    failure = TextOfProblem(result);
    return std::nullopt;
  }
  if (result.Table.Bytes.empty()) {
    failure = "this machine's SMBIOS table is empty: update its firmware";
    return std::nullopt;
  }
  return std::move(result.Table);
}

}  // namespace kestrel
