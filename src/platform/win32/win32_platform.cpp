// The seam on Win32: the product's implementation.
#include "platform/win32/win32_platform.h"

#include <array>
#include <cstdlib>
#include <cstring>
#include <io.h>
#include <shlobj.h>

#include "platform/win32/win32_windows.h"

namespace platform {

namespace {
std::array<HWND, 16> boundWindows{};
bool customCursor = false;
}  // namespace

void BindWindow(Window role, HWND window) { boundWindows[static_cast<size_t>(role)] = window; }

HWND BoundWindow(Window role) { return boundWindows[static_cast<size_t>(role)]; }

void SetCustomCursor(const char* name) {
  HCURSOR cursor = LoadCursor(nullptr, IDC_ARROW);
  if (name) {
    cursor = LoadCursorW(win32::ProgramInstance(), Widen(name).c_str());
    if (!cursor) cursor = LoadCursor(nullptr, IDC_CROSS);
  }
  SetCursor(cursor);
  customCursor = name != nullptr;
}

bool CustomCursorShown() { return customCursor; }

std::wstring Widen(const std::string& utf8) {
  if (utf8.empty()) return {};
  int n = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), nullptr, 0);
  std::wstring wide(static_cast<size_t>(n), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, utf8.data(), static_cast<int>(utf8.size()), wide.data(), n);
  return wide;
}

std::string Narrow(const std::wstring& wide) {
  if (wide.empty()) return {};
  int n = WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()), nullptr, 0,
                              nullptr, nullptr);
  std::string utf8(static_cast<size_t>(n), '\0');
  WideCharToMultiByte(CP_UTF8, 0, wide.data(), static_cast<int>(wide.size()), utf8.data(), n,
                      nullptr, nullptr);
  return utf8;
}

// Texts are UTF-8 inside; the wide calls show Japanese on any locale.
int ShowMessageBox(Window owner, const std::string& text, const std::string& caption,
                   unsigned style) {
  return MessageBoxW(BoundWindow(owner), Widen(text).c_str(), Widen(caption).c_str(), style);
}

intptr_t SendToWindow(Window to, uint32_t message, intptr_t wParam, intptr_t lParam) {
  HWND window = BoundWindow(to);
  if (!window) return 0;
  return SendMessageW(window, message, static_cast<WPARAM>(wParam), static_cast<LPARAM>(lParam));
}

MappingHandle CreateMapping(uint64_t size, const std::string& name) {
  return CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE,
                            static_cast<DWORD>(size >> 32), static_cast<DWORD>(size),
                            name.c_str());
}

void CloseMapping(MappingHandle mapping) {
  if (mapping) CloseHandle(mapping);
}

void* MapView(MappingHandle mapping, uint64_t offset, size_t size) {
  return MapViewOfFile(mapping, FILE_MAP_ALL_ACCESS, static_cast<DWORD>(offset >> 32),
                       static_cast<DWORD>(offset), size);
}

void UnmapView(void* view, size_t) {
  if (view) UnmapViewOfFile(view);
}

uint32_t AllocationGranularity() {
  SYSTEM_INFO info;
  GetSystemInfo(&info);
  return info.dwAllocationGranularity;
}

void* ReserveRange(size_t size) {
  return VirtualAlloc(nullptr, size, MEM_RESERVE | MEM_TOP_DOWN, PAGE_READWRITE);
}

bool CommitRange(void* address, size_t size) {
  return VirtualAlloc(address, size, MEM_COMMIT, PAGE_READWRITE) != nullptr;
}

void ReleaseRange(void* address, size_t) {
  if (address) VirtualFree(address, 0, MEM_RELEASE);
}

uint32_t LastError() { return GetLastError(); }

std::string ErrorText(uint32_t code) {
  wchar_t* text = nullptr;
  FormatMessageW(FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM |
                     FORMAT_MESSAGE_IGNORE_INSERTS,
                 nullptr, code, 0, reinterpret_cast<wchar_t*>(&text), 0, nullptr);
  std::string result = text ? Narrow(text) : std::string();
  LocalFree(text);
  return result;
}

int ThreadPriority() { return GetThreadPriority(GetCurrentThread()); }

// Wine's ntdll names itself with an export that Windows' lacks.
bool PriorityBoostPays() {
  static const bool underWine =
      GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
  return !underWine;
}

void SetThreadPriority(int priority) { ::SetThreadPriority(GetCurrentThread(), priority); }

std::string TempName(const std::string& templ) {
  std::string name = templ;
  _mktemp(name.data());
  return name;
}

FILE* OpenFile(const std::string& path, const char* mode) {
  return _wfopen(Widen(path).c_str(), Widen(mode).c_str());
}

