#pragma once
// The program's list box: a scrolled column of text rows with optional icons, drawn row by row
// into a retained image on an inner surface. Selection in single or toggling multiple mode,
// seven looks for a selected row, a keyboard table, drag selection with auto-scroll, a string
// sort, a substring search and in-place editing. Bad item indices raise run-time error 381.

#include "gfx/GraphicsBas1.h"

#include <QFont>
#include <QImage>
#include <QPixmap>
#include <QRect>
#include <QString>
#include <QVariantMap>
#include <QWidget>

#include <cstdint>
#include <functional>
#include <optional>
#include <vector>

class QLineEdit;
class QScrollBar;

namespace zrt {

class RowList : public QWidget {
    Q_OBJECT

public:
    struct ItemRecord {
        QString Text;
        short Icon = -1;
        short IconSelected = -1;
    };

    // Milliseconds since some fixed start (the auto-scroll step clock).
    using TickSource = std::function<std::uint32_t()>;
    // One turn of the message pump inside the auto-scroll loop.
    using EventPump = std::function<void()>;

    explicit RowList(QWidget *parent = nullptr);
    ~RowList() override;

    // ---- properties -------------------------------------------------------------------------
    QString TTipText() const { return m_TTipText; }
    void setTTipText(const QString &text);
    short Appearance() const { return m_Appearance; }
    void setAppearance(short value);
    short BorderStyle() const { return m_BorderStyle; }
    void setBorderStyle(short value);
    bool Enabled() const { return isEnabled(); }
    short ScrollBarWidth() const { return m_ScrollBarWidth; }
    void setScrollBarWidth(short value);
    // The font is QWidget's own; a change re-measures the rows when ItemHeightAuto holds.
    QFont Font() const { return font(); }

    OleColor FontNormal() const { return m_FontNormal; }
    void setFontNormal(OleColor color);
    OleColor FontSelected() const { return m_FontSelected; }
    void setFontSelected(OleColor color);
    OleColor BackNormal() const { return m_BackNormal; }
    void setBackNormal(OleColor color);
    OleColor BackSelected() const { return m_BackSelected; }
    void setBackSelected(OleColor color);
    OleColor BackSelectedG1() const { return m_BackSelectedG1; }
    void setBackSelectedG1(OleColor color);
    OleColor BackSelectedG2() const { return m_BackSelectedG2; }
    void setBackSelectedG2(OleColor color);
    OleColor BoxBorder() const { return m_BoxBorder; }
    void setBoxBorder(OleColor color);

    short BoxOffset() const { return m_BoxOffset; }
    void setBoxOffset(short value);
    short BoxRadius() const { return m_BoxRadius; }
    void setBoxRadius(short value);
    short BackStyle() const { return m_BackStyle; }
    void setBackStyle(short value);
    int Alignment() const { return m_Alignment; }
    void setAlignment(int value);
    bool Focus() const { return m_Focus; }
    void setFocus(bool value);
    using QWidget::setFocus;
    bool HoverSelection() const { return m_HoverSelection; }
    void setHoverSelection(bool value);
    bool WordWrap() const { return m_WordWrap; }
    void setWordWrap(bool value);
    short ItemHeight() const { return m_ItemHeight; }
    void setItemHeight(short value);
    bool ItemHeightAuto() const { return m_ItemHeightAuto; }
    void setItemHeightAuto(bool value);
    short ItemOffset() const { return m_ItemOffset; }
    void setItemOffset(short value);
    short ItemTextLeft() const { return m_ItemTextLeft; }
    void setItemTextLeft(short value);
    short OrderType() const { return m_OrderType; }
    void setOrderType(short value);
    QImage SelectionPicture() const { return m_SelectionPicture; }
    void setSelectionPicture(const QImage &picture);
    short SelectMode() const { return m_SelectMode; }
    void setSelectMode(short value);
    short SelectModeStyle() const { return m_SelectModeStyle; }
    void setSelectModeStyle(short value);
    short MousePointer() const { return m_MousePointer; }
    void setMousePointer(short value);
    QImage MouseIcon() const { return m_MouseIcon; }
    void setMouseIcon(const QImage &icon);
    bool DisabledIcons() const { return m_DisabledIcons; }
    void setDisabledIcons(bool value);
    bool SingleIcon() const { return m_SingleIcon; }
    void setSingleIcon(bool value);

