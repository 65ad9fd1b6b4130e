// The retained surface: clearing, reading back, scale modes, pens, ellipses and the border fill.

#include "ChartTestSupport.h"
#include "ScaledScreen.h"

#include "common/RunTimeError.h"

#include <QSignalSpy>
#include <gtest/gtest.h>

using namespace zrt;
using namespace charttest;

namespace {

void Square(PictureBox &s, int left, int top, int right, int bottom)
{
    s.MoveToEx(left, top);
    s.LineTo(right, top);
    s.LineTo(right, bottom);
    s.LineTo(left, bottom);
    s.LineTo(left, top);
}

class Surface : public ::testing::Test {
protected:
    void SetUp() override
    {
        Prepare(s, 60, 40);
        s.SetForeColor(Black);
    }
    PictureBox s;
};

} // namespace

TEST_F(Surface, ClsPaintsTheBackgroundAndPointReadsInTheScaleMode)
{
    s.SetBackColor(RGB(10, 20, 30));
    EXPECT_EQ(s.PixelAt(0, 0), Colour(RGB(10, 20, 30)));
    EXPECT_EQ(s.PixelAt(59, 39), Colour(RGB(10, 20, 30)));
    EXPECT_EQ(s.PixelAt(60, 0), -1);
    EXPECT_EQ(s.PixelAt(-1, 5), -1);

    s.MoveToEx(12, 7);
    s.LineTo(12, 7); // a single point
    EXPECT_EQ(s.ScaleMode(), PictureBox::Twips);
    EXPECT_EQ(s.Point(12 * 15 + 7, 7 * 15 + 14), Colour(Black)); // anywhere inside the pixel's twips
    EXPECT_EQ(s.ScaleWidth(), 60 * 15);
    s.SetScaleMode(PictureBox::Pixels);
    EXPECT_EQ(s.Point(12, 7), Colour(Black));
    EXPECT_EQ(s.ScaleHeight(), 40);
    EXPECT_THROW(s.SetScaleMode(2), RunTimeError);
}

TEST_F(Surface, OnePixelLinesAreExactAndWiderPensAreCentred)
{
    s.MoveToEx(5, 5);
    s.LineTo(15, 5);
    EXPECT_EQ(CountIn(s, QRect(0, 0, 60, 40), Black), 11); // both ends, no antialiasing
    EXPECT_EQ(s.CurrentPosition(), QPoint(15, 5));

    s.Cls();
    s.SetDrawWidth(3);
    s.MoveToEx(30, 10);
    s.LineTo(30, 30);
    for (int x : {29, 30, 31})
        EXPECT_EQ(s.PixelAt(x, 20), Colour(Black)) << x;
    EXPECT_EQ(s.PixelAt(28, 20), Colour(White));
    EXPECT_EQ(s.PixelAt(32, 20), Colour(White));
}

TEST_F(Surface, DottedPenLeavesGaps)
{
    s.SetDrawStyle(2);
    s.MoveToEx(0, 10);
    s.LineTo(59, 10);
    const int dots = CountIn(s, QRect(0, 10, 60, 1), Black);
    EXPECT_GT(dots, 5);
    EXPECT_LT(dots, 50);
}

TEST_F(Surface, BorderFillStaysInsideTheShape)
{
    Square(s, 10, 10, 30, 30);
    s.SetFillColor(RGB(255, 0, 0));
    s.SetFillStyle(PictureBox::FillSolid);
    EXPECT_TRUE(s.ExtFloodFill(20, 20, Black, PictureBox::FloodFillBorder));
    EXPECT_EQ(s.PixelAt(11, 11), Colour(RGB(255, 0, 0)));
    EXPECT_EQ(s.PixelAt(29, 29), Colour(RGB(255, 0, 0)));
    EXPECT_EQ(s.PixelAt(10, 20), Colour(Black));
    EXPECT_EQ(s.PixelAt(9, 20), Colour(White));
    EXPECT_EQ(CountIn(s, QRect(0, 0, 60, 40), RGB(255, 0, 0)), 19 * 19);
}

TEST_F(Surface, BorderFillFromOutsideFloodsTheBackgroundUpToTheLines)
{
    Square(s, 10, 10, 30, 30);
    s.SetFillColor(RGB(0, 255, 0));
    s.SetFillStyle(PictureBox::FillSolid);
    EXPECT_TRUE(s.ExtFloodFill(2, 2, Black, PictureBox::FloodFillBorder));
    EXPECT_EQ(s.PixelAt(59, 39), Colour(RGB(0, 255, 0)));
    EXPECT_EQ(s.PixelAt(20, 20), Colour(White)); // the inside is not reached
    EXPECT_FALSE(s.ExtFloodFill(10, 15, Black, PictureBox::FloodFillBorder)); // seed on the border
}

TEST_F(Surface, BorderFillPassesThroughPixelsThatAlreadyHaveTheFillColour)
{
    Square(s, 10, 10, 30, 30);
    s.SetForeColor(RGB(255, 0, 0));
    s.MoveToEx(20, 11);
    s.LineTo(20, 29); // a red wall inside: it is not a border, so the fill goes on past it
    s.SetFillColor(RGB(255, 0, 0));
    s.SetFillStyle(PictureBox::FillSolid);
    EXPECT_TRUE(s.ExtFloodFill(15, 20, Black, PictureBox::FloodFillBorder));
    EXPECT_EQ(s.PixelAt(25, 20), Colour(RGB(255, 0, 0)));
    EXPECT_EQ(s.PixelAt(35, 20), Colour(White));
}

