#include "controls/DropPanel.h"

#include "common/RunTimeError.h"

#include <QApplication>
#include <QCursor>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QShowEvent>
#include <QTimer>

#include <cmath>

namespace zrt {

namespace {

constexpr int kInvalidPropertyValue = 380;

const OleColor kTitleBackDefault = RGB(255, 255, 255);
const OleColor kTitleEndDefault = SystemColor(15);    // button face
const OleColor kTitleBorderDefault = SystemColor(16); // button shadow
const OleColor kTitleForeDefault = SystemColor(18);   // button text
const OleColor kBackDefault = SystemColor(15);

Qt::Alignment LabelAlignment(int align)
{
    switch (align) {
    case DropPanel::AlignRight: return Qt::AlignRight | Qt::AlignVCenter;
    case DropPanel::AlignCenter: return Qt::AlignHCenter | Qt::AlignVCenter;
    default: return Qt::AlignLeft | Qt::AlignVCenter;
    }
}

// The label's text keeps a space off the edge it is aligned to.
QString PaddedTitle(const QString &title, int align)
{
    switch (align) {
    case DropPanel::AlignLeft: return QLatin1Char(' ') + title;
    case DropPanel::AlignRight: return title + QLatin1Char(' ');
    default: return title;
    }
}

} // namespace

DropPanel::DropPanel(QWidget *parent)
    : QWidget(parent), m_TitleBackColor(kTitleBackDefault), m_TitleEndColor(kTitleEndDefault),
      m_TitleBorderColor(kTitleBorderDefault), m_TitleForeColor(kTitleForeDefault),
      m_DDBackColor(kBackDefault), m_LblTitle(new QLabel(this)), m_Timer1(new QTimer(this)),
      m_cursorSource([] { return QCursor::pos(); })
{
    setMouseTracking(true);
    // The label hands every mouse event to the panel, as if the title were the panel itself.
    m_LblTitle->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_LblTitle->setAttribute(Qt::WA_TranslucentBackground);
    m_Timer1->setInterval(DefaultCloseInterval);
    connect(m_Timer1, &QTimer::timeout, this, &DropPanel::Timer1_Timer);
    resize(120, ToPixels(m_ExpandedHeight));
    DrawTitle();
    // A list in the body works by keys even while folded, as a closed drop-down does: the title,
    // which shows its value, carries the focus mark meanwhile.
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget *, QWidget *now) {
        const bool inBody = now && now != this && isAncestorOf(now);
        if (inBody != m_BodyHasFocus) {
            m_BodyHasFocus = inBody;
            update();
        }
    });
}

int DropPanel::ToPixels(int twips)
{
    return static_cast<int>(std::lround(static_cast<double>(twips) / TwipsPerPixel));
}

// ---- title properties: each stores and redraws -------------------------------------------

void DropPanel::setTitle(const QString &title)
{
    m_Title = title;
    DrawTitle();
}

void DropPanel::setTitleAlign(int align)
{
    if (align < AlignLeft || align > AlignCenter)
        throw RunTimeError(kInvalidPropertyValue, "Invalid property value");
    m_TitleAlign = align;
    DrawTitle();
}

void DropPanel::setTitleBorder(int border)
{
    m_TitleBorder = border;
    DrawTitle();
}

void DropPanel::setTitleAppearance(int appearance)
{
    m_TitleAppearance = appearance;
    DrawTitle();
}

void DropPanel::setTitleGradient(int gradient)
{
    m_TitleGradient = gradient;
    DrawTitle();
}

void DropPanel::setUseIcon(int useIcon)
{
    m_UseIcon = useIcon;
    DrawTitle();
}

void DropPanel::setTitleIcon(const QPixmap &icon)
{
    m_TitleIcon = icon;
    DrawTitle();
}

void DropPanel::setTitleHeight(int twips)
{
    m_TitleHeight = std::max(0, twips);
    if (m_Collapsed)
        SetHeightPixels(CollapsedHeight());
    DrawTitle();
}

