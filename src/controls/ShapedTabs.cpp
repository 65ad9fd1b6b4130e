#include "controls/ShapedTabs.h"

#include "gfx/DeviceImage.h"

#include <QEvent>
#include <QFocusEvent>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>

#include <algorithm>

namespace zrt {

namespace {

struct ColorDefaults {
    OleColor tabBody = RGB(255, 255, 255);
    OleColor disabledTab = RGB(192, 192, 255);
    OleColor borderDark = 0x8000000Du;
    OleColor borderLight = 0x80000003u;
    OleColor inactiveText = RGB(255, 255, 255);
    OleColor activeText = RGB(0, 0, 255);
    std::array<OleColor, 4> highlight{RGB(192, 64, 0), RGB(255, 128, 0), RGB(255, 192, 128),
                                      RGB(255, 224, 192)};
    OleColor controlBack = RGB(255, 255, 255);
};
const ColorDefaults kDefaults;

constexpr int kDefaultTabCount = 4;
constexpr int kDefaultFirstTabLeft = 2;
constexpr int kCaptionPadding = 12; // room left and right of a caption inside its tab
constexpr int kMinTabWidth = 16;

void Line(QPainter &p, int x1, int y1, int x2, int y2)
{
    const StrokeOnPixels onPixels(p);
    p.drawLine(x1, y1, x2, y2);
}

void Dot(QPainter &p, int x, int y)
{
    const StrokeOnPixels onPixels(p);
    p.drawPoint(x, y);
}

// A rectangle given by its corners, right and bottom excluded, as a stroked QRect covers it.
QRect Corners(int x1, int y1, int x2, int y2) { return QRect(x1, y1, x2 - x1 - 1, y2 - y1 - 1); }

// Rounded rectangle whose corner ellipses are `corner` pixels wide.
void RoundRect(QPainter &p, const QRect &rect, int corner)
{
    const StrokeOnPixels onPixels(p);
    p.drawRoundedRect(rect, corner / 2.0, corner / 2.0, Qt::AbsoluteSize);
}

} // namespace

ShapedTabs::ShapedTabs(QWidget *parent)
    : QWidget(parent), m_TabBodyColor(kDefaults.tabBody), m_DisabledTabColor(kDefaults.disabledTab),
      m_BorderDarkColor(kDefaults.borderDark), m_BorderLightColor(kDefaults.borderLight),
      m_InactiveTabTextColor(kDefaults.inactiveText), m_ActiveTabTextColor(kDefaults.activeText),
      m_Highlight(kDefaults.highlight), m_ControlBackcolor(kDefaults.controlBack)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    // Tab reaches the strip; a press of the mouse chooses a tab without taking the focus.
    setFocusPolicy(Qt::TabFocus);
    resize(300, 120);
    Refresh();
}

void ShapedTabs::setCaption(const QString &caption)
{
    m_Caption = caption;
    Refresh();
}

void ShapedTabs::setNumberOfTabs(int count)
{
    m_NumberOfTabs = count;
    Refresh();
}

void ShapedTabs::setFirstTabLeft(int left)
{
    m_FirstTabLeft = left;
    Refresh();
}

void ShapedTabs::setActiveTab(int index)
{
    if (index == m_ActiveTab) {
        Refresh();
        return;
    }
    m_ActiveTab = index;
    const bool valid = index >= 0 && TabCountValid() && index < m_NumberOfTabs;
    ComputeMetrics();
    DrawTabs(valid);
}

void ShapedTabs::setColor(OleColor &field, OleColor value)
{
    field = value;
    Refresh();
}

QString ShapedTabs::TabCaption(int index) const
{
    if (index < 0)
        return {};
    int start = 0;
    for (int i = 0; i < index; ++i) {
        const int bar = m_Caption.indexOf(QLatin1Char('|'), start);
        if (bar < 0)
            return {};
        start = bar + 1;
    }
    const int end = m_Caption.indexOf(QLatin1Char('|'), start);
    return end < 0 ? m_Caption.mid(start) : m_Caption.mid(start, end - start);
}

int ShapedTabs::TabLeft(int index) const
{
    return index >= 0 && index < MaxTabs ? m_TabLeft[index] : 0;
}

int ShapedTabs::TabWidth(int index) const
{
    return index >= 0 && index < MaxTabs ? m_TabWidth[index] : 0;
}

void ShapedTabs::Refresh()
{
    ComputeMetrics();
    // A hidden strip is drawn when it shows: a window setting its colours one by one while it
    // builds itself would otherwise draw it once for each.
    if (!isVisible()) {
        m_DrawWhenShown = true;
        return;
    }
    m_DrawWhenShown = false;
    DrawTabs(false);
}

