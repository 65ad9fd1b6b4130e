#include "controls/GlossButton.h"

#include "gfx/EventCodes.h"
#include "gfx/MessageEngine.h"

#include <QFocusEvent>
#include <QFontMetrics>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace zrt {

namespace {

// low below low, high above high, even when the range is empty.
int ClampLowFirst(int value, int low, int high)
{
    if (value < low)
        return low;
    if (value > high)
        return high;
    return value;
}

// The key-state word of a mouse message: left 1, right 2, shift 4, control 8, middle 16.
int KeyStateOf(Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers)
{
    int value = 0;
    if (buttons & Qt::LeftButton)
        value |= 1;
    if (buttons & Qt::RightButton)
        value |= 2;
    if (modifiers & Qt::ShiftModifier)
        value |= 4;
    if (modifiers & Qt::ControlModifier)
        value |= 8;
    if (buttons & Qt::MiddleButton)
        value |= 16;
    return value;
}

bool IsEnterKey(const QKeyEvent *event)
{
    return event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
}

} // namespace

// ---------------------------------------------------------------------------------------------
// Life cycle

GlossButton::GlossButton(QWidget *parent) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_Surface = QImage(size(), QImage::Format_RGB32);
    PrepareTracking();
    ApplyStartUp();
}

GlossButton::~GlossButton()
{
    // Stop hearing our own messages before the widget parts go away.
    m_Engine.reset();
}

void GlossButton::PrepareTracking()
{
    m_Engine = std::make_unique<MessageEngine>("GlossButton", MessageEngine::Form::Checked,
                                               [this](Message &message) { OnMessage(message); });
    MouseTrackingAvailable = m_Engine->subclass(this);
    TrackWithUser32 = MouseTrackingAvailable;
    if (!MouseTrackingAvailable) {
        m_Engine.reset();
        return;
    }
    m_Engine->watch(this, msg::WM_PAINT, MsgWhen::Before);
    m_Engine->watch(this, msg::WM_MOUSEMOVE, MsgWhen::After);
    m_Engine->watch(this, msg::WM_MOUSEHOVER, MsgWhen::After);
    m_Engine->watch(this, msg::WM_MOUSELEAVE, MsgWhen::After);
}

void GlossButton::ApplyStartUp()
{
    setCursor(m_DisplayHand ? Qt::PointingHandCursor : Qt::ArrowCursor);
    m_SurfaceForeColor = m_ForeColor;
    QWidget::setEnabled(m_Enabled);
    Ready = true;
    m_RegionStyle = -1;
    MakeButtonRegion();
    PaintButton(StateNormal);
}

QSize GlossButton::sizeHint() const
{
    const QFontMetrics metrics(font());
    return {std::max(100, metrics.horizontalAdvance(m_Caption) + 24), std::max(30, metrics.height() + 12)};
}

// ---------------------------------------------------------------------------------------------
// Messages from the engine: the region before each paint, hover and leave after the widget.

void GlossButton::OnMessage(Message &message)
{
    switch (message.message) {
    case msg::WM_PAINT:
        MakeButtonRegion();
        break;
    case msg::WM_MOUSEMOVE: {
        const auto *mouse = static_cast<const QMouseEvent *>(message.event);
        const QPoint at = mouse->position().toPoint();
        TrackEnter(KeyStateOf(mouse->buttons(), mouse->modifiers()), at.x(), at.y());
        break;
    }
    case msg::WM_MOUSEHOVER: {
        QPoint at = mapFromGlobal(QCursor::pos());
        if (message.event->isSinglePointEvent())
            at = static_cast<const QSinglePointEvent *>(message.event)->position().toPoint();
        TrackEnter(KeyStateOf(QGuiApplication::mouseButtons(), QGuiApplication::keyboardModifiers()), at.x(),
                   at.y());
        break;
    }
    case msg::WM_MOUSELEAVE:
        TrackLeave();
        break;
    default:
        break;
    }
}

