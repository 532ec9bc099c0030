/*
 * Petrel, the driver through which Kestrel reads physical memory on Windows NT 4, 2000 and XP. It
 * reads only, and only for administrators.
 */
#include <ntifs.h>

#include "administrators_only.h"
#include "physical_memory.h"
#include "physical_window.h"

enum { kPoolTag = 0x72746550 }; /* "Petr" */

/* What an open handle keeps. Its requests may come from several threads. */
typedef struct Opening {
  KMUTEX Mutex;
  PhysicalWindow Window;
} Opening;

static UNICODE_STRING deviceName = RTL_CONSTANT_STRING(L"\\Device\\Petrel");
static UNICODE_STRING linkName = RTL_CONSTANT_STRING(L"\\DosDevices\\Petrel");

static GENERIC_MAPPING fileMapping = {FILE_GENERIC_READ, FILE_GENERIC_WRITE, FILE_GENERIC_EXECUTE,
                                      FILE_ALL_ACCESS};

/*
 * Whether the opener may read physical memory. The control codes work on any handle, whatever
 * access it was opened for, so that reading is asked for on behalf of every opener. An opening
 * without a security context is none that Windows made for a program; the thread must then be one
 * that may load drivers, which could read physical memory anyway.
 */
static BOOLEAN IsAdministrator(const IO_SECURITY_CONTEXT* opener) {
  ACCESS_MASK granted = 0;
  NTSTATUS status = STATUS_ACCESS_DENIED;
  PPRIVILEGE_SET privileges = NULL;
  if (opener == NULL || opener->AccessState == NULL) {
    return SeSinglePrivilegeCheck(RtlConvertUlongToLuid(SE_LOAD_DRIVER_PRIVILEGE), UserMode);
  }
  const BOOLEAN isAdministrator = SeAccessCheck(
      (PSECURITY_DESCRIPTOR)administratorsOnly, &opener->AccessState->SubjectSecurityContext, FALSE,
      FILE_READ_DATA, 0, &privileges, &fileMapping, UserMode, &granted, &status);
  if (privileges != NULL) {
    SeFreePrivileges(privileges);
  }
  return isAdministrator;
}

static NTSTATUS MakeOpening(const IO_STACK_LOCATION* request) {
  /* There is nothing below the device. */
  if (request->FileObject->FileName.Length != 0) {
    return STATUS_OBJECT_NAME_NOT_FOUND;
  }
  if (!IsAdministrator(request->Parameters.Create.SecurityContext)) {
    return STATUS_ACCESS_DENIED;
  }
  Opening* opening = ExAllocatePoolWithTag(NonPagedPool, sizeof *opening, kPoolTag);
  if (opening == NULL) {
    return STATUS_INSUFFICIENT_RESOURCES;
  }
  RtlZeroMemory(opening, sizeof *opening);
  KeInitializeMutex(&opening->Mutex, 0);
  request->FileObject->FsContext = opening;
  return STATUS_SUCCESS;
}

static WindowAnswer Answer(Opening* opening, const IO_STACK_LOCATION* request, const void* input,
                           PhysicalRange* range) {
  KeWaitForSingleObject(&opening->Mutex, Executive, KernelMode, FALSE, NULL);
  const WindowAnswer answer =
      AnswerWindowRequest(&opening->Window, request->Parameters.DeviceIoControl.IoControlCode,
                          input, request->Parameters.DeviceIoControl.InputBufferLength,
                          request->Parameters.DeviceIoControl.OutputBufferLength, range);
  KeReleaseMutex(&opening->Mutex, FALSE);
  return answer;
}

static NTSTATUS Control(Opening* opening, const IO_STACK_LOCATION* request, void* buffer,
                        ULONG_PTR* written) {
  PhysicalRange range;
  NTSTATUS status = STATUS_SUCCESS;
  switch (Answer(opening, request, buffer, &range)) {
    case WindowNoted:
      return STATUS_SUCCESS;
    case WindowCopy:
      status = CopyPhysicalMemory(&range, buffer);
      *written = NT_SUCCESS(status) ? range.Length : 0;
      return status;
    case WindowWrongBuffer:
      return STATUS_INVALID_BUFFER_SIZE;
    case WindowWrongRange:
      return STATUS_INVALID_PARAMETER;
    case WindowUnknownCode:
      break;
  }
  return STATUS_INVALID_DEVICE_REQUEST;
}

static NTSTATUS Complete(IRP* irp, NTSTATUS status, ULONG_PTR written) {
  irp->IoStatus.Status = status;
  irp->IoStatus.Information = written;
  IoCompleteRequest(irp, IO_NO_INCREMENT);
  return status;
}

static NTSTATUS NTAPI DispatchCreate(DEVICE_OBJECT* device, IRP* irp) {
  UNREFERENCED_PARAMETER(device);
  return Complete(irp, MakeOpening(IoGetCurrentIrpStackLocation(irp)), 0);
}

static NTSTATUS NTAPI DispatchControl(DEVICE_OBJECT* device, IRP* irp) {
  UNREFERENCED_PARAMETER(device);
  const IO_STACK_LOCATION* request = IoGetCurrentIrpStackLocation(irp);
  Opening* opening = request->FileObject != NULL ? request->FileObject->FsContext : NULL;
  if (opening == NULL) {
    return Complete(irp, STATUS_INVALID_HANDLE, 0);
  }
  ULONG_PTR written = 0;
  const NTSTATUS status = Control(opening, request, irp->AssociatedIrp.SystemBuffer, &written);
  return Complete(irp, status, written);
}

static NTSTATUS NTAPI DispatchCleanup(DEVICE_OBJECT* device, IRP* irp) {
  UNREFERENCED_PARAMETER(device);
  return Complete(irp, STATUS_SUCCESS, 0);
}

static NTSTATUS NTAPI DispatchClose(DEVICE_OBJECT* device, IRP* irp) {
  UNREFERENCED_PARAMETER(device);
  FILE_OBJECT* file = IoGetCurrentIrpStackLocation(irp)->FileObject;
  if (file != NULL && file->FsContext != NULL) {
    ExFreePool(file->FsContext);
    file->FsContext = NULL;
  }
  return Complete(irp, STATUS_SUCCESS, 0);
}

static VOID NTAPI Unload(DRIVER_OBJECT* driver) {
  IoDeleteSymbolicLink(&linkName);
  IoDeleteDevice(driver->DeviceObject);
}

DRIVER_INITIALIZE DriverEntry;

NTSTATUS NTAPI DriverEntry(DRIVER_OBJECT* driver, UNICODE_STRING* registryPath) {
  UNREFERENCED_PARAMETER(registryPath);
  driver->MajorFunction[IRP_MJ_CREATE] = DispatchCreate;
  driver->MajorFunction[IRP_MJ_DEVICE_CONTROL] = DispatchControl;
  driver->MajorFunction[IRP_MJ_CLEANUP] = DispatchCleanup;
  driver->MajorFunction[IRP_MJ_CLOSE] = DispatchClose;
  driver->DriverUnload = Unload;

  DEVICE_OBJECT* device = NULL;
  NTSTATUS status = IoCreateDevice(driver, 0, &deviceName, FILE_DEVICE_UNKNOWN, 0, FALSE, &device);
  if (!NT_SUCCESS(status)) {
    return status;
  }
  status = IoCreateSymbolicLink(&linkName, &deviceName);
  if (!NT_SUCCESS(status)) {
    IoDeleteDevice(device);
  }
  return status;
}
