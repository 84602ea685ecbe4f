// The command Copy between Channels (21038) on the active canvas: the
// dialog, the names back to channels, the copy, its undo record and the
// repaint.
#pragma once

#include "adjust/adjust_windows.h"
#include "document/canvas.h"

// The dialog's texts and flags, kept through the run.
extern ChannelCopyChoice channelCopyChoice;

// 1 when the copy ran; 0 when the dialog was cancelled or a name matched
// no channel.
int CopyBetweenChannels(Canvas* canvas);

// Registers the command; the frame calls this once.
void InstallAdjust();
