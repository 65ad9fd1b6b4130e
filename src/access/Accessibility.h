#pragma once
// Screen-reader support for the program's own controls. Qt answers for its standard widgets;
// this adds interfaces for the controls that paint themselves, so that each says its role,
// name, state and actions. Install once, after the QApplication exists.

class QAccessibleEvent;

namespace zrt {

void installAccessibility();

namespace access {
// How many interfaces the factory has made so far: none until something (a screen reader, a
// test) asks for one.
int InterfacesMade();

// The controls' state-change events go to Qt, which passes them on while a screen reader
// listens; an observer set here sees each of them as well (a test, a log). Returns the one
// it replaces; nullptr removes it.
using EventObserver = void (*)(QAccessibleEvent *event);
EventObserver SetEventObserver(EventObserver observer);
} // namespace access

} // namespace zrt
