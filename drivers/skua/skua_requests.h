/*
 * What SKUA does with the requests of Windows 95, 98 and Me, but for the way they come and the copy
 * itself. Like the checks that it calls, it is in the C of 1989 and needs no header of a toolkit.
 */
#ifndef KESTREL_SKUA_REQUESTS_H
#define KESTREL_SKUA_REQUESTS_H

#include "physical_window.h"

/* What Windows asks beside the device control codes. */
#define SKUA_OPEN 0u
#define SKUA_CLOSE 0xFFFFFFFFu

/* Results, by their numbers in Windows. */
#define SKUA_DONE 0u
#define SKUA_TOO_MANY_OPEN 4u
#define SKUA_INVALID_HANDLE 6u
#define SKUA_BAD_LENGTH 24u
#define SKUA_READ_FAULT 30u
#define SKUA_NOT_SUPPORTED 50u
#define SKUA_INVALID_PARAMETER 87u

typedef struct SkuaRequest {
  Unsigned32 Device; /* these two together tell one open handle from another */
  Unsigned32 Process;
  Unsigned32 Code;
  const void* Input;
  Unsigned32 InputLength;
  void* Output;
  Unsigned32 OutputLength;
} SkuaRequest;

/* Answers a request and sets the number of bytes that it wrote to the output. */
Unsigned32 AnswerSkuaRequest(const SkuaRequest* request, Unsigned32* written);

/*
 * For the driver to define. A locked buffer is there, and stays where it is until it is unlocked;
 * the result is 0 for one that is not there. The copy is given a locked buffer as long as the
 * range, and gives 0 when it cannot be made.
 */
int LockBuffer(const void* buffer, Unsigned32 length);
void UnlockBuffer(const void* buffer, Unsigned32 length);
int CopyPhysicalMemory(const PhysicalRange* range, void* buffer);

#endif
