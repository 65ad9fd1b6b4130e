#include "JourneyHarness.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QThread>

#include <X11/XKBlib.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <X11/extensions/XTest.h>
#include <X11/keysym.h>

#include <algorithm>
#include <cstdlib>
#include <sys/stat.h>

namespace journey {

namespace {

::Display *X(void *d) { return static_cast<::Display *>(d); }

void Pause(int ms) { QThread::msleep(static_cast<unsigned long>(ms)); }

} // namespace

QString ShotFolder()
{
    // The documentation's pictures are taken by the same journeys into a folder of its own.
    const QString folder = qEnvironmentVariableIsSet("ZRT_SHOT_DIR") ? qEnvironmentVariable("ZRT_SHOT_DIR")
                                                                     : QStringLiteral(ZRT_SHOT_DIR);
    QDir().mkpath(folder);
    return folder;
}

int CountNear(const QImage &image, QRgb colour, int tolerance)
{
    int count = 0;
    const QImage img = image.convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < img.height(); ++y) {
        const QRgb *row = reinterpret_cast<const QRgb *>(img.constScanLine(y));
        for (int x = 0; x < img.width(); ++x)
            if (std::abs(qRed(row[x]) - qRed(colour)) <= tolerance &&
                std::abs(qGreen(row[x]) - qGreen(colour)) <= tolerance &&
                std::abs(qBlue(row[x]) - qBlue(colour)) <= tolerance)
                ++count;
    }
    return count;
}

bool Overlap(const QRect &a, const QRect &b) { return a.intersects(b); }

bool WriteSample(const QString &path, int pairs, int visualFrom, int visualStep, int audioFrom, int audioStep)
{
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly))
        return false;
    QByteArray text = "[RTDINFO]\r\nVanes=3\r\nAttempts=4\r\nDataItems=" + QByteArray::number(pairs) +
                      "\r\nSample=1\r\n[DATA]\r\n";
    for (int i = 1; i <= pairs; ++i)
        text += "Data" + QByteArray::number(i) + "=0." + QByteArray::number(visualFrom + visualStep * i) + ",0." +
                QByteArray::number(audioFrom + audioStep * i) + "\r\n";
    return f.write(text) == text.size();
}

bool WriteClass(const QString &path)
{
    static const char *pairs[] = {"0.31,0.27", "0.42,0.35", "0.38,0.41", "0.29,0.25", "0.51,0.44",
                                  "0.36,0.33", "0.45,0.47", "0.33,0.29", "0.4,0.38",  "0.62,0.51",
                                  "0.35,0.31", "0.47,0.39", "0.3,0.28",  "0.39,0.36", "0.55,0.48",
                                  "0.34,0.3",  "0.43,0.4",  "0.37,0.32", "0.49,0.45", "0.41,0.34"};
    QFile f(path);
    if (!f.open(QIODevice::WriteOnly))
        return false;
    QByteArray text = "[RTDINFO]\r\nVanes=3\r\nAttempts=4\r\nDataItems=20\r\nSample=1\r\n[DATA]\r\n";
    for (int i = 0; i < 20; ++i)
        text += "Data" + QByteArray::number(i + 1) + "=" + pairs[i] + "\r\n";
    return f.write(text) == text.size();
}

// ---------------------------------------------------------------- display

Display &Display::instance(QSize screen)
{
    static std::unique_ptr<Display> display;
    if (!display && screen.isEmpty())
        screen = kDefaultScreen;
    if (!display || (!screen.isEmpty() && display->m_screen != screen)) {
        display.reset(); // the old server goes first: its programs are gone with their tests
        display.reset(new Display(screen));
    }
    return *display;
}

