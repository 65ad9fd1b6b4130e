#pragma once
// The program's toolbar: owner-drawn buttons on a themed gradient, with a move grip at the left
// (PicLeft), the button surface (PicTB), an end area (PicRight) that opens the menu and the
// overflow pop-up (picChevron) for the buttons that do not fit. Buttons are numbered from 1.

#include "gfx/GraphicsBas1.h"
#include "toolbar/ToolbarButton.h"
#include "toolbar/ToolbarTheme.h"

#include <QFont>
#include <QImage>
#include <QList>
#include <QVariantMap>
#include <QWidget>

#include <array>
#include <optional>
#include <vector>

class QAction;

namespace zrt {

class MessageEngine;
struct Message;
class ToolbarMenu;
class ToolbarSurface;

class ThemedToolbar : public QWidget {
    Q_OBJECT
public:
    // ChangeBtnProperty's field numbers.
    enum Field {
        FieldCaption = 1, FieldEnabled, FieldKey, FieldIcon, FieldIconSize, FieldToolTipText,
        FieldForeColor, FieldStyle, FieldState, FieldValue, FieldFont
    };
    enum Direction { MoveLeft = 0, MoveRight = 1 };

    static constexpr int GripWidth = 7;
    static constexpr int EndAreaWidth = 14;
    static constexpr int TwipsPerPixel = 15;
    // The widest the overflow pop-up grows before it starts a new row.
    static constexpr int PopupRowWidth = 240;

    explicit ThemedToolbar(QWidget *parent = nullptr);
    ~ThemedToolbar() override;

    // A size x size cell (cell numbered from 1) of an icon strip laid out side by side.
    static QImage IconFromStrip(const QImage &strip, int cell, int size = 32);

    // --- Buttons ---
    // Gives the new button's index. A button with no font gets "MS Sans Serif" 8.
    int AddButton(int BtnType = btn::TypeButton, const QString &BtnCaption = {}, const QString &BtnKey = {},
                  const QImage &BtnIcon = {}, int BtnIconSize = 16, int BtnAlignment = btn::IconLeft,
                  const QString &BtnToolTipText = {}, OleColor BtnForeColor = SystemColor(8),
                  const std::optional<QFont> &BtnFont = std::nullopt, int BtnStyle = 0, int btnState = 0,
                  bool BtnUseMaskColor = false, OleColor BtnMaskColor = RGB(0, 255, 0));
    void ChangeBtnProperty(int button, int which, const QVariant &value);
    void DeleteButton(int button);
    void MoveButton(int button, int direction);
    int ButtonCount() const { return static_cast<int>(m_buttons.size()); }
    // Button i clicked on its face, or with arrow on its drop-down arrow, as the pointer would:
    // how the keyboard and screen readers press it.
    void PressButton(int i, bool arrow = false)
    {
        const ToolbarButton &b = at(i);
        ClickButton(i - 1, QPoint(arrow ? b.width : 0, 0));
    }

