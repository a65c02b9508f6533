#pragma once

// What this folder's model of Windows offers a serial program, under the names of the system's own
// header, so that the program's sources for Windows are compiled against it unchanged. The calls
// behave as the system documents them; time is the model's (world.h).

#include <cstddef>
#include <cstdint>

using BOOL = int;
using BYTE = std::uint8_t;
using WORD = std::uint16_t;
using DWORD = std::uint32_t;
using UINT = unsigned;
using LONG = std::int32_t;
using ULONG_PTR = std::uintptr_t;
using LONG_PTR = std::intptr_t;
using INT_PTR = std::intptr_t;
using UINT_PTR = std::uintptr_t;
using WPARAM = UINT_PTR;
using LPARAM = LONG_PTR;
using LRESULT = LONG_PTR;
using HANDLE = void*;
using LPCSTR = const char*;
using LPVOID = void*;
struct ModelWindow;
using HWND = ModelWindow*;
using HMODULE = void*;
using HINSTANCE = void*;
using HDC = void*;

#define TRUE 1
#define FALSE 0
#define WINAPI
#define CALLBACK
#define MAX_PATH 260
#define MAXDWORD 0xFFFFFFFFU
#define INFINITE 0xFFFFFFFFU
#define INVALID_HANDLE_VALUE (reinterpret_cast<HANDLE>(std::intptr_t{-1}))

#define ERROR_FILE_NOT_FOUND 2U
#define ERROR_ACCESS_DENIED 5U
#define ERROR_INVALID_HANDLE 6U
#define ERROR_BAD_COMMAND 22U
#define ERROR_GEN_FAILURE 31U
#define ERROR_NOT_SUPPORTED 50U
#define ERROR_INVALID_PARAMETER 87U
#define ERROR_OPERATION_ABORTED 995U
#define ERROR_IO_INCOMPLETE 996U
#define ERROR_IO_PENDING 997U
#define ERROR_NOT_FOUND 1168U

// Objects and waiting.

struct OVERLAPPED {
  ULONG_PTR Internal;      // the error, or kModelPending
  ULONG_PTR InternalHigh;  // the count
  DWORD Offset;
  DWORD OffsetHigh;
  HANDLE hEvent;
};

#define WAIT_OBJECT_0 0U
#define WAIT_TIMEOUT 258U
#define WAIT_FAILED 0xFFFFFFFFU

DWORD GetLastError();
HANDLE CreateEventA(void* security, BOOL manual, BOOL signalled, LPCSTR name);
BOOL SetEvent(HANDLE event);
BOOL ResetEvent(HANDLE event);
BOOL CloseHandle(HANDLE object);
DWORD WaitForSingleObject(HANDLE object, DWORD milliseconds);
void Sleep(DWORD milliseconds);

// Libraries: winmm.dll with its two timer calls is the one that there is.

using FARPROC = INT_PTR (*)();
UINT GetSystemDirectoryA(char* buffer, UINT size);
HMODULE LoadLibraryA(LPCSTR path);
FARPROC GetProcAddress(HMODULE library, LPCSTR name);

// Serial ports.

#define GENERIC_READ 0x80000000U
#define GENERIC_WRITE 0x40000000U
#define OPEN_EXISTING 3U
#define FILE_FLAG_OVERLAPPED 0x40000000U

#define CBR_9600 9600U
#define NOPARITY 0
#define TWOSTOPBITS 2
#define DTR_CONTROL_DISABLE 0U
#define DTR_CONTROL_ENABLE 1U
#define RTS_CONTROL_DISABLE 0U
#define RTS_CONTROL_ENABLE 1U

#define EV_RXCHAR 0x0001U
#define EV_RXFLAG 0x0002U
#define EV_TXEMPTY 0x0004U
#define EV_CTS 0x0008U
#define EV_DSR 0x0010U
#define EV_RLSD 0x0020U
#define EV_BREAK 0x0040U
#define EV_ERR 0x0080U
#define EV_RING 0x0100U

#define CE_RXOVER 0x0001U
#define CE_OVERRUN 0x0002U
#define CE_FRAME 0x0008U

#define PURGE_TXABORT 0x0001U
#define PURGE_RXABORT 0x0002U
#define PURGE_TXCLEAR 0x0004U
#define PURGE_RXCLEAR 0x0008U

struct DCB {
  DWORD DCBlength;
  DWORD BaudRate;
  DWORD fBinary;
  DWORD fParity;
  DWORD fOutxCtsFlow;
  DWORD fOutxDsrFlow;
  DWORD fDtrControl;
  DWORD fDsrSensitivity;
  DWORD fOutX;
  DWORD fInX;
  DWORD fErrorChar;
  DWORD fNull;
  DWORD fRtsControl;
  DWORD fAbortOnError;
  BYTE ByteSize;
  BYTE Parity;
  BYTE StopBits;
};