Display::Display(QSize screen) : m_screen(screen)
{
    // A display number nobody uses: no lock file and no socket.
    for (int n = 90 + static_cast<int>(QCoreApplication::applicationPid() % 40); n < 400; ++n) {
        if (QFileInfo::exists(QStringLiteral("/tmp/.X%1-lock").arg(n)) ||
            QFileInfo::exists(QStringLiteral("/tmp/.X11-unix/X%1").arg(n)))
            continue;
        m_name = QStringLiteral(":%1").arg(n);
        m_server.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_server.start(QStringLiteral("Xvfb"), {m_name, QStringLiteral("-screen"), QStringLiteral("0"),
                                                QStringLiteral("%1x%2x24").arg(screen.width()).arg(screen.height()), QStringLiteral("-nolisten"),
                                                QStringLiteral("tcp")});
        if (!m_server.waitForStarted(5000))
            return;
        QElapsedTimer clock;
        clock.start();
        while (clock.elapsed() < 8000 && m_server.state() == QProcess::Running) {
            m_display = XOpenDisplay(m_name.toLatin1().constData());
            if (m_display) {
                // Another test program may have taken the number a moment before: then ours
                // has quit, and the display we reached is not ours.
                Pause(300);
                if (m_server.state() == QProcess::Running)
                    return;
                XCloseDisplay(X(m_display));
                m_display = nullptr;
                break;
            }
            Pause(50);
        }
        m_server.kill();
        m_server.waitForFinished(2000);
    }
}

Display::~Display()
{
    if (m_display)
        XCloseDisplay(X(m_display));
    m_server.terminate();
    if (!m_server.waitForFinished(3000))
        m_server.kill();
}

// ---------------------------------------------------------------- sound server

SoundServer::SoundServer(const QString &folder)
{
    const QString socket = folder + QStringLiteral("/pulse.sock");
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("HOME"), folder);
    env.insert(QStringLiteral("XDG_RUNTIME_DIR"), folder);
    env.insert(QStringLiteral("XDG_CONFIG_HOME"), folder);
    m_server.setProcessEnvironment(env);
    m_server.setProcessChannelMode(QProcess::MergedChannels);
    m_server.start(QStringLiteral("pulseaudio"),
                   {QStringLiteral("-n"), QStringLiteral("--daemonize=no"), QStringLiteral("--exit-idle-time=-1"),
                    QStringLiteral("--use-pid-file=no"), QStringLiteral("--disallow-exit"),
                    QStringLiteral("-L"), QStringLiteral("module-null-sink sink_name=zrt rate=44100"),
                    QStringLiteral("-L"), QStringLiteral("module-native-protocol-unix auth-anonymous=1 socket=") + socket});
    if (!m_server.waitForStarted(5000))
        return;
    m_address = QStringLiteral("unix:") + socket;
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < 8000 && m_server.state() == QProcess::Running) {
        if (QFileInfo::exists(socket)) {
            m_ok = true;
            return;
        }
        Pause(50);
    }
}

SoundServer::~SoundServer()
{
    m_server.terminate();
    if (!m_server.waitForFinished(3000))
        m_server.kill();
}

int SoundServer::audibleMilliseconds(int lastMs)
{
    // Records the sink's monitor for the given time; counts the 10 ms pieces that are not silent.
    QProcess rec;
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("PULSE_SERVER"), m_address);
    rec.setProcessEnvironment(env);
    // Into a file: through a pipe the recorder holds its output back.
    const QString file = m_address.mid(5) + QStringLiteral(".rec");
    QFile::remove(file);
    rec.setStandardOutputFile(file);
    rec.start(QStringLiteral("parec"), {QStringLiteral("-d"), QStringLiteral("zrt.monitor"), QStringLiteral("--raw"),
                                        QStringLiteral("--format=s16le"), QStringLiteral("--rate=8000"),
                                        QStringLiteral("--channels=1"), QStringLiteral("--latency-msec=10")});
    if (!rec.waitForStarted(3000))
        return -1;
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < lastMs) {
        QCoreApplication::processEvents();
        Pause(10);
    }
    rec.terminate();
    if (!rec.waitForFinished(2000))
        rec.kill();
    QFile recorded(file);
    const QByteArray data = recorded.open(QIODevice::ReadOnly) ? recorded.readAll() : QByteArray();
    if (data.isEmpty())
        return -1; // nothing recorded at all: the test can't tell silence from a deaf recorder
    const auto *samples = reinterpret_cast<const qint16 *>(data.constData());
    const qsizetype n = data.size() / 2;
    int audible = 0;
    for (qsizetype start = 0; start + 80 <= n; start += 80) {
        int peak = 0;
        for (qsizetype i = start; i < start + 80; ++i)
            peak = std::max(peak, std::abs(int(samples[i])));
        if (peak > 300)
            audible += 10;
    }
    return audible;
}

