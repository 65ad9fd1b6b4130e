#include "toolbar/ToolbarButton.h"

#include <QFontMetrics>

#include <algorithm>

namespace zrt {

QFont DefaultButtonFont() { return QFont(QStringLiteral("MS Sans Serif"), 8); }

QSize ButtonContentSize(const ToolbarButton &b)
{
    const bool hasCaption = !b.caption.isEmpty();
    const int i = b.iconSize;
    if (!b.hasIcon() && !hasCaption)
        return {24, 24};
    const QFontMetrics metrics(b.font);
    const int tw = hasCaption ? metrics.horizontalAdvance(b.caption) : 0;
    const int th = hasCaption ? metrics.height() : 0;
    if (!b.hasIcon())
        return {tw + 8, th + 8};
    if (!hasCaption)
        return {i + 8, i + 8};
    if (b.alignment == btn::IconTop || b.alignment == btn::IconBottom)
        return {std::max(tw, i) + 8, th + 12 + i + 1};
    return {tw + 12 + i, std::max(th, i) + 8};
}

void LayoutButtons(std::vector<ToolbarButton> &buttons, std::size_t from, int innerHeight)
{
    for (std::size_t n = from; n < buttons.size(); ++n) {
        ToolbarButton &b = buttons[n];
        b.left = n == 0 ? btn::Gap : buttons[n - 1].left + buttons[n - 1].width + btn::Gap;
        b.top = 2;
        if (b.isSeparator()) {
            b.top = 4;
            b.width = 2;
            b.height = innerHeight - 9;
            b.rHeight = innerHeight - 9;
            continue;
        }
        const QSize size = ButtonContentSize(b);
        b.width = size.width() + (b.style == btn::StyleDropDown ? btn::DropDownExtra : 0);
        b.height = size.height();
        b.rHeight = innerHeight - 2 * b.top - 1;
    }
}

int BarHeightFor(const std::vector<ToolbarButton> &buttons)
{
    int tallest = 24;
    for (const ToolbarButton &b : buttons)
        if (!b.isSeparator())
            tallest = std::max(tallest, b.height);
    return tallest + 2 * 2 + 1;
}

void PlaceOnBar(const std::vector<ToolbarButton> &buttons, std::vector<ButtonPlace> &places, int barWidth)
{
    places.resize(buttons.size());
    for (std::size_t n = 0; n < buttons.size(); ++n) {
        const ToolbarButton &b = buttons[n];
        places[n].onBar = b.left + b.width <= barWidth;
        if (places[n].onBar)
            places[n].rect = b.litRect();
    }
}

namespace {

// Separators that would open or close a row of the pop-up mean nothing there.
bool SkipInPopup(const std::vector<ToolbarButton> &buttons, const std::vector<ButtonPlace> &places,
                 std::size_t n, int x)
{
    if (!buttons[n].isSeparator())
        return false;
    if (x == btn::Gap)
        return true;
    for (std::size_t k = n + 1; k < buttons.size(); ++k)
        if (!places[k].onBar)
            return buttons[k].isSeparator();
    return true;
}

} // namespace

QSize PlaceInPopup(const std::vector<ToolbarButton> &buttons, std::vector<ButtonPlace> &places, int maxWidth)
{
    int rowHeight = 24;
    for (std::size_t n = 0; n < buttons.size(); ++n)
        if (!places[n].onBar && !buttons[n].isSeparator())
            rowHeight = std::max(rowHeight, buttons[n].height);
    int x = btn::Gap, y = btn::Gap, widest = 0;
    bool any = false;
    for (std::size_t n = 0; n < buttons.size(); ++n) {
        if (places[n].onBar)
            continue;
        places[n].rect = QRect();
        if (SkipInPopup(buttons, places, n, x))
            continue;
        const int w = buttons[n].width;
        if (x > btn::Gap && x + w + btn::Gap > maxWidth) {
            x = btn::Gap;
            y += rowHeight + btn::Gap;
            if (buttons[n].isSeparator())
                continue;
        }
        places[n].rect = buttons[n].isSeparator() ? QRect(x, y + 2, w, rowHeight - 4) : QRect(x, y, w, rowHeight);
        x += w + btn::Gap;
        widest = std::max(widest, x);
        any = true;
    }
    if (!any)
        return {};
    return {widest, y + rowHeight + btn::Gap};
}

} // namespace zrt
