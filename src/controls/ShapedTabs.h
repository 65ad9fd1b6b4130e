#pragma once
// A one-row strip of up to ten tabs whose window is cut to the tabs' silhouette, so that the
// container shows through beside and above the tabs. It holds no pages: the container answers
// Click(Index) by showing its own panel.

#include "gfx/GraphicsBas1.h"

#include <QImage>
#include <QRegion>
#include <QString>
#include <QVariantMap>
#include <QWidget>

#include <array>

namespace zrt {

class ShapedTabs : public QWidget {
    Q_OBJECT
public:
    static constexpr int MaxTabs = 10;
    static constexpr int TabTop = 4;     // top of an inactive tab
    static constexpr int ActiveTop = 3;  // the active tab stands one row higher
    static constexpr int TabBottom = 19; // bottom line of the strip, where the body begins
    static inline const QString DefaultCaption = QStringLiteral("Tab0|Tab1|Tab2|Tab3|Tab4|Tab5|Tab6|Tab7|Tab8|Tab9|");

    explicit ShapedTabs(QWidget *parent = nullptr);

    // All captions, each followed by "|"; NumberOfTabs decides how many are shown.
    QString Caption() const { return m_Caption; }
    void setCaption(const QString &caption);
    int NumberOfTabs() const { return m_NumberOfTabs; }
    void setNumberOfTabs(int count);
    int FirstTabLeft() const { return m_FirstTabLeft; }
    void setFirstTabLeft(int left);
    int ActiveTab() const { return m_ActiveTab; }
    // Raises Click when the active tab changes, so the container's panels follow.
    void setActiveTab(int index);

    OleColor TabBodyColor() const { return m_TabBodyColor; }
    void setTabBodyColor(OleColor c) { setColor(m_TabBodyColor, c); }
    OleColor DisabledTabColor() const { return m_DisabledTabColor; }
    void setDisabledTabColor(OleColor c) { setColor(m_DisabledTabColor, c); }
    OleColor BorderDarkColor() const { return m_BorderDarkColor; }
    void setBorderDarkColor(OleColor c) { setColor(m_BorderDarkColor, c); }
    OleColor BorderLightColor() const { return m_BorderLightColor; }
    void setBorderLightColor(OleColor c) { setColor(m_BorderLightColor, c); }
    OleColor InactiveTabTextColor() const { return m_InactiveTabTextColor; }
    void setInactiveTabTextColor(OleColor c) { setColor(m_InactiveTabTextColor, c); }
    OleColor ActiveTabTextColor() const { return m_ActiveTabTextColor; }
    void setActiveTabTextColor(OleColor c) { setColor(m_ActiveTabTextColor, c); }
    OleColor HighlightColor1() const { return m_Highlight[0]; }
    void setHighlightColor1(OleColor c) { setColor(m_Highlight[0], c); }
    OleColor HighlightColor2() const { return m_Highlight[1]; }
    void setHighlightColor2(OleColor c) { setColor(m_Highlight[1], c); }
    OleColor HighlightColor3() const { return m_Highlight[2]; }
    void setHighlightColor3(OleColor c) { setColor(m_Highlight[2], c); }
    OleColor HighlightColor4() const { return m_Highlight[3]; }
    void setHighlightColor4(OleColor c) { setColor(m_Highlight[3], c); }
    OleColor ControlBackcolor() const { return m_ControlBackcolor; }
    void setControlBackcolor(OleColor c) { setColor(m_ControlBackcolor, c); }

    // The text of tab i: the i-th "|"-separated field of Caption, empty when missing.
    QString TabCaption(int index) const;
    int TabLeft(int index) const;
    int TabWidth(int index) const;
    // The silhouette applied as the widget's mask; empty for an invalid tab count.
    QRegion Silhouette() const { return m_Silhouette; }
    // The retained drawing of the strip (what the widget shows).
    const QImage &TabStrip() const { return m_TabStrip; }

    void Refresh();

    // Persisted properties under their own names; only values that differ from the defaults.
    QVariantMap WriteProperties() const;
    void ReadProperties(const QVariantMap &bag);

Q_SIGNALS:
    // Index may be changed by the receiver; the strip does not read it back.
    void Click(int &Index);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    // Reached by Tab: Left and Right (Home and End) choose a tab as a press on it does.
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void changeEvent(QEvent *event) override;
    void showEvent(QShowEvent *event) override;

private:
    bool TabCountValid() const { return m_NumberOfTabs >= 1 && m_NumberOfTabs <= MaxTabs; }
    void setColor(OleColor &field, OleColor value);
    void ComputeMetrics();
    QRegion MakeRegion() const;
    void DrawTabs(bool raiseClick);
    void DrawBody(QPainter &p) const;
    void DrawTab(QPainter &p, int index, bool raiseClick);
    void DrawInactiveTab(QPainter &p, int index) const;
    void DrawActiveTab(QPainter &p, int index) const;
    void DrawCaption(QPainter &p, int index, int top, OleColor color) const;
    int TabOutlineLeft(int index) const { return m_TabLeft[index] + 3; }
    int TabOutlineRight(int index) const { return m_TabLeft[index] + m_TabWidth[index] + 3; }
    int HitTest(const QPoint &pos) const;
    void ChooseTab(int index);

    int m_NumberOfTabs = 4;
    int m_FirstTabLeft = 2;
    std::array<int, MaxTabs> m_TabLeft{};
    std::array<int, MaxTabs> m_TabWidth{};
    QString m_Caption = DefaultCaption;
    int m_ActiveTab = 0;

    OleColor m_TabBodyColor;
    OleColor m_DisabledTabColor;
    OleColor m_BorderDarkColor;
    OleColor m_BorderLightColor;
    OleColor m_InactiveTabTextColor;
    OleColor m_ActiveTabTextColor;
    std::array<OleColor, 4> m_Highlight;
    OleColor m_ControlBackcolor;

    QRegion m_Silhouette;
    QImage m_TabStrip;
    bool m_DrawWhenShown = false; // a Refresh came while hidden
};

} // namespace zrt