// ---------------------------------------------------------------- program

Program::Program(const Options &options)
{
    m_scale = std::max(1, options.scale);
    QSize screenSize = options.screen;
    if (screenSize.isEmpty())
        screenSize = m_scale == 1 ? Display::kDefaultScreen : QSize(2600, 2100);
    Display &display = Display::instance(screenSize);
    if (!display.ok() || !m_home.isValid())
        return;
    QDir(m_home.path()).mkpath(QStringLiteral("Documents"));
    QDir(m_home.path()).mkpath(QStringLiteral("runtime"));
    if (!options.settingsBytes.isEmpty() || !options.settings.isEmpty() || !options.soundFiles.isEmpty()) {
        QFile ini(documents() + QStringLiteral("/Zorvanes.ini"));
        QByteArray bytes = options.settingsBytes.isEmpty() ? options.settings.toUtf8() : options.settingsBytes;
        if (!options.soundFiles.isEmpty()) {
            bytes += "[Settings]\r\n";
            for (int i = 0; i < options.soundFiles.size(); ++i)
                bytes += "SOUND" + QByteArray::number(i + 1) + "=" + options.soundFiles[i].toUtf8() + "\r\n";
        }
        if (ini.open(QIODevice::WriteOnly))
            ini.write(bytes);
    }
    if (options.settingsIsPipe)
        ::mkfifo(QFile::encodeName(documents() + QStringLiteral("/Zorvanes.ini")).constData(), 0600);
    QProcessEnvironment env = QProcessEnvironment::systemEnvironment();
    env.insert(QStringLiteral("DISPLAY"), display.name());
    env.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    env.insert(QStringLiteral("HOME"), m_home.path());
    env.insert(QStringLiteral("XDG_CONFIG_HOME"), m_home.path() + QStringLiteral("/.config"));
    env.insert(QStringLiteral("XDG_RUNTIME_DIR"), m_home.path() + QStringLiteral("/runtime"));
    env.insert(QStringLiteral("ZRT_PROBE"), QStringLiteral("1"));
    // The journeys read English captions and captures, whatever the machine's own language.
    env.insert(QStringLiteral("LC_ALL"), QStringLiteral("C.UTF-8"));
    env.insert(QStringLiteral("LANG"), QStringLiteral("C.UTF-8"));
    env.insert(QStringLiteral("ZRT_MANUAL_TIMERS"), options.manualTimers ? QStringLiteral("1") : QStringLiteral("0"));
    env.remove(QStringLiteral("QT_SCALE_FACTOR"));
    env.remove(QStringLiteral("QT_SCREEN_SCALE_FACTORS"));
    env.remove(QStringLiteral("QT_AUTO_SCREEN_SCALE_FACTOR"));
    if (m_scale != 1)
        env.insert(QStringLiteral("QT_SCALE_FACTOR"), QString::number(m_scale));
    if (options.sound) {
        m_sound = std::make_unique<SoundServer>(m_home.path() + QStringLiteral("/runtime"));
        if (m_sound->ok())
            env.insert(QStringLiteral("PULSE_SERVER"), m_sound->address());
    } else {
        // No sound server at all: the machine has no audio output.
        env.insert(QStringLiteral("PULSE_SERVER"), QStringLiteral("unix:/nonexistent/zrt-no-sound"));
    }
    m_process.setProcessEnvironment(env);
    m_process.setProgram(QStringLiteral(ZRT_PROGRAM_PATH));
    m_process.start();
    if (!m_process.waitForStarted(10000))
        return;
    waitForTheMainWindow();
    // Ready when the probe answers and the window is on the screen.
    m_started = waitUntil([this] { return control(QStringLiteral("MainFrm")).visible; }, 20000);
    settle(300);
}

