// The label routine and the two measurements.

#include "ChartTestSupport.h"

#include "charts/ChartFrame.h"
#include "charts/Drawings.h"

#include <QFontInfo>
#include <gtest/gtest.h>

using namespace zrt;
using namespace charttest;

TEST(Drawings, TheFaceAreilIsAnArialMetricFamily)
{
    const QString family = Drawings::LabelFamily();
    EXPECT_TRUE(family == "Arial" || family == "Liberation Sans" || family == "Arimo") << family.toStdString();
    EXPECT_EQ(QFontInfo(Drawings::LabelFont(20, 0, 1, false, false, 0)).family(), family);
}

TEST(Drawings, NullDeviceDrawsNothing)
{
    EXPECT_EQ(Drawings::DrawLabel(nullptr, 0, 0, "x", true, 0, 0, 0, 0, 20), 0);
}

TEST(Drawings, LabelStandsRightOfAndBelowItsPositionWithinItsMeasuredWidth)
{
    PictureBox s;
    Prepare(s, 300, 80);
    EXPECT_EQ(Drawings::DrawLabel(&s, 40, 20, "Frequency", true, RGB(0, 0, 255), 0, 0, 0, 20), 1);
    const QRect ink = BoundsOf(s, QRect(0, 0, 300, 80), RGB(0, 0, 255));
    ASSERT_FALSE(ink.isNull());
    EXPECT_GE(ink.left(), 40);
    EXPECT_GE(ink.top(), 20);
    EXPECT_LE(ink.right(), 40 + Drawings::MeasureFont(20, 0, "Frequency"));
    EXPECT_LE(ink.bottom(), 20 + 24); // a 20-pixel face with its descent
}

TEST(Drawings, AmpersandUnderlinesTheNextLetterAndDoubledStandsForItself)
{
    PictureBox plain, prefixed, doubled;
    for (PictureBox *s : {&plain, &prefixed, &doubled})
        Prepare(*s, 200, 60);
    Drawings::DrawLabel(&plain, 10, 10, "AB", true, 0, 0, 0, 0, 24);
    Drawings::DrawLabel(&prefixed, 10, 10, "A&B", true, 0, 0, 0, 0, 24);
    Drawings::DrawLabel(&doubled, 10, 10, "A&&B", true, 0, 0, 0, 0, 24);
    const QRect all(0, 0, 200, 60);
    const QRect a = BoundsOf(plain, all, Black), b = BoundsOf(prefixed, all, Black), c = BoundsOf(doubled, all, Black);
    EXPECT_GT(b.bottom(), a.bottom()); // the underline under B
    EXPECT_NEAR(b.width(), a.width(), 3); // the underline may reach a pixel past the letter
    EXPECT_GT(c.width(), a.width() + 5); // a real "&" between the letters
}

TEST(Drawings, DisabledLabelIsEmbossedAndIgnoresItsColour)
{
    PictureBox s;
    Prepare(s, 200, 60);
    s.SetBackColor(RGB(40, 90, 140)); // differs from both 3D colours
    Drawings::DrawLabel(&s, 10, 10, "Disabled", false, RGB(255, 0, 0), 0, 0, 0, 24);
    const QRect all(0, 0, 200, 60);
    EXPECT_EQ(CountIn(s, all, RGB(255, 0, 0)), 0);
    const QRect light = BoundsOf(s, all, ToOleColor(TranslateColor(SystemColor(20))));
    const QRect shadow = BoundsOf(s, all, ToOleColor(TranslateColor(SystemColor(16))));
    ASSERT_FALSE(light.isNull());
    ASSERT_FALSE(shadow.isNull());
    EXPECT_EQ(light.bottomRight(), shadow.bottomRight() + QPoint(1, 1)); // highlight one pixel down-right
}

TEST(Drawings, MeasurementsFollowHeightWidthAndTheSelectedFont)
{
    EXPECT_EQ(Drawings::MeasureFont(20, 0, ""), 1);
    EXPECT_LT(Drawings::MeasureFont(12, 0, "20<t<30"), Drawings::MeasureFont(28, 0, "20<t<30"));
    EXPECT_GT(Drawings::MeasureFont(20, 20, "abc"), Drawings::MeasureFont(20, 0, "abc"));

    PictureBox s;
    s.SelectFont(Drawings::LabelFont(20, 0, 1, false, false, 0));
    EXPECT_EQ(Drawings::MeasureLabel(s, "Mid (t)"), Drawings::MeasureFont(20, 0, "Mid (t)"));
    EXPECT_GT(Drawings::MeasureLabel(s, "a&&b"), Drawings::MeasureLabel(s, "a&b")); // no prefix handling
}

// A logical font's positive height is its character cell: the face chosen fills it with its
// ascent plus descent, the largest size that does, so rows of labels in height g just touch.
TEST(Drawings, HeightIsTheCellOfAscentAndDescent)
{
    static const QImage reference(1, 1, QImage::Format_RGB32);
    for (int height = 10; height <= 50; ++height) {
        QFont font = Drawings::LabelFont(height, 0, 0, false, false, 0);
        const QFontMetrics metrics(font, &reference);
        EXPECT_LE(metrics.ascent() + metrics.descent(), height) << height;
        EXPECT_GE(metrics.ascent() + metrics.descent(), height - 1) << height;
        font.setPixelSize(font.pixelSize() + 1);
        const QFontMetrics larger(font, &reference);
        EXPECT_GT(larger.ascent() + larger.descent(), height) << height;
    }
    EXPECT_EQ(Drawings::LabelFont(-20, 0, 0, false, false, 0).pixelSize(), 20); // the letters' own size
    EXPECT_LT(Drawings::LabelFont(24, 0, 0, false, false, 0).pixelSize(), 24);
}

TEST(Drawings, LabelsAreSpacedByOneTwoFiveSteps)
{
    EXPECT_EQ(LabelEvery(30, 20), 1);
    EXPECT_EQ(LabelEvery(15, 22), 2);
    EXPECT_EQ(LabelEvery(2, 16), 10);
    EXPECT_EQ(LabelEvery(0.17, 16), 100);
    EXPECT_EQ(LabelEvery(4, 16), 5);
}
