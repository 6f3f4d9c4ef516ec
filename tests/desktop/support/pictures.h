// Pictures of widgets, for people to look at.
#pragma once

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QEvent>
#include <QImage>
#include <QWidget>
#include <set>

namespace workbench::testing {

/// Paints the widget; the picture has to have more colours than an empty one. It is kept when the
/// environment variable names a directory.
inline QImage KeepPicture(QWidget& widget, const QString& name, const char* directoryVariable) {
  constexpr std::size_t ColoursOfAnEmptyOne = 10;                     // a frame and a little text
  QCoreApplication::sendPostedEvents(nullptr, QEvent::LayoutRequest); // of texts just set
  QImage image = widget.grab().toImage();
  std::set<QRgb> colours;
  for (int y = 0; y < image.height(); y += 2) {
    for (int x = 0; x < image.width(); x += 2)
      colours.insert(image.pixel(x, y));
  }
  EXPECT_GT(colours.size(), ColoursOfAnEmptyOne) << name.toStdString();
  const QString directory = qEnvironmentVariable(directoryVariable);
  if (!directory.isEmpty()) {
    EXPECT_TRUE(image.save(directory + '/' + name + ".png")) << name.toStdString();
  }
  return image;
}

} // namespace workbench::testing
