// The themed toolbar: layout by number, looks by pixel, hover, overflow, menu, dialogs, properties.
#include "common/RunTimeError.h"
#include "toolbar/ThemedToolbar.h"
#include "toolbar/ToolbarDialogs.h"
#include "toolbar/ToolbarMenu.h"
#include "toolbar/ToolbarPainting.h"

#include "Artwork.h"

#include <QAction>
#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QFontDialog>
#include <QFontMetrics>
#include <QMouseEvent>
#include <QSignalSpy>
#include <QCursor>
#include <gtest/gtest.h>

#include <memory>

using namespace zrt;

namespace {

struct MainItem {
    const char *key;
    const char *tip;
    int cell; // 0: separator
    int style;
};

// The main window's nine items.
constexpr MainItem kMainItems[] = {
    {"Open", "Open Data File.", 1, btn::StylePush},
    {"Clear", "New Data File (clear data)", 2, btn::StylePush},
    {"Save", "Save Data File", 3, btn::StylePush},
    {"", "", 0, 0},
    {"Record", "Record Zorvane reaction times", 4, btn::StyleCheck},
    {"", "", 0, 0},
    {"Averages", "Averages and Ranges", 5, btn::StyleCheck},
    {"Groups", "Grouped Data", 6, btn::StyleCheck},
    {"Compare", "Compare visual and audio", 7, btn::StyleCheck},
};

void AddMainItems(ThemedToolbar &bar)
{
    const QImage strip = Artwork::ToolbarStrip();
    for (const MainItem &item : kMainItems) {
        if (item.cell == 0)
            bar.AddButton(btn::TypeSeparator);
        else
            bar.AddButton(btn::TypeButton, "", item.key, ThemedToolbar::IconFromStrip(strip, item.cell), 32, 0,
                          item.tip, SystemColor(8), std::nullopt, item.style, 0, true, RGB(0, 255, 0));
    }
}

// A shown bar wide enough for the nine items, in the third scheme as the main window sets it.
std::unique_ptr<ThemedToolbar> MainBar(int themeColor = 3)
{
    auto bar = std::make_unique<ThemedToolbar>();
    AddMainItems(*bar);
    bar->setThemeColor(themeColor);
    bar->resize(400, 32);
    bar->show();
    return bar;
}

void SendMouse(QWidget *w, QEvent::Type type, QPoint pos, Qt::MouseButton button = Qt::LeftButton)
{
    const Qt::MouseButtons buttons = type == QEvent::MouseButtonPress ? Qt::MouseButtons(button) : Qt::NoButton;
    QMouseEvent e(type, QPointF(pos), w->mapToGlobal(QPointF(pos)), type == QEvent::MouseMove ? Qt::NoButton : button,
                  buttons, Qt::NoModifier);
    QApplication::sendEvent(w, &e);
}

void Click(QWidget *w, QPoint pos)
{
    SendMouse(w, QEvent::MouseButtonPress, pos);
    SendMouse(w, QEvent::MouseButtonRelease, pos);
}

void Enter(QWidget *w, QPoint at)
{
    const QPointF local(at);
    QEnterEvent e(local, local, w->mapToGlobal(local));
    QApplication::sendEvent(w, &e);
}

void Leave(QWidget *w)
{
    QEvent e(QEvent::Leave);
    QApplication::sendEvent(w, &e);
}

QPoint CentreOf(const ThemedToolbar &bar, int i)
{
    return QRect(bar.BtnLeft(i), bar.BtnTop(i), bar.BtnWidth(i), bar.btnRHeight(i)).center();
}

QRgb Pixel(QWidget *w, QPoint p) { return w->grab().toImage().pixel(p); }

QRgb Entry(const ThemeColors &c, int i) { return TranslateColor(c[static_cast<std::size_t>(i)]).rgb(); }

template <typename F>
std::string ErrorText(F &&f)
{
    try {
        f();
    } catch (const RunTimeError &e) {
        return e.what();
    }
    return "no error";
}

} // namespace

