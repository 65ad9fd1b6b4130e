#pragma once
// Lets a control watch the events of a widget before and/or after the widget's own handling,
// with message numbers as the controls know them. A handled "before" message reaches neither the
// widget nor the "after" callback; the "after" callback sees the widget's result and may replace
// it. A client may stop watching from inside its own callback.

#include <QObject>
#include <QPointer>
#include <QString>

#include <functional>
#include <map>
#include <memory>
#include <vector>

class QEvent;
class QWidget;

namespace zrt {

namespace msg {
constexpr int ALL_MESSAGES = -1;
constexpr int WM_MOVE = 3;
constexpr int WM_SIZE = 5;
constexpr int WM_SETFOCUS = 7;
constexpr int WM_KILLFOCUS = 8;
constexpr int WM_PAINT = 15;
constexpr int WM_SHOWWINDOW = 24;
constexpr int WM_KEYDOWN = 256;
constexpr int WM_KEYUP = 257;
constexpr int WM_MOUSEMOVE = 512;
constexpr int WM_LBUTTONDOWN = 513;
constexpr int WM_LBUTTONUP = 514;
constexpr int WM_LBUTTONDBLCLK = 515;
constexpr int WM_RBUTTONDOWN = 516;
constexpr int WM_RBUTTONUP = 517;
constexpr int WM_RBUTTONDBLCLK = 518;
constexpr int WM_MBUTTONDOWN = 519;
constexpr int WM_MBUTTONUP = 520;
constexpr int WM_MBUTTONDBLCLK = 521;
constexpr int WM_MOUSEWHEEL = 522;
// The pointer arriving over the widget (Qt tells it directly, no tracking request needed).
constexpr int WM_MOUSEHOVER = 673;
constexpr int WM_MOUSELEAVE = 675;

// The message number of a Qt event, or 0 when the event has none.
int MessageOf(const QEvent *event);
} // namespace msg

enum class MsgWhen : int { Before = 1, After = 2, Both = 3 };

// One delivery to a client's callback.
struct Message {
    bool before = true;    // called before the widget's own handling
    bool handled = false;  // set in a "before" call to stop the message there
    long long result = 0;  // the return value; 1 when the widget accepted the event
    QWidget *window = nullptr;
    int message = 0;
    QEvent *event = nullptr; // what the original message parameters carried
};

class MessageEngine : public QObject {
public:
    // Checked: 32 messages per table, failures reported in a warning box titled
    // "Error in <type>.<routine>". Growing: tables without limit, failures silent.
    enum class Form { Checked, Growing };
    using Callback = std::function<void(Message &)>;
    using ErrorReporter = std::function<void(const QString &title, const QString &text)>;

    static constexpr int MSG_ENTRIES = 32;

    MessageEngine(QString typeName, Form form, Callback callback, QObject *parent = nullptr);
    ~MessageEngine() override;

    bool subclass(QWidget *window);
    void unsubclass(QWidget *window);
    void unsubclassAll();
    bool isSubclassed(const QWidget *window) const;

    void watch(QWidget *window, int message, MsgWhen when);
    void unwatch(QWidget *window, int message, MsgWhen when);

    // Table count as kept: -1 all messages, else number of places in use or freed.
    int tableCount(const QWidget *window, MsgWhen when) const;
    bool isWatched(const QWidget *window, int message, MsgWhen when) const;

    QString lastError() const { return m_lastError; }
    // Where failures of the checked form go; a warning message box unless replaced (tests).
    static void setErrorReporter(ErrorReporter reporter);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    struct Table {
        int count = 0;
        std::vector<int> entries; // 0 marks a freed place
        bool contains(int message) const;
    };
    struct Record {
        QPointer<QWidget> window;
        Table before;
        Table after;
        bool ended = false;
    };

    std::shared_ptr<Record> find(const QWidget *window) const;
    std::shared_ptr<Record> map(QWidget *window, const char *routine);
    void addMsg(int message, Table &table);
    void delMsg(int message, Table &table);
    void report(const char *routine, const QString &text);
    bool deliver(const std::shared_ptr<Record> &record, QObject *watched, QEvent *event, int message);

    QString m_typeName;
    Form m_form;
    Callback m_callback;
    bool m_started = false; // the collection exists once a window was subclassed
    std::map<const QWidget *, std::shared_ptr<Record>> m_records;
    QString m_lastError;
};

} // namespace zrt
