/* A host of the library: uses the nine exports in all orders and checks what they do to its
   buffers. Arguments: the file to write the report to, and the one for the MIF document. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "kestrel.h"

typedef int32_t (*TextExport)(int32_t, char*);

static const TextExport kTextExports[] = {GetSMBiosDate, GetSMBiosVendor, GetSMBiosVersion,
                                          SMObjsToMifString, SMObjsToString};
enum { kTextExportCount = sizeof kTextExports / sizeof *kTextExports };

enum { kLargest = 1 << 20, kCanary = 0x5A, kCanaries = 16 };
static char memory[kCanaries + kLargest + kCanaries];
static char whole[kLargest];

#define EXPECT(condition)                                             \
  do {                                                                \
    if (!(condition)) {                                               \
      fprintf(stderr, "FAILED: line %d: %s\n", __LINE__, #condition); \
      exit(1);                                                        \
    }                                                                 \
  } while (0)

/* Asks for a text in a buffer of `size` bytes and checks that nothing outside it was written. */
static int32_t Ask(TextExport get, int32_t size, char** buffer) {
  memset(memory, kCanary, sizeof memory);
  *buffer = memory + kCanaries;
  const int32_t result = get(size, *buffer);
  const size_t used = kCanaries + (size > 0 ? (size_t)size : 0);
  for (size_t index = 0; index < sizeof memory; ++index) {
    if (index < kCanaries || index >= used) {
      EXPECT(memory[index] == kCanary);
    }
  }
  return result;
}

static void ExpectFailure(TextExport get) {
  char* buffer = NULL;
  EXPECT(Ask(get, 100, &buffer) == 0);
  EXPECT(buffer[0] == kCanary);
}

static void ExpectNoReader(void) {
  EXPECT(CloseSMBios() == 0);
  EXPECT(ReadSMObjects() == 0);
  EXPECT(GetSMType0Obj() == NULL);
  for (int index = 0; index < kTextExportCount; ++index) {
    ExpectFailure(kTextExports[index]);
  }
}

/* Every size around the length of the text. */
static void ExpectCopyContract(TextExport get) {
  char* buffer = NULL;
  const int32_t length = Ask(get, kLargest, &buffer);
  EXPECT(length > 0 && length < kLargest - 1);
  memcpy(whole, buffer, (size_t)length + 1);
  EXPECT(strlen(whole) == (size_t)length);
  for (int32_t size = -2; size <= length + 3; ++size) {
    if (size == 4 && length > 8) {
      size = length - 3;
    }
    const int32_t expected = size < 1 ? 0 : size <= length ? size - 1 : length;
    EXPECT(Ask(get, size, &buffer) == expected);
    if (size < 1) {
      EXPECT(buffer[0] == kCanary);
      continue;
    }
    EXPECT(memcmp(buffer, whole, (size_t)expected) == 0);
    EXPECT(buffer[size <= length ? size - 1 : length] == '\0');
  }
  EXPECT(get(100, NULL) == 0);
}

static void Write(const char* path, TextExport get) {
  char* buffer = NULL;
  const size_t length = (size_t)Ask(get, kLargest, &buffer);
  FILE* file = fopen(path, "wb");
  EXPECT(file != NULL);
  EXPECT(fwrite(buffer, 1, length, file) == length);
  EXPECT(fclose(file) == 0);
}

int main(int argc, char** argv) {
  char* buffer = NULL;
  EXPECT(argc == 3);
  ExpectNoReader();

  EXPECT(OpenSMBios() == 1);
  EXPECT(GetSMType0Obj() == NULL);
  EXPECT(Ask(SMObjsToString, 100, &buffer) == 0);
  EXPECT(buffer[0] == '\0');
  ExpectFailure(GetSMBiosDate);
  ExpectCopyContract(SMObjsToMifString);

  EXPECT(ReadSMObjects() == 1);
  EXPECT(GetSMType0Obj() != NULL);
  for (int index = 0; index < kTextExportCount; ++index) {
    ExpectCopyContract(kTextExports[index]);
  }
  Write(argv[1], SMObjsToString);
  Write(argv[2], SMObjsToMifString);

  const int32_t once = Ask(SMObjsToString, kLargest, &buffer);
  EXPECT(ReadSMObjects() == 1);
  EXPECT(Ask(SMObjsToString, kLargest, &buffer) == 2 * once);

  EXPECT(OpenSMBios() == 1);
  EXPECT(Ask(SMObjsToString, kLargest, &buffer) == 0);
  EXPECT(CloseSMBios() == 1);
  ExpectNoReader();
  return 0;
}