    // ---- run-time members -------------------------------------------------------------------
    QWidget *hWnd() const;
    void Refresh();
    short ListCount() const { return m_ListCount; }
    short SelectedCount() const;
    short ListIndex() const { return m_ListIndex; }
    void setListIndex(int value);
    short TopIndex() const;
    void setTopIndex(int value);
    short VisibleRowCount() const;

    QString ItemText(int index) const;
    void setItemText(int index, const QString &text);
    short ItemIcon(int index) const;
    void setItemIcon(int index, short icon);
    short ItemIconSelected(int index) const;
    void setItemIconSelected(int index, short icon);
    bool ItemSelected(int index) const;
    void setItemSelected(int index, bool selected);

    // ---- operations -------------------------------------------------------------------------
    // Cuts the strip into squares of the icon edge (the strip's height when not given); pixels of
    // the mask colour (the top-left pixel's when not given) become transparent.
    void SetImageList(const QImage &picture, std::optional<int> iconEdge = std::nullopt,
                      std::optional<OleColor> maskColor = std::nullopt);
    int ImageCount() const { return static_cast<int>(m_Images.size()); }
    void AddItem(const QString &text, short icon = -1, short iconSelected = -1);
    void InsertItem(int index, const QString &text, short icon = -1, short iconSelected = -1);
    void ModifyItem(int index, const std::optional<QString> &text = std::nullopt, short icon = -1,
                    short iconSelected = -1);
    void RemoveItem(int index);
    short FindFirst(const QString &text, int startIndex = 0, bool exact = false) const;
    void Clear();
    void Order();
    void StartEdit();
    void EndEdit(bool save = false);
    bool IsEditing() const;
    // The in-place editor; none before the first edit.
    QLineEdit *txtEdit() const { return m_txtEdit; }
    // A key typed into the editor as its character code: 13 Enter, 10 Ctrl+Enter, 27 Escape.
    void EditKeyPress(int keyAscii);

    // ---- persistence ------------------------------------------------------------------------
    // Writes only the values that differ from their defaults.
    void WriteProperties(QVariantMap &bag) const;
    void ReadProperties(const QVariantMap &bag);

    // ---- what tests and the main window may look at ------------------------------------------
    const QImage &SurfaceImage() const { return m_Canvas; }
    QScrollBar *Bar() const { return m_Bar; }
    QWidget *iScr() const { return m_iScr; }
    QRect ItemRect(int visibleRow) const;
    QRect TextRect(int visibleRow) const;
    bool Dragging() const { return m_Dragging; }
    void setTickSource(TickSource source);
    void setEventPump(EventPump pump);

    // Handlers of the surface's input, in the control's own terms (button 1 left, 2 right,
    // 4 middle; shift 1 Shift, 2 Ctrl, 4 Alt; coordinates in surface pixels).
    void SurfaceMouseDown(int button, int shift, float x, float y);
    void SurfaceMouseMove(int button, int shift, float x, float y);
    void SurfaceMouseUp(int button, int shift, float x, float y);
    void SurfaceKeyDown(int keyCode, int shift);

Q_SIGNALS:
    void Click();
    void DblClick();
    void KeyDown(int KeyCode, int Shift);
    void KeyPress(int KeyAscii);
    void KeyUp(int KeyCode, int Shift);
    void ListIndexChange();
    void MouseDown(int Button, int Shift, float X, float Y);
    void MouseMove(int Button, int Shift, float X, float Y);
    void MouseUp(int Button, int Shift, float X, float Y);
    void Scroll();
    void TopIndexChange();
    // Every property setter reports the name of the property it changed.
    void PropertyChanged(const QString &name);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    QLineEdit *Editor();
    // drawing
    void DrawItem(int index);
    void DrawRowBackground(QPainter &painter, const QRect &rect, bool selected);
    void DrawSelectedBackground(QPainter &painter, const QRect &rect);
    void DrawNormalBackground(QPainter &painter, const QRect &rect);
    void DrawItemIcon(QPainter &painter, const ItemRecord &item, const QRect &rect, bool selected);
    void DrawItemText(QPainter &painter, const QString &text, const QRect &rect);
    void DrawFocus();
    void DrawAllRows();
    void ClearSurface();
    void PaintBorder(QPainter &painter);
    void PaintSurface(QPaintEvent *event);
    int BorderWidth() const;
    QColor SurfaceColor() const;

