#pragma once

#include <stdexcept>
#include <string>

namespace kestrel {

// What the tool's process returns.
enum class ExitCode {
  Done = 0,
  // No SMBIOS to be had: no access, no entry point, an image of no use, or an output that cannot
  // be written.
  Failed = 1,
  WrongUsage = 2,
  // The table that was checked has errors.
  FaultyTable = 3,
};

// Ends a command. The text becomes the one line on standard error, after "kestrel: "; it says what
// went wrong, then ": " and what to do.
class ToolError : public std::runtime_error {
 public:
  explicit ToolError(const std::string& message, ExitCode code = ExitCode::Failed)
      : std::runtime_error(message), Code(code) {}

  ExitCode GetCode() const { return Code; }

 private:
  ExitCode Code;
};

}  // namespace kestrel
