// The main window over a store, as the program builds it.
#pragma once

#include "app/frmMain.h"
#include "platform/help/HelpKey.h"
#include "platform/help/HelpViewer.h"
#include "support_opos/SystemControls.h"
#include "support_widgets/Controls.h"

#include <memory>

class Registry;
class TemporaryRegistry;

// The registry, told that the wizard shall not open at the start.
Registry& WithoutWizard(TemporaryRegistry& registry);

// Loaded and shown; the wizard does not open unless the store says so.
class MainWindow {
public:
    explicit MainWindow(Registry& registry, bool showLogLevel = false);

    frmMain* operator->() { return window_.get(); }
    frmMain& operator*() { return *window_; }

    DropDownList& List(const QString& name) { return Control<DropDownList>(*window_, name); }
    // Triggers a menu entry.
    void Menu(const QString& action);
    // The index of the view that is shown.
    [[nodiscard]] int View() const;
    // Ends the program's run, as Quit does.
    void Close() { window_->close(); }

private:
    std::unique_ptr<HelpViewer> help_;
    HelpKey helpKey_;
    SystemControls controls_;
    std::unique_ptr<frmMain> window_;
};
