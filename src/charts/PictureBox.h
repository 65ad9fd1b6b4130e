#pragma once
// A picture surface with retained drawing: everything is painted into an image that outlives
// paint events, and a paint event only shows that image. Drawing happens when a chart routine
// runs; Refresh shows the result at once.
//
// Two coordinate worlds, as on the surfaces the charts were designed for:
//  - the device calls (MoveToEx, LineTo, Ellipse, ExtFloodFill, text) always work in pixels of
//    the client image, with the pen that ForeColor, DrawWidth and DrawStyle make and the brush
//    that FillColor and FillStyle make;
//  - ScaleWidth, ScaleHeight, Point and the mouse signal speak the current ScaleMode
//    (1 twips, 15 per pixel; 3 pixels).
// Lines are drawn without antialiasing so that Point reads back exactly the painted colour.
// Cls and every chart's end ask for a repaint, so what is drawn is on screen at the next paint
// without waiting for something else to expose the surface.

#include "gfx/GraphicsBas1.h"

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QPoint>
#include <QPointF>
#include <QString>
#include <QWidget>

#include <functional>
#include <vector>

namespace zrt {

class PictureBox : public QWidget {
    Q_OBJECT

public:
    static constexpr int Twips = 1;
    static constexpr int Pixels = 3;
    static constexpr int TwipsPerPixel = 15;

    // FillStyle values of the brush; ExtFloodFill types.
    static constexpr int FillSolid = 0;
    static constexpr int FillTransparent = 1;
    static constexpr int FloodFillBorder = 0;
    static constexpr int FloodFillSurface = 1;

    explicit PictureBox(QWidget *parent = nullptr);
    ~PictureBox() override;

    // --- retained surface
    void Cls();     // clears to BackColor, moves the current point to (0, 0), asks for a repaint
    void Refresh(); // repaints now
    void Drawn();   // asks for a repaint of what has been drawn; a chart's last call
    // Colour of the pixel under (x, y) in ScaleMode units as 0x00BBGGRR; -1 off the surface.
    qint32 Point(double x, double y) const;
    qint32 PixelAt(int x, int y) const; // the same in pixels
    const QImage &Image() const;
    // The painter on the retained image, for the text routines. One painter stays open while a
    // chart draws, instead of one per line, circle and label; it ends before the image is shown,
    // cleared or resized, and before a patterned fill paints with one of its own.
    QPainter &Painter();
    void EndPainting() const;
    // Ends the painter after every call, as if each made its own: the same picture, slower; kept
    // so the two can be compared.
    void SetPainterPerCall(bool on) { m_painterPerCall = on; }
    void DoneWithPainter() const
    {
        if (m_painterPerCall)
            EndPainting();
    }

    // --- properties
    int ScaleMode() const { return m_scaleMode; }
    void SetScaleMode(int mode);
    double ScaleWidth() const;
    double ScaleHeight() const;
    int DrawWidth() const { return m_drawWidth; }
    void SetDrawWidth(int width);
    int DrawStyle() const { return m_drawStyle; }
    void SetDrawStyle(int style);
    OleColor ForeColor() const { return m_foreColor; }
    void SetForeColor(OleColor colour) { m_foreColor = colour; }
    OleColor FillColor() const { return m_fillColor; }
    void SetFillColor(OleColor colour) { m_fillColor = colour; }
    int FillStyle() const { return m_fillStyle; }
    void SetFillStyle(int style);
    OleColor BackColor() const { return m_backColor; }
    void SetBackColor(OleColor colour); // clears, as a new background does
    int BorderStyle() const { return m_borderStyle; }
    void SetBorderStyle(int style); // 0 none, 1 a sunken 2-pixel border

    // The outer size in pixels, border included: what the charts take their geometry from.
    QSize WindowRectSize() const { return size(); }
    // The client image size in pixels.
    QSize ClientSize() const;

    // --- device calls, in pixels
    void MoveToEx(int x, int y);
    void LineTo(int x, int y); // from the current point, which moves to (x, y)
    QPoint CurrentPosition() const { return m_current; }
    // The ellipse inside the box; right and bottom are outside it, as the platform's own.
    void Ellipse(int left, int top, int right, int bottom);
    // FloodFillBorder: from the seed, every pixel up to the border colour; FloodFillSurface:
    // the seed's colour region. Filled with the brush. False when the seed cannot start a fill.
    bool ExtFloodFill(int x, int y, OleColor colour, int fillType);
    // The font and text colour selected into the device, used by the text routines.
    QFont SelectFont(const QFont &font); // returns the previous font
    const QFont &CurrentFont() const { return m_font; }
    OleColor SetTextColor(OleColor colour); // returns the previous colour
    OleColor TextColor() const { return m_textColor; }
    // Text in the font and colour given, its top-left corner at (x, y); escapement in tenths of
    // a degree anticlockwise; flags as QPainter::drawText takes them.
    void DrawText(int x, int y, const QString &text, const QFont &font, const QColor &colour, int escapement,
                  int flags);

