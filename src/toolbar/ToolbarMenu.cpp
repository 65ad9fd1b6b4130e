#include "toolbar/ToolbarMenu.h"

#include <QActionGroup>

namespace zrt {

namespace {

struct SchemeTexts {
    const char *menu;
    const char *names[6];
};

constexpr SchemeTexts kEnglish = {"Colour scheme", {"Blue", "Silver", "Olive", "Classic", "Gold", "Follow the desktop"}};
constexpr SchemeTexts kGerman = {"Farbschema", {"Blau", "Silber", "Oliv", "Klassisch", "Gold", "Wie der Desktop"}};

const SchemeTexts &TextsOf(int language) { return language == ToolbarMenu::German ? kGerman : kEnglish; }

} // namespace

ToolbarMenu::ToolbarMenu(QWidget *parent) : QMenu(parent) {}

QString ToolbarMenu::SchemeMenuText(int language) { return QString::fromUtf8(TextsOf(language).menu); }

QString ToolbarMenu::SchemeName(int language, int themeColor)
{
    if (themeColor < 0 || themeColor > 5)
        return {};
    return QString::fromUtf8(TextsOf(language).names[themeColor]);
}

void ToolbarMenu::Rebuild(const QString &title, const std::array<QString, ItemCount> &items, int language,
                          bool showColor, int themeColor)
{
    clear();
    m_items.fill(nullptr);
    m_schemes.fill(nullptr);
    setTitle(title);
    if (!title.isEmpty())
        addSection(title);
    AddItems(items);
    AddClientGroup();
    if (showColor)
        AddSchemes(language, themeColor);
}

void ToolbarMenu::setGroupTitle(int n, const QString &title)
{
    if (n >= 1 && n <= ItemCount)
        m_groupTitles[static_cast<std::size_t>(n - 1)] = title;
}

void ToolbarMenu::AddItems(const std::array<QString, ItemCount> &items)
{
    for (int n = 1; n <= ItemCount; ++n) {
        const QString &text = items[static_cast<std::size_t>(n - 1)];
        if (text.isEmpty())
            continue;
        if (!m_groupTitles[static_cast<std::size_t>(n - 1)].isEmpty())
            addSection(m_groupTitles[static_cast<std::size_t>(n - 1)]);
        QAction *action = addAction(text);
        connect(action, &QAction::triggered, this, [this, n] { Q_EMIT ItemClicked(n); });
        m_items[static_cast<std::size_t>(n - 1)] = action;
    }
}

void ToolbarMenu::setClientGroup(const QString &title, const QList<QAction *> &actions)
{
    m_clientTitle = title;
    m_clientActions.clear();
    for (QAction *action : actions)
        m_clientActions.append(action);
}

void ToolbarMenu::AddClientGroup()
{
    bool headed = false;
    for (const QPointer<QAction> &action : m_clientActions) {
        if (!action)
            continue;
        if (!headed && !m_clientTitle.isEmpty())
            addSection(m_clientTitle);
        headed = true;
        addAction(action);
    }
}

void ToolbarMenu::AddSchemes(int language, int themeColor)
{
    if (!actions().isEmpty())
        addSeparator();
    QMenu *schemes = addMenu(SchemeMenuText(language));
    auto *group = new QActionGroup(schemes);
    for (int v = 0; v <= 5; ++v) {
        QAction *action = schemes->addAction(SchemeName(language, v));
        action->setCheckable(true);
        action->setChecked(v == themeColor);
        group->addAction(action);
        connect(action, &QAction::triggered, this, [this, v] { Q_EMIT ThemeChosen(v); });
        m_schemes[static_cast<std::size_t>(v)] = action;
    }
}

QAction *ToolbarMenu::ItemAction(int n) const
{
    if (n < 1 || n > ItemCount)
        return nullptr;
    return m_items[static_cast<std::size_t>(n - 1)];
}

QAction *ToolbarMenu::SchemeAction(int v) const
{
    if (v < 0 || v > 5)
        return nullptr;
    return m_schemes[static_cast<std::size_t>(v)];
}

} // namespace zrt