// Watches the X server until the main window is mapped: the probe only answers once it exists.
// A box shown before it (a start-up message) is answered with Enter, as a pupil would.
void Program::waitForTheMainWindow()
{
    ::Display *d = X(Display::instance().xdisplay());
    QElapsedTimer clock;
    clock.start();
    QSet<unsigned long> answered;
    while (clock.elapsed() < 20000 && m_process.state() == QProcess::Running) {
        Window root = 0, parent = 0, *children = nullptr;
        unsigned int count = 0;
        XSync(d, False);
        if (XQueryTree(d, DefaultRootWindow(d), &root, &parent, &children, &count)) {
            for (unsigned int i = 0; i < count; ++i) {
                XWindowAttributes a;
                if (!XGetWindowAttributes(d, children[i], &a) || a.map_state != IsViewable || a.override_redirect ||
                    a.width < 60 || a.height < 40)
                    continue;
                if (m_firstWindowMs < 0)
                    m_firstWindowMs = clock.elapsed();
                if (a.width >= 780) {
                    XFree(children);
                    return;
                }
                if (!answered.contains(children[i])) {
                    answered.insert(children[i]);
                    ++m_startupBoxes;
                    moveTo(QPoint(a.x + a.width / 2, a.y + 6));
                    Pause(100);
                    const KeyCode code = XKeysymToKeycode(d, XK_Return);
                    XTestFakeKeyEvent(d, code, True, CurrentTime);
                    XTestFakeKeyEvent(d, code, False, CurrentTime);
                    XSync(d, False);
                }
            }
            if (children)
                XFree(children);
        }
        Pause(30);
    }
}

Program::~Program()
{
    if (m_process.state() == QProcess::Running) {
        m_process.kill();
        m_process.waitForFinished(3000);
    }
}

QString Program::ask(const QString &command, bool *ok)
{
    if (ok)
        *ok = false;
    if (m_process.state() != QProcess::Running)
        return {};
    m_process.write((command + QStringLiteral("\n")).toUtf8());
    m_process.waitForBytesWritten(1000);
    QElapsedTimer clock;
    clock.start();
    QByteArray buffer;
    while (clock.elapsed() < 8000) {
        if (!m_process.canReadLine())
            m_process.waitForReadyRead(50);
        while (m_process.canReadLine()) {
            const QString line = QString::fromUtf8(m_process.readLine()).trimmed();
            if (!line.startsWith(QLatin1String("probe: ")))
                continue;
            const QString reply = line.mid(7);
            if (reply.startsWith(QLatin1String("ok"))) {
                if (ok)
                    *ok = true;
                return reply.mid(3).replace(QLatin1String("\\n"), QLatin1String("\n"));
            }
            return {};
        }
        m_output += QString::fromUtf8(m_process.readAllStandardError());
        if (m_process.state() != QProcess::Running)
            break;
    }
    return {};
}

Control Program::control(const QString &name)
{
    bool ok = false;
    const QStringList parts = ask(QStringLiteral("geom ") + name, &ok).split(QLatin1Char(' '));
    Control c;
    if (!ok || parts.size() < 6)
        return c;
    c.found = true;
    c.rect = QRect(parts[0].toInt(), parts[1].toInt(), parts[2].toInt(), parts[3].toInt());
    c.visible = parts[4] == QLatin1String("1");
    c.enabled = parts[5] == QLatin1String("1");
    return c;
}

QString Program::text(const QString &name) { return ask(QStringLiteral("text ") + name); }

bool Program::fire(int timerId)
{
    bool ok = false;
    ask(QStringLiteral("fire %1").arg(timerId), &ok);
    return ok;
}

int Program::lines(const QString &list)
{
    const QString items = text(list);
    return items.isEmpty() ? 0 : static_cast<int>(items.split(QLatin1Char('|')).size());
}

QPoint Program::toolbarButton(const QString &key)
{
    const QStringList parts = ask(QStringLiteral("button ") + key).split(QLatin1Char(' '));
    return parts.size() < 4 ? QPoint()
                            : QRect(parts[0].toInt(), parts[1].toInt(), parts[2].toInt(), parts[3].toInt()).center();
}

