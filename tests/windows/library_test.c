/*
 * Lets each allocation of the 32-bit Kestrel.dll fail in turn. Runs on Linux, built with -m32:
 * loads the file as Windows 95 would and gives it what it imports.
 */
#include <dlfcn.h>
#include <malloc.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <sys/mman.h>

#define WINDOWS __attribute__((stdcall))

/* The machine: an entry point, and a table of a BIOS Information and an End-of-Table structure. */
static const char entryPoint[] =
    "_SM_\0\x1F\x02\x03\0\0\0\0\0\0\0\0_DMI_\0\x2E\0\0\0\x10\0\x02\0\x23";
static const char table[] =
    "\0\x14\0\0\x01\x02\0\xF0\x03\x07\x08\0\0\0\0\0\0\0\0\0Acme\0A1\0"
    "05/14/2002\0\0\x7F\x04\x01\0\0\0";

static char memory[0x110000];

static int allocations;
static int failingAllocation;
static int blocks;

static void* Allocate(uint32_t size) {
  if (++allocations == failingAllocation) {
    return NULL;
  }
  ++blocks;
  return malloc(size);
}

static void Free(void* block) {
  blocks -= block != NULL;
  free(block);
}

int WINDOWS GetVersionExA(uint32_t* record) {
  record[1] = 4;
  record[2] = 0;
  record[4] = 1;
  return record[0] == 148;
}

int WINDOWS CreateFileA(const char* path, uint32_t access, uint32_t share, void* security,
                        uint32_t disposition, uint32_t flags, void* model) {
  return 7;
}

int WINDOWS DeviceIoControl(int device, uint32_t code, const uint32_t* input, uint32_t inputSize,
                            void* output, uint32_t outputSize, uint32_t* count, void* overlap) {
  static uint32_t address;
  *count = outputSize;
  if (code == 0x222018) {
    address = *input;
  } else if (code == 0x222040) {
    memcpy(output, memory + address, outputSize);
  }
  return 1;
}

int WINDOWS CloseHandle(int device) { return 1; }

static uint8_t* image;

static void Require(int condition, const char* what, int number) {
  if (!condition) {
    fprintf(stderr, "%s (%d)\n", what, number);
    exit(1);
  }
}

static uint32_t* Words(uint32_t offset) { return (uint32_t*)(image + offset); }

static uint32_t* Headers(void) { return Words(*Words(0x3C)); }

/* A function of this program, or of this system's C. There is no more of Windows, and nobody calls
   it. */
static void* FindImport(const char* name) {
  void* function = dlsym(dlopen(NULL, RTLD_LAZY), name);
  if (function == malloc) {
    return Allocate;
  }
  return function == free ? (void*)Free : function;
}

enum { Close = 1, Open = 6, Read = 7, ToMif = 8, ToReport = 9 };

static void* FindExport(uint32_t ordinal) {
  const uint32_t* directory = Words(Headers()[0x78 / 4]);
  return image + Words(directory[7])[ordinal - 1];
}

/* Never where it was linked to, so that every address is moved. */
static void LoadLibraryFrom(const char* path) {
  static uint8_t file[1 << 22];
  FILE* stream = fopen(path, "rb");
  if (stream == NULL) {
    printf("skipped: there is no %s\n", path);
    exit(77);
  }
  Require(fread(file, 1, sizeof(file), stream) > 0x400, path, 0);
  fclose(stream);
  const uint32_t* headers = (uint32_t*)(file + *(uint32_t*)(file + 0x3C));
  image = mmap(NULL, headers[0x50 / 4], PROT_READ | PROT_WRITE | PROT_EXEC,
               MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  Require(image != MAP_FAILED, "no memory", 0);
  memcpy(image, file, headers[0x54 / 4]);
  const uint32_t* section = (uint32_t*)((uint8_t*)headers + 24 + (headers[0x14 / 4] & 0xFFFF));
  for (uint32_t count = headers[0x04 / 4] >> 16; count != 0; --count, section += 10) {
    memcpy(image + section[3], file + section[5], section[4]);
  }
  const uint32_t moved = (uint32_t)image - headers[0x34 / 4];
  const uint32_t relocations = headers[0xA0 / 4];
  for (uint32_t at = relocations; at < relocations + headers[0xA4 / 4]; at += Words(at)[1]) {
    for (uint32_t entry = at + 8; entry < at + Words(at)[1]; entry += 2) {
      const uint16_t relocation = *(uint16_t*)(image + entry);
      if (relocation >> 12 == 3) {
        *Words(Words(at)[0] + (relocation & 0xFFF)) += moved;
      }
    }
  }
  for (uint32_t* library = Words(headers[0x80 / 4]); library[3] != 0; library += 5) {
    for (uint32_t* address = Words(library[4]); *address != 0; ++address) {
      *address = (uint32_t)FindImport((char*)image + *address + 2);
    }
  }
}

int main(int argumentCount, char** arguments) {
  /* What is used after it was freed, or before it was set, does not look right by chance. */
  mallopt(M_PERTURB, 0x5A);
  memcpy(memory + 0xF0000, entryPoint, sizeof(entryPoint));
  memcpy(memory + 0x100000, table, sizeof(table));
  LoadLibraryFrom(arguments[1]);
  int(WINDOWS * attach)(void*, uint32_t, void*) = (void*)(image + Headers()[0x28 / 4]);
  Require(attach(image, 1, NULL) == 1 && allocations == 0, "the library does not attach", 0);
  int (*open)(void) = FindExport(Open);
  int (*read)(void) = FindExport(Read);
  int (*toReport)(int, char*) = FindExport(ToReport);
  int (*toMif)(int, char*) = FindExport(ToMif);
  int (*close)(void) = FindExport(Close);
  int reportLength = 0;
  int allocationCount = 0;
  for (int failing = 0; failing <= allocationCount; ++failing) {
    static char text[1 << 16];
    allocations = 0;
    failingAllocation = failing;
    /* The second read and the second open free what earlier calls allocated. */
    const int opened = open();
    const int wasRead = read();
    const int length = toReport(sizeof(text), text);
    const int mifLength = toMif(sizeof(text), text);
    const int wasReadAgain = read();
    const int reopened = open();
    const int all = opened && wasRead && length && mifLength && wasReadAgain && reopened;
    failingAllocation = 0;
    if (failing == 0) {
      allocationCount = allocations;
      reportLength = length;
    }
    Require(all == (failing == 0), "a failure had no result, or a result no failure", failing);
    Require(open() == 1 && read() == 1 && toReport(sizeof(text), text) == reportLength,
            "no use afterwards", failing);
    close();
    Require(blocks == 0, "something is left", failing);
  }
  Require(attach(image, 0, NULL) == 1, "the library does not detach", 0);
  printf("%d allocations, each failed once\n", allocationCount);
  return 0;
}