void ShapedTabs::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (m_DrawWhenShown) {
        m_DrawWhenShown = false;
        DrawTabs(false);
    }
}

void ShapedTabs::ComputeMetrics()
{
    const QFontMetrics metrics(font());
    m_TabLeft[0] = m_FirstTabLeft;
    for (int i = 0; i < MaxTabs; ++i) {
        m_TabWidth[i] = std::max(kMinTabWidth, metrics.horizontalAdvance(TabCaption(i)) + 2 * kCaptionPadding);
        if (i > 0)
            m_TabLeft[i] = m_TabLeft[i - 1] + m_TabWidth[i - 1];
    }
}

QRegion ShapedTabs::MakeRegion() const
{
    const int w = width();
    const int h = height();
    QRegion region(0, 0, w, h);

    // Rounded bottom corners of the body.
    region -= QRegion(0, h - 2, 1, 2);
    region -= QRegion(1, h - 1, 1, 1);
    region -= QRegion(w - 1, h - 2, 1, 2);
    region -= QRegion(w - 2, h - 1, 1, 1);

    // Above the tabs only the active tab's raised top belongs to the control.
    region -= QRegion(0, 0, w, TabTop);
    const bool activeShown = m_ActiveTab >= 0 && m_ActiveTab < m_NumberOfTabs;
    if (activeShown) {
        const int left = TabOutlineLeft(m_ActiveTab);
        region += QRegion(left, ActiveTop, TabOutlineRight(m_ActiveTab) - left, TabTop - ActiveTop);
    }

    // The cut-off strip right of the last tab, and the margin left of the first.
    const int last = m_NumberOfTabs - 1;
    const int right = m_TabLeft[last] + m_TabWidth[last];
    region -= QRegion(right + 3, TabTop, w - (right + 3), TabBottom - TabTop);
    region -= QRegion(right + 1, TabTop, 2, 1);
    region -= QRegion(right + 2, TabTop + 1, 1, 1);
    region -= QRegion(0, TabTop, TabOutlineLeft(0), TabBottom - TabTop);
    region -= QRegion(TabOutlineLeft(0), TabTop, 2, 1);

    // Stepped corners on every tab top.
    for (int i = 0; i < m_NumberOfTabs; ++i) {
        const int top = i == m_ActiveTab ? ActiveTop : TabTop;
        const int left = TabOutlineLeft(i);
        const int r = TabOutlineRight(i);
        region -= QRegion(left, top, 2, 1);
        region -= QRegion(left, top + 1, 1, 1);
        region -= QRegion(r - 2, top, 2, 1);
        region -= QRegion(r - 1, top + 1, 1, 1);
    }
    return region;
}

void ShapedTabs::DrawTabs(bool raiseClick)
{
    const QSize size = this->size().expandedTo(QSize(1, 1));
    const qreal dpr = devicePixelRatioF();
    if (!FitsDevice(m_TabStrip, size, dpr))
        m_TabStrip = DeviceImage(size, dpr, QImage::Format_RGB32);
    m_TabStrip.fill(TranslateColor(m_ControlBackcolor));
    if (!TabCountValid()) {
        m_Silhouette = QRegion();
        clearMask();
        update();
        return;
    }

    m_Silhouette = MakeRegion();
    setMask(m_Silhouette);

    QPainter p(&m_TabStrip);
    p.setFont(font());
    DrawBody(p);
    for (int i = 0; i < m_NumberOfTabs; ++i)
        if (i != m_ActiveTab)
            DrawTab(p, i, false);
    p.end();
    update();
    // The active tab goes last so it overlaps its neighbours; it may raise Click, whose handler
    // may touch this strip again, so no painter is held across it.
    if (m_ActiveTab >= 0 && m_ActiveTab < m_NumberOfTabs) {
        QPainter active(&m_TabStrip);
        active.setFont(font());
        DrawTab(active, m_ActiveTab, raiseClick);
    }
}

void ShapedTabs::DrawBody(QPainter &p) const
{
    const int w = width();
    const int h = height();
    const QColor border = TranslateColor(m_BorderDarkColor);
    p.setPen(border);
    p.setBrush(TranslateColor(m_TabBodyColor));
    RoundRect(p, Corners(1, TabBottom, w - 1, h - 1), 4);
    RoundRect(p, Corners(0, TabBottom + 1, w, h), 6);
    Dot(p, 0, TabBottom + 2);
    Dot(p, w - 1, TabBottom + 2);
}

