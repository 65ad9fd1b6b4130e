#pragma once
// The entries of the balloon dialog. Each builds one msgFrm, shows it modally and gives back
// what was pressed or typed; the window is gone again when the entry returns.

#include "dialogs/msgFrm.h"

namespace zrt {

// The number of the pressed button (OK 1, Cancel 2, Abort 3, Retry 4, Ignore 5, Yes 6, No 7),
// + 100 when the check box was ticked.
qint16 msg_Box(const MsgBoxArgs &args, QWidget *parent = nullptr);
qint16 msg_Box(const QString &Text, qint32 Flags = 0, const QString &Title = {}, QWidget *parent = nullptr);

// 1 when OK was pressed, 0 when the box closed by itself after its seconds.
qint16 MsgAuto_box(const AutoBoxArgs &args, QWidget *parent = nullptr);

// The text typed, or empty after Cancel.
QString input_box(const InputBoxArgs &args, QWidget *parent = nullptr);

// The file or address and the link's name joined by "¬", or empty after Cancel.
QString File_Link(const FileLinkArgs &args = {}, QWidget *parent = nullptr);

} // namespace zrt
