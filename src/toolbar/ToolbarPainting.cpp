#include "toolbar/ToolbarPainting.h"

#include "gfx/DeviceImage.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPixmapCache>
#include <QPolygon>

#include <algorithm>

namespace zrt {

namespace {

QColor C(const ThemeColors &colors, int entry) { return TranslateColor(colors[static_cast<std::size_t>(entry)]); }

// Every row of a top-to-bottom gradient holds one colour: build one column of the shared
// gradient and stretch it, instead of a full image for each wide bar.
void FillVerticalGradient(QPainter &p, const QRect &rect, const QColor &from, const QColor &to)
{
    if (rect.isEmpty())
        return;
    // One colour per device row, so the ground is as fine as the screen on a scaled one.
    const qreal dpr = p.device() ? p.device()->devicePixelRatio() : 1.0;
    p.drawImage(rect, GradientImage(QSize(1, DeviceCoord(rect.height(), dpr)), from, to, GradientDirection::TopToBottom));
}

void DrawOutline(QPainter &p, const QRect &rect, const QColor &color)
{
    p.setPen(color);
    p.setBrush(Qt::NoBrush);
    p.drawRect(rect.adjusted(0, 0, -1, -1));
}

// Ground, then the outline over its border pixels, so the first and last inner rows hold the
// gradient's end colours exactly.
void DrawLitGround(QPainter &p, const QRect &rect, const QColor &from, const QColor &to, const QColor &line)
{
    FillVerticalGradient(p, rect.adjusted(1, 1, -1, -1), from, to);
    DrawOutline(p, rect, line);
}

void DrawButtonGround(QPainter &p, const QRect &rect, ButtonLook look, const ThemeColors &colors)
{
    switch (look) {
    case ButtonLook::Hover:
        DrawLitGround(p, rect, C(colors, theme::HoverFrom), C(colors, theme::HoverTo), C(colors, theme::HoverLine));
        break;
    case ButtonLook::Pressed:
    case ButtonLook::CheckedHot:
        DrawLitGround(p, rect, C(colors, theme::PressedFrom), C(colors, theme::PressedTo),
                      C(colors, theme::HoverLine));
        break;
    case ButtonLook::Checked:
        DrawLitGround(p, rect, C(colors, theme::PressedFrom), C(colors, theme::PressedTo), C(colors, theme::Line));
        break;
    case ButtonLook::Normal:
    case ButtonLook::Disabled:
        break; // the bar's own gradient shows: nothing is lit
    }
}

void DrawDropDownPart(QPainter &p, const QRect &rect, ButtonLook look, const ThemeColors &colors)
{
    const QRect part(rect.right() - btn::DropDownExtra + 1, rect.top(), btn::DropDownExtra, rect.height());
    if (look == ButtonLook::Hover) {
        DrawLitGround(p, part, C(colors, theme::ArrowHoverFrom), C(colors, theme::ArrowHoverTo),
                      C(colors, theme::HoverLine));
    } else if (look == ButtonLook::Pressed || look == ButtonLook::CheckedHot) {
        DrawLitGround(p, part, C(colors, theme::ArrowPressedFrom), C(colors, theme::ArrowPressedTo),
                      C(colors, theme::HoverLine));
    }
    const QColor glyph = look == ButtonLook::Disabled ? TranslateColor(SystemColor(17)) : QColor(Qt::black);
    const QPoint c = part.center();
    p.setPen(Qt::NoPen);
    p.setBrush(glyph);
    p.drawPolygon(QPolygon({QPoint(c.x() - 3, c.y() - 1), QPoint(c.x() + 3, c.y() - 1), QPoint(c.x(), c.y() + 2)}));
}

QImage ScaledIcon(const ToolbarButton &b)
{
    if (b.icon.width() == b.iconSize && b.icon.height() == b.iconSize)
        return b.icon;
    // Nearest pixels only, so the mask colour stays exact.
    return b.icon.scaled(b.iconSize, b.iconSize, Qt::IgnoreAspectRatio, Qt::FastTransformation);
}

// The icon as drawn: at its size, the mask colour made transparent, grey when disabled. Kept in
// the pixmap cache, so a repaint does not convert the same icon again.
QPixmap PreparedIcon(const ToolbarButton &b, bool disabled)
{
    const QString key = QStringLiteral("zrt-toolbar-%1-%2-%3-%4-%5")
                            .arg(b.icon.cacheKey())
                            .arg(b.iconSize)
                            .arg(b.useMaskColor ? b.maskColor : 0xFFFFFFFFu)
                            .arg(disabled)
                            .arg(b.useMaskColor);
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap))
        return pixmap;
    const QImage icon = ScaledIcon(b);
    const QColor mask = TranslateColor(b.maskColor);
    QImage prepared;
    if (disabled) {
        prepared = DisabledIcon(icon, b.useMaskColor, mask);
    } else if (b.useMaskColor) {
        prepared = QImage(icon.size(), QImage::Format_ARGB32);
        prepared.fill(Qt::transparent);
        QPainter painter(&prepared);
        TransparentCopy(painter, QPoint(0, 0), icon.size(), icon, QPoint(0, 0), mask);
    } else {
        prepared = icon;
    }
    pixmap = QPixmap::fromImage(prepared);
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

void DrawButtonIcon(QPainter &p, const ToolbarButton &b, const QPoint &at, bool disabled)
{
    p.drawPixmap(at, PreparedIcon(b, disabled));
}

void DrawButtonCaption(QPainter &p, const ToolbarButton &b, const QRect &rect, bool disabled)
{
    p.setFont(b.font);
    p.setPen(disabled ? TranslateColor(SystemColor(17)) : TranslateColor(b.foreColor));
    p.drawText(rect, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, b.caption);
}

// Places icon and caption inside the content box as the layout sized it.
void DrawButtonContent(QPainter &p, const ToolbarButton &b, const QRect &box, bool disabled)
{
    const QFontMetrics metrics(b.font);
    const bool hasCaption = !b.caption.isEmpty();
    const int tw = hasCaption ? metrics.horizontalAdvance(b.caption) : 0;
    const int th = hasCaption ? metrics.height() : 0;
    const int i = b.iconSize;
    const int x = box.left(), y = box.top(), w = box.width(), h = box.height();
    QPoint iconAt(x + 4, y + (h - i) / 2);
    QRect textRect(x + 4, y + (h - th) / 2, tw, th);
    if (hasCaption && b.hasIcon()) {
        switch (b.alignment) {
        case btn::IconRight: iconAt.setX(x + 8 + tw); break;
        case btn::IconTop:
            iconAt = QPoint(x + (w - i) / 2, y + 4);
            textRect.moveTo(x + (w - tw) / 2, y + 8 + i);
            break;
        case btn::IconBottom:
            textRect.moveTo(x + (w - tw) / 2, y + 4);
            iconAt = QPoint(x + (w - i) / 2, y + 8 + th);
            break;
        default: textRect.moveLeft(x + 8 + i); break;
        }
    }
    if (b.hasIcon())
        DrawButtonIcon(p, b, iconAt, disabled);
    if (hasCaption)
        DrawButtonCaption(p, b, textRect, disabled);
}

void DrawChevronMark(QPainter &p, const QPoint &at, const QColor &color)
{
    p.setPen(color);
    for (int k = 0; k < 2; ++k) {
        const int x = at.x() + 4 * k;
        p.drawLine(x, at.y(), x + 2, at.y() + 2);
        p.drawLine(x + 2, at.y() + 2, x, at.y() + 4);
    }
}

void DrawMenuMark(QPainter &p, const QPoint &at, const QColor &color)
{
    p.setPen(Qt::NoPen);
    p.setBrush(color);
    p.drawPolygon(QPolygon({at, QPoint(at.x() + 6, at.y()), QPoint(at.x() + 3, at.y() + 3)}));
}

} // namespace

