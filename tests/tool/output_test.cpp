#include "tools/kestrel/output.h"

#include <gtest/gtest.h>

#if !defined(_WIN32)

#include <csignal>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <sys/resource.h>

#include "tools/kestrel/tool_error.h"

namespace kestrel {
namespace {

namespace fs = std::filesystem;

// What a folder holds, by name: a file's content, "-> " and what a link names, "= " and the other
// name of the same file, or "folder".
using Files = std::map<std::string, std::string>;

void Make(const Files& files) {
  for (const auto& [name, content] : files) {
    if (content == "folder") {
      fs::create_directory(name);
    } else if (content.starts_with("-> ")) {
      fs::create_symlink(content.substr(3), name);
    } else if (content.starts_with("= ")) {
      fs::create_hard_link(content.substr(2), name);
    } else {
      std::ofstream(name) << content;
      fs::permissions(name, fs::perms::owner_read | fs::perms::owner_write);
    }
  }
}

Files List() {
  Files files;
  for (const fs::directory_entry& entry : fs::directory_iterator(".")) {
    std::string& content = files[entry.path().filename()];
    if (entry.is_symlink()) {
      content = "-> " + fs::read_symlink(entry).string();
    } else if (entry.is_directory()) {
      content = "folder";
    } else {
      std::ifstream file(entry.path());
      content.assign(std::istreambuf_iterator<char>(file), {});
    }
  }
  return files;
}

void Overwrite(const std::string& bytes) { WriteFile("target", bytes); }
void Save(const std::string& bytes) { WriteNewFile("target", bytes, false); }
void Force(const std::string& bytes) { WriteNewFile("target", bytes, true); }

// Runs each case in a folder of its own, in which no file may grow beyond 8 bytes.
class OutputTest : public testing::Test {
 public:
  OutputTest() {
    fs::remove_all(kFolder);
    fs::create_directory(kFolder);
    fs::current_path(kFolder);
    static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
    getrlimit(RLIMIT_FSIZE, &Before);
    const rlimit limit = {8, Before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~OutputTest() override {
    setrlimit(RLIMIT_FSIZE, &Before);
    fs::current_path("..");
    fs::remove_all(kFolder);
  }
  OutputTest(const OutputTest&) = delete;
  OutputTest& operator=(const OutputTest&) = delete;

 private:
  static constexpr const char* kFolder = "output_test_folder";
  rlimit Before{};
};

TEST_F(OutputTest, WritesWhatItMayAndNothingElse) {
  constexpr std::string_view kThere =
      "'target' is there already: name another file, or use --force";
  constexpr std::string_view kNotRegular = "'target' is not a regular file: name another one";
  constexpr std::string_view kTooLarge =
      "'target' cannot be written (File too large): write to a place that takes it";
  const struct {
    void (*Write)(const std::string&);
    std::string Bytes;
    Files Before;
    std::string_view Error;
    Files After;
  } cases[] = {
      {Overwrite, "new", {}, "", {{"target", "new"}}},
      {Overwrite, "new", {{"target", "earlier"}}, "", {{"target", "new"}}},
      {Overwrite,
       "new",
       {{"file", "earlier"}, {"target", "-> file"}},
       "",
       {{"file", "new"}, {"target", "-> file"}}},
      {Overwrite, "new", {{"target", "-> file"}}, "", {{"file", "new"}, {"target", "-> file"}}},
      {Overwrite,
       "new",
       {{"file", "earlier"}, {"target", "= file"}},
       "",
       {{"file", "new"}, {"target", "new"}}},
      {Overwrite,
       "new",
       {{"target", "folder"}},
       "'target' cannot be written (Is a directory): write to a place that takes it",
       {{"target", "folder"}}},
      {Overwrite, "much too long", {{"target", "old"}}, kTooLarge, {{"target", "much too"}}},
      {Save, "new", {}, "", {{"target", "new"}}},
      {Save, "new", {{"target", "old"}}, kThere, {{"target", "old"}}},
      {Save, "new", {{"target", "-> file"}}, kThere, {{"target", "-> file"}}},
      {Save, "much too long", {}, kTooLarge, {}},
      {Force, "new", {}, "", {{"target", "new"}}},
      {Force, "new", {{"target", "earlier"}}, "", {{"target", "new"}}},
      {Force,
       "new",
       {{"file", "old"}, {"target", "-> file"}},
       kNotRegular,
       {{"file", "old"}, {"target", "-> file"}}},
      {Force, "new", {{"target", "folder"}}, kNotRegular, {{"target", "folder"}}},
      {Force, "much too long", {}, kTooLarge, {}},
      {Force, "much too long", {{"target", "old"}}, kTooLarge, {{"target", "much too"}}},
  };
  for (const auto& test : cases) {
    SCOPED_TRACE(&test - cases);
    Make(test.Before);
    std::string error;
    try {
      test.Write(test.Bytes);
    } catch (const ToolError& thrown) {
      error = thrown.what();
    }
    EXPECT_EQ(error, test.Error);
    EXPECT_EQ(List(), test.After);
    for (const auto& [name, content] : List()) {
      fs::remove_all(name);
    }
  }
}

TEST_F(OutputTest, KeepsThePermissionsOfAFile) {
  Make({{"target", "earlier"}});
  Overwrite("new");
  EXPECT_EQ(fs::status("target").permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

}  // namespace
}  // namespace kestrel

#endif
