// What GoogleTest's threads wait for each other with. It would build it on std::mutex, which the
// toolchain does not have with Windows' own threads; and the tests here have one thread.
#pragma once

#include <cstdlib>

namespace testing::internal {

class Notification {
 public:
  void Notify() { std::abort(); }
  void WaitForNotification() { std::abort(); }
};

}  // namespace testing::internal
