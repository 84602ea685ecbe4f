// Controls of the dialog tsl_szoom and items of the menu daZoomSel, shared
// by their script and their code.
#pragma once

#define IDC_SZOOM_FACTORS 3201
#define IDC_SZOOM_SMOOTH 3202

#define IDM_ZOOMFRAME_ENTER 1
#define IDM_ZOOMFRAME_CANCEL 2
