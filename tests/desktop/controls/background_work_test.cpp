#include "workbench/desktop/controls/background_work.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QVBoxLayout>
#include <thread>

namespace workbench {
namespace {

TEST(BackgroundWork, RunsOnAnotherThreadWhileTheEventLoopGoesOn) {
  QWidget window;
  TBackgroundWork background(window);
  std::thread::id worker;
  int ticks = 0;
  QTimer clock;
  QObject::connect(&clock, &QTimer::timeout, [&ticks] { ++ticks; });
  clock.start(1);
  background.Run([&] {
    worker = std::this_thread::get_id();
    std::this_thread::sleep_for(std::chrono::milliseconds(50));
  });
  EXPECT_NE(worker, std::this_thread::get_id());
  EXPECT_GT(ticks, 3);
  EXPECT_FALSE(background.IsBusy());
}

TEST(BackgroundWork, PassesOnWhatTheWorkThrows) {
  QWidget window;
  TBackgroundWork background(window);
  EXPECT_THROW(background.Run([] { throw std::runtime_error("no"); }), std::runtime_error);
  EXPECT_FALSE(background.IsBusy());
}

TEST(BackgroundWork, KeepsInputFromTheWindowButNotFromWhatIsAllowed) {
  QWidget window;
  auto* layout = new QVBoxLayout(&window);
  auto* edit = new QLineEdit(&window);
  auto* button = new QPushButton("Cancel", &window);
  layout->addWidget(edit);
  layout->addWidget(button);
  window.show();
  static_cast<void>(QTest::qWaitForWindowExposed(&window));
  TBackgroundWork background(window);
  background.Allow(button);
  std::atomic<bool> wasPressed = false;
  QObject::connect(button, &QPushButton::clicked, [&wasPressed] { wasPressed = true; });
  QTimer::singleShot(0, &window, [&] {
    QTest::keyClicks(edit, "abc");
    QTest::mouseClick(button, Qt::LeftButton);
  });
  background.Run([&wasPressed] {
    for (int i = 0; i < 500 && !wasPressed; ++i)
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
  });
  EXPECT_TRUE(wasPressed);
  EXPECT_EQ(edit->text(), "");
  QTest::keyClicks(edit, "abc");
  EXPECT_EQ(edit->text(), "abc");
}

TEST(BackgroundWork, OfAPartOfAWindowLeavesTheRestOfItAlone) {
  QWidget window;
  auto* layout = new QVBoxLayout(&window);
  auto* part = new QWidget(&window);
  auto* own = new QLineEdit(part);
  auto* foreign = new QLineEdit(&window);
  layout->addWidget(part);
  layout->addWidget(foreign);
  window.show();
  static_cast<void>(QTest::qWaitForWindowExposed(&window));
  TBackgroundWork background(*part);
  std::atomic<bool> wasTyped = false;
  QTimer::singleShot(0, &window, [&] {
    QTest::keyClicks(own, "abc");
    QTest::keyClicks(foreign, "abc");
    wasTyped = true;
  });
  background.Run([&wasTyped] {
    for (int i = 0; i < 500 && !wasTyped; ++i)
      std::this_thread::sleep_for(std::chrono::milliseconds(10));
  });
  EXPECT_EQ(own->text(), "");
  EXPECT_EQ(foreign->text(), "abc");
}

} // namespace
} // namespace workbench
