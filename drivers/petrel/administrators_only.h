#ifndef KESTREL_ADMINISTRATORS_ONLY_H
#define KESTREL_ADMINISTRATORS_ONLY_H

/* A self-relative security descriptor, owned by the administrators; only they have access: all of
   it that a file knows. Aligned as Windows wants it. */
extern unsigned char administratorsOnly[];

#endif
