#pragma once
// A thin table control over a QTreeWidget in report mode: columns, items and sub-items by index,
// item states, the list's style switches, and its events as signals. Nothing works before
// Initialize: setters do nothing and getters give 0, false or an empty text.

#include "gfx/GraphicsBas1.h"

#include <QIcon>
#include <QPixmap>
#include <QString>
#include <QWidget>

#include <memory>
#include <optional>
#include <vector>

class QTreeWidget;
class QTreeWidgetItem;

namespace zrt {

class MessageEngine;
struct Message;

class ucTableView : public QWidget {
    Q_OBJECT
public:
    // Extended list styles, as the original list kept them.
    enum ExStyle : unsigned {
        ExGridLines = 1, ExSubItemImages = 2, ExCheckBoxes = 4, ExTrackSelect = 8,
        ExHeaderDragDrop = 16, ExFullRowSelect = 32, ExOneClickActivate = 64,
        ExScrollBarFlat = 256, ExUnderlineHot = 2048, ExLabelTips = 16384
    };
    // Window styles of the list.
    enum Style : unsigned {
        StyleViewMask = 3, StyleSingleSel = 4, StyleShowSelAlways = 8, StyleEditLabels = 512,
        StyleNoColumnHeader = 16384
    };
    enum ItemFlags : int { FindString = 2, FindPartial = 8, FindWrap = 32 };
    enum StateFlags : int { StateFocused = 1, StateSelected = 2, StateGhosted = 4 };

    explicit ucTableView(QWidget *parent = nullptr);
    ~ucTableView() override;

    bool Initialize();
    QTreeWidget *List() const { return m_hList; } // null before Initialize

    bool InitializeImageListSmall(int width, int height);
    bool InitializeImageListLarge(int width, int height);
    bool InitializeImageListHeader(int width, int height);
    bool ImageListSmall_AddBitmap(const QPixmap &bitmap, std::optional<OleColor> mask = std::nullopt);
    bool ImageListLarge_AddBitmap(const QPixmap &bitmap, std::optional<OleColor> mask = std::nullopt);
    bool ImageListHeader_AddBitmap(const QPixmap &bitmap, std::optional<OleColor> mask = std::nullopt);
    bool ImageListSmall_AddIcon(const QIcon &icon);
    bool ImageListLarge_AddIcon(const QIcon &icon);
    bool ImageListHeader_AddIcon(const QIcon &icon);

    void Refresh();
    bool Clear();
    // Kept as a no-op on purpose: the container fills the table in the order it wants.
    bool Sort(int column, int order, int kind);
    bool BackgroundPictureSet(const QString &fileName);

    bool ColumnAdd(int index, const QString &text, int width, int alignment, int icon = -1);
    bool ColumnRemove(int index);
    // mode -1 fits the contents, -2 the contents and the heading; otherwise a width.
    bool ColumnAutosize(int index, int mode);

    bool ItemAdd(int index, const QString &text, int indent = 0, int icon = -1);
    bool ItemRemove(int index);
    bool ItemEnsureVisible(int index, bool partial);
    int ItemFindText(const QString &text, int start = -1, int flags = FindString);
    int ItemFindState(int start, int flags);
    // X and Y in ScaleMode units, relative to the control.
    int ItemHitTest(double x, double y) const;
    bool SubItemSet(int index, int subItem, const QString &text, int icon = -1);
    // Rows added at the end, each its item's text and then its sub-items' texts, without icons:
    // the table ItemAdd and SubItemSet would make row by row, put in with one insertion.
    bool RowsAdd(const QList<QStringList> &rows);

    QString ColumnText(int column) const;
    void setColumnText(int column, const QString &text);
    int ColumnWidth(int column) const;
    void setColumnWidth(int column, int width);
    int ColumnAlign(int column) const; // 0 left, 1 right, 2 centre
    void setColumnAlign(int column, int alignment);
    int ColumnIcon(int column) const;
    void setColumnIcon(int column, int icon);
    QString ItemText(int index) const;
    void setItemText(int index, const QString &text);
    int ItemIcon(int index) const;
    void setItemIcon(int index, int icon);
    int ItemIndent(int index) const;
    void setItemIndent(int index, int indent);
    bool ItemSelected(int index) const;
    void setItemSelected(int index, bool value);
    bool ItemFocused(int index) const;
    void setItemFocused(int index, bool value);
    bool ItemChecked(int index) const;
    void setItemChecked(int index, bool value);
    bool ItemGhosted(int index) const;
    void setItemGhosted(int index, bool value);
    QString SubItemText(int index, int subItem) const;
    void setSubItemText(int index, int subItem, const QString &text);
    int SubItemIcon(int index, int subItem) const;
    void setSubItemIcon(int index, int subItem, int icon);

    OleColor BackColor() const;
    void setBackColor(OleColor color);
    OleColor ForeColor() const;
    void setForeColor(OleColor color);
    int BorderStyle() const;
    void setBorderStyle(int style);
    int Count() const;
    int ColumnCount() const;
    int SelectedCount() const;
    int ViewMode() const;
    void setViewMode(int mode);

