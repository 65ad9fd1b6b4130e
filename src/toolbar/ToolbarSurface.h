#pragma once
// A drawing surface of the themed toolbar (grip, button area, end area, overflow pop-up): it
// owns nothing and hands its paint and mouse events to the toolbar.

#include <QWidget>

#include <functional>

namespace zrt {

class ToolbarSurface : public QWidget {
public:
    using PaintHandler = std::function<void(QPainter &)>;
    using MouseHandler = std::function<void(QMouseEvent *)>;

    explicit ToolbarSurface(QWidget *parent = nullptr, Qt::WindowFlags flags = {});

    void setPaintHandler(PaintHandler handler) { m_paint = std::move(handler); }
    void setPressHandler(MouseHandler handler) { m_press = std::move(handler); }
    void setMoveHandler(MouseHandler handler) { m_move = std::move(handler); }
    void setReleaseHandler(MouseHandler handler) { m_release = std::move(handler); }

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    PaintHandler m_paint;
    MouseHandler m_press, m_move, m_release;
};

} // namespace zrt
