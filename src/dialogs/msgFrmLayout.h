#pragma once
// Where the dialog puts its texts, buttons and panels, shared by building, sizing and filling them.
#include "dialogs/IconStrip.h"

#include <array>

namespace zrt {

// Places on the message panel, in twips.
constexpr int kTextLeft = 65;
constexpr int kTextTop = 600;
constexpr int kTextMargin = 130;  // the text is this much narrower than its panel
constexpr int kCheckGap = 70;     // from the text's bottom to the check box
constexpr int kButtonGap = 420;   // from the text's bottom to the buttons
constexpr int kPanelBelow = 900;  // room below the text for check box and buttons
constexpr std::array<int, 3> kButtonLefts{0, 1800, 3555};
constexpr int kButtonWidth = 1140;
constexpr int kButtonHeight = 405;

// Panels sit 30 pixels down and 8 in; the window is 65 pixels taller than its panel and
// 30 wider.
constexpr int kPanelTop = 30;
constexpr int kPanelLeft = 8;
constexpr int kPanelWidthLoss = 30;
constexpr int kWindowHeightGain = 65;
constexpr int kMinimumWidth = 160; // pixels; a narrower window could not hold a panel

constexpr int kIconSide = IconStrip::kCellSize;

} // namespace zrt
