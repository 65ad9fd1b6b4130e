#pragma once
// Small builders the pages share: labels, answer boxes, number boxes, chart surfaces, buttons
// and tab strips, each set up as every page shows it.

#include <QRect>
#include <QString>
#include <QStringList>
#include <QVariantMap>

#include <functional>

class QLabel;
class QTextEdit;
class QWidget;
struct PageContext;
namespace zrt {
class GlossButton;
class PictureBox;
class ShapedTabs;
} // namespace zrt

// Beside a result answered with the space bar.
inline constexpr const char *kSpaceBarNote = "(by space bar)";

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

// Where the tab strip stands on an analysis page, and its height.
inline constexpr int kTabTop = 150;
inline constexpr int kTabHeight = 26;
// The page's tab strip: `captions` in order; a press selects the tab and runs `onClick`.
zrt::ShapedTabs *NewTabs(const PageContext &context, QWidget *page, const QStringList &captions, bool darkDisabled,
                         std::function<void(int)> onClick);

} // namespace pages

// The bytes of a compiled-in resource; empty when it is missing.
QByteArray ResourceBytes(const QString &path);
// What the window stores for a character player: its picture, scaled down only, built after load.
QVariantMap CharacterProperties(const QByteArray &gif);

namespace pages {
// An explanation box beside a chart: the information icon on a pale rose ground.
void Explain(const QString &text, const QString &title, QWidget *owner, int formWidth = 0, short shadow = 0);
} // namespace pages
