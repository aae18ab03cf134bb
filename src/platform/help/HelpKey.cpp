#include "platform/help/HelpKey.h"

#include "platform/help/HelpViewer.h"
#include "widgets/MessageBox.h"

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QKeyEvent>
#include <QMenu>

namespace {

bool TakesQuestionMark(const QWidget& window) {
    const auto* dialog = qobject_cast<const QDialog*>(&window);
    return dialog != nullptr && !IsMessageBox(window) && !dialog->windowFlags().testFlag(Qt::CustomizeWindowHint) &&
           !dialog->testAttribute(Qt::WA_WState_Created);
}

// The window a control stands in, not the list it has dropped down.
QWidget* WindowOf(const QWidget& control) {
    QWidget* window = control.window();
    while (window->windowType() == Qt::Popup && window->parentWidget() != nullptr)
        window = window->parentWidget()->window();
    return window;
}

} // namespace

HelpKey::HelpKey(QApplication& application, HelpViewer& viewer) : viewer_(viewer) {
    application.installEventFilter(this);
}

bool HelpKey::eventFilter(QObject* watched, QEvent* event) {
    if (!watched->isWidgetType())
        return false;
    auto& control = static_cast<QWidget&>(*watched);
    if (event->type() == QEvent::Polish || event->type() == QEvent::Show) {
        Explain(control);
    } else if (event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<const QKeyEvent*>(event);
        if (key->key() == Qt::Key_F1 && key->modifiers() == Qt::NoModifier) {
            ShowTopicOf(control);
            return true;
        }
    }
    return false;
}

void HelpKey::ShowTopicOf(QWidget& control) {
    const QObject* asked = &control;
    if (const auto* menu = qobject_cast<const QMenu*>(&control); menu != nullptr && menu->activeAction() != nullptr)
        asked = menu->activeAction();
    const QString topic = help_.TopicOf(asked);
    while (QWidget* popup = QApplication::activePopupWidget())
        popup->close(); // it would keep the keyboard
    viewer_.ShowTopic(topic, WindowOf(control));
}

// Before the control is shown for the first time; one that was polished before it got into its window, once it shows.
void HelpKey::Explain(QWidget& control) const {
    if (control.whatsThis().isEmpty())
        control.setWhatsThis(help_.WhatsThis(control));
    if (const auto* menu = qobject_cast<const QMenu*>(&control))
        for (QAction* action : menu->actions())
            action->setWhatsThis(help_.WhatsThis(*action));
    if (TakesQuestionMark(control))
        control.overrideWindowFlags(control.windowFlags() | Qt::WindowContextHelpButtonHint);
}
