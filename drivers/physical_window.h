/*
 * What the access drivers let a host see of physical memory. A host names an address, then a
 * length, and then takes that many bytes; anything else is refused here.
 *
 * This part decides and computes, and touches no memory but what it is handed. It is written in the
 * C of 1989 and needs no header of a system, so that the compilers of every driver take it.
 */
#ifndef KESTREL_PHYSICAL_WINDOW_H
#define KESTREL_PHYSICAL_WINDOW_H

#include "control_codes.h"

/* 32 bits wide with every compiler of every driver. */
typedef unsigned int Unsigned32;

/* The longest structure table, and so the longest range. */
#define WINDOW_LARGEST_LENGTH 65535u

typedef struct PhysicalRange {
  Unsigned32 Address;
  Unsigned32 Length;
} PhysicalRange;

/* What one open handle has noted. Starts as zeros. */
typedef struct PhysicalWindow {
  PhysicalRange Noted; /* a length of 0 is none */
  int IsAddressNoted;
} PhysicalWindow;

typedef enum WindowAnswer {
  WindowNoted,
  WindowCopy, /* `range` is to be copied into the output buffer, which is as long */
  WindowUnknownCode,
  WindowWrongBuffer, /* not the buffers that the code asks for */
  WindowWrongRange   /* empty, too long, past 32 bits, or not noted */
} WindowAnswer;

/*
 * Answers a request with its buffers; `input` holds `inputLength` bytes. An address and a length
 * serve one copy; a length or a copy that is refused leaves nothing noted.
 */
WindowAnswer AnswerWindowRequest(PhysicalWindow* window, Unsigned32 code, const void* input,
                                 Unsigned32 inputLength, Unsigned32 outputLength,
                                 PhysicalRange* range);

/* The part of memory to map for a range, where a system maps from certain addresses only. */
typedef struct PhysicalView {
  Unsigned32 Start;
  Unsigned32 Skip; /* from there to the range */
  Unsigned32 Size; /* from the start to the end of the range */
} PhysicalView;

/* `granularity`: the power of two, at most 64 KiB, of which the start has to be a multiple. */
PhysicalView ViewOfRange(const PhysicalRange* range, Unsigned32 granularity);

/* Copies byte by byte and reads none twice: what is read need not be ordinary memory. */
void CopyBytes(unsigned char* to, const volatile unsigned char* from, Unsigned32 length);

#endif
