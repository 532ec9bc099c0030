/*
 * Kestrel reads the SMBIOS structure table of the PC it runs on and renders it as text.
 *
 * There is one reader per process. A host calls OpenSMBios, then ReadSMObjects, then any of the
 * text functions as often as it likes, and finally CloseSMBios. The functions take no lock: call
 * them from one thread at a time. None of them prints or throws, and a thread is not cancelled
 * inside one. CloseSMBios undoes what they did, except that Windows keeps its service library
 * loaded.
 *
 * A text function takes the size of the caller's buffer in bytes, terminating zero included, and
 * the buffer. For a text of n characters and a buffer of s bytes:
 *   - n < s:  the whole text is copied with its terminating zero; the result is n.
 *   - n >= s: the first s - 1 characters are copied and the last byte of the buffer is set to zero;
 *             the result is s - 1, as for a whole text of s - 1 characters, so a host that gets
 *             s - 1 should ask again with a larger buffer.
 * The result is 0, and nothing is written, if the function fails, if the size is below 1, or if the
 * buffer is null. An empty text also gives 0, with a zero in the first byte.
 *
 * On machines of today a report takes up to some 220 KB, and a MIF document up to some 75 KB.
 *
 * A function that runs out of memory fails and, unless its description says otherwise, changes
 * nothing. errno may be changed, and means nothing.
 *
 * A table is read as programs of SMBIOS 2.3's time did: a structure without strings right before
 * BIOS Information hides it, as on 26 of 149 machines of today.
 *
 * Texts are Windows-1252 with CR LF at the end of every line. Strings of the firmware are copied
 * unchanged and may hold any byte but zero.
 */
#ifndef KESTREL_H
#define KESTREL_H

#include <stdint.h> /* NOLINT(modernize-deprecated-headers): this header is C. */

#if defined(_WIN32)
#define KESTREL_API
#define KESTREL_CALL __cdecl
#else
#define KESTREL_API __attribute__((visibility("default")))
#define KESTREL_CALL
#endif

#if defined(__cplusplus)
extern "C" {
#endif

/* Closes the firmware access and destroys the reader with everything it read. Returns 1, or 0 if
   there is no reader. */
KESTREL_API int32_t KESTREL_CALL CloseSMBios(void);

/* Release date, vendor and version from the first BIOS Information structure (DMTF DSP0134, "BIOS
   Information (Type 0)"): a blank followed by the string, or the blank alone if the structure does
   not have the string. They fail if no such structure was read. */
KESTREL_API int32_t KESTREL_CALL GetSMBiosDate(int32_t bufferSize, char* buffer);
KESTREL_API int32_t KESTREL_CALL GetSMBiosVendor(int32_t bufferSize, char* buffer);
KESTREL_API int32_t KESTREL_CALL GetSMBiosVersion(int32_t bufferSize, char* buffer);

/* Returns an opaque handle of the first BIOS Information object, or null if none was read. The
   object belongs to the library; the handle is valid until the reader is destroyed. */
KESTREL_API const void* KESTREL_CALL GetSMType0Obj(void);

/* Creates a reader and opens the firmware access. An earlier reader is closed and destroyed first.
   Returns 1, or 0 if there is no memory for a reader, in which case an earlier one stays, or if the
   access cannot be opened. A reader whose access did not open, for lack of memory or otherwise,
   exists nevertheless and is destroyed by CloseSMBios. */
KESTREL_API int32_t KESTREL_CALL OpenSMBios(void);

/* Copies the structure table and appends its structures to those that earlier calls read. Returns
   1, or 0 if there is no reader or no entry point, or if the table cannot be read. */
KESTREL_API int32_t KESTREL_CALL ReadSMObjects(void);

/* The structures as a document in the Management Information Format of the Desktop Management
   Interface (DMTF DSP0001). Before ReadSMObjects it has all its groups and no rows. */
KESTREL_API int32_t KESTREL_CALL SMObjsToMifString(int32_t bufferSize, char* buffer);

/* The structures as a report for people: a block of labelled lines for each structure, in table
   order. Empty before ReadSMObjects. */
KESTREL_API int32_t KESTREL_CALL SMObjsToString(int32_t bufferSize, char* buffer);

#if defined(__cplusplus)
}
#endif

#endif