TEST(ThemedToolbarLayout, MainWindowItemsStandWhereTheTableSays)
{
    auto bar = MainBar();
    const int lefts[] = {2, 44, 86, 128, 132, 174, 178, 220, 262};
    for (int i = 1; i <= 9; ++i) {
        SCOPED_TRACE(i);
        const bool separator = kMainItems[i - 1].cell == 0;
        EXPECT_EQ(bar->BtnLeft(i), lefts[i - 1]);
        EXPECT_EQ(bar->BtnWidth(i), separator ? 2 : 40);
        EXPECT_EQ(bar->BtnTop(i), separator ? 4 : 2);
        EXPECT_TRUE(bar->BtnOnBar(i));
    }
    // The bar grows to hold a 40-pixel button between its gaps; 32 asked for is too low.
    EXPECT_EQ(bar->height(), 45);
    EXPECT_EQ(bar->btnHeight(1), 40);
    EXPECT_EQ(bar->btnRHeight(1), 45 - 2 * 2 - 1);
    EXPECT_EQ(bar->btnHeight(4), 45 - 9);
    EXPECT_EQ(bar->btnRHeight(4), 45 - 9);
    EXPECT_EQ(bar->FullWidth(), 262 + 40 + 2 + ThemedToolbar::GripWidth + ThemedToolbar::EndAreaWidth);
    EXPECT_EQ(bar->FullWidthTwips(), bar->FullWidth() * 15);

    // A taller bar lights its buttons over the full height, whatever their own height.
    bar->resize(400, 60);
    EXPECT_EQ(bar->btnRHeight(1), 55);
    EXPECT_EQ(bar->btnHeight(1), 40);
    EXPECT_EQ(bar->btnHeight(4), 51);
}

TEST(ThemedToolbarLayout, SizesByIconCaptionAlignmentAndStyle)
{
    ThemedToolbar bar;
    const QFont font("Sans", 10);
    const QFontMetrics fm(font);
    const QString text = "Averages";
    const int tw = fm.horizontalAdvance(text), th = fm.height();
    QImage icon(20, 20, QImage::Format_RGB32);
    icon.fill(Qt::red);

    bar.AddButton(0);                                                                  // nothing
    bar.AddButton(0, text, "c", {}, 20, 0, {}, SystemColor(8), font);                  // caption only
    bar.AddButton(0, "", "i", icon, 20);                                               // icon only
    bar.AddButton(0, text, "s", icon, 20, btn::IconLeft, {}, SystemColor(8), font);    // side by side
    bar.AddButton(0, text, "r", icon, 20, btn::IconRight, {}, SystemColor(8), font);
    bar.AddButton(0, text, "t", icon, 20, btn::IconTop, {}, SystemColor(8), font);     // one above the other
    bar.AddButton(0, text, "b", icon, 20, btn::IconBottom, {}, SystemColor(8), font);
    bar.AddButton(0, "", "d", icon, 20, 0, {}, SystemColor(8), std::nullopt, btn::StyleDropDown);

    const QSize expected[] = {{24, 24},
                              {tw + 8, th + 8},
                              {28, 28},
                              {tw + 12 + 20, std::max(th, 20) + 8},
                              {tw + 12 + 20, std::max(th, 20) + 8},
                              {std::max(tw, 20) + 8, th + 12 + 20 + 1},
                              {std::max(tw, 20) + 8, th + 12 + 20 + 1},
                              {28 + 13, 28}};
    int left = 2;
    for (int i = 1; i <= 8; ++i) {
        SCOPED_TRACE(i);
        EXPECT_EQ(bar.BtnWidth(i), expected[i - 1].width());
        EXPECT_EQ(bar.btnHeight(i), expected[i - 1].height());
        EXPECT_EQ(bar.BtnLeft(i), left);
        left += bar.BtnWidth(i) + 2;
    }

    // A caption change lays out that button and every one behind it again.
    const int before = bar.BtnLeft(3);
    bar.setBtnCaption(2, text + text);
    EXPECT_EQ(bar.BtnWidth(2), fm.horizontalAdvance(text + text) + 8);
    EXPECT_EQ(bar.BtnLeft(3), before + fm.horizontalAdvance(text));
}

TEST(ThemedToolbarLayout, ButtonWithoutFontGetsTheDefaultFont)
{
    ThemedToolbar bar;
    bar.AddButton(0, "x");
    EXPECT_EQ(bar.BtnFont(1).family(), "MS Sans Serif");
    EXPECT_EQ(bar.BtnFont(1).pointSize(), 8);
}