void GlossButton::TrackEnter(int keyState, int x, int y)
{
    // A held left button blocks a new hover until it is released.
    if (keyState == 1 || MouseOver)
        return;
    if (!(x > 0 && x < width() && y > 0 && y < height()))
        return;
    MouseOver = true;
    LeaveArmed = true;
    Q_EMIT MouseEnter();
    PaintButton(StateHover);
}

void GlossButton::TrackLeave()
{
    // Only a pointer that was taken in as hovering gets its leave notice.
    if (!LeaveArmed)
        return;
    LeaveArmed = false;
    MouseOver = false;
    Q_EMIT MouseLeave();
    if (!m_Checked)
        PaintButton(HasFocus ? StateFocused : StateNormal);
}

// ---------------------------------------------------------------------------------------------
// Input

void GlossButton::HandleMouseDown(short button, short shift, float x, float y)
{
    HasFocus = true;
    PaintButton(StateDown);
    Q_EMIT MouseDown(button, shift, x, y);
}

void GlossButton::HandleMouseUp(short button, short shift, float x, float y)
{
    if (!m_Checked) {
        if (MouseOver)
            PaintButton(StateHover);
        else if (HasFocus)
            PaintButton(StateFocused);
    }
    Q_EMIT MouseUp(button, shift, x, y);
}

void GlossButton::mousePressEvent(QMouseEvent *event)
{
    event->accept();
    if (!m_Enabled)
        return;
    m_AfterDoubleClick = false;
    const QPointF at = event->position();
    HandleMouseDown(ButtonCode(event->button()), ShiftCode(event->modifiers()), static_cast<float>(at.x()),
                    static_cast<float>(at.y()));
}

void GlossButton::mouseMoveEvent(QMouseEvent *event)
{
    event->accept();
    if (!m_Enabled)
        return;
    const short button = ButtonsCode(event->buttons());
    const auto x = static_cast<float>(event->position().x());
    const auto y = static_cast<float>(event->position().y());
    Q_EMIT MouseMove(button, ShiftCode(event->modifiers()), x, y);
    // Dragging out with the left button takes the button back up at once.
    if (button == 1 && (x < 0 || x > width() || y < 0 || y > height())) {
        MouseOver = false;
        PaintButton(StateNormal);
    }
}

void GlossButton::mouseReleaseEvent(QMouseEvent *event)
{
    event->accept();
    if (!m_Enabled)
        return;
    const QPointF at = event->position();
    HandleMouseUp(ButtonCode(event->button()), ShiftCode(event->modifiers()), static_cast<float>(at.x()),
                  static_cast<float>(at.y()));
    // A release over the button after a plain press is a click; the release that ends a double
    // click is not a second one.
    const bool inside = at.x() >= 0 && at.y() >= 0 && at.x() < width() && at.y() < height();
    if (event->button() == Qt::LeftButton && inside && !m_AfterDoubleClick)
        Q_EMIT Click();
    m_AfterDoubleClick = false;
}

void GlossButton::mouseDoubleClickEvent(QMouseEvent *event)
{
    event->accept();
    if (!m_Enabled)
        return;
    m_AfterDoubleClick = true;
    PaintButton(StateDown);
    Q_EMIT DblClick();
}

void GlossButton::keyPressEvent(QKeyEvent *event)
{
    // Only Enter presses the button; the space bar is left alone on purpose.
    if (!IsEnterKey(event)) {
        QWidget::keyPressEvent(event);
        return;
    }
    event->accept();
    if (!event->isAutoRepeat())
        m_EnterDown = m_Enabled;
    if (m_Enabled)
        HandleMouseDown(1, 0, 0, 0);
}

