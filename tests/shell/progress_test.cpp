#include <gtest/gtest.h>

#include <sstream>

#include "runtime/bar.h"
#include "runtime/runtime.h"
#include "shell/progress_bar.h"
#include "shell/shell_toolkit.h"

namespace salerpt::shell {
namespace {

TEST(ProgressBar, WritesNothingWhenItIsOff) {
  std::ostringstream err;
  {
    ProgressBar bar(err, ProgressBar::Style::kOff);
    bar.SetMessage("working");
    bar.SetBar(1, 2);
  }
  EXPECT_EQ(err.str(), "");
}

TEST(ProgressBar, WritesEveryMessageAndEveryTenthAsALine) {
  std::ostringstream err;
  ProgressBar bar(err, ProgressBar::Style::kLines);
  bar.SetMessage("reading");
  for (int i = 0; i <= 40; ++i) bar.SetBar(i, 100);
  bar.SetMessage("writing");
  bar.SetBar(3, 3);
  EXPECT_EQ(err.str(),
            "reading\nreading 10%\nreading 20%\nreading 30%\nreading 40%\nwriting\nwriting 100%\n");
}

TEST(ProgressBar, DrawsOneLineOnATerminalAndTakesItAway) {
  std::ostringstream err;
  {
    ProgressBar bar(err, ProgressBar::Style::kTerminal);
    bar.SetMessage("reading");
    bar.SetBar(100, 100);
  }
  EXPECT_EQ(err.str(),
            "\r\x1b[Kreading"
            "\r\x1b[K[##############################] 100% reading"
            "\r\x1b[K");
}

TEST(ProgressBar, DoesNotDrawForEveryStep) {
  std::ostringstream err;
  ProgressBar bar(err, ProgressBar::Style::kTerminal);
  bar.SetMessage("reading");
  for (int i = 0; i < 1000000; ++i) bar.SetBar(i, 10000000);
  EXPECT_LT(err.str().size(), 1000u);
}

// What a report does while it fetches.
std::string ProgressOf(ProgressBar::Style style, const std::function<void(Bar&)>& fetch) {
  std::ostringstream err;
  Runtime runtime;
  ProgressBar bar(err, style);
  runtime.SetToolkit(std::make_shared<ShellToolkit>(err, bar));
  Bar relay;
  relay.Active.Connect([&] {
    fetch(relay);
    relay.Unload();
  });
  relay.Show();
  return err.str();
}

TEST(ShellToolkit, ShowsTheMessagesAndTheBarOfAFetch) {
  EXPECT_EQ(ProgressOf(ProgressBar::Style::kLines,
                       [](Bar& relay) {
                         relay.HideProgBar();
                         relay.SetMsg("正在连接中间层...");
                         relay.ShowProgBar();
                         relay.SetBarMaxValue(4);
                         relay.SetBarMinValue(0);
                         for (int i = 1; i <= 4; ++i) relay.SetBarValue(i);
                       }),
            "正在连接中间层...\n正在连接中间层... 25%\n正在连接中间层... 50%\n正在连接中间层... 75%\n"
            "正在连接中间层... 100%\n");
}

TEST(ShellToolkit, AnswersAMessageBoxWithOkAndShowsItOnOneLine) {
  std::ostringstream err;
  ProgressBar bar(err, ProgressBar::Style::kOff);
  ShellToolkit toolkit(err, bar);
  EXPECT_EQ(toolkit.MessageBox("数据访问错误：\r\nx", kBoxInformation, "青岚提示："), BoxAnswer::kOk);
  EXPECT_EQ(err.str(), "salerpt: 青岚提示： 数据访问错误：  x\n");
}

}  // namespace
}  // namespace salerpt::shell
