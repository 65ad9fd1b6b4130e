#pragma once
// A three-value check box (0 clear, 1 ticked, 2 greyed): a small box picture, swapped among
// twelve looks drawn in code, with a caption beside it. The value moves on the press, the
// Click comes with the release, and the hot look is kept by polling the pointer.

#include "gfx/GraphicsBas1.h"

#include <QImage>
#include <QPixmap>
#include <QString>
#include <QVariantMap>
#include <QWidget>

#include <array>
#include <functional>

class QLabel;
class QTimer;

namespace zrt {

class Check : public QWidget {
    Q_OBJECT

public:
    // The columns of the image table.
    enum class Look : int { Idle = 0, Pushed = 1, Mouseover = 2, Disabled = 3 };
    // The window under the pointer; replaceable so that a test can drive the hover.
    using PointerProbe = std::function<QWidget *()>;

    static constexpr int BoxSize = 13;
    static constexpr int HoverInterval = 50; // ms between two polls of the pointer

    explicit Check(QWidget *parent = nullptr);
    ~Check() override;

    int Value() const { return m_Value; }
    void setValue(int value);
    QString Caption() const { return m_Caption; }
    void setCaption(const QString &caption);
    bool Enabled() const { return m_Enabled; }
    OleColor ForeColor() const { return m_ForeColor; }
    void setForeColor(OleColor color);
    OleColor BackColor() const { return m_BackColor; }
    void setBackColor(OleColor color);
    OleColor DisabledColor() const { return m_DisabledColor; }
    void setDisabledColor(OleColor color);
    QFont Font() const { return font(); }

    // The picture of one cell of the table: value 0..2 by look.
    static QString ImageName(int value, Look look);
    // At a device pixel ratio above 1 the picture has that many more pixels and carries the ratio.
    static QImage BoxImage(int value, Look look, qreal dpr = 1.0);
    // What the box shows now.
    QString CurrentImage() const { return m_CurrentImage; }
    QImage CurrentPicture() const;

    QLabel *Picture1() const { return m_Picture1; }
    QWidget *Check1() const { return m_Check1; }
    QTimer *Timer1() const { return m_Timer1; }
    bool Hovering() const;
    void setPointerProbe(PointerProbe probe);
    // One poll of the pointer (what Timer1 runs).
    void Timer1_Timer();

    // Input of the picture and of the caption (which forwards its events), in the control's
    // terms: button 1 left, 2 right, 4 middle; shift 1 Shift, 2 Ctrl, 4 Alt.
    void BoxMouseDown(int button, int shift, float x, float y);
    void BoxMouseUp(int button, int shift, float x, float y);
    void BoxMouseEnter();

    // Writes only the values that differ from their defaults.
    void WriteProperties(QVariantMap &bag) const;
    void ReadProperties(const QVariantMap &bag);

    QSize sizeHint() const override;

Q_SIGNALS:
    void Click();
    // The picture itself was clicked while enabled.
    void PictureClick();
    void MouseDown(int Button, int Shift, float X, float Y);
    void PropertyChanged(const QString &name);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void changeEvent(QEvent *event) override;
    // The space bar works the box as a press of the mouse does; a box reached by Tab shows it.
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    const QPixmap &ImageFor(int value, Look look);
    void ShowImage(Look look);
    void ShowRestingImage();
    void PaintCaption();
    void Relayout();
    bool m_KeyboardFocus = false;
    bool m_SpaceDown = false;

    static void DrawBoxFrame(QPainter &painter, Look look);
    static void DrawTick(QPainter &painter, const QColor &color);
    static void DrawGreyMark(QPainter &painter, const QColor &color);

    QLabel *m_Picture1 = nullptr;
    QWidget *m_Check1 = nullptr;
    QTimer *m_Timer1 = nullptr;
    PointerProbe m_Probe;

    std::array<std::array<QPixmap, 4>, 3> m_Images;
    QString m_CurrentImage;

    int m_Value = 0;
    bool m_Enabled = true;
    OleColor m_ForeColor = RGB(0, 0, 128);
    OleColor m_BackColor = RGB(255, 255, 255);
    OleColor m_DisabledColor = RGB(192, 192, 192);
    QString m_Caption;
};

} // namespace zrt
