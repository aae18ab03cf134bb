// For systems without a help viewer.
#include "platform/help/HelpWindow.h"

std::unique_ptr<HelpViewer> CreateHelpViewer() {
    return CreateHelpWindow();
}
