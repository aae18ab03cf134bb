#include "support_app/MainWindow.h"

#include "app/SystemSerlink.h"
#include "profiles/RegistryPaths.h"
#include "support/TemporaryRegistry.h"

#include <QAction>
#include <QApplication>
#include <QStackedWidget>
#include <QTest>

Registry& WithoutWizard(TemporaryRegistry& registry) {
    registry.Put(RegistryPaths::Settings, "StartupWizard", "1", RegistryRoot::CurrentUser);
    return registry;
}

MainWindow::MainWindow(Registry& registry, bool showLogLevel)
    : help_(CreateHelpViewer()),
      helpKey_(*qApp, *help_),
      controls_(registry),
      window_(std::make_unique<frmMain>(frmMain::Services{
          .registry = registry, .controls = controls_, .makeSerlink = SystemSerlink(), .help = *help_})) {
    window_->Form_Load(showLogLevel);
    window_->show();
    if (!QTest::qWaitForWindowExposed(window_.get()))
        throw std::runtime_error("the main window does not show itself");
}

void MainWindow::Menu(const QString& action) {
    auto* entry = window_->findChild<QAction*>(action);
    if (entry == nullptr || !entry->isEnabled())
        throw std::runtime_error(("no menu entry " + action).toStdString());
    entry->trigger();
}

int MainWindow::View() const {
    const auto* stack = window_->findChild<QStackedWidget*>("stkOption");
    for (int i = 0; i < stack->count(); ++i)
        if (stack->widget(i)->isVisibleTo(window_.get()))
            return i;
    return -1;
}
