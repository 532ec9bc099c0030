#ifndef KESTREL_PHYSICAL_MEMORY_H
#define KESTREL_PHYSICAL_MEMORY_H

#include <ntddk.h>

#include "physical_window.h"

/* Copies an allowed range of physical memory. `buffer` lies in system space and is as long; where
   the result is a failure, its content is undefined. */
NTSTATUS CopyPhysicalMemory(const PhysicalRange* range, void* buffer);

#endif