    // --- the drawing again: every device call since the last Cls is kept as a step, so that the
    // picture on the surface can be painted once more on another device (a larger image, an SVG
    // or a PDF page) by the very calls the chart made. Replay paints the background and the
    // steps in the surface's pixel coordinates; scale the painter for another size.
    void Replay(QPainter &painter) const;
    size_t ReplaySteps() const { return m_steps.size(); }

    // --- what the picture says in words, for screen readers: the pages fill it with the answers
    // the chart shows once they are revealed.
    QString TextAlternative() const
    {
        if (m_textSource) {
            m_textAlternative = m_textSource();
            m_textSource = nullptr;
        }
        return m_textAlternative;
    }
    void setTextAlternative(const QString &text)
    {
        m_textSource = nullptr;
        if (text == m_textAlternative)
            return;
        m_textAlternative = text;
        Q_EMIT TextAlternativeChanged();
    }
    // The words made by a routine when they are first asked for: a chart is redrawn far more
    // often than a screen reader reads it.
    void setTextAlternativeSource(std::function<QString()> source)
    {
        m_textSource = std::move(source);
        Q_EMIT TextAlternativeChanged();
    }

    // --- what was drawn, for tests: with recording on, the pixel rectangle each device call
    // touches (pen width included) and the letters' box of each label, since the last Cls.
    void SetRecording(bool on) { m_recording = on; }
    bool Recording() const { return m_recording; }
    const std::vector<QRect> &Marks() const { return m_marks; }
    const std::vector<QRect> &LabelInks() const { return m_labelInks; }
    void RecordMark(const QRect &r)
    {
        if (m_recording)
            m_marks.push_back(r);
    }
    void RecordLabel(const QRect &ink)
    {
        if (m_recording && !ink.isNull()) {
            m_labelInks.push_back(ink);
            m_marks.push_back(ink);
        }
    }

Q_SIGNALS:
    void Resize();
    void TextAlternativeChanged();
    // Button as Qt gives it; x and y in the current ScaleMode.
    void MouseDown(Qt::MouseButton button, Qt::KeyboardModifiers shift, double x, double y);

protected:
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    int borderWidth() const;
    void fitCanvas() const; // keeps the image at the client size, contents kept
    double toScale(int pixels) const;
    QPen currentPen() const;
    QBrush currentBrush() const;
    void paintBorder(QPainter &painter) const;

    mutable QImage m_image;
    mutable QPainter m_painter;
    bool m_painterPerCall = false;
    int m_scaleMode = Twips;
    int m_drawWidth = 1;
    int m_drawStyle = 0;
    OleColor m_foreColor = SystemColor(18); // button text
    OleColor m_fillColor = 0;
    int m_fillStyle = FillTransparent;
    OleColor m_backColor = SystemColor(15); // button face
    int m_borderStyle = 0;
    QPoint m_current;
    QFont m_font;
    OleColor m_textColor = 0;
    // A device call kept to be painted again. Lines and ellipses, thousands in a large scatter
    // graph, are kept compact with their pen and brush shared while they stay the same; fills
    // and text, a few per chart, are kept as calls.
    struct Step {
        enum Kind : quint8 { Line, Ellipse, Other };
        Kind kind;
        quint32 pen;   // index in m_stepPens
        quint32 brush; // index in m_stepBrushes (Ellipse); index in m_otherSteps (Other)
        int x1, y1, x2, y2; // Line: from and to; Ellipse: left, top, width, height
    };
    quint32 keepPen(const QPen &pen);
    quint32 keepBrush(const QBrush &brush);
    void paintStep(QPainter &painter, const Step &step) const;
    std::vector<Step> m_steps;
    std::vector<QPen> m_stepPens;
    std::vector<QBrush> m_stepBrushes;
    std::vector<std::function<void(QPainter &)>> m_otherSteps;
    bool m_recording = false;
    std::vector<QRect> m_marks;
    std::vector<QRect> m_labelInks;
    mutable QString m_textAlternative;
    mutable std::function<QString()> m_textSource;
};

} // namespace zrt
