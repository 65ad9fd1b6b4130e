#include "controls/Check.h"

#include "ScaledScreen.h"

#include <QLabel>
#include <QSet>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

using namespace zrt;
using Look = Check::Look;

namespace {

class CheckTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        box.resize(140, 20);
        box.setCaption("Show Quartiles");
        box.setPointerProbe([this] { return under; });
    }

    void click(QWidget *where, Qt::MouseButton button = Qt::LeftButton)
    {
        QTest::mouseClick(where, button, {}, QPoint(4, 4));
    }

    Check box;
    QWidget *under = nullptr;
};

} // namespace

TEST(CheckImages, TwelveCellsWithTheirNames)
{
    EXPECT_EQ(Check::ImageName(0, Look::Idle), "IdleNoValue");
    EXPECT_EQ(Check::ImageName(0, Look::Disabled), "DisabledNoValue");
    EXPECT_EQ(Check::ImageName(1, Look::Pushed), "PushedChecked");
    EXPECT_EQ(Check::ImageName(1, Look::Disabled), "CheckedDisabled");
    EXPECT_EQ(Check::ImageName(2, Look::Mouseover), "MouseoverGreyed");
    EXPECT_EQ(Check::ImageName(2, Look::Disabled), "DisabledGrey");
    EXPECT_TRUE(Check::ImageName(3, Look::Idle).isEmpty());

    QSet<QByteArray> distinct;
    for (int value = 0; value < 3; ++value)
        for (Look look : {Look::Idle, Look::Pushed, Look::Mouseover, Look::Disabled}) {
            const QImage image = Check::BoxImage(value, look);
            EXPECT_EQ(image.size(), QSize(Check::BoxSize, Check::BoxSize));
            distinct.insert(QByteArray(reinterpret_cast<const char *>(image.constBits()),
                                       static_cast<int>(image.sizeInBytes())));
        }
    EXPECT_EQ(distinct.size(), 12) << "every cell looks different";
}

TEST(CheckImages, MarksOfTheThreeValues)
{
    const QPoint tickFoot(5, 8), centre(6, 6);
    const QColor empty = Check::BoxImage(0, Look::Idle).pixelColor(tickFoot);
    const QColor ticked = Check::BoxImage(1, Look::Idle).pixelColor(tickFoot);
    EXPECT_GT(empty.lightness(), 200);
    EXPECT_EQ(ticked, QColor(33, 161, 33));
    EXPECT_EQ(Check::BoxImage(2, Look::Idle).pixelColor(centre), QColor(128, 128, 128));
    EXPECT_EQ(Check::BoxImage(1, Look::Disabled).pixelColor(tickFoot), QColor(202, 200, 187));
    EXPECT_EQ(Check::BoxImage(0, Look::Disabled).pixelColor(0, 0), QColor(202, 200, 187));
}

TEST(CheckImages, AtARatioOfTwoTheBoxHasTwiceThePixelsAndItsLinesTwoWide)
{
    const QImage image = Check::BoxImage(1, Look::Idle, 2.0);
    EXPECT_EQ(image.size(), QSize(2 * Check::BoxSize, 2 * Check::BoxSize));
    EXPECT_EQ(image.devicePixelRatio(), 2.0);
    const QColor border = Check::BoxImage(1, Look::Idle).pixelColor(0, 6);
    for (const int y : {8, 12, 16}) {
        EXPECT_EQ(image.pixelColor(0, y), border) << y;
        EXPECT_EQ(image.pixelColor(1, y), border) << y;
        EXPECT_NE(image.pixelColor(2, y), border) << y;
        EXPECT_EQ(image.pixelColor(25, y), border) << y;
        EXPECT_EQ(image.pixelColor(24, y), border) << y;
        EXPECT_NE(image.pixelColor(23, y), border) << y;
    }
    // The tick's foot, one logical pixel, is a block of four.
    for (const QPoint at : {QPoint(10, 16), QPoint(11, 16), QPoint(10, 17), QPoint(11, 17)})
        EXPECT_EQ(image.pixelColor(at), QColor(33, 161, 33)) << at.x() << "," << at.y();
}

TEST_F(CheckTest, ValueAndEnabledPickTheImage)
{
    EXPECT_EQ(box.CurrentImage(), "IdleNoValue");
    box.setValue(2);
    EXPECT_EQ(box.CurrentImage(), "IdleGreyed");
    EXPECT_EQ(box.CurrentPicture().convertToFormat(QImage::Format_ARGB32), Check::BoxImage(2, Look::Idle));
    box.setEnabled(false);
    EXPECT_EQ(box.CurrentImage(), "DisabledGrey");
    box.setValue(1);
    EXPECT_EQ(box.CurrentImage(), "CheckedDisabled");
    box.setEnabled(true);
    EXPECT_EQ(box.CurrentImage(), "IdleChecked");
}

TEST_F(CheckTest, ValueMovesOnThePressAndClickComesWithTheRelease)
{
    QSignalSpy downs(&box, &Check::MouseDown);
    QSignalSpy clicks(&box, &Check::Click);
    QSignalSpy pictureClicks(&box, &Check::PictureClick);
    int valueAtClick = -1;
    QObject::connect(&box, &Check::Click, &box, [&] { valueAtClick = box.Value(); });

    QTest::mousePress(box.Picture1(), Qt::LeftButton, {}, QPoint(4, 4));
    EXPECT_EQ(box.Value(), 1);
    EXPECT_EQ(box.CurrentImage(), "PushedNoValue") << "the pressed look of the value it had";
    EXPECT_EQ(downs.count(), 1);
    EXPECT_EQ(clicks.count(), 0);
    QTest::mouseRelease(box.Picture1(), Qt::LeftButton, {}, QPoint(4, 4));
    EXPECT_EQ(clicks.count(), 1);
    EXPECT_EQ(valueAtClick, 1);
    EXPECT_EQ(pictureClicks.count(), 1);

    box.setValue(2);
    click(box.Check1()); // the caption forwards its presses
    EXPECT_EQ(box.Value(), 0) << "greyed becomes clear";
    EXPECT_EQ(pictureClicks.count(), 1) << "only the picture raises its own click";
    click(box.Check1());
    EXPECT_EQ(box.Value(), 1);
    EXPECT_EQ(clicks.count(), 3);
}

