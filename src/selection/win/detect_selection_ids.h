// Controls of tsl_selext, shared by its script and its code.
#pragma once

#define IDC_SELEXT_BAR 100 /* 100..102, drawn by the dialog itself */
#define IDC_SELEXT_CHANNEL 110
#define IDC_SELEXT_PLANE 115
#define IDC_SELEXT_CONDITION 121
#define IDC_SELEXT_INITIALIZE 200
#define IDC_SELEXT_REVERSE 201
#define IDC_SELEXT_SAMPLING 202
#define IDC_SELEXT_EXECUTE 210
#define IDC_SELEXT_DISPLAYED 211
#define IDC_SELEXT_CAPTION 220 /* 220..222, the bars' letters */
#define IDC_SELEXT_CHANNEL_LABEL 230
#define IDC_SELEXT_PLANE_LABEL 231
#define IDC_SELEXT_CONDITION_LABEL 232
