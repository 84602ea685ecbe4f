#include <cstdint>
#include <string>
#include <vector>

#include "settings/settings.h"
#include "shell/command_ids.h"
#include "shell/drop_files.h"
#include "shell/frame_layout.h"
#include "shell/history_menu.h"
#include "shell/input_rules.h"
#include "shell/menu_state.h"
#include "shell/start_folder.h"
#include "shell/status_text.h"
#include "shell_fixture.h"

namespace {

using Rules = ShellTest;

bool Enabled(int id, const Canvas* canvas, const MenuFlags& flags = {}) {
  return MenuStateOf(id, canvas, flags).enabled;
}
bool Checked(int id, const Canvas* canvas, const MenuFlags& flags = {}) {
  return MenuStateOf(id, canvas, flags).checked;
}

TEST_F(Rules, MenuStatesFollowCanvasSettingsAndFlags) {
  Canvas* canvas = OpenBlank(4, 4);
  canvas->zoomStep = -2;
  EXPECT_TRUE(Checked(11041, canvas));
  EXPECT_FALSE(Checked(11043, canvas));
  settings.outsideDisplay = 2;
  EXPECT_TRUE(Checked(23002, canvas));
  EXPECT_FALSE(Checked(23000, canvas));

  EXPECT_FALSE(Enabled(14005, canvas));
  EXPECT_FALSE(Enabled(21011, canvas));
  canvas->selectionKind = 20003;
  EXPECT_TRUE(Enabled(21044, canvas));
  EXPECT_FALSE(Enabled(20013, canvas));
  EXPECT_TRUE(Enabled(21001, canvas));
  EXPECT_TRUE(Enabled(20505, canvas));
  EXPECT_TRUE(Enabled(21039, canvas));
  canvas->selectionKind = 20012;
  EXPECT_FALSE(Enabled(21044, canvas));
  EXPECT_TRUE(Enabled(20013, canvas));
  canvas->selectionKind = 100;  // no shape left: a selection without outline
  EXPECT_FALSE(Enabled(21001, canvas));
  EXPECT_TRUE(Enabled(21011, canvas));
  PlaneStore.FreePlane(&canvas->planes[2].plane);
  EXPECT_FALSE(Enabled(21039, canvas));

  EXPECT_FALSE(Checked(20507, canvas));
  EXPECT_TRUE(Enabled(21017, canvas));
  canvas->smoothZoom = 2;
  EXPECT_TRUE(Checked(20507, canvas));
  EXPECT_FALSE(Enabled(21017, canvas));
  EXPECT_FALSE(Enabled(21043, canvas));

  MenuFlags flags;
  flags.clipboardHasImage = true;
  flags.filterPanelOpen = true;
  EXPECT_TRUE(Enabled(14002, canvas, flags));
  EXPECT_FALSE(Enabled(14001, canvas));
  EXPECT_TRUE(Checked(21022, canvas, flags));
  EXPECT_FALSE(Enabled(10012, nullptr));
  canvas->rulersOn = 1;
  EXPECT_TRUE(Checked(11013, canvas));
  EXPECT_FALSE(Checked(11013, nullptr));
  EXPECT_FALSE(MenuStateOf(21030, canvas, flags).governed);

  EXPECT_EQ(MainMenuFor(0), MainMenu::Init);
  EXPECT_EQ(MainMenuFor(1), MainMenu::Child);
}

TEST_F(Rules, WheelAndKeys) {
  EXPECT_EQ(WheelRule(false, false, false, 120).action, WheelAction::None);
  EXPECT_EQ(WheelRule(true, true, false, 120).action, WheelAction::PageLeft);
  EXPECT_EQ(WheelRule(true, true, false, -120).action, WheelAction::PageRight);
  EXPECT_EQ(WheelRule(true, false, true, 120).action, WheelAction::PageUp);
  EXPECT_EQ(WheelRule(true, false, true, -120).action, WheelAction::PageDown);
  EXPECT_EQ(WheelRule(true, false, false, 120).command, 11014);
  EXPECT_EQ(WheelRule(true, false, false, 0).command, 11015);  // below 1 zooms out

  EXPECT_EQ(KeyPollRule(false, true, false), KeyPollAction::Nothing);
  EXPECT_EQ(KeyPollRule(true, false, false), KeyPollAction::Nothing);
  EXPECT_EQ(KeyPollRule(true, true, true), KeyPollAction::DropKeys);
  EXPECT_EQ(KeyPollRule(true, true, false), KeyPollAction::SendKeys);
  EXPECT_EQ(PolledKeys().size(), 16u);
  // Held: Backspace, 5, Esc, and A, which isn't polled.
  auto down = PolledKeysDown(
      [](int key) { return key == 0x08 || key == 0x35 || key == 0x1B || key == 0x41; });
  EXPECT_EQ(down, (std::vector<int>{0x1B, 0x35, 0x08}));
  EXPECT_EQ(PolledKeyMessage(false), 0x0100u);
  EXPECT_EQ(PolledKeyMessage(true), 0x0104u);

  Canvas* canvas = OpenBlank(4, 4);
  std::vector<DocumentKey> hooked;
  documentKeyHooks.Add([&](Canvas*, DocumentKey key) { hooked.push_back(key); });
  std::vector<int> canvasCommands;
  RegisterCanvasCommand(20500, [&](Canvas*, intptr_t) { canvasCommands.push_back(20500); });
  RegisterCanvasCommand(14005, [&](Canvas*, intptr_t) { canvasCommands.push_back(14005); });
  DocumentKeyDown(canvas, 0x6B, false);  // numeric +
  EXPECT_EQ(canvas->zoomStep, 1);
  DocumentKeyDown(canvas, 0x2E, false);  // Del without a selection: nothing
  canvas->selectionKind = 20001;
  DocumentKeyDown(canvas, 0x2E, false);
  DocumentKeyDown(canvas, 0x1B, false);  // Esc: the Draft cancels, then 20500
  DocumentKeyDown(canvas, 0x08, false);  // Backspace outside the Bezier tool: nothing
  currentTool = 20011;
  DocumentKeyDown(canvas, 0x08, false);
  DocumentKeyDown(canvas, 0x33, true);
  DocumentKeyDown(canvas, 0x5D, false);
  EXPECT_EQ(canvasCommands, (std::vector<int>{14005, 20500}));
  ASSERT_EQ(hooked.size(), 4u);
  EXPECT_EQ(hooked[0].kind, DocumentKeyKind::CancelDraft);
  EXPECT_EQ(hooked[1].kind, DocumentKeyKind::TakeBackPoint);
  EXPECT_EQ(hooked[2].kind, DocumentKeyKind::StorePen);
  EXPECT_EQ(hooked[2].value, 3);
  EXPECT_EQ(hooked[3].kind, DocumentKeyKind::SecondaryClick);
  EXPECT_EQ(DocumentKeyRule(0x39, false, canvas).kind, DocumentKeyKind::ChoosePen);
  EXPECT_EQ(DocumentKeyRule(0x6D, false, canvas).value, 11015);
}

TEST_F(Rules, FramePlacementIsClampedOntoTheScreen) {
  auto place = [](int x, int y, int w, int h) {
    return ClampFramePlacement(static_cast<int32_t>(static_cast<uint32_t>(y) << 16 | (x & 0xFFFF)),
                               h << 16 | w, 1024, 768);
  };
  WindowRect r = place(10, 20, 100, 50);
  EXPECT_EQ((std::vector<int>{r.x, r.y, r.width, r.height}), (std::vector<int>{10, 20, 384, 128}));
  r = place(50, 60, 2000, 900);
  EXPECT_EQ((std::vector<int>{r.x, r.y, r.width, r.height}), (std::vector<int>{0, 0, 1024, 768}));
  r = place(900, 700, 400, 200);
  EXPECT_EQ((std::vector<int>{r.x, r.y, r.width, r.height}),
            (std::vector<int>{624, 568, 400, 200}));
  r = place(-20, -5, 500, 300);  // only shifted left and up
  EXPECT_EQ((std::vector<int>{r.x, r.y}), (std::vector<int>{-20, -5}));
}

TEST_F(Rules, DocumentWindowsCascadeByTwelveUpTo36) {
  std::vector<int> places;
  for (int i = 0; i < 7; ++i) places.push_back(NextCascadePosition());
  EXPECT_EQ(places, (std::vector<int>{0, 12, 24, 36, 0, 12, 24}));
}

TEST_F(Rules, FrameLayout) {
  FrameLayoutInput in{1000, 700, true, true, true, false, false, 26};
  FrameLayout out = LayOutFrame(in);
  auto v = [](WindowRect r) { return std::vector<int>{r.x, r.y, r.width, r.height}; };
  EXPECT_EQ(v(out.ctrlPanel), (std::vector<int>{820, 0, 180, 32}));
  EXPECT_EQ(v(out.toolBar), (std::vector<int>{0, 0, 820, 29}));
  EXPECT_EQ(v(out.statusBar), (std::vector<int>{0, 680, 1000, 20}));
  EXPECT_EQ(v(out.mdiClient), (std::vector<int>{0, 32, 1000, 648}));
  in.panelOnLeft = true;
  in.panelPageDocked = true;
  out = LayOutFrame(in);
  EXPECT_EQ(v(out.ctrlPanel), (std::vector<int>{0, 0, 180, 680}));
  EXPECT_EQ(v(out.toolBar), (std::vector<int>{180, 0, 820, 29}));
  EXPECT_EQ(v(out.mdiClient), (std::vector<int>{180, 29, 820, 651}));
  in.ctrlPanelOn = in.toolBarOn = in.statusBarOn = false;
  EXPECT_EQ(v(LayOutFrame(in).mdiClient), (std::vector<int>{0, 0, 1000, 700}));

  EXPECT_FALSE(DisplayDiffers(1024, 768, 16, 1024, 768, 15));
  EXPECT_TRUE(DisplayDiffers(1024, 768, 32, 1024, 768, 16));
  EXPECT_TRUE(DisplayDiffers(800, 768, 32, 1024, 768, 32));
}

TEST_F(Rules, DropBlockBytesAndReading) {
  // clang-format off
  const std::vector<uint8_t> expected = {
      16, 0, 0, 0, 5, 0, 0, 0, 0xFE, 0xFF, 0xFF, 0xFF, 0, 0, 0, 0,  // offset, x 5, y -2, 0
      'C', ':', '\\', 'a', 0, 'b', '.', 't', 's', 'l', 0, 0};
  // clang-format on
  const std::vector<uint8_t> block = BuildDropBlock({"C:\\a", "b.tsl"}, 5, -2);
  EXPECT_EQ(block, expected);

  DropBlock read;
  ASSERT_EQ(ParseDropBlock(block.data(), block.size(), read), 1);
  EXPECT_EQ(read.x, 5);
  EXPECT_EQ(read.y, -2);
  EXPECT_EQ(read.names, (std::vector<std::string>{"C:\\a", "b.tsl"}));
  EXPECT_EQ(ParseDropBlock(block.data(), block.size() - 1, read), 0);  // no final zero
  EXPECT_EQ(ParseDropBlock(block.data(), 12, read), 0);

  // A block of the system's own, wide names: "é" then "z".
  // clang-format off
  const std::vector<uint8_t> wide = {20, 0, 0, 0, 1, 0, 0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0,
                                     0xE9, 0, 0, 0, 'z', 0, 0, 0, 0, 0};
  // clang-format on
  ASSERT_EQ(ParseDropBlock(wide.data(), wide.size(), read), 1);
  EXPECT_EQ(read.names, (std::vector<std::string>{"\xC3\xA9", "z"}));
}

// Shift-JIS: a lead byte carries the next byte with it.
const char* NextShiftJis(const char* p) {
  const auto byte = static_cast<unsigned char>(*p);
  const bool lead = (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
  return p + (lead && p[1] ? 2 : 1);
}
const char* NextByte(const char* p) { return p + 1; }

TEST_F(Rules, StartFolderCutsAtTheLastRealBackslash) {
  // 0x95 0x5C is one character whose trail byte looks like a backslash.
  EXPECT_EQ(StartFolderOf("C:\\app\\\x95\x5C.exe", NextShiftJis), "C:\\app\\");
  EXPECT_EQ(StartFolderOf("C:\\app\\\x95\x5C.exe", NextByte), "C:\\app\\\x95\\");
  EXPECT_EQ(StartFolderOf("C:\\\x95\x5C\\tesel.exe", NextShiftJis), "C:\\\x95\x5C\\");
  EXPECT_EQ(StartFolderOf("tesel.exe", NextShiftJis), "");
}

TEST_F(Rules, StatusTextsOfMessage1024) {
  StatusBarState s;
  EXPECT_EQ(ApplyStatusMessage(s, 3, 7), 1);
  EXPECT_EQ(s.shown, "Processing...: 007% Complete");
  EXPECT_EQ(ApplyStatusMessage(s, 3, 7), 0);
  ApplyStatusMessage(s, 8, 100);
  EXPECT_EQ(s.shown, "Processing...: 100% Complete");
  ApplyStatusMessage(s, 4, 42);
  EXPECT_EQ(s.shown, "Reading file...: 042% Complete");
  ApplyStatusMessage(s, 5, 5);
  EXPECT_EQ(s.shown, "Saving file...: 005% Complete");
  EXPECT_EQ(ApplyStatusMessage(s, 6, 3 << 16 | 10), 0);  // held, nothing shown yet
  EXPECT_EQ(s.shown, "Saving file...: 005% Complete");
  ApplyStatusMessage(s, 7, 1 << 16 | 2);
  EXPECT_EQ(s.shown, "[10,3]-[2,1], Size[9x3], Center[6,2]");
  ApplyStatusMessage(s, 7, 7 << 16 | 0xFFFC);  // x -4
  EXPECT_EQ(s.shown, "[10,3]-[-4,7], Size[15x5], Center[3,5]");
  const std::string text = "abc";
  EXPECT_EQ(ApplyStatusMessage(s, 14, reinterpret_cast<intptr_t>(text.c_str())), 1);
  EXPECT_EQ(ApplyStatusMessage(s, 14, reinterpret_cast<intptr_t>(text.c_str())), 0);
  const std::string rest = "ready";
  ApplyStatusMessage(s, 15, reinterpret_cast<intptr_t>(rest.c_str()));
  EXPECT_EQ(s.shown, "ready");
  EXPECT_EQ(s.resting, "ready");
  EXPECT_EQ(ApplyStatusMessage(s, 0, 0), 1);
  EXPECT_EQ(s.shown, "");
}

TEST_F(Rules, FileHistoryOrder) {
  for (const char* path : {"a", "b", "c"}) AddToFileHistory(path);
  AddToFileHistory("a");
  EXPECT_EQ((std::vector<std::string>{fileHistory[0], fileHistory[1], fileHistory[2]}),
            (std::vector<std::string>{"a", "c", "b"}));
  EXPECT_EQ(fileHistory[3][0], 0);
  for (int i = 0; i < 9; ++i) AddToFileHistory("p" + std::to_string(i));
  EXPECT_STREQ(fileHistory[0], "p8");
  EXPECT_STREQ(fileHistory[7], "p1");
  AddToFileHistory("p4");  // listed in the middle: the older ones stay
  EXPECT_STREQ(fileHistory[0], "p4");
  EXPECT_STREQ(fileHistory[4], "p5");
  EXPECT_STREQ(fileHistory[5], "p3");
  EXPECT_STREQ(fileHistory[7], "p1");
  AddToFileHistory("");
  EXPECT_STREQ(fileHistory[0], "p4");
  AddToFileHistory(std::string(400, 'x'));
  EXPECT_EQ(std::string(fileHistory[0]).size(), 299u);

  std::memset(fileHistory, 0, sizeof fileHistory);
  std::strcpy(fileHistory[0], "first");
  std::strcpy(fileHistory[2], "third");  // a gap as a file may leave it
  const auto items = HistoryMenuItems();
  ASSERT_EQ(items.size(), 2u);
  EXPECT_EQ(items[1].id, 40002);
  EXPECT_EQ(items[1].text, "third");
  EXPECT_EQ(HistoryPath(40002), "third");
  EXPECT_EQ(HistoryPath(40008), "");
}

}  // namespace
