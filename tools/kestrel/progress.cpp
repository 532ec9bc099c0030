#include "tools/kestrel/progress.h"

#include <cstdio>
#if defined(_WIN32)
#include <io.h>
#else
#include <unistd.h>
#endif

#include "base/text.h"

namespace kestrel {

namespace {

void Print(const std::string& text) { static_cast<void>(std::fputs(text.c_str(), stderr)); }

}  // namespace

bool ShowsProgress() { return isatty(fileno(stderr)) != 0; }

Progress::Progress(std::optional<std::size_t> total) {
  if (total) {
    Append(Total, {" of ", Decimal(*total)});
  }
}

void Progress::Show(std::size_t done) {
  if (IsTerminal) {
    const std::string text = Join({"\r", Decimal(done), Total});
    Print(text);
    Width = text.size() - 1;
  }
}

void Progress::Hide() {
  if (Width != 0) {
    Print(Join({"\r", std::string(Width, ' '), "\r"}));
    Width = 0;
  }
}

}  // namespace kestrel