void GlossButton::keyReleaseEvent(QKeyEvent *event)
{
    if (!IsEnterKey(event)) {
        QWidget::keyReleaseEvent(event);
        return;
    }
    event->accept();
    // A release whose press went elsewhere (a dialog closed by that press, say) is no click.
    if (!m_Enabled || event->isAutoRepeat() || !m_EnterDown)
        return;
    m_EnterDown = false;
    HandleMouseUp(1, 0, 0, 0);
    Q_EMIT Click();
}

void GlossButton::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    HasFocus = true;
    if (m_Enabled && !m_Checked && !MouseOver)
        PaintButton(StateFocused);
}

void GlossButton::focusOutEvent(QFocusEvent *event)
{
    QWidget::focusOutEvent(event);
    HasFocus = false;
    m_EnterDown = false;
    if (m_Enabled && !m_Checked)
        PaintButton(StateNormal);
}

// ---------------------------------------------------------------------------------------------
// Widget events

void GlossButton::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    painter.drawImage(event->rect().topLeft(), m_Surface, event->rect());
}

void GlossButton::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    MakeButtonRegion();
    PaintButton(StateNormal);
}

void GlossButton::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    MakeButtonRegion();
    PaintButton(StateNormal);
}

void GlossButton::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (m_ReadingProperties)
        return;
    if (event->type() == QEvent::EnabledChange) {
        // Disabled through the plain widget call: keep the property in step.
        const bool own = !testAttribute(Qt::WA_ForceDisabled);
        if (own != m_Enabled) {
            m_Enabled = own;
            ReportChange("Enabled");
            PaintButton(StateNormal);
        }
    } else if (event->type() == QEvent::FontChange) {
        ReportChange("Font");
        PaintButton(StateNormal);
    }
}

// ---------------------------------------------------------------------------------------------
// Colour helpers

void GlossButton::GetRGB(OleColor color, int &red, int &green, int &blue)
{
    const QColor c = TranslateColor(color);
    red = c.red();
    green = c.green();
    blue = c.blue();
}

OleColor GlossButton::BlendColors(OleColor colorA, OleColor colorB, int percent)
{
    percent = std::clamp(percent, 0, 100);
    int ra = 0, ga = 0, ba = 0, rb = 0, gb = 0, bb = 0;
    GetRGB(colorA, ra, ga, ba);
    GetRGB(colorB, rb, gb, bb);
    return RGB(ra + (rb - ra) * percent / 100, ga + (gb - ga) * percent / 100, ba + (bb - ba) * percent / 100);
}

// ---------------------------------------------------------------------------------------------
// Region

int GlossButton::RadiusFor(int style, int width, int height)
{
    switch (style) {
    case StyleGlossRound:
    case StyleGlossPill:
    case StyleGlossLens: return ClampLowFirst(height / 2 + 1, 1, width / 2);
    case StyleGlossTile: return 12;
    case StyleGlassPixel: return ClampLowFirst(height / 3, 1, width / 3);
    case StyleGlossSoft: return ClampLowFirst(height / 4 + 1, 1, width / 4);
    default: return 0;
    }
}

GlossButtonRegion GlossButton::BuildRoundRegion(int left, int top, int width, int height, int radius)
{
    CornerRadius = std::max(radius, 1);
    return GlossButtonRegion::RoundBox(left, top, width, height, CornerRadius);
}

void GlossButton::MakeButtonRegion()
{
    // The shape depends only on the size and the style, so an unchanged pair keeps the last one.
    if (size() == m_RegionSize && m_Style == m_RegionStyle)
        return;
    m_RegionSize = size();
    m_RegionStyle = m_Style;
    InnerRegion = GlossButtonRegion();
    const int W = width();
    const int H = height();
    if (m_Style < StyleGlossRound || m_Style > StyleGlossSoft) {
        CornerRadius = 0;
        clearMask();
        return;
    }
    const int radius = RadiusFor(m_Style, W, H);
    setMask(BuildRoundRegion(0, 0, W, H, radius).toRegion());
    InnerRegion = BuildRoundRegion(1, 1, W - 2, H - 2, radius);
}

} // namespace zrt
