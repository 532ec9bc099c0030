#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace kestrel {

// Whether standard error is a terminal, on which a progress shows.
bool ShowsProgress();

// Says on standard error how many of something are done, where that is a terminal and nowhere else.
// Nothing of it is left in the end.
class Progress {
 public:
  // `total` is how many there will be, where that is known.
  explicit Progress(std::optional<std::size_t> total);
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  ~Progress() { Hide(); }

  void Show(std::size_t done);
  // Clears the line for other output.
  void Hide();

 private:
  bool IsTerminal = ShowsProgress();
  std::string Total;
  // Of what is shown.
  std::size_t Width = 0;
};

}  // namespace kestrel
