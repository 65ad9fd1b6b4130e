#pragma once
// Small builders the pages share: labels, answer boxes, number boxes, chart surfaces, buttons
// and tab strips, each set up as every page shows it.

#include <QRect>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <functional>
#include <initializer_list>

class QLabel;
class QTextEdit;
class QWidget;
struct PageContext;
namespace zrt {
class GlossButton;
class PictureBox;
class ShapedTabs;
} // namespace zrt

namespace pages {

QLabel *NewLabel(QWidget *parent, const QString &text, const QRect &geometry, bool wrap = false);
// The white box a question button reveals its answer in.
QLabel *AnswerLabel(QWidget *parent, const QRect &geometry);
// The read-only box of the data under analysis.
QTextEdit *NumbersBox(QWidget *parent, const QRect &geometry);
// A white chart surface.
zrt::PictureBox *Surface(QWidget *parent);
// A button whose press runs `onClick` under the context's guard.
zrt::GlossButton *NewButton(const PageContext &context, QWidget *parent, const QString &caption,
                            const QRect &geometry, std::function<void()> onClick);

// The band under the stage of the Record page and the audio stage, in pixels: the list of times
// on the left, the run's Start, verdict and result buttons in the middle.
inline constexpr int kRunTop = 400;
inline constexpr int kVerdictTop = 432;
inline constexpr int kListLeft = 8;
inline constexpr int kListTop = 420;
inline constexpr int kListWidth = 130;
inline constexpr int kStartWidth = 110;
inline constexpr int kButtonHeight = 30;
inline constexpr int kGap = 8;

// Where the tab strip stands on an analysis page, and its height.
inline constexpr int kTabTop = 150;
inline constexpr int kTabHeight = 26;
// The page's tab strip: `captions` in order; a press selects the tab and runs `onClick`.
// A line of a run's list: "3)    0.3441872", the count, a bracket, four blanks and the time.
QString AttemptLine(int count, float seconds);
// The room under an analysis page's tab strip, where its tab frames stand.
QRect TabFrameRect(const QWidget *page);
// Shows the frame of the chosen tab and hides the others.
template <typename Frames>
void ShowTabFrame(const Frames &frames, int tab)
{
    for (size_t i = 0; i < frames.size(); ++i)
        frames[i]->setVisible(static_cast<int>(i) == tab);
}
zrt::ShapedTabs *NewTabs(const PageContext &context, QWidget *page, const QStringList &captions, bool darkDisabled,
                         std::function<void(int)> onClick);
// Tab goes through the controls in the order given, from the first one's place in the window's chain.
void TabOrder(std::initializer_list<QWidget *> order);

} // namespace pages

// The bytes of a compiled-in resource; empty when it is missing.
QByteArray ResourceBytes(const QString &path);

// A picture with words in it in the window's language: ":/images/x.png" becomes
// ":/images/x_de.png" in German where that picture exists.
QString PictureInLanguage(const QString &path);
// What the window stores for a character player: its picture, scaled down only, built after load.
QVariantMap CharacterProperties(const QByteArray &gif);

namespace pages {
// An explanation box beside a chart: the information icon on a pale rose ground.
void Explain(const QString &text, const QString &title, QWidget *owner, int formWidth = 0, short shadow = 0);
} // namespace pages
