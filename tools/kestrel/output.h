#pragma once

#include <array>
#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

namespace kestrel {

// Where a command writes. Bytes are held back and passed on in pieces of 32 KiB, so that a command
// may write in pieces of any size, and needs no room for its whole text.
//
// Everything that passes bytes on throws ToolError where they cannot be written, and ReaderGone
// where nobody reads them any longer.
class Output {
 public:
  Output() = default;
  Output(const Output&) = delete;
  Output& operator=(const Output&) = delete;
  virtual ~Output() = default;

  void Write(std::string_view bytes) {
    if (bytes.size() > Held.size() - Count) {
      PassOn(bytes);
      return;
    }
    bytes.copy(Held.data() + Count, bytes.size());
    Count += bytes.size();
  }
  void Write(char byte) {
    if (Count == Held.size()) {
      Flush();
    }
    Held[Count++] = byte;
  }

  // Passes on what is held back.
  void Flush();

  // Ends the output: after it the target has all the bytes.
  void Finish();

 private:
  // Gets at least one byte. The first call opens the target.
  virtual void Pass(std::string_view bytes) = 0;
  virtual void Complete() {}

  void PassOn(std::string_view bytes);

  // Old consoles of Windows take no more than some 60 KiB at once.
  std::array<char, 0x8000> Held;
  std::size_t Count = 0;
};

// What reads standard output has gone. This ends a command and is no error.
struct ReaderGone {};

std::unique_ptr<Output> MakeStandardOutput();

// A file, written as a shell's ">" does: an existing file is emptied and keeps its permissions, a
// link is followed. A new file that is not finished is removed.
std::unique_ptr<Output> MakeFileOutput(const std::filesystem::path& path);

// A new file that only its owner may read. Refuses a name that exists, even as a link;
// with `force` it takes the place of an existing regular file when it is finished, and until then
// that file stays as it is.
std::unique_ptr<Output> MakeNewFileOutput(const std::filesystem::path& path, bool force);

// Removes a new file that is not finished. Needs no memory.
void RemoveUnfinishedFile();

// Keeps the bytes as a text.
class TextOutput : public Output {
 public:
  // The text of everything that was written before Finish.
  const std::string& GetText() const { return Text; }

 private:
  void Pass(std::string_view bytes) override { Text.append(bytes); }

  std::string Text;
};

}  // namespace kestrel
