#pragma once
// Colours as callers pass them: 32-bit with red in the low byte; the top bit marks a system
// colour index, resolved through the application's palette.

#include <QColor>
#include <QtGlobal>

namespace zrt {

inline constexpr quint32 RGB(int r, int g, int b)
{
    return static_cast<quint32>(r & 0xFF) | (static_cast<quint32>(g & 0xFF) << 8) | (static_cast<quint32>(b & 0xFF) << 16);
}

QColor DialogColour(quint32 colour);

} // namespace zrt
