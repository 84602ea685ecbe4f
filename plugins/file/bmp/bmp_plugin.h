// The reading side of the plug-in over any source of bytes: what the entry
// points ReadFileGetSize and ReadFileExec do with a file, and what the fuzzer
// does with a buffer.
#pragma once

#include "bmp_decode.h"
#include "plugin_abi/file_plugin.h"

namespace bmp {

// Alpha plane number 1 is the layer's transparency slot "0T".
constexpr int kTransparencyPlane = 1;

int GetSize(ByteSource& source, FileHeader* header, LayerPlaneTable* planes);
int ReadExec(ByteSource& source, TeselWindow window, FileHeader* header, LayerRecord* layers,
             ReadCallbacks* callbacks);

// Writes layer 0's picture, or the host's composition of it, to path.
int Write(TeselWindow window, const char* path, const FileHeader* header,
          WriteCallbacks* callbacks);

}  // namespace bmp