void DropPanel::setTitleFontsize(float points)
{
    m_TitleFontsize = points;
    DrawTitle();
}

void DropPanel::setTitleFontBold(bool bold)
{
    m_TitleFontBold = bold;
    DrawTitle();
}

void DropPanel::setTitleFontItalic(bool italic)
{
    m_TitleFontItalic = italic;
    DrawTitle();
}

void DropPanel::setTitleFontUnderline(bool underline)
{
    m_TitleFontUnderline = underline;
    DrawTitle();
}

void DropPanel::setTitleBackColor(OleColor color)
{
    m_TitleBackColor = color;
    DrawTitle();
}

void DropPanel::setTitleEndColor(OleColor color)
{
    m_TitleEndColor = color;
    DrawTitle();
}

void DropPanel::setTitleBorderColor(OleColor color)
{
    m_TitleBorderColor = color;
    DrawTitle();
}

void DropPanel::setTitleForeColor(OleColor color)
{
    m_TitleForeColor = color;
    DrawTitle();
}

// ---- panel properties --------------------------------------------------------------------

void DropPanel::setDDBackColor(OleColor color)
{
    m_DDBackColor = color;
    update();
}

void DropPanel::setDDBorderStyle(int style)
{
    m_DDBorderStyle = style;
    update();
}

void DropPanel::setDDAppearance(int appearance)
{
    m_DDAppearance = appearance;
    update();
}

void DropPanel::setExpandedHeight(int twips)
{
    m_ExpandedHeight = twips;
    if (!m_Collapsed)
        SetHeightPixels(ToPixels(twips));
}

void DropPanel::setOpenOn(int mode)
{
    m_OpenOn = mode;
    if (m_OpenOn == OpenOnClickNoTimer)
        m_Timer1->stop();
}

void DropPanel::setHoverTime(int ms)
{
    m_HoverTime = ms;
    m_Timer1->setInterval(ms > 0 ? ms : DefaultCloseInterval);
}

// ---- open and close ----------------------------------------------------------------------

void DropPanel::Expand()
{
    if (!m_Collapsed)
        return;
    Q_EMIT OnExpand();
    raise(); // an open drop-down lies over its neighbours
    SetHeightPixels(ToPixels(m_ExpandedHeight));
    m_Collapsed = false;
}

void DropPanel::Collapse()
{
    if (!m_UserMode || m_Collapsed)
        return;
    SetHeightPixels(CollapsedHeight());
    m_Collapsed = true;
    Q_EMIT OnCollapse();
}

void DropPanel::SetHeightPixels(int pixels) { resize(width(), std::max(0, pixels)); }

void DropPanel::PlaceInBody(QWidget *child)
{
    if (!child)
        return;
    child->setParent(this);
    const int top = CollapsedHeight();
    child->setGeometry(0, top, width(), child->height());
    child->show();
    setExpandedHeight(ToTwips(top + child->height()));
}

// ---- pointer and close timer -------------------------------------------------------------

bool DropPanel::TimerEnabled() const { return m_Timer1->isActive(); }

void DropPanel::setCursorSource(std::function<QPoint()> source)
{
    m_cursorSource = source ? std::move(source) : [] { return QCursor::pos(); };
}

void DropPanel::PointerMoved(const QPoint &pos)
{
    if (!m_UserMode)
        return;
    if (m_OpenOn != OpenOnClickNoTimer)
        m_Timer1->start();
    if (m_OpenOn == OpenOnHover && pos.x() >= 0 && pos.y() >= 0 && pos.x() < width() &&
        pos.y() < height())
        Expand();
}

void DropPanel::TitlePressed()
{
    if (!m_UserMode || m_OpenOn == OpenOnHover)
        return;
    if (m_Collapsed)
        Expand();
    else
        Collapse();
}

void DropPanel::Timer1_Timer()
{
    const QRect window(mapToGlobal(QPoint(0, 0)), size());
    if (window.contains(m_cursorSource()))
        return;
    m_Timer1->stop();
    Collapse();
}

