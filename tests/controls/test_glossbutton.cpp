// The push button: faces checked by pixels at the places their geometry names, the window shape,
// the state table driven by events, the colour schemes and the property bag.
#include "common/RunTimeError.h"
#include "controls/GlossButton.h"

#include "ScaledScreen.h"

#include <QApplication>
#include <QEnterEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>
#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include <array>
#include <memory>

using namespace zrt;

namespace {

constexpr OleColor Back = RGB(10, 20, 30);

// A container with a colour of its own, as the program's pages have, holding one button.
struct Fixture {
    QWidget parent;
    GlossButton *button;
    explicit Fixture(int style = 0, int w = 100, int h = 30)
    {
        parent.setProperty("BackColor", QVariant::fromValue<quint32>(Back));
        button = new GlossButton(&parent);
        button->resize(w, h);
        button->setStyle(style);
        // Shown first, so that the pending resize and show (which paint the normal face) are done.
        parent.resize(w + 40, h + 40);
        parent.show();
    }
};

QImage Shot(GlossButton &b) { return b.grab().toImage().convertToFormat(QImage::Format_RGB32); }

QRgb Px(const QImage &image, int x, int y) { return image.pixel(x, y) & 0xFFFFFF; }
QRgb C(int r, int g, int b) { return qRgb(r, g, b) & 0xFFFFFF; }
QRgb C(OleColor c) { return TranslateColor(c).rgb() & 0xFFFFFF; }

void Send(QWidget *w, QEvent::Type type, QPointF at, Qt::MouseButton button, Qt::MouseButtons held)
{
    QMouseEvent event(type, at, w->mapToGlobal(at), button, held, Qt::NoModifier);
    QApplication::sendEvent(w, &event);
}
void Enter(QWidget *w, QPointF at)
{
    QEnterEvent event(at, at, w->mapToGlobal(at));
    QApplication::sendEvent(w, &event);
}
void Leave(QWidget *w)
{
    QEvent event(QEvent::Leave);
    QApplication::sendEvent(w, &event);
}
void Key(QWidget *w, QEvent::Type type, int key, bool autoRepeat = false)
{
    QKeyEvent event(type, key, Qt::NoModifier, QString(), autoRepeat);
    QApplication::sendEvent(w, &event);
}
void Focus(QWidget *w, QEvent::Type type)
{
    QFocusEvent event(type, Qt::OtherFocusReason);
    QApplication::sendEvent(w, &event);
}

QStringList Changes(QSignalSpy &spy)
{
    QStringList names;
    for (const auto &args : spy)
        names << args.at(0).toString();
    return names;
}

} // namespace

// ----- Style 0 and 1: fixed colours, line gradients and the edge topology (100x30: w 99, h 29)

TEST(GlossButtonBevel, NormalFaceEdgeCornersAndGradientRows)
{
    Fixture f;
    const QImage img = Shot(*f.button);
    // Cut corners keep the container's colour.
    for (auto [x, y] : {std::pair{0, 0}, {99, 0}, {0, 29}, {99, 29}})
        EXPECT_EQ(Px(img, x, y), C(Back)) << x << "," << y;
    EXPECT_EQ(Px(img, 0, 1), C(122, 149, 168));
    EXPECT_EQ(Px(img, 1, 0), C(122, 149, 168));
    EXPECT_EQ(Px(img, 98, 29), C(122, 149, 168));
    EXPECT_EQ(Px(img, 1, 1), C(37, 87, 131));
    EXPECT_EQ(Px(img, 98, 28), C(37, 87, 131));
    for (auto [x, y] : {std::pair{2, 0}, {50, 0}, {99, 2}, {99, 15}, {50, 29}, {0, 15}, {0, 3}})
        EXPECT_EQ(Px(img, x, y), C(0, 60, 116)) << x << "," << y;
    // First row of the upper gradient, the join, and the last row of the lower one.
    EXPECT_EQ(Px(img, 50, 1), C(254, 254, 254));
    EXPECT_EQ(Px(img, 50, 25), C(236, 235, 230));
    EXPECT_EQ(Px(img, 50, 28), C(214, 208, 197));
    EXPECT_TRUE(f.button->mask().isEmpty());
}

TEST(GlossButtonBevel, DownStateOvershootsItsLastRow)
{
    Fixture f;
    f.button->PaintButton(GlossButton::StateDown);
    const QImage img = Shot(*f.button);
    EXPECT_EQ(Px(img, 50, 1), C(209, 204, 193));
    EXPECT_EQ(Px(img, 50, 3), C(222, 220, 212));
    EXPECT_EQ(Px(img, 50, 4), C(228, 228, 220)); // the middle part counts from i = 4 over h-6
    // Row h is drawn with i = 4 on a divisor of 3: past the end colour (242,241,238).
    EXPECT_EQ(Px(img, 0, 29), C(247, 246, 245));
    EXPECT_EQ(Px(img, 99, 29), C(Back)); // the line stops short of its end point
}

