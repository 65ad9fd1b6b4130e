#pragma once
// The program's push button. It paints itself completely on a retained surface: a face chosen by
// Style (two fixed bevel looks, five gloss looks built from four scheme colours, one per-pixel
// glass look), a variant chosen by the button state, then the picture and the caption. Rounded
// styles cut the widget to their shape. Hover comes from the message engine's enter and leave.

#include "controls/GlossButtonRegion.h"
#include "gfx/DeviceImage.h"
#include "gfx/GraphicsBas1.h"

#include <QImage>
#include <QPixmap>
#include <QString>
#include <QVariantMap>
#include <QWidget>

#include <memory>

namespace zrt {

class MessageEngine;
struct Message;

class GlossButton : public QWidget {
    Q_OBJECT

public:
    enum ButtonState : int { StateNormal = 0, StateDown = 1, StateFocused = 2, StateHover = 3, StateChecked = 4 };
    enum ButtonStyle : int {
        StyleBevel = 0,
        StyleToolbar = 1,
        StyleGlossRound = 2,
        StyleGlossTile = 3,
        StyleGlossPill = 4,
        StyleGlossLens = 5,
        StyleGlassPixel = 6,
        StyleGlossSoft = 7,
    };
    enum PictureAlign : int { PictureAbove = 0, PictureBelow = 1, PictureLeft = 2, PictureRight = 3 };

    // Defaults of a newly placed button; the property bag writes a value only when it differs.
    static constexpr OleColor DefaultColorBright = RGB(176, 237, 255);
    static constexpr OleColor DefaultColorButtonDown = RGB(80, 153, 233);
    static constexpr OleColor DefaultColorButtonUp = RGB(80, 153, 233);
    static constexpr OleColor DefaultColorButtonHover = RGB(144, 192, 255);
    static constexpr OleColor DefaultHighLiteColor = 65280;

    // How a gloss face is laid out for one style and size (R is the corner radius).
    struct GlossParams {
        int TintBase = 0;
        int TintSlope = 0;
        int GlossLeft = 0;
        int GlossTop = 0;
        int GlossCorner = 0;
        int GlossBottom = 0;
        int GlossRight = 0;
        int GlowWidth = 0;
        int GlowHeight = 0;
        int GlowCenterX = 0;
        int GlowCenterY = 0;
        int GlowFade = 0;
    };

    explicit GlossButton(QWidget *parent = nullptr);
    ~GlossButton() override;

    // Properties.
    QString Caption() const { return m_Caption; }
    void setCaption(const QString &caption);
    bool Enabled() const { return m_Enabled; }
    void setEnabled(bool enabled);
    QString Tag() const { return m_Tag; }
    void setTag(const QString &tag) { m_Tag = tag; }
    int Style() const { return m_Style; }
    void setStyle(int style);
    int PictureAlignment() const { return m_PictureAlignment; }
    void setPictureAlignment(int alignment);
    bool Checked() const { return m_Checked; }
    void setChecked(bool checked);
    bool DisplayHand() const { return m_DisplayHand; }
    void setDisplayHand(bool displayHand) { m_DisplayHand = displayHand; }
    int ColorScheme() const { return m_ColorScheme; }
    void setColorScheme(int scheme);
    int BorderBrightness() const { return m_BorderBrightness; }
    void setBorderBrightness(int brightness);
    OleColor ColorBright() const { return m_ColorBright; }
    void setColorBright(OleColor color);
    OleColor ColorButtonDown() const { return m_ColorButtonDown; }
    void setColorButtonDown(OleColor color);
    OleColor ColorButtonUp() const { return m_ColorButtonUp; }
    void setColorButtonUp(OleColor color);
    OleColor ColorButtonHover() const { return m_ColorButtonHover; }
    void setColorButtonHover(OleColor color);
    OleColor ForeColor() const { return m_ForeColor; }
    void setForeColor(OleColor color);
    bool IconHighLite() const { return m_IconHighLite; }
    void setIconHighLite(bool on);
    OleColor IconHighLiteColor() const { return m_IconHighLiteColor; }
    void setIconHighLiteColor(OleColor color);
    bool CaptionHighLite() const { return m_CaptionHighLite; }
    void setCaptionHighLite(bool on);
    OleColor CaptionHighLiteColor() const { return m_CaptionHighLiteColor; }
    void setCaptionHighLiteColor(OleColor color);
    QPixmap Picture() const { return m_Picture; }
    void setPicture(const QPixmap &picture);
    // The caption font is the widget's font (the container's unless set).

    // The property bag: keys are the property names; defaults are left out except for the
    // properties that are always written.
    QVariantMap WriteProperties() const;
    void ReadProperties(const QVariantMap &bag);

    // Helpers shared with other code that mixes the program's colour values.
    static OleColor BlendColors(OleColor colorA, OleColor colorB, int percent);
    static void GetRGB(OleColor color, int &red, int &green, int &blue);
    static GlossParams GlossParamsFor(int style, int width, int height, int radius);
    // The corner radius a rounded style cuts for a size; 0 for the rectangular styles.
    static int RadiusFor(int style, int width, int height);

