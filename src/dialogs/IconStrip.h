#pragma once
// The balloon's icons, drawn in code as one strip of square cells: stop, question, warning,
// information, tick and idea. Flags & 112 pick a cell: 16 the first, 96 the sixth.

#include <QPixmap>

namespace zrt::IconStrip {

inline constexpr int kCellSize = 32;
inline constexpr int kCells = 6;

// The whole strip, kCells cells of kCellSize x kCellSize on a transparent ground.
const QPixmap &Strip();

// The cell index 0..5 for the icon bits of a flags value, or -1 when they name no icon.
int CellForFlags(qint32 flags);

// One cell cut from a strip; each cell is as wide as the strip is high.
QPixmap Cell(const QPixmap &strip, int index);

} // namespace zrt::IconStrip
