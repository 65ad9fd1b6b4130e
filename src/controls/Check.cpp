#include "controls/Check.h"
#include "gfx/DeviceImage.h"
#include "gfx/EventCodes.h"

#include <QApplication>
#include <QCursor>
#include <QLabel>
#include <QMouseEvent>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QTimer>

#include <algorithm>

namespace zrt {

namespace {

// The box's colours in each look.
struct BoxColors {
    QColor border, fillTop, fillBottom, mark;
};

BoxColors ColorsOf(Check::Look look)
{
    switch (look) {
    case Check::Look::Pushed:
        return {QColor(28, 81, 128), QColor(176, 176, 167), QColor(241, 239, 226), QColor(33, 161, 33)};
    case Check::Look::Mouseover:
        return {QColor(28, 81, 128), QColor(255, 240, 207), QColor(253, 216, 137), QColor(33, 161, 33)};
    case Check::Look::Disabled:
        return {QColor(202, 200, 187), QColor(255, 255, 255), QColor(255, 255, 255), QColor(202, 200, 187)};
    case Check::Look::Idle:
    default:
        return {QColor(28, 81, 128), QColor(220, 220, 215), QColor(255, 255, 255), QColor(33, 161, 33)};
    }
}

} // namespace

Check::Check(QWidget *parent)
    : QWidget(parent)
    , m_Probe([] { return QApplication::widgetAt(QCursor::pos()); })
{
    setFocusPolicy(Qt::TabFocus);
    m_Picture1 = new QLabel(this);
    m_Picture1->setObjectName(QStringLiteral("Picture1"));
    m_Picture1->setMouseTracking(true);
    m_Picture1->installEventFilter(this);

    m_Check1 = new QWidget(this);
    m_Check1->setObjectName(QStringLiteral("Check1"));
    m_Check1->setMouseTracking(true);
    m_Check1->installEventFilter(this);

    m_Timer1 = new QTimer(this);
    m_Timer1->setInterval(HoverInterval);
    connect(m_Timer1, &QTimer::timeout, this, &Check::Timer1_Timer);

    ShowRestingImage();
    Relayout();
}

Check::~Check()
{
    m_Picture1->removeEventFilter(this);
    m_Check1->removeEventFilter(this);
}

// ---- properties -----------------------------------------------------------------------------

void Check::setValue(int value)
{
    m_Value = value;
    ShowRestingImage();
    Q_EMIT PropertyChanged(QStringLiteral("Value"));
}

void Check::setCaption(const QString &caption)
{
    m_Caption = caption;
    m_Check1->update();
    updateGeometry();
    Q_EMIT PropertyChanged(QStringLiteral("Caption"));
}

void Check::setForeColor(OleColor color)
{
    m_ForeColor = color;
    m_Check1->update();
    Q_EMIT PropertyChanged(QStringLiteral("ForeColor"));
}

void Check::setBackColor(OleColor color)
{
    m_BackColor = color;
    update();
    Q_EMIT PropertyChanged(QStringLiteral("BackColor"));
}

void Check::setDisabledColor(OleColor color)
{
    m_DisabledColor = color;
    m_Check1->update();
    Q_EMIT PropertyChanged(QStringLiteral("DisabledColor"));
}

// ---- the images -----------------------------------------------------------------------------

QString Check::ImageName(int value, Look look)
{
    static const char *const names[3][4] = {
        {"IdleNoValue", "PushedNoValue", "MouseoverNoValue", "DisabledNoValue"},
        {"IdleChecked", "PushedChecked", "MouseoverChecked", "CheckedDisabled"},
        {"IdleGreyed", "PushedGreyed", "MouseoverGreyed", "DisabledGrey"},
    };
    if (value < 0 || value > 2)
        return {};
    return QString::fromLatin1(names[value][static_cast<int>(look)]);
}

QImage Check::BoxImage(int value, Look look, qreal dpr)
{
    QImage image = DeviceImage(QSize(BoxSize, BoxSize), dpr, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    DrawBoxFrame(painter, look);
    const QColor mark = ColorsOf(look).mark;
    if (value == 1)
        DrawTick(painter, mark);
    else if (value == 2)
        DrawGreyMark(painter, look == Look::Disabled ? mark : QColor(128, 128, 128));
    return image;
}

void Check::DrawBoxFrame(QPainter &painter, Look look)
{
    const BoxColors colors = ColorsOf(look);
    DrawGradient(painter, QRect(1, 1, BoxSize - 2, BoxSize - 2), colors.fillTop, colors.fillBottom,
                 GradientDirection::TopToBottom);
    painter.setPen(colors.border);
    painter.setBrush(Qt::NoBrush);
    const StrokeOnPixels onPixels(painter);
    painter.drawRect(0, 0, BoxSize - 1, BoxSize - 1);
}

void Check::DrawTick(QPainter &painter, const QColor &color)
{
    // A tick three pixels thick: down from the left to the foot, then up to the right.
    painter.setPen(color);
    const StrokeOnPixels onPixels(painter);
    for (int dy = 0; dy < 3; ++dy) {
        painter.drawLine(3, 5 + dy, 5, 7 + dy);
        painter.drawLine(5, 7 + dy, 9, 3 + dy);
    }
}

void Check::DrawGreyMark(QPainter &painter, const QColor &color)
{
    painter.fillRect(QRect(3, 3, BoxSize - 6, BoxSize - 6), color);
}

const QPixmap &Check::ImageFor(int value, Look look)
{
    // Each of the twelve looks is drawn when first shown: most boxes never show most of them.
    QPixmap &image = m_Images[static_cast<size_t>(value)][static_cast<size_t>(look)];
    if (image.isNull())
        image = QPixmap::fromImage(BoxImage(value, look, devicePixelRatioF()));
    return image;
}

void Check::ShowImage(Look look)
{
    // A value outside the table has no picture; the box then keeps the one it shows.
    if (m_Value < 0 || m_Value > 2)
        return;
    m_Picture1->setPixmap(ImageFor(m_Value, look));
    m_CurrentImage = ImageName(m_Value, look);
}

void Check::ShowRestingImage() { ShowImage(m_Enabled ? Look::Idle : Look::Disabled); }

QImage Check::CurrentPicture() const { return m_Picture1->pixmap().toImage(); }

// ---- hover, press and release ---------------------------------------------------------------

bool Check::Hovering() const { return m_Timer1->isActive(); }

void Check::setPointerProbe(PointerProbe probe)
{
    if (probe)
        m_Probe = std::move(probe);
}

void Check::Timer1_Timer()
{
    if (!m_Enabled) {
        m_Timer1->stop();
        ShowImage(Look::Disabled);
        return;
    }
    QWidget *under = m_Probe();
    if (under == m_Picture1 || under == m_Check1) {
        ShowImage(Look::Mouseover);
    } else {
        ShowImage(Look::Idle);
        m_Timer1->stop();
    }
}

void Check::BoxMouseEnter()
{
    if (!m_Enabled || m_Timer1->isActive() || QApplication::mouseButtons() != Qt::NoButton)
        return;
    ShowImage(Look::Mouseover);
    m_Timer1->start();
}

void Check::BoxMouseDown(int button, int shift, float x, float y)
{
    if (!m_Enabled)
        return;
    Q_EMIT MouseDown(button, shift, x, y);
    if (button == 2)
        return;
    m_Timer1->stop();
    ShowImage(Look::Pushed);
    // The value moves now, so the Click of the release already finds the new one.
    m_Value = m_Value == 0 ? 1 : 0;
    Q_EMIT PropertyChanged(QStringLiteral("Value"));
}

void Check::BoxMouseUp(int button, int, float, float)
{
    if (!m_Enabled || button == 2)
        return;
    Q_EMIT Click();
    m_Timer1->start();
}

// ---- persistence ----------------------------------------------------------------------------

void Check::WriteProperties(QVariantMap &bag) const
{
    const auto put = [&bag](const char *key, const QVariant &value, const QVariant &fallback) {
        if (value != fallback)
            bag.insert(QString::fromLatin1(key), value);
    };
    put("Value", m_Value, 0);
    put("Caption", m_Caption, QString());
    put("Enabled", isEnabled(), true);
    const QFont ambient = parentWidget() ? parentWidget()->font() : QApplication::font();
    if (font() != ambient)
        bag.insert(QStringLiteral("Font"), font().toString());
    put("ForeColor", m_ForeColor, RGB(0, 0, 128));
    put("BackColor", m_BackColor, RGB(255, 255, 255));
    put("DisabledColor", m_DisabledColor, RGB(192, 192, 192));
}

void Check::ReadProperties(const QVariantMap &bag)
{
    m_Caption = bag.value(QStringLiteral("Caption"), QString()).toString();
    m_ForeColor = bag.value(QStringLiteral("ForeColor"), RGB(0, 0, 128)).toUInt();
    m_BackColor = bag.value(QStringLiteral("BackColor"), RGB(255, 255, 255)).toUInt();
    m_DisabledColor = bag.value(QStringLiteral("DisabledColor"), RGB(192, 192, 192)).toUInt();
    const QString fontText = bag.value(QStringLiteral("Font")).toString();
    if (!fontText.isEmpty()) {
        QFont stored;
        if (stored.fromString(fontText))
            setFont(stored);
    }
    setEnabled(bag.value(QStringLiteral("Enabled"), true).toBool());
    setValue(bag.value(QStringLiteral("Value"), 0).toInt());
    update();
}

// ---- Qt plumbing ----------------------------------------------------------------------------

QSize Check::sizeHint() const
{
    const QFontMetrics metrics(font());
    const int textWidth = metrics.horizontalAdvance(QString(m_Caption).remove(QLatin1Char('&')));
    return {BoxSize + 4 + textWidth + 2, std::max(BoxSize, metrics.height()) + 2};
}

void Check::Relayout()
{
    m_Picture1->setGeometry(0, (height() - BoxSize) / 2, BoxSize, BoxSize);
    m_Check1->setGeometry(BoxSize + 4, 0, std::max(0, width() - BoxSize - 4), height());
}

void Check::resizeEvent(QResizeEvent *) { Relayout(); }

void Check::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.fillRect(rect(), TranslateColor(m_BackColor));
}

void Check::PaintCaption()
{
    QPainter painter(m_Check1);
    painter.setFont(font());
    painter.setPen(TranslateColor(m_Enabled ? m_ForeColor : m_DisabledColor));
    // "&&" shows one ampersand, a single one marks the access letter.
    const QRect drawn = painter.boundingRect(m_Check1->rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic,
                                             m_Caption);
    painter.drawText(m_Check1->rect(), Qt::AlignLeft | Qt::AlignVCenter | Qt::TextShowMnemonic, m_Caption);
    if (m_KeyboardFocus && hasFocus()) {
        // A dotted frame round the caption (or round the box when there is none).
        QPen pen(painter.pen().color(), 1, Qt::DotLine);
        painter.setPen(pen);
        painter.setBrush(Qt::NoBrush);
        const QRect frame = m_Caption.isEmpty() ? m_Check1->rect() : drawn;
        painter.drawRect(frame.adjusted(0, 0, -1, -1).intersected(m_Check1->rect().adjusted(0, 0, -1, -1)));
    }
}

void Check::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Space || !m_Enabled) {
        QWidget::keyPressEvent(event);
        return;
    }
    if (!event->isAutoRepeat() && !m_SpaceDown) {
        m_SpaceDown = true;
        BoxMouseDown(1, 0, 0, 0);
    }
}

