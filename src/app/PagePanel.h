#pragma once
// A plain container of the main window: a back colour, optionally a picture drawn at its top
// left corner or a gradient over its whole area, and a Resize notice for the layout rules.

#include "gfx/GraphicsBas1.h"

#include <QImage>
#include <QWidget>

class QLabel;

// Gives the label the picture in the file when it is first shown, not before.
void SetPixmapWhenShown(QLabel *label, const QString &path);

class PagePanel : public QWidget {
    Q_OBJECT
public:
    explicit PagePanel(QWidget *parent = nullptr);

    void setBackColor(const QColor &color);
    QColor backColor() const { return m_backColor; }
    void setPicture(const QImage &picture);
    // The picture in a file, read at the panel's first paint: a page never shown never reads it.
    void setPictureFile(const QString &path);
    void setGradient(const QColor &from, const QColor &to, zrt::GradientDirection direction);

Q_SIGNALS:
    void Resize();

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    QColor m_backColor{Qt::white};
    QImage m_picture;
    QString m_pictureFile;
    bool m_gradient = false;
    QColor m_from, m_to;
    zrt::GradientDirection m_direction = zrt::GradientDirection::TopToBottom;
};
