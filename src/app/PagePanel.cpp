#include "app/PagePanel.h"

#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <QPixmap>

namespace {

class PixmapOnShow : public QObject {
public:
    PixmapOnShow(QLabel *label, const QString &path) : QObject(label), m_path(path) {}

protected:
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Show) {
            static_cast<QLabel *>(watched)->setPixmap(QPixmap(m_path));
            watched->removeEventFilter(this);
            deleteLater();
        }
        return false;
    }

private:
    QString m_path;
};

} // namespace

void SetPixmapWhenShown(QLabel *label, const QString &path)
{
    if (label->isVisible()) {
        label->setPixmap(QPixmap(path));
        return;
    }
    label->installEventFilter(new PixmapOnShow(label, path));
}

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
    m_pictureFile.clear();
    update();
}

void PagePanel::setPictureFile(const QString &path)
{
    m_picture = QImage();
    m_pictureFile = path;
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
    if (!m_pictureFile.isEmpty()) {
        m_picture = QImage(m_pictureFile);
        m_pictureFile.clear();
    }
    if (!m_picture.isNull())
        painter.drawImage(QPoint(0, 0), m_picture);
}

void PagePanel::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    Q_EMIT Resize();
}
