#include "shell/settings_files.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>

#include "platform/headless/headless.h"
#include "settings/default_settings.h"
#include "settings/settings.h"
#include "shell/file_history.h"
#include "shell/tool_bar_table.h"
#include "shell/temp_folder.h"

namespace {

constexpr size_t kRecordBytes = 366192;
constexpr size_t kToolButtonOffOffset = 364220;
constexpr int kToolRows = 39;  // rows of the tool bar before its end mark

using Bytes = std::vector<uint8_t>;

void PutWord(Bytes& bytes, size_t offset, int32_t value) {
  uint32_t v = static_cast<uint32_t>(value);
  for (int k = 0; k < 4; ++k) bytes[offset + k] = static_cast<uint8_t>(v >> (8 * k));
}

Bytes LiveRecord() {
  const uint8_t* at = reinterpret_cast<const uint8_t*>(&settings);
  return Bytes(at, at + kRecordBytes);
}

void SetLiveRecord(const Bytes& bytes) { std::memcpy(&settings, bytes.data(), kRecordBytes); }

Bytes Filled(uint8_t value) { return Bytes(kRecordBytes, value); }

// Compares byte for byte and names the first offset that differs.
void ExpectRecord(const Bytes& expected, const Bytes& actual) {
  ASSERT_EQ(expected.size(), actual.size());
  for (size_t i = 0; i < expected.size(); ++i)
    if (expected[i] != actual[i]) {
      ADD_FAILURE() << "first difference at offset " << i << ": expected " << int(expected[i])
                    << ", got " << int(actual[i]);
      return;
    }
}

// The words that every load sets, whatever was read: the forced values.
void PutForcedValues(Bytes& bytes) {
  PutWord(bytes, 364728, 0);  // undoBuffer
  PutWord(bytes, 364628, 0);  // noMaskPlane
  PutWord(bytes, 364632, 0);  // noTransparencyPlane
  PutWord(bytes, 364208, 1);
  PutWord(bytes, 364212, 0);
  PutWord(bytes, 364656, 0);
  bytes[365123] = 0;  // the icon set name always ends
  std::fill(bytes.begin() + 365680, bytes.end(), 0);  // the transient paths
}

class SettingsFilesTest : public ::testing::Test {
 protected:
  void SetUp() override {
    headless::Reset();
    std::memset(&settings, 0, sizeof settings);
  }
  TempFolder folder;
};

TEST_F(SettingsFilesTest, SavedRecordLoadsBackWithOnlyTheRulesApplied) {
  Bytes record(kRecordBytes);
  for (size_t i = 0; i < kRecordBytes; ++i) record[i] = static_cast<uint8_t>((i * 131 + 7) % 251);
  // One side of each clamp, and every forced word holding the other value.
  PutWord(record, 364160, 101);    // selectionHistorySize
  PutWord(record, 364196, 11);     // undoCount
  PutWord(record, 364696, 0);      // positionSmoothing
  PutWord(record, 364724, 2);      // imageBuffer
  PutWord(record, 364732, -1);     // workBuffer
  PutWord(record, 364728, 1);      // undoBuffer
  PutWord(record, 364628, 1);
  PutWord(record, 364632, 1);
  PutWord(record, 364208, 0);
  PutWord(record, 364212, 1);
  PutWord(record, 364656, 1);
  PutWord(record, 364636, 15);     // penStrength
  PutWord(record, 365124, 601);
  PutWord(record, 365128, 9);      // lastNewWidth
  PutWord(record, 365132, 10241);  // lastNewHeight
  SetLiveRecord(record);
  for (int row = 0; row < kToolRows; ++row) toolItems[row].shown = row % 3 != 0;
  std::filesystem::create_directories(folder / "palette");
  std::strcpy(fileHistory[0], "C:\\a.tsl");

  ASSERT_EQ(1, SaveSettings(folder.path()));
  EXPECT_EQ(8u * 256, folder.Read("fhist.dat").size());
  EXPECT_STREQ("C:\\a.tsl", reinterpret_cast<const char*>(folder.Read("fhist.dat").data()));
  for (const char* list : {"pensize.dat", "canvsize.dat", "tlist00.dat", "tlist01.dat"})
    EXPECT_TRUE(folder.Exists(list)) << list;

  // The file is the record, with the tool bar stored as the complement.
  Bytes saved = record;
  for (int row = 0; row < kToolRows; ++row)
    PutWord(saved, kToolButtonOffOffset + 4 * row, row % 3 == 0 ? 1 : 0);
  ExpectRecord(saved, folder.Read("env__.env"));
  EXPECT_EQ(Bytes(record.begin() + 660, record.begin() + 660 + 363488),
            folder.Read("palette/pal.dat"));

  std::memset(&settings, 0, sizeof settings);
  for (int row = 0; row < kToolRows; ++row) toolItems[row].shown = 7;
  EXPECT_EQ(1, LoadSettings(folder.path()));

  Bytes expected = saved;
  PutForcedValues(expected);
  PutWord(expected, 364160, 100);
  PutWord(expected, 364196, 10);
  PutWord(expected, 364696, 1);
  PutWord(expected, 364724, 1);
  PutWord(expected, 364732, 0);
  PutWord(expected, 364636, 16);
  PutWord(expected, 365124, 600);
  PutWord(expected, 365128, 640);
  PutWord(expected, 365132, 10240);
  ExpectRecord(expected, LiveRecord());
  for (int row = 0; row < kToolRows; ++row) EXPECT_EQ(row % 3 != 0, toolItems[row].shown) << row;
  EXPECT_EQ(kToolListEnd, toolItems[kToolRows].command);
  EXPECT_STREQ("C:\\a.tsl", fileHistory[0]);
}

TEST_F(SettingsFilesTest, WithoutFilesTheZeroRecordIsClamped) {
  std::strcpy(fileHistory[0], "C:\\old.tsl");
  EXPECT_EQ(0, LoadSettings(folder.path()));  // no palette file

  Bytes expected = Filled(0);
  PutForcedValues(expected);
  PutWord(expected, 364160, 5);
  PutWord(expected, 364696, 1);
  PutWord(expected, 364636, 16);
  PutWord(expected, 365124, 40);
  PutWord(expected, 365128, 640);
  PutWord(expected, 365132, 480);
  ExpectRecord(expected, LiveRecord());
  EXPECT_EQ(0, settings.undoCount);
  for (int row = 0; row < kToolRows; ++row) EXPECT_EQ(1, toolItems[row].shown) << row;
  EXPECT_STREQ("", fileHistory[0]);
}

TEST_F(SettingsFilesTest, ShippedFileIsReadOnlyWithoutTheUsersFile) {
  Bytes shipped = Filled(0);
  PutWord(shipped, 364724, 7);   // imageBuffer: reads as 1
  PutWord(shipped, 364728, 1);   // undoBuffer: reads as 0
  // Values on the limits stand.
  PutWord(shipped, 364160, 5);
  PutWord(shipped, 364196, 10);
  PutWord(shipped, 364696, 20);
  PutWord(shipped, 364732, 1);
  PutWord(shipped, 364636, 200);
  PutWord(shipped, 365124, 40);
  PutWord(shipped, 365128, 10);
  PutWord(shipped, 365132, 10240);
  folder.Write("env__2.env", shipped);

  LoadSettings(folder.path());
  EXPECT_EQ(1, settings.imageBuffer);
  EXPECT_EQ(0, settings.undoBuffer);
  EXPECT_EQ(5, settings.selectionHistorySize);
  EXPECT_EQ(10, settings.undoCount);
  EXPECT_EQ(20, settings.positionSmoothing);
  EXPECT_EQ(1, settings.workBuffer);
  EXPECT_EQ(200, settings.penStrength);
  EXPECT_EQ(40, settings.size40to600);
  EXPECT_EQ(10, settings.lastNewWidth);
  EXPECT_EQ(10240, settings.lastNewHeight);

  Bytes users = Filled(0);
  PutWord(users, 364196, 3);
  folder.Write("env__.env", users);
  LoadSettings(folder.path());
  EXPECT_EQ(3, settings.undoCount);
  EXPECT_EQ(0, settings.imageBuffer);
}

TEST_F(SettingsFilesTest, ShortFileLeavesTheRestOfTheRecord) {
  SetLiveRecord(Filled(0x11));
  folder.Write("env__.env", Bytes(1000, 0xAB));
  LoadSettings(folder.path());

  Bytes expected = Filled(0x11);
  std::fill(expected.begin(), expected.begin() + 1000, 0xAB);
  PutForcedValues(expected);
  PutWord(expected, 364160, 100);
  PutWord(expected, 364196, 10);
  PutWord(expected, 364724, 1);
  PutWord(expected, 364732, 1);
  PutWord(expected, 364636, 200);
  PutWord(expected, 365124, 600);
  PutWord(expected, 365128, 10240);
  PutWord(expected, 365132, 10240);
  ExpectRecord(expected, LiveRecord());
  for (int row = 0; row < kToolRows; ++row) EXPECT_EQ(0, toolItems[row].shown) << row;
}

TEST_F(SettingsFilesTest, PaletteFileIsReadOverItsArea) {
  std::memset(settings.paletteArea, 0x5A, sizeof settings.paletteArea);
  Bytes palette(328544 + 2 * 312 + 100);  // the block, two cells and a part
  for (size_t i = 0; i < palette.size(); ++i) palette[i] = static_cast<uint8_t>(i * 7 + i / 256);
  folder.Write("palette/pal.dat", palette);

  EXPECT_EQ(1, LoadSettings(folder.path()));
  Bytes area(settings.paletteArea, settings.paletteArea + 363488);
  Bytes expected = palette;
  expected.resize(363488, 0x5A);
  EXPECT_EQ(expected, area);
}

TEST_F(SettingsFilesTest, NothingIsWrittenWhenTheSettingsFileCantBeCreated) {
  std::filesystem::create_directories(folder / "env__.env");  // a folder in its way
  std::filesystem::create_directories(folder / "palette");
  EXPECT_EQ(0, SaveSettings(folder.path()));
  EXPECT_FALSE(folder.Exists("fhist.dat"));
  EXPECT_FALSE(folder.Exists("palette/pal.dat"));
  EXPECT_FALSE(folder.Exists("pensize.dat"));
  EXPECT_FALSE(folder.Exists("tlist00.dat"));
}

TEST_F(SettingsFilesTest, ShippedFileHoldsTheDefaults) {
  Bytes shipped = TempFolder::ReadFile(TESEL_SHIPPED_ENV);
  ASSERT_EQ(kRecordBytes, shipped.size());
  folder.Write("env__2.env", shipped);
  LoadSettings(folder.path());

  auto defaults = std::make_unique<Settings>();
  DefaultSettings(*defaults);
  const uint8_t* at = reinterpret_cast<const uint8_t*>(defaults.get());
  ExpectRecord(Bytes(at, at + kRecordBytes), LiveRecord());

  // The tool bar's icons come from the icon set that ships.
  EXPECT_STREQ("standard", settings.iconSetName);
  for (int row = 0; row < kToolRows; ++row) EXPECT_EQ(1, toolItems[row].shown) << row;
}

}  // namespace
