/* The file plug-in boundary: the records the host and a file plug-in
   exchange and the entry points a plug-in exports. Plain C, little-endian,
   fixed byte for byte, so that plug-ins of other authors keep working.
   Records are allocated zero-filled by the host, owned by it, and valid only
   for the call that receives them. Strings are NUL-terminated 8-bit text in
   the system code page (UTF-8 in Tesel's own process). */
#ifndef TESEL_PLUGIN_ABI_FILE_PLUGIN_H
#define TESEL_PLUGIN_ABI_FILE_PLUGIN_H

#include <stddef.h>
#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Every entry point's first argument: the window of the status bar (or
   another owner); opaque to the plug-in, which passes it to
   TeselReportProgress (progress.h) and uses it as the owner of a dialog. */
typedef void* TeselWindow;

#define TESEL_LAYER_CAPACITY 64     /* records of a read, and of most writes */
#define TESEL_LAYER_CAPACITY_BIG 3000 /* writes to "psd" and "ico" */
#define TESEL_ALPHA_PLANES 7        /* alpha planes of a layer: slots 1..7 */
#define TESEL_PLANE_NAME_BYTES 10   /* a short name, NUL within the ten bytes */

/* What a plug-in handles, filled by ReadFileInfo and WriteFileInfo. */
typedef struct FormatInfo {
  char extensions[256];  /* without dots, separated by ';' */
  char description[256]; /* the format's name in file dialogs */
  uint8_t reserved1[8];
  int32_t accepts8;  /* writer: the format holds an 8-bit palette picture */
  int32_t accepts24; /* writer: the format holds a 24-bit picture */
  uint8_t reserved2[128];
} FormatInfo;

/* One layer's size and depth. */
typedef struct LayerGeometry {
  int32_t width, height;
  int32_t bits; /* 1, 4, 8 or 24 on reading; 8 or 24 on writing */
  int32_t hasBackColour; /* 1 in layers[0] on every save */
  int32_t backRed, backGreen, backBlue; /* layers[0]: the canvas's backing colour */
  uint8_t reserved[112];
} LayerGeometry;

/* The picture: resolution, active layer, and each layer's geometry. The
   host allocates it for TESEL_LAYER_CAPACITY layers, or for
   TESEL_LAYER_CAPACITY_BIG when writing "psd" or "ico". */
typedef struct FileHeader {
  int32_t dpiX, dpiY; /* the host writes one value into both */
  int32_t activeLayer; /* writing a layer-aware format; else 0 */
  int32_t layerCount;
  LayerGeometry layers[TESEL_LAYER_CAPACITY];
} FileHeader;

/* A layer's alpha planes: number k stands for plane slot k + 1 (slot 1 the
   mask "0M", slot 2 the transparency "0T", slot 3 "1T", then added ones). */
typedef struct LayerPlaneTable {
  int32_t present[10]; /* 1 where alpha plane k exists; the host sets 7 */
  char names[TESEL_ALPHA_PLANES][TESEL_PLANE_NAME_BYTES];
  uint8_t reserved1[10];
  uint32_t flags[TESEL_ALPHA_PLANES]; /* the slot's first four planeFlags, byte 0 lowest */
  uint8_t reserved2[20];
} LayerPlaneTable;

/* A layer's place, name and mode. */
typedef struct LayerRecord {
  char name[256];
  int32_t left, top;
  int32_t index; /* the layer number; written by the host, not read back */
  int32_t one;   /* always 1 */
  int32_t mixMode;
  int32_t opacityLoss; /* 0..255; 0 is fully opaque */
  int32_t savedMixMode;
  uint8_t planeOff[8];    /* per slot 0..7: switched off, out of composition */
  uint8_t lineDrawing[8]; /* per slot 0..7: the fifth planeFlags byte */
  uint8_t reserved[104];
} LayerRecord;

/* Rows pulled by a writer: inclusive columns x0..x1 of row y, relative to
   the picture or layer written. */
typedef struct WriteCallbacks {
  /* 24-bit pixels (blue, green, red), or 8-bit indices when writing a
     palette; 0 when the palette picture is missing. */
  int (*GetRow)(int y, int x0, int x1, uint8_t* buffer, int layer);
  /* The 8-bit row of alpha plane `plane` (0..6) of `layer`; 0 when it does
     not exist. */
  int (*GetPlaneRow)(int y, int x0, int x1, uint8_t* buffer, int layer, int plane);
  /* 256 entries of blue, green, red, 0; 1 when copied (palette writing). */
  int (*GetPalette)(uint8_t* table);
} WriteCallbacks;

/* Rows pushed by a reader. */
typedef struct ReadCallbacks {
  /* One image row in the depth of layers[layer].bits: 1-bit rows from the
     most significant bit (bit 7 is column 0), 4-bit rows with the high
     nibble in the even column; palette rows are expanded through the last
     SetPalette. Returns 0. */
  int (*PutRow)(int y, int x0, int x1, const uint8_t* buffer, int layer);
  /* One 8-bit row of alpha plane `plane`; -1 when the plane is refused. */
  int (*PutPlaneRow)(int y, int x0, int x1, const uint8_t* buffer, int layer, int plane);
  /* 8, 64 or 1,024 bytes for 1, 4 or 8 bits; returns the layer's bits. */
  int (*SetPalette)(const uint8_t* table, int layer);
  /* One colour byte (0, 1, 2: position in a 3-byte pixel) of a row of a
     24- or 32-bit layer; -1 when refused. */
  int (*PutChannelRow)(int y, int channel, int x0, int x1, const uint8_t* buffer, int layer);
} ReadCallbacks;

