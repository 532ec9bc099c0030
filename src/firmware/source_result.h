#pragma once

#include <system_error>
#include <utility>

#include "base/smbios_table.h"

namespace kestrel {

// Why a source has no table.
enum class SourceProblem {
  None,
  CannotRead,     // Error says why
  NotAFile,       // a device, a pipe and the like, or one of them in a folder of tables
  Empty,          // no bytes at all
  TooLarge,       // too long for a raw table
  NotRecognised,  // none of the kinds fits, or not the one that was asked for
  NoEntryPoint,   // none where it should be, or none of a known kind
  EntryPointCut,  // the source ends inside the entry point
  TableOutside,   // the table that the entry point names is not in the image
  TableEmpty,     // a table of no bytes is announced
};

// A table, or the reason why a source has none.
struct SourceResult {
  SourceResult() = default;
  // NOLINTNEXTLINE(google-explicit-constructor): a source returns one or the other.
  SourceResult(SmbiosTable table) : Table(std::move(table)) {}
  SourceResult(SourceProblem problem, std::error_code error = {})
      : Problem(problem), Error(error) {}

  SmbiosTable Table;
  SourceProblem Problem = SourceProblem::None;
  std::error_code Error;
};

}  // namespace kestrel
