#include "platform/contrast.h"

#include <gtest/gtest.h>

#include <QColor>

namespace {

using platform::readable_on;

TEST(Contrast, LeavesColoursOnALightGroundAsTheyAre) {
  const QColor given(200, 160, 50);
  EXPECT_EQ(readable_on(Qt::white, given), given);
  EXPECT_EQ(readable_on(QColor(239, 239, 239), given), given);
}

TEST(Contrast, LightensWhatADarkGroundSwallows) {
  const QColor ground(30, 30, 30);
  const QColor found = readable_on(ground, QColor(0, 0, 255));
  EXPECT_GE(found.red(), 100);
  EXPECT_LT(found.red(), 200) << "it is to stay blue";
  EXPECT_EQ(found.blue(), 255);
  const QColor readable_already(200, 160, 50);
  EXPECT_EQ(readable_on(ground, readable_already), readable_already);
}

}  // namespace