/* The entry points, exported with these plain C names. */
typedef int (*ReadFileInfoFn)(TeselWindow window, FormatInfo* info);
typedef int (*ReadFileInitFn)(TeselWindow window, const char* path, int mode);
typedef int (*ReadFileGetSizeFn)(TeselWindow window, const char* path, FileHeader* header,
                                 LayerPlaneTable* planes);
typedef int (*ReadFileExecFn)(TeselWindow window, const char* path, FileHeader* header,
                              LayerPlaneTable* planes, LayerRecord* layers,
                              ReadCallbacks* callbacks);
typedef int (*ReadFileFastImageFn)(TeselWindow window, const char* path, FileHeader* header,
                                   LayerPlaneTable* planes, char* outputPath);
typedef int (*WriteFileInfoFn)(TeselWindow window, FormatInfo* info);
typedef int (*WriteFileInitFn)(TeselWindow window, const char* path, int interactive);
typedef int (*WriteFileExecFn)(TeselWindow window, const char* path, FileHeader* header,
                               LayerPlaneTable* planes, LayerRecord* layers,
                               WriteCallbacks* callbacks);

/* The record of a file that holds one flat picture: at the top left,
   normal mix, opaque. For readers of such formats. */
static inline void TeselSingleLayerRecord(LayerRecord* record) {
  record->left = record->top = 0;
  record->index = 0;
  record->one = 1;
  record->mixMode = record->savedMixMode = 1; /* Normal */
  record->opacityLoss = 0;
}

/* The output buffer of ReadFileFastImage holds a path of this many bytes. */
#define TESEL_FAST_IMAGE_PATH_BYTES 260

#ifdef __cplusplus
}
#endif

/* The layout is the boundary: every size and offset is fixed. */
#ifdef __cplusplus
#define TESEL_ABI_ASSERT(c, m) static_assert(c, m)
#else
#define TESEL_ABI_ASSERT(c, m) _Static_assert(c, m)
#endif
TESEL_ABI_ASSERT(sizeof(FormatInfo) == 656, "FormatInfo");
TESEL_ABI_ASSERT(offsetof(FormatInfo, description) == 256, "FormatInfo.description");
TESEL_ABI_ASSERT(offsetof(FormatInfo, accepts8) == 520, "FormatInfo.accepts8");
TESEL_ABI_ASSERT(offsetof(FormatInfo, accepts24) == 524, "FormatInfo.accepts24");
TESEL_ABI_ASSERT(sizeof(LayerGeometry) == 140, "LayerGeometry");
TESEL_ABI_ASSERT(offsetof(LayerGeometry, bits) == 8, "LayerGeometry.bits");
TESEL_ABI_ASSERT(offsetof(LayerGeometry, hasBackColour) == 12, "LayerGeometry.hasBackColour");
TESEL_ABI_ASSERT(offsetof(LayerGeometry, backBlue) == 24, "LayerGeometry.backBlue");
TESEL_ABI_ASSERT(offsetof(LayerGeometry, reserved) == 28, "LayerGeometry.reserved");
TESEL_ABI_ASSERT(offsetof(FileHeader, activeLayer) == 8, "FileHeader.activeLayer");
TESEL_ABI_ASSERT(offsetof(FileHeader, layerCount) == 12, "FileHeader.layerCount");
TESEL_ABI_ASSERT(offsetof(FileHeader, layers) == 16, "FileHeader.layers");
TESEL_ABI_ASSERT(sizeof(FileHeader) == 8976, "FileHeader of 64 layers");
TESEL_ABI_ASSERT(16 + 140 * TESEL_LAYER_CAPACITY_BIG == 420016, "FileHeader of 3,000 layers");
TESEL_ABI_ASSERT(sizeof(LayerPlaneTable) == 168, "LayerPlaneTable");
TESEL_ABI_ASSERT(offsetof(LayerPlaneTable, names) == 40, "LayerPlaneTable.names");
TESEL_ABI_ASSERT(offsetof(LayerPlaneTable, reserved1) == 110, "LayerPlaneTable.reserved1");
TESEL_ABI_ASSERT(offsetof(LayerPlaneTable, flags) == 120, "LayerPlaneTable.flags");
TESEL_ABI_ASSERT(offsetof(LayerPlaneTable, reserved2) == 148, "LayerPlaneTable.reserved2");
TESEL_ABI_ASSERT(sizeof(LayerRecord) == 404, "LayerRecord");
TESEL_ABI_ASSERT(offsetof(LayerRecord, left) == 256, "LayerRecord.left");
TESEL_ABI_ASSERT(offsetof(LayerRecord, index) == 264, "LayerRecord.index");
TESEL_ABI_ASSERT(offsetof(LayerRecord, one) == 268, "LayerRecord.one");
TESEL_ABI_ASSERT(offsetof(LayerRecord, mixMode) == 272, "LayerRecord.mixMode");
TESEL_ABI_ASSERT(offsetof(LayerRecord, opacityLoss) == 276, "LayerRecord.opacityLoss");
TESEL_ABI_ASSERT(offsetof(LayerRecord, savedMixMode) == 280, "LayerRecord.savedMixMode");
TESEL_ABI_ASSERT(offsetof(LayerRecord, planeOff) == 284, "LayerRecord.planeOff");
TESEL_ABI_ASSERT(offsetof(LayerRecord, lineDrawing) == 292, "LayerRecord.lineDrawing");
TESEL_ABI_ASSERT(offsetof(LayerRecord, reserved) == 300, "LayerRecord.reserved");
TESEL_ABI_ASSERT(sizeof(WriteCallbacks) == 3 * sizeof(void*), "WriteCallbacks");
TESEL_ABI_ASSERT(sizeof(ReadCallbacks) == 4 * sizeof(void*), "ReadCallbacks");

#endif