TEST(GlossButtonBevel, HoverAndFocusInnerEdges)
{
    Fixture f;
    f.button->PaintButton(GlossButton::StateHover);
    QImage img = Shot(*f.button);
    EXPECT_EQ(Px(img, 50, 1), C(255, 240, 202));
    EXPECT_EQ(Px(img, 50, 2), C(253, 216, 137));
    EXPECT_EQ(Px(img, 50, 27), C(248, 178, 48));
    EXPECT_EQ(Px(img, 50, 28), C(229, 151, 0));
    EXPECT_EQ(Px(img, 1, 3), C(252, 212, 128));
    EXPECT_EQ(Px(img, 97, 3), C(252, 212, 128));
    EXPECT_NE(Px(img, 3, 3), C(252, 212, 128)); // the edge is two pixels wide inside the frame

    f.button->PaintButton(GlossButton::StateFocused);
    img = Shot(*f.button);
    EXPECT_EQ(Px(img, 50, 1), C(206, 231, 255));
    EXPECT_EQ(Px(img, 2, 3), C(183, 208, 244));
    EXPECT_EQ(Px(img, 50, 28), C(105, 130, 238));
}

TEST(GlossButtonBevel, ContainerWithoutBackColorSkipsTheFrame)
{
    QWidget plain;
    GlossButton b(&plain);
    b.resize(100, 30);
    plain.show();
    const QImage img = Shot(b);
    EXPECT_EQ(Px(img, 0, 0), b.palette().color(QPalette::Window).rgb() & 0xFFFFFF);
}

TEST(GlossButtonToolbar, FlatUntilHoverThenEdgedAndCheckedBox)
{
    Fixture f(GlossButton::StyleToolbar);
    const QRgb ground = f.button->palette().color(QPalette::Window).rgb() & 0xFFFFFF;
    QImage img = Shot(*f.button);
    EXPECT_EQ(Px(img, 0, 0), C(Back));
    EXPECT_EQ(Px(img, 50, 0), C(Back));
    EXPECT_EQ(Px(img, 50, 15), ground);
    EXPECT_EQ(Px(img, 2, 2), ground);

    f.button->PaintButton(GlossButton::StateHover);
    img = Shot(*f.button);
    EXPECT_EQ(Px(img, 0, 1), C(232, 232, 221));
    EXPECT_EQ(Px(img, 1, 1), C(216, 216, 205));
    EXPECT_EQ(Px(img, 50, 0), C(206, 206, 195));
    EXPECT_EQ(Px(img, 50, 28), C(215, 210, 198));

    f.button->setChecked(true);
    img = Shot(*f.button);
    EXPECT_EQ(f.button->PaintedState(), GlossButton::StateChecked);
    EXPECT_EQ(Px(img, 5, 1), C(255, 255, 255));
    EXPECT_EQ(Px(img, 98, 15), C(255, 255, 255));
    EXPECT_EQ(Px(img, 50, 0), C(122, 152, 175));
    EXPECT_EQ(Px(img, 50, 15), ground);
}

// ----- Window shape

TEST(GlossButtonRegion, CornerRulesAndSymmetry)
{
    EXPECT_FALSE(IsInCorner(-5, 5, 5)); // q = 0
    EXPECT_TRUE(IsInCorner(0, 5, 5));
    EXPECT_FALSE(IsInCorner(6, 5, 5)); // q < 0
    EXPECT_FALSE(IsInRoundRect(0, 15, 0, 0, 100, 30, 16));
    EXPECT_TRUE(IsInRoundRect(1, 15, 0, 0, 100, 30, 16));
    EXPECT_FALSE(IsInRoundRect(50, 0, 0, 0, 100, 30, 16)); // the top row is never inside
    EXPECT_TRUE(IsInRoundRect(50, 29, 0, 0, 100, 30, 16));

    // The half-and-mirror build: the left half as tested, the right half its mirror image.
    for (auto [l, t, w, h, r] : {std::array{0, 0, 100, 30, 16}, {1, 1, 98, 28, 16}, {0, 0, 57, 41, 12}}) {
        const GlossButtonRegion shape = GlossButtonRegion::RoundBox(l, t, w, h, r);
        for (int y = 0; y < t + h; ++y) {
            for (int x = 0; x <= (l + w) / 2; ++x) {
                ASSERT_EQ(shape.contains(x, y), IsInRoundRect(x, y, l, t, w, h, r)) << x << "," << y;
                if (x > 0) {
                    ASSERT_EQ(shape.contains(l + w - x, y), shape.contains(x, y)) << x << "," << y;
                }
            }
        }
    }
    // Unshifted, the mirror is the shape's own symmetry: every pixel is as tested.
    const GlossButtonRegion box = GlossButtonRegion::RoundBox(0, 0, 57, 41, 12);
    for (int y = 0; y < 41; ++y)
        for (int x = 0; x < 57; ++x)
            ASSERT_EQ(box.contains(x, y), IsInRoundRect(x, y, 0, 0, 57, 41, 12)) << x << "," << y;
}

