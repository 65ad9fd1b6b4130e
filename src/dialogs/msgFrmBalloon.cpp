// msgFrm: the balloon's shape, its painting and dragging it.
#include "dialogs/msgFrm.h"

#include <QCursor>
#include <QMouseEvent>
#include <QPainter>

#include <climits>

namespace zrt {

namespace {

const QColor kFrameColour(70, 70, 70);

} // namespace

// ---- the shape ---------------------------------------------------------------------------

void msgFrm::DrawBalloon(bool NoPointer, float PointX, float PointY, qint16 Shadow)
{
    Q_UNUSED(Shadow) // the shadow looks the same whatever number it is given
    if (NoPointer) {
        const QRect screen = ScreenAt(QCursor::pos()); // the screen the pupil is looking at
        move(screen.left() + (screen.width() - width()) / 2, screen.top() + (screen.height() - height()) / 2);
        m_PointerStyle = BalloonShape::NoPointer;
    } else {
        m_PointerStyle = GetPointerStyle(PointX, PointY);
    }
    m_ShadowShown = BalloonShape::StandsOnScreen(QRect(pos(), size()), ScreenAt(pos() + QPoint(width() / 2, height() / 2)));
    ApplyShape();
}

BalloonShape::PointerStyle msgFrm::GetPointerStyle(float PointX, float PointY)
{
    const QPoint tip = (PointX == 0 || PointY == 0) ? QCursor::pos() : QPoint(qRound(PointX), qRound(PointY));
    const BalloonShape::PointerStyle style = BalloonShape::PointerStyleFor(tip, ScreenAt(tip));
    move(BalloonShape::WindowTopLeft(style, tip, size()));
    return style;
}

QRegion msgFrm::BalloonRegion() const
{
    QRegion region = BalloonShape::MainRegion(size());
    if (m_Dragging)
        return region;
    if (m_ShadowShown)
        region += BalloonShape::ShadowRegion(size());
    return region + BalloonShape::PointerRegion(m_PointerStyle, size());
}

void msgFrm::ApplyShape()
{
    setMask(BalloonRegion());
    update();
}

void msgFrm::n_RefreshShadow(qint16 Shadow)
{
    Q_UNUSED(Shadow)
    // Once moved, the balloon no longer points at its spot: it keeps face and shadow only.
    m_PointerStyle = BalloonShape::NoPointer;
    m_ShadowShown = BalloonShape::StandsOnScreen(QRect(pos(), size()), ScreenAt(pos() + QPoint(width() / 2, height() / 2)));
    ApplyShape();
}

// ---- painting ----------------------------------------------------------------------------

void msgFrm::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (m_ShadowShown && !m_Dragging)
        PaintShadow(painter);
    PaintFace(painter);
    if (!m_Dragging)
        PaintPointer(painter);
}

void msgFrm::PaintShadow(QPainter &painter) const
{
    // Dark strips over a clear ground: the outer ones let most of what lies behind show.
    painter.save();
    painter.setClipRegion(BalloonShape::ShadowRegion(size()));
    for (const BalloonShape::ShadowStrip &strip : BalloonShape::ShadowStrips(size())) {
        const QColor shade(0, 0, 0, (255 - strip.behindAlpha) / 2);
        painter.fillRect(strip.row, shade);
        painter.fillRect(strip.column, shade);
    }
    painter.restore();
}

void msgFrm::PaintFace(QPainter &painter) const
{
    painter.setPen(kFrameColour);
    painter.setBrush(TranslateColor(m_BackColour));
    painter.drawRoundedRect(BalloonShape::FaceRect(size()), 12, 12);
}

void msgFrm::PaintPointer(QPainter &painter) const
{
    const QPolygon triangle = BalloonShape::PointerPolygon(m_PointerStyle, size());
    if (triangle.isEmpty())
        return;
    painter.setPen(Qt::NoPen);
    painter.setBrush(TranslateColor(m_BackColour));
    painter.drawPolygon(triangle);
    // Only the two sides are framed; the base lies inside the face.
    painter.setPen(kFrameColour);
    painter.drawLine(triangle.point(0), triangle.point(1));
    painter.drawLine(triangle.point(0), triangle.point(2));
}

// ---- dragging ----------------------------------------------------------------------------

void msgFrm::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton || m_ShownPanel == InputPanel) {
        QDialog::mousePressEvent(event);
        return;
    }
    m_Dragging = true;
    m_DragOffset = event->globalPosition().toPoint() - pos();
    ApplyShape();
}

void msgFrm::mouseMoveEvent(QMouseEvent *event)
{
    if (m_Dragging && (event->buttons() & Qt::LeftButton))
        move(event->globalPosition().toPoint() - m_DragOffset);
    else
        QDialog::mouseMoveEvent(event);
}

void msgFrm::mouseReleaseEvent(QMouseEvent *event)
{
    if (!m_Dragging || event->button() != Qt::LeftButton) {
        QDialog::mouseReleaseEvent(event);
        return;
    }
    m_Dragging = false;
    n_RefreshShadow(static_cast<qint16>(m_Tag.toInt()));
}

} // namespace zrt
