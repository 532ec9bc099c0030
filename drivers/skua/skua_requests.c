#include "skua_requests.h"

#include "pages.h"

/* What a handle has noted. While nothing is noted in it, it is free for any handle. */
typedef struct Opening {
  Unsigned32 Device;
  Unsigned32 Process;
  PhysicalWindow Window;
} Opening;

static const Opening kFreeOpening = {0, 0, {{0, 0}, 0}};

#define MOST_OPENINGS 16

/* Zeros whenever Windows loads the driver. */
static Opening openings[MOST_OPENINGS];

static int IsFree(const Opening* opening) {
  return !opening->Window.IsAddressNoted && opening->Window.Noted.Length == 0;
}

/* The opening of a handle: the one that it has, or a free one, or none. */
static Opening* FindOpening(const SkuaRequest* request) {
  Opening* freeOpening = 0;
  int index;
  for (index = 0; index < MOST_OPENINGS; ++index) {
    Opening* opening = &openings[index];
    if (IsFree(opening)) {
      freeOpening = opening;
    } else if (opening->Device == request->Device && opening->Process == request->Process) {
      return opening;
    }
  }
  if (freeOpening != 0) {
    freeOpening->Device = request->Device;
    freeOpening->Process = request->Process;
  }
  return freeOpening;
}

static void Close(const SkuaRequest* request) {
  Opening* opening = FindOpening(request);
  if (opening != 0) {
    *opening = kFreeOpening;
  }
}

/* How many pages a view takes; its start is the start of one. */
static Unsigned32 CountPages(const PhysicalView* view) {
  return (view->Size + PAGE_BYTES - 1) >> PAGE_BITS;
}

static PhysicalView PagesOf(Unsigned32 address, Unsigned32 length) {
  PhysicalRange range;
  range.Address = address;
  range.Length = length;
  return ViewOfRange(&range, PAGE_BYTES);
}

static void UnlockBuffer(Unsigned32 address, Unsigned32 length) {
  const PhysicalView pages = PagesOf(address, length);
  UnlockPages(pages.Start >> PAGE_BITS, CountPages(&pages));
}

/*
 * Locks a buffer of the program's and returns 1, or 0 where the program itself could not use it so:
 * a fault at a page that is not there would stop Windows, and no program has the driver write where
 * it may not. The page-table entries tell only once the pages are locked.
 */
static int LockBuffer(Unsigned32 address, Unsigned32 length, Unsigned32 access) {
  const PhysicalView pages = PagesOf(address, length);
  const Unsigned32 first = pages.Start >> PAGE_BITS;
  const Unsigned32 count = CountPages(&pages);
  const Unsigned32 wanted = PAGE_IS_PRESENT | PAGE_IS_FOR_PROGRAMS | access;
  Unsigned32 index;
  if (length == 0 || length - 1 > 0xFFFFFFFFu - address ||
      CountCommittedPages(first, count) != count || !LockPages(first, count)) {
    return 0;
  }
  for (index = 0; index < count; ++index) {
    if ((GetPageEntry(first + index) & wanted) != wanted) {
      UnlockPages(first, count);
      return 0;
    }
  }
  return 1;
}

/* Returns 0 for an input that is not there. Only one of 4 bytes is looked at. */
static int ReadInput(const SkuaRequest* request, unsigned char* input) {
  if (request->InputLength != 4) {
    return 1;
  }
  if (!LockBuffer(request->Input, 4, 0)) {
    return 0;
  }
  CopyBytes(input, BytesAt(request->Input), 4);
  UnlockBuffer(request->Input, 4);
  return 1;
}

/*
 * Pages of the system's own are reserved, laid over the physical ones, and freed again.
 * _MapPhysToLinear would be shorter, but keeps its mapping until Windows ends. A page that the
 * memory manager has in use may not be laid under another address, and holds no structure table.
 */
static Unsigned32 CopyPhysicalMemory(const PhysicalRange* range, Unsigned32 output) {
  const PhysicalView view = ViewOfRange(range, PAGE_BYTES);
  const Unsigned32 firstPage = view.Start >> PAGE_BITS;
  const Unsigned32 count = CountPages(&view);
  Unsigned32 address;
  int isMapped;
  if (IsAnyPhysicalPageManaged(firstPage, count)) {
    return SKUA_ACCESS_DENIED;
  }
  address = ReservePages(count);
  if (address == NO_PAGES) {
    return SKUA_READ_FAULT;
  }
  isMapped = CommitPhysicalPages(address >> PAGE_BITS, count, firstPage);
  if (isMapped) {
    CopyBytes(BytesAt(output), BytesAt(address + view.Skip), range->Length);
  }
  FreePages(address);
  return isMapped ? SKUA_DONE : SKUA_READ_FAULT;
}

static Unsigned32 Copy(const SkuaRequest* request, const PhysicalRange* range,
                       Unsigned32* written) {
  Unsigned32 result;
  if (!LockBuffer(request->Output, range->Length, PAGE_IS_WRITABLE)) {
    return SKUA_BAD_LENGTH;
  }
  result = CopyPhysicalMemory(range, request->Output);
  UnlockBuffer(request->Output, range->Length);
  *written = result == SKUA_DONE ? range->Length : 0;
  return result;
}

/* Other threads run while buffers are locked, and at no time between finding and answering. */
static Unsigned32 Control(const SkuaRequest* request, Unsigned32* written) {
  unsigned char input[4] = {0, 0, 0, 0};
  PhysicalRange range;
  Opening* opening;
  if (!ReadInput(request, input)) {
    return SKUA_BAD_LENGTH;
  }
  opening = FindOpening(request);
  if (opening == 0) {
    return SKUA_TOO_MANY_OPEN;
  }
  switch (AnswerWindowRequest(&opening->Window, request->Code, input, request->InputLength,
                              request->OutputLength, &range)) {
    case WindowNoted:
      return SKUA_DONE;
    case WindowCopy:
      return Copy(request, &range, written);
    case WindowWrongBuffer:
      return SKUA_BAD_LENGTH;
    case WindowWrongRange:
      return SKUA_INVALID_PARAMETER;
    case WindowUnknownCode:
      break;
  }
  return SKUA_NOT_SUPPORTED;
}

static void WriteCount(const SkuaRequest* request, Unsigned32 count) {
  if (request->Count != 0 && LockBuffer(request->Count, sizeof(count), PAGE_IS_WRITABLE)) {
    CopyBytes(BytesAt(request->Count), (const unsigned char*)&count, sizeof(count));
    UnlockBuffer(request->Count, sizeof(count));
  }
}

/*
 * Nothing promises that a handle has its number already while it is opened, so that an opening
 * begins with the first note. Nor does anything promise that a request which is not one of the
 * control codes brings a place for a count: it may be left over from another.
 */
Unsigned32 AnswerSkuaRequest(const SkuaRequest* request) {
  Unsigned32 written = 0;
  Unsigned32 result;
  if (request->Code == SKUA_OPEN) {
    return SKUA_DONE;
  }
  if (request->Code == SKUA_CLOSE) {
    Close(request);
    return SKUA_DONE;
  }
  result = Control(request, &written);
  if (result != SKUA_NOT_SUPPORTED) {
    WriteCount(request, written);
  }
  return result;
}
