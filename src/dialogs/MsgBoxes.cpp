#include "dialogs/MsgBoxes.h"

namespace zrt {

qint16 msg_Box(const MsgBoxArgs &args, QWidget *parent)
{
    msgFrm frm(parent);
    frm.PrepareMsgBox(args);
    frm.exec();
    return frm.FinishMsgBox();
}

qint16 msg_Box(const QString &Text, qint32 Flags, const QString &Title, QWidget *parent)
{
    MsgBoxArgs args;
    args.Text = Text;
    args.Flags = Flags;
    args.Title = Title;
    return msg_Box(args, parent);
}

qint16 MsgAuto_box(const AutoBoxArgs &args, QWidget *parent)
{
    msgFrm frm(parent);
    frm.PrepareAutoBox(args);
    frm.exec();
    return frm.Answer();
}

QString input_box(const InputBoxArgs &args, QWidget *parent)
{
    msgFrm frm(parent);
    frm.PrepareInputBox(args);
    frm.exec();
    return frm.InputResult();
}

QString File_Link(const FileLinkArgs &args, QWidget *parent)
{
    msgFrm frm(parent);
    frm.PrepareFileLink(args);
    frm.exec();
    return frm.FileLinkResult();
}

} // namespace zrt
