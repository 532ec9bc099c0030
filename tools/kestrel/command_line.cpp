#include "tools/kestrel/command_line.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <cstdint>
#include <functional>
#include <optional>
#include <string_view>
#include <system_error>
#include <utility>
#include <vector>

#include "tools/kestrel/file_name.h"
#include "tools/kestrel/structure_choice.h"
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

// Shows what an option takes, without the options that it needs or excludes.
class HelpFormatter : public CLI::Formatter {
 public:
  HelpFormatter() {
    // The width of "  --smbios-version M.N  ".
    column_width(24);
    label("SUBCOMMAND", "COMMAND");
    label("Positionals", "Arguments");
  }

  std::string make_help(const CLI::App* app, std::string name,
                        CLI::AppFormatMode mode) const override {
    const std::string help = CLI::Formatter::make_help(app, std::move(name), mode);
    return CLI::detail::find_and_replace(help, "\n\n\n", "\n\n");
  }

  std::string make_option_opts(const CLI::Option* option) const override {
    const std::string taken = option->get_type_size() == 0 ? "" : option->get_type_name();
    return taken.empty() ? "" : " " + taken;
  }
};

// An option that takes text. `set` is called for each text that is given.
CLI::Option* AddText(CLI::App& app, const char* name, const char* taken, const char* description,
                     std::function<void(const std::string&)> set) {
  const auto setAll = [set = std::move(set)](const CLI::results_t& texts) {
    std::for_each(texts.begin(), texts.end(), set);
    return true;
  };
  return app.add_option(name, setAll, description)->type_name(taken);
}

void AddSource(CLI::App& app, SourceOptions& source) {
  constexpr const char* kGroup = "Source, where it is not this machine";
  const auto setImage = [&source](const std::string& name) { source.Image = ToPath(name); };
  CLI::Option* image = AddText(app, "--image", "FILE",
                               "A saved image, a folder with smbios_entry_point and DMI,\n"
                               "or - for an image on standard input",
                               setImage)
                           ->group(kGroup);
  const auto setKind = [&source](const std::string& name) { source.Format = ToKind(name); };
  AddText(app, "--format", "KIND", "Its kind: auto (default), memory, dump, rsmb or raw", setKind)
      ->group(kGroup)
      ->needs(image);
  const auto setVersion = [&source](const std::string& text) {
    source.RawVersion = ToVersion(text);
    if (source.Format != ImageKind::Auto && source.Format != ImageKind::Raw) {
      throw CLI::ValidationError("--smbios-version", "goes with a raw table only");
    }
  };
  AddText(app, "--smbios-version", "M.N", "Its version, if it is a raw table (default 2.3)",
          setVersion)
      ->group(kGroup)
      ->needs(image);
  app.add_flag("--sample", source.Sample, "The built-in example, an invented PC of 2002")
      ->group(kGroup)
      ->excludes(image);
}

void AddOptions(CLI::App& app, CommandLine& line) {
  const unsigned options = line.Chosen->Options;
  const auto setOutput = [&line](const std::string& name) { line.Output = ToPath(name); };
  if ((options & kTakesNewFile) != 0) {
    AddText(app, "FILE", "", "Where the dump goes", setOutput)->required();
    app.add_flag("--force", line.Force, "Write over a file that is there");
  }
  if ((options & kTakesExact) != 0) {
    app.add_flag("--exact", line.Exact, "The library's bytes: Windows-1252 and CR LF, not UTF-8");
  }
  if ((options & kTakesTypes) != 0) {
    const auto addTypes = [&line](const std::string& text) {
      if (!AppendTypes(line.Types, text)) {
        throw CLI::ValidationError("--type",
                                   "takes a number up to 255, or " + std::string(kTypeWords));
      }
    };
    AddText(app, "--type", "N",
            "Only structures of this type, a number or a word; may be given again", addTypes)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
        ->trigger_on_parse();
  }
  if ((options & kTakesOverview) != 0) {
    app.add_flag("--overview", line.OnlyOverview, "The machine at a glance instead of structures")
        ->excludes(app.get_option("--type"));
  }
  if ((options & kTakesHandle) != 0) {
    const auto setHandle = [&line](const std::string& text) {
      line.Handle = ToHandle(text);
      if (!line.Handle) {
        throw CLI::ValidationError("--handle", "takes a number like 0008h, 0x8 or 8");
      }
    };
    AddText(app, "--handle", "H", "Only the structure with this handle", setHandle);
  }
  if ((options & kTakesKeywords) != 0) {
    const auto addKeyword = [&line](const std::string& name) {
      line.Keywords.push_back(FindKeyword(name));
      if (line.Keywords.back() == nullptr) {
        throw CLI::ValidationError("there is no keyword " + name + ", the nearest is " +
                                   std::string(NearestKeyword(name)));
      }
    };
    AddText(app, "KEYWORD", "", "What to show, see below", addKeyword)
        ->required()
        ->expected(1, -1)
        ->allow_extra_args();
  }
  if ((options & kTakesOutput) != 0) {
    AddText(app, "-o,--output", "FILE", "Write to a file, or with - to standard output", setOutput);
  }
  if ((options & kTakesSource) != 0) {
    AddSource(app, line.Source);
  }
  if ((options & kTakesLines) != 0) {
    app.add_flag("--lines", line.Lines, "JSON on one line, without blanks");
    const auto setList = [&line](const std::string& name) { line.ImagesFrom = ToPath(name); };
    AddText(app, "--images-from", "LIST",
            "Images that a list names, one per line, - for standard input: a line of JSON each",
            setList)
        ->excludes(app.get_option("--image"))
        ->excludes(app.get_option("--sample"));
  }
  line.Source.MachineOnly = (options & kTakesSource) == 0;
  line.Source.IgnoresVersion = (options & kIgnoresVersion) != 0;
}