void ShapedTabs::DrawTab(QPainter &p, int index, bool raiseClick)
{
    if (index == m_ActiveTab) {
        DrawActiveTab(p, index);
        DrawCaption(p, index, ActiveTop, m_ActiveTabTextColor);
    } else {
        DrawInactiveTab(p, index);
        DrawCaption(p, index, TabTop, m_InactiveTabTextColor);
    }
    if (!raiseClick)
        return;
    p.end();
    update();
    int clicked = index;
    Q_EMIT Click(clicked);
}

void ShapedTabs::DrawInactiveTab(QPainter &p, int index) const
{
    const int left = TabOutlineLeft(index);
    const int right = TabOutlineRight(index) - 1;
    p.fillRect(QRect(QPoint(left + 1, TabTop + 1), QPoint(right - 1, TabBottom - 1)),
               TranslateColor(m_DisabledTabColor));
    p.setPen(TranslateColor(m_BorderLightColor));
    Line(p, left + 1, TabTop + 2, right - 1, TabTop + 2); // inner light line under the top edge
    p.setPen(TranslateColor(m_BorderDarkColor));
    Line(p, left, TabBottom - 1, left, TabTop + 2);
    Dot(p, left + 1, TabTop + 1);
    Line(p, left + 2, TabTop, right - 2, TabTop);
    Dot(p, right - 1, TabTop + 1);
    Line(p, right, TabTop + 2, right, TabBottom - 1);
}

void ShapedTabs::DrawActiveTab(QPainter &p, int index) const
{
    const int left = TabOutlineLeft(index);
    const int right = TabOutlineRight(index) - 1;
    const QColor body = TranslateColor(m_TabBodyColor);
    // The tab's outline stops where the body begins; the tab then opens into the body.
    p.save();
    p.setClipRect(QRect(QPoint(left, ActiveTop), QPoint(right, TabBottom)));
    p.setBrush(body);
    p.setPen(TranslateColor(m_BorderDarkColor));
    RoundRect(p, Corners(left, ActiveTop, right + 1, TabBottom + 8), 8);
    p.setPen(body);
    RoundRect(p, Corners(left + 1, ActiveTop + 1, right, TabBottom + 8), 6);
    p.restore();
    p.setPen(body);
    Line(p, left + 1, TabBottom, right - 1, TabBottom);
    Line(p, left + 1, TabBottom + 1, right - 1, TabBottom + 1);

    // The highlight band on top, one colour per row from the top down.
    for (int row = 0; row < static_cast<int>(m_Highlight.size()); ++row) {
        const int inset = row == 0 ? 2 : 1;
        p.setPen(TranslateColor(m_Highlight[row]));
        Line(p, left + inset, ActiveTop + row, right - inset, ActiveTop + row);
    }
    p.setBrush(Qt::NoBrush);
}

void ShapedTabs::DrawCaption(QPainter &p, int index, int top, OleColor color) const
{
    p.setPen(TranslateColor(color));
    const QRect box(TabOutlineLeft(index), top + 2, m_TabWidth[index], TabBottom - top - 2);
    p.drawText(box, Qt::AlignCenter | Qt::TextSingleLine, TabCaption(index));
    if (index == m_ActiveTab && hasFocus()) {
        // The keyboard's place: a dotted frame round the chosen tab's caption.
        const StrokeOnPixels onPixels(p);
        p.setPen(QPen(TranslateColor(color), 1, Qt::DotLine));
        p.setBrush(Qt::NoBrush);
        p.drawRect(box.adjusted(3, 0, -4, -2));
    }
}

int ShapedTabs::HitTest(const QPoint &pos) const
{
    if (!TabCountValid())
        return -1;
    const int last = m_NumberOfTabs - 1;
    const int x = pos.x();
    if (x < m_TabLeft[0] || x >= m_TabLeft[last] + m_TabWidth[last])
        return -1;
    if (pos.y() < 0 || pos.y() >= TabBottom)
        return -1;
    int hit = 0;
    for (int i = 1; i < m_NumberOfTabs && x >= m_TabLeft[i]; ++i)
        hit = i;
    return hit;
}

void ShapedTabs::mousePressEvent(QMouseEvent *event) { ChooseTab(HitTest(event->position().toPoint())); }

void ShapedTabs::ChooseTab(int index)
{
    if (index < 0 || index == m_ActiveTab || !TabCountValid() || index >= m_NumberOfTabs)
        return;
    m_ActiveTab = index;
    DrawTabs(true);
}

