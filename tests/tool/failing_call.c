/* Preloaded to the tool, lets one of its calls fail: that with the number KESTREL_FAILING_CALL,
   from 0 on. The link "failed" in the current folder then shows that there was such a call.
   Counting starts with main, which sets a signal first: nothing before it could tell of a failure.
 */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <unistd.h>

static long callsBefore = -1;

void (*signal(int number, void (*handler)(int)))(int) {
  (void)number;
  callsBefore = atol(getenv("KESTREL_FAILING_CALL"));
  return handler;
}

static int Fails(int error) {
  if (callsBefore-- != 0) {
    return 0;
  }
  (void)!symlink("-", "failed");
  errno = error;
  return 1;
}

#define FAILING(type, failure, error, name, parameters, arguments) \
  type name parameters {                                           \
    type(*call) parameters = dlsym(RTLD_NEXT, #name);              \
    return Fails(error) ? failure : call arguments;                \
  }

FAILING(void*, NULL, ENOMEM, malloc, (size_t size), (size))
FAILING(int, -1, EIO, open64, (const char* path, int flags, mode_t mode), (path, flags, mode))
FAILING(int, -1, EIO, stat64, (const char* path, struct stat64* status), (path, status))
FAILING(int, -1, EIO, lstat64, (const char* path, struct stat64* status), (path, status))
FAILING(off64_t, -1, EIO, lseek64, (int file, off64_t offset, int from), (file, offset, from))
FAILING(ssize_t, -1, EIO, read, (int file, void* buffer, size_t size), (file, buffer, size))
FAILING(ssize_t, -1, EIO, write, (int file, const void* buffer, size_t size), (file, buffer, size))
FAILING(int, -1, EIO, close, (int file), (file))
FAILING(int, -1, EIO, unlink, (const char* path), (path))