QPoint Program::tab(const QString &strip, int index)
{
    const QStringList parts = ask(QStringLiteral("tab %1 %2").arg(strip).arg(index)).split(QLatin1Char(' '));
    return parts.size() < 2 ? QPoint() : QPoint(parts[0].toInt(), parts[1].toInt());
}

bool Program::modalShown() { return ask(QStringLiteral("modal")) != QLatin1String("none"); }

bool Program::openByKeys(const QString &path)
{
    click(toolbarButton(QStringLiteral("Open")));
    if (!waitUntil([this] { return modalShown(); }))
        return false;
    type(path); // the dialog starts in the program's folder: the whole path is typed
    key("Return");
    return waitUntil([this] { return !modalShown(); });
}

bool Program::armed(int timerId) { return ask(QStringLiteral("armed %1").arg(timerId)) == QLatin1String("1"); }

void Program::moveTo(QPoint at)
{
    ::Display *d = X(Display::instance().xdisplay());
    XTestFakeMotionEvent(d, -1, at.x(), at.y(), CurrentTime);
    XSync(d, False);
}

void Program::click(QPoint at, int button)
{
    ::Display *d = X(Display::instance().xdisplay());
    moveTo(at);
    Pause(30);
    XTestFakeButtonEvent(d, static_cast<unsigned>(button), True, CurrentTime);
    XSync(d, False);
    Pause(30);
    XTestFakeButtonEvent(d, static_cast<unsigned>(button), False, CurrentTime);
    XSync(d, False);
    settle();
}

void Program::click(const QString &controlName, int button) { click(control(controlName).centre(), button); }

// With no window manager the keyboard follows the pointer: keys for an open box go to it only
// while the pointer rests over it, as a pupil's hand would put it there.
void Program::pointAtModal()
{
    const QStringList modal = ask(QStringLiteral("modal")).split(QLatin1Char(' '));
    if (modal.size() < 4 || modal[0] == QLatin1String("none"))
        return;
    const QRect box(modal[0].toInt(), modal[1].toInt(), modal[2].toInt(), modal[3].toInt());
    const QPoint inside(box.left() + box.width() / 2, box.top() + 4);
    moveTo(inside);
    Pause(50);
}

void Program::key(const char *keysym)
{
    pointAtModal();
    ::Display *d = X(Display::instance().xdisplay());
    const KeySym sym = XStringToKeysym(keysym);
    const KeyCode code = XKeysymToKeycode(d, sym);
    if (code == 0)
        return;
    XTestFakeKeyEvent(d, code, True, CurrentTime);
    XSync(d, False);
    Pause(20);
    XTestFakeKeyEvent(d, code, False, CurrentTime);
    XSync(d, False);
    settle();
}

void Program::focusMainWindow()
{
    ::Display *d = X(Display::instance().xdisplay());
    const Window window = static_cast<Window>(ask(QStringLiteral("winid")).toULongLong());
    if (window == 0)
        return;
    XSetInputFocus(d, window, RevertToPointerRoot, CurrentTime);
    XSync(d, False);
    settle();
}

void Program::chord(const char *modifier, const char *keysym)
{
    pointAtModal();
    ::Display *d = X(Display::instance().xdisplay());
    const KeyCode held = XKeysymToKeycode(d, XStringToKeysym(modifier));
    const KeyCode code = XKeysymToKeycode(d, XStringToKeysym(keysym));
    if (held == 0 || code == 0)
        return;
    XTestFakeKeyEvent(d, held, True, CurrentTime);
    XTestFakeKeyEvent(d, code, True, CurrentTime);
    XSync(d, False);
    Pause(20);
    XTestFakeKeyEvent(d, code, False, CurrentTime);
    XTestFakeKeyEvent(d, held, False, CurrentTime);
    XSync(d, False);
    settle();
}