ButtonLook LookOf(const ToolbarButton &b, bool barEnabled, bool hot, bool pressed)
{
    if (!barEnabled || !b.enabled || b.state == btn::StateDisabled)
        return ButtonLook::Disabled;
    if (pressed && hot)
        return ButtonLook::Pressed;
    if (b.state == btn::StateValue)
        return hot ? ButtonLook::CheckedHot : ButtonLook::Checked;
    return hot ? ButtonLook::Hover : ButtonLook::Normal;
}

void DrawBarGround(QPainter &p, const QRect &rect, const ThemeColors &colors)
{
    FillVerticalGradient(p, rect, C(colors, theme::BarFrom), C(colors, theme::BarTo));
}

void DrawGrip(QPainter &p, const QRect &rect, const ThemeColors &colors)
{
    const int x = rect.left() + (rect.width() - 3) / 2;
    for (int y = rect.top() + 4; y + 3 <= rect.bottom() - 3; y += 4) {
        p.fillRect(x + 1, y + 1, 2, 2, Qt::white);
        p.fillRect(x, y, 2, 2, C(colors, theme::Line));
    }
}

void DrawSeparator(QPainter &p, const QRect &rect, const ThemeColors &colors)
{
    p.fillRect(QRect(rect.left(), rect.top(), 1, rect.height()), C(colors, theme::Line));
    p.fillRect(QRect(rect.left() + 1, rect.top(), 1, rect.height()), Qt::white);
}

void DrawButton(QPainter &p, const ToolbarButton &b, const QRect &rect, ButtonLook look, const ThemeColors &colors)
{
    DrawButtonGround(p, rect, look, colors);
    const int arrow = b.style == btn::StyleDropDown ? btn::DropDownExtra : 0;
    if (arrow)
        DrawDropDownPart(p, rect, look, colors);
    QRect box(rect.left(), rect.top() + (rect.height() - b.height) / 2, rect.width() - arrow, b.height);
    if (look == ButtonLook::Pressed)
        box.translate(1, 1);
    DrawButtonContent(p, b, box, look == ButtonLook::Disabled);
}

void DrawEndArea(QPainter &p, const QRect &rect, const ThemeColors &colors, bool lit, bool overflow)
{
    QColor mark = Qt::white;
    if (lit) {
        DrawLitGround(p, rect, C(colors, theme::HoverFrom), C(colors, theme::HoverTo), C(colors, theme::HoverLine));
        mark = Qt::black;
    } else {
        FillVerticalGradient(p, rect, C(colors, theme::EndFrom), C(colors, theme::EndTo));
    }
    const int x = rect.left() + (rect.width() - 7) / 2;
    if (overflow)
        DrawChevronMark(p, QPoint(x, rect.top() + rect.height() / 4 - 2), mark);
    DrawMenuMark(p, QPoint(x, rect.bottom() - 8), mark);
}

QImage DisabledIcon(const QImage &icon, bool useMask, const QColor &mask)
{
    QImage out = icon.convertToFormat(QImage::Format_ARGB32);
    const QRgb key = mask.rgb() & 0xFFFFFF;
    for (int y = 0; y < out.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(out.scanLine(y));
        for (int x = 0; x < out.width(); ++x) {
            if (useMask && (line[x] & 0xFFFFFF) == key) {
                line[x] = 0;
                continue;
            }
            // A light grey that keeps the shape's shading.
            const int grey = 128 + qGray(line[x]) / 2;
            line[x] = qRgba(grey, grey, grey, qAlpha(line[x]));
        }
    }
    return out;
}

} // namespace zrt
