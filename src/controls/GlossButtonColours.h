#pragma once
// Colour conversions that the button's painting and property files share.
#include "gfx/GraphicsBas1.h"

#include <QColor>
#include <QVariant>

namespace zrt {

inline QRgb Rgb(OleColor color) { return TranslateColor(color).rgb(); }

inline OleColor ColorOf(const QVariant &value, OleColor fallback)
{
    bool ok = false;
    const qlonglong v = value.toLongLong(&ok);
    return ok ? static_cast<OleColor>(v) : fallback;
}

} // namespace zrt
