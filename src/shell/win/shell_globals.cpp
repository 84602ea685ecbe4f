#include "shell/win/shell_globals.h"

HWND frameWnd, mdiClient, statusBar, toolBar, ctrlPanel;
HMENU menuInit, menuChild, windowMenu;
HMENU popupMenus[kPopupMenuCount];
HACCEL accelerators;
UINT clipTransparency, clipSelArea, clipMask;
UINT wheelMessage;
void* largeBuffer;
int screenWidth, screenHeight, screenBits;
std::string startFolder, tempFolder;