void DropPanel::mouseMoveEvent(QMouseEvent *event) { PointerMoved(event->position().toPoint()); }

void DropPanel::mousePressEvent(QMouseEvent *event)
{
    if (TitleRect().contains(event->position().toPoint()))
        TitlePressed();
}

// ---- life cycle --------------------------------------------------------------------------

void DropPanel::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (!m_UserMode || event->spontaneous())
        return;
    PlaceLabel();
    SetHeightPixels(CollapsedHeight());
    m_Collapsed = true;
}

void DropPanel::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    if (!m_UserMode)
        m_ExpandedHeight = ToTwips(height());
    PlaceLabel();
}

// ---- drawing -----------------------------------------------------------------------------

QRect DropPanel::TitleRect() const { return QRect(0, 0, width(), CollapsedHeight()); }

void DropPanel::DrawTitle()
{
    PlaceLabel();
    ApplyLabel();
    update();
}

void DropPanel::PlaceLabel()
{
    QRect area = TitleRect();
    if (m_TitleBorder)
        area.adjust(1, 1, -1, -1);
    if (m_UseIcon == 1)
        area.setLeft(area.left() + IconSize + 4);
    m_LblTitle->setGeometry(area);
}

void DropPanel::ApplyLabel()
{
    QFont font = this->font();
    font.setPointSizeF(m_TitleFontsize);
    font.setBold(m_TitleFontBold);
    font.setItalic(m_TitleFontItalic);
    font.setUnderline(m_TitleFontUnderline);
    m_LblTitle->setFont(font);
    QPalette palette = m_LblTitle->palette();
    palette.setColor(QPalette::WindowText, TranslateColor(m_TitleForeColor));
    m_LblTitle->setPalette(palette);
    m_LblTitle->setAlignment(LabelAlignment(m_TitleAlign));
    m_LblTitle->setText(PaddedTitle(m_Title, m_TitleAlign));
}

void DropPanel::paintEvent(QPaintEvent *)
{
    QPainter p(this);
    p.fillRect(rect(), TranslateColor(m_DDBackColor));
    FillTitle(p);
    DrawIcon(p);
    DrawTitleBorder(p);
    DrawPanelBorder(p);
    const QRect strip = TitleRect();
    if (m_BodyHasFocus && strip.width() > 6 && strip.height() > 6) {
        p.setPen(QPen(TranslateColor(m_TitleForeColor), 1, Qt::DotLine));
        p.setBrush(Qt::NoBrush);
        p.drawRect(strip.adjusted(2, 2, -3, -3));
    }
}

void DropPanel::FillTitle(QPainter &p) const
{
    const QRect strip = TitleRect();
    if (strip.isEmpty())
        return;
    if (m_TitleGradient == 0) {
        p.fillRect(strip, TranslateColor(m_TitleBackColor));
        return;
    }
    const auto direction =
        m_TitleGradient == 2 ? GradientDirection::TopToBottom : GradientDirection::LeftToRight;
    DrawGradient(p, strip, TranslateColor(m_TitleBackColor), TranslateColor(m_TitleEndColor), direction);
}

void DropPanel::DrawIcon(QPainter &p) const
{
    if (m_UseIcon != 1 || m_TitleIcon.isNull())
        return;
    const int top = std::max(0, (CollapsedHeight() - IconSize) / 2);
    p.drawPixmap(QRect(3, top, IconSize, IconSize), m_TitleIcon);
}

void DropPanel::DrawTitleBorder(QPainter &p) const
{
    const QRect strip = TitleRect();
    if (!m_TitleBorder || strip.width() < 2 || strip.height() < 2)
        return;
    p.setPen(TranslateColor(m_TitleBorderColor));
    p.setBrush(Qt::NoBrush);
    p.drawRect(strip.adjusted(0, 0, -1, -1));
}

void DropPanel::DrawPanelBorder(QPainter &p) const
{
    if (m_DDBorderStyle != 1 || width() < 2 || height() < 2)
        return;
    p.setPen(TranslateColor(m_TitleBorderColor));
    p.setBrush(Qt::NoBrush);
    p.drawRect(rect().adjusted(0, 0, -1, -1));
}

