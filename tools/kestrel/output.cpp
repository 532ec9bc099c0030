#include "tools/kestrel/output.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>

#if defined(_WIN32)
#include <io.h>

#include "platform/win32.h"
#else
#include <unistd.h>
#endif

#include "tools/kestrel/file_name.h"
#include "tools/kestrel/tool_error.h"

namespace kestrel {

namespace {

constexpr int kStandardOutput = 1;
constexpr std::size_t kMostAtOnce = 0x8000;

// Who may read a new file.
enum class Readers { Everybody, Owner };

#if defined(_WIN32)

// A folder decides who may read the files in it.
int OpenDescriptor(const std::filesystem::path& path, int flags, Readers /*readers*/) {
  return _wopen(path.c_str(), flags | _O_BINARY | _O_NOINHERIT, _S_IREAD | _S_IWRITE);
}

bool Exists(const std::filesystem::path& path) {
  return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

bool IsRegularFile(const std::filesystem::path& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES &&
         (attributes & (FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT)) == 0;
}

int Write(int descriptor, std::string_view bytes) {
  return _write(descriptor, bytes.data(), static_cast<unsigned>(bytes.size()));
}

bool Store(int descriptor) { return _commit(descriptor) == 0; }

bool Rename(const std::filesystem::path& from, const std::filesystem::path& to) {
  if (MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING) == 0) {
    errno = EACCES;
    return false;
  }
  return true;
}

void Remove(const std::filesystem::path& path) { _wunlink(path.c_str()); }

void MakeBinary(int descriptor) { _setmode(descriptor, _O_BINARY); }

#else

int OpenDescriptor(const std::filesystem::path& path, int flags, Readers readers) {
  constexpr mode_t kOwner = S_IRUSR | S_IWUSR;
  constexpr mode_t kOthers = S_IRGRP | S_IWGRP | S_IROTH | S_IWOTH;
  // Less what the process's mask takes away.
  return open(path.c_str(), flags | O_CLOEXEC,
              readers == Readers::Owner ? kOwner : kOwner | kOthers);
}

bool Exists(const std::filesystem::path& path) {
  struct stat status = {};
  return lstat(path.c_str(), &status) == 0;
}

bool IsRegularFile(const std::filesystem::path& path) {
  struct stat status = {};
  return lstat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

ssize_t Write(int descriptor, std::string_view bytes) {
  return write(descriptor, bytes.data(), bytes.size());
}

bool Store(int descriptor) { return fsync(descriptor) == 0; }

bool Rename(const std::filesystem::path& from, const std::filesystem::path& to) {
  return std::rename(from.c_str(), to.c_str()) == 0;
}

void Remove(const std::filesystem::path& path) { unlink(path.c_str()); }

void MakeBinary(int /*descriptor*/) {}

#endif

// Whether all bytes were written; errno says why not.
bool WriteAll(int descriptor, std::string_view bytes) {
  while (!bytes.empty()) {
    const auto count = Write(descriptor, bytes.substr(0, kMostAtOnce));
    if (count >= 0) {
      bytes.remove_prefix(static_cast<std::size_t>(count));
    } else if (errno != EINTR) {
      return false;
    }
  }
  return true;
}

// Says what errno says.
[[noreturn]] void ThrowCannotWrite(const std::string& target) {
  throw ToolError(target + " cannot be written (" + std::generic_category().message(errno) +
                  "): write to a place that takes it");
}

class StandardOutput : public Output {
 private:
  void Pass(std::string_view bytes) override {
    MakeBinary(kStandardOutput);
    if (!WriteAll(kStandardOutput, bytes)) {
      if (errno == EPIPE) {
        throw ReaderGone();
      }
      ThrowCannotWrite("standard output");
    }
  }
};

class FileOutput;

// The output that has begun a new file.
FileOutput* unfinished = nullptr;

class FileOutput : public Output {
 public:
  explicit FileOutput(const std::filesystem::path& path) : Name(Quoted(path)), Path(path) {}
  ~FileOutput() override { Abandon(); }

  // Needs no memory.
  void Abandon() noexcept {
    if (Descriptor >= 0) {
      close(Descriptor);
      Descriptor = -1;
    }
    if (unfinished == this) {
      Remove(NewFile);
      unfinished = nullptr;
    }
  }

 protected:
  const std::string& GetName() const { return Name; }
  const std::filesystem::path& GetPath() const { return Path; }
  const std::filesystem::path& GetNewFile() const { return NewFile; }

  // Creates a file, unless there is one of that name.
  void Create(std::filesystem::path path, Readers readers) {
    NewFile = std::move(path);
    Descriptor = OpenDescriptor(NewFile, O_WRONLY | O_CREAT | O_EXCL, readers);
    if (Descriptor >= 0) {
      unfinished = this;
    }
  }
  bool IsOpen() const { return Descriptor >= 0; }

 private:
  // Leaves the file closed where it cannot be opened; errno says why.
  virtual void Open() {
    Create(Path, Readers::Everybody);
    if (!IsOpen() && errno == EEXIST) {
      Descriptor = OpenDescriptor(Path, O_WRONLY | O_CREAT | O_TRUNC, Readers::Everybody);
    }
  }
  // What is left to do with the file while it is open, and when it is closed.
  virtual bool Settle(int /*descriptor*/) { return true; }
  virtual bool PutInPlace() { return true; }

  void OpenOnce() {
    if (!IsOpen()) {
      Open();
      Check(IsOpen());
    }
  }

  void Check(bool succeeded) const {
    if (!succeeded) {
      ThrowCannotWrite(Name);
    }
  }

  void Pass(std::string_view bytes) override {
    OpenOnce();
    Check(WriteAll(Descriptor, bytes));
  }

  void Complete() override {
    OpenOnce();
    Check(Settle(Descriptor));
    Check(close(std::exchange(Descriptor, -1)) == 0);
    Check(PutInPlace());
    unfinished = nullptr;
  }

  std::string Name;
  std::filesystem::path Path;
  std::filesystem::path NewFile;
  int Descriptor = -1;
};

class NewFileOutput : public FileOutput {
 public:
  NewFileOutput(const std::filesystem::path& path, bool force) : FileOutput(path), Force(force) {}

 private:
  void Open() override {
    if (!Force) {
      Create(GetPath(), Readers::Owner);
      if (!IsOpen() && errno == EEXIST) {
        throw ToolError(GetName() + " is there already: name another file, or use --force");
      }
      return;
    }
    if (Exists(GetPath()) && !IsRegularFile(GetPath())) {
      throw ToolError(GetName() + " is not a regular file: name another one");
    }
    // A run that was killed may have left one.
    constexpr int kMostLeft = 100;
    for (int number = 0; number < kMostLeft; ++number) {
      std::filesystem::path beside = GetPath();
      beside += ".new" + std::to_string(number);
      Create(std::move(beside), Readers::Owner);
      if (IsOpen() || errno != EEXIST) {
        return;
      }
    }
  }

  bool Settle(int descriptor) override { return Store(descriptor); }
  bool PutInPlace() override { return !Force || Rename(GetNewFile(), GetPath()); }

  bool Force;
};

}  // namespace

void Output::Flush() {
  if (Count != 0) {
    const std::size_t count = std::exchange(Count, 0);
    Pass({Held.data(), count});
  }
}

void Output::Finish() {
  Flush();
  Complete();
}

void Output::PassOn(std::string_view bytes) {
  Flush();
  if (bytes.size() >= Held.size()) {
    Pass(bytes);
  } else {
    Write(bytes);
  }
}

std::unique_ptr<Output> MakeStandardOutput() {
  // Without zeros in the room for held bytes, which would be 3% of what a report takes.
  return std::make_unique_for_overwrite<StandardOutput>();
}

std::unique_ptr<Output> MakeFileOutput(const std::filesystem::path& path) {
  return std::make_unique<FileOutput>(path);
}

std::unique_ptr<Output> MakeNewFileOutput(const std::filesystem::path& path, bool force) {
  return std::make_unique<NewFileOutput>(path, force);
}

void RemoveUnfinishedFile() {
  if (unfinished != nullptr) {
    unfinished->Abandon();
  }
}

}  // namespace kestrel
