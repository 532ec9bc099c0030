/*
 * Kestrel reads the SMBIOS structure table of the PC it runs on and renders it as text.
 *
 * One reader serves the whole process. A host calls OpenSMBios once, then ReadSMObjects, then any
 * of the text functions as often as it likes, and last CloseSMBios. The functions take no lock:
 * call them from one thread at a time. None of them prints, throws, or leaves anything behind that
 * CloseSMBios does not take away, but that Windows keeps its service library loaded.
 *
 * Text functions take the size of the caller's buffer in bytes, terminating zero included, and the
 * buffer. With a text of n characters and a size of s bytes:
 *   - n < s: the whole text is copied with its terminating zero; the result is n.
 *   - else:  the first s - 1 characters are copied and the last byte of the buffer is set to zero;
 *            the result is s - 1. Nothing tells this from a text of s - 1 characters, so a host
 *            that gets s - 1 asks again with a larger buffer.
 * The result is 0, and nothing is written, when the function fails, when the size is below 1, or
 * when there is no buffer. An empty text gives 0 as well, and a zero in the first byte.
 *
 * Without enough memory a function fails and leaves everything as it was.
 *
 * Texts are Windows-1252; every line ends with CR LF. Strings of the firmware are copied unchanged
 * and may hold any byte but zero.
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

/* Closes the firmware access and destroys the reader with everything it read: 1, or 0 when there is
   no reader. */
KESTREL_API int32_t KESTREL_CALL CloseSMBios(void);

/* Release date, vendor and version of the first BIOS Information structure (DMTF DSP0134, "BIOS
   Information (Type 0)"): the string with one blank in front of it, or the blank alone when the
   structure does not name the string. 0 when no such structure was read. */
KESTREL_API int32_t KESTREL_CALL GetSMBiosDate(int32_t bufferSize, char* buffer);
KESTREL_API int32_t KESTREL_CALL GetSMBiosVendor(int32_t bufferSize, char* buffer);
KESTREL_API int32_t KESTREL_CALL GetSMBiosVersion(int32_t bufferSize, char* buffer);

/* An opaque handle of the first BIOS Information object, or null when none was read. The object
   belongs to the library; the handle is valid until CloseSMBios. */
KESTREL_API const void* KESTREL_CALL GetSMType0Obj(void);

/* Makes a fresh reader, in place of an earlier one, which is closed and destroyed first, and opens
   the firmware access: 1, or 0 when the access cannot be opened or there is no memory for a reader.
   A reader whose access did not open is there all the same; CloseSMBios destroys it. */
KESTREL_API int32_t KESTREL_CALL OpenSMBios(void);

/* Copies the structure table and adds its structures behind those that an earlier call read: 1, or
   0 when there is no reader, no entry point, or no table to be read. */
KESTREL_API int32_t KESTREL_CALL ReadSMObjects(void);

/* The structures as a document in the DMTF Management Information Format (DMTF DSP0001, "Desktop
   Management Interface"). Before ReadSMObjects it has all its groups and no rows. */
KESTREL_API int32_t KESTREL_CALL SMObjsToMifString(int32_t bufferSize, char* buffer);

/* The structures as a report for a reader: one block of labelled lines per structure, in table
   order. Empty before ReadSMObjects. */
KESTREL_API int32_t KESTREL_CALL SMObjsToString(int32_t bufferSize, char* buffer);

#if defined(__cplusplus)
}
#endif

#endif
