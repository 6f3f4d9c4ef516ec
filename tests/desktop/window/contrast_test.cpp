#include "workbench/desktop/window/appearance.h"
#include "workbench/desktop/window/contrast.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QPalette>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <utility>
#include <vector>

namespace workbench {
namespace {

TEST(Contrast, IsOneForTheSameColourAndTwentyOneForBlackOnWhite) {
  EXPECT_DOUBLE_EQ(ContrastRatio(Qt::red, Qt::red), 1);
  EXPECT_NEAR(ContrastRatio(Qt::black, Qt::white), 21, 0.01);
  EXPECT_NEAR(ContrastRatio(QColor(0x76, 0x76, 0x76), Qt::white), 4.54, 0.01);
}

TEST(Contrast, IsReachedByMixing) {
  const QColor mixed = WithContrast(Qt::white, Qt::black, Qt::white, 3);
  EXPECT_GE(ContrastRatio(mixed, Qt::white), 3);
  EXPECT_LT(ContrastRatio(mixed, Qt::white), 4);
  EXPECT_EQ(WithContrast(Qt::black, Qt::white, Qt::white, 3), QColor(Qt::black));
}

class Appearance : public ::testing::TestWithParam<TAppearance> {
protected:
  void SetUp() override { SetAppearance(GetParam()); }
};

TEST_P(Appearance, TextStandsOutFromItsBackground) {
  const std::vector<std::pair<QPalette::ColorRole, QPalette::ColorRole>> pairs{
      {QPalette::Text, QPalette::Base},
      {QPalette::Text, QPalette::AlternateBase},
      {QPalette::PlaceholderText, QPalette::Base},
      {QPalette::PlaceholderText, QPalette::AlternateBase},
      {QPalette::WindowText, QPalette::Window},
      {QPalette::ButtonText, QPalette::Button},
      {QPalette::ToolTipText, QPalette::ToolTipBase},
      {QPalette::HighlightedText, QPalette::Highlight}};
  const QPalette palette = QApplication::palette();
  for (const auto& [text, background] : pairs)
    EXPECT_GE(ContrastRatio(palette.color(text), palette.color(background)), TextContrast)
        << text << " on " << background;
}

TEST_P(Appearance, TheFrameOfABoxIsSeenTickedOrNot) {
  const QPalette palette = QApplication::palette();
  for (const auto state : {QStyle::State_Off, QStyle::State_On}) {
    QImage image(40, 40, QImage::Format_RGB32);
    image.fill(palette.color(QPalette::Base));
    QPainter painter(&image);
    QStyleOptionViewItem box;
    box.rect = QRect(10, 10, 16, 16);
    box.palette = palette;
    box.state = state | QStyle::State_Enabled;
    QApplication::style()->drawPrimitive(QStyle::PE_IndicatorItemViewItemCheck, &box, &painter);
    painter.end();
    for (const QPoint place : {QPoint(18, 10), QPoint(10, 18), QPoint(25, 18), QPoint(18, 25)})
      EXPECT_GE(ContrastRatio(image.pixelColor(place), palette.color(QPalette::Base)),
                FrameContrast);
  }
}

INSTANTIATE_TEST_SUITE_P(Colours, Appearance,
                         ::testing::Values(TAppearance::Light, TAppearance::Dark));

} // namespace
} // namespace workbench
