/*
 * What SKUA asks of the memory manager of Windows 95, 98 and Me, one service in each function. A
 * page has 4 KiB, and its number is its first address shifted right by 12.
 */
#ifndef KESTREL_SKUA_PAGES_H
#define KESTREL_SKUA_PAGES_H

#include "physical_window.h"

#define PAGE_BITS 12
#define PAGE_BYTES (1u << PAGE_BITS)

/* Bits of a page-table entry. */
#define PAGE_IS_PRESENT 1u
#define PAGE_IS_WRITABLE 2u
#define PAGE_IS_FOR_PROGRAMS 4u

/* No address of a page. */
#define NO_PAGES 0xFFFFFFFFu

/* How many pages, from the first on, are committed. */
Unsigned32 CountCommittedPages(Unsigned32 firstPage, Unsigned32 count);

/* Makes committed pages present and keeps them where they are. Returns 0 for failure. */
int LockPages(Unsigned32 firstPage, Unsigned32 count);
void UnlockPages(Unsigned32 firstPage, Unsigned32 count);

/* The page-table entry of a page, or 0 where there is none. */
Unsigned32 GetPageEntry(Unsigned32 page);

/* Whether the memory manager has any of these physical pages for programs and for itself. */
int IsAnyPhysicalPageManaged(Unsigned32 firstPage, Unsigned32 count);

/* Reserves addresses for pages and returns the first one, or NO_PAGES. */
Unsigned32 ReservePages(Unsigned32 count);

/* Lays physical pages under reserved ones, to be read only. Returns 0 for failure. */
int CommitPhysicalPages(Unsigned32 firstPage, Unsigned32 count, Unsigned32 firstPhysicalPage);

/* Frees reserved pages, committed or not. */
void FreePages(Unsigned32 address);

/* The bytes from a linear address on. */
unsigned char* BytesAt(Unsigned32 address);

#endif
