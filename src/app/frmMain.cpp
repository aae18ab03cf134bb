#include "app/frmMain.h"

#include "app/RavlinApplication.h"
#include "app/frmAbout.h"
#include "dialogs/frmGlobalConfig.h"
#include "opos/OPOSScanner.h"
#include "platform/help/HelpViewer.h"
#include "profiles/NumberedError.h"
#include "profiles/Numbers.h"
#include "programming/frmProgram.h"
#include "ui_frmMain.h"
#include "views/DetailedTestView.h"
#include "views/DeviceInformationView.h"
#include "views/ModifyProfileView.h"
#include "views/NewProfileView.h"
#include "views/ProfileEnumeration.h"
#include "views/SimpleTestView.h"
#include "wizard/frmWizard.h"

#include <QCloseEvent>
#include <QIcon>
#include <QPushButton>
#include <QScreen>

#include <algorithm>

namespace {

constexpr int ListBarMargin = 8;
constexpr const char* CurrentView = "Tag"; // the index of the current view, as decimal text on the list bar

struct View {
    const char* key;
    const char* caption;
    const char* icon;
    QAction* Ui::frmMain::*menuEntry;
};

const std::array Views = {
    View{"A", "New Profile", "new-profile", &Ui::frmMain::mnuFileNew},
    View{"B", "Modify Profile", "modify-profile", &Ui::frmMain::mnuFileOpen},
    View{"C", "Simple Test", "simple-test", &Ui::frmMain::mnuTestSimple},
    View{"D", "Detailed Test", "detailed-test", &Ui::frmMain::mnuTestDetailed},
    View{"E", "Device Information", "device-information", &Ui::frmMain::mnuTestInfo},
};

struct MenuIcon {
    QAction* Ui::frmMain::*entry;
    const char* icon;
};

constexpr std::array MenuIcons = {
    MenuIcon{&Ui::frmMain::mnuGlobalConfig, "global-configuration"},
    MenuIcon{&Ui::frmMain::mnuFileWizard, "wizard"},
    MenuIcon{&Ui::frmMain::mnuFileQuit, "quit"},
    MenuIcon{&Ui::frmMain::mnuHelpContents, "help-contents"},
    MenuIcon{&Ui::frmMain::mnuHelpIndex, "help-index"},
    MenuIcon{&Ui::frmMain::mnuHelpAbout, "about"},
};

QIcon Icon(const char* name) {
    return QIcon(QStringLiteral(":/icons/%1.png").arg(name));
}

} // namespace

frmMain::frmMain(const Services& services)
    : ui_(std::make_unique<Ui::frmMain>()), services_(services), settings_(services.registry) {
    ui_->setupUi(this);
    BuildViews();
    ConnectControls();
    SetMenuIcons();
}

frmMain::~frmMain() = default;

void frmMain::BuildViews() {
    newProfile_ = new NewProfileView({services_.registry, colDevices_, availableComPorts_});
    modifyProfile_ = new ModifyProfileView({services_.registry, colDevices_});
    const TestServices testServices = {services_.registry, colDevices_, services_.controls};
    simpleTest_ = new SimpleTestView(testServices);
    detailedTest_ = new DetailedTestView(testServices, simpleTest_->SimpleScale());
    deviceInformation_ = new DeviceInformationView(services_.controls);
    int index = 0;
    for (QWidget* view :
         std::initializer_list<QWidget*>{newProfile_, modifyProfile_, simpleTest_, detailedTest_, deviceInformation_}) {
        view->setObjectName(QStringLiteral("fraOption_%1").arg(index++));
        ui_->stkOption->addWidget(view);
    }
    nameLists_.emplace(DeviceNameLists::Families{modifyProfile_->NameLists(), simpleTest_->NameLists(),
                                                 detailedTest_->NameLists(), deviceInformation_->NameLists()});
    newProfile_->UseNameLists(*nameLists_);
    modifyProfile_->UseNameLists(*nameLists_);
}

void frmMain::ConnectControls() {
    connect(ui_->ListBar, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { ShowView(ui_->ListBar->row(item)); });
    connect(ui_->ListBar, &QListWidget::itemActivated, this,
            [this](QListWidgetItem* item) { ShowView(ui_->ListBar->row(item)); });
    for (std::size_t i = 0; i < Views.size(); ++i)
        connect(ui_.get()->*Views[i].menuEntry, &QAction::triggered, this,
                [this, i] { ShowView(static_cast<int>(i)); });
    connect(modifyProfile_, &ModifyProfileView::LoggingLevelShown, this, &frmMain::ShowLogLevel);
    connect(ui_->mnuGlobalConfig, &QAction::triggered, this, &frmMain::mnuGlobalConfig_Click);
    connect(newProfile_, &NewProfileView::ProgramRequested, this, &frmMain::ProgramScanner);
    connect(modifyProfile_, &ModifyProfileView::ProgramRequested, this, &frmMain::ProgramScanner);
    connect(ui_->mnuFileWizard, &QAction::triggered, this, &frmMain::mnuFileWizard_Click);
    connect(&tmrWizard_, &QTimer::timeout, this, &frmMain::mnuFileWizard_Click);
    connect(ui_->mnuFileQuit, &QAction::triggered, this, &QWidget::close);
    connect(ui_->mnuHelpContents, &QAction::triggered, this, [this] { services_.help.ShowContents(this); });
    connect(ui_->mnuHelpIndex, &QAction::triggered, this, [this] { services_.help.ShowIndex(this); });
    connect(ui_->mnuHelpAbout, &QAction::triggered, this, &frmMain::mnuHelpAbout_Click);
    connect(ui_->lstLogLevel, &DropDownList::Click, this, &frmMain::lstLogLevel_Click);
}

