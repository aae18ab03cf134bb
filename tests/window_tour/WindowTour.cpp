#include "window_tour/WindowTour.h"

#include "lane/window/frmLane.h"
#include "profiles/CAveryScale.h"
#include "profiles/CScale2.h"
#include "profiles/CScanner2.h"
#include "profiles/RegistryPaths.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QTimer>

#include <filesystem>
#include <stdexcept>

namespace {

constexpr int LookForModalMs = 20;
constexpr const char* Label = "]E05018374827715";

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

// A directory that programs take as their runtime directory.
std::string MakeDirectory(const std::filesystem::path& path) {
    std::filesystem::create_directory(path);
    std::filesystem::permissions(path, std::filesystem::perms::owner_all);
    return path.string();
}

QWidget& ShownWindow(const QString& name) {
    for (QWidget* shown : QApplication::topLevelWidgets())
        if (shown->objectName() == name && shown->isVisible())
            return *shown;
    throw std::runtime_error((name + " does not show itself").toStdString());
}

} // namespace

WindowTour::WindowTour(WindowVisitor& visitor)
    : visitor_(visitor),
      runtime_("XDG_RUNTIME_DIR", MakeDirectory(places_.Path() / "run")),
      state_("XDG_STATE_HOME", MakeDirectory(places_.Path() / "state")),
      options_{.directory = ports_.Directory()},
      lane_(options_, [this](const std::string& event) { emit events_.Happened(event.c_str()); }) {
    FillStore(registry_);
    for (const char* command :
         {"scanner 1 16", "scale 1", "weight 1 1.235 kg", "scanner 2 6", "scanner 3 3", "scale 5"})
        Lane(command);
    window_.emplace(registry_, true);
}

WindowTour::~WindowTour() = default;

void WindowTour::GoThrough() {
    ShowNewProfile();
    ShowPages();
    ShowProgramming();
    ShowTests();
    ShowDialogs();
    ShowMenusAndHelp();
    ShowWizard();
    ShowLane();
}

void WindowTour::Show(QWidget& window, const QString& name) {
    QCoreApplication::processEvents();
    visitor_.Visit(window, name);
}

void WindowTour::ShowModals(const QStringList& names, const std::function<void()>& work,
                            const std::function<void(QWidget&)>& prepare) {
    QStringList left = names;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        QWidget* modal = QApplication::activeModalWidget();
        if (modal == nullptr)
            return;
        timer.stop(); // a visit may take its time
        if (prepare)
            prepare(*modal);
        if (!left.isEmpty())
            Show(*modal, left.takeFirst());
        modal->close();
        timer.start();
    });
    timer.setInterval(LookForModalMs);
    timer.start();
    work();
    if (!left.isEmpty())
        throw std::runtime_error(("no modal window for " + left.first()).toStdString());
}

void WindowTour::Lane(const std::string& command) {
    const std::string answer = lane_.Execute(command);
    if (!answer.starts_with("ok"))
        throw std::runtime_error(command + ": " + answer);
}

void WindowTour::Press(const QString& button) {
    Click(Control<QPushButton>(**window_, button));
}

void WindowTour::AwaitText(QWidget& window, const QString& label) {
    auto& control = Control<QLabel>(window, label);
    if (!WaitUntil([&control] { return !control.text().isEmpty(); }))
        throw std::runtime_error((label + " stays empty").toStdString());
}

void WindowTour::ShowNewProfile() {
    frmMain& main = **window_;
    main.ShowView(0);
    Show(main, "new-profile-start");
    window_->List("lstNewModelNumber").SetListIndex(1);
    window_->List("lstNewScale").SetListIndex(1);
    Control<QLineEdit>(main, "txtNewDeviceName").setText("Lane 2");
    Show(main, "new-profile");
    window_->List("lstNewDeviceType").SetListIndex(1);
    Show(main, "new-profile-scale");
    window_->List("lstNewDeviceType").SetListIndex(0);
    ShowModals({"configure-scale", "profile-created", "program-question"}, [this] { Press("cmdNewSave"); });
}

void WindowTour::ShowProgramming() {
    (*window_)->ShowView(1);
    Lane("pace on");
    QTimer timer;
    bool shown = false;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        QWidget& session = ShownWindow("frmProgram");
        if (shown || !Control<QLabel>(session, "lblStep").text().startsWith("Reading") ||
            Control<QLabel>(session, "lblBytes").text().isEmpty())
            return;
        shown = true;
        Show(session, "programming");
    });
    timer.start(200);
    Press("cmdExistingProgram");
    timer.stop();
    Lane("pace off");
    Show(ShownWindow("frmProgram"), "programming-success");
    Press("cmdClose");
    Lane("refuse 1");
    WaitUntil([] { return QApplication::activeModalWidget() == nullptr; });
    Press("cmdExistingProgram");
    Show(ShownWindow("frmProgram"), "programming-failure");
    Press("cmdClose");
    if (!shown)
        throw std::runtime_error("the session was over before it was shown");
}

void WindowTour::ShowPages() {
    const std::array<const char*, 5> names = {"", "modify-profile", "simple-test", "detailed-test",
                                              "device-information"};
    for (const int view : {1, 4}) {
        (*window_)->ShowView(view);
        Show(**window_, names.at(static_cast<std::size_t>(view)));
    }
    window_->List("lstExistingDeviceType").SetListIndex(1);
    (*window_)->ShowView(1);
    Show(**window_, "modify-profile-scale");
    window_->List("lstExistingDeviceType").SetListIndex(0);
}

