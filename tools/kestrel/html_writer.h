#pragma once

#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <utility>
#include <vector>

#include "tools/kestrel/output.h"

namespace kestrel {

// A piece of markup. Only a literal can become one, so no text of the firmware ever does.
class Markup {
 public:
  // NOLINTNEXTLINE(google-explicit-constructor): markup is written as the literal that it is.
  consteval Markup(const char* text) : Text(text) {}

  constexpr std::string_view GetText() const { return Text; }

 private:
  std::string_view Text;
};

// The value is a text like any other, and escaped.
struct HtmlAttribute {
  Markup Name;
  std::string_view Value;
};

using HtmlAttributes = std::initializer_list<HtmlAttribute>;

// Writes HTML elements, of which every one that is opened is closed. Texts are UTF-8 without
// control characters, and escaped: what is markup in them shows as characters.
class HtmlWriter {
 public:
  // The output must outlive the writer.
  explicit HtmlWriter(Output& output) : Target(output) {}

  void Open(Markup tag, HtmlAttributes attributes = {});
  // Closes the element that was opened last.
  void Close();

  // An element with what `writeContent` writes in it.
  template <typename WriteContent>
  void Element(Markup tag, HtmlAttributes attributes, WriteContent writeContent) {
    Open(tag, attributes);
    writeContent();
    Close();
  }
  // An element with a text.
  void TextElement(Markup tag, std::string_view text, HtmlAttributes attributes = {});

  void Text(std::string_view text);
  // Keeps lines short enough for people who look at the source.
  void EndLine() { Target.Write('\n'); }

 private:
  Output& Target;
  std::vector<std::string_view> OpenTags;
};

// Writes a template piece by piece. What stands in it between "<!-- begin NAME -->" and
// "<!-- end NAME -->" is an example of what a program writes there.
class HtmlTemplate {
 public:
  HtmlTemplate(std::string_view text, Output& output) : Rest(text), Target(output) {}

  // Writes up to the example of that name, and passes over it.
  void WriteUpTo(std::string_view name);
  void WriteRest() { Target.Write(std::exchange(Rest, {})); }

 private:
  std::string_view Rest;
  Output& Target;
};

}  // namespace kestrel
