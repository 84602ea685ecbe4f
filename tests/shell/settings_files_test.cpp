#include "shell/settings_files.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <iterator>
#include <memory>
#include <utility>

#include "platform/headless/headless.h"
#include "settings/default_settings.h"
#include "settings/settings.h"
#include "shell/file_history.h"
#include "support/temp_folder.h"
#include "shell/tool_bar_table.h"
#include "support/fixture.h"
#include "support/palette_bytes.h"

namespace {

constexpr size_t kRecordBytes = 366192;
constexpr size_t kToolButtonOffOffset = 364220;
constexpr int kToolRows = 39;  // rows of the tool bar before its end mark

// Offsets of the words that load clamps, and those tables of them follow.
constexpr size_t kSelectionHistorySize = 364160, kUndoCount = 364196, kPositionSmoothing = 364696,
                 kImageBuffer = 364724, kWorkBuffer = 364732, kPenStrength = 364636,
                 kSize40to600 = 365124, kLastNewWidth = 365128, kLastNewHeight = 365132;
constexpr size_t kClamped[] = {kSelectionHistorySize, kUndoCount,    kPositionSmoothing,
                               kImageBuffer,          kWorkBuffer,   kPenStrength,
                               kSize40to600,          kLastNewWidth, kLastNewHeight};
// The words that every load sets, whatever was read: undoBuffer,
// noMaskPlane, noTransparencyPlane and three more.
constexpr std::pair<size_t, int32_t> kForced[] = {{364728, 0}, {364628, 0}, {364632, 0},
                                                  {364208, 1}, {364212, 0}, {364656, 0}};

using Bytes = std::vector<uint8_t>;

void PutWords(Bytes& bytes, std::initializer_list<std::pair<size_t, int32_t>> words) {
  for (auto [offset, value] : words)
    for (int k = 0; k < 4; ++k)
      bytes[offset + k] = static_cast<uint8_t>(static_cast<uint32_t>(value) >> (8 * k));
}

// The clamped words, in the order of kClamped.
void PutClamped(Bytes& bytes, const std::array<int32_t, std::size(kClamped)>& values) {
  for (size_t i = 0; i < values.size(); ++i) PutWords(bytes, {{kClamped[i], values[i]}});
}

Bytes LiveRecord() {
  const uint8_t* at = reinterpret_cast<const uint8_t*>(&settings);
  return Bytes(at, at + kRecordBytes);
}

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

// The forced words, the end of the icon set name, and the transient paths.
void PutForcedValues(Bytes& bytes) {
  for (auto [offset, value] : kForced) PutWords(bytes, {{offset, value}});
  bytes[365123] = 0;
  std::fill(bytes.begin() + 365680, bytes.end(), 0);
}

void ExpectToolBar(bool (*shown)(int row)) {
  for (int row = 0; row < kToolRows; ++row) EXPECT_EQ(shown(row), toolItems[row].shown != 0) << row;
}

class SettingsFilesTest : public TeselTest {
 protected:
  // The record all zero, as before any file is read.
  void SetUp() override {
    TeselTest::SetUp();
    ResetSettings();
  }
  TempFolder folder;
};

TEST_F(SettingsFilesTest, SavedRecordLoadsBackWithOnlyTheRulesApplied) {
  Bytes record(kRecordBytes);
  for (size_t i = 0; i < kRecordBytes; ++i) record[i] = static_cast<uint8_t>((i * 131 + 7) % 251);
  SettlePaletteBytes(record, 660);  // as a read of the palette leaves it
  // One side of each clamp, and every forced word holding the other value.
  PutClamped(record, {101, 11, 0, 2, -1, 15, 601, 9, 10241});
  for (auto [offset, value] : kForced) PutWords(record, {{offset, 1 - value}});
  std::memcpy(&settings, record.data(), kRecordBytes);
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
    PutWords(saved, {{kToolButtonOffOffset + 4 * row, row % 3 == 0}});
  ExpectRecord(saved, folder.Read("env__.env"));
  EXPECT_EQ(Bytes(record.begin() + 660, record.begin() + 660 + 363488),
            folder.Read("palette/pal.dat"));

  std::memset(&settings, 0, sizeof settings);
  for (int row = 0; row < kToolRows; ++row) toolItems[row].shown = 7;
  EXPECT_EQ(1, LoadSettings(folder.path()));
  PutForcedValues(saved);
  PutClamped(saved, {100, 10, 1, 1, 0, 16, 600, 640, 10240});
  ExpectRecord(saved, LiveRecord());
  ExpectToolBar([](int row) { return row % 3 != 0; });
  EXPECT_EQ(kToolListEnd, toolItems[kToolRows].command);
  EXPECT_STREQ("C:\\a.tsl", fileHistory[0]);
}

TEST_F(SettingsFilesTest, WithoutFilesTheZeroRecordIsClamped) {
  std::strcpy(fileHistory[0], "C:\\old.tsl");
  EXPECT_EQ(0, LoadSettings(folder.path()));  // no palette file: a seeded palette
  Bytes expected(kRecordBytes, 0);
  const Bytes live = LiveRecord();
  EXPECT_NE(Bytes(live.begin() + 660, live.begin() + 660 + 363488), Bytes(363488, 0));
  std::copy_n(live.begin() + 660, 363488, expected.begin() + 660);
  PutForcedValues(expected);
  PutClamped(expected, {5, 0, 1, 0, 0, 16, 40, 640, 480});
  ExpectRecord(expected, LiveRecord());
  ExpectToolBar([](int) { return true; });
  EXPECT_STREQ("", fileHistory[0]);
}

TEST_F(SettingsFilesTest, ShippedFileIsReadOnlyWithoutTheUsersFile) {
  // Values on the limits stand; forced words read as forced.
  Bytes shipped(kRecordBytes, 0);
  PutClamped(shipped, {5, 10, 20, 7, 1, 200, 40, 10, 10240});
  PutWords(shipped, {{364728, 1}});
  folder.Write("env__2.env", shipped);
  folder.Write("palette/pal.dat", Bytes(363488, 0));  // a palette: none is seeded
  LoadSettings(folder.path());
  Bytes expected = shipped;
  PutForcedValues(expected);
  PutWords(expected, {{kImageBuffer, 1}});
  ExpectRecord(expected, LiveRecord());

  Bytes users(kRecordBytes, 0);
  PutWords(users, {{kUndoCount, 3}});
  folder.Write("env__.env", users);
  LoadSettings(folder.path());
  EXPECT_EQ(std::tie(settings.undoCount, settings.imageBuffer), std::make_tuple(3, 0));
}

TEST_F(SettingsFilesTest, ShortFilesLeaveTheRestOfTheRecordAndThePalette) {
  std::memset(&settings, 0x11, kRecordBytes);
  folder.Write("env__.env", Bytes(1000, 0xAB));
  Bytes palette(328544 + 2 * 312 + 100);  // the block, two cells and a part
  for (size_t i = 0; i < palette.size(); ++i) palette[i] = static_cast<uint8_t>(i * 7 + i / 256);
  folder.Write("palette/pal.dat", palette);
  EXPECT_EQ(1, LoadSettings(folder.path()));

  Bytes expected(kRecordBytes, 0x11);
  std::fill(expected.begin(), expected.begin() + 1000, 0xAB);
  std::copy(palette.begin(), palette.end(), expected.begin() + 660);
  SettlePaletteBytes(expected, 660);
  PutForcedValues(expected);
  PutClamped(expected, {100, 10, 0x11111111, 1, 1, 200, 600, 10240, 10240});
  ExpectRecord(expected, LiveRecord());
  ExpectToolBar([](int) { return false; });
}

TEST_F(SettingsFilesTest, NothingIsWrittenWhenTheSettingsFileCantBeCreated) {
  std::filesystem::create_directories(folder / "env__.env");  // a folder in its way
  std::filesystem::create_directories(folder / "palette");
  EXPECT_EQ(0, SaveSettings(folder.path()));
  for (const char* name : {"fhist.dat", "palette/pal.dat", "pensize.dat", "tlist00.dat"})
    EXPECT_FALSE(folder.Exists(name)) << name;
}

TEST_F(SettingsFilesTest, ShippedFileHoldsTheDefaults) {
  Bytes shipped = TempFolder::ReadFile(TESEL_SHIPPED_ENV);
  ASSERT_EQ(kRecordBytes, shipped.size());
  folder.Write("env__2.env", shipped);
  folder.Write("palette/pal.dat", Bytes(363488, 0));
  LoadSettings(folder.path());
  auto defaults = std::make_unique<Settings>();
  DefaultSettings(*defaults);
  const uint8_t* at = reinterpret_cast<const uint8_t*>(defaults.get());
  ExpectRecord(Bytes(at, at + kRecordBytes), LiveRecord());
  // The tool bar's icons come from the icon set that ships.
  EXPECT_STREQ("standard", settings.iconSetName);
  ExpectToolBar([](int) { return true; });
}

}  // namespace