TEST(GlossButtonRegion, RoundedStylesCutTheWidget)
{
    Fixture f(GlossButton::StyleGlossRound);
    const QRegion mask = f.button->mask();
    EXPECT_EQ(f.button->CornerRadiusValue(), 16);
    EXPECT_FALSE(mask.contains(QPoint(0, 0)));
    EXPECT_FALSE(mask.contains(QPoint(99, 0)));
    EXPECT_FALSE(mask.contains(QPoint(1, 1)));
    EXPECT_TRUE(mask.contains(QPoint(50, 15)));
    EXPECT_TRUE(mask.contains(QPoint(1, 15)));

    const std::pair<int, int> radii[] = {{3, 12}, {4, 16}, {5, 16}, {6, 10}, {7, 8}};
    for (auto [style, radius] : radii) {
        f.button->setStyle(style);
        EXPECT_EQ(f.button->CornerRadiusValue(), radius) << style;
    }
    f.button->resize(20, 30); // clamp to W/2 for the pill
    f.button->setStyle(GlossButton::StyleGlossPill);
    EXPECT_EQ(f.button->CornerRadiusValue(), 10);

    f.button->setStyle(GlossButton::StyleBevel);
    EXPECT_TRUE(f.button->mask().isEmpty());
    EXPECT_EQ(f.button->CornerRadiusValue(), 0);
}

// ----- Gloss faces and the glass face

TEST(GlossButtonGloss, BorderFollowsBrightnessAndGlossRowsFadeDownward)
{
    Fixture f(GlossButton::StyleGlossRound);
    EXPECT_EQ(Px(Shot(*f.button), 1, 15), C(80, 153, 233));
    f.button->setBorderBrightness(-50);
    EXPECT_EQ(Px(Shot(*f.button), 1, 15), C(40, 77, 117));
    EXPECT_EQ(Px(Shot(*f.button), 99, 15), C(40, 77, 117)); // the mirror of column 1 is W-1
    f.button->setBorderBrightness(50);
    const QImage img = Shot(*f.button);
    EXPECT_EQ(Px(img, 1, 15), C(167, 204, 244));
    // Tint 50*y/R percent of the way from white to the base colour.
    EXPECT_EQ(Px(img, 50, 2), C(245, 249, 254));
    EXPECT_EQ(Px(img, 50, 17), C(163, 201, 244));
    // The glow brightens toward its centre at the bottom.
    EXPECT_GT(qRed(img.pixel(50, 28)), 80);
}

TEST(GlossButtonGloss, StateColoursAndDisabledLook)
{
    Fixture f(GlossButton::StyleGlossTile);
    f.button->PaintButton(GlossButton::StateHover);
    EXPECT_EQ(Px(Shot(*f.button), 1, 15), C(144, 192, 255));
    f.button->setColorButtonDown(RGB(1, 2, 3));
    f.button->PaintButton(GlossButton::StateDown);
    EXPECT_EQ(Px(Shot(*f.button), 1, 15), C(1, 2, 3));

    f.button->setEnabled(false);
    f.button->PaintButton(GlossButton::StateHover);
    const QImage img = Shot(*f.button);
    EXPECT_EQ(Px(img, 1, 15), C(192, 192, 176));
    // A white glow: lower rows lie between the disabled base and white.
    const QRgb low = img.pixel(50, 27);
    EXPECT_GT(qBlue(low), 176);
    EXPECT_GE(qRed(low), 192);
}

TEST(GlossButtonGlass, ShadeTopColourAndBand)
{
    Fixture f(GlossButton::StyleGlassPixel);
    const QImage img = Shot(*f.button);
    EXPECT_EQ(f.button->CornerRadiusValue(), 10);
    EXPECT_EQ(Px(img, 1, 15), C(40, 76, 116));
    EXPECT_EQ(Px(img, 98, 15), C(40, 76, 116));
    EXPECT_EQ(Px(img, 50, 3), C(240, 246, 254));
    EXPECT_EQ(Px(img, 50, 14), C(82, 155, 233));
}

// ----- Colours and properties