// What the tool itself takes, and the names of its commands for the help.
void AddCommands(CLI::App& app) {
  app.set_version_flag("-V,--version", kVersion, "Show the version");
  app.footer("'kestrel COMMAND --help' shows the options of a command.");
  app.require_subcommand(1);
  for (const Command& command : GetCommands()) {
    app.add_subcommand(command.Name, command.Description)->group("Commands")->set_help_flag();
  }
}

std::string KeywordHelp() {
  std::string help = "Keywords:";
  for (const Keyword& keyword : GetKeywords()) {
    help.append("\n  ").append(keyword.Name);
  }
  return help;
}

const Command* FindCommand(std::string_view name) {
  for (const Command& command : GetCommands()) {
    if (name == command.Name) {
      return &command;
    }
  }
  return nullptr;
}

// Says what is wrong with words that nothing takes, or that there is no command among them.
std::string TextOfUnexpected(const std::vector<std::string>& words, const CommandLine& line) {
  if (words.empty()) {
    return "a command is missing: see";
  }
  const bool isOption = words.front().starts_with('-');
  if (line.Chosen == nullptr) {
    return isOption ? "options go after the command: see"
                    : "there is no command " + words.front() + ": see";
  }
  return "not expected: " + CLI::detail::join(words, " ") +
         (isOption || line.Source.MachineOnly ? ": see" : ": name an image by --image, see");
}

}  // namespace

ParsedCommandLine ParseCommandLine(int argumentCount, const char* const* arguments) {
  ParsedCommandLine parsed;
  CommandLine& line = parsed.Line;
  line.Chosen = argumentCount > 1 ? FindCommand(arguments[1]) : nullptr;
  const bool isCommand = line.Chosen != nullptr;
  const std::string program = isCommand ? std::string("kestrel ") + line.Chosen->Name : "kestrel";
  // The parser is that of one command. With seven of them as its subcommands, "report --exact" of a
  // dump of 5 KB would take 8% more instructions, and 53% with the options of all.
  CLI::App app(isCommand ? line.Chosen->Description
                         : "Shows the SMBIOS structure table of this machine, or of a saved image.",
               program);
  app.set_help_flag("-h,--help", "Show this help");
  if (isCommand) {
    app.footer((line.Chosen->Options & kTakesKeywords) != 0 ? KeywordHelp() : line.Chosen->Details);
    AddOptions(app, line);
  } else {
    AddCommands(app);
  }
  try {
    const int skipped = isCommand ? 1 : 0;
    app.parse(argumentCount - skipped, arguments + skipped);
  } catch (const CLI::CallForHelp&) {
    parsed.Answer = HelpFormatter().make_help(&app, program, CLI::AppFormatMode::Normal);
  } catch (const CLI::CallForVersion&) {
    parsed.Answer = std::string(kVersion) + "\n";
  } catch (const CLI::ParseError& error) {
    const bool isUnexpected =
        !isCommand || dynamic_cast<const CLI::ExtrasError*>(&error) != nullptr;
    const std::string problem = isUnexpected ? TextOfUnexpected(app.remaining(), line)
                                             : error.what() + std::string(": see");
    throw ToolError(problem + " '" + program + " --help'", ExitCode::WrongUsage);
  }
  line.Lines = line.Lines || line.ImagesFrom;
  return parsed;
}

}  // namespace kestrel
