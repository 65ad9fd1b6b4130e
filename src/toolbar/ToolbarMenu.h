#pragma once
// The toolbar's own menu: a title, up to six items of the client's, and, when asked for, the
// colour schemes in the menu's language.

#include <QList>
#include <QMenu>
#include <QPointer>
#include <QString>

#include <array>

namespace zrt {

class ToolbarMenu : public QMenu {
    Q_OBJECT
public:
    static constexpr int ItemCount = 6;
    enum Language { English = 0, German = 1 };

    explicit ToolbarMenu(QWidget *parent = nullptr);

    // Builds the menu anew: the title, the non-empty items, then the schemes with the current
    // one checked when showColor is on.
    // A heading shown above item n, starting a group of its own; an empty title removes it.
    void setGroupTitle(int n, const QString &title);
    void Rebuild(const QString &title, const std::array<QString, ItemCount> &items, int language,
                 bool showColor, int themeColor);
    // A group of the client's own actions after the items, under its heading; the client keeps
    // the actions (checkable ones show their check). No actions remove the group.
    void setClientGroup(const QString &title, const QList<QAction *> &actions);

    // The action of item n (1..6), or none when that item has no text.
    QAction *ItemAction(int n) const;
    // The action that chooses ThemeColor value v (0..5), or none when schemes are not shown.
    QAction *SchemeAction(int v) const;

    // The texts of the scheme part in a language (unknown languages read as English).
    static QString SchemeMenuText(int language);
    static QString SchemeName(int language, int themeColor);

Q_SIGNALS:
    void ItemClicked(int item);
    void ThemeChosen(int themeColor);

private:
    void AddItems(const std::array<QString, ItemCount> &items);
    void AddSchemes(int language, int themeColor);
    void AddClientGroup();

    std::array<QAction *, ItemCount> m_items{};
    std::array<QString, ItemCount> m_groupTitles{};
    std::array<QAction *, 6> m_schemes{};
    QString m_clientTitle;
    QList<QPointer<QAction>> m_clientActions;
};

} // namespace zrt
