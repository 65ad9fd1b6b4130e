#pragma once
// The system message box with the classic style values (buttons + icon), and a hook through
// which tests answer it and read what it said.

#include <QString>

#include <functional>

class QWidget;

enum MsgBoxStyle : int {
    vbOKOnly = 0,
    vbYesNo = 4,
    vbCritical = 16,
    vbQuestion = 32,
    vbExclamation = 48,
    vbInformation = 64,
};
enum MsgBoxResult : int { vbOK = 1, vbCancel = 2, vbYes = 6, vbNo = 7 };

int MsgBox(QWidget *owner, const QString &text, int style, const QString &caption);

// Replaces the real box: receives text, style and caption, returns the answer.
using MsgBoxHook = std::function<int(const QString &text, int style, const QString &caption)>;
void SetMsgBoxHook(MsgBoxHook hook);
