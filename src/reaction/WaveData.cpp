#include "reaction/WaveData.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace zrt {
namespace {

std::uint32_t le32(const std::uint8_t *p) { return p[0] | (p[1] << 8) | (p[2] << 16) | (std::uint32_t(p[3]) << 24); }
std::uint16_t le16(const std::uint8_t *p) { return static_cast<std::uint16_t>(p[0] | (p[1] << 8)); }

int bytesOf(SampleKind k)
{
    switch (k) {
    case SampleKind::UInt8: return 1;
    case SampleKind::Int16: return 2;
    default: return 4;
    }
}

void put16(std::vector<std::uint8_t> &out, std::uint16_t v)
{
    out.push_back(static_cast<std::uint8_t>(v & 0xff));
    out.push_back(static_cast<std::uint8_t>(v >> 8));
}

void put32(std::vector<std::uint8_t> &out, std::uint32_t v)
{
    put16(out, static_cast<std::uint16_t>(v & 0xffff));
    put16(out, static_cast<std::uint16_t>(v >> 16));
}

} // namespace

int PcmFormat::bytesPerFrame() const { return channels * bytesOf(kind); }

std::optional<WaveData> ParseWave(const std::vector<std::uint8_t> &bytes, std::string *why)
{
    auto fail = [why](const char *reason) -> std::optional<WaveData> {
        if (why)
            *why = reason;
        return std::nullopt;
    };
    if (bytes.size() < 12 || std::memcmp(bytes.data(), "RIFF", 4) != 0 || std::memcmp(bytes.data() + 8, "WAVE", 4) != 0)
        return fail("not a RIFF/WAVE file");

    int formatTag = 0, channels = 0, rate = 0, bits = 0;
    const std::uint8_t *data = nullptr;
    size_t dataSize = 0;
    size_t at = 12;
    while (at + 8 <= bytes.size()) {
        const std::uint8_t *chunk = bytes.data() + at;
        const size_t size = le32(chunk + 4);
        const size_t available = std::min(size, bytes.size() - at - 8);
        if (std::memcmp(chunk, "fmt ", 4) == 0 && available >= 16) {
            formatTag = le16(chunk + 8);
            channels = le16(chunk + 10);
            rate = static_cast<int>(le32(chunk + 12));
            bits = le16(chunk + 22);
            if (formatTag == 0xFFFE && available >= 26) // extensible: the sub-format's first word
                formatTag = le16(chunk + 32);
        } else if (std::memcmp(chunk, "data", 4) == 0) {
            data = chunk + 8;
            dataSize = available; // a cut-off file keeps what is there
        }
        at += 8 + size + (size & 1);
        if (size > bytes.size())
            break;
    }
    if (formatTag == 0)
        return fail("no format chunk");
    if (!data)
        return fail("no data chunk");
    if (channels < 1 || channels > 8 || rate < 1000 || rate > 384000)
        return fail("unsupported channel count or sample rate");
    const bool isFloat = formatTag == 3 && bits == 32;
    if (!(formatTag == 1 && (bits == 8 || bits == 16 || bits == 24 || bits == 32)) && !isFloat)
        return fail("unsupported sample format");

    WaveData w;
    w.format = {rate, channels, SampleKind::Float};
    const size_t step = static_cast<size_t>(bits / 8);
    const size_t count = dataSize / step / static_cast<size_t>(channels) * static_cast<size_t>(channels);
    w.samples.reserve(count);
    for (size_t i = 0; i < count; ++i) {
        const std::uint8_t *p = data + i * step;
        float v = 0;
        if (isFloat) {
            std::memcpy(&v, p, 4);
            if (!std::isfinite(v))
                v = 0;
        } else if (bits == 8) {
            v = (static_cast<int>(p[0]) - 128) / 128.0f;
        } else if (bits == 16) {
            v = static_cast<std::int16_t>(le16(p)) / 32768.0f;
        } else if (bits == 24) {
            std::int32_t s = p[0] | (p[1] << 8) | (p[2] << 16);
            if (s & 0x800000)
                s |= ~0xFFFFFF;
            v = static_cast<float>(s) / 8388608.0f;
        } else {
            v = static_cast<float>(static_cast<std::int32_t>(le32(p)) / 2147483648.0);
        }
        w.samples.push_back(std::clamp(v, -1.0f, 1.0f));
    }
    return w;
}

std::vector<std::uint8_t> ConvertWave(const WaveData &wave, const PcmFormat &to)
{
    std::vector<std::uint8_t> out;
    if (to.channels < 1 || to.sampleRate < 1 || wave.format.channels < 1)
        return out;
    const size_t inFrames = wave.frames();
    const size_t outFrames =
        static_cast<size_t>(static_cast<double>(inFrames) * to.sampleRate / wave.format.sampleRate);
    out.reserve(outFrames * static_cast<size_t>(to.bytesPerFrame()));
    const int inCh = wave.format.channels;
    for (size_t f = 0; f < outFrames; ++f) {
        const size_t src = std::min(inFrames - 1, static_cast<size_t>(static_cast<double>(f) *
                                                                      wave.format.sampleRate / to.sampleRate));
        const float *frame = wave.samples.data() + src * static_cast<size_t>(inCh);
        float mono = 0;
        for (int c = 0; c < inCh; ++c)
            mono += frame[c];
        mono /= static_cast<float>(inCh);
        for (int c = 0; c < to.channels; ++c) {
            const float v = inCh == to.channels ? frame[c] : mono;
            switch (to.kind) {
            case SampleKind::UInt8:
                out.push_back(static_cast<std::uint8_t>(std::lround(v * 127.0f) + 128));
                break;
            case SampleKind::Int16:
                put16(out, static_cast<std::uint16_t>(static_cast<std::int16_t>(std::lround(v * 32767.0f))));
                break;
            case SampleKind::Int32:
                put32(out, static_cast<std::uint32_t>(static_cast<std::int32_t>(std::llround(v * 2147483647.0))));
                break;
            case SampleKind::Float: {
                std::uint32_t bitsOfFloat;
                std::memcpy(&bitsOfFloat, &v, 4);
                put32(out, bitsOfFloat);
                break;
            }
            }
        }
    }
    return out;
}

std::vector<std::uint8_t> MakeWave(const std::vector<float> &monoSamples, int sampleRate, int bitsPerSample)
{
    const int bytesPerSample = bitsPerSample / 8;
    const auto dataSize = static_cast<std::uint32_t>(monoSamples.size() * static_cast<size_t>(bytesPerSample));
    std::vector<std::uint8_t> out;
    out.insert(out.end(), {'R', 'I', 'F', 'F'});
    put32(out, 36 + dataSize);
    out.insert(out.end(), {'W', 'A', 'V', 'E', 'f', 'm', 't', ' '});
    put32(out, 16);
    put16(out, 1);
    put16(out, 1);
    put32(out, static_cast<std::uint32_t>(sampleRate));
    put32(out, static_cast<std::uint32_t>(sampleRate * bytesPerSample));
    put16(out, static_cast<std::uint16_t>(bytesPerSample));
    put16(out, static_cast<std::uint16_t>(bitsPerSample));
    out.insert(out.end(), {'d', 'a', 't', 'a'});
    put32(out, dataSize);
    for (float s : monoSamples) {
        const float v = std::clamp(s, -1.0f, 1.0f);
        if (bitsPerSample == 8)
            out.push_back(static_cast<std::uint8_t>(std::lround(v * 127.0f) + 128));
        else
            put16(out, static_cast<std::uint16_t>(static_cast<std::int16_t>(std::lround(v * 32767.0f))));
    }
    return out;
}

} // namespace zrt
