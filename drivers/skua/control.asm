; How Windows finds SKUA and hands it a message. All messages but one are answered with success,
; those of loading and unloading among them.

.386p
include vmm.inc

Declare_Virtual_Device SKUA, 1, 0, SKUA_Control, UNDEFINED_DEVICE_ID, UNDEFINED_INIT_ORDER

VxD_LOCKED_CODE_SEG

Begin_Control_Dispatch SKUA
    Control_Dispatch W32_DEVICEIOCONTROL, SkuaDeviceIoControl, sCall, <ecx, ebx, edx, esi>
End_Control_Dispatch SKUA

VxD_LOCKED_CODE_ENDS

end
