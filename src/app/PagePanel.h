#pragma once
// A plain container of the main window: a back colour, optionally a picture drawn at its top
// left corner or a gradient over its whole area, and a Resize notice for the layout rules.

#include "toolbar/GraphicsBas1.h"

#include <QImage>
#include <QWidget>

class PagePanel : public QWidget {
    Q_OBJECT
public:
    explicit PagePanel(QWidget *parent = nullptr);

    void setBackColor(const QColor &color);
    QColor backColor() const { return m_backColor; }
    void setPicture(const QImage &picture);
    void setGradient(const QColor &from, const QColor &to, zrt::GradientDirection direction);

Q_SIGNALS:
    void Resize();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QColor m_backColor{Qt::white};
    QImage m_picture;
    bool m_gradient = false;
    QColor m_from, m_to;
    zrt::GradientDirection m_direction = zrt::GradientDirection::TopToBottom;
};
