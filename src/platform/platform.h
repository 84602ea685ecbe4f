// The seam between the portable core and the operating system.
//
// Everything the core needs from the system goes through these functions:
// message boxes, window messages, memory mappings and reserved ranges, files
// by UTF-8 name, the wait cursor and thread priority. Exactly one
// implementation is linked: src/platform/win32 in the product, or
// src/platform/headless in native tests, which records what was asked and
// answers from a script (see headless/headless.h).
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

namespace platform {

// Windows that portable code addresses by role; the shell binds each role
// to a real window handle.
enum class Window {
  None,  // no owner
  Frame,
  StatusBar,
  MdiClient,
  ToolBar,
  ControlPanel,
  LayerPanel,
  PartsBox,
  HorizontalRuler,  // the rulers of the active document
  VerticalRuler,
  CanvasView,       // displayWnd of the active document: the pointer's origin
};

// Message box styles and answers carry their Win32 values, so the Win32
// side passes them through.
enum : unsigned {
  MbOk = 0x0,
  MbOkCancel = 0x1,
  MbYesNoCancel = 0x3,
  MbYesNo = 0x4,
  MbIconError = 0x10,
  MbIconQuestion = 0x20,
  MbIconWarning = 0x30,
  MbIconInformation = 0x40,
};
enum : int { IdOk = 1, IdCancel = 2, IdYes = 6, IdNo = 7 };

// Private window messages of the shell.
enum : uint32_t {
  MsgStatus = 1024,         // progress and status texts of the status bar
  MsgPanelRefresh = 1033,   // control panel: one page, or a set of pages, refreshes
  MsgPanelsRepaint = 1034,  // control panel: every page repaints (to the frame 1034 is TWAIN's)
  MsgRulerMark = 1035,      // pointer mark of a ruler
  MsgLayerRedraw = 1036,    // layer panel: one thumbnail, or the whole list
  MsgCanvasGoing = 1037,    // layer panel: a canvas is going away
  MsgPartsBoxRefresh = 1039,
};

// The codes (wParam) of MsgStatus. The corners come in lParam as x in the
// low 16 bits and y in the high ones; for the texts lParam is a const char*.
enum : int {
  kStatusClear = 0,
  kStatusProgress = 3,  // lParam: percent
  kStatusReading = 4,
  kStatusSaving = 5,
  kStatusFirstCorner = 6,
  kStatusSecondCorner = 7,
  kStatusProgressAlt = 8,
  kStatusText = 14,
  kStatusRestingText = 15,
};
inline intptr_t PackCorner(int x, int y) {
  return static_cast<intptr_t>((static_cast<uint32_t>(y) << 16) |
                               (static_cast<uint32_t>(x) & 0xFFFF));
}

// Shows a message box; returns the button pressed (IdOk, IdYes, ...).
int ShowMessageBox(Window owner, const std::string& text, const std::string& caption,
                   unsigned style);

// Sends a message to a window and returns its result.
intptr_t SendToWindow(Window to, uint32_t message, intptr_t wParam, intptr_t lParam);

// The status bar's progress in percent, and the status bar cleared.
inline void ShowProgress(int percent) {
  SendToWindow(Window::StatusBar, MsgStatus, kStatusProgress, percent);
}
inline void ClearStatus() { SendToWindow(Window::StatusBar, MsgStatus, kStatusClear, 0); }

// Anonymous, page-file backed shared memory seen through movable views.
using MappingHandle = void*;
MappingHandle CreateMapping(uint64_t size, const std::string& name);  // null on failure
void CloseMapping(MappingHandle mapping);
void* MapView(MappingHandle mapping, uint64_t offset, size_t size);  // null on failure
void UnmapView(void* view, size_t size);
uint32_t AllocationGranularity();

// Address space reserved without backing; committed pages read as zero.
void* ReserveRange(size_t size);                 // null on failure
bool CommitRange(void* address, size_t size);    // false when the system refuses
void ReleaseRange(void* address, size_t size);

// The last system error of the calling thread, and its text.
uint32_t LastError();
std::string ErrorText(uint32_t code);

// Thread priority of the calling thread, in Win32 numbers.
enum : int { PriorityNormal = 0, PriorityTimeCritical = 15 };
int ThreadPriority();
void SetThreadPriority(int priority);

// A unique name made from a template ending in "XXXXXX".
std::string TempName(const std::string& templ);

// Opens a file by its UTF-8 name, with fopen modes.
FILE* OpenFile(const std::string& path, const char* mode);
// Deletes a file by its UTF-8 name; false when it can't be deleted.
bool RemoveFile(const std::string& path);
bool FileExists(const std::string& path);
// When the file was last written, in the system's own units (the same
// file gives the same number until it is written again); 0 when it can't
// be read.
uint64_t FileWriteTime(const std::string& path);
// Puts the file `from` in the place of `to` in one step of the file system:
// until it is done `to` stays as it was, and a crash leaves one or the
// other whole. False when it can't be done; `from` then stays.
bool MoveFileOver(const std::string& from, const std::string& to);
// The names of the files in `folder` (ending with a separator) whose names
// end with `suffix`, compared without case, in the order the system lists
// them; the listing stops at its first failure.
std::vector<std::string> ListFiles(const std::string& folder, const std::string& suffix);
// Makes the folder (ending with a separator) unless it stands; false when
// it isn't there afterwards.
bool MakeFolder(const std::string& folder);
// The folder of this user's own program data ("Tesel" in the system's
// per-user application data), ending with a separator and made when
// missing; empty when the system has none.
std::string UserDataFolder();

// The local time of the clock, to the second.
struct LocalDateTime {
  int year, month, day, hour, minute, second;
};
LocalDateTime LocalTime();

// Shared libraries: the plug-ins. A library is loaded by its UTF-8 path for
// one operation and unloaded at its end.
using LibraryHandle = void*;
LibraryHandle OpenLibrary(const std::string& path);  // null when it can't be loaded
void* LibrarySymbol(LibraryHandle library, const char* name);  // null when it isn't exported
void CloseLibrary(LibraryHandle library);
// The file name ending of a plug-in library here: ".dll" or ".so".
const char* LibrarySuffix();
// What a plug-in gets as its window for a role, to own its dialogs and to
// report progress through the plug-in progress helper: the window itself
// on Windows; natively a sink that passes each report to SendToWindow(role,
// MsgStatus, code, percent).
void* PluginWindow(Window role);

// The hourglass while a long operation runs.
void SetWaitCursor(bool on);

// Whether raising the thread priority around a short copy is worth its
// cost here. On Windows a change is one system call; under Wine it is a
// round trip to the wine server each way, which costs a hundred times the
// row copy it would guard and does not keep pages in memory there either.
bool PriorityBoostPays();

// Raises the thread priority for one scope and restores it on every exit;
// nothing where PriorityBoostPays() says no.
class PriorityBoost {
 public:
  explicit PriorityBoost(int priority) : active_(PriorityBoostPays()) {
    if (!active_) return;
    saved_ = ThreadPriority();
    SetThreadPriority(priority);
  }
  ~PriorityBoost() {
    if (active_) SetThreadPriority(saved_);
  }
  PriorityBoost(const PriorityBoost&) = delete;
  PriorityBoost& operator=(const PriorityBoost&) = delete;