TEST_F(Surface, SurfaceFillCoversTheSeedColourOnly)
{
    Square(s, 10, 10, 30, 30);
    s.SetFillColor(RGB(0, 0, 255));
    s.SetFillStyle(PictureBox::FillSolid);
    EXPECT_TRUE(s.ExtFloodFill(10, 10, Black, PictureBox::FloodFillSurface));
    EXPECT_EQ(s.PixelAt(30, 30), Colour(RGB(0, 0, 255))); // the whole outline
    EXPECT_EQ(s.PixelAt(20, 20), Colour(White));
}

TEST_F(Surface, EllipseStaysInsideItsBoxAndTakesTheBrush)
{
    s.SetFillColor(RGB(0, 255, 0));
    s.SetFillStyle(PictureBox::FillSolid);
    s.Ellipse(10, 10, 16, 16);
    const QRect ink = BoundsOf(s, QRect(0, 0, 60, 40), Black);
    EXPECT_EQ(ink, QRect(QPoint(10, 10), QPoint(15, 15))); // right and bottom stay outside
    EXPECT_EQ(s.PixelAt(12, 12), Colour(RGB(0, 255, 0)));
}

TEST_F(Surface, ResizeKeepsTheDrawingAndSignals)
{
    s.MoveToEx(3, 3);
    s.LineTo(3, 3);
    s.show();
    QSignalSpy spy(&s, &PictureBox::Resize);
    s.resize(80, 50);
    EXPECT_GE(spy.count(), 1);
    EXPECT_EQ(s.PixelAt(3, 3), Colour(Black));
    EXPECT_EQ(s.PixelAt(79, 49), Colour(White));
}

TEST_F(Surface, PaintShowsTheRetainedImage)
{
    s.SetForeColor(RGB(200, 0, 0));
    s.SetDrawWidth(3);
    s.MoveToEx(5, 20);
    s.LineTo(50, 20);
    const QImage shown = s.grab().toImage();
    EXPECT_EQ(QColor(shown.pixel(25, 20)), QColor(200, 0, 0));
    EXPECT_EQ(QColor(shown.pixel(25, 30)), QColor(255, 255, 255));
}

TEST_F(Surface, BorderNarrowsTheClientButNotTheOuterSize)
{
    s.SetBorderStyle(1);
    EXPECT_EQ(s.WindowRectSize(), QSize(60, 40));
    EXPECT_EQ(s.ClientSize(), QSize(56, 36));
    EXPECT_EQ(s.ScaleWidth(), 56 * 15);
    EXPECT_EQ(s.PixelAt(56, 0), -1);
}

TEST_F(Surface, BadPropertyValuesAreRunTimeErrors)
{
    EXPECT_THROW(s.SetDrawWidth(0), RunTimeError);
    EXPECT_THROW(s.SetDrawStyle(7), RunTimeError);
    EXPECT_THROW(s.SetFillStyle(-1), RunTimeError);
}

// ---- on a screen scaled to 200 % -------------------------------------------------------------

namespace {

class SurfaceHighDpi : public ScaledScreenTest {
protected:
    void SetUp() override
    {
        ScaledScreenTest::SetUp();
        if (IsSkipped() || HasFatalFailure())
            return;
        Prepare(s, 60, 40);
        s.SetForeColor(Black);
    }
    bool BlackAt(int x, int y) const { return (s.Image().pixel(x, y) & 0xFFFFFF) == 0; }
    PictureBox s;
};

} // namespace

TEST_F(SurfaceHighDpi, OnePixelLinesAreTwoDevicePixelsWideAndPointReadsLogicalPixels)
{
    EXPECT_EQ(s.Image().devicePixelRatio(), 2.0);
    EXPECT_EQ(s.Image().size(), QSize(120, 80));
    s.MoveToEx(5, 20);
    s.LineTo(50, 20);
    s.MoveToEx(30, 5);
    s.LineTo(30, 35);
    int rows = 0;
    for (int y = 30; y < 50; ++y)
        rows += BlackAt(20, y); // across the level line, at logical x = 10
    EXPECT_EQ(rows, 2);
    int columns = 0;
    for (int x = 50; x < 70; ++x)
        columns += BlackAt(x, 20); // across the upright one, at logical y = 10
    EXPECT_EQ(columns, 2);
    s.SetScaleMode(PictureBox::Pixels);
    EXPECT_EQ(s.Point(10, 20), Colour(Black));
    EXPECT_EQ(s.Point(30, 10), Colour(Black));
    EXPECT_EQ(s.Point(10, 18), Colour(White));
    EXPECT_EQ(s.Point(10, 22), Colour(White));
    EXPECT_EQ(s.PixelAt(59, 39), Colour(White));
    EXPECT_EQ(s.PixelAt(60, 0), -1) << "the edge is the logical one";

    // What the screen shows is the image, pixel for pixel.
    const QImage shown = Rendered(s);
    for (const QPoint at : {QPoint(20, 40), QPoint(20, 41), QPoint(60, 20), QPoint(61, 20), QPoint(2, 2)})
        EXPECT_EQ(shown.pixel(at) & 0xFFFFFF, s.Image().pixel(at) & 0xFFFFFF) << at.x() << "," << at.y();
}

TEST_F(SurfaceHighDpi, BorderFillSeedsAtTheLogicalPixel)
{
    s.Ellipse(10, 10, 50, 35);
    s.SetFillColor(Maroon);
    s.SetFillStyle(PictureBox::FillSolid);
    // Taken as a device pixel, (25, 12) would lie outside the ellipse and flood the ground.
    EXPECT_TRUE(s.ExtFloodFill(25, 12, Black, PictureBox::FloodFillBorder));
    EXPECT_EQ(s.PixelAt(25, 12), Colour(Maroon));
    EXPECT_EQ(s.PixelAt(30, 22), Colour(Maroon));
    EXPECT_EQ(s.PixelAt(2, 2), Colour(White));
    EXPECT_EQ(s.PixelAt(57, 37), Colour(White));
}
