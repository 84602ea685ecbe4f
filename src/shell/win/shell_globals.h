// What the Win32 frame holds for the whole run: its windows, menus and
// accelerators, the registered formats and messages, the start facts.
#pragma once

#include <windows.h>

#include <string>

extern HWND frameWnd, mdiClient, statusBar, toolBar, ctrlPanel;

// nnMenuInit while no document is open, nnMenuChild while one is; the
// window menu is the seventh submenu of the second.
extern HMENU menuInit, menuChild, windowMenu;
constexpr int kPopupMenuCount = 24;
extern HMENU popupMenus[kPopupMenuCount];
extern HACCEL accelerators;

extern UINT clipTransparency, clipSelArea, clipMask;
extern UINT wheelMessage;

// One zeroed scratch block for the whole run.
constexpr size_t kLargeBufferBytes = 0xFA000;
extern void* largeBuffer;

// The display at start, compared at WM_DISPLAYCHANGE.
extern int screenWidth, screenHeight, screenBits;

// The program folder, with its trailing backslash, in UTF-8; temporary
// files go there too.
extern std::string startFolder, tempFolder;

// The frame's class: also how a second start finds the first.
constexpr wchar_t kFrameClass[] = L"da00";