bool Program::tabTo(const QString &name, int most)
{
    for (int i = 0; i < most; ++i) {
        if (ask(QStringLiteral("focus")) == name)
            return true;
        key("Tab");
    }
    return ask(QStringLiteral("focus")) == name;
}

void Program::type(const QString &text)
{
    pointAtModal();
    ::Display *d = X(Display::instance().xdisplay());
    const KeyCode shift = XKeysymToKeycode(d, XK_Shift_L);
    for (const QChar ch : text) {
        const KeySym sym = ch == QLatin1Char('/') ? XK_slash : static_cast<KeySym>(ch.unicode());
        const KeyCode code = XKeysymToKeycode(d, sym);
        if (code == 0)
            continue;
        const bool shifted = XkbKeycodeToKeysym(d, code, 0, 0) != sym;
        if (shifted)
            XTestFakeKeyEvent(d, shift, True, CurrentTime);
        XTestFakeKeyEvent(d, code, True, CurrentTime);
        XTestFakeKeyEvent(d, code, False, CurrentTime);
        if (shifted)
            XTestFakeKeyEvent(d, shift, False, CurrentTime);
        XSync(d, False);
        Pause(5);
    }
    settle();
}

void Program::resizeWindow(int width, int height)
{
    bool ok = false;
    const QString id = ask(QStringLiteral("winid"), &ok);
    if (!ok)
        return;
    ::Display *d = X(Display::instance().xdisplay());
    XMoveResizeWindow(d, static_cast<Window>(id.toULongLong()), 0, 0, static_cast<unsigned>(width),
                      static_cast<unsigned>(height));
    XSync(d, False);
    settle(500);
}

QImage Program::screen()
{
    ::Display *d = X(Display::instance().xdisplay());
    XSync(d, False);
    const Window root = DefaultRootWindow(d);
    XWindowAttributes attributes;
    XGetWindowAttributes(d, root, &attributes);
    XImage *image = XGetImage(d, root, 0, 0, static_cast<unsigned>(attributes.width),
                              static_cast<unsigned>(attributes.height), AllPlanes, ZPixmap);
    if (!image)
        return {};
    QImage out(attributes.width, attributes.height, QImage::Format_RGB32);
    for (int y = 0; y < attributes.height; ++y) {
        auto *row = reinterpret_cast<QRgb *>(out.scanLine(y));
        if (image->bits_per_pixel == 32 && image->byte_order == LSBFirst) {
            const auto *src = reinterpret_cast<const quint32 *>(image->data + y * image->bytes_per_line);
            for (int x = 0; x < attributes.width; ++x)
                row[x] = 0xFF000000u | (src[x] & 0x00FFFFFFu);
        } else {
            for (int x = 0; x < attributes.width; ++x) {
                const unsigned long p = XGetPixel(image, x, y);
                row[x] = 0xFF000000u | static_cast<QRgb>(p & 0x00FFFFFFu);
            }
        }
    }
    XDestroyImage(image);
    return out;
}

QImage Program::shot(const QString &name)
{
    // The window, and any box it shows, as the screen has them.
    const QImage picture = screen();
    QRect area = control(QStringLiteral("MainFrm")).rect;
    const QStringList modal = ask(QStringLiteral("modal")).split(QLatin1Char(' '));
    if (modal.size() >= 4 && modal[0] != QLatin1String("none"))
        area |= QRect(modal[0].toInt(), modal[1].toInt(), modal[2].toInt(), modal[3].toInt()).adjusted(-12, -12, 12, 12);
    area &= picture.rect();
    picture.copy(area.isEmpty() ? picture.rect() : area).save(ShotFolder() + QStringLiteral("/") + name + QStringLiteral(".png"));
    return picture;
}

QImage Program::region(const QRect &rect) { return screen().copy(rect); }

bool Program::waitUntil(const std::function<bool()> &predicate, int timeoutMs)
{
    QElapsedTimer clock;
    clock.start();
    while (clock.elapsed() < timeoutMs) {
        if (predicate())
            return true;
        Pause(40);
    }
    return predicate();
}

void Program::settle(int ms)
{
    Pause(ms);
    ask(QStringLiteral("ping"));
}

} // namespace journey
