#include "controls/GlossButton.h"
#include <gtest/gtest.h>
TEST(GlossButton, Builds) { zrt::GlossButton b; EXPECT_EQ(b.Style(), 0); }
