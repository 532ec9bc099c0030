#include "tools/kestrel/console_text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>

#include "tools/kestrel/windows_1252.h"

namespace kestrel {

namespace {

constexpr std::string_view kTextLineEnd = "\r\n";

// Whether a character would do something rather than be seen.
bool IsControl(char16_t unit) {
  return (unit < 0x20 && unit != '\t') || (unit >= 0x7F && unit < 0xA0);
}

// Whether a byte is the same in both encodings.
bool IsPlain(char character) {
  const auto byte = static_cast<unsigned char>(character);
  return byte < 0x7F && !IsControl(byte);
}

// Whether nothing but the ends of these lines has to be converted. The loop has no branch, so that
// the compiler takes 16 bytes at once.
bool ArePlain(std::string_view lines) {
  if (!lines.ends_with(kTextLineEnd) || lines.front() == '\n') {
    return false;
  }
  auto others = static_cast<std::uint8_t>(!IsPlain(lines.front()) && lines.front() != '\r');
  for (std::size_t index = 1; index < lines.size(); ++index) {
    const auto byte = static_cast<std::uint8_t>(lines[index]);
    const bool isPrintable = byte >= 0x20 && byte < 0x7F;
    const bool isSpace = byte == '\t' || byte == '\r' || byte == '\n';
    const bool isLoneEnd = (byte == '\n') != (lines[index - 1] == '\r');
    others |= static_cast<std::uint8_t>((!isPrintable & !isSpace) | isLoneEnd);
  }
  return others == 0;
}

void WritePlainLines(std::string_view lines, Output& output) {
  while (!lines.empty()) {
    const std::size_t end = lines.find('\r');
    output.Write(lines.substr(0, end));
    output.Write(kLineEnd);
    lines.remove_prefix(end + kTextLineEnd.size());
  }
}

void WriteLine(std::string_view line, Output& output) {
  while (!line.empty()) {
    const auto* const end = std::find_if_not(line.begin(), line.end(), IsPlain);
    output.Write({line.begin(), end});
    line.remove_prefix(static_cast<std::size_t>(end - line.begin()));
    if (!line.empty()) {
      const char16_t unit = FromWindows1252(static_cast<unsigned char>(line.front()));
      std::string character;
      AppendUtf8(character, IsControl(unit) ? kReplacement : unit);
      output.Write(character);
      line.remove_prefix(1);
    }
  }
}

void WriteLines(std::string_view lines, Output& output) {
  for (;;) {
    const std::size_t end = lines.find(kTextLineEnd);
    WriteLine(lines.substr(0, end), output);
    if (end == std::string_view::npos) {
      return;
    }
    output.Write(kLineEnd);
    lines.remove_prefix(end + kTextLineEnd.size());
  }
}

}  // namespace

void WriteConsoleText(std::string_view text, Output& output) {
  // Most texts are plain, so they are looked at in pieces of some lines.
  constexpr std::size_t kPiece = 1024;
  while (!text.empty()) {
    const std::size_t end = text.find(kTextLineEnd, kPiece);
    const std::string_view lines =
        text.substr(0, end == std::string_view::npos ? end : end + kTextLineEnd.size());
    if (ArePlain(lines)) {
      WritePlainLines(lines, output);
    } else {
      WriteLines(lines, output);
    }
    text.remove_prefix(lines.size());
  }
}

}  // namespace kestrel