    // model and geometry
    void CheckIndex(int index) const;
    void ResolveColors();
    void Relayout();
    void EnsureLayout();
    void UpdateScrollRange();
    void UpdateItemHeightFromFont();
    int RowHeight() const;
    int RowAt(float y) const;
    bool IsRowVisible(int index) const;
    void PropertyChange(const QString &name);
    void ApplyMousePointer();

    // scrolling and dragging
    void BarChange(int value);
    void BarScroll(int position);
    void ScrollUpwards(float y);
    void ScrollDownwards(float y);
    void AutoScroll(bool upwards);
    void StepAutoScroll(bool upwards);
    void FinishDrag();

    // editing
    void CommitEdit();
    void CloseEdit();

    // input plumbing
    bool SurfaceEvent(QEvent *event);
    bool EditorEvent(QEvent *event);

    QWidget *m_iScr = nullptr;
    QScrollBar *m_Bar = nullptr;
    QLineEdit *m_txtEdit = nullptr;
    QImage m_Canvas;      // at the surface's device pixel ratio
    QSize m_CanvasSize;   // its size in logical pixels, which all row geometry uses

    std::vector<ItemRecord> m_Items;
    std::vector<bool> m_Selected;
    std::vector<QPixmap> m_Images;
    std::vector<QPixmap> m_DisabledImages;

    QString m_TTipText;
    short m_Appearance = 1;
    short m_BorderStyle = 0;
    short m_ScrollBarWidth = 13;
    OleColor m_FontNormal = SystemColor(8);
    OleColor m_FontSelected = SystemColor(14);
    OleColor m_BackNormal = SystemColor(5);
    OleColor m_BackSelected = SystemColor(13);
    OleColor m_BackSelectedG1 = SystemColor(13);
    OleColor m_BackSelectedG2 = SystemColor(13);
    OleColor m_BoxBorder = SystemColor(14);
    short m_BoxOffset = 1;
    short m_BoxRadius = 0;
    short m_BackStyle = 1;
    int m_Alignment = 0;
    bool m_Focus = true;
    bool m_HoverSelection = false;
    bool m_WordWrap = true;
    short m_ItemHeight = 0;
    bool m_ItemHeightAuto = true;
    short m_ItemOffset = 0;
    short m_ItemTextLeft = 2;
    short m_OrderType = 0;
    QImage m_SelectionPicture;
    short m_SelectMode = 0;
    short m_SelectModeStyle = 0;
    short m_MousePointer = 0;
    QImage m_MouseIcon;
    bool m_DisabledIcons = true;
    bool m_SingleIcon = false;

    // resolved colours
    QColor m_cBackNormal, m_cBackSelected, m_cBoxBorder, m_cFontNormal, m_cFontSelected;
    QColor m_cGradient1, m_cGradient2;

    short m_ListCount = 0;
    short m_ListIndex = -1;
    short m_LastTopIndex = 0;
    short m_LastListIndex = -1;
    float m_LastY = -1.0f;
    bool m_EnsureVisibleFlag = true;
    bool m_DragValue = true;
    bool m_Dragging = false;
    int m_PointerY = 0;
    unsigned short m_VisibleRowCount = 0;
    QSize m_LayoutSize;
    bool m_AutoScrolling = false;
    int m_PressButton = 0;

    TickSource m_Tick;
    EventPump m_Pump;
};

} // namespace zrt
