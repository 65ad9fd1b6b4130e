#include "app/PagePanel.h"

#include <QPainter>

PagePanel::PagePanel(QWidget *parent) : QWidget(parent)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void PagePanel::setBackColor(const QColor &color)
{
    m_backColor = color;
    // Rounded buttons paint their cut corners in their container's colour.
    setProperty("BackColor", color);
    update();
}

void PagePanel::setPicture(const QImage &picture)
{
    m_picture = picture;
    update();
}

void PagePanel::setGradient(const QColor &from, const QColor &to, zrt::GradientDirection direction)
{
    m_gradient = true;
    m_from = from;
    m_to = to;
    m_direction = direction;
    update();
}

void PagePanel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (m_gradient) {
        zrt::DrawGradient(painter, rect(), m_from, m_to, m_direction);
        return;
    }
    painter.fillRect(rect(), m_backColor);
    if (!m_picture.isNull())
        painter.drawImage(QPoint(0, 0), m_picture);
}

void PagePanel::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    Q_EMIT Resize();
}