TEST(ThemedToolbarButtons, ErrorsUseTheirTextsAndChangeNothing)
{
    auto bar = MainBar();
    EXPECT_EQ(ErrorText([&] { bar->BtnKey(10); }), "Button index '10' not found.");
    EXPECT_EQ(ErrorText([&] { bar->setBtnValue(0, true); }), "Button index '0' not found.");
    EXPECT_EQ(ErrorText([&] { bar->DeleteButton(12); }), "Button index '12' not found.");
    EXPECT_EQ(ErrorText([&] { bar->MoveButton(1, ThemedToolbar::MoveLeft); }), "Button cannot be moved any further left.");
    EXPECT_EQ(ErrorText([&] { bar->MoveButton(9, ThemedToolbar::MoveRight); }),
              "Button cannot be moved any further right.");
    EXPECT_EQ(bar->BtnKey(1), "Open");
    EXPECT_EQ(bar->BtnKey(9), "Compare");
    EXPECT_EQ(bar->ButtonCount(), 9);
    EXPECT_EQ(ErrorText([&] { bar->AddButton(0, "", "", {}, 16, 7); }), "Unable to add button");
    EXPECT_EQ(bar->ButtonCount(), 9);
    ThemedToolbar empty;
    EXPECT_EQ(ErrorText([&] { empty.DeleteButton(1); }), "Unable to delete button");
    EXPECT_EQ(ErrorText([&] { bar->ChangeBtnProperty(1, 12, 0); }).empty(), false);
}

TEST(ThemedToolbarButtons, MoveAndDeleteRelayTheBar)
{
    auto bar = MainBar();
    bar->MoveButton(2, ThemedToolbar::MoveRight);
    EXPECT_EQ(bar->BtnKey(2), "Save");
    EXPECT_EQ(bar->BtnKey(3), "Clear");
    bar->MoveButton(3, ThemedToolbar::MoveLeft);
    EXPECT_EQ(bar->BtnKey(2), "Clear");

    bar->DeleteButton(4); // the first separator
    EXPECT_EQ(bar->ButtonCount(), 8);
    EXPECT_EQ(bar->BtnKey(4), "Record");
    EXPECT_EQ(bar->BtnLeft(4), 128);
}

TEST(ThemedToolbarButtons, StatesFollowEnabledAndValue)
{
    auto bar = MainBar();
    bar->setBtnValue(7, true);
    EXPECT_EQ(bar->btnState(7), btn::StateValue);
    bar->setBtnEnabled(7, false);
    EXPECT_EQ(bar->btnState(7), btn::StateDisabled);
    bar->setBtnValue(7, false); // the page group clears values of disabled buttons
    EXPECT_EQ(bar->btnState(7), btn::StateDisabled);
    bar->setBtnValue(7, true);
    bar->setBtnEnabled(7, true);
    EXPECT_EQ(bar->btnState(7), btn::StateNormal) << "enabling returns to 0 whatever the value";
    EXPECT_TRUE(bar->BtnValue(7));

    bar->ChangeBtnProperty(8, ThemedToolbar::FieldState, btn::StateDisabled);
    EXPECT_FALSE(bar->BtnEnabled(8));
    bar->ChangeBtnProperty(8, ThemedToolbar::FieldState, btn::StateValue);
    EXPECT_TRUE(bar->BtnEnabled(8));
    EXPECT_TRUE(bar->BtnValue(8));
}

TEST(ThemedToolbarButtons, ClicksToggleCheckButtonsAndRaiseTheKey)
{
    auto bar = MainBar();
    QSignalSpy clicks(bar.get(), &ThemedToolbar::ButtonClick);
    bar->setBtnValue(5, true);
    bool valueSeenInHandler = true;
    QObject::connect(bar.get(), &ThemedToolbar::ButtonClick, [&](int index, const QString &, const QString &) {
        if (index == 7)
            valueSeenInHandler = bar->BtnValue(7);
    });

    Click(bar->PicTB(), CentreOf(*bar, 7)); // Averages, pressed: the handler sees the value set
    ASSERT_EQ(clicks.count(), 1);
    EXPECT_EQ(clicks.at(0).at(0).toInt(), 7);
    EXPECT_EQ(clicks.at(0).at(1).toString(), "Averages");
    EXPECT_TRUE(valueSeenInHandler);
    EXPECT_EQ(bar->btnState(7), btn::StateValue);
    Click(bar->PicTB(), CentreOf(*bar, 7)); // released again
    EXPECT_FALSE(valueSeenInHandler);

    Click(bar->PicTB(), CentreOf(*bar, 1)); // a push button keeps no value
    EXPECT_EQ(clicks.last().at(1).toString(), "Open");
    EXPECT_FALSE(bar->BtnValue(1));

    bar->setBtnEnabled(8, false);
    Click(bar->PicTB(), CentreOf(*bar, 8));
    Click(bar->PicTB(), QPoint(bar->BtnLeft(4), 20)); // the separator
    EXPECT_EQ(clicks.count(), 3);

    // Pressing one button and letting go over another clicks neither.
    SendMouse(bar->PicTB(), QEvent::MouseButtonPress, CentreOf(*bar, 1));
    SendMouse(bar->PicTB(), QEvent::MouseButtonRelease, CentreOf(*bar, 2));
    EXPECT_EQ(clicks.count(), 3);
}

