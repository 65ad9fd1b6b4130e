// GlossButton: its properties and their persistence.
#include "controls/GlossButton.h"

#include "common/RunTimeError.h"
#include "controls/GlossButtonColours.h"

#include <QBuffer>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace zrt {

namespace {

QVariant ColorValue(OleColor color) { return QVariant::fromValue<quint32>(color); }

} // namespace

// ---------------------------------------------------------------------------------------------
// Properties

void GlossButton::ReportChange(const QString &name)
{
    if (!m_ReadingProperties)
        Q_EMIT PropertyChanged(name);
}

void GlossButton::FallToCustomScheme()
{
    if (m_ColorScheme == 0)
        return;
    m_ColorScheme = 0;
    ReportChange("m_ColorScheme");
}

void GlossButton::setCaption(const QString &caption)
{
    m_Caption = caption;
    ReportChange("Caption");
    PaintButton(StateNormal);
}

void GlossButton::setEnabled(bool enabled)
{
    m_Enabled = enabled;
    QWidget::setEnabled(enabled);
    ReportChange("Enabled");
    PaintButton(StateNormal);
}

void GlossButton::setStyle(int style)
{
    if (style == m_Style)
        return;
    m_Style = style;
    ReportChange("Style");
    MakeButtonRegion();
    PaintButton(StateNormal);
}

void GlossButton::setPictureAlignment(int alignment)
{
    if (alignment == m_PictureAlignment)
        return;
    if (alignment < 0 || alignment > 255)
        zrt::raise(ErrOverflow); // the field is a byte
    m_PictureAlignment = alignment;
    ReportChange("PictureAlignment");
    PaintButton(StateNormal);
}

void GlossButton::setChecked(bool checked)
{
    m_Checked = checked;
    ReportChange("Checked");
    if (checked)
        PaintButton(StateChecked);
    else
        PaintButton(MouseOver ? StateHover : StateNormal);
}

void GlossButton::setColorScheme(int scheme)
{
    struct Scheme {
        OleColor up, hover, down, bright;
    };
    static const Scheme schemes[] = {
        {RGB(32, 103, 208), RGB(80, 153, 233), RGB(16, 103, 160), RGB(176, 237, 255)},
        {RGB(96, 144, 208), RGB(0, 96, 224), RGB(80, 128, 169), RGB(250, 250, 255)},
        {RGB(0, 0, 128), RGB(0, 0, 160), RGB(0, 0, 240), RGB(0, 0, 255)},
        {RGB(128, 0, 0), RGB(160, 0, 0), RGB(240, 0, 0), RGB(255, 0, 0)},
        {RGB(0, 128, 0), RGB(0, 160, 0), RGB(0, 192, 0), RGB(0, 255, 0)},
        {RGB(128, 128, 0), RGB(160, 160, 0), RGB(192, 192, 0), RGB(255, 255, 0)},
    };
    if (scheme >= 1 && scheme <= 6) {
        // The colour setters see the old scheme; the new one is stored after them.
        const Scheme &s = schemes[scheme - 1];
        setColorButtonUp(s.up);
        setColorButtonHover(s.hover);
        setColorButtonDown(s.down);
        setColorBright(s.bright);
    }
    m_ColorScheme = scheme;
    ReportChange("m_ColorScheme");
    PaintButton(StateNormal);
}

void GlossButton::setBorderBrightness(int brightness)
{
    m_BorderBrightness = std::clamp(brightness, -100, 100);
    ReportChange("m_BorderBrightness");
    PaintButton(StateNormal);
}

void GlossButton::setColorBright(OleColor color)
{
    FallToCustomScheme();
    m_ColorBright = color;
    ReportChange("m_ColorBright");
    PaintButton(StateNormal);
}

void GlossButton::setColorButtonDown(OleColor color)
{
    FallToCustomScheme();
    m_ColorButtonDown = color;
    ReportChange("m_ColorButtonDown");
    PaintButton(StateNormal);
}

void GlossButton::setColorButtonUp(OleColor color)
{
    FallToCustomScheme();
    m_ColorButtonUp = color;
    ReportChange("m_ColorButtonUp");
    PaintButton(StateNormal);
}

void GlossButton::setColorButtonHover(OleColor color)
{
    FallToCustomScheme();
    m_ColorButtonHover = color;
    ReportChange("m_ColorButtonHover");
    PaintButton(StateNormal);
}

void GlossButton::setForeColor(OleColor color)
{
    m_ForeColor = color;
    m_SurfaceForeColor = color;
    ReportChange("ForeColor");
    PaintButton(StateNormal);
}

void GlossButton::setIconHighLite(bool on)
{
    m_IconHighLite = on;
    ReportChange("IconHighLite");
}