 private:
  bool active_;
  int saved_ = PriorityNormal;
};

// Pointer and keys, polled by the modal loops (strokes, drags), which run
// inside a press handler and read the input themselves.
struct PointerPosition {
  int screenX, screenY;  // on the screen
  int windowX, windowY;  // in the client area of Window::CanvasView
};
PointerPosition PollPointer();
// Whether a key or button is down now, by Win32 virtual-key number (the
// buttons are 1 left and 2 right).
enum : int { VkLeftButton = 0x01, VkRightButton = 0x02, VkShift = 0x10, VkControl = 0x11 };
bool KeyDown(int virtualKey);
// Throws away the pointer messages waiting for this thread and the thread
// messages posted to no window, so a loop's polling isn't followed by a
// queue of stale moves. The frame's timer messages are dispatched, so that
// its key polling runs meanwhile.
void DrainPointerMessages();
// Milliseconds from a fixed start; wraps after 49 days.
uint32_t TickCount();
// Spins for ms milliseconds without looking at the message queue.
void BusyWait(uint32_t ms);

// Shows the wait cursor for one scope.
class WaitCursor {
 public:
  WaitCursor() { SetWaitCursor(true); }
  ~WaitCursor() { SetWaitCursor(false); }
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;
};

}  // namespace platform
