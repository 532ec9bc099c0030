#include "tests/mif/mif_grammar.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cstdint>
#include <initializer_list>
#include <set>
#include <stdexcept>
#include <vector>

namespace kestrel {

namespace {

struct Type {
  bool IsText = false;
  std::uint64_t Most = 0xFFFFFFFF;
  std::set<std::uint64_t> Items;
};

struct Group {
  std::string Class;
  bool IsTemplate = true;
  std::vector<Type> Attributes;
};

class Parser {
 public:
  explicit Parser(std::string_view document) : Rest(document) { Advance(); }

  void ParseDocument() {
    Expect({"language", "="});
    ParseLiteral();
    Expect({"start", "component"});
    for (Names required = {"name"}, optional = {"description"};
         FindStatement(required, optional);) {
      ParseLiteral();
    }
    std::uint64_t id = 1;
    while (Accept("start")) {
      const Group group = ParseGroup(id);
      if (group.IsTemplate) {
        ParseTable(group, id);
      }
      ++id;
    }
    Require(id == 11, "not ten groups");
    Expect({"end", "component"});
    Require(Token.empty(), "text behind the component");
  }

 private:
  using Names = std::set<std::string>;

  // Moves to the value of a block's next statement, and takes its name out of those that must or
  // may come. Gives false when the block ends, or another begins.
  bool FindStatement(Names& required, Names& optional) {
    if (Token == "start" || Token == "end" || Token == "{") {
      Require(required.empty(), "a block without all of its statements");
      return false;
    }
    Statement = Token;
    Require(required.erase(Statement) + optional.erase(Statement) == 1,
            "no statement, or a second one: " + Statement);
    Advance();
    Expect({"="});
    return true;
  }

  Group ParseGroup(std::uint64_t id) {
    Expect({"group"});
    Group group;
    std::set<std::uint64_t> keys;
    for (Names required = {"name", "class"}, optional = {"id", "description", "key", "pragma"};
         FindStatement(required, optional);) {
      if (Statement == "id") {
        ParseId(id);
        group.IsTemplate = false;
      } else if (Statement == "key") {
        do {
          keys.insert(ParseNumber());
        } while (Accept(","));
      } else if (Statement == "class") {
        group.Class = ParseLiteral();
      } else {
        ParseLiteral();
      }
    }
    Require(std::count(group.Class.begin(), group.Class.end(), '|') == 2, "no class of 3 parts");
    while (Accept("start")) {
      group.Attributes.push_back(ParseAttribute(group.Attributes.size() + 1));
    }
    Require(keys.empty() || *keys.rbegin() <= group.Attributes.size(), "no such key");
    Expect({"end", "group"});
    return group;
  }

  Type ParseAttribute(std::uint64_t id) {
    Expect({"attribute"});
    Type type;
    for (Names required = {"name", "id", "type"},
               optional = {"description", "access", "storage", "value"};
         FindStatement(required, optional);) {
      if (Statement == "id") {
        ParseId(id);
      } else if (Statement == "access") {
        Expect({"read-only"});
      } else if (Statement == "storage") {
        Require(Accept("common") || Accept("specific"), "no storage: " + Token);
      } else if (Statement == "type") {
        type = ParseType();
      } else if (Statement == "value") {
        const std::uint64_t value = ParseField(type);
        Require(type.Items.empty() || type.Items.count(value) == 1, "no item of the enumeration");
      } else {
        ParseLiteral();
      }
    }
    Expect({"end", "attribute"});
    return type;
  }

  Type ParseType() {
    Type type;
    if (Accept("start")) {
      Expect({"enum"});
      while (!Accept("end")) {
        Require(type.Items.insert(ParseNumber()).second, "an item twice");
        Expect({"="});
        ParseLiteral();
      }
      Expect({"enum"});
    } else if (Accept("integer64")) {
      type.Most = UINT64_MAX;
    } else if (!Accept("integer")) {
      type.IsText = true;
      if (Accept("displaystring") || Accept("octetstring")) {
        Expect({"("});
        ParseNumber();
        Expect({")"});
      } else {
        Require(Accept("date"), "no type: " + Token);
      }
    }
    return type;
  }

