#pragma once
// A container with a title strip that folds to the strip's height and opens to a stored height,
// like a small drop-down: with OpenOn 1 it opens when the pointer moves over it, and a timer
// folds it again once the pointer has left. Heights are kept in twips (15 per pixel).

#include "gfx/GraphicsBas1.h"

#include <QPixmap>
#include <QString>
#include <QVariantMap>
#include <QWidget>

#include <functional>

class QLabel;
class QTimer;

namespace zrt {

class DropPanel : public QWidget {
    Q_OBJECT
public:
    static constexpr int TwipsPerPixel = 15;
    static constexpr int IconSize = 18;
    static constexpr int DefaultCloseInterval = 200; // ms, when HoverTime gives none
    enum Align : int { AlignLeft = 0, AlignRight = 1, AlignCenter = 2 };
    enum OpenMode : int { OpenOnHover = 1, OpenOnClick = 2, OpenOnClickNoTimer = 3 };

    explicit DropPanel(QWidget *parent = nullptr);

    QString Title() const { return m_Title; }
    void setTitle(const QString &title);
    // 0 left, 1 right, 2 centre; anything else throws run-time error 380 and changes nothing.
    int TitleAlign() const { return m_TitleAlign; }
    void setTitleAlign(int align);
    int TitleBorder() const { return m_TitleBorder; }
    void setTitleBorder(int border);
    int TitleAppearance() const { return m_TitleAppearance; }
    void setTitleAppearance(int appearance);
    int TitleGradient() const { return m_TitleGradient; } // 0 solid, 1 left to right, 2 top to bottom
    void setTitleGradient(int gradient);
    int UseIcon() const { return m_UseIcon; }
    void setUseIcon(int useIcon);
    QPixmap TitleIcon() const { return m_TitleIcon; }
    void setTitleIcon(const QPixmap &icon);
    int TitleHeight() const { return m_TitleHeight; } // twips
    void setTitleHeight(int twips);
    float TitleFontsize() const { return m_TitleFontsize; }
    void setTitleFontsize(float points);
    bool TitleFontBold() const { return m_TitleFontBold; }
    void setTitleFontBold(bool bold);
    bool TitleFontItalic() const { return m_TitleFontItalic; }
    void setTitleFontItalic(bool italic);
    bool TitleFontUnderline() const { return m_TitleFontUnderline; }
    void setTitleFontUnderline(bool underline);
    OleColor TitleBackColor() const { return m_TitleBackColor; }
    void setTitleBackColor(OleColor color);
    OleColor TitleEndColor() const { return m_TitleEndColor; }
    void setTitleEndColor(OleColor color);
    OleColor TitleBorderColor() const { return m_TitleBorderColor; }
    void setTitleBorderColor(OleColor color);
    OleColor TitleForeColor() const { return m_TitleForeColor; }
    void setTitleForeColor(OleColor color);

    OleColor DDBackColor() const { return m_DDBackColor; }
    void setDDBackColor(OleColor color);
    int DDBorderStyle() const { return m_DDBorderStyle; } // 1 draws a line round the panel
    void setDDBorderStyle(int style);
    int DDAppearance() const { return m_DDAppearance; }
    void setDDAppearance(int appearance);

    int ExpandedHeight() const { return m_ExpandedHeight; } // twips
    void setExpandedHeight(int twips);
    int OpenOn() const { return m_OpenOn; }
    void setOpenOn(int mode);
    // Close-timer interval in ms; zero or less takes DefaultCloseInterval.
    int HoverTime() const { return m_HoverTime; }
    void setHoverTime(int ms);

    void Expand();
    void Collapse();
    void DrawTitle();
    bool Collapsed() const { return m_Collapsed; }
    bool Expanded() const { return !m_Collapsed; }
    // A control in the body has the keyboard focus: the title shows the focus mark.
    bool BodyHasFocus() const { return m_BodyHasFocus; }
    // The folded height in pixels: the title strip.
    int CollapsedHeight() const { return ToPixels(m_TitleHeight); }

    // Puts a widget in the body under the title, across the full width, and opens the panel
    // to the widget's height plus the title's.
    void PlaceInBody(QWidget *child);

    // False while the panel is being laid out by a designer: no folding, and a resize stores
    // the expanded height.
    bool UserMode() const { return m_UserMode; }
    void setUserMode(bool userMode) { m_UserMode = userMode; }

    // The close timer, exposed so that a test can drive it; the cursor source gives the global
    // pointer position (QCursor::pos() unless replaced).
    bool TimerEnabled() const;
    void Timer1_Timer();
    void setCursorSource(std::function<QPoint()> source);

    QLabel *LblTitle() const { return m_LblTitle; }

    QVariantMap WriteProperties() const;
    void ReadProperties(const QVariantMap &bag);

    static int ToPixels(int twips);
    static int ToTwips(int pixels) { return pixels * TwipsPerPixel; }

Q_SIGNALS:
    void OnExpand();
    void OnCollapse();

protected:
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    QRect TitleRect() const;
    void PointerMoved(const QPoint &pos);
    void TitlePressed();
    void PlaceLabel();
    void ApplyLabel();
    void FillTitle(QPainter &p) const;
    void DrawIcon(QPainter &p) const;
    void DrawTitleBorder(QPainter &p) const;
    void DrawPanelBorder(QPainter &p) const;
    void SetHeightPixels(int pixels);

    QString m_Title = QStringLiteral("DropPanel");
    int m_TitleAlign = AlignLeft;
    int m_TitleBorder = 1;
    int m_TitleAppearance = 0;
    int m_TitleGradient = 0;
    int m_UseIcon = 0;
    QPixmap m_TitleIcon;
    int m_TitleHeight = 300;
    float m_TitleFontsize = 8.25f;
    bool m_TitleFontBold = false;
    bool m_TitleFontItalic = false;
    bool m_TitleFontUnderline = false;
    OleColor m_TitleBackColor;
    OleColor m_TitleEndColor;
    OleColor m_TitleBorderColor;
    OleColor m_TitleForeColor;
    OleColor m_DDBackColor;
    int m_DDBorderStyle = 0;
    int m_DDAppearance = 0;
    int m_ExpandedHeight = 1500;
    int m_OpenOn = OpenOnHover;
    int m_HoverTime = -1;

    bool m_Collapsed = false;
    bool m_BodyHasFocus = false; // a control in the body has the keyboard focus
    bool m_UserMode = true;
    QLabel *m_LblTitle;
    QTimer *m_Timer1;
    std::function<QPoint()> m_cursorSource;
};

} // namespace zrt