TEST(GlossButtonColours, BlendAndSplit)
{
    EXPECT_EQ(GlossButton::BlendColors(RGB(0, 0, 0), RGB(255, 255, 255), 50), RGB(127, 127, 127));
    EXPECT_EQ(GlossButton::BlendColors(RGB(255, 100, 0), RGB(0, 0, 0), 33), RGB(171, 67, 0));
    EXPECT_EQ(GlossButton::BlendColors(RGB(1, 2, 3), RGB(9, 9, 9), 150), RGB(9, 9, 9));
    EXPECT_EQ(GlossButton::BlendColors(RGB(1, 2, 3), RGB(9, 9, 9), -10), RGB(1, 2, 3));
    int r = 0, g = 0, b = 0;
    GlossButton::GetRGB(RGB(12, 34, 56), r, g, b);
    EXPECT_EQ((std::array{r, g, b}), (std::array{12, 34, 56}));
    GlossButton::GetRGB(SystemColor(15), r, g, b);
    EXPECT_EQ(QColor(r, g, b), QApplication::palette().color(QPalette::Button));
}

TEST(GlossButtonColours, SchemeSetsFourColoursAndFallsBackWhenOneIsSet)
{
    GlossButton b;
    QSignalSpy spy(&b, &GlossButton::PropertyChanged);
    b.setColorScheme(1);
    EXPECT_EQ(Changes(spy), (QStringList{"m_ColorButtonUp", "m_ColorButtonHover", "m_ColorButtonDown",
                                         "m_ColorBright", "m_ColorScheme"}));
    b.setColorScheme(3);
    EXPECT_EQ(b.ColorScheme(), 3);
    EXPECT_EQ(b.ColorButtonUp(), RGB(0, 0, 128));
    EXPECT_EQ(b.ColorButtonDown(), RGB(0, 0, 240));
    EXPECT_EQ(b.ColorBright(), RGB(0, 0, 255));
    spy.clear();
    b.setColorButtonHover(RGB(1, 1, 1));
    EXPECT_EQ(Changes(spy), (QStringList{"m_ColorScheme", "m_ColorButtonHover"}));
    EXPECT_EQ(b.ColorScheme(), 0);
    EXPECT_EQ(b.ColorButtonUp(), RGB(0, 0, 128));
    EXPECT_EQ(b.ColorButtonHover(), RGB(1, 1, 1));
    b.setColorScheme(0); // leaves the colours alone
    EXPECT_EQ(b.ColorButtonHover(), RGB(1, 1, 1));
}

TEST(GlossButtonProperties, ChangeNamesClampsAndNoOpSetters)
{
    GlossButton b;
    QSignalSpy spy(&b, &GlossButton::PropertyChanged);
    b.setBorderBrightness(250);
    EXPECT_EQ(b.BorderBrightness(), 100);
    b.setBorderBrightness(-250);
    EXPECT_EQ(b.BorderBrightness(), -100);
    b.setCaption("Go");
    b.setForeColor(RGB(1, 2, 3));
    EXPECT_EQ(Changes(spy), (QStringList{"m_BorderBrightness", "m_BorderBrightness", "Caption", "ForeColor"}));

    spy.clear();
    const int paints = b.PaintCount();
    b.setStyle(0);
    b.setPictureAlignment(0);
    b.setIconHighLite(true);
    b.setCaptionHighLiteColor(RGB(0, 0, 255));
    EXPECT_EQ(Changes(spy), (QStringList{"IconHighLite", "CaptionHighLiteColor"}));
    EXPECT_EQ(b.PaintCount(), paints); // neither a same-value set nor a highlight setting repaints
    EXPECT_THROW(b.setPictureAlignment(256), RunTimeError);

    spy.clear();
    static_cast<QWidget &>(b).setEnabled(false);
    EXPECT_FALSE(b.Enabled());
    EXPECT_EQ(Changes(spy), QStringList{"Enabled"});
}

TEST(GlossButtonProperties, BagWritesOnlyWhatDiffersFromItsDefault)
{
    GlossButton fresh;
    QStringList keys = fresh.WriteProperties().keys();
    keys.sort();
    EXPECT_EQ(keys, (QStringList{"BorderBrightness", "Checked", "ColorBright", "ColorButtonDown", "ColorButtonHover",
                                 "ColorButtonUp", "DisplayHand"}));

    GlossButton b;
    b.setCaption("&Add Result");
    b.setStyle(4);
    b.setColorScheme(5);
    b.setBorderBrightness(-20);
    b.setEnabled(false);
    b.setCaptionHighLite(true);
    b.setDisplayHand(true);
    QPixmap pic(4, 3);
    pic.fill(Qt::red);
    b.setPicture(pic);
    const QVariantMap bag = b.WriteProperties();
    EXPECT_FALSE(bag.contains("IconHighLiteColor"));
    EXPECT_FALSE(bag.contains("ForeColor"));

    GlossButton copy;
    QSignalSpy spy(&copy, &GlossButton::PropertyChanged);
    copy.ReadProperties(bag);
    EXPECT_TRUE(spy.isEmpty());
    EXPECT_EQ(copy.Caption(), "&Add Result");
    EXPECT_EQ(copy.Style(), 4);
    EXPECT_EQ(copy.ColorScheme(), 5);
    EXPECT_EQ(copy.ColorButtonUp(), RGB(0, 128, 0));
    EXPECT_EQ(copy.BorderBrightness(), -20);
    EXPECT_FALSE(copy.Enabled());
    EXPECT_FALSE(copy.isEnabled());
    EXPECT_TRUE(copy.CaptionHighLite());
    EXPECT_EQ(copy.cursor().shape(), Qt::PointingHandCursor);
    EXPECT_EQ(copy.Picture().size(), QSize(4, 3));
    EXPECT_EQ(copy.WriteProperties(), bag);
}