TEST_F(CheckTest, RightButtonOnlyRaisesMouseDown)
{
    QSignalSpy downs(&box, &Check::MouseDown);
    QSignalSpy clicks(&box, &Check::Click);
    click(box.Picture1(), Qt::RightButton);
    EXPECT_EQ(box.Value(), 0);
    EXPECT_EQ(clicks.count(), 0);
    ASSERT_EQ(downs.count(), 1);
    EXPECT_EQ(downs.at(0).at(0).toInt(), 2);
    EXPECT_EQ(box.CurrentImage(), "IdleNoValue");
}

TEST_F(CheckTest, HoverIsKeptByPollingThePointer)
{
    under = box.Picture1();
    QEvent enter(QEvent::Enter);
    QCoreApplication::sendEvent(box.Check1(), &enter);
    EXPECT_TRUE(box.Hovering());
    EXPECT_EQ(box.CurrentImage(), "MouseoverNoValue");

    click(box.Picture1());
    EXPECT_TRUE(box.Hovering()) << "the release starts the poll again";
    EXPECT_EQ(box.CurrentImage(), "PushedNoValue") << "until the next poll";
    box.Timer1_Timer();
    EXPECT_EQ(box.CurrentImage(), "MouseoverChecked");

    under = box.Check1();
    box.Timer1_Timer();
    EXPECT_EQ(box.CurrentImage(), "MouseoverChecked");
    EXPECT_TRUE(box.Hovering());

    QWidget elsewhere;
    under = &elsewhere;
    box.Timer1_Timer();
    EXPECT_EQ(box.CurrentImage(), "IdleChecked");
    EXPECT_FALSE(box.Hovering()) << "the hover ends with the timer";
}

TEST_F(CheckTest, DisabledBoxIgnoresPointerAndButtons)
{
    QSignalSpy downs(&box, &Check::MouseDown);
    QSignalSpy clicks(&box, &Check::Click);
    box.setEnabled(false);
    under = box.Picture1();
    box.BoxMouseEnter();
    box.BoxMouseDown(1, 0, 4, 4);
    box.BoxMouseUp(1, 0, 4, 4);
    box.Timer1_Timer();
    EXPECT_EQ(box.Value(), 0);
    EXPECT_EQ(downs.count(), 0);
    EXPECT_EQ(clicks.count(), 0);
    EXPECT_FALSE(box.Hovering());
    EXPECT_EQ(box.CurrentImage(), "DisabledNoValue");
}

TEST_F(CheckTest, CaptionColourFollowsEnabled)
{
    QFont plain = box.font();
    plain.setStyleStrategy(QFont::NoAntialias);
    box.setFont(plain);
    box.setCaption("WWWW && MMMM");
    box.setForeColor(RGB(0, 0, 128));
    box.setDisabledColor(RGB(192, 0, 0));
    const auto captionHas = [&](QRgb colour) {
        const QImage image = box.grab().toImage();
        for (int y = 0; y < image.height(); ++y)
            for (int x = Check::BoxSize + 4; x < image.width(); ++x)
                if ((image.pixel(x, y) & 0xFFFFFF) == (colour & 0xFFFFFF))
                    return true;
        return false;
    };
    EXPECT_TRUE(captionHas(qRgb(0, 0, 128)));
    box.setEnabled(false);
    EXPECT_TRUE(captionHas(qRgb(192, 0, 0)));
    EXPECT_FALSE(captionHas(qRgb(0, 0, 128)));
}

TEST_F(CheckTest, PropertyBagWritesOnlyChanges)
{
    Check fresh;
    QVariantMap bag;
    fresh.WriteProperties(bag);
    EXPECT_TRUE(bag.isEmpty());

    fresh.setCaption("Compare visual && audio");
    fresh.setValue(1);
    fresh.setForeColor(RGB(255, 255, 255));
    fresh.setBackColor(RGB(255, 255, 255));
    fresh.WriteProperties(bag);
    EXPECT_EQ(bag.size(), 3);
    EXPECT_EQ(bag.value("Caption").toString(), "Compare visual && audio");

    Check copy;
    copy.ReadProperties(bag);
    EXPECT_EQ(copy.Value(), 1);
    EXPECT_EQ(copy.CurrentImage(), "IdleChecked");
    EXPECT_EQ(copy.Caption(), "Compare visual && audio");
    EXPECT_EQ(copy.ForeColor(), RGB(255, 255, 255));
    EXPECT_EQ(copy.DisabledColor(), RGB(192, 192, 192));
}

// ---- on a screen scaled to 200 % -------------------------------------------------------------

namespace {
class CheckHighDpi : public ScaledScreenTest {};
} // namespace

TEST_F(CheckHighDpi, TheBoxShowsAPictureOfTheScreensRatio)
{
    Check box;
    box.setValue(1);
    const QImage shown = box.CurrentPicture();
    EXPECT_EQ(shown.devicePixelRatio(), 2.0);
    EXPECT_EQ(shown.size(), QSize(2 * Check::BoxSize, 2 * Check::BoxSize));
}
