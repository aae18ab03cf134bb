// What somebody does who is led through the windows of the program.
#pragma once

class QString;
class QWidget;

class WindowVisitor {
public:
    virtual ~WindowVisitor() = default;
    // The window is shown and in the state that the name tells ("new-profile-scale"); it must be left in that state.
    virtual void Visit(QWidget& window, const QString& name) = 0;
};
