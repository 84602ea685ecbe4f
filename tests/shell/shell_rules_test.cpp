#include <cstdint>
#include <string>
#include <vector>

#include "settings/settings.h"
#include "base/command_ids.h"
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
using Ints = std::vector<int>;

// One character per item: 1 where the state holds, 0 where it doesn't.
std::string Enabled(const Canvas* canvas, std::initializer_list<int> ids,
                    const MenuFlags& flags = {}) {
  std::string bits;
  for (int id : ids) bits += MenuStateOf(id, canvas, flags).enabled ? '1' : '0';
  return bits;
}
std::string Checked(const Canvas* canvas, std::initializer_list<int> ids,
                    const MenuFlags& flags = {}) {
  std::string bits;
  for (int id : ids) bits += MenuStateOf(id, canvas, flags).checked ? '1' : '0';
  return bits;
}
Ints Tie(Rect r) { return {r.left, r.top, r.Width(), r.Height()}; }

TEST_F(Rules, MenuStatesFollowCanvasSettingsAndFlags) {
  Canvas* canvas = OpenBlank(4, 4);
  canvas->zoomStep = -2;
  settings.outsideDisplay = 2;
  EXPECT_EQ(Checked(canvas, {11041, 11043, 23002, 23000, 20507, 11013}), "101000");
  EXPECT_EQ(Enabled(canvas, {14005, 21011, 21017, 14001}), "0010");
  canvas->selectionKind = 20003;
  EXPECT_EQ(Enabled(canvas, {21044, 20013, 21001, 20505, 21039}), "10111");
  canvas->selectionKind = 20012;
  EXPECT_EQ(Enabled(canvas, {21044, 20013}), "01");
  canvas->selectionKind = 100;  // no shape left: a selection without outline
  EXPECT_EQ(Enabled(canvas, {21001, 21011}), "01");
  PlaneStore.FreePlane(&canvas->planes[2].plane);
  EXPECT_EQ(Enabled(canvas, {21039}), "0");
  canvas->smoothZoom = 2;
  canvas->rulersOn = 1;
  EXPECT_EQ(Checked(canvas, {20507, 11013}), "11");
  EXPECT_EQ(Enabled(canvas, {21017, 21043}), "00");

  MenuFlags flags;
  flags.clipboardHasImage = flags.filterPanelOpen = true;
  EXPECT_EQ(Enabled(canvas, {14002}, flags) + Checked(canvas, {21022}, flags), "11");
  EXPECT_EQ(Enabled(nullptr, {10012}) + Checked(nullptr, {11013}), "00");
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
  EXPECT_EQ(PolledKeysDown(
                [](int key) { return key == 0x08 || key == 0x35 || key == 0x1B || key == 0x41; }),
            (Ints{0x1B, 0x35, 0x08}));
  EXPECT_EQ(std::make_pair(PolledKeyMessage(false), PolledKeyMessage(true)),
            std::make_pair(0x0100u, 0x0104u));

  Canvas* canvas = OpenBlank(4, 4);
  std::vector<DocumentKey> hooked;
  documentKeyHooks.Add([&](Canvas*, DocumentKey key) { hooked.push_back(key); });
  Ints canvasCommands;
  for (int id : {20500, 14005})
    RegisterCanvasCommand(
        id, [&canvasCommands, id](Canvas*, intptr_t) { canvasCommands.push_back(id); });
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
  EXPECT_EQ(canvasCommands, (Ints{14005, 20500}));
  ASSERT_EQ(hooked.size(), 4u);
  EXPECT_EQ(
      (std::vector<DocumentKeyKind>{hooked[0].kind, hooked[1].kind, hooked[2].kind,
                                    hooked[3].kind}),
      (std::vector<DocumentKeyKind>{DocumentKeyKind::CancelDraft, DocumentKeyKind::TakeBackPoint,
                                    DocumentKeyKind::StorePen, DocumentKeyKind::SecondaryClick}));
  EXPECT_EQ(hooked[2].value, 3);
  EXPECT_EQ(DocumentKeyRule(0x39, false, canvas).kind, DocumentKeyKind::ChoosePen);
  EXPECT_EQ(DocumentKeyRule(0x6D, false, canvas).value, 11015);
}

TEST_F(Rules, FramePlacementCascadeAndLayout) {
  auto place = [](int x, int y, int w, int h) {
    return Tie(
        ClampFramePlacement(static_cast<int32_t>(static_cast<uint32_t>(y) << 16 | (x & 0xFFFF)),
                            h << 16 | w, 1024, 768));
  };
  EXPECT_EQ(place(10, 20, 100, 50), (Ints{10, 20, 384, 128}));
  EXPECT_EQ(place(50, 60, 2000, 900), (Ints{0, 0, 1024, 768}));
  EXPECT_EQ(place(900, 700, 400, 200), (Ints{624, 568, 400, 200}));
  EXPECT_EQ(place(-20, -5, 500, 300), (Ints{-20, -5, 500, 300}));  // only shifted left and up

  Ints places;
  for (int i = 0; i < 7; ++i) places.push_back(NextCascadePosition());
  EXPECT_EQ(places, (Ints{0, 12, 24, 36, 0, 12, 24}));

  FrameLayoutInput in{1000, 700, true, true, true, false, false, 26};
  FrameLayout out = LayOutFrame(in);
  EXPECT_EQ(Tie(out.ctrlPanel), (Ints{820, 0, 180, 32}));
  EXPECT_EQ(Tie(out.toolBar), (Ints{0, 0, 820, 29}));
  EXPECT_EQ(Tie(out.statusBar), (Ints{0, 680, 1000, 20}));
  EXPECT_EQ(Tie(out.mdiClient), (Ints{0, 32, 1000, 648}));
  in.panelOnLeft = in.panelPageDocked = true;
  out = LayOutFrame(in);
  EXPECT_EQ(Tie(out.ctrlPanel), (Ints{0, 0, 180, 680}));
  EXPECT_EQ(Tie(out.toolBar), (Ints{180, 0, 820, 29}));
  EXPECT_EQ(Tie(out.mdiClient), (Ints{180, 29, 820, 651}));
  in.ctrlPanelOn = in.toolBarOn = in.statusBarOn = false;
  EXPECT_EQ(Tie(LayOutFrame(in).mdiClient), (Ints{0, 0, 1000, 700}));

  EXPECT_FALSE(DisplayDiffers(1024, 768, 16, 1024, 768, 15));
  EXPECT_TRUE(DisplayDiffers(1024, 768, 32, 1024, 768, 16));
  EXPECT_TRUE(DisplayDiffers(800, 768, 32, 1024, 768, 32));
}

