#include "physical_memory.h"

#include <ntifs.h>

/* Views of sections start at multiples of this. */
enum { kViewGranularity = 0x10000 };

static UNICODE_STRING memoryName = RTL_CONSTANT_STRING(L"\\Device\\PhysicalMemory");

static NTSTATUS MapView(HANDLE section, const PhysicalView* view, ULONG protection, void** base) {
  LARGE_INTEGER start = {.QuadPart = view->Start};
  SIZE_T size = view->Size;
  *base = NULL;
  return ZwMapViewOfSection(section, ZwCurrentProcess(), base, 0, 0, &start, &size, ViewUnmap, 0,
                            protection);
}

/*
 * The view is expected to take the caching that its pages have. Windows XP refuses one whose
 * caching conflicts with another mapping of the same pages; where that is a mapping without
 * caching, as drivers make of the memory of devices, asking for none should be granted.
 */
static NTSTATUS CopyFromSection(HANDLE section, const PhysicalRange* range, void* buffer) {
  const PhysicalView view = ViewOfRange(range, kViewGranularity);
  void* base = NULL;
  NTSTATUS status = MapView(section, &view, PAGE_READONLY, &base);
  if (!NT_SUCCESS(status)) {
    status = MapView(section, &view, PAGE_READONLY | PAGE_NOCACHE, &base);
  }
  if (NT_SUCCESS(status)) {
    CopyBytes(buffer, (const UCHAR*)base + view.Skip, range->Length);
    ZwUnmapViewOfSection(ZwCurrentProcess(), base);
  }
  return status;
}

static NTSTATUS CopyInThisProcess(const PhysicalRange* range, void* buffer) {
  OBJECT_ATTRIBUTES attributes;
  InitializeObjectAttributes(&attributes, &memoryName, OBJ_CASE_INSENSITIVE, NULL, NULL);

  HANDLE section = NULL;
  NTSTATUS status = ZwOpenSection(&section, SECTION_MAP_READ, &attributes);
  if (NT_SUCCESS(status)) {
    status = CopyFromSection(section, range, buffer);
    ZwClose(section);
  }
  return status;
}

/*
 * The section of all physical memory, rather than MmMapIoSpace: a structure table lies in the BIOS
 * area or in memory that the firmware keeps, but where it lies in memory that Windows manages,
 * MmMapIoSpace would give its pages a second mapping with a caching of its own, which Windows XP
 * may answer with a bug check. The section is there from Windows NT 4 on.
 *
 * The view and the handle are made in the system process. In the host's, its other threads could
 * use either while they exist, or take the view away under the copy.
 */
NTSTATUS CopyPhysicalMemory(const PhysicalRange* range, void* buffer) {
#ifdef PETREL_FOR_NT4
  KeAttachProcess((PKPROCESS)PsInitialSystemProcess);
  const NTSTATUS status = CopyInThisProcess(range, buffer);
  KeDetachProcess();
#else
  /* Unlike KeAttachProcess, all that Windows NT 4 has, this may find the thread attached. */
  KAPC_STATE state;
  KeStackAttachProcess((PKPROCESS)PsInitialSystemProcess, &state);
  const NTSTATUS status = CopyInThisProcess(range, buffer);
  KeUnstackDetachProcess(&state);
#endif
  return status;
}
