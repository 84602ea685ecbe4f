// The document window: the MDI child class `CanvClass` of one picture.
#pragma once

// Registers it with the display's views inside it; false if one fails.
bool RegisterDocumentWindows();
