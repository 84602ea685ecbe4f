#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/headless/headless.h"
#include "shell/help_file.h"
#include "support/fixture.h"
#include "support/temp_folder.h"

namespace {

using HelpFile = TeselTest;

TEST_F(HelpFile, OpensTheDocumentBesideTheProgramOrSaysWhyNot) {
  TempFolder folder;
  std::vector<std::string> opened;
  bool shellTakesIt = true;
  auto open = [&](const std::string& path) {
    opened.push_back(path);
    return shellTakesIt;
  };
  const std::string path = folder / "tesel_help.html";
  const std::string missing = "The help file [" + path + "] cannot be opened!";
  EXPECT_EQ(OpenHelp(folder.path(), open), 0);
  EXPECT_TRUE(opened.empty());  // nothing to hand to the shell
  EXPECT_EQ(BoxTexts(), std::vector<std::string>{missing});

  folder.WriteText("tesel_help.html", "<html></html>");
  EXPECT_EQ(OpenHelp(folder.path(), open), 1);
  EXPECT_EQ(opened, std::vector<std::string>{path});
  EXPECT_EQ(headless::Recorded().boxes.size(), 1u);

  shellTakesIt = false;  // no program for HTML
  EXPECT_EQ(OpenHelp(folder.path(), open), 0);
  EXPECT_EQ(BoxTexts(), (std::vector<std::string>{missing, missing}));
}

}  // namespace
