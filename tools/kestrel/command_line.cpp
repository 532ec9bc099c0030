#include "tools/kestrel/command_line.h"

#include <CLI/CLI.hpp>
#include <charconv>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <system_error>

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

void AddSource(CLI::App& app, SourceOptions& source) {
  CLI::Option* image =
      app.add_option("--image", source.Image, "A saved image instead of this machine");
  image->type_name("FILE");
  const auto setKind = [&source](const std::string& name) { source.Format = ToKind(name); };
  app.add_option_function<std::string>(
         "--format", setKind, "The kind of the image: auto (default), memory, dump, rsmb or raw")
      ->type_name("KIND")
      ->needs(image);
  const auto setVersion = [&source](const std::string& text) {
    source.RawVersion = ToVersion(text);
    if (source.Format != ImageKind::Auto && source.Format != ImageKind::Raw) {
      throw CLI::ValidationError("--smbios-version", "goes with a raw table only");
    }
  };
  app.add_option_function<std::string>(
         "--smbios-version", setVersion,
         "The version of a raw table, which carries none (default 2.3)")
      ->type_name("M.N")
      ->needs(image);
  app.add_flag("--sample", source.Sample, "The built-in example PC instead of this machine")
      ->excludes(image);
}

void AddOptions(CLI::App& app, CommandLine& line) {
  const unsigned options = line.Chosen->Options;
  if ((options & kTakesNewFile) != 0) {
    app.add_option("FILE", line.Output, "Where the dump goes")->required()->type_name("");
    app.add_flag("--force", line.Force, "Write over a file that is there");
  }
  if ((options & kTakesSource) != 0) {
    AddSource(app, line.Source);
  }
  if ((options & kTakesExact) != 0) {
    app.add_flag("--exact", line.Exact,
                 "The library's bytes (Windows-1252, CR LF) instead of UTF-8");
  }
  if ((options & kTakesTypes) != 0) {
    const auto addTypes = [&line](const std::string& text) {
      if (!AppendTypes(line.Types, text)) {
        throw CLI::ValidationError("--type",
                                   "takes a number up to 255, or " + std::string(kTypeWords));
      }
    };
    app.add_option_function<std::string>(
           "--type", addTypes,
           "Only structures of this type, a number or a word; may be given again")
        ->type_name("N")
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll)
        ->trigger_on_parse();
  }
  if ((options & kTakesHandle) != 0) {
    const auto setHandle = [&line](const std::string& text) {
      line.Handle = ToHandle(text);
      if (!line.Handle) {
        throw CLI::ValidationError("--handle", "takes a number like 0008h, 0x8 or 8");
      }
    };
    app.add_option_function<std::string>("--handle", setHandle,
                                         "Only the structure with this handle")
        ->type_name("H");
  }
  if ((options & kTakesKeywords) != 0) {
    const auto addKeywords = [&line](const std::vector<std::string>& names) {
      for (const std::string& name : names) {
        line.Keywords.push_back(FindKeyword(name));
        if (line.Keywords.back() == nullptr) {
          throw CLI::ValidationError("there is no keyword " + name + ", the nearest is " +
                                     std::string(NearestKeyword(name)));
        }
      }
    };
    app.add_option_function<std::vector<std::string>>("KEYWORD", addKeywords,
                                                      "What to show, see below")
        ->required()
        ->type_name("");
  }
  if ((options & kTakesLines) != 0) {
    app.add_flag("--lines", line.Lines, "JSON on one line, without blanks");
    app.add_option(
           "--images-from", line.ImagesFrom,
           "Images that a list names, one per line, - for standard input: a line of JSON each")
        ->type_name("LIST")
        ->excludes(app.get_option("--image"))
        ->excludes(app.get_option("--sample"));
  }
  if ((options & kTakesOutput) != 0) {
    app.add_option("-o,--output", line.Output, "Write to a file")->type_name("FILE");
  }
}

std::string HelpOfTool() {
  CLI::App app("Shows the SMBIOS structure table of this machine, or of a saved image.", "kestrel");
  app.set_version_flag("--version", kVersion, "Show the version");
  app.set_help_flag("--help", "Show the help");
  app.require_subcommand(1);
  for (const Command& command : GetCommands()) {
    app.add_subcommand(command.Name, command.Description);
  }
  return app.help();
}

std::string ProgramName(const Command& command) { return std::string("kestrel ") + command.Name; }

std::string KeywordHelp() {
  std::string help = "Keywords:";
  for (const Keyword& keyword : GetKeywords()) {
    help.append("\n  ").append(keyword.Name);
  }
  return help;
}

std::string HelpOf(const Command& command) {
  CommandLine line;
  line.Chosen = &command;
  CLI::App app(command.Description, ProgramName(command));
  app.set_help_flag("--help", "Show the help");
  app.footer((command.Options & kTakesKeywords) != 0 ? KeywordHelp() : command.Details);
  AddOptions(app, line);
  return app.help();
}

// The command whose name is among the arguments, ahead of anything that it takes.
const Command* FindCommand(std::string_view name) {
  for (const Command& command : GetCommands()) {
    if (name == command.Name) {
      return &command;
    }
  }
  return nullptr;
}

[[noreturn]] void ThrowWrongUsage(const std::string& problem, const std::string& help) {
  throw ToolError(problem + ": see '" + help + " --help'", ExitCode::WrongUsage);
}

// The parser's work is done before it starts where somebody asks for the help or the version, so
// that it has no exceptions to throw for them.
std::string AnswerTo(std::span<const char* const> arguments) {
  const Command* command = nullptr;
  for (const std::string_view argument : arguments) {
    if (argument == "--") {
      break;
    }
    if (argument == "--help") {
      return command != nullptr ? HelpOf(*command) : HelpOfTool();
    }
    if (argument == "--version" && command == nullptr) {
      return std::string(kVersion) + "\n";
    }
    command = command != nullptr ? command : FindCommand(argument);
  }
  return {};
}

}  // namespace

ParsedCommandLine ParseCommandLine(int argumentCount, const char* const* arguments) {
  const auto words =
      std::span(arguments, static_cast<std::size_t>(argumentCount)).subspan(argumentCount > 0);
  ParsedCommandLine parsed;
  parsed.Answer = AnswerTo(words);
  if (!parsed.Answer.empty()) {
    return parsed;
  }
  if (words.empty()) {
    ThrowWrongUsage("a command is missing", "kestrel");
  }
  const std::string name = words.front();
  CommandLine& line = parsed.Line;
  line.Chosen = FindCommand(name);
  if (line.Chosen == nullptr) {
    ThrowWrongUsage(
        name.starts_with('-') ? "options go after the command" : "there is no command " + name,
        "kestrel");
  }
  // Only what this command takes is built, since building costs more than parsing.
  CLI::App app(line.Chosen->Description, ProgramName(*line.Chosen));
  app.set_help_flag();
  AddOptions(app, line);
  try {
    app.parse(static_cast<int>(words.size()), words.data());
  } catch (const CLI::ExtrasError&) {
    // The parser's own message names them last to first.
    ThrowWrongUsage("not expected: " + CLI::detail::join(app.remaining(), " "), app.get_name());
  } catch (const CLI::ParseError& error) {
    ThrowWrongUsage(error.what(), app.get_name());
  }
  line.Lines = line.Lines || line.ImagesFrom;
  line.Source.MachineOnly = (line.Chosen->Options & kTakesSource) == 0;
  return parsed;
}

}  // namespace kestrel
