// Everything that the tool makes of a table. An input is the version (two bytes), the kind of entry
// point (a byte), and the table.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <numeric>
#include <rapidjson/document.h>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "firmware/entry_point.h"
#include "firmware/image.h"
#include "fuzz/support.h"
#include "tools/kestrel/commands.h"
#include "tools/kestrel/tool_error.h"

namespace kestrel {
namespace {

SmbiosTable TableOf(std::span<const std::uint8_t> input) {
  const SmbiosVersion version = {input[0], input[1]};
  const auto bytes = input.subspan(3);
  const auto length = static_cast<std::uint32_t>(bytes.size());
  SmbiosTable table;
  table.EntryPoint.Version = version;
  table.EntryPoint.TableLength = length;
  if (input[2] % 3 == 1 && length <= kLongestTable) {
    const auto entryPoint = MakeEntryPoint(version, 0, static_cast<std::uint16_t>(length),
                                           MeasureTable(bytes, length, EntryPointKind::Bits32));
    table.EntryPoint = ParseEntryPoint(entryPoint).value();
  } else if (input[2] % 3 == 2) {
    table.EntryPoint = ParseEntryPoint(Make64BitEntryPoint(version, 0, length)).value();
  }
  table.Bytes.assign(bytes.begin(), bytes.end());
  return table;
}

// What each command writes, and what it says besides.
using Texts = std::map<std::string, std::string>;

Texts Render(const SmbiosTable& table) {
  Texts texts;
  for (const Command& command : GetCommands()) {
    CommandLine line;
    line.Chosen = &command;
    std::vector<std::string> warnings;
    CommandRun run = {.Line = line, .Table = table, .NameInList = {}, .Warnings = warnings};
    TextOutput output;
    try {
      command.Run(run, output);
      output.Finish();
      texts[command.Name] = output.GetText();
    } catch (const ToolError& error) {
      warnings.emplace_back(error.what());
    }
    for (const std::string& warning : warnings) {
      texts["warnings"].append(warning).append("\n");
    }
  }
  return texts;
}

// Whether a terminal shows all of it, and obeys none of it.
bool IsHarmless(const std::string& text) {
  unsigned char before = 0;
  return std::all_of(text.begin(), text.end(), [&](char character) {
    const auto byte = static_cast<unsigned char>(character);
    const bool isC1 = std::exchange(before, byte) == 0xC2 && byte < 0xA0;
    return (byte >= 0x20 || byte == '\n' || byte == '\t') && byte != 0x7F && !isC1;
  });
}

// Whether each element that is opened is closed. "<" stands in a page for nothing else.
bool IsWellFormed(std::string_view page) {
  std::vector<std::string_view> open;
  for (std::size_t start = page.find('<'); start != std::string_view::npos;
       start = page.find('<', start + 1)) {
    const std::string_view tag =
        page.substr(start + 1, page.find_first_of(" >", start) - start - 1);
    if (tag.starts_with('!') || tag == "meta") {
      continue;
    }
    if (!tag.starts_with('/')) {
      open.push_back(tag);
    } else if (open.empty() || open.back() != tag.substr(1)) {
      return false;
    } else {
      open.pop_back();
    }
  }
  return open.empty();
}

void CheckTexts(const Texts& texts, std::size_t tableSize) {
  for (const auto& [name, text] : texts) {
    // The report believes a count of 255 entries although there are no bytes of them.
    const std::size_t perByte = name == "report" ? 8192 : 760;
    // JSON has an overview even of no structures.
    const std::size_t frame = name == "mif"    ? 65536
                              : name == "html" ? 16384
                              : name == "json" ? 2048
                                               : 1024;
    Require(text.size() <= frame + perByte * tableSize, name + " is too long");
    Require(name == "mif" || name == "save" || IsHarmless(text), name + " can drive a terminal");
  }
  Require(IsWellFormed(texts.at("html")), "an element is not closed");
}

void CheckJson(const std::string& json, const std::string& list) {
  const auto lines = static_cast<std::size_t>(std::count(list.begin(), list.end(), '\n'));
  rapidjson::Document document;
  document.Parse<rapidjson::kParseValidateEncodingFlag>(json.c_str());
  Require(!document.HasParseError(), "JSON is not well-formed");
  Require(document["structures"].Size() == lines, "list and JSON differ");
}

// That the dump has the same table and the same texts.
void CheckDump(const SmbiosTable& table, Texts texts) {
  const std::vector<std::uint8_t> bytes(texts["save"].begin(), texts["save"].end());
  SetMemoryFiles({{"dump", bytes}});
  const ImageResult image = ReadImage("dump", ImageKind::Dump, {});
  if (table.Bytes.empty()) {
    Require(image.Source.Problem == SourceProblem::TableEmpty, "an empty table is read");
    return;
  }
  Require(image.Source.Table.Bytes == table.Bytes, "a dump has another table");
  if (table.EntryPoint.Kind == EntryPointKind::None) {
    // The dump has an entry point, which JSON shows, and whose count hides what is after the last
    // structure.
    std::erase_if(texts, [](const auto& text) {
      return text.first == "json" || text.first == "check" || text.first == "html" ||
             text.first == "overview" || text.first == "warnings";
    });
  }
  Texts again = Render(image.Source.Table);
  for (const auto& [name, text] : texts) {
    Require(again[name] == text, "a dump has another " + name);
  }
}

void Fuzz(std::span<const std::uint8_t> input) {
  const SmbiosTable table = TableOf(input);
  const Texts texts = Render(table);
  CheckTexts(texts, table.Bytes.size());
  // What takes long is left to some inputs, always the same ones.
  switch (std::accumulate(input.begin(), input.end(), 0U) % 16) {
    case 0:
      Require(Render(table) == texts, "a table has two texts");
      break;
    case 1:
      CheckJson(texts.at("json"), texts.at("list"));
      break;
    case 2:
      CheckDump(table, texts);
      break;
    default:
      break;
  }
}

}  // namespace
}  // namespace kestrel

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kHeader = 3;
  if (size >= kHeader) {
    kestrel::Fuzz({data, size});
  }
  return 0;
}
