// Finding and working the controls of a window by the names and in the way that its users do.
#pragma once

#include "widgets/DropDownList.h"

#include <QString>
#include <QWidget>

#include <functional>
#include <stdexcept>

// The names of all controls under window, for failure messages.
[[nodiscard]] QString ControlNames(const QWidget& window);

// The control of that name under window (or window itself). Fails with the names there are where it is missing.
template<typename T>
T& Control(QWidget& window, const QString& name) {
    if (window.objectName() == name)
        if (auto* self = qobject_cast<T*>(&window))
            return *self;
    if (auto* found = window.findChild<T*>(name))
        return *found;
    throw std::runtime_error(("no control " + name + " of that kind; there are " + ControlNames(window)).toStdString());
}

// The control's state as its user sees it, also where its page or window is not shown.
[[nodiscard]] bool IsShown(const QWidget& control);

// Chooses an item of the list by hand: opens it, moves to the item and presses Enter.
void Choose(DropDownList& list, int index);
void Choose(DropDownList& list, const QString& text);

// Presses a button with the mouse.
void Click(QWidget& button);

// The texts of all items.
[[nodiscard]] QStringList Items(const DropDownList& list);

// Waits until the condition holds, at most ten seconds; false if it never did.
bool WaitUntil(const std::function<bool()>& condition);
