; How Windows finds SKUA and hands it a message. All messages but one are answered with success,
; those of loading and unloading among them.
;
; A dispatch to a procedure with arguments cannot stand in a dispatch table (Begin_Control_Dispatch),
; so that the control procedure is written out.

.386p
include vmm.inc

Declare_Virtual_Device SKUA, 1, 0, SKUA_Control, UNDEFINED_DEVICE_ID, UNDEFINED_INIT_ORDER

VxD_LOCKED_CODE_SEG

BeginProc SKUA_Control
    Control_Dispatch W32_DEVICEIOCONTROL, SkuaDeviceIoControl, sCall, <esi>
    clc
    ret
EndProc SKUA_Control

VxD_LOCKED_CODE_ENDS

end
