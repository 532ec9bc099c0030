/* A host of the library, in C: uses the nine exports in the order of a real one. Arguments: the
   file to write the report to, and the one for the MIF document. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "kestrel.h"

static char buffer[1 << 20];

#define EXPECT(condition)                                             \
  do {                                                                \
    if (!(condition)) {                                               \
      fprintf(stderr, "FAILED: line %d: %s\n", __LINE__, #condition); \
      exit(1);                                                        \
    }                                                                 \
  } while (0)

static int32_t Write(const char* path, int32_t (*get)(int32_t, char*)) {
  const int32_t length = get(sizeof buffer, buffer);
  FILE* file = fopen(path, "wb");
  EXPECT(file != NULL);
  EXPECT(fwrite(buffer, 1, (size_t)length, file) == (size_t)length);
  EXPECT(fclose(file) == 0);
  return length;
}

int main(int argc, char** argv) {
  EXPECT(argc == 3);
  EXPECT(OpenSMBios() == 1);
  EXPECT(ReadSMObjects() == 1);
  EXPECT(GetSMType0Obj() != NULL);
  EXPECT(GetSMBiosDate(sizeof buffer, buffer) == 11 && strcmp(buffer, " 05/14/2002") == 0);
  EXPECT(GetSMBiosVendor(sizeof buffer, buffer) == 6 && strcmp(buffer, " Maker") == 0);
  EXPECT(GetSMBiosVersion(4, buffer) == 3 && strcmp(buffer, " 1.") == 0);
  EXPECT(Write(argv[2], SMObjsToMifString) > 0);
  EXPECT(Write(argv[1], SMObjsToString) > 0);
  EXPECT(CloseSMBios() == 1);
  return 0;
}