// ----- The state table

TEST(GlossButtonStates, HoverThroughEnterAndLeave)
{
    Fixture f;
    QSignalSpy enter(f.button, &GlossButton::MouseEnter), leave(f.button, &GlossButton::MouseLeave);
    Enter(f.button, {0, 15}); // on the border: not inside yet
    EXPECT_EQ(enter.count(), 0);
    Enter(f.button, {50, 15});
    Enter(f.button, {51, 15});
    EXPECT_EQ(enter.count(), 1);
    EXPECT_EQ(f.button->PaintedState(), GlossButton::StateHover);
    EXPECT_EQ(Px(Shot(*f.button), 50, 1), C(255, 240, 202));
    Leave(f.button);
    Leave(f.button); // no second notice without a new hover
    EXPECT_EQ(leave.count(), 1);
    EXPECT_EQ(f.button->PaintedState(), GlossButton::StateNormal);
    // A plain move inside also takes the pointer in.
    Send(f.button, QEvent::MouseMove, {40, 10}, Qt::NoButton, Qt::NoButton);
    EXPECT_EQ(enter.count(), 2);
    EXPECT_TRUE(f.button->IsMouseOver());
}

TEST(GlossButtonStates, PressReleaseClick)
{
    Fixture f;
    QSignalSpy down(f.button, &GlossButton::MouseDown), up(f.button, &GlossButton::MouseUp),
        click(f.button, &GlossButton::Click);
    Enter(f.button, {50, 15});
    Send(f.button, QEvent::MouseButtonPress, {50, 15}, Qt::LeftButton, Qt::LeftButton);
    EXPECT_EQ(f.button->PaintedState(), GlossButton::StateDown);
    ASSERT_EQ(down.count(), 1);
    EXPECT_EQ(down.at(0).at(0).value<short>(), 1);
    EXPECT_FLOAT_EQ(down.at(0).at(2).toFloat(), 50.0f);
    Send(f.button, QEvent::MouseButtonRelease, {50, 15}, Qt::LeftButton, Qt::NoButton);
    EXPECT_EQ(f.button->PaintedState(), GlossButton::StateHover);
    EXPECT_EQ(up.count(), 1);
    EXPECT_EQ(click.count(), 1);
    EXPECT_TRUE(f.button->HasFocusFlag());

    // A right press pushes the face down too, but only a left release clicks.
    Send(f.button, QEvent::MouseButtonPress, {50, 15}, Qt::RightButton, Qt::RightButton);
    EXPECT_EQ(down.at(1).at(0).value<short>(), 2);
    Send(f.button, QEvent::MouseButtonRelease, {50, 15}, Qt::RightButton, Qt::NoButton);
    EXPECT_EQ(click.count(), 1);
}

TEST(GlossButtonStates, DragOutGoesNormalAndBlocksHoverUntilRelease)
{
    Fixture f;
    QSignalSpy enter(f.button, &GlossButton::MouseEnter), leave(f.button, &GlossButton::MouseLeave),
        click(f.button, &GlossButton::Click);
    Enter(f.button, {50, 15});
    Send(f.button, QEvent::MouseButtonPress, {50, 15}, Qt::LeftButton, Qt::LeftButton);
    Send(f.button, QEvent::MouseMove, {-5, 15}, Qt::NoButton, Qt::LeftButton);
    EXPECT_EQ(f.button->PaintedState(), GlossButton::StateNormal);
    EXPECT_FALSE(f.button->IsMouseOver());
    Send(f.button, QEvent::MouseMove, {50, 15}, Qt::NoButton, Qt::LeftButton);
    EXPECT_EQ(enter.count(), 1);
    EXPECT_EQ(f.button->PaintedState(), GlossButton::StateNormal);
    Send(f.button, QEvent::MouseMove, {150, 15}, Qt::NoButton, Qt::LeftButton);
    Send(f.button, QEvent::MouseButtonRelease, {150, 15}, Qt::LeftButton, Qt::NoButton);
    EXPECT_EQ(click.count(), 0);
    EXPECT_TRUE(f.button->HasFocusFlag());
    EXPECT_EQ(f.button->PaintedState(), GlossButton::StateFocused);
    Leave(f.button); // the leave request armed by the hover still arrives
    EXPECT_EQ(leave.count(), 1);
    EXPECT_EQ(f.button->PaintedState(), GlossButton::StateFocused);
}

