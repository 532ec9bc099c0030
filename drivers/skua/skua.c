/*
 * SKUA, the virtual device driver through which Kestrel reads physical memory on Windows 95, 98 and
 * Me: what ties skua_requests.c to Windows. To be built with the headers and wrappers of the driver
 * development kit for Windows 95 or 98; see README.md.
 */
#define WANTVXDWRAPS

#include <basedef.h>
#include <vmm.h>
#include <vwin32.h>
#include <vxdwraps.h>

#include "skua_requests.h"

#define PAGE_BITS 12
#define PAGE_BYTES (1u << PAGE_BITS)

#define NO_PAGES 0xFFFFFFFFu

/* How many pages the view takes; its start is the start of one. */
static ULONG CountPages(const PhysicalView* view) {
  return (view->Size + PAGE_BYTES - 1) >> PAGE_BITS;
}

static PhysicalView PagesOf(const void* buffer, Unsigned32 length) {
  PhysicalRange range;
  range.Address = (Unsigned32)buffer;
  range.Length = length;
  return ViewOfRange(&range, PAGE_BYTES);
}

/* Pages that are not there cannot be locked; a fault at one would stop Windows. */
int LockBuffer(const void* buffer, Unsigned32 length) {
  const PhysicalView pages = PagesOf(buffer, length);
  return length - 1 <= 0xFFFFFFFFu - (Unsigned32)buffer &&
         _LinPageLock(pages.Start >> PAGE_BITS, CountPages(&pages), 0) != 0;
}

void UnlockBuffer(const void* buffer, Unsigned32 length) {
  const PhysicalView pages = PagesOf(buffer, length);
  _LinPageUnLock(pages.Start >> PAGE_BITS, CountPages(&pages), 0);
}

/* Byte by byte and nothing twice: what is mapped need not be ordinary memory. */
static void CopyBytes(unsigned char* to, const volatile unsigned char* from, Unsigned32 length) {
  Unsigned32 index;
  for (index = 0; index < length; ++index) {
    to[index] = from[index];
  }
}

/*
 * Pages of the system's own are reserved, laid over the physical ones without the right to write,
 * and freed again. _MapPhysToLinear would be shorter, but keeps its mapping until Windows ends.
 */
int CopyPhysicalMemory(const PhysicalRange* range, void* buffer) {
  const PhysicalView view = ViewOfRange(range, PAGE_BYTES);
  const ULONG base = (ULONG)_PageReserve(PR_SYSTEM, CountPages(&view), PR_FIXED);
  int isMapped;
  if (base == NO_PAGES) {
    return 0;
  }
  isMapped =
      _PageCommitPhys(base >> PAGE_BITS, CountPages(&view), view.Start >> PAGE_BITS, PC_INCR) != 0;
  if (isMapped) {
    CopyBytes(buffer, (const unsigned char*)base + view.Skip, range->Length);
  }
  _PageFree((PVOID)base, 0);
  return isMapped;
}

/* Called by the control procedure for each request of a program. */
DWORD _stdcall SkuaDeviceIoControl(DWORD service, DWORD ddb, DWORD device, DIOCPARAMETERS* call) {
  SkuaRequest request;
  Unsigned32 written;
  Unsigned32 result;
  (void)service;
  (void)ddb;
  (void)device;
  request.Device = call->hDevice;
  request.Process = call->tagProcess;
  request.Code = call->dwIoControlCode;
  request.Input = (const void*)call->lpvInBuffer;
  request.InputLength = call->cbInBuffer;
  request.Output = (void*)call->lpvOutBuffer;
  request.OutputLength = call->cbOutBuffer;
  result = AnswerSkuaRequest(&request, &written);
  if (call->lpcbBytesReturned != 0 && LockBuffer((void*)call->lpcbBytesReturned, 4)) {
    *(DWORD*)call->lpcbBytesReturned = written;
    UnlockBuffer((void*)call->lpcbBytesReturned, 4);
  }
  return result;
}