TEST(ThemedToolbarButtons, DropDownPartRaisesItsOwnEvent)
{
    ThemedToolbar bar;
    bar.AddButton(0, "Menu", "m", {}, 16, 0, {}, SystemColor(8), std::nullopt, btn::StyleDropDown);
    bar.resize(200, 30);
    QSignalSpy clicks(&bar, &ThemedToolbar::ButtonClick);
    QSignalSpy drops(&bar, &ThemedToolbar::ButtonDropDown);
    Click(bar.PicTB(), QPoint(bar.BtnLeft(1) + bar.BtnWidth(1) - 4, 10));
    Click(bar.PicTB(), QPoint(bar.BtnLeft(1) + 4, 10));
    EXPECT_EQ(drops.count(), 1);
    EXPECT_EQ(clicks.count(), 1);
}

TEST(ThemedToolbarTheme, TableRowsAndReversal)
{
    const ThemeColors row0 = ThemeColorsFor(0, false);
    EXPECT_EQ(row0[0], RGB(129, 169, 226));
    EXPECT_EQ(row0[9], RGB(118, 167, 241));
    EXPECT_EQ(row0[2], RGB(255, 207, 142));
    const ThemeColors row3 = ThemeColorsFor(3, false);
    EXPECT_EQ(row3[7], RGB(49, 106, 197));
    EXPECT_EQ(row3[13], RGB(191, 209, 239));
    EXPECT_EQ(row3[16], RGB(149, 179, 228));
    const ThemeColors row4 = ThemeColorsFor(4, false);
    EXPECT_EQ(row4[6], row4[8]);
    EXPECT_EQ(ThemeColorsFor(7, false), ThemeColorsFor(1, false));
    EXPECT_EQ(ThemeColorsFor(-2, false), ThemeColorsFor(1, false));

    const ThemeColors rev = ThemeColorsFor(2, true);
    const ThemeColors row2 = ThemeColorsFor(2, false);
    EXPECT_EQ(rev[0], row2[1]);
    EXPECT_EQ(rev[1], row2[0]);
    EXPECT_EQ(rev[8], row2[9]);
    EXPECT_EQ(rev[9], row2[8]);
    EXPECT_EQ(rev[2], RGB(255, 245, 206));
    EXPECT_EQ(rev[5], RGB(254, 145, 78));
    EXPECT_EQ(rev[13], RGB(255, 197, 125));
    EXPECT_EQ(rev[14], row2[14]);

    ThemedToolbar bar;
    bar.setThemeColor(2);
    bar.setReverseGradient(true);
    bar.setReverseGradient(false);
    EXPECT_EQ(bar.Colors(), row2);
}

TEST(ThemedToolbarTheme, FollowingTheDesktopPicksTheRowByName)
{
    EXPECT_EQ(ThemeRowForName("NormalColor"), 0);
    EXPECT_EQ(ThemeRowForName("HomeStead"), 2);
    EXPECT_EQ(ThemeRowForName("Metallic"), 1);
    EXPECT_EQ(ThemeRowForName("Classic"), 1);
    QString name = "HomeStead";
    SetDesktopThemeSource([&] { return name; });
    EXPECT_EQ(ThemeColorsFor(5, false), ThemeColorsFor(2, false));
    name = "NormalColor";
    EXPECT_EQ(ThemeColorsFor(5, false), ThemeColorsFor(0, false));
    SetDesktopThemeSource({});
#if QT_VERSION < QT_VERSION_CHECK(6, 5, 0)
    // Nothing tells light from dark here: the scheme is the classic one.
    EXPECT_EQ(DesktopThemeName(), "Classic");
    EXPECT_EQ(ThemeColorsFor(5, false), ThemeColorsFor(1, false));
#endif
}

