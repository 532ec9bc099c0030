/*
 * SKUA, the virtual device driver through which Kestrel reads physical memory on Windows 95, 98 and
 * Me: what Windows calls. To be built with the headers of the driver development kit for Windows 95
 * or 98; see README.md.
 */
#include <basedef.h>
#include <vmm.h>
#include <vwin32.h>

#include "skua_requests.h"

/* Called by the control procedure for each request of a program, in the memory of that program. */
DWORD _stdcall SkuaDeviceIoControl(DIOCPARAMETERS* call) {
  SkuaRequest request;
  request.Device = call->hDevice;
  request.Process = call->tagProcess;
  request.Code = call->dwIoControlCode;
  request.Input = call->lpvInBuffer;
  request.InputLength = call->cbInBuffer;
  request.Output = call->lpvOutBuffer;
  request.OutputLength = call->cbOutBuffer;
  request.Count = call->lpcbBytesReturned;
  return AnswerSkuaRequest(&request);
}
