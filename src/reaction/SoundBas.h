#pragma once
// The four sounds of the tests, loaded once at start-up and played from memory. Playing is
// asynchronous; a looping sound repeats until StopSound, which silences it at once: the sink
// keeps only a few milliseconds queued and is reset, never drained. Without an audio output
// everything still works, silently.

#include "reaction/WaveData.h"

#include <QByteArray>
#include <QObject>
#include <QString>
#include <QStringList>

#include <QAudioDevice>
#include <QAudioFormat>

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

class QAudioSink;
class QIODevice;
class QTimer;
class QMediaDevices;

namespace SoundBas {

enum Flags : int {
    SND_ASYNC = 0x1,
    SND_MEMORY = 0x4,
    SND_LOOP = 0x8,
    SND_PURGE = 0x40,
};

class LoopingSource;

class SoundPlayer : public QObject {
    Q_OBJECT
public:
    explicit SoundPlayer(QObject *parent = nullptr);
    ~SoundPlayer() override;

    // The program's one player.
    static SoundPlayer &instance();

    // Flags 5 play once, 13 loop; any sound playing is replaced. False for data that are no sound.
    bool PlaySound(const QByteArray &wave, int flags);
    // Flags 64: silence now.
    void StopSound();
    // Reads and converts a sound for the output now, so that playing it later only hands the
    // kept samples to the open sink. A sound played without this is converted at its first play.
    // False for data that are no sound.
    bool Prepare(const QByteArray &wave);
    // How many sounds are kept converted (a few at most).
    int preparedCount() const { return static_cast<int>(m_prepared.size()); }

    bool hasOutput() const;
    bool isPlaying() const;
    bool isLooping() const { return m_looping; }
    // Bytes the last StopSound threw away unplayed (queued in the sink or still to come once).
    qint64 lastDiscardedBytes() const { return m_lastDiscarded; }
    // Milliseconds of sound the sink may hold: the most a stop can leave audible.
    int bufferMilliseconds() const { return m_bufferMs; }
    void setBufferMilliseconds(int ms) { m_bufferMs = ms; }
    // With recording on, every PlaySound and StopSound in order ("play:<bytes>", "loop:<bytes>",
    // "stop"), so that tests can follow what would sound.
    void setRecording(bool on) { m_recording = on; }
    const QStringList &history() const { return m_history; }
    void clearHistory() { m_history.clear(); }

private:
    // A sound converted for the output. The bytes are kept so that their address names them.
    struct PreparedSound {
        QByteArray wave;
        bool valid = false;
        QAudioFormat format;
        std::shared_ptr<const std::vector<std::uint8_t>> pcm;
    };
    const PreparedSound &prepared(const QByteArray &wave);
    const QAudioDevice &device();
    void forgetDevice();
    void startSink(const PreparedSound &sound, bool loop);
    void silence();
    void feed();

    std::vector<PreparedSound> m_prepared;
    std::unique_ptr<QMediaDevices> m_devices;
    QAudioDevice m_device;
    bool m_deviceKnown = false;
    std::unique_ptr<QAudioSink> m_sink;
    std::unique_ptr<LoopingSource> m_source;
    // The sink is fed by hand (push mode): some backends never pull from a device whose period
    // does not fit their buffer, and a sound would then never start.
    QIODevice *m_push = nullptr;
    QTimer *m_feeder = nullptr;
    zrt::PcmFormat m_sinkFormat;
    bool m_looping = false;
    bool m_playing = false;
    int m_bufferMs = 50;
    qint64 m_lastDiscarded = 0;
    QStringList m_history;
    bool m_recording = false;
};

// Sound buffers 1..4 ("SOUND1".."SOUND4").
struct SoundBank {
    std::array<QByteArray, 4> buffers;
    bool SoundDisabled = false;
    // One message for each named sound file that could not be used.
    QStringList LoadProblems;
};

// The largest sound file read: a few seconds of wave data are far below it.
inline constexpr qint64 kMaxSoundFileBytes = qint64(16) << 20;

// Reads the whole file. A file that can't be read is the ordinary file error (run-time error
// 75): so is a folder, a device or a pipe (refused without waiting on it), a file above
// kMaxSoundFileBytes and one that holds no wave the player can use. why, when given, says which.
QByteArray LoadSoundFile(const QString &path, QString *why = nullptr);

// For i in 1..4: the wave file named by "SOUND<i>" of section "Settings" when it exists,
// otherwise the built-in resource of that name; then "DisableSound" (1 or more sets it).
// A named file that can't be used gives the built-in sound and a line in LoadProblems.
// builtIn(i) gives the resource bytes.
SoundBank LoadSounds(const QString &settingsFile, const std::function<QByteArray(int)> &builtIn);

} // namespace SoundBas
