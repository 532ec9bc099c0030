#include "physical_memory.h"

#include <ntifs.h>

/* Views of sections start at multiples of this. */
enum { kViewGranularity = 0x10000 };

static UNICODE_STRING memoryName = RTL_CONSTANT_STRING(L"\\Device\\PhysicalMemory");

/* Byte by byte and nothing twice: what is mapped need not be ordinary memory. */
static void CopyBytes(UCHAR* to, const volatile UCHAR* from, ULONG length) {
  for (ULONG index = 0; index < length; ++index) {
    to[index] = from[index];
  }
}

static NTSTATUS CopyFromSection(HANDLE section, const PhysicalRange* range, void* buffer) {
  const PhysicalView view = ViewOfRange(range, kViewGranularity);
  LARGE_INTEGER start = {.QuadPart = view.Start};
  SIZE_T size = view.Size;
  void* base = NULL;
  const NTSTATUS status = ZwMapViewOfSection(section, ZwCurrentProcess(), &base, 0, 0, &start,
                                             &size, ViewUnmap, 0, PAGE_READONLY);
  if (NT_SUCCESS(status)) {
    CopyBytes(buffer, (const UCHAR*)base + view.Skip, range->Length);
    ZwUnmapViewOfSection(ZwCurrentProcess(), base);
  }
  return status;
}

/*
 * The section of all physical memory, rather than MmMapIoSpace: a structure table lies in the BIOS
 * area or in memory that the firmware keeps, but where it lies in memory that Windows manages,
 * MmMapIoSpace would give its pages a second mapping with a caching of its own, which Windows XP
 * may answer with a bug check. The section takes the caching that the pages have, and an error
 * comes back where it cannot. It is there from Windows NT 4 on.
 *
 * The view and the handle are made in the system process. In the host's, its other threads could
 * use either while they exist, or take the view away under the copy.
 */
NTSTATUS CopyPhysicalMemory(const PhysicalRange* range, void* buffer) {
  OBJECT_ATTRIBUTES attributes;
  InitializeObjectAttributes(&attributes, &memoryName, OBJ_CASE_INSENSITIVE, NULL, NULL);

  KeAttachProcess((PKPROCESS)PsInitialSystemProcess);
  HANDLE section = NULL;
  NTSTATUS status = ZwOpenSection(&section, SECTION_MAP_READ, &attributes);
  if (NT_SUCCESS(status)) {
    status = CopyFromSection(section, range, buffer);
    ZwClose(section);
  }
  KeDetachProcess();
  return status;
}
