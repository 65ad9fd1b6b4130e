#include "reaction/SoundBas.h"

#include "common/NumberText.h"
#include "common/RunTimeError.h"
#include "files/REGbas1.h"

#include <QAudioDevice>
#include <QAudioFormat>
#include <QAudioSink>
#include <QFile>
#include <QIODevice>
#include <QMediaDevices>

#include <cstring>

namespace SoundBas {

// Hands the sink the converted samples, from the start again when looping. The samples are the
// player's kept ones, shared, so that a new sound is handed over without a copy.
class LoopingSource : public QIODevice {
public:
    using Samples = std::shared_ptr<const std::vector<std::uint8_t>>;

    LoopingSource(Samples pcm, bool loop, int frameBytes) { Replace(std::move(pcm), loop, frameBytes); }
    void Replace(Samples pcm, bool loop, int frameBytes)
    {
        m_pcm = pcm ? std::move(pcm) : std::make_shared<const std::vector<std::uint8_t>>();
        m_at = 0;
        m_loop = loop;
        m_frameBytes = std::max(1, frameBytes);
    }
    bool isSequential() const override { return true; }
    qint64 bytesAvailable() const override
    {
        return (m_loop ? static_cast<qint64>(m_pcm->size()) : remaining()) + QIODevice::bytesAvailable();
    }
    qint64 remaining() const { return static_cast<qint64>(m_pcm->size() - m_at); }
    qint64 handedOut() const { return m_handed; }
    bool looping() const { return m_loop; }

protected:
    qint64 readData(char *data, qint64 maxSize) override
    {
        maxSize -= maxSize % m_frameBytes;
        qint64 written = 0;
        const std::vector<std::uint8_t> &pcm = *m_pcm;
        while (written < maxSize && !pcm.empty()) {
            if (m_at == pcm.size()) {
                if (!m_loop)
                    break;
                m_at = 0;
            }
            const size_t n = std::min(static_cast<size_t>(maxSize - written), pcm.size() - m_at);
            std::memcpy(data + written, pcm.data() + m_at, n);
            m_at += n;
            written += static_cast<qint64>(n);
        }
        m_handed += written;
        return written;
    }
    qint64 writeData(const char *, qint64) override { return -1; }

private:
    Samples m_pcm;
    size_t m_at = 0;
    bool m_loop = false;
    int m_frameBytes = 1;
    qint64 m_handed = 0;
};

namespace {

zrt::SampleKind kindOf(QAudioFormat::SampleFormat f)
{
    switch (f) {
    case QAudioFormat::UInt8: return zrt::SampleKind::UInt8;
    case QAudioFormat::Int32: return zrt::SampleKind::Int32;
    case QAudioFormat::Float: return zrt::SampleKind::Float;
    default: return zrt::SampleKind::Int16;
    }
}

constexpr size_t kMostPrepared = 8;

} // namespace

SoundPlayer::SoundPlayer(QObject *parent) : QObject(parent) {}

SoundPlayer::~SoundPlayer()
{
    if (m_sink)
        m_sink->reset();
}

SoundPlayer &SoundPlayer::instance()
{
    static SoundPlayer player;
    return player;
}

bool SoundPlayer::hasOutput() const { return !QMediaDevices::defaultAudioOutput().isNull(); }

// The output is looked up once and again only when the system's outputs change.
const QAudioDevice &SoundPlayer::device()
{
    if (!m_deviceKnown) {
        if (!m_devices) {
            m_devices = std::make_unique<QMediaDevices>();
            connect(m_devices.get(), &QMediaDevices::audioOutputsChanged, this, &SoundPlayer::forgetDevice);
        }
        m_device = QMediaDevices::defaultAudioOutput();
        m_deviceKnown = true;
    }
    return m_device;
}

void SoundPlayer::forgetDevice()
{
    m_deviceKnown = false;
    m_prepared.clear(); // converted for the old output's format
}

const SoundPlayer::PreparedSound &SoundPlayer::prepared(const QByteArray &wave)
{
    for (const auto &p : m_prepared)
        if (p.wave.constData() == wave.constData() && p.wave.size() == wave.size())
            return p;
    PreparedSound p;
    p.wave = wave;
    std::vector<std::uint8_t> bytes(wave.begin(), wave.end());
    const auto parsed = zrt::ParseWave(bytes);
    if (parsed) {
        p.valid = true;
        const QAudioDevice &output = device();
        QAudioFormat format;
        format.setSampleRate(parsed->format.sampleRate);
        format.setChannelCount(parsed->format.channels);
        format.setSampleFormat(QAudioFormat::Int16);
        if (!output.isNull() && !output.isFormatSupported(format))
            format = output.preferredFormat();
        p.format = format;
        const zrt::PcmFormat to{format.sampleRate(), format.channelCount(), kindOf(format.sampleFormat())};
        p.pcm = std::make_shared<const std::vector<std::uint8_t>>(zrt::ConvertWave(*parsed, to));
    }
    if (m_prepared.size() >= kMostPrepared)
        m_prepared.erase(m_prepared.begin());
    m_prepared.push_back(std::move(p));
    return m_prepared.back();
}

bool SoundPlayer::Prepare(const QByteArray &wave) { return prepared(wave).valid; }

bool SoundPlayer::isPlaying() const
{
    if (!m_playing)
        return false;
    if (m_looping || !m_sink)
        return m_looping || (m_source && m_source->remaining() > 0);
    return m_sink->state() == QAudio::ActiveState || (m_source && m_source->remaining() > 0);
}

bool SoundPlayer::PlaySound(const QByteArray &wave, int flags)
{
    if (flags & SND_PURGE) {
        StopSound();
        return true;
    }
    const PreparedSound &sound = prepared(wave);
    const bool loop = (flags & SND_LOOP) != 0;
    // A sink that is open in the sound's format and has played out what it had takes the new
    // sound as it is: no stop, no new stream.
    if (sound.valid && m_sink && m_source && !isPlaying() && m_sink->format() == sound.format
        && (m_sink->state() == QAudio::ActiveState || m_sink->state() == QAudio::IdleState)) {
        if (m_recording)
            m_history << QStringLiteral("%1:%2").arg(loop ? "loop" : "play").arg(wave.size());
        m_looping = loop;
        m_playing = true;
        m_source->Replace(sound.pcm, loop, m_sinkFormat.bytesPerFrame());
        Q_EMIT m_source->readyRead(); // the sink pulls again
        return true;
    }
    silence();
    if (!sound.valid)
        return false;
    if (m_recording)
        m_history << QStringLiteral("%1:%2").arg(loop ? "loop" : "play").arg(wave.size());
    startSink(sound, loop);
    return true;
}

void SoundPlayer::startSink(const PreparedSound &sound, bool loop)
{
    m_looping = loop;
    m_playing = true;
    const QAudioFormat &format = sound.format;
    m_sinkFormat = {format.sampleRate(), format.channelCount(), kindOf(format.sampleFormat())};
    m_source = std::make_unique<LoopingSource>(sound.pcm, loop, m_sinkFormat.bytesPerFrame());
    m_source->open(QIODevice::ReadOnly);
    const QAudioDevice &output = device();
    if (output.isNull())
        return; // no output: a silent run, the state still tells what would sound

    if (!m_sink || m_sink->format() != format)
        m_sink = std::make_unique<QAudioSink>(output, format);
    const int bytesPerMs = format.bytesForDuration(1000);
    m_sink->setBufferSize(std::max<qsizetype>(format.bytesPerFrame(), qsizetype(bytesPerMs) * m_bufferMs));
    m_sink->start(m_source.get());
}

void SoundPlayer::StopSound()
{
    if (m_recording)
        m_history << QStringLiteral("stop");
    silence();
}

void SoundPlayer::silence()
{
    m_lastDiscarded = 0;
    if (m_sink) {
        const qint64 played = m_sinkFormat.bytesPerFrame() > 0
                                  ? QAudioFormat(m_sink->format()).bytesForDuration(m_sink->processedUSecs())
                                  : 0;
        const qint64 handed = m_source ? m_source->handedOut() : 0;
        m_lastDiscarded = std::max<qint64>(0, handed - played);
        m_sink->reset(); // drops what is queued instead of playing it out
        m_sink->stop();
    }
    if (m_source && !m_looping)
        m_lastDiscarded += m_source->remaining();
    m_source.reset();
    m_playing = false;
    m_looping = false;
}

QByteArray LoadSoundFile(const QString &path)
{
    QFile f(path);
    if (!f.open(QIODevice::ReadOnly))
        throw zrt::RunTimeError(75, "Path/File access error");
    QByteArray bytes = f.readAll();
    if (f.error() != QFileDevice::NoError)
        throw zrt::RunTimeError(75, "Path/File access error");
    return bytes;
}

SoundBank LoadSounds(const QString &settingsFile, const std::function<QByteArray(int)> &builtIn)
{
    SoundBank bank;
    const std::string ini = settingsFile.toStdString();
    for (int i = 1; i <= 4; ++i) {
        const std::string path = REGbas1::ReadIniString("Settings", "SOUND" + std::to_string(i), "", 255, ini);
        if (REGbas1::FileExists(path))
            bank.buffers[static_cast<size_t>(i - 1)] = LoadSoundFile(QString::fromStdString(path));
        else
            bank.buffers[static_cast<size_t>(i - 1)] = builtIn(i);
    }
    const std::string disable = REGbas1::ReadIniString("Settings", "DisableSound", "0", 50, ini);
    bank.SoundDisabled = zrt::Val(disable) >= 1;
    return bank;
}

} // namespace SoundBas
