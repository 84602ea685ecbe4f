// The table of every command: who handles it, the text of its menu item,
// and whether it changes the tool. Routing reads the owner; the Win32 side
// may build menus from the texts. Texts are as the menus show them; a
// command without a menu item has an empty text.
#pragma once

#include <cstddef>

enum class CommandOwner {
  Frame,   // the frame's handler consumes it
  Canvas,  // the active document's handler does it
};

struct CommandInfo {
  int id;
  const char* menuText;
  CommandOwner owner;
  bool toolChange;  // the command sets currentTool
};

inline constexpr CommandOwner kFrameOwned = CommandOwner::Frame;
inline constexpr CommandOwner kCanvasOwned = CommandOwner::Canvas;

inline constexpr CommandInfo kCommandTable[] = {
    {1034, "", kFrameOwned, false},
    {10000, "Close", kFrameOwned, false},
    {10001, "Exit", kFrameOwned, false},
    {10002, "New", kFrameOwned, false},
    {10003, "Open", kFrameOwned, false},
    {10004, "Save", kCanvasOwned, false},
    {10005, "Print", kCanvasOwned, false},
    {10006, "Save As", kCanvasOwned, false},
    {10007, "", kFrameOwned, false},
    {10008, "Open from Clipboard", kFrameOwned, false},
    {10009, "Acquire TWAIN...", kFrameOwned, false},
    {10010, "Select TWAIN...", kFrameOwned, false},
    {10011, "Clear History...", kFrameOwned, false},
    {10012, "from Camera or Scanner...", kFrameOwned, false},
    {10013, "TesExp", kFrameOwned, false},
    {11000, "View Setting...", kFrameOwned, false},
    {11011, "Display Position", kCanvasOwned, false},
    {11012, "Preference...", kFrameOwned, false},
    {11013, "Ruler", kCanvasOwned, false},
    {11014, "Zoom In", kCanvasOwned, false},
    {11015, "Zoom Out", kCanvasOwned, false},
    {11016, "Customize Tool Bar...", kFrameOwned, false},
    {11017, "Darken outside Boundary", kCanvasOwned, false},
    {11021, "Grid", kCanvasOwned, false},
    {11040, "25%", kCanvasOwned, false},
    {11041, "50%", kCanvasOwned, false},
    {11042, "75%", kCanvasOwned, false},
    {11043, "100%", kCanvasOwned, false},
    {11044, "150%", kCanvasOwned, false},
    {11045, "200%", kCanvasOwned, false},
    {11046, "300%", kCanvasOwned, false},
    {11047, "400%", kCanvasOwned, false},
    {11048, "500%", kCanvasOwned, false},
    {11049, "600%", kCanvasOwned, false},
    {11050, "700%", kCanvasOwned, false},
    {11051, "800%", kCanvasOwned, false},
    {11052, "900%", kCanvasOwned, false},
    {11053, "1000%", kCanvasOwned, false},
    {12000, "Tile", kFrameOwned, false},
    {12001, "Cascade", kFrameOwned, false},
    {12002, "Close All", kFrameOwned, false},
    {12003, "Arrange Minimized Windows", kFrameOwned, false},
    {12004, "Adjust Window Size", kCanvasOwned, false},
    {12005, "Change Panel Positions", kFrameOwned, false},
    {13000, "Help...", kFrameOwned, false},
    {13001, "About", kFrameOwned, false},
    {14000, "Copy", kCanvasOwned, false},
    {14001, "Paste", kFrameOwned, true},
    {14002, "", kCanvasOwned, false},
    {14003, "Paste from File...", kFrameOwned, true},
    {14004, "", kCanvasOwned, false},
    {14005, "Delete", kCanvasOwned, false},
    {14006, "", kCanvasOwned, false},
    {14007, "Copy to File...", kCanvasOwned, false},
    {14008, "Paste from Partsbox...", kFrameOwned, true},
    {14009, "", kCanvasOwned, false},
    {14010, "Undo", kCanvasOwned, false},
    {14011, "Copy to Partsbox...", kCanvasOwned, false},
    {14012, "Redo", kCanvasOwned, false},
    {20000, "", kFrameOwned, true},
    {20001, "", kFrameOwned, true},
    {20002, "", kFrameOwned, true},
    {20003, "", kFrameOwned, true},
    {20004, "", kFrameOwned, true},
    {20005, "", kFrameOwned, true},
    {20006, "", kFrameOwned, true},
    {20007, "", kFrameOwned, true},
    {20008, "", kFrameOwned, true},
    {20009, "", kFrameOwned, true},
    {20010, "", kFrameOwned, true},
    {20011, "", kFrameOwned, true},
    {20012, "", kFrameOwned, true},
    {20013, "Edit Bezier", kFrameOwned, true},
    {20500, "Deselect", kCanvasOwned, false},
    {20501, "Select All", kCanvasOwned, false},
    {20502, "Invert Selection", kCanvasOwned, false},
    {20503, "Fatten Selection...", kCanvasOwned, false},
    {20504, "Slim Selection...", kCanvasOwned, false},
    {20505, "Blur Outside Selection", kCanvasOwned, false},
    {20506, "Blur Inside Selection", kCanvasOwned, false},
    {20507, "Smooth Zoom", kFrameOwned, true},
    {20508, "Select by Layer size", kCanvasOwned, false},
    {21000, "Fill", kCanvasOwned, false},
    {21001, "Line", kCanvasOwned, false},
    {21010, "Load Selection...", kCanvasOwned, false},
    {21011, "Save Selection...", kCanvasOwned, false},
    {21012, "Blank Sheet...", kCanvasOwned, false},
    {21013, "Initialize Mask...", kCanvasOwned, false},
    {21014, "Initialize Transparency Color...", kCanvasOwned, false},
    {21015, "Negative", kCanvasOwned, false},
    {21016, "", kCanvasOwned, false},
    {21017, "Merge Layers...", kFrameOwned, false},
    {21020, "Text...", kFrameOwned, false},
    {21022, "Filter", kFrameOwned, false},
    {21023, "Color Adjustment...", kCanvasOwned, false},
    {21024, "Double Accuracy", kCanvasOwned, false},
    {21025, "Detect Selection...", kCanvasOwned, false},
    {21026, "Magnify...", kCanvasOwned, false},
    {21027, "Duplicate", kFrameOwned, false},
    {21028, "Make Resized Duplicate...", kFrameOwned, false},
    {21029, "Make Rotated Duplicate...", kFrameOwned, false},
    {21030, "Flip Vertically", kCanvasOwned, false},
    {21031, "Flip Horizontally", kCanvasOwned, false},
    {21032, "Rotate..", kCanvasOwned, false},
    {21034, "Color and Contrast...", kCanvasOwned, false},
    {21035, "Tone Balance...", kCanvasOwned, false},
    {21036, "Automatic Adjustment", kCanvasOwned, false},
    {21037, "Color Balance...", kCanvasOwned, false},
    {21038, "Copy between Channels...", kCanvasOwned, false},
    {21039, "Convert to New Layer", kCanvasOwned, false},
    {21040, "Duplicate on Resized Canvas...", kFrameOwned, false},
    {21041, "Trim Selection", kFrameOwned, false},
    {21042, "Settings", kFrameOwned, false},
    {21043, "Merge with lower...", kCanvasOwned, false},
    {21044, "Convert to Bezier", kCanvasOwned, false},
    {22000, "Tone Filter...", kFrameOwned, false},
    {23000, "Hide", kCanvasOwned, false},
    {23001, "Check", kCanvasOwned, false},
    {23002, "Darken", kCanvasOwned, false},
    {23010, "Show outside Border", kCanvasOwned, false},
    {24000, "", kCanvasOwned, false},
    {24001, "", kCanvasOwned, false},
    {40000, "", kFrameOwned, false},
    {40001, "", kFrameOwned, false},
    {40002, "", kFrameOwned, false},
    {40003, "", kFrameOwned, false},
    {40004, "", kFrameOwned, false},
    {40005, "", kFrameOwned, false},
    {40006, "", kFrameOwned, false},
    {40007, "", kFrameOwned, false},
};

inline constexpr size_t kCommandCount = sizeof kCommandTable / sizeof kCommandTable[0];

// The row of a command; null for a number that names no command.
constexpr const CommandInfo* FindCommand(int id) {
  for (const CommandInfo& info : kCommandTable)
    if (info.id == id) return &info;
  return nullptr;
}