  void ParseTable(const Group& group, std::uint64_t id) {
    Expect({"start", "table"});
    for (Names required = {"name", "id", "class"}, optional; FindStatement(required, optional);) {
      if (Statement == "id") {
        ParseId(id);
      } else if (Statement == "class") {
        Require(ParseLiteral() == group.Class, "not the class of the template");
      } else {
        ParseLiteral();
      }
    }
    while (Accept("{")) {
      std::string_view separator;
      for (const Type& type : group.Attributes) {
        Require(separator.empty() || Accept(separator), "too few fields");
        ParseField(type);
        separator = ",";
      }
      Require(Accept("}"), "too many fields");
    }
    Expect({"end", "table"});
  }

  // A number's value; 0 for a text.
  std::uint64_t ParseField(const Type& type) {
    if (type.IsText) {
      ParseLiteral();
      return 0;
    }
    const std::uint64_t value = ParseNumber();
    Require(value <= type.Most, "too large a number");
    return value;
  }

  void ParseId(std::uint64_t expected) {
    Require(ParseNumber() == expected, "not the ID " + std::to_string(expected));
  }

  std::uint64_t ParseNumber() {
    std::uint64_t number = 0;
    const char* const end = Token.data() + Token.size();
    const auto [parsed, error] = std::from_chars(Token.data(), end, number);
    Require(!Token.empty() && parsed == end && error == std::errc(), "no number: " + Token);
    Advance();
    return number;
  }

  // One literal, or several that are one text.
  std::string ParseLiteral() {
    Require(IsLiteral(), "no string: " + Token);
    std::string text;
    while (IsLiteral()) {
      text += Token.substr(1, Token.size() - 2);
      Advance();
    }
    return text;
  }

  bool IsLiteral() const { return !Token.empty() && Token.front() == '"'; }

  void Expect(std::initializer_list<std::string_view> tokens) {
    for (const std::string_view token : tokens) {
      Require(Accept(token), std::string(token) + " expected, not " + Token);
    }
  }

  bool Accept(std::string_view token) {
    if (Token != token) {
      return false;
    }
    Advance();
    return true;
  }

  // A token is a word in lower case, a number, a literal with its quotes or a single sign; it is
  // empty at the end.
  void Advance() {
    SkipBlanksAndComments();
    std::size_t size = std::min<std::size_t>(Rest.size(), 1);
    if (Rest.starts_with('"')) {
      size = Rest.find_first_of("\"\\\r\n", 1) + 1;
      Require(size != 0 && Rest[size - 1] == '"', "a string does not end");
    } else if (size != 0 && IsWord(Rest[0])) {
      size = static_cast<std::size_t>(std::find_if_not(Rest.begin(), Rest.end(), IsWord) -
                                      Rest.begin());
    }
    Token = Rest.substr(0, size);
    Rest.remove_prefix(size);
    if (!IsLiteral()) {
      std::transform(Token.begin(), Token.end(), Token.begin(),
                     [](unsigned char letter) { return static_cast<char>(std::tolower(letter)); });
    }
  }

  void SkipBlanksAndComments() {
    for (;;) {
      Rest.remove_prefix(std::min(Rest.size(), Rest.find_first_not_of(" \t\r\n")));
      if (!Rest.starts_with("//")) {
        return;
      }
      Rest.remove_prefix(std::min(Rest.size(), Rest.find('\n')));
    }
  }

  static bool IsWord(char c) {
    return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '-';
  }

  void Require(bool sound, const std::string& fault) const {
    if (!sound) {
      throw std::runtime_error(fault + ", before: " + std::string(Rest.substr(0, 40)));
    }
  }

  std::string Statement;
  std::string Token;
  std::string_view Rest;
};

}  // namespace

std::string FaultOf(std::string_view document) {
  try {
    Parser(document).ParseDocument();
    return {};
  } catch (const std::runtime_error& fault) {
    return fault.what();
  }
}

}  // namespace kestrel
