/*
 * A host of Kestrel.dll on Windows. Arguments: the library, then what to do, word by word:
 *   an export           is called, and its result printed
 *   an export of a text, and a file   likewise, and the text written
 *   service             the state of the driver's service, 0 where there is none
 *   device              whether the driver answers two handles as it should
 *   descriptor          whom the driver's security descriptor lets in
 *   skua                names the driver's device as SKUA's, too, until the host ends
 *   hold                waits to be killed
 */
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <windows.h>
#include <winternl.h>

#include "administrators_only.h"

enum { kTextSize = 1 << 20 };

typedef int32_t (*SimpleExport)(void);
typedef int32_t (*TextExport)(int32_t, char*);

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

static void Call(const char* name) { printf("%s %d\n", name, ((SimpleExport)Find(name))()); }

static void Write(const char* name, const char* path) {
  const int32_t length = ((TextExport)Find(name))(kTextSize, text);
  FILE* file = fopen(path, "wb");
  fwrite(text, 1, (size_t)length, file);
  fclose(file);
  printf("%s %d\n", name, length);
}

static void ShowService(void) {
  SERVICE_STATUS status = {0};
  SC_HANDLE manager = OpenSCManagerA(NULL, NULL, SC_MANAGER_CONNECT);
  SC_HANDLE service = OpenServiceA(manager, "Petrel", SERVICE_QUERY_STATUS);
  QueryServiceStatus(service, &status);
  printf("service %lu\n", status.dwCurrentState);
  CloseServiceHandle(service);
  CloseServiceHandle(manager);
}

static const struct {
  int Handle;
  DWORD Code;
  const char* Input;
  DWORD InputLength;
  DWORD OutputLength;
  DWORD Error;
  /* Of the output, 5A where nothing comes. */
  char First;
} requests[] = {
    /* One refusal of each kind; which requests are refused is another test's business. */
    {0, 0x222024, "", 0, 0, ERROR_INVALID_FUNCTION, 0x5A},
    {0, 0x222018, "", 0, 0, ERROR_INVALID_USER_BUFFER, 0x5A},
    {0, 0x222040, "", 0, 4, ERROR_INVALID_PARAMETER, 0x5A},
    /* Crossing requests, for bytes of the anchor. */
    {0, 0x222018, "\x32\x5A\x0F", 4, 0, 0, 0x5A},
    {1, 0x222018, "\x31\x5A\x0F", 4, 0, 0, 0x5A},
    {0, 0x222020, "\x04\0\0", 4, 0, 0, 0x5A},
    {1, 0x222020, "\xFF\xFF\0", 4, 0, 0, 0x5A},
    {1, 0x222040, "", 0, 65535, 0, 'S'},
    {0, 0x222040, "", 0, 4, 0, 'M'}};

static HANDLE OpenDevice(void) {
  return CreateFileA("\\\\.\\Petrel", GENERIC_READ | GENERIC_WRITE,
                     FILE_SHARE_READ | FILE_SHARE_WRITE, NULL, OPEN_EXISTING, 0, NULL);
}

static void TalkToDevice(void) {
  HANDLE devices[] = {OpenDevice(), OpenDevice()};
  for (size_t index = 0; index < sizeof requests / sizeof *requests; ++index) {
    char input[4] = {0};
    DWORD count = 0;
    memcpy(input, requests[index].Input, requests[index].InputLength);
    memset(text, 0x5A, 65535);
    const BOOL done = DeviceIoControl(devices[requests[index].Handle], requests[index].Code, input,
                                      requests[index].InputLength, text,
                                      requests[index].OutputLength, &count, NULL);
    const DWORD error = done ? 0 : GetLastError();
    if (error != requests[index].Error || text[0] != requests[index].First ||
        (done && count != requests[index].OutputLength)) {
      printf("request %u: error %lu, %lu bytes, %02X\n", (unsigned)index, error, count, text[0]);
      exit(1);
    }
  }
  CloseHandle(devices[1]);
  CloseHandle(devices[0]);
}

/* Of sddl.h, which has to follow windows.h. */
BOOL WINAPI ConvertSecurityDescriptorToStringSecurityDescriptorA(void* descriptor, DWORD revision,
                                                                 DWORD parts, char** string,
                                                                 ULONG* length);

static void ShowDescriptor(void) {
  char* descriptor = NULL;
  if (!ConvertSecurityDescriptorToStringSecurityDescriptorA(
          administratorsOnly, 1,
          OWNER_SECURITY_INFORMATION | GROUP_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION,
          &descriptor, NULL)) {
    Fail("descriptor");
  }
  printf("descriptor valid %d, %s\n", IsValidSecurityDescriptor(administratorsOnly), descriptor);
}

NTSTATUS NTAPI NtCreateSymbolicLinkObject(HANDLE* link, ACCESS_MASK access,
                                          OBJECT_ATTRIBUTES* attributes, UNICODE_STRING* target);

/* The stand-in for SKUA is the same driver, under the other name. */
static void NameDeviceSkua(void) {
  UNICODE_STRING name;
  UNICODE_STRING target;
  OBJECT_ATTRIBUTES attributes;
  HANDLE link = NULL;
  RtlInitUnicodeString(&name, L"\\??\\SKUA.VXD");
  RtlInitUnicodeString(&target, L"\\Device\\Petrel");
  InitializeObjectAttributes(&attributes, &name, OBJ_CASE_INSENSITIVE, NULL, NULL);
  if (NtCreateSymbolicLinkObject(&link, STANDARD_RIGHTS_REQUIRED, &attributes, &target) != 0) {
    Fail("no link");
  }
}

int main(int argumentCount, char** arguments) {
  char** next = arguments + 2;
  library = LoadLibraryA(arguments[1]);
  while (next < arguments + argumentCount) {
    const char* word = *next++;
    if (strcmp(word, "service") == 0) {
      ShowService();
    } else if (strcmp(word, "device") == 0) {
      TalkToDevice();
    } else if (strcmp(word, "descriptor") == 0) {
      ShowDescriptor();
    } else if (strcmp(word, "skua") == 0) {
      NameDeviceSkua();
    } else if (strcmp(word, "hold") == 0) {
      printf("holds\n");
      fflush(stdout);
      Sleep(INFINITE);
    } else if (strncmp(word, "SMObjsTo", 8) == 0) {
      Write(word, *next++);
    } else {
      Call(word);
    }
  }
  return 0;
}