struct COMMTIMEOUTS {
  DWORD ReadIntervalTimeout;
  DWORD ReadTotalTimeoutMultiplier;
  DWORD ReadTotalTimeoutConstant;
  DWORD WriteTotalTimeoutMultiplier;
  DWORD WriteTotalTimeoutConstant;
};

struct COMSTAT {
  DWORD fTxim;  // a byte of TransmitCommChar waits
  DWORD cbInQue;
  DWORD cbOutQue;
};

HANDLE CreateFileA(LPCSTR name, DWORD access, DWORD share, void* security, DWORD disposition,
                   DWORD flags, HANDLE pattern);
BOOL SetupComm(HANDLE port, DWORD receive_queue, DWORD transmit_queue);
BOOL GetCommState(HANDLE port, DCB* state);
BOOL SetCommState(HANDLE port, DCB* state);
BOOL SetCommTimeouts(HANDLE port, COMMTIMEOUTS* timeouts);
BOOL GetCommMask(HANDLE port, DWORD* mask);
BOOL SetCommMask(HANDLE port, DWORD mask);
BOOL WaitCommEvent(HANDLE port, DWORD* events, OVERLAPPED* operation);
BOOL PurgeComm(HANDLE port, DWORD what);
BOOL ClearCommError(HANDLE port, DWORD* errors, COMSTAT* status);
BOOL TransmitCommChar(HANDLE port, char byte);
BOOL ReadFile(HANDLE port, void* buffer, DWORD size, DWORD* count, OVERLAPPED* operation);
BOOL WriteFile(HANDLE port, const void* buffer, DWORD size, DWORD* count, OVERLAPPED* operation);
BOOL GetOverlappedResult(HANDLE port, OVERLAPPED* operation, DWORD* count, BOOL wait);
BOOL CancelIo(HANDLE port);
BOOL CancelIoEx(HANDLE port, OVERLAPPED* operation);

// Windows and messages.

#define WM_NULL 0x0000U
#define WM_CLOSE 0x0010U
#define WM_QUIT 0x0012U
#define WM_DRAWITEM 0x002BU
#define WM_INITDIALOG 0x0110U
#define WM_COMMAND 0x0111U
#define WM_TIMER 0x0113U
#define PM_REMOVE 1U
#define QS_ALLINPUT 0x04FFU
#define SW_SHOW 5
#define DWLP_USER 16
#define IDOK 1
#define IDCANCEL 2
#define BN_CLICKED 0
#define LOWORD(value) (static_cast<WORD>((value)&0xFFFFU))
#define HIWORD(value) (static_cast<WORD>(((value) >> 16) & 0xFFFFU))

using DLGPROC = INT_PTR (*)(HWND, UINT, WPARAM, LPARAM);
struct RECT {
  LONG left, top, right, bottom;
};
struct MSG {
  HWND hwnd;
  UINT message;
  WPARAM wParam;
  LPARAM lParam;
};
struct DRAWITEMSTRUCT {
  HDC hDC;
  HWND hwndItem;
  RECT rcItem;
};

DWORD MsgWaitForMultipleObjects(DWORD count, const HANDLE* objects, BOOL all, DWORD milliseconds,
                                DWORD what);
BOOL PeekMessageA(MSG* message, HWND window, UINT first, UINT last, UINT remove);
BOOL PostMessageA(HWND window, UINT message, WPARAM w, LPARAM l);
void PostQuitMessage(int code);
BOOL IsDialogMessageA(HWND dialog, MSG* message);
BOOL TranslateMessage(const MSG* message);
LRESULT DispatchMessageA(const MSG* message);
UINT_PTR SetTimer(HWND window, UINT_PTR timer, UINT milliseconds, void* procedure);
BOOL KillTimer(HWND window, UINT_PTR timer);
HWND GetDlgItem(HWND dialog, int control);
BOOL SetDlgItemTextA(HWND dialog, int control, LPCSTR text);
BOOL GetClientRect(HWND window, RECT* area);
BOOL InvalidateRect(HWND window, const RECT* area, BOOL erase);
BOOL EnableWindow(HWND window, BOOL enabled);
BOOL IsWindowEnabled(HWND window);
BOOL ShowWindow(HWND window, int state);
HWND SetFocus(HWND window);
BOOL DestroyWindow(HWND window);
BOOL EndDialog(HWND dialog, INT_PTR result);
LONG_PTR GetWindowLongPtrA(HWND window, int index);
