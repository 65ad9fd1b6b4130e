// Stem and leaf: stems, divider, leaves by text, font fitting and key.

#include "ChartTestSupport.h"

#include "charts/StemAndLeaf.h"
#include "common/RunTimeError.h"

#include <gtest/gtest.h>

using namespace zrt;
using namespace charttest;

TEST(StemRows, LeavesFollowTheTextOfEachValue)
{
    std::vector<int> v{52, 23, 31, 27, 45, 48};
    const auto rows = StemRows(v);
    ASSERT_EQ(rows.size(), 4u); // stems 2 to 5
    EXPECT_EQ(rows[0].stem, "2");
    EXPECT_EQ(rows[0].leaves, " 3 7");
    EXPECT_EQ(rows[1].leaves, " 1");
    EXPECT_EQ(rows[3].leaves, " 2");
    EXPECT_EQ(v.front(), 23); // sorted in place

    // Three-digit values: the low stem is one character, the high one two; 132 sits on stem 13
    // only, as there is no stem 1 here.
    std::vector<int> wide{45, 132};
    const auto w = StemRows(wide);
    ASSERT_EQ(w.size(), 10u); // 4 to 13
    EXPECT_EQ(w.back().stem, "13");
    EXPECT_EQ(w.back().leaves, " 2");

    // With stem 1 present a three-digit value is listed twice.
    std::vector<int> both{100, 105, 123};
    const auto b = StemRows(both);
    ASSERT_EQ(b.size(), 12u);
    EXPECT_EQ(b[0].leaves, " 00 05 23");
    EXPECT_EQ(b[9].leaves, " 0 5");
    EXPECT_EQ(b[11].leaves, " 3");

    // 0.05 and 0.12: stems run from 5 down to 1, so there are no rows to size.
    std::vector<int> backwards{5, 12};
    EXPECT_THROW(StemRows(backwards), RunTimeError);
}

// Surface 400 x 300, times 0.23 0.27 0.31 0.45 0.48 0.52: stems 2 to 5, r = 4, g = 34.
// Stems at x = 40, y = 30, 64, 98, 132. Divider at CLng(40 + 25.5) = 66 from 30 to 166.
// Leaves at CLng(70.5) = 70 in maroon; the key at y = 270 ending 30 pixels from the right.
TEST(StemAndLeaf, StemsDividerLeavesAndKey)
{
    const std::vector<std::string> items{"0.23", "0.27", "0.31", "0.45", "0.48", "0.52"};
    PictureBox s;
    Prepare(s, 400, 300);
    DrawStemAndLeaf(s, items, 6, true);

    EXPECT_EQ(s.PixelAt(66, 100), Colour(Black));
    EXPECT_EQ(s.PixelAt(66, 31), Colour(Black));
    EXPECT_EQ(s.PixelAt(66, 172), Colour(White));
    for (int i = 0; i < 4; ++i) {
        EXPECT_GT(CountIn(s, QRect(40, 30 + 34 * i, 22, 34), Black), 0) << "stem " << i;
        EXPECT_GT(CountIn(s, QRect(70, 30 + 34 * i, 200, 34), Maroon), 0) << "leaves " << i;
    }
    EXPECT_EQ(CountIn(s, QRect(0, 0, 69, 300), Maroon), 0);
    const QRect key = BoundsOf(s, QRect(0, 265, 400, 35), Maroon);
    ASSERT_FALSE(key.isNull());
    EXPECT_GE(key.top(), 270);
    EXPECT_LE(key.right(), 400 - 30);
    EXPECT_GT(key.right(), 400 - 45);
    EXPECT_EQ(s.ScaleMode(), PictureBox::Twips);
}

TEST(StemAndLeaf, LeavesAndKeyOnlyWhenAsked)
{
    PictureBox s;
    Prepare(s, 400, 300);
    DrawStemAndLeaf(s, {"0.23", "0.27", "0.31"}, 3, false);
    EXPECT_EQ(CountIn(s, QRect(0, 0, 400, 300), Maroon), 0);
    EXPECT_GT(CountIn(s, QRect(40, 30, 22, 34), Black), 0);
}

// Twelve leaves on one stem do not fit at g = 34 on a surface 200 wide; the font shrinks, so
// a leaf digit stands well under the 24 or so pixels it would have at 34.
TEST(StemAndLeaf, LongRowsShrinkTheLeafFont)
{
    std::vector<std::string> items;
    for (int i = 0; i < 12; ++i)
        items.push_back("0.2" + std::to_string(i % 10));
    PictureBox s;
    Prepare(s, 200, 300);
    DrawStemAndLeaf(s, items, 12, true);
    const QRect leaves = BoundsOf(s, QRect(0, 30, 200, 34), Maroon);
    ASSERT_FALSE(leaves.isNull());
    EXPECT_LT(leaves.height(), 20);
    EXPECT_GE(leaves.height(), 8); // not below the 12-pixel floor
}

TEST(StemAndLeaf, EmptyListLeavesTheSurfaceCleared)
{
    PictureBox s;
    Prepare(s, 200, 100);
    s.MoveToEx(5, 5);
    s.LineTo(50, 50);
    DrawStemAndLeaf(s, {}, 0, true);
    EXPECT_EQ(InkIn(s, QRect(0, 0, 200, 100)), 0);
}

TEST(StemAndLeaf, AudioListLongerThanTheVisualOneIsASubscriptFailure)
{
    PictureBox s;
    Prepare(s, 200, 100);
    try {
        DrawStemAndLeaf(s, {"0.23", "0.25", "0.27"}, 2, true);
        FAIL();
    } catch (const RunTimeError &e) {
        EXPECT_EQ(e.number(), ErrSubscript);
    }
}
