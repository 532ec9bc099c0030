#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <rapidjson/prettywriter.h>
#include <rapidjson/writer.h>
#include <string_view>

#include "tools/kestrel/output.h"

// Writers of RapidJSON over an output, for the sources that write parts of a document.
namespace kestrel {

inline constexpr unsigned kJsonIndent = 2;
// How deep documents go at most.
inline constexpr std::size_t kMostJsonLevels = 16;

// An output, as RapidJSON wants to write to it.
class JsonStream {
 public:
  using Ch = char;

  explicit JsonStream(Output& output) : Target(output) {}

  void Put(char character) { Target.Write(character); }
  void Put(std::string_view text) { Target.Write(text); }
  // What is held back at the end of a document is passed on by those who know what follows it.
  void Flush() const {}

 private:
  Output& Target;
};

// RapidJSON takes this for an indent; its own puts one blank after the other, which costs 6%.
inline void PutN(JsonStream& stream, char character, std::size_t count) {
  constexpr std::string_view kBlanks = "                                ";
  static_assert(kBlanks.size() >= kJsonIndent * kMostJsonLevels);
  static_cast<void>(character);
  stream.Put(kBlanks.substr(0, count));
}

// Room for the levels of a document. RapidJSON does not look whether it gets memory, so it has to
// get none.
using JsonLevelRoom = std::array<std::size_t, 256>;
using JsonLevelAllocator = rapidjson::MemoryPoolAllocator<>;

// A writer of RapidJSON that copies texts instead of writing them byte by byte, which costs 20%.
template <typename Base, bool IsIndented>
class JsonTextWriter : public Base {
 public:
  using Base::Base;

  // A text without anything to escape.
  bool PlainText(std::string_view text) {
    Begin();
    this->os_->Put('"');
    this->os_->Put(text);
    this->os_->Put('"');
    return true;
  }
  // A text that is quoted and escaped already.
  bool QuotedText(std::string_view text) {
    Begin();
    this->os_->Put(text);
    return true;
  }

  // These write null where there is nothing.
  template <typename Integer>
  bool UintOrNull(const std::optional<Integer>& value) {
    return value ? this->Uint64(*value) : this->Null();
  }
  bool BoolOrNull(const std::optional<bool>& value) {
    return value ? this->Bool(*value) : this->Null();
  }
  bool QuotedOrNull(std::string_view quoted) {
    return quoted.empty() ? this->Null() : QuotedText(quoted);
  }

 private:
  void Begin() {
    if constexpr (IsIndented) {
      this->PrettyPrefix(rapidjson::kStringType);
    } else {
      this->Prefix(rapidjson::kStringType);
    }
  }
};

using JsonLineWriter = JsonTextWriter<
    rapidjson::Writer<JsonStream, rapidjson::UTF8<>, rapidjson::UTF8<>, JsonLevelAllocator>, false>;
using JsonIndentedWriter = JsonTextWriter<
    rapidjson::PrettyWriter<JsonStream, rapidjson::UTF8<>, rapidjson::UTF8<>, JsonLevelAllocator>,
    true>;

}  // namespace kestrel