TEST(GlossButtonStates, EnterKeyPressesAndClicksSpaceDoesNothing)
{
    Fixture f;
    QSignalSpy down(f.button, &GlossButton::MouseDown), up(f.button, &GlossButton::MouseUp),
        click(f.button, &GlossButton::Click);
    Key(f.button, QEvent::KeyPress, Qt::Key_Space);
    Key(f.button, QEvent::KeyRelease, Qt::Key_Space);
    EXPECT_EQ(down.count() + up.count() + click.count(), 0);
    EXPECT_EQ(f.button->PaintedState(), GlossButton::StateNormal);

    Key(f.button, QEvent::KeyPress, Qt::Key_Return);
    EXPECT_EQ(f.button->PaintedState(), GlossButton::StateDown);
    ASSERT_EQ(down.count(), 1);
    EXPECT_EQ(down.at(0), (QList<QVariant>{short(1), short(0), 0.0f, 0.0f}));
    Key(f.button, QEvent::KeyRelease, Qt::Key_Return, true); // auto-repeat does not release
    EXPECT_EQ(click.count(), 0);
    Key(f.button, QEvent::KeyRelease, Qt::Key_Return);
    EXPECT_EQ(up.count(), 1);
    EXPECT_EQ(click.count(), 1);
    EXPECT_EQ(f.button->PaintedState(), GlossButton::StateFocused);
    Key(f.button, QEvent::KeyPress, Qt::Key_Enter);
    Key(f.button, QEvent::KeyRelease, Qt::Key_Enter);
    EXPECT_EQ(click.count(), 2);

    // A release whose press went to another window (a dialog that the press closed) is no click.
    Key(f.button, QEvent::KeyRelease, Qt::Key_Return);
    EXPECT_EQ(click.count(), 2);
    EXPECT_EQ(up.count(), 2);
    // Nor is one after focus left between press and release.
    Key(f.button, QEvent::KeyPress, Qt::Key_Return);
    QFocusEvent out(QEvent::FocusOut);
    QApplication::sendEvent(f.button, &out);
    Key(f.button, QEvent::KeyRelease, Qt::Key_Return);
    EXPECT_EQ(click.count(), 2);
}

TEST(GlossButtonStates, DoubleClickFocusAndChecked)
{
    Fixture f;
    QSignalSpy dbl(f.button, &GlossButton::DblClick), click(f.button, &GlossButton::Click);
    Send(f.button, QEvent::MouseButtonPress, {50, 15}, Qt::LeftButton, Qt::LeftButton);
    Send(f.button, QEvent::MouseButtonRelease, {50, 15}, Qt::LeftButton, Qt::NoButton);
    Send(f.button, QEvent::MouseButtonDblClick, {50, 15}, Qt::LeftButton, Qt::LeftButton);
    EXPECT_EQ(f.button->PaintedState(), GlossButton::StateDown);
    Send(f.button, QEvent::MouseButtonRelease, {50, 15}, Qt::LeftButton, Qt::NoButton);
    EXPECT_EQ(dbl.count(), 1);
    EXPECT_EQ(click.count(), 1);

    Focus(f.button, QEvent::FocusOut);
    EXPECT_EQ(f.button->PaintedState(), GlossButton::StateNormal);
    EXPECT_FALSE(f.button->HasFocusFlag());
    Focus(f.button, QEvent::FocusIn);
    EXPECT_EQ(f.button->PaintedState(), GlossButton::StateFocused);
    Enter(f.button, {50, 15});
    Focus(f.button, QEvent::FocusIn); // hovering wins over focus
    EXPECT_EQ(f.button->PaintedState(), GlossButton::StateHover);

    f.button->setChecked(true);
    Leave(f.button);
    Focus(f.button, QEvent::FocusIn);
    Enter(f.button, {50, 15});
    f.button->PaintButton(GlossButton::StateNormal);
    EXPECT_EQ(f.button->PaintedState(), GlossButton::StateChecked);
    f.button->setChecked(false);
    EXPECT_EQ(f.button->PaintedState(), GlossButton::StateHover);
}

TEST(GlossButtonStates, DisabledOnlyTracksHover)
{
    Fixture f;
    f.button->setEnabled(false);
    QSignalSpy enter(f.button, &GlossButton::MouseEnter), down(f.button, &GlossButton::MouseDown),
        click(f.button, &GlossButton::Click);
    Send(f.button, QEvent::MouseButtonPress, {50, 15}, Qt::LeftButton, Qt::LeftButton);
    Send(f.button, QEvent::MouseButtonRelease, {50, 15}, Qt::LeftButton, Qt::NoButton);
    Key(f.button, QEvent::KeyPress, Qt::Key_Return);
    Key(f.button, QEvent::KeyRelease, Qt::Key_Return);
    EXPECT_EQ(down.count() + click.count(), 0);
    EXPECT_EQ(f.button->PaintedState(), GlossButton::StateNormal);
    Enter(f.button, {50, 15});
    EXPECT_EQ(enter.count(), 1);
    EXPECT_EQ(f.button->PaintedState(), GlossButton::StateHover);
}

