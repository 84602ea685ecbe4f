// The inner windows of a document: shared by the document window's files.
#pragma once

#include <windows.h>

#include "display/win/document_window.h"

constexpr wchar_t kViewFrameClass[] = L"CanvWndClass";
constexpr wchar_t kViewClass[] = L"CanvWndDispClass";
constexpr wchar_t kHorizontalRulerClass[] = L"hGageClass";
constexpr wchar_t kVerticalRulerClass[] = L"vGageClass";

bool RegisterViewClasses();
bool RegisterRulerClasses();