class ThemedToolbarLooks : public ::testing::TestWithParam<int> {};

TEST_P(ThemedToolbarLooks, StateGroundsByPixel)
{
    auto bar = MainBar(GetParam());
    const ThemeColors &c = bar->Colors();
    QWidget *tb = bar->PicTB();
    const int x = bar->BtnLeft(2) + 1; // Clear: a column left of its icon
    const int top = bar->BtnTop(2) + 1, bottom = bar->BtnTop(2) + bar->btnRHeight(2) - 2;

    // Normal: the bar's own gradient, top to bottom.
    EXPECT_EQ(Pixel(tb, QPoint(x, 0)), Entry(c, 0));
    EXPECT_EQ(Pixel(tb, QPoint(x, tb->height() - 1)), Entry(c, 1));

    SendMouse(tb, QEvent::MouseMove, CentreOf(*bar, 2));
    QImage img = tb->grab().toImage();
    EXPECT_EQ(img.pixel(x, top), Entry(c, 2));
    EXPECT_EQ(img.pixel(x, bottom), Entry(c, 3));
    EXPECT_EQ(img.pixel(x - 1, top), Entry(c, 7)) << "outline";
    EXPECT_EQ(img.pixel(bar->BtnLeft(1) + 1, top), img.pixel(bar->BtnLeft(1) + 1, top)) << "neighbour unlit";
    EXPECT_NE(img.pixel(bar->BtnLeft(1) + 1, top), Entry(c, 2));
    EXPECT_EQ(tb->toolTip(), "New Data File (clear data)");

    SendMouse(tb, QEvent::MouseButtonPress, CentreOf(*bar, 2));
    img = tb->grab().toImage();
    EXPECT_EQ(img.pixel(x, top), Entry(c, 4));
    EXPECT_EQ(img.pixel(x, bottom), Entry(c, 5));
    SendMouse(tb, QEvent::MouseButtonRelease, CentreOf(*bar, 2));

    // Value set: the pressed ground without the pointer.
    bar->setBtnValue(5, true);
    img = tb->grab().toImage();
    EXPECT_EQ(img.pixel(bar->BtnLeft(5) + 1, top), Entry(c, 4));
    EXPECT_EQ(img.pixel(bar->BtnLeft(5) + 1, bottom), Entry(c, 5));

    // Disabled: nothing lit, even under the pointer.
    bar->setBtnEnabled(7, false);
    SendMouse(tb, QEvent::MouseMove, CentreOf(*bar, 7));
    img = tb->grab().toImage();
    EXPECT_EQ(img.pixel(bar->BtnLeft(7) + 1, 0), Entry(c, 0));
    EXPECT_NE(img.pixel(bar->BtnLeft(7) + 1, top), Entry(c, 2));
}

INSTANTIATE_TEST_SUITE_P(Rows, ThemedToolbarLooks, ::testing::Values(0, 1, 2, 3, 4, 7));

TEST(ThemedToolbarIcons, DrawWithoutTheirGreenMask)
{
    auto bar = MainBar(3);
    const QImage img = bar->PicTB()->grab().toImage();
    const QImage icon = ThemedToolbar::IconFromStrip(Artwork::ToolbarStrip(), 1);
    const QPoint origin(bar->BtnLeft(1) + 4, bar->BtnTop(1) + (bar->btnRHeight(1) - 32) / 2);
    int green = 0, drawn = 0;
    for (int y = 0; y < 32; ++y)
        for (int x = 0; x < 32; ++x) {
            const QRgb px = img.pixel(origin + QPoint(x, y));
            green += qGreen(px) == 255 && qRed(px) == 0 && qBlue(px) == 0;
            drawn += icon.pixel(x, y) != Artwork::kToolbarMask && px == icon.pixel(x, y);
        }
    EXPECT_EQ(green, 0);
    EXPECT_GT(drawn, 100);
}

