/* Physical memory for the driver under test: a memory image, where the offset is the address. */
#include <ntifs.h>

#include "physical_memory.h"

static UNICODE_STRING imageName = RTL_CONSTANT_STRING(L"\\DosDevices\\C:\\memory.img");

NTSTATUS CopyPhysicalMemory(const PhysicalRange* range, void* buffer) {
  OBJECT_ATTRIBUTES attributes;
  InitializeObjectAttributes(&attributes, &imageName, OBJ_CASE_INSENSITIVE, NULL, NULL);
  IO_STATUS_BLOCK result;
  HANDLE file = NULL;
  NTSTATUS status = ZwCreateFile(&file, GENERIC_READ | SYNCHRONIZE, &attributes, &result, NULL, 0,
                                 FILE_SHARE_READ, FILE_OPEN, FILE_SYNCHRONOUS_IO_NONALERT, NULL, 0);
  if (!NT_SUCCESS(status)) {
    return status;
  }
  LARGE_INTEGER offset = {.QuadPart = range->Address};
  status = ZwReadFile(file, NULL, NULL, NULL, &result, buffer, range->Length, &offset, NULL);
  ZwClose(file);
  return status;
}