TEST_F(Rules, DropBlockBytesAndReading) {
  // clang-format off
  const std::vector<uint8_t> expected = {
      16, 0, 0, 0, 5, 0, 0, 0, 0xFE, 0xFF, 0xFF, 0xFF, 0, 0, 0, 0,  // offset, x 5, y -2, 0
      'C', ':', '\\', 'a', 0, 'b', '.', 't', 's', 'l', 0, 0};
  // A block of the system's own, wide names: "é" then "z".
  const std::vector<uint8_t> wide = {20, 0, 0, 0, 1, 0, 0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 1, 0, 0, 0,
                                     0xE9, 0, 0, 0, 'z', 0, 0, 0, 0, 0};
  // clang-format on
  const std::vector<uint8_t> block = BuildDropBlock({"C:\\a", "b.tsl"}, 5, -2);
  EXPECT_EQ(block, expected);
  DropBlock read;
  ASSERT_EQ(ParseDropBlock(block.data(), block.size(), read), 1);
  EXPECT_EQ(std::tie(read.x, read.y), std::make_tuple(5, -2));
  EXPECT_EQ(read.names, (std::vector<std::string>{"C:\\a", "b.tsl"}));
  EXPECT_EQ(ParseDropBlock(block.data(), block.size() - 1, read), 0);  // no final zero
  EXPECT_EQ(ParseDropBlock(block.data(), 12, read), 0);
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
  std::vector<std::string> shown;
  auto apply = [&](int code, intptr_t value) {
    const int changed = ApplyStatusMessage(s, code, value);
    shown.push_back(s.shown);
    return changed;
  };
  EXPECT_EQ(apply(3, 7), 1);
  EXPECT_EQ(apply(3, 7), 0);
  apply(8, 100);
  apply(4, 42);
  apply(5, 5);
  EXPECT_EQ(apply(6, 3 << 16 | 10), 0);  // held, nothing shown yet
  apply(7, 1 << 16 | 2);
  apply(7, 7 << 16 | 0xFFFC);  // x -4
  EXPECT_EQ(shown,
            (std::vector<std::string>{
                "Processing...: 007% Complete", "Processing...: 007% Complete",
                "Processing...: 100% Complete", "Reading file...: 042% Complete",
                "Saving file...: 005% Complete", "Saving file...: 005% Complete",
                "[10,3]-[2,1], Size[9x3], Center[6,2]", "[10,3]-[-4,7], Size[15x5], Center[3,5]"}));
  const std::string text = "abc", rest = "ready";
  EXPECT_EQ(apply(14, reinterpret_cast<intptr_t>(text.c_str())), 1);
  EXPECT_EQ(apply(14, reinterpret_cast<intptr_t>(text.c_str())), 0);
  apply(15, reinterpret_cast<intptr_t>(rest.c_str()));
  EXPECT_EQ(std::tie(s.shown, s.resting), std::make_tuple("ready", "ready"));
  EXPECT_EQ(apply(0, 0), 1);
  EXPECT_EQ(s.shown, "");
}

TEST_F(Rules, FileHistoryOrderAndMenu) {
  auto history = [] { return std::vector<std::string>(fileHistory, fileHistory + 8); };
  for (const char* path : {"a", "b", "c", "a"}) AddToFileHistory(path);
  EXPECT_EQ(history(), (std::vector<std::string>{"a", "c", "b", "", "", "", "", ""}));
  for (int i = 0; i < 9; ++i) AddToFileHistory("p" + std::to_string(i));
  AddToFileHistory("p4");  // listed in the middle: the older ones stay
  AddToFileHistory("");
  EXPECT_EQ(history(), (std::vector<std::string>{"p4", "p8", "p7", "p6", "p5", "p3", "p2", "p1"}));
  AddToFileHistory(std::string(400, 'x'));
  EXPECT_EQ(std::string(fileHistory[0]).size(), 299u);

  std::memset(fileHistory, 0, sizeof fileHistory);
  std::strcpy(fileHistory[0], "first");
  std::strcpy(fileHistory[2], "third");  // a gap as a file may leave it
  const auto items = HistoryMenuItems();
  ASSERT_EQ(items.size(), 2u);
  EXPECT_EQ(std::tie(items[1].id, items[1].text), std::make_tuple(40002, "third"));
  EXPECT_EQ(HistoryPath(40002), "third");
  EXPECT_EQ(HistoryPath(40008), "");
}

}  // namespace
