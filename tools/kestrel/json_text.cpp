#include "tools/kestrel/json_text.h"

#include <algorithm>
#include <rapidjson/encodings.h>
#include <rapidjson/stream.h>

#include "tools/kestrel/windows_1252.h"

namespace kestrel {

namespace {

constexpr std::string_view kReplacementText = "\uFFFD";
constexpr std::string_view kHexDigits = "0123456789abcdef";

// Whether a byte stands for itself.
bool StandsForItself(char character) {
  const auto byte = static_cast<unsigned char>(character);
  return byte >= ' ' && byte < 0x7F && byte != '"' && byte != '\\';
}

// Appends the bytes before the first one that does not stand for itself, and returns what is left.
std::string_view AppendPlain(std::string& json, std::string_view text) {
  const auto* const end = std::find_if_not(text.begin(), text.end(), StandsForItself);
  const auto count = static_cast<std::size_t>(end - text.begin());
  json.append(text, 0, count);
  return text.substr(count);
}

// Appends an escape for characters that need one. Returns whether this one does.
bool AppendEscape(std::string& json, unsigned character) {
  constexpr std::string_view kShort = "\"\\\b\f\n\r\t";
  constexpr std::string_view kShortNames = "\"\\bfnrt";
  if (character < 0x80) {
    const std::size_t index = kShort.find(static_cast<char>(character));
    if (index != std::string_view::npos) {
      json.push_back('\\');
      json.push_back(kShortNames[index]);
      return true;
    }
  }
  const bool isControl = character < ' ' || (character >= 0x7F && character < 0xA0);
  if (isControl) {
    json.append("\\u00");
    json.push_back(kHexDigits[character >> 4]);
    json.push_back(kHexDigits[character & 0xFU]);
  }
  return isControl;
}

}  // namespace

void AppendQuotedFirmwareText(std::string& json, std::string_view text) {
  json.push_back('"');
  while (!(text = AppendPlain(json, text)).empty()) {
    const char16_t unit = FromWindows1252(static_cast<unsigned char>(text.front()));
    if (!AppendEscape(json, unit)) {
      AppendUtf8(json, unit);
    }
    text.remove_prefix(1);
  }
  json.push_back('"');
}

void AppendQuotedUtf8(std::string& json, std::string_view text) {
  json.push_back('"');
  while (!(text = AppendPlain(json, text)).empty()) {
    // As many bytes as a character has at most, and a zero, at which the decoder stops.
    const std::string start(text.substr(0, 4));
    rapidjson::StringStream stream(start.c_str());
    unsigned character = 0;
    if (!rapidjson::UTF8<>::Decode(stream, &character)) {
      json.append(kReplacementText);
      text.remove_prefix(1);
      continue;
    }
    if (!AppendEscape(json, character)) {
      json.append(start, 0, stream.Tell());
    }
    text.remove_prefix(stream.Tell());
  }
  json.push_back('"');
}

void AppendQuotedHex(std::string& json, std::span<const std::uint8_t> bytes) {
  json.push_back('"');
  const std::size_t start = json.size();
  json.resize(start + 2 * bytes.size());
  auto digit = json.begin() + static_cast<std::ptrdiff_t>(start);
  for (const std::uint8_t byte : bytes) {
    *digit++ = kHexDigits[byte >> 4];
    *digit++ = kHexDigits[byte & 0xFU];
  }
  json.push_back('"');
}

}  // namespace kestrel
