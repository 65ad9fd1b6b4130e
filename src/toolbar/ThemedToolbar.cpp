#include "toolbar/ThemedToolbar.h"

#include "common/RunTimeError.h"
#include "gfx/MessageEngine.h"
#include "toolbar/ToolbarMenu.h"
#include "toolbar/ToolbarSurface.h"

#include <QCursor>
#include <QMouseEvent>
#include <QPainter>
#include <QtDebug>

#include <algorithm>
#include <climits>

namespace zrt {

namespace {

constexpr int kErrToolbar = 5; // the operation could not be done: invalid procedure call

constexpr int kMaxButtons = SHRT_MAX;

[[noreturn]] void Fail(int number, const QString &text) { throw RunTimeError(number, text.toStdString()); }

QString IndexNotFound(int i) { return QStringLiteral("Button index '%1' not found.").arg(i); }

bool ValidLook(int iconSize, int alignment)
{
    return iconSize >= 0 && iconSize <= 256 && alignment >= btn::IconLeft && alignment <= btn::IconBottom;
}

} // namespace

// --- Construction ---

ThemedToolbar::ThemedToolbar(QWidget *parent) : QWidget(parent)
{
    BuildSurfaces();
    m_menu = new ToolbarMenu(this);
    connect(m_menu, &ToolbarMenu::ItemClicked, this, &ThemedToolbar::MenuClick);
    // The open menu holds the pointer, so the end area never hears that it was left: once the
    // menu closes, it is lit only if the pointer is really over it.
    connect(m_menu, &QMenu::aboutToHide, this, [this] {
        if (m_endAreaState == 1 && !m_picRight->rect().contains(m_picRight->mapFromGlobal(QCursor::pos()))) {
            m_endAreaState = 0;
            m_picRight->update();
        }
    });
    connect(m_menu, &ToolbarMenu::ThemeChosen, this, [this](int v) {
        setThemeColor(v);
        Q_EMIT ThemeColorClick(v);
    });
    RefreshColors();
    RefreshMenu();
    StartHoverWatch();
    // A new bar is 400 by 435 twips.
    resize(400 / TwipsPerPixel + 1, 435 / TwipsPerPixel);
    Relayout(0);
}

ThemedToolbar::~ThemedToolbar()
{
    try {
        if (m_engine)
            m_engine->unsubclassAll();
        delete m_picChevron;
        m_picChevron = nullptr;
    } catch (...) {
        qWarning("Error Terminating Toolbar Control");
    }
}

void ThemedToolbar::BuildSurfaces()
{
    m_picLeft = new ToolbarSurface(this);
    m_picTB = new ToolbarSurface(this);
    m_picRight = new ToolbarSurface(this);
    // The pop-up has no parent and is a borderless tool window, so it floats over everything.
    m_picChevron = new ToolbarSurface(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint);
    m_picChevron->setAttribute(Qt::WA_ShowWithoutActivating);
    m_picLeft->setObjectName(QStringLiteral("PicLeft"));
    m_picTB->setObjectName(QStringLiteral("PicTB"));
    m_picRight->setObjectName(QStringLiteral("PicRight"));
    m_picChevron->setObjectName(QStringLiteral("picChevron"));
    WireBarSurface();
    WireEndSurfaces();
    WirePopupSurface();
}

void ThemedToolbar::WireBarSurface()
{
    m_picTB->setPaintHandler([this](QPainter &p) { PaintBar(p); });
    m_picTB->setPressHandler([this](QMouseEvent *e) {
        PressAt(Surface::Bar, e);
        EmitPassThrough(m_picTB, e, 0);
    });
    m_picTB->setMoveHandler([this](QMouseEvent *e) {
        TrackHot(Surface::Bar, e->position().toPoint());
        EmitPassThrough(m_picTB, e, 1);
    });
    m_picTB->setReleaseHandler([this](QMouseEvent *e) {
        ReleaseAt(Surface::Bar, e);
        EmitPassThrough(m_picTB, e, 2);
    });
}

void ThemedToolbar::WireEndSurfaces()
{
    m_picLeft->setPaintHandler([this](QPainter &p) { PaintGrip(p); });
    m_picLeft->setCursor(Qt::SizeAllCursor);
    m_picLeft->setPressHandler([this](QMouseEvent *e) { m_gripGrab = e->position().toPoint(); });
    m_picLeft->setMoveHandler([this](QMouseEvent *e) {
        // Dragging the grip slides the bar along its container.
        if (!(e->buttons() & Qt::LeftButton) || !parentWidget())
            return;
        const int x = pos().x() + e->position().toPoint().x() - m_gripGrab.x();
        move(std::clamp(x, 0, std::max(0, parentWidget()->width() - width())), pos().y());
    });
    m_picRight->setPaintHandler([this](QPainter &p) { PaintEndArea(p); });
    m_picRight->setPressHandler([this](QMouseEvent *e) { EndAreaPressed(e); });
    m_picRight->setMoveHandler([this](QMouseEvent *) {
        if (m_endAreaState != 1) {
            m_endAreaState = 1;
            m_picRight->update();
        }
    });
}

void ThemedToolbar::WirePopupSurface()
{
    m_picChevron->setPaintHandler([this](QPainter &p) { PaintPopup(p); });
    m_picChevron->setPressHandler([this](QMouseEvent *e) { PressAt(Surface::Popup, e); });
    m_picChevron->setMoveHandler([this](QMouseEvent *e) { TrackHot(Surface::Popup, e->position().toPoint()); });
    m_picChevron->setReleaseHandler([this](QMouseEvent *e) { ReleaseAt(Surface::Popup, e); });
}

// --- Hover through the message engine ---

void ThemedToolbar::StartHoverWatch()
{
    m_engine = new MessageEngine(QStringLiteral("ThemedToolbar"), MessageEngine::Form::Growing,
                                 [this](Message &m) { zSubclass_Proc(m); }, this);
    for (QWidget *w : {static_cast<QWidget *>(m_picTB), static_cast<QWidget *>(m_picRight),
                       static_cast<QWidget *>(m_picChevron)}) {
        m_engine->subclass(w);
        m_engine->watch(w, msg::WM_MOUSEHOVER, MsgWhen::After);
        m_engine->watch(w, msg::WM_MOUSEMOVE, MsgWhen::After);
        m_engine->watch(w, msg::WM_MOUSELEAVE, MsgWhen::After);
    }
}

void ThemedToolbar::zSubclass_Proc(Message &m)
{
    if (m.message == msg::WM_MOUSEHOVER || m.message == msg::WM_MOUSEMOVE) {
        if (m.window == m_picRight && m_endAreaState != 1) {
            m_endAreaState = 1;
            m_picRight->update();
        }
        if (!m_mouseInside) {
            m_mouseInside = true;
            Q_EMIT MouseEnter();
        }
        return;
    }
    if (m.message != msg::WM_MOUSELEAVE)
        return;
    m_mouseInside = false;
    Q_EMIT MouseLeave();
    if (m.window == m_picTB && m_hotSurface == Surface::Bar) {
        ClearHot();
    } else if (m.window == m_picRight) {
        m_endAreaState = 0;
        m_picRight->update();
    } else if (m.window == m_picChevron) {
        HideChevron();
    }
    // Put the bar's colours back wherever the pointer left a lit button.
    m_picTB->update();
}

// --- Buttons ---

QImage ThemedToolbar::IconFromStrip(const QImage &strip, int cell, int size)
{
    if (cell < 1 || size <= 0 || cell * size > strip.width())
        return {};
    return strip.copy((cell - 1) * size, 0, size, std::min(size, strip.height()));
}

void ThemedToolbar::CheckIndex(int i) const
{
    if (i < 1 || i > ButtonCount())
        Fail(ErrInvalidPropertyIndex, IndexNotFound(i));
}

const ToolbarButton &ThemedToolbar::at(int i) const
{
    CheckIndex(i);
    EnsureLayout();
    return m_buttons[static_cast<std::size_t>(i - 1)];
}

ToolbarButton &ThemedToolbar::at(int i)
{
    CheckIndex(i);
    return m_buttons[static_cast<std::size_t>(i - 1)];
}

int ThemedToolbar::AddButton(int BtnType, const QString &BtnCaption, const QString &BtnKey, const QImage &BtnIcon,
                             int BtnIconSize, int BtnAlignment, const QString &BtnToolTipText, OleColor BtnForeColor,
                             const std::optional<QFont> &BtnFont, int BtnStyle, int btnState, bool BtnUseMaskColor,
                             OleColor BtnMaskColor)
{
    if (ButtonCount() >= kMaxButtons || !ValidLook(BtnIconSize, BtnAlignment))
        Fail(kErrToolbar, QStringLiteral("Unable to add button"));
    ToolbarButton b;
    b.type = BtnType;
    b.caption = BtnCaption;
    b.key = BtnKey;
    b.icon = BtnIcon;
    b.iconSize = BtnIconSize;
    b.alignment = BtnAlignment;
    b.toolTipText = BtnToolTipText;
    b.foreColor = BtnForeColor;
    b.font = BtnFont.value_or(DefaultButtonFont());
    b.style = BtnStyle;
    b.useMaskColor = BtnUseMaskColor;
    b.maskColor = BtnMaskColor;
    SetState(b, btnState);
    m_buttons.push_back(b);
    m_places.emplace_back();
    Relayout(m_buttons.size() - 1);
    return ButtonCount();
}

void ThemedToolbar::SetState(ToolbarButton &b, int state)
{
    b.state = state;
    b.enabled = state != btn::StateDisabled;
    b.value = state == btn::StateValue;
}

void ThemedToolbar::SetEnabled(ToolbarButton &b, bool enabled)
{
    b.enabled = enabled;
    // Enabling always comes back to normal, whatever the value says.
    b.state = enabled ? btn::StateNormal : btn::StateDisabled;
}

void ThemedToolbar::SetValue(ToolbarButton &b, bool value)
{
    b.value = value;
    if (b.state == btn::StateDisabled)
        return; // a disabled button keeps its look until it is enabled again
    b.state = value ? btn::StateValue : btn::StateNormal;
}

void ThemedToolbar::ChangeBtnProperty(int button, int which, const QVariant &value)
{
    ToolbarButton &b = at(button);
    bool sizeChanges = false;
    switch (which) {
    case FieldCaption: b.caption = value.toString(); sizeChanges = true; break;
    case FieldEnabled: SetEnabled(b, value.toBool()); break;
    case FieldKey: b.key = value.toString(); break;
    case FieldIcon: b.icon = value.value<QImage>(); sizeChanges = true; break;
    case FieldIconSize:
        if (!ValidLook(value.toInt(), b.alignment))
            Fail(380, QStringLiteral("Invalid property value"));
        b.iconSize = value.toInt();
        sizeChanges = true;
        break;
    case FieldToolTipText: b.toolTipText = value.toString(); break;
    case FieldForeColor: b.foreColor = value.value<OleColor>(); break;
    case FieldStyle: b.style = value.toInt(); sizeChanges = true; break;
    case FieldState: SetState(b, value.toInt()); break;
    case FieldValue: SetValue(b, value.toBool()); break;
    case FieldFont: b.font = value.value<QFont>(); sizeChanges = true; break;
    default: Fail(380, QStringLiteral("Invalid property value"));
    }
    if (sizeChanges)
        Relayout(static_cast<std::size_t>(button - 1));
    else
        RedrawAll();
}

void ThemedToolbar::setBtnAlignment(int i, int v)
{
    ToolbarButton &b = at(i);
    if (!ValidLook(b.iconSize, v))
        Fail(380, QStringLiteral("Invalid property value"));
    b.alignment = v;
    Relayout(static_cast<std::size_t>(i - 1));
}

void ThemedToolbar::setBtnType(int i, int v)
{
    at(i).type = v;
    Relayout(static_cast<std::size_t>(i - 1));
}

void ThemedToolbar::setBtnMaskColor(int i, OleColor v)
{
    at(i).maskColor = v;
    RedrawAll();
}

void ThemedToolbar::setBtnUseMaskColor(int i, bool v)
{
    at(i).useMaskColor = v;
    RedrawAll();
}

void ThemedToolbar::DeleteButton(int button)
{
    if (m_buttons.empty())
        Fail(kErrToolbar, QStringLiteral("Unable to delete button"));
    CheckIndex(button);
    ClearHot();
    m_pressed = -1;
    m_buttons.erase(m_buttons.begin() + (button - 1));
    m_places.erase(m_places.begin() + (button - 1));
    Relayout(static_cast<std::size_t>(button - 1));
}

void ThemedToolbar::MoveButton(int button, int direction)
{
    CheckIndex(button);
    if (direction != MoveLeft && direction != MoveRight)
        zrt::raise(ErrInvalidCall);
    if (direction == MoveLeft && button == 1)
        Fail(kErrToolbar, QStringLiteral("Button cannot be moved any further left."));
    if (direction == MoveRight && button == ButtonCount())
        Fail(kErrToolbar, QStringLiteral("Button cannot be moved any further right."));
    const int other = direction == MoveLeft ? button - 1 : button + 1;
    std::swap(m_buttons[static_cast<std::size_t>(button - 1)], m_buttons[static_cast<std::size_t>(other - 1)]);
    ClearHot();
    Relayout(static_cast<std::size_t>(std::min(button, other) - 1));
}

void ThemedToolbar::EnsureLayout() const
{
    // A hidden widget hears of its new size only when shown; lay out for the size it has now.
    if (size() != m_laidOutSize)
        const_cast<ThemedToolbar *>(this)->Relayout(0);
}

bool ThemedToolbar::BtnOnBar(int i) const
{
    CheckIndex(i);
    EnsureLayout();
    return m_places[static_cast<std::size_t>(i - 1)].onBar;
}

QRect ThemedToolbar::BtnDisplayRect(int i) const
{
    CheckIndex(i);
    EnsureLayout();
    return m_places[static_cast<std::size_t>(i - 1)].rect;
}

// --- Persistence ---

namespace {

template <typename T>
void WriteIf(QVariantMap &bag, const QString &key, const T &value, const T &fallback)
{
    if (!(value == fallback))
        bag.insert(key, QVariant::fromValue(value));
}

template <typename T>
T ReadOr(const QVariantMap &bag, const QString &key, const T &fallback)
{
    auto it = bag.find(key);
    return it == bag.end() ? fallback : it->template value<T>();
}

} // namespace

QVariantMap ThemedToolbar::WriteProperties() const
{
    QVariantMap bag;
    WriteIf(bag, "BackColor", m_backColor, SystemColor(15));
    WriteIf(bag, "ThemeColor", m_themeColor, int(theme::FollowDesktop));
    WriteIf(bag, "IsStrech", m_isStrech, false);
    WriteIf(bag, "NoMoveBar", m_noMoveBar, false);
    WriteIf(bag, "ReverseGradient", m_reverseGradient, false);
    WriteIf(bag, "Enabled", isEnabled(), true);
    WriteIf(bag, "MenuLanguage", m_menuLanguage, 0);
    WriteIf(bag, "ShowMenuColor", m_showMenuColor, true);
    WriteIf(bag, "ButtonCount", ButtonCount(), 0);
    for (int n = 1; n <= ToolbarMenu::ItemCount; ++n)
        WriteIf(bag, QStringLiteral("cMenuItem%1").arg(n), m_menuItems[static_cast<std::size_t>(n - 1)], QString());
    WriteIf(bag, "cMenuItemTitle", m_menuTitle, QString());
    const ToolbarButton def;
    for (int n = 1; n <= ButtonCount(); ++n) {
        const ToolbarButton &b = m_buttons[static_cast<std::size_t>(n - 1)];
        const auto k = [n](const char *name) { return QString::fromLatin1(name) + QString::number(n); };
        WriteIf(bag, k("BtnCaption"), b.caption, def.caption);
        WriteIf(bag, k("BtnEnabled"), b.enabled, def.enabled);
        if (!b.icon.isNull())
            bag.insert(k("BtnIcon"), b.icon);
        WriteIf(bag, k("BtnIconSize"), b.iconSize, def.iconSize);
        WriteIf(bag, k("BtnToolTipText"), b.toolTipText, def.toolTipText);
        WriteIf(bag, k("BtnKey"), b.key, def.key);
        WriteIf(bag, k("BtnAlignment"), b.alignment, def.alignment);
        WriteIf(bag, k("BtnType"), b.type, def.type);
        WriteIf(bag, k("BtnStyle"), b.style, def.style);
        WriteIf(bag, k("BtnForeColor"), b.foreColor, def.foreColor);
        WriteIf(bag, k("BtnFont"), b.font, def.font);
        WriteIf(bag, k("BtnState"), b.state, def.state);
        WriteIf(bag, k("BtnValue"), b.value, def.value);
        WriteIf(bag, k("BtnLeft"), b.left, def.left);
        WriteIf(bag, k("BtnTop"), b.top, def.top);
        WriteIf(bag, k("BtnWidth"), b.width, def.width);
        WriteIf(bag, k("BtnHeight"), b.height, def.height);
        WriteIf(bag, k("BtnUseMaskColor"), b.useMaskColor, def.useMaskColor);
        WriteIf(bag, k("BtnMaskColor"), b.maskColor, def.maskColor);
    }
    return bag;
}

void ThemedToolbar::ReadProperties(const QVariantMap &bag)
{
    HideChevron();
    ClearHot();
    m_backColor = ReadOr(bag, "BackColor", OleColor(SystemColor(15)));
    m_themeColor = ReadOr(bag, "ThemeColor", int(theme::FollowDesktop));
    m_noMoveBar = ReadOr(bag, "NoMoveBar", false);
    m_reverseGradient = ReadOr(bag, "ReverseGradient", false);
    setEnabled(ReadOr(bag, "Enabled", true));
    m_menuLanguage = ReadOr(bag, "MenuLanguage", 0);
    m_showMenuColor = ReadOr(bag, "ShowMenuColor", true);
    for (int n = 1; n <= ToolbarMenu::ItemCount; ++n)
        m_menuItems[static_cast<std::size_t>(n - 1)] = ReadOr(bag, QStringLiteral("cMenuItem%1").arg(n), QString());
    m_menuTitle = ReadOr(bag, "cMenuItemTitle", QString());
    const int count = std::clamp(ReadOr(bag, "ButtonCount", 0), 0, kMaxButtons);
    const ToolbarButton def;
    m_buttons.assign(static_cast<std::size_t>(count), def);
    m_places.assign(static_cast<std::size_t>(count), ButtonPlace{});
    for (int n = 1; n <= count; ++n) {
        ToolbarButton &b = m_buttons[static_cast<std::size_t>(n - 1)];
        const auto k = [n](const char *name) { return QString::fromLatin1(name) + QString::number(n); };
        b.caption = ReadOr(bag, k("BtnCaption"), def.caption);
        b.enabled = ReadOr(bag, k("BtnEnabled"), def.enabled);
        b.icon = ReadOr(bag, k("BtnIcon"), def.icon);
        b.iconSize = ReadOr(bag, k("BtnIconSize"), def.iconSize);
        b.toolTipText = ReadOr(bag, k("BtnToolTipText"), def.toolTipText);
        b.key = ReadOr(bag, k("BtnKey"), def.key);
        b.alignment = ReadOr(bag, k("BtnAlignment"), def.alignment);
        b.type = ReadOr(bag, k("BtnType"), def.type);
        b.style = ReadOr(bag, k("BtnStyle"), def.style);
        b.foreColor = ReadOr(bag, k("BtnForeColor"), def.foreColor);
        b.font = ReadOr(bag, k("BtnFont"), def.font);
        b.state = ReadOr(bag, k("BtnState"), def.state);
        b.value = ReadOr(bag, k("BtnValue"), def.value);
        b.useMaskColor = ReadOr(bag, k("BtnUseMaskColor"), def.useMaskColor);
        b.maskColor = ReadOr(bag, k("BtnMaskColor"), def.maskColor);
        if (!ValidLook(b.iconSize, b.alignment)) {
            b.iconSize = def.iconSize;
            b.alignment = def.alignment;
        }
    }
    setBackColor(m_backColor);
    setIsStrech(ReadOr(bag, "IsStrech", false));
    RefreshColors();
    RefreshMenu();
    Relayout(0);
}

} // namespace zrt
