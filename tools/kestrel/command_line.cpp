#include "tools/kestrel/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <cstdint>
#include <optional>
#include <string_view>
#include <system_error>
#include <vector>

#include "tools/kestrel/tool_error.h"

namespace kestrel {

namespace {

constexpr const char* kVersion = "kestrel " KESTREL_VERSION;

struct KindName {
  std::string_view Name;
  ImageKind Kind;
};

constexpr KindName kKinds[] = {
    {"auto", ImageKind::Auto}, {"memory", ImageKind::Memory}, {"dump", ImageKind::Dump},
    {"rsmb", ImageKind::Rsmb}, {"raw", ImageKind::Raw},
};

ImageKind ToKind(std::string_view name) {
  for (const KindName& row : kKinds) {
    if (row.Name == name) {
      return row.Kind;
    }
  }
  throw CLI::ValidationError("--format", "takes auto, memory, dump, rsmb or raw");
}

// A whole number of up to 255, in decimal digits and nothing else.
std::optional<std::uint8_t> ToByte(std::string_view text) {
  std::uint8_t value = 0;
  const char* end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  if (error != std::errc() || stop != end) {
    return std::nullopt;
  }
  return value;
}

SmbiosVersion ToVersion(std::string_view text) {
  const std::size_t point = text.find('.');
  if (point != std::string_view::npos) {
    const auto major = ToByte(text.substr(0, point));
    const auto minor = ToByte(text.substr(point + 1));
    if (major && minor) {
      return {*major, *minor};
    }
  }
  throw CLI::ValidationError("--smbios-version", "takes a version like 2.3");
}

void AddSource(CLI::App& command, SourceOptions& source) {
  CLI::Option* image =
      command.add_option("--image", source.Image, "A saved image instead of this machine");
  image->type_name("FILE");
  const auto setKind = [&source](const std::string& name) { source.Format = ToKind(name); };
  command
      .add_option_function<std::string>(
          "--format", setKind, "The kind of the image: auto (default), memory, dump, rsmb or raw")
      ->type_name("KIND")
      ->needs(image);
  const auto setVersion = [&source](const std::string& text) {
    source.RawVersion = ToVersion(text);
    if (source.Format != ImageKind::Auto && source.Format != ImageKind::Raw) {
      throw CLI::ValidationError("--smbios-version", "goes with a raw table only");
    }
  };
  command
      .add_option_function<std::string>(
          "--smbios-version", setVersion,
          "The version of a raw table, which carries none (default 2.3)")
      ->type_name("M.N")
      ->needs(image);
  command.add_flag("--sample", source.Sample, "The built-in example PC instead of this machine")
      ->excludes(image);
}

struct CommandRow {
  Command Chosen;
  const char* Name;
  const char* Description;
};

constexpr CommandRow kCommands[] = {
    {Command::Report, "report", "The text report"},
    {Command::Mif, "mif", "The MIF document, as consoles read it"},
    {Command::Bios, "bios", "Vendor, version and release date of the BIOS"},
    {Command::List, "list", "A line per structure: offset, type, length, handle, name"},
    {Command::Save, "save", "Save this machine's entry point and table, for --image to read"},
};

void AddOptions(CLI::App& app, Command command, CommandLine& line) {
  if (command == Command::Save) {
    app.add_option("FILE", line.Output, "Where the dump goes")->required()->type_name("");
    app.parse_complete_callback([&line] { line.Source.MachineOnly = true; });
    return;
  }
  AddSource(app, line.Source);
  if (command == Command::Report) {
    app.add_flag("--exact", line.Exact,
                 "The library's bytes (Windows-1252, CR LF) instead of UTF-8");
  }
  if (command == Command::Report || command == Command::Mif) {
    app.add_option("-o,--output", line.Output, "Write to a file")->type_name("FILE");
  }
}

// CLI11's message as the tool's one line: what went wrong, then what to do.
std::string UsageMessage(const CLI::App& app, const CLI::ParseError& error) {
  const std::vector<std::string> rest = app.remaining();
  const auto commands = app.get_subcommands();
  std::string message = error.what();
  std::string help = "kestrel --help";
  if (std::any_of(rest.begin(), rest.end(), [](const auto& word) { return word[0] == '-'; })) {
    message = "options stand behind the command";
  } else if (commands.empty()) {
    message = rest.empty() ? "a command is missing" : "there is no command " + rest.front();
  } else {
    help = "kestrel " + commands.front()->get_name() + " --help";
  }
  return message + ": see '" + help + "'";
}

}  // namespace

ParsedCommandLine ParseCommandLine(int argumentCount, const char* const* arguments) {
  ParsedCommandLine parsed;
  CLI::App app("Shows the SMBIOS structure table of this machine, or of a saved image.", "kestrel");
  app.set_version_flag("--version", kVersion, "Show the version");
  app.set_help_flag("--help", "Show the help");
  app.require_subcommand(1);
  for (const CommandRow& row : kCommands) {
    CLI::App* command = app.add_subcommand(row.Name, row.Description);
    AddOptions(*command, row.Chosen, parsed.Line);
    command->callback([&parsed, &row] { parsed.Line.Chosen = row.Chosen; });
  }
  try {
    app.parse(argumentCount, arguments);
  } catch (const CLI::CallForHelp&) {
    parsed.Answer = app.help();
  } catch (const CLI::CallForVersion&) {
    parsed.Answer = std::string(kVersion) + "\n";
  } catch (const CLI::ParseError& error) {
    throw ToolError(UsageMessage(app, error), ExitCode::WrongUsage);
  }
  return parsed;
}

}  // namespace kestrel
