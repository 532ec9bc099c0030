/*
 * The control codes by which the library asks the access drivers: device type 22h, functions 806h,
 * 808h and 810h, buffered, any access. For C and C++.
 */
#ifndef KESTREL_CONTROL_CODES_H
#define KESTREL_CONTROL_CODES_H

#define WINDOW_NOTE_ADDRESS 0x222018u /* in: the address, 4 bytes */
#define WINDOW_NOTE_LENGTH 0x222020u  /* in: the length, 4 bytes */
#define WINDOW_COPY_MEMORY 0x222040u  /* out: as many bytes as the noted length */

#endif
