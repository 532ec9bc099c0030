#include "skua_requests.h"

typedef struct Opening {
  int IsOpen;
  Unsigned32 Device;
  Unsigned32 Process;
  PhysicalWindow Window;
} Opening;

#define MOST_OPENINGS 16

/* Zeros whenever Windows loads the driver. */
static Opening openings[MOST_OPENINGS];

static Opening* FindOpening(const SkuaRequest* request) {
  int index;
  for (index = 0; index < MOST_OPENINGS; ++index) {
    Opening* opening = &openings[index];
    if (opening->IsOpen && opening->Device == request->Device &&
        opening->Process == request->Process) {
      return opening;
    }
  }
  return 0;
}

static Unsigned32 Open(const SkuaRequest* request) {
  static const Opening kNew = {1, 0, 0, {{0, 0}, 0}};
  Opening* opening = FindOpening(request);
  int index;
  for (index = 0; opening == 0 && index < MOST_OPENINGS; ++index) {
    if (!openings[index].IsOpen) {
      opening = &openings[index];
    }
  }
  if (opening == 0) {
    return SKUA_TOO_MANY_OPEN;
  }
  *opening = kNew;
  opening->Device = request->Device;
  opening->Process = request->Process;
  return SKUA_DONE;
}

/* No locking for an input that nobody reads. */
static WindowAnswer AnswerWithInput(PhysicalWindow* window, const SkuaRequest* request,
                                    PhysicalRange* range) {
  WindowAnswer answer;
  const int isLocked =
      request->InputLength == 4 && LockBuffer(request->Input, request->InputLength);
  if (request->InputLength == 4 && !isLocked) {
    return WindowWrongBuffer;
  }
  answer = AnswerWindowRequest(window, request->Code, request->Input, request->InputLength,
                               request->OutputLength, range);
  if (isLocked) {
    UnlockBuffer(request->Input, request->InputLength);
  }
  return answer;
}

static Unsigned32 Copy(const PhysicalRange* range, const SkuaRequest* request,
                       Unsigned32* written) {
  int isCopied;
  if (!LockBuffer(request->Output, range->Length)) {
    return SKUA_BAD_LENGTH;
  }
  isCopied = CopyPhysicalMemory(range, request->Output);
  UnlockBuffer(request->Output, range->Length);
  *written = isCopied ? range->Length : 0;
  return isCopied ? SKUA_DONE : SKUA_READ_FAULT;
}

static Unsigned32 Control(PhysicalWindow* window, const SkuaRequest* request, Unsigned32* written) {
  PhysicalRange range;
  switch (AnswerWithInput(window, request, &range)) {
    case WindowNoted:
      return SKUA_DONE;
    case WindowCopy:
      return Copy(&range, request, written);
    case WindowWrongBuffer:
      return SKUA_BAD_LENGTH;
    case WindowWrongRange:
      return SKUA_INVALID_PARAMETER;
    case WindowUnknownCode:
      break;
  }
  return SKUA_NOT_SUPPORTED;
}

Unsigned32 AnswerSkuaRequest(const SkuaRequest* request, Unsigned32* written) {
  Opening* opening;
  *written = 0;
  if (request->Code == SKUA_OPEN) {
    return Open(request);
  }
  opening = FindOpening(request);
  if (opening == 0) {
    return SKUA_INVALID_HANDLE;
  }
  if (request->Code == SKUA_CLOSE) {
    opening->IsOpen = 0;
    return SKUA_DONE;
  }
  return Control(&opening->Window, request, written);
}
