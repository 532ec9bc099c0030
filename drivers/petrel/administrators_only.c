#include "administrators_only.h"

_Alignas(4) unsigned char administratorsOnly[] = {
    /* Revision, control (self-relative, with access list), offsets of owner, group, lists. */
    0x01, 0x00, 0x04, 0x80, 20, 0, 0, 0, 20, 0, 0, 0, 0, 0, 0, 0, 36, 0, 0, 0,
    /* S-1-5-32-544: administrators. */
    0x01, 0x02, 0, 0, 0, 0, 0, 5, 32, 0, 0, 0, 0x20, 0x02, 0, 0,
    /* Access list: revision, size, one entry. */
    0x02, 0x00, 32, 0, 1, 0, 0, 0,
    /* Allowed, size, FILE_ALL_ACCESS, to the administrators. */
    0x00, 0x00, 24, 0, 0xFF, 0x01, 0x1F, 0x00,
    /* S-1-5-32-544. */
    0x01, 0x02, 0, 0, 0, 0, 0, 5, 32, 0, 0, 0, 0x20, 0x02, 0, 0};
