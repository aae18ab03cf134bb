// Keeps the user's hands off every window of the program while something runs that must not be disturbed. Input that
// comes meanwhile is dropped, not kept for later; windows still repaint, and so can the window manager move them.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

// In force as long as the object lives. A modal window that opens meanwhile (a message box) takes input as usual.
class InputBlock : public QObject {
public:
    InputBlock();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QPointer<QWidget> modalBefore_;
};
