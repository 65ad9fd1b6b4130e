#pragma once
// One button of the themed toolbar and the layout that places the buttons on the bar.

#include "gfx/GraphicsBas1.h"

#include <QFont>
#include <QImage>
#include <QRect>
#include <QString>

#include <vector>

namespace zrt {

namespace btn {
// BtnType: 0 is a button, anything else a separator.
constexpr int TypeButton = 0;
constexpr int TypeSeparator = 1;
// BtnStyle: 1 toggles BtnValue on each click, 2 adds a drop-down arrow; any other value
// (the main window uses -1) is a plain push button.
constexpr int StylePush = -1;
constexpr int StyleCheck = 1;
constexpr int StyleDropDown = 2;
constexpr int DropDownExtra = 13;
// BtnAlignment: where the icon stands beside the caption.
constexpr int IconLeft = 0, IconRight = 1, IconTop = 2, IconBottom = 3;
// btnState as kept by the button.
constexpr int StateNormal = 0, StateValue = 2, StateDisabled = 5;
constexpr int Gap = 2;
} // namespace btn

QFont DefaultButtonFont();

struct ToolbarButton {
    QString caption;
    bool enabled = true;
    QString key;
    QImage icon;          // a null image is the empty picture
    int iconSize = 16;
    int alignment = btn::IconLeft;
    QString toolTipText;
    OleColor foreColor = SystemColor(8); // window text
    QFont font = DefaultButtonFont();
    int left = 0, top = 0, width = 0, height = 0, rHeight = 0;
    int type = btn::TypeButton;
    int state = btn::StateNormal;
    int style = 0;
    OleColor maskColor = RGB(0, 255, 0);
    bool useMaskColor = false;
    bool value = false;

    bool isSeparator() const { return type != btn::TypeButton; }
    bool hasIcon() const { return !icon.isNull(); }
    // The lit area: the full height of the bar between the button's top gaps.
    QRect litRect() const { return QRect(left, top, width, rHeight); }
};

// Where a button is shown now: on the bar, or in the overflow pop-up at its own place.
struct ButtonPlace {
    QRect rect;
    bool onBar = true;
};

// Places buttons from..end (0-based) behind their predecessors on a surface of the given inner
// height; each caption is measured in the button's font.
void LayoutButtons(std::vector<ToolbarButton> &buttons, std::size_t from, int innerHeight);

// The size a button's own content needs, from the table of icon and caption sizes.
QSize ButtonContentSize(const ToolbarButton &button);

// The height a bar needs so that its tallest button fits between the gaps.
int BarHeightFor(const std::vector<ToolbarButton> &buttons);

// Marks the buttons that end inside a surface of the given width as on the bar.
void PlaceOnBar(const std::vector<ToolbarButton> &buttons, std::vector<ButtonPlace> &places, int barWidth);

// Lays the buttons that are not on the bar out in rows for the pop-up, wrapping at maxWidth;
// gives the pop-up's size. Separators at the start or end of a row are left out.
QSize PlaceInPopup(const std::vector<ToolbarButton> &buttons, std::vector<ButtonPlace> &places, int maxWidth);

} // namespace zrt