    QString BtnCaption(int i) const { return at(i).caption; }
    void setBtnCaption(int i, const QString &v) { ChangeBtnProperty(i, FieldCaption, v); }
    bool BtnEnabled(int i) const { return at(i).enabled; }
    void setBtnEnabled(int i, bool v) { ChangeBtnProperty(i, FieldEnabled, v); }
    QString BtnKey(int i) const { return at(i).key; }
    void setBtnKey(int i, const QString &v) { ChangeBtnProperty(i, FieldKey, v); }
    QImage BtnIcon(int i) const { return at(i).icon; }
    void setBtnIcon(int i, const QImage &v) { ChangeBtnProperty(i, FieldIcon, v); }
    int BtnIconSize(int i) const { return at(i).iconSize; }
    void setBtnIconSize(int i, int v) { ChangeBtnProperty(i, FieldIconSize, v); }
    QString BtnToolTipText(int i) const { return at(i).toolTipText; }
    void setBtnToolTipText(int i, const QString &v) { ChangeBtnProperty(i, FieldToolTipText, v); }
    OleColor BtnForeColor(int i) const { return at(i).foreColor; }
    void setBtnForeColor(int i, OleColor v) { ChangeBtnProperty(i, FieldForeColor, v); }
    int BtnStyle(int i) const { return at(i).style; }
    void setBtnStyle(int i, int v) { ChangeBtnProperty(i, FieldStyle, v); }
    int btnState(int i) const { return at(i).state; }
    void setbtnState(int i, int v) { ChangeBtnProperty(i, FieldState, v); }
    bool BtnValue(int i) const { return at(i).value; }
    void setBtnValue(int i, bool v) { ChangeBtnProperty(i, FieldValue, v); }
    QFont BtnFont(int i) const { return at(i).font; }
    void setBtnFont(int i, const QFont &v) { ChangeBtnProperty(i, FieldFont, v); }
    int BtnAlignment(int i) const { return at(i).alignment; }
    void setBtnAlignment(int i, int v);
    int BtnType(int i) const { return at(i).type; }
    void setBtnType(int i, int v);
    OleColor BtnMaskColor(int i) const { return at(i).maskColor; }
    void setBtnMaskColor(int i, OleColor v);
    bool BtnUseMaskColor(int i) const { return at(i).useMaskColor; }
    void setBtnUseMaskColor(int i, bool v);
    // Computed by the layout, in pixels of PicTB.
    int BtnLeft(int i) const { return at(i).left; }
    int BtnTop(int i) const { return at(i).top; }
    int BtnWidth(int i) const { return at(i).width; }
    int btnHeight(int i) const { return at(i).height; }
    int btnRHeight(int i) const { return at(i).rHeight; }
    // Whether the button stands on the bar now (else in the pop-up), and where it is drawn.
    bool BtnOnBar(int i) const;
    QRect BtnDisplayRect(int i) const;

    // --- The bar ---
    OleColor BackColor() const { return m_backColor; }
    void setBackColor(OleColor v);
    int ThemeColor() const { return m_themeColor; }
    void setThemeColor(int v);
    bool IsStrech() const { return m_isStrech; }
    void setIsStrech(bool v);
    bool NoMoveBar() const { return m_noMoveBar; }
    void setNoMoveBar(bool v);
    bool ReverseGradient() const { return m_reverseGradient; }
    void setReverseGradient(bool v);
    bool Enabled() const { return isEnabled(); }
    // The colours now in use, resolved from ThemeColor and ReverseGradient.
    const ThemeColors &Colors() const { return m_colors; }

    // The width the buttons need, grip and end area included: in pixels and in twips.
    int FullWidth() const;
    int FullWidthTwips() const { return FullWidth() * TwipsPerPixel; }
    // Takes the width the buttons need.
    void SizeToButtons();

    QWidget *PicLeft() const;
    QWidget *PicTB() const;
    QWidget *PicRight() const;
    QWidget *picChevron() const;
    // The end area's hover state: 1 lit, 0 not.
    int EndAreaState() const { return m_endAreaState; }
    bool MouseInside() const { return m_mouseInside; }

    // --- Menu and dialogs ---
    int MenuLanguage() const { return m_menuLanguage; }
    void setMenuLanguage(int v);
    bool ShowMenuColor() const { return m_showMenuColor; }
    void setShowMenuColor(bool v);
    QString cMenuItem(int n) const;
    void setcMenuItem(int n, const QString &text);
    QString cMenuItemTitle() const { return m_menuTitle; }
    void setcMenuItemTitle(const QString &text);
    // A heading above menu item n that starts a group of its own.
    void setcMenuGroupTitle(int n, const QString &text);
    // Actions of the client's own after the menu's items, under a heading of their own.
    void setClientMenuGroup(const QString &title, const QList<QAction *> &actions);
    // The menu with the present items, title, language and schemes.
    ToolbarMenu *Menu() const;
    void ShowMenu(const QPoint &globalPos);
    void ShowChevron();
    void HideChevron();

