#include "tools/kestrel/output.h"

#include <gtest/gtest.h>

#if !defined(_WIN32)

#include <algorithm>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <string>
#include <sys/resource.h>

#include "tools/kestrel/tool_error.h"

namespace kestrel {
namespace {

namespace fs = std::filesystem;

void Fill(const std::unique_ptr<Output>& output, const std::string& bytes) {
  output->Write(bytes);
  output->Finish();
}
void Write(const std::string& bytes) { Fill(MakeFileOutput("target"), bytes); }
void Save(const std::string& bytes) { Fill(MakeNewFileOutput("target", false), bytes); }
void Force(const std::string& bytes) { Fill(MakeNewFileOutput("target", true), bytes); }

// As far as the process may raise it again.
void LimitFileSize(rlim_t most) {
  rlimit limit = {};
  getrlimit(RLIMIT_FSIZE, &limit);
  limit.rlim_cur = std::min(most, limit.rlim_max);
  setrlimit(RLIMIT_FSIZE, &limit);
}

// What the function says, with room for 8 bytes in a file.
std::string ErrorOf(void (*function)(const std::string&), const std::string& bytes) {
  std::string message;
  LimitFileSize(8);
  try {
    function(bytes);
  } catch (const ToolError& error) {
    message = error.what();
  }
  LimitFileSize(RLIM_INFINITY);
  return message;
}

// A file with its content, a link with the name that it holds, a folder.
std::string Describe(const fs::directory_entry& entry) {
  const std::string name = entry.path().filename();
  if (entry.is_symlink()) {
    return name + "->" + fs::read_symlink(entry).string();
  }
  if (entry.is_directory()) {
    return name + "/";
  }
  std::ifstream file(entry.path());
  return name + "=" + std::string(std::istreambuf_iterator<char>(file), {});
}

TEST(OutputTest, WritesWhatItMayAndNothingElse) {
  const std::string there = "'target' is there already: name another file, or use --force";
  const std::string link = "'target' is not a regular file: name another one";
  const std::string folder =
      "'target' cannot be written (Is a directory): write to a place that takes it";
  const std::string full =
      "'target' cannot be written (File too large): write to a place that takes it";
  using Entries = std::set<std::string>;
  const struct {
    const char* Before;
    void (*Function)(const std::string&);
    std::string Bytes;
    std::string Error;
    Entries After;
  } cases[] = {
      {"true", Write, "new", "", {"target=new"}},
      {"echo earlier >target", Write, "new", "", {"target=new"}},
      {"touch file; ln -s file target", Write, "new", "", {"file=new", "target->file"}},
      {"ln -s file target", Write, "new", "", {"file=new", "target->file"}},
      {"touch file; ln file target", Write, "new", "", {"file=new", "target=new"}},
      {"mkdir target", Write, "new", folder, {"target/"}},
      {"echo earlier >target", Write, "much too long", full, {"target=much too"}},
      {"true", Save, "new", "", {"target=new"}},
      {"printf old >target", Save, "new", there, {"target=old"}},
      {"ln -s file target", Save, "new", there, {"target->file"}},
      {"true", Save, "much too long", full, {}},
      {"printf old >target.new0", Force, "new", "", {"target=new", "target.new0=old"}},
      {"touch file; ln -s file target", Force, "new", link, {"file=", "target->file"}},
      {"mkdir target", Force, "new", link, {"target/"}},
      {"true", Force, "much too long", full, {}},
      {"printf old >target", Force, "much too long", full, {"target=old"}},
  };
  const fs::path home = fs::current_path();
  static_cast<void>(std::signal(SIGXFSZ, SIG_IGN));
  for (const auto& test : cases) {
    SCOPED_TRACE(&test - cases);
    fs::create_directory("output_test");
    fs::current_path("output_test");
    ASSERT_EQ(std::system(test.Before), 0);  // NOLINT(cert-env33-c): a literal of this table
    EXPECT_EQ(ErrorOf(test.Function, test.Bytes), test.Error);
    Entries after;
    for (const fs::directory_entry& entry : fs::directory_iterator(".")) {
      after.insert(Describe(entry));
    }
    EXPECT_EQ(after, test.After);
    fs::current_path(home);
    fs::remove_all("output_test");
  }
}

}  // namespace
}  // namespace kestrel

#endif