    // Drawing entries: a whole face in a state, and the picture and caption alone.
    void PaintButton(ButtonState state);
    void DrawIconWCaption(ButtonState state);

    // What the button shows and knows, for its owner and its tests.
    ButtonState PaintedState() const { return m_PaintedState; }
    bool IsMouseOver() const { return MouseOver; }
    bool HasFocusFlag() const { return HasFocus; }
    int CornerRadiusValue() const { return CornerRadius; }
    int PaintCount() const { return m_PaintCount; }
    const QImage &Surface() const { return m_Surface; }
    QSize sizeHint() const override;

Q_SIGNALS:
    // Name of the property that changed ("m_ColorScheme", "Caption", ...).
    void PropertyChanged(const QString &name);
    void Click();
    void DblClick();
    void MouseEnter();
    void MouseLeave();
    void MouseMove(short Button, short Shift, float X, float Y);
    void MouseUp(short Button, short Shift, float X, float Y);
    void MouseDown(short Button, short Shift, float X, float Y);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;

private:
    // Start-up and the message engine.
    void PrepareTracking();
    void OnMessage(Message &message);
    void TrackEnter(int keyState, int x, int y);
    void TrackLeave();

    // Input, as the platform-neutral handlers of the button.
    void HandleMouseDown(short button, short shift, float x, float y);
    void HandleMouseUp(short button, short shift, float x, float y);

    // Properties.
    void ReportChange(const QString &name);
    void FallToCustomScheme();
    void ApplyStartUp();

    // Region and surface.
    void MakeButtonRegion();
    GlossButtonRegion BuildRoundRegion(int left, int top, int width, int height, int radius);
    void ClearSurface();

    // Faces.
    void DrawFace(ButtonState state);
    void DrawParentFrame();
    void DrawBevelFace(ButtonState state);
    void DrawBevelInnerEdge(ButtonState state);
    void DrawToolbarFace(ButtonState state);
    void DrawEdge(QRgb outer, QRgb corner, QRgb edge);
    void DrawGlossFace(ButtonState state);
    void DrawRadialGlow(const GlossParams &params, OleColor base, OleColor bright);
    void ScanGlossRows(const GlossParams &params, const GlossButtonRegion &gloss, OleColor base,
                       QRgb border);
    void DrawGlassPixelFace(ButtonState state);
    void FaceColors(ButtonState state, OleColor &base, OleColor &bright) const;

    // Caption and picture.
    void DrawCaption(int x, int y, ButtonState state);
    void DrawPictureAt(int x, int y, ButtonState state);

    // Surface primitives with the original's line rule (the end point is not drawn).
    void Line(int x1, int y1, int x2, int y2, QRgb color);
    void Box(int x1, int y1, int x2, int y2, QRgb color);
    // A logical pixel: one image pixel at a device pixel ratio of 1, a block of them above.
    void PSet(int x, int y, QRgb color)
    {
        if (m_Surface.devicePixelRatio() != 1.0) {
            if (x >= 0 && y >= 0 && x < width() && y < height())
                FillLogicalSpan(m_Surface, x, x, y, color);
            return;
        }
        if (x >= 0 && y >= 0 && x < m_Surface.width() && y < m_Surface.height())
            reinterpret_cast<QRgb *>(m_Surface.scanLine(y))[x] = color;
    }
    void GradientRow(int i, int divisor, QRgb from, QRgb to, int x1, int y, int x2);
    void Refresh();

    bool MouseTrackingAvailable = false;
    bool TrackWithUser32 = false;
    bool MouseOver = false;
    bool LeaveArmed = false;
    int m_PictureAlignment = PictureAbove;
    int m_Style = StyleBevel;
    bool m_Checked = false;
    bool HasFocus = false;
    QString m_Caption;
    QPixmap m_Picture;
    OleColor m_ColorButtonHover = DefaultColorButtonHover;
    OleColor m_ColorButtonUp = DefaultColorButtonUp;
    OleColor m_ColorButtonDown = DefaultColorButtonDown;
    OleColor m_ColorBright = DefaultColorBright;
    OleColor m_ForeColor = 0;
    bool m_DisplayHand = false;
    int CornerRadius = 0;
    int m_BorderBrightness = 0;
    int m_ColorScheme = 0;
    bool m_IconHighLite = false;
    OleColor m_IconHighLiteColor = DefaultHighLiteColor;
    bool m_CaptionHighLite = false;
    OleColor m_CaptionHighLiteColor = DefaultHighLiteColor;
    bool m_Enabled = true;
    bool Ready = false;
    GlossButtonRegion InnerRegion;

    QString m_Tag;
    QImage m_Surface;
    OleColor m_SurfaceForeColor = 0;
    ButtonState m_PaintedState = StateNormal;
    int m_PaintCount = 0;
    bool m_AfterDoubleClick = false;
    // Enter went down on this button; only then does its release click it.
    bool m_EnterDown = false;
    bool m_ReadingProperties = false;
    // The size and style the region was last made for, so a repaint does not rebuild it.
    QSize m_RegionSize;
    int m_RegionStyle = -1;
    std::unique_ptr<MessageEngine> m_Engine;
};

} // namespace zrt
