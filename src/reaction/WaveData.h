#pragma once
// A RIFF/WAVE reader for the sounds, and the conversion of their samples to the format an audio
// output asks for. Pure: no audio device involved.

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace zrt {

enum class SampleKind { UInt8, Int16, Int32, Float };

struct PcmFormat {
    int sampleRate = 0;
    int channels = 0;
    SampleKind kind = SampleKind::Int16;
    int bytesPerFrame() const;
};

struct WaveData {
    PcmFormat format;
    std::vector<float> samples; // interleaved, -1..1
    size_t frames() const { return format.channels ? samples.size() / static_cast<size_t>(format.channels) : 0; }
};

// Reads PCM (8, 16, 24 and 32 bits) and 32-bit float wave data; nullopt with a reason otherwise.
std::optional<WaveData> ParseWave(const std::vector<std::uint8_t> &bytes, std::string *why = nullptr);

// The samples as bytes of another format: nearest-sample resampling, channels mixed or copied.
std::vector<std::uint8_t> ConvertWave(const WaveData &wave, const PcmFormat &to);

// A short mono 16-bit wave file in memory (used by the asset maker and the tests).
std::vector<std::uint8_t> MakeWave(const std::vector<float> &monoSamples, int sampleRate, int bitsPerSample = 16);

} // namespace zrt
