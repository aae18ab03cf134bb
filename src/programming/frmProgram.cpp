#include "programming/frmProgram.h"

#include "platform/window/SystemMenu.h"
#include "programming/InputBlock.h"
#include "programming/Serlink.h"
#include "ui_frmProgram.h"
#include "widgets/MessageBox.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QEventLoop>
#include <QLocale>
#include <QScopedValueRollback>
#include <QStyle>
#include <QTimer>

#include <algorithm>
#include <exception>
#include <utility>

namespace {

// Announcements and acknowledgements are no amount of bytes worth showing.
constexpr std::size_t LongestSignal = 2;

QString StepText(ProgrammingStep step) {
    switch (step) {
    case ProgrammingStep::EnteringProgrammingMode:
        return QStringLiteral("Entering programming mode...");
    case ProgrammingStep::ReadingConfiguration:
        return QStringLiteral("Reading the scanner's configuration...");
    case ProgrammingStep::WaitingForScanner:
        return QStringLiteral("Waiting until the scanner is ready...");
    case ProgrammingStep::WritingConfiguration:
        return QStringLiteral("Writing the new configuration...");
    case ProgrammingStep::AwaitingAcknowledgement:
        return QStringLiteral("Waiting for the scanner to confirm...");
    }
    return {};
}

void WaitWithEvents(std::chrono::milliseconds time) {
    QEventLoop loop;
    QTimer::singleShot(time, Qt::PreciseTimer, &loop, &QEventLoop::quit);
    loop.exec();
}

} // namespace

frmProgram::frmProgram(Services services, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint | Qt::WindowSystemMenuHint),
      ui_(std::make_unique<Ui::frmProgram>()),
      services_(std::move(services)) {
    ui_->setupUi(this);
    QSizePolicy room = ui_->cmdClose->sizePolicy();
    room.setRetainSizeWhenHidden(true);
    ui_->cmdClose->setSizePolicy(room);
    if (!services_.wait)
        services_.wait = WaitWithEvents;
    const int iconSize = style()->pixelMetric(QStyle::PM_LargeIconSize, nullptr, this);
    ui_->imgSuccess->setPixmap(style()->standardIcon(QStyle::SP_DialogApplyButton).pixmap(iconSize));
    ui_->imgFailure->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(iconSize));
    connect(ui_->cmdClose, &QPushButton::clicked, this, &frmProgram::cmdClose_Click);
    Form_Load();
}

frmProgram::~frmProgram() = default;

void frmProgram::Form_Load() {
    ui_->cmdClose->hide();
    ui_->cmdClose->setEnabled(false);
    ui_->lblStep->clear();
    ShowBytes(0, 0);
    ShowState(*ui_->Serlink);
}

bool frmProgram::ProgramDevice(const CDevice& genericDevice) {
    Form_Load();
    const ProgrammingOutcome outcome = RunSession(genericDevice);
    ShowOutcome(outcome);
    emit ProgramComplete();
    ui_->cmdClose->show();
    ui_->cmdClose->setEnabled(true);
    ui_->cmdClose->setFocus();
    return outcome.succeeded;
}

QString frmProgram::FailureReason() const {
    return ui_->lblFailureDetail->text();
}

ProgrammingOutcome frmProgram::RunSession(const CDevice& device) {
    const QScopedValueRollback running(sessionRunning_, true);
    const InputBlock inputBlock;
    try {
        const auto idle = [] { QCoreApplication::processEvents(); };
        const auto serlink =
            services_.makeSerlink({.idle = idle, .bytesMoved = [this](std::size_t done, std::size_t expected) {
                                       ShowBytes(done, expected);
                                   }});
        return ProgrammingSession(*serlink, Hooks()).ProgramDevice(device);
    } catch (const std::exception& error) {
        return {false, error.what()};
    }
}

ProgrammingHooks frmProgram::Hooks() {
    return {.showRecyclePower =
                [this] {
                    MsgBox(this, QStringLiteral("You must recycle power to enter programming mode for this scanner."),
                           MsgBoxButtons::Ok, {}, MsgBoxIcon::Exclamation);
                },
            .processPendingEvents = [] { QCoreApplication::processEvents(); },
            .wait = services_.wait,
            .stepBegins = [this](ProgrammingStep step) { ShowStep(step); }};
}

// One of the three states is visible, in a window that grows where a text needs it.
void frmProgram::ShowState(QWidget& state) {
    ui_->stkStates->setCurrentWidget(&state);
    const int height = layout()->totalHeightForWidth(width());
    if (height > this->height())
        resize(width(), height);
}

void frmProgram::ShowStep(ProgrammingStep step) {
    ui_->lblStep->setText(StepText(step));
    ShowBytes(0, 0);
    QCoreApplication::processEvents();
}

void frmProgram::ShowBytes(std::size_t done, std::size_t expected) {
    const bool isAmount = std::max(done, expected) > LongestSignal;
    const QLocale locale;
    QString text;
    if (isAmount)
        text = expected == 0 ? QStringLiteral("%1 bytes").arg(locale.toString(done))
                             : QStringLiteral("%1 of %2 bytes").arg(locale.toString(done), locale.toString(expected));
    ui_->lblBytes->setText(text);
    ui_->barBytes->setRange(0, isAmount ? static_cast<int>(expected) : 0); // 0 to 0 shows that something is going on
    ui_->barBytes->setValue(static_cast<int>(done));
}

void frmProgram::ShowOutcome(const ProgrammingOutcome& outcome) {
    ui_->lblFailureDetail->setText(QString::fromStdString(outcome.reason));
    ShowState(outcome.succeeded ? *ui_->fraSuccess : *ui_->fraFailure);
}

void frmProgram::cmdClose_Click() {
    close();
}

// Escape arrives here too: it closes a dialog.
void frmProgram::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!std::exchange(systemMenuCut_, true))
        RemoveCloseFromSystemMenu(winId());
}

void frmProgram::closeEvent(QCloseEvent* event) {
    if (sessionRunning_)
        event->ignore();
    else
        QDialog::closeEvent(event);
}
