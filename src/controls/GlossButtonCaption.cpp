// GlossButton: the caption and the picture on the face.
#include "controls/GlossButton.h"

#include "controls/GlossButtonColours.h"

#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace zrt {

namespace {

// The picture reduced to one colour: every opaque pixel, or with darkOnly only the opaque pixels
// that are not light (the ink of an embossed, disabled picture).
QImage Silhouette(const QPixmap &picture, QRgb color, bool darkOnly)
{
    QImage image = picture.toImage().convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y) {
        auto *line = reinterpret_cast<QRgb *>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x) {
            const QRgb p = line[x];
            bool ink = qAlpha(p) >= 128;
            if (ink && darkOnly)
                ink = qGray(p) < 192;
            line[x] = ink ? (color | 0xFF000000u) : 0u;
        }
    }
    return image;
}

} // namespace

// ---------------------------------------------------------------------------------------------
// Caption and picture

void GlossButton::DrawIconWCaption(ButtonState state)
{
    const int W = width();
    const int H = height();
    const int picW = m_Picture.isNull() ? 0 : m_Picture.width();
    const int picH = m_Picture.isNull() ? 0 : m_Picture.height();
    const QFontMetrics metrics(font());
    const int textW = m_Caption.isEmpty() ? 0 : metrics.horizontalAdvance(m_Caption);
    const int textH = m_Caption.isEmpty() ? 0 : metrics.height();
    int picX = 0, picY = 0, textX = 0, textY = 0;
    switch (m_PictureAlignment) {
    case PictureAbove:
        picX = (W - picW) / 2 + 1;
        picY = (H - (picH + textH)) / 2 + 1;
        textX = std::abs(W / 2 - textW / 2);
        textY = std::abs(H / 2 + picH / 2 - textH / 2);
        break;
    case PictureBelow:
        picX = (W - picW) / 2;
        picY = (H - (picH - textH)) / 2 + 1;
        textX = std::abs(W / 2 - textW / 2);
        textY = std::abs(H / 2 - (picH + textH) / 2);
        break;
    case PictureLeft:
        picX = CornerRadius != 0 ? CornerRadius : 8;
        picY = (H - picH) / 2 + 1;
        textX = std::abs(W / 2 - textW / 2);
        textY = std::abs(H / 2 - textH / 2);
        break;
    case PictureRight:
        picX = CornerRadius != 0 ? W - CornerRadius - picW : W - 8 - picW;
        picY = (H - picH) / 2 + 1;
        textX = std::abs(W / 2 - textW / 2);
        textY = std::abs(H / 2 - textH / 2);
        break;
    default: break;
    }
    if (state == StateDown) {
        // The contents sink one pixel while pressed.
        ++picX;
        ++picY;
        ++textX;
        ++textY;
    }
    if (!m_Caption.isEmpty())
        DrawCaption(textX, textY, state);
    if (!m_Picture.isNull())
        DrawPictureAt(picX, picY, state);
    Refresh();
}

void GlossButton::DrawCaption(int x, int y, ButtonState state)
{
    QPainter painter(&m_Surface);
    painter.setFont(font());
    const int flags = Qt::AlignLeft | Qt::AlignTop | Qt::TextShowMnemonic | Qt::TextDontClip | Qt::TextSingleLine;
    const QRect box(x, y, std::max(m_Surface.width(), 1) * 4, std::max(m_Surface.height(), 1) * 4);
    if (!m_Enabled) {
        // Embossed: a light copy one pixel down and right under a shadow-coloured one.
        painter.setPen(TranslateColor(SystemColor(20)));
        painter.drawText(box.translated(1, 1), flags, m_Caption);
        painter.setPen(TranslateColor(SystemColor(16)));
        painter.drawText(box, flags, m_Caption);
        return;
    }
    OleColor color = m_SurfaceForeColor;
    if (state == StateHover && m_CaptionHighLite)
        color = m_CaptionHighLiteColor;
    painter.setPen(TranslateColor(color));
    painter.drawText(box, flags, m_Caption);
}

void GlossButton::DrawPictureAt(int x, int y, ButtonState state)
{
    QPainter painter(&m_Surface);
    if (!m_Enabled) {
        painter.drawImage(x + 1, y + 1, Silhouette(m_Picture, TranslateColor(SystemColor(20)).rgb(), true));
        painter.drawImage(x, y, Silhouette(m_Picture, TranslateColor(SystemColor(16)).rgb(), true));
        return;
    }
    if (state == StateHover && m_IconHighLite) {
        painter.drawImage(x, y, Silhouette(m_Picture, Rgb(m_IconHighLiteColor), false));
        return;
    }
    painter.drawPixmap(x, y, m_Picture);
}

} // namespace zrt