TEST(ThemedToolbarHover, EngineRaisesEnterAndLeaveAndPutsColoursBack)
{
    auto bar = MainBar(0);
    QSignalSpy enters(bar.get(), &ThemedToolbar::MouseEnter);
    QSignalSpy leaves(bar.get(), &ThemedToolbar::MouseLeave);
    QWidget *tb = bar->PicTB();
    Enter(tb, CentreOf(*bar, 1));
    SendMouse(tb, QEvent::MouseMove, CentreOf(*bar, 1));
    SendMouse(tb, QEvent::MouseMove, CentreOf(*bar, 2));
    EXPECT_EQ(enters.count(), 1);
    EXPECT_TRUE(bar->MouseInside());
    const QPoint probe(bar->BtnLeft(2) + 1, bar->BtnTop(2) + 1);
    EXPECT_EQ(Pixel(tb, probe), Entry(bar->Colors(), 2));

    Leave(tb);
    EXPECT_EQ(leaves.count(), 1);
    EXPECT_FALSE(bar->MouseInside());
    EXPECT_NE(Pixel(tb, probe), Entry(bar->Colors(), 2));

    // The end area lights while the pointer is over it.
    Enter(bar->PicRight(), QPoint(3, 3));
    EXPECT_EQ(bar->EndAreaState(), 1);
    EXPECT_EQ(enters.count(), 2);
    Leave(bar->PicRight());
    EXPECT_EQ(bar->EndAreaState(), 0);
    EXPECT_EQ(leaves.count(), 2);

    // Its menu holds the pointer while open, so no leave comes: closing the menu away from the
    // end area puts it out.
    QCursor::setPos(bar->mapToGlobal(QPoint(-50, -50)));
    Enter(bar->PicRight(), QPoint(3, 3));
    ASSERT_EQ(bar->EndAreaState(), 1);
    bar->Menu()->popup(QPoint(0, 0));
    bar->Menu()->hide();
    EXPECT_EQ(bar->EndAreaState(), 0);
}

TEST(ThemedToolbarOverflow, NarrowBarSendsLastButtonsToThePopup)
{
    auto bar = MainBar(3);
    bar->resize(200, 45);
    // 200 wide leaves 179 for the buttons: the one ending at 172 fits, the next does not.
    EXPECT_TRUE(bar->BtnOnBar(5));
    EXPECT_TRUE(bar->BtnOnBar(6));
    EXPECT_FALSE(bar->BtnOnBar(7));
    EXPECT_FALSE(bar->BtnOnBar(9));

    QSignalSpy clicks(bar.get(), &ThemedToolbar::ButtonClick);
    Click(bar->PicRight(), QPoint(5, 3)); // the overflow mark
    QWidget *pop = bar->picChevron();
    ASSERT_TRUE(pop->isVisible());
    EXPECT_TRUE(pop->isWindow());
    EXPECT_EQ(pop->parentWidget(), nullptr);
    EXPECT_TRUE(pop->windowFlags() & Qt::WindowStaysOnTopHint);
    EXPECT_TRUE((pop->windowFlags() & Qt::Tool) == Qt::Tool);

    const QRect groups = bar->BtnDisplayRect(8);
    ASSERT_FALSE(groups.isNull());
    EXPECT_TRUE(pop->rect().contains(groups));
    SendMouse(pop, QEvent::MouseMove, groups.center());
    EXPECT_EQ(pop->grab().toImage().pixel(groups.left() + 1, groups.top() + 1), Entry(bar->Colors(), 2));
    Click(pop, groups.center());
    ASSERT_EQ(clicks.count(), 1);
    EXPECT_EQ(clicks.at(0).at(1).toString(), "Groups");
    EXPECT_TRUE(bar->BtnValue(8));
    EXPECT_FALSE(pop->isVisible());

    // Wide again: everything back on the bar.
    bar->resize(400, 45);
    EXPECT_TRUE(bar->BtnOnBar(9));
}

TEST(ThemedToolbarOverflow, StretchFollowsTheContainer)
{
    QWidget container;
    container.resize(500, 100);
    auto *bar = new ThemedToolbar(&container);
    container.show();
    AddMainItems(*bar);
    bar->setIsStrech(true);
    EXPECT_EQ(bar->width(), 500);
    container.resize(150, 100);
    EXPECT_EQ(bar->width(), 150);
    EXPECT_FALSE(bar->BtnOnBar(4));
    bar->setIsStrech(false);
    container.resize(600, 100);
    EXPECT_EQ(bar->width(), 150);
    bar->setNoMoveBar(true);
    EXPECT_FALSE(bar->PicLeft()->isVisibleTo(bar));
    EXPECT_EQ(bar->PicTB()->x(), 0);
}

