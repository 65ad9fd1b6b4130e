#include "reaction/SoundBas.h"

#include "common/NumberText.h"
#include "common/RunTimeError.h"
#include "files/FileAccess.h"
#include "files/IniDocument.h"
#include "files/REGbas1.h"

#include <QCoreApplication>
#include <QAudioDevice>
#include <QAudioFormat>
#include <QAudioSink>
#include <QFile>
#include <QIODevice>
#include <QMediaDevices>
#include <QTimer>

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

SoundPlayer::SoundPlayer(QObject *parent) : QObject(parent), m_feeder(new QTimer(this))
{
    m_feeder->setInterval(5);
    connect(m_feeder, &QTimer::timeout, this, &SoundPlayer::feed);
}

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
        // The feeder stopped when the last sound ran out; it hands the new one on.
        feed();
        m_feeder->start();
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
    m_push = m_sink->start();
    feed();
    m_feeder->start();
}

void SoundPlayer::feed()
{
    if (!m_sink || !m_push || !m_source) {
        m_feeder->stop();
        return;
    }
    const int frame = std::max(1, m_sinkFormat.bytesPerFrame());
    qsizetype room = m_sink->bytesFree();
    room -= room % frame;
    if (room > 0) {
        QByteArray chunk(room, Qt::Uninitialized);
        const qint64 n = m_source->read(chunk.data(), room);
        if (n > 0)
            m_push->write(chunk.constData(), n);
    }
    if (!m_looping && m_source->remaining() == 0)
        m_feeder->stop();
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
    m_feeder->stop();
    m_push = nullptr;
    if (m_source && !m_looping)
        m_lastDiscarded += m_source->remaining();
    m_source.reset();
    m_playing = false;
    m_looping = false;
}

QByteArray LoadSoundFile(const QString &path, QString *why)
{
    const zrt::FileRead file = zrt::ReadWholeFile(path.toStdString(), kMaxSoundFileBytes);
    std::string reason = file.reason;
    if (file.ok()) {
        const std::vector<std::uint8_t> bytes(file.bytes.begin(), file.bytes.end());
        if (zrt::ParseWave(bytes))
            return QByteArray(file.bytes.data(), static_cast<qsizetype>(file.bytes.size()));
        reason = "it holds no wave sound the program can play";
    }
    if (why)
        *why = QString::fromStdString(reason);
    throw zrt::RunTimeError(75, "Path/File access error");
}

SoundBank LoadSounds(const QString &settingsFile, const std::function<QByteArray(int)> &builtIn)
{
    SoundBank bank;
    // The settings are read once; one that can't be read leaves every default in place.
    zrt::IniDocument settings;
    if (!settingsFile.isEmpty())
        zrt::IniDocument::read(settingsFile.toStdString(), settings);
    auto setting = [&](const std::string &key, const std::string &fallback, size_t size) {
        return settings.value("Settings", key).value_or(fallback).substr(0, size - 1);
    };
    for (int i = 1; i <= 4; ++i) {
        const std::string key = "SOUND" + std::to_string(i);
        const std::string path = setting(key, "", 255);
        QByteArray &buffer = bank.buffers[static_cast<size_t>(i - 1)];
        if (!REGbas1::FileExists(path)) {
            buffer = builtIn(i);
            continue;
        }
        QString why;
        try {
            buffer = LoadSoundFile(QString::fromStdString(path), &why);
        } catch (const zrt::RunTimeError &e) {
            buffer = builtIn(i);
            bank.LoadProblems << QString::fromStdString(e.message()) +
                    QCoreApplication::translate("SoundBas", "\nThe sound file ") + QString::fromStdString(path) +
                    QCoreApplication::translate("SoundBas", " named by ") + QString::fromStdString(key) +
                    QCoreApplication::translate("SoundBas", " can't be used: ") + why +
                    QCoreApplication::translate("SoundBas", ". The program's own sound is played instead.");
        }
    }
    bank.SoundDisabled = zrt::Val(setting("DisableSound", "0", 50)) >= 1;
    return bank;
}

} // namespace SoundBas
