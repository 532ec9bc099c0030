/* To be built with the headers and wrappers of the driver development kit for Windows 95 or 98; see
   README.md. */
#define WANTVXDWRAPS

#include "pages.h"

#include <basedef.h>
#include <vmm.h>
#include <vxdwraps.h>

Unsigned32 CountCommittedPages(Unsigned32 firstPage, Unsigned32 count) {
  return _PageCheckLinRange(firstPage, count, 0);
}

int LockPages(Unsigned32 firstPage, Unsigned32 count) {
  return _LinPageLock(firstPage, count, 0) != 0;
}

void UnlockPages(Unsigned32 firstPage, Unsigned32 count) { _LinPageUnLock(firstPage, count, 0); }

Unsigned32 GetPageEntry(Unsigned32 page) {
  DWORD entry = 0;
  return _CopyPageTable(page, 1, &entry, 0) != 0 ? entry : 0;
}

int IsAnyPhysicalPageManaged(Unsigned32 firstPage, Unsigned32 count) {
  return _GetPhysPageInfo(firstPage, count, 0) != PHYSINFO_NONE;
}

Unsigned32 ReservePages(Unsigned32 count) {
  return (Unsigned32)_PageReserve(PR_SYSTEM, count, PR_FIXED);
}

int CommitPhysicalPages(Unsigned32 firstPage, Unsigned32 count, Unsigned32 firstPhysicalPage) {
  return _PageCommitPhys(firstPage, count, firstPhysicalPage, PC_INCR) != 0;
}

void FreePages(Unsigned32 address) { _PageFree((PVOID)address, 0); }

unsigned char* BytesAt(Unsigned32 address) { return (unsigned char*)address; }
