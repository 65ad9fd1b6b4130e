#pragma once
// The numbers the controls' events carry for mouse buttons, modifier keys and keys, as their
// clients know them: left 1, right 2, middle 4; shift 1, control 2, alt 4; virtual-key codes.

#include <Qt>

class QKeyEvent;

namespace zrt {

int ButtonCode(Qt::MouseButton button);    // the one button of a press or release
int ButtonsCode(Qt::MouseButtons buttons); // every button held during a move
int ShiftCode(Qt::KeyboardModifiers modifiers);
// The virtual-key code of a key whose Qt code differs (editing, navigation, function keys);
// 0 for any other key. Letters, digits and the space bar keep their Qt codes.
int SpecialKeyCode(int qtKey);

} // namespace zrt