bool RemoveFile(const std::string& path) { return DeleteFileW(Widen(path).c_str()) != 0; }

bool FileExists(const std::string& path) {
  const DWORD attributes = GetFileAttributesW(Widen(path).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

uint64_t FileWriteTime(const std::string& path) {
  WIN32_FILE_ATTRIBUTE_DATA data;
  if (!GetFileAttributesExW(Widen(path).c_str(), GetFileExInfoStandard, &data)) return 0;
  return uint64_t(data.ftLastWriteTime.dwHighDateTime) << 32 | data.ftLastWriteTime.dwLowDateTime;
}

bool MoveFileOver(const std::string& from, const std::string& to) {
  return MoveFileExW(Widen(from).c_str(), Widen(to).c_str(),
                     MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}

std::vector<std::string> ListFiles(const std::string& folder, const std::string& suffix) {
  std::vector<std::string> names;
  WIN32_FIND_DATAW found;
  HANDLE search = FindFirstFileW(Widen(folder + "*" + suffix).c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return names;
  do {
    if (!(found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)) names.push_back(Narrow(found.cFileName));
  } while (FindNextFileW(search, &found));
  FindClose(search);
  return names;
}

bool MakeFolder(const std::string& folder) {
  const std::wstring wide = Widen(folder);
  CreateDirectoryW(wide.c_str(), nullptr);
  const DWORD attributes = GetFileAttributesW(wide.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

std::string UserDataFolder() {
  wchar_t path[MAX_PATH];
  if (SHGetFolderPathW(nullptr, CSIDL_LOCAL_APPDATA | CSIDL_FLAG_CREATE, nullptr, 0, path) != S_OK)
    return "";
  const std::string folder = Narrow(path) + "\\Tesel\\";
  return MakeFolder(folder) ? folder : "";
}

LocalDateTime LocalTime() {
  SYSTEMTIME now;
  GetLocalTime(&now);
  return {now.wYear, now.wMonth, now.wDay, now.wHour, now.wMinute, now.wSecond};
}

LibraryHandle OpenLibrary(const std::string& path) {
  // A missing library shows no box of the system's own.
  const UINT old = SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
  HMODULE library = LoadLibraryW(Widen(path).c_str());
  SetErrorMode(old);
  return library;
}

void* LibrarySymbol(LibraryHandle library, const char* name) {
  return library ? reinterpret_cast<void*>(GetProcAddress(static_cast<HMODULE>(library), name))
                 : nullptr;
}

void CloseLibrary(LibraryHandle library) {
  if (library) FreeLibrary(static_cast<HMODULE>(library));
}

const char* LibrarySuffix() { return ".dll"; }

void* PluginWindow(Window role) { return BoundWindow(role); }

PointerPosition PollPointer() {
  POINT p{};
  GetCursorPos(&p);
  PointerPosition at{p.x, p.y, p.x, p.y};
  if (HWND view = BoundWindow(Window::CanvasView)) {
    ScreenToClient(view, &p);
    at.windowX = p.x;
    at.windowY = p.y;
  }
  return at;
}

// The physical button state, as the loops have always read it.
bool KeyDown(int virtualKey) { return (GetAsyncKeyState(virtualKey) & 0x8000) != 0; }

void DrainPointerMessages() {
  MSG msg;
  while (PeekMessageW(&msg, nullptr, WM_MOUSEFIRST, WM_MOUSELAST, PM_REMOVE)) {
  }
  // A window handle of -1 takes only thread messages posted to no window.
  while (PeekMessageW(&msg, reinterpret_cast<HWND>(-1), 0, 0, PM_REMOVE)) {
  }
  // The frame's timers go on ticking: its key polling is the only way for
  // keys to reach the picture while a loop owns the input.
  if (HWND frame = BoundWindow(Window::Frame))
    while (PeekMessageW(&msg, frame, WM_TIMER, WM_TIMER, PM_REMOVE)) DispatchMessageW(&msg);
}

uint32_t TickCount() { return GetTickCount(); }

// The tick count moves in steps of about 16 ms; the counter is fine enough
// for waits of a few milliseconds.
void BusyWait(uint32_t ms) {
  LARGE_INTEGER frequency, start, now;
  QueryPerformanceFrequency(&frequency);
  QueryPerformanceCounter(&start);
  const LONGLONG ticks = frequency.QuadPart * ms / 1000;
  do {
    QueryPerformanceCounter(&now);
  } while (now.QuadPart - start.QuadPart < ticks);
}

void SetWaitCursor(bool on) {
  static HCURSOR previous = nullptr;
  if (on)
    previous = SetCursor(LoadCursor(nullptr, IDC_WAIT));
  else
    SetCursor(previous ? previous : LoadCursor(nullptr, IDC_ARROW));
}

}  // namespace platform
