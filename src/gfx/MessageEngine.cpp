#include "gfx/MessageEngine.h"

#include <QEvent>
#include <QMessageBox>
#include <QMouseEvent>
#include <QThread>
#include <QWidget>
#include <QtDebug>

#include <algorithm>

namespace zrt {

namespace msg {

static int ButtonMessage(const QMouseEvent *mouse, int left, int right, int middle)
{
    switch (mouse->button()) {
    case Qt::LeftButton: return left;
    case Qt::RightButton: return right;
    case Qt::MiddleButton: return middle;
    default: return 0;
    }
}

int MessageOf(const QEvent *event)
{
    switch (event->type()) {
    case QEvent::Move: return WM_MOVE;
    case QEvent::Resize: return WM_SIZE;
    case QEvent::FocusIn: return WM_SETFOCUS;
    case QEvent::FocusOut: return WM_KILLFOCUS;
    case QEvent::Paint: return WM_PAINT;
    case QEvent::Show:
    case QEvent::Hide: return WM_SHOWWINDOW;
    case QEvent::KeyPress: return WM_KEYDOWN;
    case QEvent::KeyRelease: return WM_KEYUP;
    case QEvent::MouseMove: return WM_MOUSEMOVE;
    case QEvent::MouseButtonPress:
        return ButtonMessage(static_cast<const QMouseEvent *>(event), WM_LBUTTONDOWN, WM_RBUTTONDOWN,
                             WM_MBUTTONDOWN);
    case QEvent::MouseButtonRelease:
        return ButtonMessage(static_cast<const QMouseEvent *>(event), WM_LBUTTONUP, WM_RBUTTONUP,
                             WM_MBUTTONUP);
    case QEvent::MouseButtonDblClick:
        return ButtonMessage(static_cast<const QMouseEvent *>(event), WM_LBUTTONDBLCLK,
                             WM_RBUTTONDBLCLK, WM_MBUTTONDBLCLK);
    case QEvent::Wheel: return WM_MOUSEWHEEL;
    case QEvent::Enter: return WM_MOUSEHOVER;
    case QEvent::Leave: return WM_MOUSELEAVE;
    default: return 0;
    }
}

} // namespace msg

namespace {
MessageEngine::ErrorReporter &Reporter()
{
    static MessageEngine::ErrorReporter reporter = [](const QString &title, const QString &text) {
        QMessageBox::warning(nullptr, title, text);
    };
    return reporter;
}
} // namespace

bool MessageEngine::Table::contains(int message) const
{
    if (count < 0)
        return true;
    const auto used = std::min<std::size_t>(static_cast<std::size_t>(count), entries.size());
    return std::find(entries.begin(), entries.begin() + static_cast<long>(used), message) !=
           entries.begin() + static_cast<long>(used);
}

MessageEngine::MessageEngine(QString typeName, Form form, Callback callback, QObject *parent)
    : QObject(parent), m_typeName(std::move(typeName)), m_form(form), m_callback(std::move(callback))
{
}

MessageEngine::~MessageEngine()
{
    for (auto &[window, record] : m_records) {
        record->ended = true;
        if (record->window)
            record->window->removeEventFilter(this);
    }
    m_records.clear();
}

void MessageEngine::setErrorReporter(ErrorReporter reporter)
{
    Reporter() = reporter ? std::move(reporter) : [](const QString &title, const QString &text) {
        QMessageBox::warning(nullptr, title, text);
    };
}

void MessageEngine::report(const char *routine, const QString &text)
{
    m_lastError = text;
    if (m_form != Form::Checked)
        return;
    qWarning().noquote() << m_typeName + "." + routine + ": " + text;
    Reporter()("Error in " + m_typeName + "." + routine, text + ".");
}

bool MessageEngine::subclass(QWidget *window)
{
    if (!window) {
        report("sc_Subclass", "Invalid window handle");
        return false;
    }
    if (window->thread() != QThread::currentThread()) {
        report("sc_Subclass", "Window handle belongs to another process");
        return false;
    }
    m_started = true;
    if (find(window))
        return true;
    auto record = std::make_shared<Record>();
    record->window = window;
    m_records[window] = record;
    window->installEventFilter(this);
    connect(window, &QObject::destroyed, this, [this, window] { m_records.erase(window); });
    return true;
}

void MessageEngine::unsubclass(QWidget *window)
{
    auto record = find(window);
    if (!record) {
        report("sc_UnSubclass", "Window handle isn't subclassed");
        return;
    }
    // The record itself lives on while a delivery still holds it, so ending from
    // inside a callback is safe.
    record->ended = true;
    record->before = Table{};
    record->after = Table{};
    if (record->window) {
        record->window->removeEventFilter(this);
        disconnect(record->window, &QObject::destroyed, this, nullptr);
    }
    m_records.erase(window);
}

void MessageEngine::unsubclassAll()
{
    std::vector<QWidget *> windows;
    for (auto &[window, record] : m_records)
        windows.push_back(record->window);
    for (auto it = windows.rbegin(); it != windows.rend(); ++it)
        if (*it)
            unsubclass(*it);
    m_records.clear();
}

bool MessageEngine::isSubclassed(const QWidget *window) const { return find(window) != nullptr; }

std::shared_ptr<MessageEngine::Record> MessageEngine::find(const QWidget *window) const
{
    auto it = m_records.find(window);
    return it == m_records.end() ? nullptr : it->second;
}

std::shared_ptr<MessageEngine::Record> MessageEngine::map(QWidget *window, const char *)
{
    if (!m_started) {
        report("zMap_hWnd", "Subclassing hasn't been started");
        return nullptr;
    }
    auto record = find(window);
    if (!record)
        report("zMap_hWnd", "Window handle isn't subclassed");
    return record;
}

void MessageEngine::watch(QWidget *window, int message, MsgWhen when)
{
    auto record = map(window, "sc_WatchMsg");
    if (!record)
        return;
    if (static_cast<int>(when) & static_cast<int>(MsgWhen::Before))
        addMsg(message, record->before);
    if (static_cast<int>(when) & static_cast<int>(MsgWhen::After))
        addMsg(message, record->after);
    // Moves without a pressed button reach a widget only when it tracks the mouse.
    if (message == msg::WM_MOUSEMOVE || message == msg::ALL_MESSAGES)
        window->setMouseTracking(true);
}

void MessageEngine::unwatch(QWidget *window, int message, MsgWhen when)
{
    auto record = map(window, "sc_UnwatchMsg");
    if (!record)
        return;
    if (static_cast<int>(when) & static_cast<int>(MsgWhen::Before))
        delMsg(message, record->before);
    if (static_cast<int>(when) & static_cast<int>(MsgWhen::After))
        delMsg(message, record->after);
}

void MessageEngine::addMsg(int message, Table &table)
{
    if (message == msg::ALL_MESSAGES) {
        table.count = -1;
        table.entries.clear();
        return;
    }
    if (m_form == Form::Checked && table.count >= MSG_ENTRIES) {
        report("zAddMsg", "Message table overflow. Either increase the value of Const MSG_ENTRIES "
                          "or use ALL_MESSAGES instead of specific message values");
        return;
    }
    if (table.count < 1) {
        // Adding one message after "all messages" narrows the table to that message.
        table.count = 1;
        table.entries.assign(1, message);
        return;
    }
    const auto used = table.entries.begin() + table.count;
    if (std::find(table.entries.begin(), used, message) != used)
        return;
    auto freePlace = std::find(table.entries.begin(), used, 0);
    if (freePlace != used) {
        *freePlace = message;
        return;
    }
    table.entries.push_back(message);
    ++table.count;
}

void MessageEngine::delMsg(int message, Table &table)
{
    if (message == msg::ALL_MESSAGES) {
        table.count = 0;
        table.entries.clear();
        return;
    }
    if (table.count > 0) {
        const auto used = table.entries.begin() + table.count;
        auto it = std::find(table.entries.begin(), used, message);
        if (it != used) {
            *it = 0;
            return;
        }
    }
    report("zDelMsg", "Message &H" + QString::number(static_cast<unsigned>(message), 16).toUpper() +
                          " not found in table");
}

int MessageEngine::tableCount(const QWidget *window, MsgWhen when) const
{
    auto record = find(window);
    if (!record)
        return 0;
    return when == MsgWhen::After ? record->after.count : record->before.count;
}

bool MessageEngine::isWatched(const QWidget *window, int message, MsgWhen when) const
{
    auto record = find(window);
    if (!record)
        return false;
    return when == MsgWhen::After ? record->after.contains(message) : record->before.contains(message);
}

bool MessageEngine::eventFilter(QObject *watched, QEvent *event)
{
    auto *widget = qobject_cast<QWidget *>(watched);
    if (!widget)
        return false;
    auto record = find(widget);
    if (!record)
        return false;
    const int message = msg::MessageOf(event);
    if (message == 0)
        return false;
    return deliver(record, watched, event, message);
}

bool MessageEngine::deliver(const std::shared_ptr<Record> &record, QObject *watched, QEvent *event,
                            int message)
{
    const bool wantsBefore = record->before.count != 0 && record->before.contains(message);
    const bool wantsAfter = record->after.count != 0 && record->after.contains(message);
    if (!wantsBefore && !wantsAfter)
        return false;
    if (wantsBefore) {
        Message call{true, false, 0, record->window, message, event};
        m_callback(call);
        if (call.handled) {
            event->setAccepted(call.result != 0);
            return true;
        }
        if (record->ended || !wantsAfter || !record->after.contains(message))
            return false;
    }
    // Run the widget's own handling now so the client hears of the message after it.
    const bool accepted = watched->event(event);
    if (record->ended)
        return true;
    Message call{false, false, accepted && event->isAccepted() ? 1 : 0, record->window, message, event};
    m_callback(call);
    event->setAccepted(call.result != 0);
    return true;
}

} // namespace zrt