TEST(ThemedToolbarMenu, InformationMenuAndSchemes)
{
    ThemedToolbar bar;
    bar.setcMenuItemTitle("Information");
    bar.setcMenuItem(1, "About");
    EXPECT_EQ(bar.Menu()->title(), "Information");
    ASSERT_NE(bar.Menu()->ItemAction(1), nullptr);
    EXPECT_EQ(bar.Menu()->ItemAction(1)->text(), "About");
    EXPECT_EQ(bar.Menu()->ItemAction(2), nullptr);

    QSignalSpy menuClicks(&bar, &ThemedToolbar::MenuClick);
    bar.Menu()->ItemAction(1)->trigger();
    ASSERT_EQ(menuClicks.count(), 1);
    EXPECT_EQ(menuClicks.at(0).at(0).toInt(), 1);

    QSignalSpy themeClicks(&bar, &ThemedToolbar::ThemeColorClick);
    ASSERT_NE(bar.Menu()->SchemeAction(4), nullptr);
    bar.Menu()->SchemeAction(4)->trigger();
    EXPECT_EQ(bar.ThemeColor(), 4);
    EXPECT_EQ(themeClicks.count(), 1);
    EXPECT_EQ(bar.Colors(), ThemeColorsFor(4, false));
    EXPECT_TRUE(bar.Menu()->SchemeAction(4)->isChecked());

    bar.setMenuLanguage(ToolbarMenu::German);
    EXPECT_EQ(bar.Menu()->SchemeAction(0)->text(), "Blau");
    bar.setShowMenuColor(false);
    EXPECT_EQ(bar.Menu()->SchemeAction(0), nullptr);
    EXPECT_EQ(ErrorText([&] { bar.setcMenuItem(7, "x"); }), "Invalid property array index");
}

TEST(ThemedToolbarMenu, ItemsSetInARowShowTheirLastValuesAndTheClientsGroupFollows)
{
    ThemedToolbar bar;
    for (int n = 1; n <= 6; ++n)
        bar.setcMenuItem(n, QStringLiteral("Item %1").arg(n));
    bar.setcMenuItem(3, "Third");
    QAction english("English"), german("Deutsch");
    bar.setClientMenuGroup("Language", {&english, &german});
    QAction *third = bar.Menu()->ItemAction(3);
    ASSERT_NE(third, nullptr);
    EXPECT_EQ(third->text(), "Third");
    EXPECT_EQ(bar.Menu()->ItemAction(6)->text(), "Item 6");
    EXPECT_EQ(bar.Menu()->ItemAction(3), third) << "looking again does not build the menu again";
    const QList<QAction *> actions = bar.Menu()->actions();
    const qsizetype heading = actions.indexOf(actions.at(actions.indexOf(&english) - 1));
    EXPECT_TRUE(actions.at(heading)->isSeparator());
    EXPECT_EQ(actions.at(heading)->text(), "Language");
    EXPECT_GT(actions.indexOf(&english), actions.indexOf(bar.Menu()->ItemAction(6))) << "after the items";
    EXPECT_EQ(actions.indexOf(&german), actions.indexOf(&english) + 1);

    bar.setcMenuItem(3, QString());
    EXPECT_EQ(bar.Menu()->ItemAction(3), nullptr);
    EXPECT_TRUE(bar.Menu()->actions().contains(&german)) << "the client's actions outlive a rebuild";
    bar.setClientMenuGroup("Language", {});
    EXPECT_FALSE(bar.Menu()->actions().contains(&german));
}

