#include "controls/GlossButton.h"
#include "gfx/EventCodes.h"

#include "common/RunTimeError.h"
#include "gfx/MessageEngine.h"

#include <QBuffer>
#include <QEnterEvent>
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

constexpr OleColor White = RGB(255, 255, 255);
constexpr OleColor Black = RGB(0, 0, 0);
constexpr OleColor DisabledBase = RGB(192, 192, 176);

QRgb Rgb(OleColor color) { return TranslateColor(color).rgb(); }

// Round to nearest with ties to even, as the original's conversions do.
int RoundEven(double value) { return static_cast<int>(std::nearbyint(value)); }

// low below low, high above high, even when the range is empty.
int ClampLowFirst(int value, int low, int high)
{
    if (value < low)
        return low;
    if (value > high)
        return high;
    return value;
}

// The fixed faces' line gradient: (i/D)*E + S - (i/D)*S per channel. A divisor of zero (a button
// only a few pixels high) keeps the start colour instead of failing.
int GradientChannel(double t, int s, int e)
{
    return std::clamp(RoundEven(t * e + s - t * s), 0, 255);
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

QVariant ColorValue(OleColor color) { return QVariant::fromValue<quint32>(color); }
OleColor ColorOf(const QVariant &value, OleColor fallback)
{
    bool ok = false;
    const qlonglong v = value.toLongLong(&ok);
    return ok ? static_cast<OleColor>(v) : fallback;
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
// Properties

void GlossButton::ReportChange(const QString &name)
{
    if (!m_ReadingProperties)
        Q_EMIT PropertyChanged(name);
}

void GlossButton::FallToCustomScheme()
{
    if (m_ColorScheme == 0)
        return;
    m_ColorScheme = 0;
    ReportChange("m_ColorScheme");
}

void GlossButton::setCaption(const QString &caption)
{
    m_Caption = caption;
    ReportChange("Caption");
    PaintButton(StateNormal);
}

void GlossButton::setEnabled(bool enabled)
{
    m_Enabled = enabled;
    QWidget::setEnabled(enabled);
    ReportChange("Enabled");
    PaintButton(StateNormal);
}

void GlossButton::setStyle(int style)
{
    if (style == m_Style)
        return;
    m_Style = style;
    ReportChange("Style");
    MakeButtonRegion();
    PaintButton(StateNormal);
}

void GlossButton::setPictureAlignment(int alignment)
{
    if (alignment == m_PictureAlignment)
        return;
    if (alignment < 0 || alignment > 255)
        zrt::raise(ErrOverflow); // the field is a byte
    m_PictureAlignment = alignment;
    ReportChange("PictureAlignment");
    PaintButton(StateNormal);
}

void GlossButton::setChecked(bool checked)
{
    m_Checked = checked;
    ReportChange("Checked");
    if (checked)
        PaintButton(StateChecked);
    else
        PaintButton(MouseOver ? StateHover : StateNormal);
}

void GlossButton::setColorScheme(int scheme)
{
    struct Scheme {
        OleColor up, hover, down, bright;
    };
    static const Scheme schemes[] = {
        {RGB(32, 103, 208), RGB(80, 153, 233), RGB(16, 103, 160), RGB(176, 237, 255)},
        {RGB(96, 144, 208), RGB(0, 96, 224), RGB(80, 128, 169), RGB(250, 250, 255)},
        {RGB(0, 0, 128), RGB(0, 0, 160), RGB(0, 0, 240), RGB(0, 0, 255)},
        {RGB(128, 0, 0), RGB(160, 0, 0), RGB(240, 0, 0), RGB(255, 0, 0)},
        {RGB(0, 128, 0), RGB(0, 160, 0), RGB(0, 192, 0), RGB(0, 255, 0)},
        {RGB(128, 128, 0), RGB(160, 160, 0), RGB(192, 192, 0), RGB(255, 255, 0)},
    };
    if (scheme >= 1 && scheme <= 6) {
        // The colour setters see the old scheme; the new one is stored after them.
        const Scheme &s = schemes[scheme - 1];
        setColorButtonUp(s.up);
        setColorButtonHover(s.hover);
        setColorButtonDown(s.down);
        setColorBright(s.bright);
    }
    m_ColorScheme = scheme;
    ReportChange("m_ColorScheme");
    PaintButton(StateNormal);
}

void GlossButton::setBorderBrightness(int brightness)
{
    m_BorderBrightness = std::clamp(brightness, -100, 100);
    ReportChange("m_BorderBrightness");
    PaintButton(StateNormal);
}

void GlossButton::setColorBright(OleColor color)
{
    FallToCustomScheme();
    m_ColorBright = color;
    ReportChange("m_ColorBright");
    PaintButton(StateNormal);
}

void GlossButton::setColorButtonDown(OleColor color)
{
    FallToCustomScheme();
    m_ColorButtonDown = color;
    ReportChange("m_ColorButtonDown");
    PaintButton(StateNormal);
}

void GlossButton::setColorButtonUp(OleColor color)
{
    FallToCustomScheme();
    m_ColorButtonUp = color;
    ReportChange("m_ColorButtonUp");
    PaintButton(StateNormal);
}

void GlossButton::setColorButtonHover(OleColor color)
{
    FallToCustomScheme();
    m_ColorButtonHover = color;
    ReportChange("m_ColorButtonHover");
    PaintButton(StateNormal);
}

void GlossButton::setForeColor(OleColor color)
{
    m_ForeColor = color;
    m_SurfaceForeColor = color;
    ReportChange("ForeColor");
    PaintButton(StateNormal);
}

void GlossButton::setIconHighLite(bool on)
{
    m_IconHighLite = on;
    ReportChange("IconHighLite");
}

void GlossButton::setIconHighLiteColor(OleColor color)
{
    m_IconHighLiteColor = color;
    ReportChange("IconHighLiteColor");
}

void GlossButton::setCaptionHighLite(bool on)
{
    m_CaptionHighLite = on;
    ReportChange("CaptionHighLite");
}

void GlossButton::setCaptionHighLiteColor(OleColor color)
{
    m_CaptionHighLiteColor = color;
    ReportChange("CaptionHighLiteColor");
}

void GlossButton::setPicture(const QPixmap &picture)
{
    m_Picture = picture;
    ReportChange("Picture");
    PaintButton(StateNormal);
}

QVariantMap GlossButton::WriteProperties() const
{
    QVariantMap bag;
    auto writeIf = [&bag](const char *key, const QVariant &value, const QVariant &byDefault) {
        if (value != byDefault)
            bag.insert(key, value);
    };
    bag.insert("DisplayHand", m_DisplayHand);
    writeIf("Enabled", m_Enabled, true);
    writeIf("ColorScheme", m_ColorScheme, 0);
    bag.insert("BorderBrightness", m_BorderBrightness);
    writeIf("IconHighLite", m_IconHighLite, false);
    writeIf("IconHighLiteColor", ColorValue(m_IconHighLiteColor), ColorValue(DefaultHighLiteColor));
    writeIf("CaptionHighLite", m_CaptionHighLite, false);
    writeIf("CaptionHighLiteColor", ColorValue(m_CaptionHighLiteColor), ColorValue(DefaultHighLiteColor));
    bag.insert("ColorBright", ColorValue(m_ColorBright));
    bag.insert("ColorButtonDown", ColorValue(m_ColorButtonDown));
    bag.insert("ColorButtonUp", ColorValue(m_ColorButtonUp));
    bag.insert("ColorButtonHover", ColorValue(m_ColorButtonHover));
    writeIf("ForeColor", ColorValue(m_ForeColor), ColorValue(0));
    if (!m_Picture.isNull()) {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        m_Picture.save(&buffer, "PNG");
        bag.insert("Picture", bytes);
    }
    bag.insert("Checked", m_Checked);
    writeIf("Style", m_Style, 0);
    writeIf("PictureAlignment", m_PictureAlignment, 0);
    writeIf("Caption", m_Caption, QString());
    if (testAttribute(Qt::WA_SetFont))
        bag.insert("Font", font().toString());
    return bag;
}

void GlossButton::ReadProperties(const QVariantMap &bag)
{
    m_ReadingProperties = true;
    Ready = false;
    m_DisplayHand = bag.value("DisplayHand", false).toBool();
    m_Enabled = bag.value("Enabled", true).toBool();
    m_ColorScheme = bag.value("ColorScheme", 0).toInt();
    m_BorderBrightness = std::clamp(bag.value("BorderBrightness", 0).toInt(), -100, 100);
    m_IconHighLite = bag.value("IconHighLite", false).toBool();
    m_IconHighLiteColor = ColorOf(bag.value("IconHighLiteColor"), DefaultHighLiteColor);
    m_CaptionHighLite = bag.value("CaptionHighLite", false).toBool();
    m_CaptionHighLiteColor = ColorOf(bag.value("CaptionHighLiteColor"), DefaultHighLiteColor);
    m_ColorBright = ColorOf(bag.value("ColorBright"), DefaultColorBright);
    m_ColorButtonDown = ColorOf(bag.value("ColorButtonDown"), DefaultColorButtonDown);
    m_ColorButtonUp = ColorOf(bag.value("ColorButtonUp"), DefaultColorButtonUp);
    m_ColorButtonHover = ColorOf(bag.value("ColorButtonHover"), DefaultColorButtonHover);
    m_ForeColor = ColorOf(bag.value("ForeColor"), 0);
    m_Picture = QPixmap();
    if (bag.contains("Picture"))
        m_Picture.loadFromData(bag.value("Picture").toByteArray());
    m_Checked = bag.value("Checked", false).toBool();
    m_Style = bag.value("Style", 0).toInt();
    m_PictureAlignment = std::clamp(bag.value("PictureAlignment", 0).toInt(), 0, 255);
    m_Caption = bag.value("Caption", QString()).toString();
    if (bag.contains("Font")) {
        QFont loaded;
        if (loaded.fromString(bag.value("Font").toString()))
            setFont(loaded);
    }
    m_ReadingProperties = false;
    ApplyStartUp();
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

// ---------------------------------------------------------------------------------------------
// Painting

void GlossButton::ClearSurface()
{
    if (m_Surface.size() != size())
        m_Surface = QImage(size(), QImage::Format_RGB32);
    m_Surface.fill(palette().color(QPalette::Window));
}

void GlossButton::Refresh() { update(); }

void GlossButton::PaintButton(ButtonState state)
{
    if (m_Checked)
        state = StateChecked;
    if (!Ready)
        return;
    // A hidden button is drawn when it shows (showEvent): the properties a window sets while it
    // builds itself then cost one drawing instead of one each.
    if (!isVisible())
        return;
    MakeButtonRegion();
    ClearSurface();
    m_PaintedState = state;
    ++m_PaintCount;
    DrawFace(state);
    DrawIconWCaption(state);
}

void GlossButton::DrawFace(ButtonState state)
{
    switch (m_Style) {
    case StyleBevel: DrawBevelFace(state); break;
    case StyleToolbar: DrawToolbarFace(state); break;
    case StyleGlossRound:
    case StyleGlossTile:
    case StyleGlossPill:
    case StyleGlossLens:
    case StyleGlossSoft: DrawGlossFace(state); break;
    case StyleGlassPixel: DrawGlassPixelFace(state); break;
    default: break; // an unknown style shows no face
    }
}

void GlossButton::Line(int x1, int y1, int x2, int y2, QRgb color)
{
    // The end point itself is left out, so joined lines do not overdraw their meeting pixel.
    if (y1 == y2) {
        if (y1 < 0 || y1 >= m_Surface.height() || x1 == x2)
            return;
        int from = x1 < x2 ? x1 : x2 + 1;
        int to = x1 < x2 ? x2 - 1 : x1;
        from = std::max(from, 0);
        to = std::min(to, m_Surface.width() - 1);
        auto *line = reinterpret_cast<QRgb *>(m_Surface.scanLine(y1));
        for (int x = from; x <= to; ++x)
            line[x] = color;
        return;
    }
    const int dx = std::abs(x2 - x1);
    const int dy = -std::abs(y2 - y1);
    const int sx = x1 < x2 ? 1 : -1;
    const int sy = y1 < y2 ? 1 : -1;
    int err = dx + dy;
    int x = x1;
    int y = y1;
    while (x != x2 || y != y2) {
        PSet(x, y, color);
        const int e2 = 2 * err;
        if (e2 >= dy) {
            err += dy;
            x += sx;
        }
        if (e2 <= dx) {
            err += dx;
            y += sy;
        }
    }
}

void GlossButton::Box(int x1, int y1, int x2, int y2, QRgb color)
{
    const int left = std::min(x1, x2), right = std::max(x1, x2);
    const int top = std::min(y1, y2), bottom = std::max(y1, y2);
    for (int x = left; x <= right; ++x) {
        PSet(x, top, color);
        PSet(x, bottom, color);
    }
    for (int y = top; y <= bottom; ++y) {
        PSet(left, y, color);
        PSet(right, y, color);
    }
}

void GlossButton::GradientRow(int i, int divisor, QRgb from, QRgb to, int x1, int y, int x2)
{
    const double t = divisor != 0 ? static_cast<double>(i) / divisor : 0.0;
    const QRgb color = qRgb(GradientChannel(t, qRed(from), qRed(to)), GradientChannel(t, qGreen(from), qGreen(to)),
                            GradientChannel(t, qBlue(from), qBlue(to)));
    Line(x1, y, x2, y, color);
}

void GlossButton::DrawParentFrame()
{
    // Paints the cut corners in the container's colour; a container without one keeps its look.
    const QWidget *container = parentWidget();
    if (!container)
        return;
    const QVariant back = container->property("BackColor");
    if (!back.isValid())
        return;
    QRgb color = 0;
    if (back.metaType().id() == QMetaType::QColor)
        color = back.value<QColor>().rgb();
    else
        color = Rgb(ColorOf(back, 0));
    Box(0, 0, width() - 1, height() - 1, color);
}

void GlossButton::DrawEdge(QRgb outer, QRgb corner, QRgb edge)
{
    const int w = width() - 1;
    const int h = height() - 1;
    PSet(0, 1, outer);
    PSet(1, 0, outer);
    Line(0, 2, 2, 0, corner);
    Line(2, 0, w - 2, 0, edge);
    PSet(w - 1, 0, outer);
    PSet(w, 1, outer);
    Line(w - 2, 0, w, 2, corner);
    Line(w, 2, w, h - 2, edge);
    PSet(w, h - 1, outer);
    PSet(w - 1, h, outer);
    Line(w, h - 2, w - 2, h, corner);
    Line(w - 2, h, 2, h, edge);
    PSet(1, h, outer);
    PSet(0, h - 1, outer);
    Line(2, h, 0, h - 2, corner);
    Line(0, h - 2, 0, 2, edge);
}

void GlossButton::DrawBevelFace(ButtonState state)
{
    const int w = width() - 1;
    const int h = height() - 1;
    DrawParentFrame();
    if (state != StateDown) {
        for (int i = 0; i <= h - 3; ++i)
            GradientRow(i, h - 3, qRgb(255, 255, 255), qRgb(236, 235, 230), 1, i, w);
        for (int i = 0; i <= 3; ++i)
            GradientRow(i, 3, qRgb(236, 235, 230), qRgb(214, 208, 197), 0, h - 4 + i, w);
    } else {
        for (int i = 0; i <= 3; ++i)
            GradientRow(i, 3, qRgb(209, 204, 193), qRgb(229, 228, 221), 0, i + 1, w);
        for (int i = 4; i <= h - 4; ++i)
            GradientRow(i, h - 6, qRgb(229, 228, 221), qRgb(226, 226, 218), 0, i, w);
        // Five rows on a divisor of three: the last row runs past the end colour, as it should.
        for (int i = 0; i <= 4; ++i)
            GradientRow(i, 3, qRgb(226, 226, 218), qRgb(242, 241, 238), 0, h - 4 + i, w);
    }
    DrawBevelInnerEdge(state);
    DrawEdge(qRgb(122, 149, 168), qRgb(37, 87, 131), qRgb(0, 60, 116));
}

void GlossButton::DrawBevelInnerEdge(ButtonState state)
{
    struct InnerEdge {
        QRgb row1, row2, from, to, rowH2, rowH1;
    };
    static const InnerEdge hover{qRgb(255, 240, 202), qRgb(253, 216, 137), qRgb(253, 216, 137),
                                 qRgb(248, 178, 48),  qRgb(248, 178, 48),  qRgb(229, 151, 0)};
    static const InnerEdge focus{qRgb(206, 231, 255), qRgb(188, 212, 246), qRgb(188, 212, 246),
                                 qRgb(137, 173, 228), qRgb(137, 173, 228), qRgb(105, 130, 238)};
    if (state != StateHover && state != StateFocused)
        return;
    const InnerEdge &e = state == StateHover ? hover : focus;
    const int w = width() - 1;
    const int h = height() - 1;
    Line(0, 1, w, 1, e.row1);
    Line(0, 2, w, 2, e.row2);
    for (int i = 3; i <= h - 3; ++i) {
        GradientRow(i, h, e.from, e.to, 0, i, 3);
        GradientRow(i, h, e.from, e.to, w - 2, i, w);
    }
    Line(0, h - 2, w, h - 2, e.rowH2);
    Line(0, h - 1, w, h - 1, e.rowH1);
}

void GlossButton::DrawToolbarFace(ButtonState state)
{
    struct Look {
        QRgb top, upper, lower, bottom, outer, corner, edge;
    };
    static const Look down{qRgb(220, 218, 209), qRgb(231, 230, 224), qRgb(225, 224, 216), qRgb(235, 234, 229),
                           qRgb(215, 215, 204), qRgb(179, 179, 168), qRgb(157, 157, 146)};
    static const Look hover{qRgb(254, 254, 253), qRgb(252, 252, 249), qRgb(238, 237, 229), qRgb(215, 210, 198),
                            qRgb(232, 232, 221), qRgb(216, 216, 205), qRgb(206, 206, 195)};
    static const Look checked{0, 0, 0, 0, qRgb(203, 213, 214), qRgb(152, 175, 190), qRgb(122, 152, 175)};
    DrawParentFrame();
    // Flat until the pointer arrives.
    if (state == StateNormal || state == StateFocused)
        return;
    const int w = width() - 1;
    const int h = height() - 1;
    if (state == StateChecked) {
        Box(1, 1, w - 1, h - 1, qRgb(255, 255, 255));
        DrawEdge(checked.outer, checked.corner, checked.edge);
        return;
    }
    const Look &look = state == StateDown ? down : hover;
    for (int i = 1; i <= 3; ++i)
        GradientRow(i, 3, look.top, look.upper, 0, i, w);
    for (int i = 4; i <= h - 4; ++i)
        GradientRow(i, h - 6, look.upper, look.lower, 0, i, w);
    for (int i = 0; i <= 3; ++i)
        GradientRow(i, 3, look.lower, look.bottom, 0, h - 4 + i, w);
    DrawEdge(look.outer, look.corner, look.edge);
}

void GlossButton::FaceColors(ButtonState state, OleColor &base, OleColor &bright) const
{
    bright = m_ColorBright;
    switch (state) {
    case StateHover: base = m_ColorButtonHover; break;
    case StateDown:
    case StateChecked: base = m_ColorButtonDown; break;
    default: base = m_ColorButtonUp; break;
    }
    if (!m_Enabled) {
        base = DisabledBase;
        bright = White;
    }
}

GlossButton::GlossParams GlossButton::GlossParamsFor(int style, int width, int height, int radius)
{
    const int W = width;
    const int H = height;
    const int R = radius;
    const int centreX = RoundEven(W / 2.0);
    switch (style) {
    case StyleGlossRound:
        return {0, 50, R / 2, 1, R / 2, RoundEven(1.1 * R), W + 2 * R, 300, 60, centreX, H, 120};
    case StyleGlossTile: {
        const int glowHeight = H > 0 ? std::min(100 - 700 / H, 80) : 80;
        return {0, 70, R / 3, 0, 0, 12, W + 2 * R, 200, glowHeight, centreX, H, 130};
    }
    case StyleGlossPill: return {0, 70, R / 3 - 1, 0, R / 2, R, W + 2 * R, 200, 70, centreX, H, 130};
    case StyleGlossLens: return {0, 40, -1 - R / 2, -R, R, R + 1, W + 2 * R, 60, 60, centreX, H, 130};
    case StyleGlossSoft:
        return {0, 50, RoundEven(R / 2.0), 2, RoundEven(R / 2.0), R + 1, W - R, 60, 60, centreX, RoundEven(H / 2.0), 100};
    default: return {};
    }
}

void GlossButton::DrawGlossFace(ButtonState state)
{
    if (CornerRadius < 1)
        CornerRadius = 1;
    OleColor base = 0;
    OleColor bright = 0;
    FaceColors(state, base, bright);
    const int B = m_BorderBrightness;
    const OleColor border = B < 0 ? BlendColors(base, Black, -B) : BlendColors(base, White, B);
    const GlossParams params = GlossParamsFor(m_Style, width(), height(), CornerRadius);
    const GlossButtonRegion gloss =
        GlossButtonRegion::RoundRect(params.GlossLeft, params.GlossTop, params.GlossRight, params.GlossBottom,
                                     2 * params.GlossCorner, 2 * params.GlossCorner);
    m_Surface.fill(Rgb(base));
    DrawRadialGlow(params, base, bright);
    ScanGlossRows(params, gloss, base, Rgb(border));
}

void GlossButton::DrawRadialGlow(const GlossParams &params, OleColor base, OleColor bright)
{
    const int X = RoundEven(width() * params.GlowWidth / 100.0);
    const int Y = RoundEven(height() * params.GlowHeight / 100.0);
    if (X <= 0 || Y <= 0)
        return;
    int left = params.GlowCenterX - X;
    int top = params.GlowCenterY - Y;
    int right = params.GlowCenterX + X;
    int bottom = params.GlowCenterY + Y;
    // The longer axis shrinks faster, so every ellipse keeps the glow's proportions.
    double dx = 1;
    double dy = 1;
    if (X > Y)
        dx = static_cast<double>(X) / Y;
    else
        dy = static_cast<double>(Y) / X;
    const int stepX = std::max(RoundEven(dx), 1);
    const int stepY = std::max(RoundEven(dy), 1);
    QPainter painter(&m_Surface);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromRgb(Rgb(base)));
    int k = 1;
    while (right > left && bottom > top) {
        painter.drawEllipse(QRect(left, top, right - left, bottom - top));
        left += stepX;
        right -= stepX;
        top += stepY;
        bottom -= stepY;
        ++k;
        painter.setBrush(
            QColor::fromRgb(Rgb(BlendColors(base, bright, RoundEven(static_cast<double>(params.GlowFade) * k / Y)))));
    }
}

void GlossButton::ScanGlossRows(const GlossParams &params, const GlossButtonRegion &gloss, OleColor base,
                                QRgb border)
{
    const int W = width();
    const int H = height();
    const int R = std::max(CornerRadius, 1);
    int startX = 0;
    for (int y = 0; y <= H; ++y) {
        bool glossRow = false;
        for (int x = startX; x <= W / 2; ++x) {
            if (!InnerRegion.contains(x, y)) {
                PSet(x, y, border);
                PSet(W - x, y, border);
                continue;
            }
            if (gloss.contains(x, y)) {
                // The tint is strongest at the top, so the gloss fades downward.
                const OleColor tint = BlendColors(White, base, params.TintBase + params.TintSlope * y / R);
                Line(x, y, W - x + 1, y, Rgb(tint));
                glossRow = true;
                break;
            }
        }
        startX = glossRow ? 1 : 0;
    }
}

void GlossButton::DrawGlassPixelFace(ButtonState state)
{
    OleColor base = 0;
    OleColor bright = 0;
    FaceColors(state, base, bright);
    const int w = width() - 1;
    const int h = height() - 1;
    const int R = std::max(CornerRadius, 1);
    const int r2 = 2 * R / 3;
    const QRgb shade = Rgb(BlendColors(Black, base, 50));
    QRgb topColor = Rgb(White);
    for (int y = 0; y <= h; ++y) {
        if (y < R)
            topColor = Rgb(BlendColors(White, base, 30 * y / R));
        const int band = h != 0 ? std::abs((2 * y - h) * 100 / h) : 0;
        const QRgb bandColor = Rgb(BlendColors(base, bright, band));
        for (int x = 0; x <= w / 2; ++x) {
            QRgb color = 0;
            if (IsInRoundRect(x, y, 1, 1, w - 2, h - 2, R)) {
                const bool inA = IsInRoundRect(x, y, 4, 2, w - R, 2 * R - 1, r2);
                const bool inB = IsInRoundRect(x, y, 4, R / 2, w - R, 2 * R - 1, r2);
                color = inA && !inB ? topColor : bandColor;
            } else if (IsInRoundRect(x, y, 0, 0, w, h, R)) {
                color = shade;
            } else {
                continue;
            }
            PSet(x, y, color);
            PSet(w - x, y, color);
        }
    }
}

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