void Check::keyReleaseEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Space || event->isAutoRepeat() || !m_SpaceDown) {
        QWidget::keyReleaseEvent(event);
        return;
    }
    m_SpaceDown = false;
    BoxMouseUp(1, 0, 0, 0);
    m_Timer1->stop();
    ShowRestingImage();
}

void Check::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    m_KeyboardFocus = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason ||
                      event->reason() == Qt::ShortcutFocusReason;
    m_Check1->update();
}

void Check::focusOutEvent(QFocusEvent *event)
{
    QWidget::focusOutEvent(event);
    m_KeyboardFocus = false;
    m_SpaceDown = false;
    m_Check1->update();
}

void Check::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::EnabledChange) {
        m_Enabled = isEnabled();
        if (!m_Enabled)
            m_Timer1->stop();
        ShowRestingImage();
        m_Check1->update();
        Q_EMIT PropertyChanged(QStringLiteral("Enabled"));
    } else if (event->type() == QEvent::FontChange) {
        m_Check1->update();
        updateGeometry();
        Q_EMIT PropertyChanged(QStringLiteral("Font"));
    }
    QWidget::changeEvent(event);
}

bool Check::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_Picture1 && watched != m_Check1)
        return QWidget::eventFilter(watched, event);
    auto *child = static_cast<QWidget *>(watched);
    switch (event->type()) {
    case QEvent::Paint:
        if (child != m_Check1)
            return false;
        PaintCaption();
        return true;
    case QEvent::Enter:
        BoxMouseEnter();
        return false;
    case QEvent::MouseMove:
        if (static_cast<QMouseEvent *>(event)->buttons() == Qt::NoButton)
            BoxMouseEnter();
        return true;
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
        // A quick second press is a press like any other: each one moves the value.
        const auto *e = static_cast<QMouseEvent *>(event);
        const QPointF at = child->mapTo(this, e->position().toPoint());
        BoxMouseDown(ButtonCode(e->button()), ShiftCode(e->modifiers()), static_cast<float>(at.x()),
                     static_cast<float>(at.y()));
        return true;
    }
    case QEvent::MouseButtonRelease: {
        const auto *e = static_cast<QMouseEvent *>(event);
        const int button = ButtonCode(e->button());
        const QPointF at = child->mapTo(this, e->position().toPoint());
        const bool enabled = m_Enabled;
        BoxMouseUp(button, ShiftCode(e->modifiers()), static_cast<float>(at.x()), static_cast<float>(at.y()));
        if (enabled && button == 1 && child == m_Picture1 && m_Picture1->rect().contains(e->position().toPoint()))
            Q_EMIT PictureClick();
        return true;
    }
    default: return false;
    }
}

} // namespace zrt
