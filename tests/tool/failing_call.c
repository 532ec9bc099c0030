/* Preloaded to the tool, runs it again and again on its arguments: once as it is, then with its
   first call failing, its second, and so on. Each run is a child that starts in main, which sets a
   signal first: nothing before it could tell of a failure. After a run, standard input takes its
   status (an int as waitpid has it), and is read for a byte to go on; the link "failed" in the
   current folder shows that there was such a call.
 */
#define _GNU_SOURCE
#include <dlfcn.h>
#include <errno.h>
#include <stdlib.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

static long callsBefore = -1;

void (*signal(int number, void (*handler)(int)))(int) {
  static int isRun = 0;
  (void)number;
  for (long failing = -1; !isRun; ++failing) {
    const pid_t child = fork();
    int status = 0;
    char go = 0;
    if (child == 0) {
      isRun = 1;
      callsBefore = failing;
    } else if (waitpid(child, &status, 0) != child ||
               write(STDIN_FILENO, &status, sizeof status) != sizeof status ||
               read(STDIN_FILENO, &go, 1) != 1) {
      _exit(0);
    }
  }
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
    static type(*call) parameters;                                 \
    call = call ? call : dlsym(RTLD_NEXT, #name);                  \
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
