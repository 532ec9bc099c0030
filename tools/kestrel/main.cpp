#include <algorithm>
#include <csignal>
#include <exception>
#include <iostream>
#include <new>
#include <string>

#include "tools/kestrel/command_line.h"
#include "tools/kestrel/commands.h"
#include "tools/kestrel/output.h"
#include "tools/kestrel/tool_error.h"

namespace {

using kestrel::ExitCode;

// One line, whatever the names of files in it hold.
void Complain(std::string message) {
  std::replace_if(
      message.begin(), message.end(),
      [](char character) { return static_cast<unsigned char>(character) < ' '; }, '?');
  std::cerr << "kestrel: " << message << '\n';
}

ExitCode Run(int argumentCount, const char* const* arguments) {
  const kestrel::ParsedCommandLine parsed = kestrel::ParseCommandLine(argumentCount, arguments);
  if (!parsed.Answer.empty()) {
    kestrel::WriteToStandardOutput(parsed.Answer);
    return ExitCode::Done;
  }
  for (const std::string& warning : kestrel::RunCommand(parsed.Line)) {
    Complain("warning: " + warning);
  }
  return ExitCode::Done;
}

}  // namespace

int main(int argumentCount, char** arguments) {
#if defined(SIGPIPE)
  // A reader that goes away shows as a failed write.
  static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
#endif
  ExitCode code = ExitCode::Failed;
  try {
    code = Run(argumentCount, arguments);
  } catch (const kestrel::ToolError& error) {
    Complain(error.what());
    code = error.GetCode();
  } catch (const std::bad_alloc&) {
    Complain("there is not enough memory: close other programs");
  } catch (const std::exception& error) {
    Complain(std::string(error.what()) + ": report this as a fault of the tool");
  }
  return static_cast<int>(code);
}
