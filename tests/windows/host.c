/* A host of Kestrel.dll on Windows. Arguments: the library, then what to do, word by word:
     open, read, close   the exports; their results are printed
     report FILE         the report into a file, and its length
     mif FILE            likewise the document
     service             the state and the file of the driver's service
     device              what the driver answers, to a host that talks to it itself
     hold                wait to be killed */
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <windows.h>

enum { kExportCount = 9, kTextSize = 1 << 20 };

typedef int32_t (*SimpleExport)(void);
typedef int32_t (*TextExport)(int32_t, char*);

static const char* const kNames[kExportCount] = {
    "CloseSMBios", "GetSMBiosDate", "GetSMBiosVendor",   "GetSMBiosVersion", "GetSMType0Obj",
    "OpenSMBios",  "ReadSMObjects", "SMObjsToMifString", "SMObjsToString"};

static HMODULE library;
static char text[kTextSize];

static void Fail(const char* what) {
  printf("FAILED: %s (%lu)\n", what, GetLastError());
  exit(1);
}

/* A function without a type of its own, to be cast to the right one. */
static void (*Find(const char* name))(void) {
  return (void (*)(void))GetProcAddress(library, name);
}

/* By name and by ordinal, and nothing beyond the last. */
static void Load(const char* path) {
  library = LoadLibraryA(path);
  if (library == NULL) {
    Fail(path);
  }
  for (uintptr_t ordinal = 0; ordinal <= kExportCount + 1; ++ordinal) {
    const int exists = ordinal >= 1 && ordinal <= kExportCount;
    if (Find((const char*)ordinal) != (exists ? Find(kNames[ordinal - 1]) : NULL) ||
        (exists && Find(kNames[ordinal - 1]) == NULL)) {
      Fail("name and ordinal differ");
    }
  }
}

static void Call(const char* word, const char* name) {
  printf("%s %d\n", word, ((SimpleExport)Find(name))());
}

static void Write(const char* word, const char* name, const char* path) {
  const int32_t length = ((TextExport)Find(name))(kTextSize, text);
  FILE* file = fopen(path, "wb");
  if (file == NULL || fwrite(text, 1, (size_t)length, file) != (size_t)length ||
      fclose(file) != 0) {
    Fail(path);
  }
  printf("%s %d\n", word, length);
}

static void ShowService(void) {
  static union {
    QUERY_SERVICE_CONFIGA Config;
    char Bytes[4096];
  } buffer;
  DWORD size = 0;
  SERVICE_STATUS status;
  SC_HANDLE manager = OpenSCManagerA(NULL, NULL, SC_MANAGER_CONNECT);
  SC_HANDLE service = OpenServiceA(manager, "Petrel", SERVICE_QUERY_CONFIG | SERVICE_QUERY_STATUS);
  if (service == NULL) {
    printf("service none\n");
  } else if (QueryServiceConfigA(service, &buffer.Config, sizeof buffer, &size) &&
             QueryServiceStatus(service, &status)) {
    printf("service %s %s\n",
           status.dwCurrentState == SERVICE_RUNNING   ? "runs"
           : status.dwCurrentState == SERVICE_STOPPED ? "stopped"
                                                      : "between",
           buffer.Config.lpBinaryPathName);
    CloseServiceHandle(service);
  } else {
    Fail("service");
  }
  CloseServiceHandle(manager);
}

static HANDLE OpenDevice(void) {
  HANDLE device = CreateFileA("\\\\.\\Petrel", GENERIC_READ | GENERIC_WRITE,
                              FILE_SHARE_READ | FILE_SHARE_WRITE, NULL, OPEN_EXISTING, 0, NULL);
  if (device == INVALID_HANDLE_VALUE) {
    Fail("no device");
  }
  return device;
}

/* Prints the error, or how many bytes came and the first of them. */
static void Ask(HANDLE device, DWORD code, const char* input, DWORD inputLength,
                DWORD outputLength) {
  static unsigned char output[0x10000];
  char copy[8] = {0};
  DWORD count = 0;
  memcpy(copy, input, inputLength);
  memset(output, 0x5A, sizeof output);
  if (DeviceIoControl(device, code, inputLength != 0 ? copy : NULL, inputLength,
                      outputLength != 0 ? output : NULL, outputLength, &count, NULL)) {
    printf("%lX: %lu bytes", code, count);
  } else {
    printf("%lX: error %lu", code, GetLastError());
  }
  printf(", %02X %02X\n", output[0], output[outputLength != 0 ? outputLength - 1 : 0]);
}

/* Two handles, whose requests cross. */
static void TalkToDevice(void) {
  HANDLE one = OpenDevice();
  HANDLE two = OpenDevice();
  Ask(one, 0x222024, "", 0, 0);
  Ask(one, 0x222018, "\x00\x00\x0F", 3, 0);
  Ask(one, 0x222040, "", 0, 4);
  Ask(one, 0x222018, "\x00\x00\x0F\x00", 4, 0);
  Ask(two, 0x222018, "\x00\x00\x0E\x00", 4, 0);
  Ask(one, 0x222020, "\x00\x00\x01\x00", 4, 0);
  Ask(one, 0x222018, "\x00\x00\x0F\x00", 4, 0);
  Ask(one, 0x222020, "\x04\x00\x00\x00", 4, 0);
  Ask(two, 0x222020, "\xFF\xFF\x00\x00", 4, 0);
  Ask(two, 0x222040, "", 0, 0xFFFF);
  Ask(one, 0x222040, "", 0, 4);
  Ask(one, 0x222040, "", 0, 4);
  Ask(one, 0x222018, "\xFF\xFF\xFF\xFF", 4, 0);
  Ask(one, 0x222020, "\x02\x00\x00\x00", 4, 0);
  Ask(one, 0x222040, "", 0, 2);
  CloseHandle(two);
  CloseHandle(one);
}

int main(int argumentCount, char** arguments) {
  char** next = arguments + 2;
  if (argumentCount < 2) {
    Fail("no library is named");
  }
  Load(arguments[1]);
  while (next < arguments + argumentCount) {
    const char* word = *next++;
    if (strcmp(word, "open") == 0) {
      Call(word, "OpenSMBios");
    } else if (strcmp(word, "read") == 0) {
      Call(word, "ReadSMObjects");
    } else if (strcmp(word, "close") == 0) {
      Call(word, "CloseSMBios");
    } else if (strcmp(word, "report") == 0) {
      Write(word, "SMObjsToString", *next++);
    } else if (strcmp(word, "mif") == 0) {
      Write(word, "SMObjsToMifString", *next++);
    } else if (strcmp(word, "service") == 0) {
      ShowService();
    } else if (strcmp(word, "device") == 0) {
      TalkToDevice();
    } else if (strcmp(word, "hold") == 0) {
      printf("holds\n");
      fflush(stdout);
      Sleep(INFINITE);
    } else {
      Fail(word);
    }
  }
  return 0;
}