    std::optional<OleColor> ShowColor(OleColor initial);
    QString ShowOpen(const QString &title = {}, const QString &folder = {});
    bool ShowFont(QFont &font);

    // --- Persistence: only values that differ from the defaults are written. ---
    QVariantMap WriteProperties() const;
    void ReadProperties(const QVariantMap &bag);

Q_SIGNALS:
    void ButtonClick(int index, const QString &key, const QString &caption);
    void ButtonDropDown(int index, const QString &key);
    void MouseEnter();
    void MouseLeave();
    void ThemeColorClick(int themeColor);
    void MenuClick(int item);
    // Pass-through mouse events, in pixels of the toolbar; button 1 left, 2 right, 4 middle;
    // shift 1 Shift, 2 Ctrl, 4 Alt.
    void MouseDown(int button, int shift, int x, int y);
    void MouseMove(int button, int shift, int x, int y);
    void MouseUp(int button, int shift, int x, int y);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    // Which surface a hot or pressed button belongs to.
    enum class Surface { None, Bar, Popup };

    const ToolbarButton &at(int i) const;
    ToolbarButton &at(int i);
    void CheckIndex(int i) const;

    void BuildSurfaces();
    void WireBarSurface();
    void WireEndSurfaces();
    void WirePopupSurface();
    void StartHoverWatch();
    void zSubclass_Proc(Message &m);

    void ArrangeSurfaces();
    void Relayout(std::size_t from);
    void EnsureLayout() const;
    void RefreshColors();
    void RefreshMenu();
    void RedrawAll();

    void PaintBar(QPainter &p);
    void PaintPopup(QPainter &p);
    void PaintButtons(QPainter &p, Surface surface);
    void PaintGrip(QPainter &p);
    void PaintEndArea(QPainter &p);

    int HitTest(Surface surface, const QPoint &pos) const;
    void TrackHot(Surface surface, const QPoint &pos);
    void ClearHot();
    void PressAt(Surface surface, QMouseEvent *event);
    void ReleaseAt(Surface surface, QMouseEvent *event);
    void ClickButton(int n, const QPoint &pos);
    void EndAreaPressed(QMouseEvent *event);
    void EmitPassThrough(QWidget *surface, QMouseEvent *event, int kind);

    void SetState(ToolbarButton &b, int state);
    void SetEnabled(ToolbarButton &b, bool enabled);
    void SetValue(ToolbarButton &b, bool value);

    std::vector<ToolbarButton> m_buttons;
    std::vector<ButtonPlace> m_places; // parallel to m_buttons
    ThemeColors m_colors{};

    OleColor m_backColor = SystemColor(15);
    int m_themeColor = theme::FollowDesktop;
    bool m_isStrech = false;
    bool m_noMoveBar = false;
    bool m_reverseGradient = false;
    int m_menuLanguage = 0;
    bool m_showMenuColor = true;
    std::array<QString, 6> m_menuItems;
    QString m_menuTitle;

    ToolbarSurface *m_picLeft = nullptr;
    ToolbarSurface *m_picTB = nullptr;
    ToolbarSurface *m_picRight = nullptr;
    ToolbarSurface *m_picChevron = nullptr; // a top-level window of its own
    ToolbarMenu *m_menu = nullptr;
    mutable bool m_menuStale = true; // its properties changed since it was last built
    MessageEngine *m_engine = nullptr;

    bool m_mouseInside = false;
    int m_endAreaState = 0;
    Surface m_hotSurface = Surface::None;
    int m_hot = -1;
    Surface m_pressSurface = Surface::None;
    int m_pressed = -1;
    QPoint m_gripGrab;
    bool m_inLayout = false;
    QSize m_laidOutSize;
};

} // namespace zrt