    bool CheckBoxes() const { return exStyle(ExCheckBoxes); }
    void setCheckBoxes(bool on) { setExStyle(ExCheckBoxes, on); }
    bool FullRowSelect() const { return exStyle(ExFullRowSelect); }
    void setFullRowSelect(bool on) { setExStyle(ExFullRowSelect, on); }
    bool GridLines() const { return exStyle(ExGridLines); }
    void setGridLines(bool on) { setExStyle(ExGridLines, on); }
    bool HeaderDragDrop() const { return exStyle(ExHeaderDragDrop); }
    void setHeaderDragDrop(bool on) { setExStyle(ExHeaderDragDrop, on); }
    bool LabelTips() const { return exStyle(ExLabelTips); }
    void setLabelTips(bool on) { setExStyle(ExLabelTips, on); }
    bool OneClickActivate() const { return exStyle(ExOneClickActivate); }
    void setOneClickActivate(bool on) { setExStyle(ExOneClickActivate, on); }
    bool ScrollBarFlat() const { return exStyle(ExScrollBarFlat); }
    void setScrollBarFlat(bool on) { setExStyle(ExScrollBarFlat, on); }
    bool SubItemImages() const { return exStyle(ExSubItemImages); }
    void setSubItemImages(bool on) { setExStyle(ExSubItemImages, on); }
    bool TrackSelect() const { return exStyle(ExTrackSelect); }
    void setTrackSelect(bool on) { setExStyle(ExTrackSelect, on); }
    bool UnderlineHot() const { return exStyle(ExUnderlineHot); }
    void setUnderlineHot(bool on) { setExStyle(ExUnderlineHot, on); }

    bool HeaderFlat() const;
    void setHeaderFlat(bool on);
    bool HeaderHide() const { return style(StyleNoColumnHeader); }
    void setHeaderHide(bool on) { setStyle(StyleNoColumnHeader, on); }
    bool HideSelection() const { return m_hList && !style(StyleShowSelAlways); }
    void setHideSelection(bool on) { setStyle(StyleShowSelAlways, !on); }
    bool LabelEdit() const { return style(StyleEditLabels); }
    void setLabelEdit(bool on) { setStyle(StyleEditLabels, on); }
    bool MultiSelect() const { return m_hList && !style(StyleSingleSel); }
    void setMultiSelect(bool on) { setStyle(StyleSingleSel, !on); }

    // Fields of the control, kept whether or not the list exists.
    bool HeaderFixedWidth() const { return m_HeaderFixedWidth; }
    void setHeaderFixedWidth(bool on);
    int ScaleMode() const { return m_ScaleMode; } // 1 twips, 2 points, 3 pixels, 5 inches, 6 mm, 7 cm
    void setScaleMode(int mode) { m_ScaleMode = mode; }
    bool RaiseSubItemPrePaint() const { return m_RaiseSubItemPrePaint; }
    void setRaiseSubItemPrePaint(bool on);

    // The image an icon index names in the small list (what report rows show); null if none.
    QPixmap SmallImage(int icon) const;
    QPixmap HeaderImage(int icon) const;

    // Used by the item delegate: the colours and font choice of one cell, after the container
    // has had its say through OnSubItemPrePaint.
    struct CellLook {
        QColor fore;
        QColor back;
        bool bold = false;
        bool custom = false;
    };
    CellLook SubItemLook(int item, int subItem);

Q_SIGNALS:
    void Click();
    void DblClick();
    void ItemClick(int Item);
    void ItemCheck(int Item);
    void ColumnClick(int Column);
    void ColumnRightClick(int Column);
    void KeyDown(int KeyCode, int Shift);
    void KeyPress(int KeyAscii);
    void KeyUp(int KeyCode, int Shift);
    void MouseDown(int Button, int Shift, float X, float Y);
    void MouseMove(int Button, int Shift, float X, float Y);
    void MouseUp(int Button, int Shift, float X, float Y);
    void MouseEnter();
    void MouseLeave();
    void BeforeLabelEdit(int &Cancel);
    void AfterLabelEdit(int &Cancel, QString &NewString);
    void Resize();
    void OnSubItemPrePaint(int Item, int SubItem, OleColor &ForeColor, OleColor &BackColor, bool &Bold);

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    struct ImageList {
        bool exists = false;
        QSize size;
        std::vector<QPixmap> images;
    };
    class Delegate;
    friend class Delegate;

    QTreeWidgetItem *Item(int index) const;
    bool ColumnValid(int column) const;
    bool exStyle(unsigned bit) const { return m_hList && (m_exStyle & bit) != 0; }
    void setExStyle(unsigned bit, bool on);
    bool style(unsigned bit) const { return m_hList && (m_style & bit) != 0; }
    void setStyle(unsigned bit, bool on);
    void ApplyStyles();
    void ApplyCheckBoxes();
    bool MakeImageList(ImageList &list, int width, int height);
    bool AddImage(ImageList &list, QPixmap image);
    void CopyColumn(int from, int to);
    void ApplyItemIcon(QTreeWidgetItem *item, int column);
    double ToScale(double pixels, bool vertical) const;
    double FromScale(double value, bool vertical) const;
    void OnMessage(Message &message);
    void OnMouseMessage(Message &message);
    void OnKeyMessage(Message &message);
    void OnSelectionChanged();
    void OnItemChanged(QTreeWidgetItem *item, int column);
    void OnHeaderRightClick(const QPoint &pos);
    void OnHovered(QTreeWidgetItem *item);
    int ShiftMask() const;

    QTreeWidget *m_hList = nullptr;
    std::unique_ptr<MessageEngine> m_engine;
    Delegate *m_delegate = nullptr;
    ImageList m_small, m_large, m_header;
    std::vector<int> m_columnAlign;
    unsigned m_exStyle = 0;
    unsigned m_style = 0;
    OleColor m_BackColor = 0x80000005u;
    OleColor m_ForeColor = 0x80000008u;
    int m_BorderStyle = 1;
    bool m_HeaderFlat = false;
    bool m_HeaderFixedWidth = false;
    bool m_RaiseSubItemPrePaint = false;
    int m_ScaleMode = 3;
    float LastMouseX = -1.0f;
    float LastMouseY = -1.0f;
    bool MouseOverList = false;
    bool SuppressItemClick = false;
    bool m_updatingChecks = false;
    std::vector<int> m_selectedBefore;
};

} // namespace zrt
