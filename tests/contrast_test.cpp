#include "platform/contrast.h"

#include <gtest/gtest.h>

#include <QColor>

namespace {

using platform::readable_on;

TEST(Contrast, LightensOnlyWhatADarkGroundSwallows) {
  const QColor dark(30, 30, 30);
  const QColor readable(200, 160, 50);
  for (const QColor& ground : {QColor(Qt::white), QColor(239, 239, 239), dark})
    EXPECT_EQ(readable_on(ground, readable), readable);
  for (int grey = 0; grey < 256; ++grey)
    EXPECT_TRUE(readable_on({grey, grey, grey}, {grey, grey, grey}).isValid()) << grey;
  const QColor found = readable_on(dark, QColor(0, 0, 255));
  EXPECT_GE(found.red(), 100);
  EXPECT_LT(found.red(), 200) << "it is to stay blue";
  EXPECT_EQ(found.blue(), 255);
}

}  // namespace
