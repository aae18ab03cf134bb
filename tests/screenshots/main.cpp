// ravlin_screenshots light|dark DIRECTORY
#include "Photographer.h"

#include "app/RavlinApplication.h"
#include "platform/opos/SimulatedScale.h"
#include "profiles/CAveryScale.h"
#include "profiles/CScale2.h"
#include "profiles/CScanner2.h"
#include "profiles/RegistryPaths.h"
#include "support/PseudoTerminal.h"
#include "support/TemporaryRegistry.h"
#include "support_app/MainWindow.h"

#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QStyleFactory>
#include <QTabWidget>
#include <QTest>

#include <cstdio>

namespace {

QPalette DarkPalette() {
    const QColor window(43, 43, 43);
    const QColor base(30, 30, 30);
    const QColor text(230, 230, 230);
    const QColor disabled(128, 128, 128);
    QPalette palette(window);
    palette.setColor(QPalette::Window, window);
    palette.setColor(QPalette::Base, base);
    palette.setColor(QPalette::AlternateBase, window);
    palette.setColor(QPalette::ToolTipBase, base);
    palette.setColor(QPalette::Button, QColor(60, 60, 60));
    palette.setColor(QPalette::Highlight, QColor(61, 124, 201));
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, QColor(110, 170, 240));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText,
                            QPalette::PlaceholderText}) {
        palette.setColor(role, text);
        palette.setColor(QPalette::Disabled, role, disabled);
    }
    return palette;
}

// A machine with a few profiles.
void FillStore(TemporaryRegistry& registry) {
    registry.Put(RegistryPaths::Settings, "StartupWizard", "1", RegistryRoot::CurrentUser);
    CScanner2 scanner(registry);
    scanner.DeviceName("Lane 1");
    scanner.Model("Pelerin/3172");
    scanner.SerialPort(1);
    scanner.SScaleType(1);
    scanner.SWeightUnit(1);
    scanner.SaveDevice(false);
    CScale2 scale(registry);
    scale.DeviceName("Lane 1");
    scale.SerialPort(1);
    scale.WeightUnit(1);
    scale.SaveDevice(false);
    CAveryScale avery(registry);
    avery.DeviceName("Delicatessen");
    avery.SerialPort(3);
    avery.SaveDevice(false);
}

class Session {
public:
    Session(MainWindow& window, const Photographer& photographer) : window_(window), photographer_(photographer) {}

    void TakeNewProfile() {
        window_->ShowView(0);
        photographer_.Take(*window_, "new-profile-start");
        window_.List("lstNewModelNumber").SetListIndex(1);
        window_.List("lstNewScale").SetListIndex(1);
        Control<QLineEdit>(*window_, "txtNewDeviceName").setText("Lane 2");
        photographer_.Take(*window_, "new-profile");
        window_.List("lstNewDeviceType").SetListIndex(1);
        photographer_.Take(*window_, "new-profile-scale");
        window_.List("lstNewDeviceType").SetListIndex(0);
    }

    void TakeSave() {
        photographer_.TakeModals({"configure-scale", "profile-created", "program-question"},
                                 [this] { Control<QPushButton>(*window_, "cmdNewSave").click(); });
    }

    void TakePages() {
        const std::array<const char*, 5> names = {"", "modify-profile", "simple-test", "detailed-test",
                                                  "device-information"};
        for (int view = 1; view < 5; ++view) {
            window_->ShowView(view);
            photographer_.Take(*window_, names.at(static_cast<std::size_t>(view)));
        }
    }