TEST(ThemedToolbarMenu, DialogsAnsweredWithoutAPerson)
{
    ThemedToolbar bar;
    QString seenFilter;
    ToolbarDialogs::SetRunner([&](QDialog &d) {
        if (auto *c = qobject_cast<QColorDialog *>(&d))
            c->setCurrentColor(QColor(10, 20, 30));
        if (auto *f = qobject_cast<QFontDialog *>(&d))
            f->setCurrentFont(QFont("Serif", 14));
        if (auto *f = qobject_cast<QFileDialog *>(&d)) {
            seenFilter = f->nameFilters().join(";");
            return int(QDialog::Rejected);
        }
        return int(QDialog::Accepted);
    });
    EXPECT_EQ(bar.ShowColor(RGB(1, 2, 3)), std::optional<OleColor>(RGB(10, 20, 30)));
    QFont font;
    EXPECT_TRUE(bar.ShowFont(font));
    EXPECT_EQ(font.pointSize(), 14);
    EXPECT_EQ(bar.ShowOpen("Open"), QString());
    EXPECT_EQ(seenFilter, "All Files (*.*)");

    ToolbarDialogs::SetRunner([](QDialog &) { return int(QDialog::Rejected); });
    EXPECT_FALSE(bar.ShowColor(RGB(1, 2, 3)).has_value());
    QFont kept("Serif", 9);
    EXPECT_FALSE(bar.ShowFont(kept));
    EXPECT_EQ(kept.pointSize(), 9);
    ToolbarDialogs::SetRunner({});
}

TEST(ThemedToolbarProperties, WritesOnlyNonDefaultsAndReadsBack)
{
    ThemedToolbar fresh;
    EXPECT_TRUE(fresh.WriteProperties().isEmpty());

    auto bar = MainBar(3);
    bar->setcMenuItemTitle("Information");
    bar->setcMenuItem(1, "About");
    bar->setBtnValue(5, true);
    bar->setReverseGradient(true);
    const QVariantMap bag = bar->WriteProperties();
    EXPECT_EQ(bag.value("ThemeColor").toInt(), 3);
    EXPECT_EQ(bag.value("ButtonCount").toInt(), 9);
    EXPECT_EQ(bag.value("BtnKey1").toString(), "Open");
    EXPECT_EQ(bag.value("BtnState5").toInt(), btn::StateValue);
    EXPECT_EQ(bag.value("BtnLeft9").toInt(), 262);
    EXPECT_FALSE(bag.contains("IsStrech"));
    EXPECT_FALSE(bag.contains("BtnCaption1"));
    EXPECT_FALSE(bag.contains("BtnIcon4")) << "a separator has no picture";

    ThemedToolbar copy;
    copy.ReadProperties(bag);
    EXPECT_EQ(copy.ButtonCount(), 9);
    EXPECT_EQ(copy.ThemeColor(), 3);
    EXPECT_TRUE(copy.ReverseGradient());
    EXPECT_EQ(copy.cMenuItemTitle(), "Information");
    EXPECT_EQ(copy.Menu()->ItemAction(1)->text(), "About");
    EXPECT_TRUE(copy.BtnValue(5));
    EXPECT_EQ(copy.BtnToolTipText(9), "Compare visual and audio");
    EXPECT_EQ(copy.BtnIcon(1), bar->BtnIcon(1));
    EXPECT_EQ(copy.BtnLeft(9), 262);
    EXPECT_EQ(copy.WriteProperties(), bag);
}

TEST(ThemedToolbarButtons, MouseEventsPassThroughInBarPixels)
{
    auto bar = MainBar();
    QSignalSpy downs(bar.get(), &ThemedToolbar::MouseDown);
    QSignalSpy ups(bar.get(), &ThemedToolbar::MouseUp);
    SendMouse(bar->PicTB(), QEvent::MouseButtonPress, QPoint(10, 12), Qt::RightButton);
    SendMouse(bar->PicTB(), QEvent::MouseButtonRelease, QPoint(10, 12), Qt::RightButton);
    ASSERT_EQ(downs.count(), 1);
    EXPECT_EQ(downs.at(0).at(0).toInt(), 2);
    EXPECT_EQ(downs.at(0).at(2).toInt(), 10 + ThemedToolbar::GripWidth);
    EXPECT_EQ(downs.at(0).at(3).toInt(), 12);
    EXPECT_EQ(ups.count(), 1);

    // A disabled bar draws every button disabled and clicks none.
    QSignalSpy clicks(bar.get(), &ThemedToolbar::ButtonClick);
    bar->setEnabled(false);
    Click(bar->PicTB(), CentreOf(*bar, 1));
    EXPECT_EQ(clicks.count(), 0);
    EXPECT_EQ(bar->WriteProperties().value("Enabled", true).toBool(), false);
}