void frmMain::SetMenuIcons() {
    for (const View& view : Views)
        (ui_.get()->*view.menuEntry)->setIcon(Icon(view.icon));
    for (const MenuIcon& menu : MenuIcons)
        (ui_.get()->*menu.entry)->setIcon(Icon(menu.icon));
}

void frmMain::Form_Load(bool showLogLevel) {
    setWindowTitle(windowTitle() + " v" + QCoreApplication::applicationVersion());
    BuildListBar();
    RunReported([this] { FillOptionLists(); });
    RunReported([this] { EnumerateProfiles(); });
    RunReported([this] { SelectFirstItems(); });
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    ui_->lblLogLevel->setVisible(showLogLevel);
    ui_->lstLogLevel->setVisible(showLogLevel);
    RunReported([this] { RestorePosition(); });
    RunReported([this] { RestoreView(); });
    RunReported([this] { LoadLogLevel(); });
    RunReported([this] { StartWizardTimer(); });
}

void frmMain::BuildListBar() {
    ui_->ListBar->setWrapping(false);
    // As wide as the widest caption and the list below at any size of text.
    const QFontMetrics metrics = ui_->ListBar->fontMetrics();
    int width = std::max(ui_->ListBar->minimumWidth(), ui_->lstLogLevel->sizeHint().width());
    for (const View& view : Views)
        width = std::max(width, metrics.horizontalAdvance(view.caption) + 3 * ListBarMargin);
    ui_->ListBar->setFixedWidth(width);
    ui_->ListBar->setGridSize(
        QSize(width - ListBarMargin, ui_->ListBar->iconSize().height() + 2 * metrics.height() + ListBarMargin));
    for (const View& view : Views) {
        auto* item = new QListWidgetItem(Icon(view.icon), view.caption, ui_->ListBar);
        item->setData(Qt::UserRole, QString(view.key));
        item->setTextAlignment(Qt::AlignHCenter);
    }
    ui_->ListBar->setProperty(CurrentView, "0");
    ui_->ListBar->setCurrentRow(0);
}

void frmMain::FillOptionLists() {
    availableComPorts_ = FillComPortLists({&modifyProfile_->ComPortList(), &newProfile_->ComPortList()});
    ui_->lstLogLevel->ShowListIndex(0);
    for (int i = 0; i < newProfile_->InterfaceList().ListCount(); ++i)
        modifyProfile_->InterfaceList().AddItem(newProfile_->InterfaceList().itemText(i));
    newProfile_->InterfaceList().SetListIndex(0);
    modifyProfile_->InterfaceList().SetListIndex(0);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
}

void frmMain::EnumerateProfiles() {
    LoadScannerProfiles(services_.registry, colDevices_, this);
    // What has been read is listed, also where the scales cannot be read.
    RunReported([this] { LoadScaleProfiles(services_.registry, colDevices_); });
    nameLists_->FillDeviceNameLists(colDevices_);
}

void frmMain::SelectFirstItems() {
    newProfile_->SelectFirstOptions();
    modifyProfile_->SelectFirstOptions();
    simpleTest_->SelectFirstNames();
    newProfile_->SelectFirstDeviceType();
    modifyProfile_->SelectFirstDeviceType();
    detailedTest_->SelectFirstDeviceType();
    deviceInformation_->SelectFirstDeviceType();
}

void frmMain::RestorePosition() {
    adjustSize();
    const Settings::Position position = settings_.WindowPosition();
    if (position.left == 0 && position.top == 0)
        move(screen()->geometry().center() - rect().center());
    else
        move(qRound(position.left), qRound(position.top));
}

void frmMain::RestoreView() {
    ShowView(settings_.ListBar());
}

void frmMain::LoadLogLevel() {
    const std::string level = settings_.LogVerbosity();
    // Shown, not chosen: choosing would write the level back.
    ui_->lstLogLevel->ShowListIndex(level.empty() ? 0 : ToInt16(level) + 1);
}

