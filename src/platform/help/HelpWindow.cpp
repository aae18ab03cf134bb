#include "platform/help/HelpWindow.h"

#include "platform/help/frmHelp.h"

#include <QWindow>

namespace {

class HelpWindow : public HelpViewer {
public:
    void ShowContents(QWidget* owner) override { Show(owner).ShowContents(); }
    void ShowIndex(QWidget* owner) override { Show(owner).ShowIndex(); }
    void ShowTopic(const QString& topic, QWidget* owner) override { Show(owner).ShowTopic(topic); }
    void Close() override { window_.reset(); }

private:
    frmHelp& Show(QWidget* owner) {
        if (!window_)
            window_ = std::make_unique<frmHelp>();
        LiftAbove(owner);
        window_->show();
        window_->raise();
        window_->activateWindow();
        return *window_;
    }

    // A modal window blocks every other that does not belong to it; where one asks for help, the help belongs to it.
    void LiftAbove(QWidget* owner) {
        window_->winId();
        QWindow* above = owner != nullptr && owner->isModal() ? owner->window()->windowHandle() : nullptr;
        if (window_->windowHandle()->transientParent() == above || owner == window_.get())
            return;
        window_->hide();
        window_->windowHandle()->setTransientParent(above);
    }

    std::unique_ptr<frmHelp> window_;
};

} // namespace

std::unique_ptr<HelpViewer> CreateHelpWindow() {
    return std::make_unique<HelpWindow>();
}