void GlossButton::setIconHighLiteColor(OleColor color)
{
    m_IconHighLiteColor = color;
    ReportChange("IconHighLiteColor");
}

void GlossButton::setCaptionHighLite(bool on)
{
    m_CaptionHighLite = on;
    ReportChange("CaptionHighLite");
}

void GlossButton::setCaptionHighLiteColor(OleColor color)
{
    m_CaptionHighLiteColor = color;
    ReportChange("CaptionHighLiteColor");
}

void GlossButton::setPicture(const QPixmap &picture)
{
    m_Picture = picture;
    ReportChange("Picture");
    PaintButton(StateNormal);
}

QVariantMap GlossButton::WriteProperties() const
{
    QVariantMap bag;
    auto writeIf = [&bag](const char *key, const QVariant &value, const QVariant &byDefault) {
        if (value != byDefault)
            bag.insert(key, value);
    };
    bag.insert("DisplayHand", m_DisplayHand);
    writeIf("Enabled", m_Enabled, true);
    writeIf("ColorScheme", m_ColorScheme, 0);
    bag.insert("BorderBrightness", m_BorderBrightness);
    writeIf("IconHighLite", m_IconHighLite, false);
    writeIf("IconHighLiteColor", ColorValue(m_IconHighLiteColor), ColorValue(DefaultHighLiteColor));
    writeIf("CaptionHighLite", m_CaptionHighLite, false);
    writeIf("CaptionHighLiteColor", ColorValue(m_CaptionHighLiteColor), ColorValue(DefaultHighLiteColor));
    bag.insert("ColorBright", ColorValue(m_ColorBright));
    bag.insert("ColorButtonDown", ColorValue(m_ColorButtonDown));
    bag.insert("ColorButtonUp", ColorValue(m_ColorButtonUp));
    bag.insert("ColorButtonHover", ColorValue(m_ColorButtonHover));
    writeIf("ForeColor", ColorValue(m_ForeColor), ColorValue(0));
    if (!m_Picture.isNull()) {
        QByteArray bytes;
        QBuffer buffer(&bytes);
        buffer.open(QIODevice::WriteOnly);
        m_Picture.save(&buffer, "PNG");
        bag.insert("Picture", bytes);
    }
    bag.insert("Checked", m_Checked);
    writeIf("Style", m_Style, 0);
    writeIf("PictureAlignment", m_PictureAlignment, 0);
    writeIf("Caption", m_Caption, QString());
    if (testAttribute(Qt::WA_SetFont))
        bag.insert("Font", font().toString());
    return bag;
}

void GlossButton::ReadProperties(const QVariantMap &bag)
{
    m_ReadingProperties = true;
    Ready = false;
    m_DisplayHand = bag.value("DisplayHand", false).toBool();
    m_Enabled = bag.value("Enabled", true).toBool();
    m_ColorScheme = bag.value("ColorScheme", 0).toInt();
    m_BorderBrightness = std::clamp(bag.value("BorderBrightness", 0).toInt(), -100, 100);
    m_IconHighLite = bag.value("IconHighLite", false).toBool();
    m_IconHighLiteColor = ColorOf(bag.value("IconHighLiteColor"), DefaultHighLiteColor);
    m_CaptionHighLite = bag.value("CaptionHighLite", false).toBool();
    m_CaptionHighLiteColor = ColorOf(bag.value("CaptionHighLiteColor"), DefaultHighLiteColor);
    m_ColorBright = ColorOf(bag.value("ColorBright"), DefaultColorBright);
    m_ColorButtonDown = ColorOf(bag.value("ColorButtonDown"), DefaultColorButtonDown);
    m_ColorButtonUp = ColorOf(bag.value("ColorButtonUp"), DefaultColorButtonUp);
    m_ColorButtonHover = ColorOf(bag.value("ColorButtonHover"), DefaultColorButtonHover);
    m_ForeColor = ColorOf(bag.value("ForeColor"), 0);
    m_Picture = QPixmap();
    if (bag.contains("Picture"))
        m_Picture.loadFromData(bag.value("Picture").toByteArray());
    m_Checked = bag.value("Checked", false).toBool();
    m_Style = bag.value("Style", 0).toInt();
    m_PictureAlignment = std::clamp(bag.value("PictureAlignment", 0).toInt(), 0, 255);
    m_Caption = bag.value("Caption", QString()).toString();
    if (bag.contains("Font")) {
        QFont loaded;
        if (loaded.fromString(bag.value("Font").toString()))
            setFont(loaded);
    }
    m_ReadingProperties = false;
    ApplyStartUp();
}

} // namespace zrt