// Last of all in the start: a message box before would run the timer, and the window is not shown yet.
void frmMain::StartWizardTimer() {
    tmrWizard_.setObjectName("tmrWizard");
    tmrWizard_.setInterval(1);
    tmrWizard_.setSingleShot(true);
    if (settings_.OpensWizard())
        tmrWizard_.start();
}

void frmMain::ShowView(int index) {
    if (index < 0 || index >= ui_->stkOption->count())
        throw NumberedError(ErrorNumber::SubscriptOutOfRange, "there is no view " + std::to_string(index));
    ui_->ListBar->setCurrentRow(index);
    if (ui_->ListBar->property(CurrentView).toString() == QString::number(index))
        return;
    ui_->stkOption->setCurrentIndex(index);
    ui_->ListBar->setProperty(CurrentView, QString::number(index));
    ui_->stkOption->currentWidget()->setFocus();
}

void frmMain::ComeForward() {
    if (isMinimized())
        showNormal();
    raise();
    activateWindow();
}

void frmMain::AddDevice(const std::shared_ptr<CDevice>& device) {
    const std::int32_t deviceType = device->DeviceType();
    const QString name = QString::fromStdString(device->DeviceName());
    if (colDevices_.Contains(deviceType, name)) {
        colDevices_.Replace(deviceType, name, device);
        modifyProfile_->ShowReplacedProfile();
        return;
    }
    colDevices_.Add(deviceType, name, device);
    nameLists_->AddDeviceName(deviceType, name);
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
    nameLists_->SelectOnlyItems(deviceType);
}

void frmMain::ProgramScanner(const std::shared_ptr<CDevice>& device) {
    if (programWindow_) // still shows how the last session ended
        programWindow_->close();
    auto* window = new frmProgram({.makeSerlink = services_.makeSerlink}, this);
    programWindow_ = window;
    window->setAttribute(Qt::WA_DeleteOnClose);
    connect(window, &frmProgram::ProgramComplete, this, &frmMain::ProgramComplete);
    window->show();
    existingProgramEnabled_ = modifyProfile_->ProgramButton().isEnabled();
    newProgramEnabled_ = newProfile_->ProgramButton().isEnabled();
    modifyProfile_->ProgramButton().setEnabled(false);
    newProfile_->ProgramButton().setEnabled(false);
    window->ProgramDevice(*device);
}

void frmMain::ProgramComplete() {
    newProfile_->ProgramButton().setEnabled(newProgramEnabled_);
    modifyProfile_->ProgramButton().setEnabled(existingProgramEnabled_);
}

QString frmMain::AvailableInterfaces() const {
    return newProfile_->AvailableInterfaces();
}

void frmMain::closeEvent(QCloseEvent* event) {
    RunReported([this] { Form_Unload(); });
    // The program would live on behind it, also where the settings could not be stored.
    if (globalConfig_)
        globalConfig_->close();
    event->accept();
}

void frmMain::Form_Unload() {
    services_.help.Close();
    for (OPOSScanner* scanner : {&simpleTest_->SimpleScan(), &detailedTest_->DetailScan()}) {
        if (scanner->State() == OposState::Closed)
            continue;
        scanner->ClearInput();
        scanner->Close();
    }
    colDevices_.Clear();
    settings_.SaveWindow({static_cast<float>(pos().x()), static_cast<float>(pos().y())},
                         ui_->ListBar->property(CurrentView).toInt());
}

void frmMain::ShowLogLevel(int level) {
    const int index = level + 1;
    // Shown, not chosen: the profile's level is not the one that all service objects share.
    ui_->lstLogLevel->ShowListIndex(index >= 0 && index < ui_->lstLogLevel->ListCount() ? index : -1);
}

void frmMain::lstLogLevel_Click() {
    if (ui_->lstLogLevel->ListIndex() >= 0)
        settings_.SaveLogVerbosity(ui_->lstLogLevel->ListIndex() - 1);
}

void frmMain::mnuGlobalConfig_Click() {
    if (!globalConfig_) {
        auto dialog = std::make_unique<frmGlobalConfig>(services_.registry, this);
        dialog->setAttribute(Qt::WA_DeleteOnClose);
        dialog->Form_Load();
        globalConfig_ = dialog.release();
    }
    globalConfig_->show();
    globalConfig_->raise();
    globalConfig_->activateWindow();
}

void frmMain::mnuFileWizard_Click() {
    frmWizard wizard({.registry = services_.registry,
                      .controls = services_.controls,
                      .makeSerlink = services_.makeSerlink,
                      .availableComPorts = AvailableComPorts(),
                      .availableInterfaces = AvailableInterfaces(),
                      .addDevice = [this](const std::shared_ptr<CDevice>& device) { AddDevice(device); }},
                     this);
    wizard.exec();
}

void frmMain::mnuHelpAbout_Click() {
    frmAbout about(this);
    about.exec();
}
