#include "access/Accessibility.h"

#include "access/BalloonAccess.h"
#include "access/CheckAccess.h"
#include "access/DropPanelAccess.h"
#include "access/GifPlayerAccess.h"
#include "access/GlossButtonAccess.h"
#include "access/PictureBoxAccess.h"
#include "access/RowListAccess.h"
#include "access/ShapedTabsAccess.h"
#include "access/TableViewAccess.h"
#include "access/ToolbarAccess.h"
#include "anim/ucGifPlayer.h"
#include "charts/PictureBox.h"
#include "controls/Check.h"
#include "controls/DropPanel.h"
#include "controls/GlossButton.h"
#include "controls/RowList.h"
#include "controls/ShapedTabs.h"
#include "controls/ucTableView.h"
#include "dialogs/msgFrm.h"
#include "toolbar/ThemedToolbar.h"

#include <QAccessible>
#include <QTreeWidget>

#include <atomic>

namespace zrt {

namespace {

std::atomic<int> g_made{0};

QAccessibleInterface *Make(QWidget *w)
{
    if (auto *b = qobject_cast<GlossButton *>(w))
        return new access::GlossButtonAccess(b);
    if (auto *c = qobject_cast<Check *>(w))
        return new access::CheckAccess(c);
    if (auto *l = qobject_cast<RowList *>(w))
        return new access::RowListAccess(l);
    if (auto *t = qobject_cast<ucTableView *>(w))
        return new access::TableViewAccess(t, t);
    if (auto *tree = qobject_cast<QTreeWidget *>(w))
        if (auto *t = qobject_cast<ucTableView *>(tree->parentWidget()); t && t->List() == tree)
            return new access::TableViewAccess(tree, t);
    if (auto *t = qobject_cast<ShapedTabs *>(w))
        return new access::ShapedTabsAccess(t);
    if (auto *p = qobject_cast<DropPanel *>(w))
        return new access::DropPanelAccess(p);
    if (auto *b = qobject_cast<ThemedToolbar *>(w))
        return new access::ToolbarAccess(b);
    if (auto *p = qobject_cast<ucGifPlayer *>(w))
        return new access::GifPlayerAccess(p);
    if (auto *p = qobject_cast<PictureBox *>(w))
        return new access::PictureBoxAccess(p);
    if (auto *m = qobject_cast<msgFrm *>(w))
        return new access::BalloonAccess(m);
    return nullptr;
}

QAccessibleInterface *Factory(const QString &className, QObject *object)
{
    // Qt asks once per class of the object's ancestry, the object's own class first; answering
    // only that first question keeps the rest of the walk to a string compare.
    if (!object || !object->isWidgetType() || className != QLatin1String(object->metaObject()->className()))
        return nullptr;
    QAccessibleInterface *made = Make(static_cast<QWidget *>(object));
    if (made)
        ++g_made;
    return made;
}

} // namespace

void installAccessibility()
{
    static bool installed = false;
    if (installed)
        return;
    installed = true;
    QAccessible::installFactory(Factory);
}

int access::InterfacesMade() { return g_made.load(); }

} // namespace zrt