void WindowTour::ShowTests() {
    frmMain& main = **window_;
    main.ShowView(2);
    window_->List("lstSimpleDeviceName_1").SetListIndex(window_->List("lstSimpleDeviceName_1").FindPrefix("Lane 1"));
    Press("cmdSimpleScannerBegin");
    Press("cmdSimpleScaleBegin");
    Lane(std::string("scan 1 ") + Label);
    AwaitText(main, "lblSimpleScanData");
    AwaitText(main, "lblSimpleScaleWeight");
    Show(main, "simple-test");
    Press("cmdSimpleScannerEnd");
    Press("cmdSimpleScaleEnd");

    main.ShowView(3);
    for (const char* button : {"cmdDetailedOpen", "cmdDetailedClaim", "cmdDetailedEnable"})
        Press(button);
    Control<QCheckBox>(main, "chkDetailedDecodeData").click();
    Control<QCheckBox>(main, "chkDetailedDataEventAlways").click();
    Lane(std::string("scan 1 ") + Label);
    AwaitText(main, "lblDetailedScanDataLabel");
    Show(main, "detailed-test");
    ShowModals({"direct-io"}, [this] { Press("cmdDetailedDirectIO"); });
    ShowModals(
        {"statistics"}, [this] { Press("cmdDetailedRetrieveStatistics"); },
        [](QWidget& dialog) { Click(Control<QPushButton>(dialog, "cmdRetrieveStatistics")); });
    Press("cmdDetailedClose");
    window_->List("lstDetailedDeviceType").SetListIndex(1);
    Show(main, "detailed-test-scale");
}

void WindowTour::ShowDialogs() {
    ShowModals({"about"}, [this] { window_->Menu("mnuHelpAbout"); });
    window_->Menu("mnuGlobalConfig");
    QWidget& configuration = ShownWindow("frmGlobalConfig");
    Show(configuration, "global-configuration");
    configuration.close();
}

void WindowTour::ShowMenusAndHelp() {
    for (const char* name : {"mnuFile", "mnuTest", "mnuHelp"}) {
        auto& menu = Control<QMenu>(**window_, name);
        menu.popup({});
        Show(menu, QString(name).replace("mnu", "menu-").toLower());
        menu.close();
    }
    window_->Menu("mnuHelpContents");
    QWidget& help = ShownWindow("frmHelp");
    Show(help, "help-contents");
    QTest::keyClick(&window_->List("lstNewScale"), Qt::Key_F1);
    Show(help, "help-topic");
    window_->Menu("mnuHelpIndex");
    Control<QLineEdit>(help, "txtIndexFilter").setText("port");
    Show(help, "help-index");
    Control<QTabWidget>(help, "tabHelp").setCurrentIndex(2);
    Control<QLineEdit>(help, "txtSearch").setText("zero weight");
    QTest::keyClick(&Control<QLineEdit>(help, "txtSearch"), Qt::Key_Return);
    Show(help, "help-search");
    help.close();
}

void WindowTour::WorkWizard(QWidget& wizard) {
    const auto next = [&wizard] { Click(Control<QPushButton>(wizard, "cmdNext")); };
    Show(wizard, "wizard-welcome");
    next();
    auto& models = Control<DropDownList>(wizard, "lstModelNumber");
    models.SetListIndex(models.FindPrefix("Pelerin/3172"));
    Show(wizard, "wizard-select-scanner");
    next();
    Control<DropDownList>(wizard, "lstScaleType").SetListIndex(1);
    Show(wizard, "wizard-scale-type");
    next();
    Control<QLineEdit>(wizard, "txtScannerName_1").setText("Lane 4");
    Control<QLineEdit>(wizard, "txtScaleName_1").setText("Lane 4 scale");
    Control<DropDownList>(wizard, "lstWeightUnit_1").SetListIndex(1);
    Show(wizard, "wizard-options");
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        if (!Control<QWidget>(wizard, "fraWizard_4").isVisible())
            return;
        timer.stop();
        Show(wizard, "wizard-configuration");
    });
    timer.start(1);
    next(); // programs the scanner, which leads on to its test
    Lane(std::string("scan 1 ") + Label);
    AwaitText(wizard, "lblScanData");
    Show(wizard, "wizard-test-scanner");
    next();
    AwaitText(wizard, "lblWeight");
    Show(wizard, "wizard-test-scale");
    next();
    Show(wizard, "wizard-finished");
    Click(Control<QPushButton>(wizard, "cmdFinish"));
}

void WindowTour::ShowWizard() {
    std::string failure;
    QTimer::singleShot(0, qApp, [&] {
        QWidget& wizard = ShownWindow("frmWizard");
        try {
            WorkWizard(wizard);
        } catch (const std::exception& error) {
            failure = error.what();
            wizard.close();
        }
    });
    window_->Menu("mnuFileWizard");
    if (!failure.empty())
        throw std::runtime_error("wizard: " + failure);
}

void WindowTour::ShowLane() {
    frmLane lane(lane_, events_, options_);
    lane.show();
    QCoreApplication::processEvents();
    Show(lane, "virtual-lane");
    lane.Execute("weight 1 heavy");
    Show(lane, "virtual-lane-refusal");
}
