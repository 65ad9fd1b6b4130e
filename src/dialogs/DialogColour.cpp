#include "dialogs/DialogColour.h"

#include <QApplication>
#include <QPalette>

namespace zrt {

namespace {

// The few system colour indexes a dialog is likely to be given, mapped onto palette roles.
QColor SystemColour(quint32 index)
{
    const QPalette palette = QApplication::palette();
    switch (index) {
    case 5: // window
        return palette.color(QPalette::Base);
    case 8: // window text
    case 18: // button text
        return palette.color(QPalette::WindowText);
    case 13: // highlight
        return palette.color(QPalette::Highlight);
    case 14: // highlight text
        return palette.color(QPalette::HighlightedText);
    case 16: // button shadow
        return palette.color(QPalette::Mid);
    case 20: // button highlight
        return palette.color(QPalette::Light);
    case 24: // tool tip
        return palette.color(QPalette::ToolTipBase);
    default: // button face and everything else
        return palette.color(QPalette::Button);
    }
}

} // namespace

QColor DialogColour(quint32 colour)
{
    if (colour & 0x80000000u)
        return SystemColour(colour & 0xFFu);
    return QColor(static_cast<int>(colour & 0xFF), static_cast<int>((colour >> 8) & 0xFF), static_cast<int>((colour >> 16) & 0xFF));
}

} // namespace zrt