    // The test pages at work: labels and weights as they come from a single cable.
    void TakeTests(const PseudoTerminal& line) {
        window_->ShowView(2);
        window_.List("lstSimpleDeviceName_1").SetListIndex(window_.List("lstSimpleDeviceName_1").findText("Lane 1"));
        Press("cmdSimpleScannerBegin");
        Press("cmdSimpleScaleBegin");
        line.Send("]E05018374827715\r");
        WaitFor("lblSimpleScanData");
        WaitFor("lblSimpleScaleWeight");
        photographer_.Take(*window_, "simple-test-running");
        Press("cmdSimpleScannerEnd");
        Press("cmdSimpleScaleEnd");
        window_->ShowView(3);
        for (const char* button : {"cmdDetailedOpen", "cmdDetailedClaim", "cmdDetailedEnable", "chkDetailedDecodeData",
                                   "chkDetailedDataEventAlways"})
            Press(button);
        line.Send("]C0A label\x1D that is longer than one line of the page can show, up to its last character\r");
        WaitFor("lblDetailedScanData");
        photographer_.Take(*window_, "detailed-test-scanner");
        photographer_.TakeModals({"direct-io"}, [this] { Press("cmdDetailedDirectIO"); });
        photographer_.TakeModals({"retrieve-statistics"}, [this] { Press("cmdDetailedRetrieveStatistics"); });
        Press("cmdDetailedClose");
        window_.List("lstDetailedDeviceType").SetListIndex(1);
        window_.List("lstDetailedDeviceName_1")
            .SetListIndex(window_.List("lstDetailedDeviceName_1").findText("Lane 1"));
        for (const char* button :
             {"cmdDetailedOpen", "cmdDetailedClaim", "cmdDetailedEnable", "cmdDetailedScaleWeight"})
            Press(button);
        photographer_.Take(*window_, "detailed-test-scale");
        Press("cmdDetailedClose");
        window_->ShowView(4);
        window_.List("lstInfoDeviceType").SetListIndex(0);
        photographer_.Take(*window_, "device-information");
    }

    void TakeAbout() {
        photographer_.TakeModals({"about"}, [this] { window_.Menu("mnuHelpAbout"); });
    }

    void TakeWizard() {
        photographer_.TakeModals({"wizard"}, [this] { window_.Menu("mnuFileWizard"); });
    }

    void TakeMenus() {
        for (const char* name : {"mnuFile", "mnuTest", "mnuHelp"}) {
            auto& menu = Control<QMenu>(*window_, name);
            menu.popup({});
            photographer_.Take(menu, QString(name).replace("mnu", "menu-").toLower());
            menu.close();
        }
    }

    void TakeHelp() {
        window_.Menu("mnuHelpContents");
        QWidget& help = HelpWindow();
        photographer_.Take(help, "help-contents");
        QTest::keyClick(&window_.List("lstNewScale"), Qt::Key_F1);
        photographer_.Take(help, "help-topic");
        window_.Menu("mnuHelpIndex");
        Control<QLineEdit>(help, "txtIndexFilter").setText("port");
        photographer_.Take(help, "help-index");
        Control<QTabWidget>(help, "tabHelp").setCurrentIndex(2);
        Control<QLineEdit>(help, "txtSearch").setText("zero weight");
        QTest::keyClick(&Control<QLineEdit>(help, "txtSearch"), Qt::Key_Return);
        photographer_.Take(help, "help-search");
    }

private:
    static QWidget& HelpWindow() {
        for (QWidget* shown : QApplication::topLevelWidgets())
            if (shown->objectName() == "frmHelp")
                return *shown;
        throw std::runtime_error("the help does not show itself");
    }

    void Press(const char* button) { Control<QAbstractButton>(*window_, button).click(); }
    // Until the device has shown itself there.
    void WaitFor(const char* label) {
        if (!WaitUntil([&] { return !Control<QLabel>(*window_, label).text().isEmpty(); }))
            throw std::runtime_error(std::string("nothing comes to ") + label);
    }

    MainWindow& window_;
    const Photographer& photographer_;
};

} // namespace

int main(int argc, char** argv) {
    RavlinApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 3 || (arguments[1] != "light" && arguments[1] != "dark")) {
        std::fputs("usage: ravlin_screenshots light|dark DIRECTORY\n", stderr);
        return 2;
    }
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    if (arguments[1] == "dark")
        QApplication::setPalette(DarkPalette());
    try {
        TemporaryRegistry registry;
        const TemporaryPorts ports;
        const PseudoTerminal line(ports, 1);
        const SimulatedScale scale(
            line, [](char command) { return command == 'W' ? SimulatedScale::Frame("01.235") : std::string(); });
        FillStore(registry);
        registry.Put(RegistryPaths::DriverOptions, "ZeroWeightReject", "1");
        MainWindow window(registry, true);
        const Photographer photographer{QDir(arguments[2])};
        Session session(window, photographer);
        session.TakeNewProfile();
        session.TakeSave();
        session.TakePages();
        session.TakeTests(line);
        session.TakeAbout();
        session.TakeWizard();
        session.TakeMenus();
        session.TakeHelp();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "ravlin_screenshots: %s\n", error.what());
        return 1;
    }
    return 0;
}
