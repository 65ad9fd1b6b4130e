#pragma once
// What the table keeps in its items' data roles, and how a column's alignment number maps to Qt's;
// shared by the table's cell painting, row operations and properties.
#include <Qt>

namespace zrt {

constexpr int IconRole = Qt::UserRole + 1;    // icon index per column, -1 for none
constexpr int IndentRole = Qt::UserRole + 2;  // indent of the item, in image widths
constexpr int CheckedRole = Qt::UserRole + 3; // the check state, kept while no boxes show
constexpr int GhostedRole = Qt::UserRole + 4;

inline Qt::Alignment AlignmentOf(int alignment)
{
    switch (alignment & 3) {
    case 1: return Qt::AlignRight | Qt::AlignVCenter;
    case 2: return Qt::AlignHCenter | Qt::AlignVCenter;
    default: return Qt::AlignLeft | Qt::AlignVCenter;
    }
}

} // namespace zrt
