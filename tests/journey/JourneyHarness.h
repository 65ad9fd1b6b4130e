#pragma once
// Drives the real program on a real X display: starts a virtual X server (and, on request, a
// sound server with a silent sink), starts the program in a fresh home folder, sends mouse and
// key input through the X server's test extension and reads the screen back from the server.
// The program's probe (ZRT_PROBE=1) only tells where controls are and fires the test timers.

#include <QImage>
#include <QProcess>
#include <QRect>
#include <QSize>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>

#include <functional>
#include <memory>

namespace journey {

struct Control {
    QRect rect; // screen coordinates
    bool visible = false;
    bool enabled = false;
    bool found = false;
    QPoint centre() const { return rect.center(); }
};

// One X server for the whole test program; each test gets a program of its own. A test that
// asks for another screen size gets a new server of that size in place of the old one.
class Display {
public:
    static constexpr QSize kDefaultScreen{1280, 1024};
    // The running server; with a size, a server of that size (the running one when it fits).
    static Display &instance(QSize screen = QSize());
    bool ok() const { return m_display != nullptr; }
    QString name() const { return m_name; }
    QSize screen() const { return m_screen; }
    void *xdisplay() const { return m_display; }
    ~Display();

private:
    explicit Display(QSize screen);
    QProcess m_server;
    QString m_name;
    QSize m_screen;
    void *m_display = nullptr;
};

// A silent PulseAudio sink, so the program has a sound output; stopped with the object.
class SoundServer {
public:
    explicit SoundServer(const QString &folder);
    ~SoundServer();
    bool ok() const { return m_ok; }
    QString address() const { return m_address; }
    // Milliseconds of the last seconds of the sink that were not silence.
    int audibleMilliseconds(int lastMs);

private:
    QProcess m_server;
    QString m_address;
    bool m_ok = false;
};

struct Options {
    bool manualTimers = true;
    bool sound = false;           // start a sound server with a silent sink
    QString settings;             // Zorvanes.ini content to place in the documents folder
    QByteArray settingsBytes;     // the same as raw bytes, when set
    QStringList soundFiles;       // SOUND1.. entries to add to the settings
    bool settingsIsPipe = false;  // a named pipe stands where the settings file belongs
    int scale = 1;                // QT_SCALE_FACTOR of the program; above 1 the screen grows to fit
    QSize screen;                 // the X screen's size; empty for the default (or 2600x2100 when scaled)
};

class Program {
public:
    explicit Program(const Options &options = {});
    ~Program();
    bool started() const { return m_started; }
    // Milliseconds from the start to the first window on the screen (a box or the main window),
    // and the boxes shown before the main window, each answered with Enter.
    qint64 firstWindowMs() const { return m_firstWindowMs; }
    int startupBoxes() const { return m_startupBoxes; }
    QString home() const { return m_home.path(); }
    QString documents() const { return m_home.path() + QStringLiteral("/Documents"); }
    // X pixels per logical pixel of the program. Everything the probe reports is in X pixels;
    // an offset inside a control that a test knows in the program's own pixels goes through px().
    int scale() const { return m_scale; }
    int px(int logical) const { return logical * m_scale; }
    QPoint px(QPoint logical) const { return logical * m_scale; }

    // A probe command and its reply, without the "ok " in front ("" on failure).
    QString ask(const QString &command, bool *ok = nullptr);
    Control control(const QString &name);
    QString text(const QString &name);
    bool fire(int timerId);
    bool armed(int timerId);

    // Common readings through the probe.
    int lines(const QString &list);                  // items of a list
    QPoint toolbarButton(const QString &key);        // middle of a toolbar button
    QPoint tab(const QString &strip, int index);     // middle of a tab
    bool modalShown();                               // a box or dialog is open
    // Opens a file through the toolbar and the file dialog, by keys.
    bool openByKeys(const QString &path);

    // Real input, through the X server.
    void moveTo(QPoint at);
    void click(QPoint at, int button = 1);
    void click(const QString &controlName, int button = 1);
    void key(const char *keysym);
    // Gives the main window the keyboard focus, as a window manager does with a new window.
    void focusMainWindow();
    // A key with a modifier held, such as ("Control_L", "s").
    void chord(const char *modifier, const char *keysym);
    // Presses Tab until the named control has the focus; false after `most` presses.
    bool tabTo(const QString &name, int most = 60);
    void type(const QString &text);
    void resizeWindow(int width, int height);

    // The screen as the X server has it, and a picture of it kept for a person to look at.
    QImage screen();
    QImage shot(const QString &name);
    QImage region(const QRect &rect);

    // Polls until the predicate holds or the time is out; lets the program and the server run.
    bool waitUntil(const std::function<bool()> &predicate, int timeoutMs = 5000);
    void settle(int ms = 150);
    // Milliseconds of the next `ms` in which the sound output was not silent; -1 without a sound
    // server or when nothing could be recorded. The recorder hands its samples on in pieces of
    // about a second and drops the last, so ask for three seconds to hear about two.
    int soundHeard(int ms) { return m_sound && m_sound->ok() ? m_sound->audibleMilliseconds(ms) : -1; }
    bool running() const { return m_process.state() == QProcess::Running; }
    int exitCode() const { return m_process.exitCode(); }
    QString output() const { return m_output; }

private:
    void pointAtModal();
    void waitForTheMainWindow();
    qint64 m_firstWindowMs = -1;
    int m_startupBoxes = 0;

    QTemporaryDir m_home;
    std::unique_ptr<SoundServer> m_sound;
    QProcess m_process;
    QString m_output;
    bool m_started = false;
    int m_scale = 1;
};

// The folder the pictures go to (the build's journey folder).
QString ShotFolder();
// Counts pixels of a picture that are near the colour (each channel within tolerance).
int CountNear(const QImage &image, QRgb colour, int tolerance);
// A sample of pairs as the program writes it: "0.(a + i*step),0.(b + i*step2)" for i = 1..pairs.
bool WriteSample(const QString &path, int pairs, int visualFrom = 300, int visualStep = 1, int audioFrom = 500,
                 int audioStep = 1);
// Twenty pairs spread as a class's would be.
bool WriteClass(const QString &path);
// True when the two rectangles share any pixel.
bool Overlap(const QRect &a, const QRect &b);

} // namespace journey
