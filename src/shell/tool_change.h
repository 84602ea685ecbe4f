// The tool in use and its change. Tool commands (20000..20013, 14001,
// 14003, 14008, 20507) arrive through RouteCommand; the Win32 tool bar
// reads currentTool to mark the button of the tool in use.
#pragma once

#include <functional>
#include <string>

#include "document/canvas.h"
#include "base/current_tool.h"
#include "base/hook_list.h"

// The last selection tool left for another, so a later step can return.
extern int lastDraftTool;
// The tool in use when the last change began: a tool that ends by itself
// (Smooth Zoom) returns to it.
extern int previousTool;

// Paste kinds passed to a tool's start routine.
constexpr int kPastePlain = 0;
constexpr int kPasteWithFile = 1;
constexpr int kPasteOwnMode = 2;

// The Draft state of the active document is stored before the tool
// changes; the selection subsystem adds its store here.
extern HookList<Canvas*> draftStoreHooks;
// The tool state refreshes after currentTool changed.
extern HookList<> toolStateHooks;

// The start routine of 14001, 14003, 14008, 20006, 20013 and 20507,
// registered by its subsystem: 1 if the tool could start.
using ToolStart = std::function<int(int pasteKind, const std::string& path)>;
void RegisterToolStart(int tool, ToolStart start);

// The paste kind a tool's start routine receives.
int PasteKindOf(int tool);

// Stores the Draft state, sets currentTool, starts the tool (going back to
// the previous one if it can't start, the tool state refreshed again),
// repaints the two tool-bar buttons and clears the status bar. path is the
// file of kind 1.
void ChangeTool(int tool, const std::string& path = {});

// A tool of the selection family (the Draft tools and Edit Bezier).
bool IsDraftTool(int tool);

// No remembered tool and no start routines (tests); currentTool is the base
// level's (ResetBase).
void ResetToolState();
