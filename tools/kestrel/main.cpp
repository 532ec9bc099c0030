#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <new>
#include <string>

#if defined(_WIN32)
#include <string_view>
#include <vector>

#include "platform/win32.h"
#endif

#include "tools/kestrel/command_line.h"
#include "tools/kestrel/commands.h"
#include "tools/kestrel/complaint.h"
#include "tools/kestrel/output.h"
#include "tools/kestrel/tool_error.h"

namespace {

using kestrel::Complain;
using kestrel::ExitCode;

ExitCode Try(int argumentCount, const char* const* arguments) {
  const kestrel::ParsedCommandLine parsed = kestrel::ParseCommandLine(argumentCount, arguments);
  if (!parsed.Answer.empty()) {
    const auto output = kestrel::MakeStandardOutput();
    output->Write(parsed.Answer);
    output->Finish();
    return ExitCode::Done;
  }
  return kestrel::RunCommand(parsed.Line);
}

// Ends the process from where it stands: the way back leads through destructors and streams of
// other libraries, which need memory themselves.
[[noreturn]] void EndWithoutMemory() {
  kestrel::RemoveUnfinishedFile();
  static_cast<void>(
      std::fputs("kestrel: there is not enough memory: close other programs\n", stderr));
  std::_Exit(static_cast<int>(ExitCode::Failed));
}

int Run(int argumentCount, const char* const* arguments) {
  std::set_new_handler(EndWithoutMemory);
  ExitCode code = ExitCode::Failed;
  try {
    code = Try(argumentCount, arguments);
  } catch (const kestrel::ToolError& error) {
    Complain(error.what());
    code = error.GetCode();
  } catch (const kestrel::ReaderGone&) {
    code = ExitCode::Done;
  } catch (const std::exception& error) {
    Complain(std::string(error.what()) + ": report this as a fault of the tool");
  }
  return static_cast<int>(code);
}

}  // namespace

#if defined(_WIN32)

namespace {

std::string ToUtf8(std::wstring_view wide) {
  // No UTF-16 unit takes more than three bytes.
  const int length = static_cast<int>(wide.size());
  std::string utf8(3 * wide.size(), '\0');
  utf8.resize(static_cast<std::size_t>(WideCharToMultiByte(
      CP_UTF8, 0, wide.data(), length, utf8.data(), 3 * length, nullptr, nullptr)));
  return utf8;
}

}  // namespace

// Only as UTF-16 does Windows hand over file names of every script.
int wmain(int argumentCount, wchar_t** wideArguments) {
  std::vector<std::string> texts;
  for (int index = 0; index < argumentCount; ++index) {
    texts.push_back(ToUtf8(wideArguments[index]));
  }
  std::vector<const char*> arguments;
  for (const std::string& text : texts) {
    arguments.push_back(text.c_str());
  }
  return Run(argumentCount, arguments.data());
}

#else

int main(int argumentCount, char** arguments) {
  // A reader that goes away, and a file that may not grow, show as a failed write.
  static_cast<void>(std::signal(SIGPIPE, SIG_IGN));
  static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
  return Run(argumentCount, arguments);
}

#endif
