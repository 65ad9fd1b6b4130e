#include "toolbar/ToolbarSurface.h"

#include <QMouseEvent>
#include <QPainter>

namespace zrt {

ToolbarSurface::ToolbarSurface(QWidget *parent, Qt::WindowFlags flags) : QWidget(parent, flags)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
}

void ToolbarSurface::paintEvent(QPaintEvent *)
{
    if (!m_paint)
        return;
    QPainter painter(this);
    m_paint(painter);
}

void ToolbarSurface::mousePressEvent(QMouseEvent *event)
{
    if (m_press)
        m_press(event);
    event->accept();
}

void ToolbarSurface::mouseMoveEvent(QMouseEvent *event)
{
    if (m_move)
        m_move(event);
    event->accept();
}

void ToolbarSurface::mouseReleaseEvent(QMouseEvent *event)
{
    if (m_release)
        m_release(event);
    event->accept();
}

} // namespace zrt
