/*
 * What SKUA does with the requests of Windows 95, 98 and Me. Like the checks that it calls, it is
 * in the C of 1989 and needs no header of a toolkit.
 */
#ifndef KESTREL_SKUA_REQUESTS_H
#define KESTREL_SKUA_REQUESTS_H

#include "physical_window.h"

/* What Windows asks besides the device control codes. */
#define SKUA_OPEN 0u
#define SKUA_CLOSE 0xFFFFFFFFu

/* Results, by their numbers in Windows. */
#define SKUA_DONE 0u
#define SKUA_TOO_MANY_OPEN 4u
#define SKUA_ACCESS_DENIED 5u
#define SKUA_BAD_LENGTH 24u
#define SKUA_READ_FAULT 30u
#define SKUA_NOT_SUPPORTED 50u
#define SKUA_INVALID_PARAMETER 87u

/* Addresses are those of the program that asks. Device and process together tell one handle from
   another, except while it is being opened. */
typedef struct SkuaRequest {
  Unsigned32 Device;
  Unsigned32 Process;
  Unsigned32 Code;
  Unsigned32 Input;
  Unsigned32 InputLength;
  Unsigned32 Output;
  Unsigned32 OutputLength;
  Unsigned32 Count; /* where the number of bytes written to the output goes, or 0 */
} SkuaRequest;

/* Answers a request. The count is written only for the three device control codes. */
Unsigned32 AnswerSkuaRequest(const SkuaRequest* request);

#endif
