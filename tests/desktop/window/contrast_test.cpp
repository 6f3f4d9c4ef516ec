#include "package/view/button_images.h"
#include "workbench/desktop/list/row_state.h"
#include "workbench/desktop/window/appearance.h"
#include "workbench/desktop/window/contrast.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QImage>
#include <QLineEdit>
#include <QPainter>
#include <QPalette>
#include <QPushButton>
#include <QRegularExpression>
#include <QSpinBox>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <string>
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

TEST_P(Appearance, EverySignStandsOutFromWindowsAndLists) {
  const QPalette palette = QApplication::palette();
  const auto check = [&](const QColor& color, const std::string& what) {
    for (const auto role : {QPalette::Window, QPalette::Base, QPalette::AlternateBase})
      EXPECT_GE(ContrastRatio(color, palette.color(role)), FrameContrast)
          << what << " on " << palette.color(role).name().toStdString();
  };
  const QRegularExpression colour(QStringLiteral("#[0-9a-f]{6}"));
  int image = 0;
  for (const std::string_view svg : deployment::ButtonImages()) {
    auto found =
        colour.globalMatch(QString::fromUtf8(svg.data(), static_cast<qsizetype>(svg.size())));
    while (found.hasNext())
      check(QColor(found.next().captured()), "image " + std::to_string(image));
    ++image;
  }
  for (const TRowState state : RowStates)
    check(StateColor(state), StateWord(state).toStdString());
}

TEST_P(Appearance, TheFramesOfFieldsAndButtonsAreSeen) {
  QWidget window;
  window.resize(200, 200);
  const QList<QWidget*> fields{new QLineEdit(&window), new QComboBox(&window),
                               new QSpinBox(&window), new QPushButton(&window)};
  for (int i = 0; i < fields.size(); ++i)
    fields[i]->setGeometry(20, 10 + 40 * i, 120, 28);
  const QImage image = window.grab().toImage();
  const QPalette palette = QApplication::palette();
  for (const QWidget* field : fields) {
    const QPoint middleOfTop(field->geometry().center().x(), field->geometry().top());
    EXPECT_GE(ContrastRatio(image.pixelColor(middleOfTop), palette.color(QPalette::Window)),
              FrameContrast - 0.1)
        << field->metaObject()->className();
  }
}

INSTANTIATE_TEST_SUITE_P(Colours, Appearance,
                         ::testing::Values(TAppearance::Light, TAppearance::Dark));

} // namespace
} // namespace workbench
