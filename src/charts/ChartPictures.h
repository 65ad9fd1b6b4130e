#pragma once
// Every chart out of the window as a picture: PNG at the surface's size or at twice it, SVG,
// or the clipboard. The PNG at the surface's size is the surface's own pixels; the larger PNG
// and the SVG are the chart's device calls painted again (PictureBox::Replay), so what they
// show is drawn by the same chart routine as the screen.
//
// ChartPictureMenu puts these on a context menu of the surface. The file name is asked through
// a hook (a save dialog unless a test replaces it); a file that can't be written ends the
// action with a message box that names the reason, and nothing else changes.

#include <QByteArray>
#include <QImage>
#include <QObject>
#include <QString>

#include <functional>

class QMenu;
class QWidget;

namespace zrt {

class PictureBox;

// scale 1: a copy of the surface's image; scale 2 or more: the drawing painted again that large.
QImage ChartImage(const PictureBox &box, int scale = 1);
// An SVG document of the surface's client size; title goes into its <title>.
QByteArray ChartSvg(const PictureBox &box, const QString &title = {});

// Each returns an empty string when the file was written, otherwise the reason. The file is
// replaced as a whole, so a failure leaves an old file as it was.
QString SaveChartPng(const PictureBox &box, const QString &path, int scale = 1);
QString SaveChartSvg(const PictureBox &box, const QString &path, const QString &title = {});
// The surface's pixels to the clipboard.
void CopyChart(const PictureBox &box);

class ChartPictureMenu : public QObject {
    Q_OBJECT

public:
    enum Action { SavePng, SavePngDouble, SaveSvg, Copy };

    // Gives the surface a context menu with the four actions; the menu object is a child of the
    // surface. title names the chart in file dialogs and in the SVG.
    static ChartPictureMenu *Attach(PictureBox *box, const QString &title);
    // The menu object of a surface, or null when it has none.
    static ChartPictureMenu *Of(const PictureBox *box);

    // Hooks, for tests: the file name asked for (an empty answer cancels) and the failure shown.
    using AskFileName = std::function<QString(QWidget *parent, const QString &caption, const QString &filter)>;
    using ShowFailure = std::function<void(QWidget *parent, const QString &title, const QString &text)>;
    static void SetAskFileName(AskFileName ask); // an empty function restores the dialog
    static void SetShowFailure(ShowFailure show); // an empty function restores the message box

    // A new menu with the four actions, owned by the caller.
    QMenu *BuildMenu(QWidget *parent = nullptr);
    // What each menu item does; also what a keyboard shortcut calls.
    void Run(Action action);

    const QString &Title() const { return m_title; }

Q_SIGNALS:
    void Saved(const QString &path);
    void Copied();
    void Failed(const QString &message);

private:
    ChartPictureMenu(PictureBox *box, const QString &title);
    PictureBox *m_box;
    QString m_title;
};

} // namespace zrt