// ----- Caption and picture

namespace {
// Lowest row holding a pixel darker than mid grey.
int LowestInk(const QImage &img)
{
    for (int y = img.height() - 1; y >= 0; --y)
        for (int x = 0; x < img.width(); ++x)
            if (qGray(img.pixel(x, y)) < 100)
                return y;
    return -1;
}
int CountColour(const QImage &img, QRgb colour)
{
    int n = 0;
    for (int y = 0; y < img.height(); ++y)
        for (int x = 0; x < img.width(); ++x)
            n += (img.pixel(x, y) & 0xFFFFFF) == colour;
    return n;
}
} // namespace

TEST(GlossButtonCaption, AccessLetterHighlightAndEmbossedDisabledText)
{
    QWidget plain;
    GlossButton b(&plain);
    b.resize(120, 40);
    plain.show();
    b.setStyle(GlossButton::StyleToolbar);
    QFont font = b.font();
    font.setPixelSize(16);
    font.setStyleStrategy(QFont::NoAntialias);
    b.setFont(font);
    b.setCaption("Wax");
    const int plainBottom = LowestInk(Shot(b));
    b.setCaption("&Wax");
    EXPECT_GT(LowestInk(Shot(b)), plainBottom); // the underline sits below the letters
    ASSERT_GT(plainBottom, 0);

    b.setCaptionHighLite(true);
    b.setCaptionHighLiteColor(RGB(0, 255, 0));
    EXPECT_EQ(CountColour(Shot(b), C(0, 255, 0)), 0);
    b.PaintButton(GlossButton::StateHover);
    EXPECT_GT(CountColour(Shot(b), C(0, 255, 0)), 0);

    b.setEnabled(false);
    const QImage img = Shot(b);
    EXPECT_EQ(CountColour(img, C(0, 0, 0)), 0);
    EXPECT_GT(CountColour(img, C(SystemColor(16))), 0);
    EXPECT_GT(CountColour(img, C(SystemColor(20))), 0);
}

TEST(GlossButtonCaption, EmptyCaptionWithoutPictureDrawsOnlyTheFace)
{
    Fixture f(GlossButton::StyleToolbar);
    const QImage img = Shot(*f.button);
    const QRgb ground = f.button->palette().color(QPalette::Window).rgb() & 0xFFFFFF;
    EXPECT_EQ(CountColour(img, ground), 98 * 28);
}

TEST(GlossButtonCaption, PictureAlignmentPlacesThePicture)
{
    Fixture f(GlossButton::StyleToolbar, 100, 40);
    QPixmap pic(10, 10);
    pic.fill(Qt::red);
    f.button->setPicture(pic);
    auto topLeftRed = [&] {
        const QImage img = Shot(*f.button);
        for (int y = 0; y < img.height(); ++y)
            for (int x = 0; x < img.width(); ++x)
                if ((img.pixel(x, y) & 0xFFFFFF) == C(255, 0, 0))
                    return QPoint(x, y);
        return QPoint(-1, -1);
    };
    EXPECT_EQ(topLeftRed(), QPoint(46, 16));
    f.button->PaintButton(GlossButton::StateDown);
    EXPECT_EQ(topLeftRed(), QPoint(47, 17));
    f.button->setPictureAlignment(1);
    EXPECT_EQ(topLeftRed(), QPoint(45, 16));
    f.button->setPictureAlignment(2);
    EXPECT_EQ(topLeftRed(), QPoint(8, 16));
    f.button->setPictureAlignment(3);
    EXPECT_EQ(topLeftRed(), QPoint(82, 16));
    f.button->setStyle(GlossButton::StyleGlossRound);
    f.button->setPictureAlignment(2);
    EXPECT_EQ(topLeftRed(), QPoint(21, 16)); // the corner radius, 40/2+1

    f.button->setIconHighLite(true);
    f.button->setIconHighLiteColor(RGB(0, 255, 0));
    f.button->PaintButton(GlossButton::StateHover);
    const QImage hover = Shot(*f.button);
    EXPECT_EQ(CountColour(hover, C(0, 255, 0)), 100);
    EXPECT_EQ(CountColour(hover, C(255, 0, 0)), 0);
}

