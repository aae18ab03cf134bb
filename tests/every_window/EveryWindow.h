// Checks that hold in every window of the program, whatever it shows.
#pragma once

#include <QStringList>

#include <functional>
#include <string>

class QObject;
class QWidget;

// What is wrong with a window, each in a sentence that names the control.
using Findings = QStringList;
using WindowCheck = std::function<Findings(QWidget& window)>;

// Leads the check through every window. A line for each finding, once, behind the name of the state it was first seen
// in; empty where all is well.
[[nodiscard]] std::string FindingsOfEveryWindow(const WindowCheck& check);

// The names of the windows, as their forms name them, that the way through the program shows.
[[nodiscard]] QStringList WindowsOnTheWay();

// The name that tells where in the program a control stands: the control's own, or its class inside its nearest named
// owner.
[[nodiscard]] QString Place(const QObject& control);
