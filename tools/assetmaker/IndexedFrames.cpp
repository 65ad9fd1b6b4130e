#include "IndexedFrames.h"

#include <QHash>
#include <stdexcept>

namespace assetmaker {

QByteArray EncodeAnimation(const std::vector<QImage> &frames, const AnimationTiming &timing)
{
    QList<QRgb> table{qRgb(255, 255, 255)};
    QHash<QRgb, int> indexOf;
    zrt::GifWriterInput input;
    input.Screen = frames.front().size();
    input.Loops = timing.Loops;
    for (const QImage &source : frames) {
        const QImage argb = source.convertToFormat(QImage::Format_ARGB32);
        QImage indices(argb.size(), QImage::Format_Indexed8);
        indices.setColorCount(256);
        for (int y = 0; y < argb.height(); ++y) {
            const auto *in = reinterpret_cast<const QRgb *>(argb.constScanLine(y));
            uchar *out = indices.scanLine(y);
            for (int x = 0; x < argb.width(); ++x) {
                if (qAlpha(in[x]) < 128) {
                    out[x] = 0;
                    continue;
                }
                const QRgb colour = in[x] | 0xFF000000u;
                auto it = indexOf.find(colour);
                if (it == indexOf.end()) {
                    if (table.size() >= 256)
                        throw std::runtime_error("too many colours in one animation");
                    it = indexOf.insert(colour, int(table.size()));
                    table.append(colour);
                }
                out[x] = static_cast<uchar>(*it);
            }
        }
        zrt::GifWriterFrame frame;
        frame.Indices = indices;
        frame.DelayCs = timing.DelayCs;
        frame.Disposal = timing.Disposal;
        frame.TransparentIndex = 0;
        input.Frames.push_back(frame);
    }
    input.GlobalTable = table;
    return zrt::WriteAnimatedGif(input);
}

} // namespace assetmaker