TEST(GlossButtonHidden, PropertiesSetWhileHiddenAreDrawnOnceWhenShown)
{
    // A button built up on a hidden page, as the window builds its pages, draws nothing until
    // it shows, and then shows what a button set up in view shows.
    std::vector<std::unique_ptr<QWidget>> parents;
    std::vector<GlossButton *> buttons;
    for (bool hiddenWhileSetUp : {false, true}) {
        auto parent = std::make_unique<QWidget>();
        parent->setProperty("BackColor", QVariant::fromValue<quint32>(Back));
        parent->resize(150, 70);
        auto *button = new GlossButton(parent.get());
        button->resize(110, 30);
        button->setStyle(2);
        if (!hiddenWhileSetUp) {
            parent->show();
            ASSERT_TRUE(QTest::qWaitForWindowExposed(parent.get()));
        }
        const int before = button->PaintCount();
        button->setCaption("Start");
        button->setForeColor(RGB(200, 0, 0));
        button->setEnabled(false);
        button->setEnabled(true);
        if (hiddenWhileSetUp) {
            EXPECT_EQ(button->PaintCount(), before) << "nothing drawn while hidden";
            parent->show();
            ASSERT_TRUE(QTest::qWaitForWindowExposed(parent.get()));
            EXPECT_GT(button->PaintCount(), before);
        }
        buttons.push_back(button);
        parents.push_back(std::move(parent));
    }
    // Whichever window came up under the pointer shows its button hovered: both leave it.
    for (GlossButton *button : buttons)
        Leave(button);
    EXPECT_EQ(buttons[1]->Surface(), buttons[0]->Surface());
    EXPECT_EQ(buttons[1]->mask(), buttons[0]->mask());
}

// ---- on a screen scaled to 200 % -------------------------------------------------------------

namespace {

class GlossButtonHighDpi : public ScaledScreenTest {};

bool IsCaptionRed(QRgb p) { return qRed(p) > 150 && qGreen(p) < 110 && qBlue(p) < 110; }

} // namespace

TEST_F(GlossButtonHighDpi, FaceAndCaptionAreDrawnAtTheDevicePixelRatio)
{
    Fixture f(GlossButton::StyleBevel, 100, 30);
    GlossButton &b = *f.button;
    b.setForeColor(RGB(200, 0, 0));
    b.setCaption("Show All");
    EXPECT_EQ(b.Surface().devicePixelRatio(), 2.0);
    EXPECT_EQ(b.Surface().size(), QSize(200, 60));

    const QImage shown = Rendered(b);
    // The one-pixel edge of the face is two device pixels wide on each side, then the face.
    const QRgb edge = C(0, 60, 116);
    for (const int y : {20, 30, 40}) {
        EXPECT_EQ(Px(shown, 0, y), edge) << y;
        EXPECT_EQ(Px(shown, 1, y), edge) << y;
        EXPECT_NE(Px(shown, 2, y), edge) << y;
        EXPECT_EQ(Px(shown, 199, y), edge) << y;
        EXPECT_EQ(Px(shown, 198, y), edge) << y;
        EXPECT_NE(Px(shown, 197, y), edge) << y;
    }

    // The caption: as wide and high as the same text drawn freely at the same ratio, inside the
    // edges, and with the detail only full-ratio letters have.
    QImage free(400, 120, QImage::Format_RGB32);
    free.setDevicePixelRatio(2.0);
    free.fill(Qt::white);
    {
        QPainter p(&free);
        p.setFont(b.font());
        p.setPen(QColor(200, 0, 0));
        p.drawText(QRect(20, 10, 150, 40), Qt::AlignLeft | Qt::AlignTop | Qt::TextShowMnemonic, "Show All");
    }
    const QRect whole = InkBox(free, IsCaptionRed);
    const QRect ink = InkBox(shown, IsCaptionRed);
    ASSERT_FALSE(whole.isEmpty());
    ASSERT_FALSE(ink.isEmpty());
    EXPECT_NEAR(ink.width(), whole.width(), 1);
    EXPECT_NEAR(ink.height(), whole.height(), 1);
    EXPECT_TRUE(QRect(2, 2, 196, 56).contains(ink)) << "caption at " << ink.x() << "," << ink.y();
    EXPECT_TRUE(HasFineDetail(shown, ink));
}

TEST_F(GlossButtonHighDpi, PixelFaceCoversEachLogicalPixelWithABlock)
{
    // The glass face is written a logical pixel at a time onto the cleared surface: at the ratio
    // each pixel is a 2x2 block, with nothing of the cleared ground left between them.
    Fixture f(GlossButton::StyleGlassPixel, 100, 30);
    f.button->setCaption(QString());
    const QImage &surface = f.button->Surface();
    ASSERT_EQ(surface.size(), QSize(200, 60));
    const QRgb cleared = f.button->palette().color(QPalette::Window).rgb() & 0xFFFFFF;
    for (int y = 10; y < 50; y += 2)
        for (int x = 20; x < 180; x += 2) {
            const QRgb p = Px(surface, x, y);
            ASSERT_NE(p, cleared) << x << "," << y;
            ASSERT_TRUE(Px(surface, x + 1, y) == p && Px(surface, x, y + 1) == p && Px(surface, x + 1, y + 1) == p)
                << x << "," << y;
        }
}