void ShapedTabs::keyPressEvent(QKeyEvent *event)
{
    if (!TabCountValid() || event->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) {
        QWidget::keyPressEvent(event);
        return;
    }
    const int last = m_NumberOfTabs - 1;
    const int active = std::clamp(m_ActiveTab, 0, last);
    switch (event->key()) {
    case Qt::Key_Left: ChooseTab(std::max(0, active - 1)); break;
    case Qt::Key_Right: ChooseTab(std::min(last, active + 1)); break;
    case Qt::Key_Home: ChooseTab(0); break;
    case Qt::Key_End: ChooseTab(last); break;
    default: QWidget::keyPressEvent(event); return;
    }
    event->accept();
}

void ShapedTabs::focusInEvent(QFocusEvent *event)
{
    QWidget::focusInEvent(event);
    Refresh();
}

void ShapedTabs::focusOutEvent(QFocusEvent *event)
{
    QWidget::focusOutEvent(event);
    Refresh();
}

void ShapedTabs::paintEvent(QPaintEvent *)
{
    // On a screen of another pixel ratio the strip is drawn again at that ratio.
    if (!m_TabStrip.isNull() && m_TabStrip.devicePixelRatio() != devicePixelRatioF())
        DrawTabs(false);
    QPainter p(this);
    p.drawImage(0, 0, m_TabStrip);
}

void ShapedTabs::resizeEvent(QResizeEvent *) { Refresh(); }

void ShapedTabs::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::FontChange)
        Refresh();
    QWidget::changeEvent(event);
}

QVariantMap ShapedTabs::WriteProperties() const
{
    QVariantMap bag;
    auto put = [&bag](const char *key, const QVariant &value, const QVariant &fallback) {
        if (value != fallback)
            bag.insert(QString::fromLatin1(key), value);
    };
    put("Caption", m_Caption, DefaultCaption);
    put("NumberOfTabs", m_NumberOfTabs, kDefaultTabCount);
    put("FirstTabLeft", m_FirstTabLeft, kDefaultFirstTabLeft);
    put("ActiveTab", m_ActiveTab, 0);
    put("TabBodyColor", m_TabBodyColor, kDefaults.tabBody);
    put("DisabledTabColor", m_DisabledTabColor, kDefaults.disabledTab);
    put("BorderDarkColor", m_BorderDarkColor, kDefaults.borderDark);
    put("BorderLightColor", m_BorderLightColor, kDefaults.borderLight);
    put("InactiveTabTextColor", m_InactiveTabTextColor, kDefaults.inactiveText);
    put("ActiveTabTextColor", m_ActiveTabTextColor, kDefaults.activeText);
    put("HighlightColor1", m_Highlight[0], kDefaults.highlight[0]);
    put("HighlightColor2", m_Highlight[1], kDefaults.highlight[1]);
    put("HighlightColor3", m_Highlight[2], kDefaults.highlight[2]);
    put("HighlightColor4", m_Highlight[3], kDefaults.highlight[3]);
    put("ControlBackcolor", m_ControlBackcolor, kDefaults.controlBack);
    return bag;
}

void ShapedTabs::ReadProperties(const QVariantMap &bag)
{
    auto color = [&bag](const char *key, OleColor fallback) {
        return bag.value(QString::fromLatin1(key), fallback).value<OleColor>();
    };
    m_Caption = bag.value(QStringLiteral("Caption"), DefaultCaption).toString();
    m_NumberOfTabs = bag.value(QStringLiteral("NumberOfTabs"), kDefaultTabCount).toInt();
    m_FirstTabLeft = bag.value(QStringLiteral("FirstTabLeft"), kDefaultFirstTabLeft).toInt();
    m_ActiveTab = bag.value(QStringLiteral("ActiveTab"), 0).toInt();
    m_TabBodyColor = color("TabBodyColor", kDefaults.tabBody);
    m_DisabledTabColor = color("DisabledTabColor", kDefaults.disabledTab);
    m_BorderDarkColor = color("BorderDarkColor", kDefaults.borderDark);
    m_BorderLightColor = color("BorderLightColor", kDefaults.borderLight);
    m_InactiveTabTextColor = color("InactiveTabTextColor", kDefaults.inactiveText);
    m_ActiveTabTextColor = color("ActiveTabTextColor", kDefaults.activeText);
    m_Highlight[0] = color("HighlightColor1", kDefaults.highlight[0]);
    m_Highlight[1] = color("HighlightColor2", kDefaults.highlight[1]);
    m_Highlight[2] = color("HighlightColor3", kDefaults.highlight[2]);
    m_Highlight[3] = color("HighlightColor4", kDefaults.highlight[3]);
    m_ControlBackcolor = color("ControlBackcolor", kDefaults.controlBack);
    Refresh();
}

} // namespace zrt