// ---- persistence -------------------------------------------------------------------------

QVariantMap DropPanel::WriteProperties() const
{
    QVariantMap bag;
    auto put = [&bag](const char *key, const QVariant &value, const QVariant &fallback) {
        if (value != fallback)
            bag.insert(QString::fromLatin1(key), value);
    };
    put("Title", m_Title, QString());
    put("TitleAlign", m_TitleAlign, int(AlignLeft));
    put("TitleBorder", m_TitleBorder, 1);
    put("TitleAppearance", m_TitleAppearance, 0);
    put("ExpandedHeight", m_ExpandedHeight, 1500);
    put("OpenOn", m_OpenOn, int(OpenOnHover));
    put("UseIcon", m_UseIcon, 0);
    put("TitleGradient", m_TitleGradient, 0);
    put("DDBorderStyle", m_DDBorderStyle, 0);
    put("Appearance", m_DDAppearance, 0);
    put("HoverTime", m_HoverTime, -1);
    put("DDBackColor", m_DDBackColor, kBackDefault);
    put("TitleBackColor", m_TitleBackColor, kTitleBackDefault);
    put("TitleEndColor", m_TitleEndColor, kTitleEndDefault);
    put("TitleBorderColor", m_TitleBorderColor, kTitleBorderDefault);
    put("TitleForeColor", m_TitleForeColor, kTitleForeDefault);
    put("TitleHeight", m_TitleHeight, 300);
    put("TitleFontsize", m_TitleFontsize, 8.25f);
    put("TitleFontBold", m_TitleFontBold, false);
    put("TitleFontItalic", m_TitleFontItalic, false);
    put("TitleFontUnderline", m_TitleFontUnderline, false);
    return bag;
}

void DropPanel::ReadProperties(const QVariantMap &bag)
{
    auto get = [&bag](const char *key, const QVariant &fallback) {
        return bag.value(QString::fromLatin1(key), fallback);
    };
    m_Title = get("Title", m_Title).toString();
    const int align = get("TitleAlign", int(AlignLeft)).toInt();
    m_TitleAlign = align >= AlignLeft && align <= AlignCenter ? align : int(AlignLeft);
    m_TitleBorder = get("TitleBorder", 1).toInt();
    m_TitleAppearance = get("TitleAppearance", 0).toInt();
    m_ExpandedHeight = get("ExpandedHeight", 1500).toInt();
    m_OpenOn = get("OpenOn", int(OpenOnHover)).toInt();
    m_UseIcon = get("UseIcon", 0).toInt();
    m_TitleGradient = get("TitleGradient", 0).toInt();
    m_DDBorderStyle = get("DDBorderStyle", 0).toInt();
    m_DDAppearance = get("Appearance", 0).toInt();
    setHoverTime(get("HoverTime", -1).toInt());
    m_DDBackColor = get("DDBackColor", kBackDefault).value<OleColor>();
    m_TitleBackColor = get("TitleBackColor", kTitleBackDefault).value<OleColor>();
    m_TitleEndColor = get("TitleEndColor", kTitleEndDefault).value<OleColor>();
    m_TitleBorderColor = get("TitleBorderColor", kTitleBorderDefault).value<OleColor>();
    m_TitleForeColor = get("TitleForeColor", kTitleForeDefault).value<OleColor>();
    m_TitleHeight = get("TitleHeight", 300).toInt();
    m_TitleFontsize = get("TitleFontsize", 8.25f).toFloat();
    m_TitleFontBold = get("TitleFontBold", false).toBool();
    m_TitleFontItalic = get("TitleFontItalic", false).toBool();
    m_TitleFontUnderline = get("TitleFontUnderline", false).toBool();
    SetHeightPixels(m_Collapsed ? CollapsedHeight() : ToPixels(m_ExpandedHeight));
    DrawTitle();
}

} // namespace zrt
