#include "programming/InputBlock.h"

#include <QApplication>
#include <QEvent>

namespace {

bool IsUserInput(const QEvent& event) {
    switch (event.type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::MouseMove:
    case QEvent::Wheel:
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::ShortcutOverride:
    case QEvent::Shortcut:
    case QEvent::InputMethod:
    case QEvent::ContextMenu:
    case QEvent::TouchBegin:
    case QEvent::TouchUpdate:
    case QEvent::TouchEnd:
    case QEvent::TabletPress:
    case QEvent::TabletMove:
    case QEvent::TabletRelease:
    case QEvent::NativeGesture:
    case QEvent::DragEnter:
    case QEvent::Drop:
    case QEvent::Close:
        return event.spontaneous() || event.type() == QEvent::Shortcut;
    default:
        return false;
    }
}

} // namespace

InputBlock::InputBlock() : modalBefore_(QApplication::activeModalWidget()) {
    qApp->installEventFilter(this);
}

bool InputBlock::eventFilter(QObject* /*watched*/, QEvent* event) {
    if (!IsUserInput(*event) || QApplication::activeModalWidget() != modalBefore_)
        return false;
    event->ignore(); // a refused Close leaves its window open
    return true;
}
