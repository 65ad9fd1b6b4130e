#include "charts/Drawings.h"

#include "charts/PictureBox.h"

#include <QFontDatabase>
#include <QFontMetrics>
#include <QPainter>

#include <algorithm>
#include <memory>
#include <unordered_map>

using zrt::OleColor;
using zrt::PictureBox;

namespace Drawings {

namespace {

constexpr int TextFlags = Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine;

// The 3D colours of the disabled look.
constexpr OleColor Highlight3D = zrt::SystemColor(20);
constexpr OleColor Shadow3D = zrt::SystemColor(16);

// Measured against an image so that widths agree with what the surfaces draw.
const QImage &Reference()
{
    static const QImage reference(1, 1, QImage::Format_RGB32);
    return reference;
}

int TextWidth(const QFont &font, const QString &text) { return QFontMetrics(font, &Reference()).horizontalAdvance(text); }

// The text as drawn: "&x" shows x, "&&" shows "&".
QString WithoutPrefixes(const QString &text)
{
    if (!text.contains(QLatin1Char('&')))
        return text;
    QString shown;
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == QLatin1Char('&') && i + 1 < text.size())
            ++i;
        shown += text[i];
    }
    return shown;
}

// The letters' bounding box of a label whose cell's top-left corner is (x, y).
QRect InkOf(const QFontMetrics &metrics, int x, int y, const QString &text)
{
    const QString shown = WithoutPrefixes(text);
    if (shown.isEmpty())
        return {};
    return metrics.tightBoundingRect(shown).translated(x, y + metrics.ascent());
}

// The pixel size of the face whose ascent plus descent is the cell height asked for (the
// largest that does not exceed it), found once per height.
int PixelSizeForCell(int cellHeight)
{
    static std::unordered_map<int, int> sizes;
    const auto found = sizes.find(cellHeight);
    if (found != sizes.end())
        return found->second;
    QFont font(LabelFamily());
    font.setKerning(false);
    int size = cellHeight;
    for (; size > 1; --size) {
        font.setPixelSize(size);
        const QFontMetrics metrics(font, &Reference());
        if (metrics.ascent() + metrics.descent() <= cellHeight)
            break;
    }
    sizes.emplace(cellHeight, size);
    return size;
}

void PaintText(PictureBox &device, int x, int y, const QString &text, const QFont &font, const QColor &colour,
               int escapement)
{
    device.DrawText(x, y, text, font, colour, escapement, TextFlags | Qt::TextShowMnemonic);
}

} // namespace

QString LabelFamily()
{
    static const QString family = [] {
        const QStringList installed = QFontDatabase::families();
        for (const char *candidate : {"Arial", "Liberation Sans", "Arimo", "Helvetica"})
            if (installed.contains(QString::fromLatin1(candidate), Qt::CaseInsensitive))
                return QString::fromLatin1(candidate);
        return QFontDatabase::systemFont(QFontDatabase::GeneralFont).family();
    }();
    return family;
}

namespace {

QFont MakeFont(int height, int width, int weight, bool italic, bool underline)
{
    QFont font(LabelFamily());
    // A positive height is the character cell (ascent plus descent), a negative one the
    // letters' own size, as a logical font reads them.
    font.setPixelSize(height > 0 ? PixelSizeForCell(height) : height < 0 ? -height : 16);
    font.setWeight(weight == 0 ? QFont::Normal : static_cast<QFont::Weight>(std::clamp(weight, 1, 1000)));
    font.setItalic(italic);
    font.setUnderline(underline);
    font.setKerning(false);
    if (width > 0) {
        // The width is the average character width: stretch the face to reach it.
        static const QImage reference(1, 1, QImage::Format_RGB32);
        const int natural = QFontMetrics(font, &reference).averageCharWidth();
        if (natural > 0)
            font.setStretch(std::clamp(width * 100 / natural, 1, 4000));
    }
    return font;
}

// A font with its metrics, made once for each set of values: a chart asks for the same few
// again and again, for every label and every height a fitting tries.
struct Face {
    explicit Face(const QFont &f) : font(f), metrics(f, &Reference()), metricsF(f, &Reference()) {}
    QFont font;
    QFontMetrics metrics;
    QFontMetricsF metricsF;
};

const Face &FaceOf(int height, int width, int weight, bool italic, bool underline)
{
    static std::unordered_map<quint64, std::unique_ptr<Face>> faces;
    const quint64 key = (static_cast<quint64>(static_cast<quint32>(height)) << 32) ^
                        (static_cast<quint64>(static_cast<quint16>(width)) << 16) ^
                        (static_cast<quint64>(std::clamp(weight, 0, 1000)) << 2) ^ (italic ? 2u : 0u) ^
                        (underline ? 1u : 0u);
    auto found = faces.find(key);
    if (found == faces.end())
        found = faces.emplace(key, std::make_unique<Face>(MakeFont(height, width, weight, italic, underline))).first;
    return *found->second;
}

} // namespace

QFont LabelFont(int height, int width, int weight, bool italic, bool underline, int escapement)
{
    Q_UNUSED(escapement) // rotation belongs to the painter, not to the font
    return FaceOf(height, width, weight, italic, underline).font;
}

int DrawLabel(PictureBox *device, int x, int y, const QString &text, bool enabled, OleColor colour, int weight,
              int italic, int underline, int height, int width, int escapement)
{
    if (device == nullptr)
        return 0;
    const Face &face = FaceOf(height, width, weight, italic != 0, underline != 0);
    const QFont &font = face.font;
    const QFont previousFont = device->SelectFont(font);
    const OleColor previousColour = device->SetTextColor(colour);
    if (enabled) {
        PaintText(*device, x, y, text, font, zrt::TranslateColor(colour), escapement);
    } else {
        PaintText(*device, x + 1, y + 1, text, font, zrt::TranslateColor(Highlight3D), escapement);
        PaintText(*device, x, y, text, font, zrt::TranslateColor(Shadow3D), escapement);
    }
    device->SetTextColor(previousColour);
    device->SelectFont(previousFont);
    if (device->Recording()) {
        const QRect ink = InkOf(face.metrics, x, y, text);
        device->RecordLabel(enabled ? ink : ink.adjusted(0, 0, 1, 1));
    }
    return 1;
}

QRect LabelInk(int x, int y, int height, int weight, bool italic, const QString &text)
{
    return InkOf(FaceOf(height, 0, weight, italic, false).metrics, x, y, text);
}

int LabelWidth(int height, int weight, const QString &text)
{
    return FaceOf(height, 0, weight, false, false).metrics.horizontalAdvance(text);
}

double LabelAdvance(int height, int weight, const QString &text)
{
    return FaceOf(height, 0, weight, false, false).metricsF.horizontalAdvance(text);
}

int MeasureLabel(const PictureBox &device, const QString &text)
{
    return TextWidth(device.CurrentFont(), text) + 1;
}

int MeasureFont(int height, int width, const QString &text)
{
    return FaceOf(height, width, 1, false, false).metrics.horizontalAdvance(text) + 1;
}

} // namespace Drawings
