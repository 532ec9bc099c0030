#include "platform/wide_text.h"

#include "platform/win32.h"

namespace kestrel {

std::wstring ToWide(std::string_view utf8) {
  const int length = static_cast<int>(utf8.size());
  std::wstring wide(utf8.size(), L'\0');
  wide.resize(static_cast<std::size_t>(
      MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, wide.data(), length)));
  return wide;
}

std::string ToUtf8(std::wstring_view wide) {
  // No UTF-16 unit takes more than three bytes.
  const int length = static_cast<int>(wide.size());
  std::string utf8(3 * wide.size(), '\0');
  utf8.resize(static_cast<std::size_t>(WideCharToMultiByte(
      CP_UTF8, 0, wide.data(), length, utf8.data(), 3 * length, nullptr, nullptr)));
  return utf8;
}

}  // namespace kestrel
