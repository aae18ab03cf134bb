#include "lane/window/frmLane.h"

#include "lane/ScannerTraits.h"
#include "ui_frmLane.h"

#include <QFontDatabase>

namespace {

struct PresetLabel {
    const char* name;
    const char* label;
};

constexpr PresetLabel PresetLabels[] = {
    {"EAN-13", "]E05018374827715"},    {"UPC-A", "]E00012345678905"},    {"EAN-8", "]E455123457"},
    {"Code 39", "]A0LANE39"},          {"Code 128", "]C0Lane 128"},      {"GS1-128", "]C10105018374827715"},
    {"Interleaved 2 of 5", "]I01234"}, {"PDF417", "]L0A pair of socks"}, {"No identifier", "5018374827715"},
};

QString Text(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// What a scanner of the class is, with a model of the kind where there is one.
QString DescribeClass(const ScannerTraits& traits) {
    return traits.model.empty() ? Text(traits.description) : Text(traits.model) + ", " + Text(traits.description);
}

QString Describe(const LanePortState& port) {
    QStringList lines;
    if (port.scannerClass >= 0) {
        const auto traits = TraitsOf(port.scannerClass);
        const QString model = traits && !traits->model.empty() ? Text(traits->model) : QObject::tr("Scanner");
        lines << QObject::tr("%1 (class %2, firmware %3)").arg(model).arg(port.scannerClass).arg(port.firmware.c_str());
    }
    if (port.hasScale) {
        lines << QObject::tr("Scale: %1").arg(port.unstable ? QObject::tr("unstable") : QString(port.weight.c_str()));
    }
    QString title = QString("COM%1").arg(port.port);
    if (!port.pluggedIn) {
        title += QObject::tr(" (unplugged)");
    } else if (port.muted) {
        title += QObject::tr(" (muted)");
    }
    return title + '\n' + lines.join('\n');
}

} // namespace

frmLane::frmLane(LaneRunner& lane, const LaneEvents& events, const LaneOptions& options)
    : ui_(std::make_unique<Ui::frmLane>()), lane_(lane) {
    ui_->setupUi(this);
    ui_->lblDirectory->setText(tr("Ports in %1").arg(options.directory.c_str()));
    ui_->chkPace->setChecked(options.paced);
    ui_->txtEvents->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    FillLists();
    ConnectControls();
    // Queued: the lane's thread reports while it carries out what this thread waits for.
    connect(&events, &LaneEvents::Happened, this, &frmLane::LaneHappened, Qt::QueuedConnection);
    ShowState();
}

frmLane::~frmLane() = default;

bool frmLane::Execute(const QString& command) {
    const QString answer = QString::fromStdString(lane_.Execute(command.toStdString()));
    const bool done = answer.startsWith("ok");
    ui_->lblAnswer->setText(done ? QString() : answer.mid(QString("error ").size()));
    ShowState();
    return done;
}

void frmLane::FillLists() {
    for (const ScannerTraits& traits : AllScannerTraits()) {
        ui_->lstClass->addItem(QString("%1: %2").arg(traits.firstClass).arg(DescribeClass(traits)), traits.firstClass);
    }
    for (const PresetLabel& preset : PresetLabels) {
        ui_->lstPreset->addItem(preset.name, QString(preset.label));
    }
    ui_->txtLabel->setText(PresetLabels[0].label);
    ui_->lstUnit->addItems({"kg", "lb"});
}

void frmLane::ConnectControls() {
    connect(ui_->lstPorts, &QListWidget::currentRowChanged, this, &frmLane::ShowChosenPort);
    connect(ui_->cmdScanner, &QPushButton::clicked, this, &frmLane::cmdScanner_Click);
    connect(ui_->cmdScale, &QPushButton::clicked, this, &frmLane::cmdScale_Click);
    connect(ui_->lstPreset, &QComboBox::activated, this,
            [this] { ui_->txtLabel->setText(ui_->lstPreset->currentData().toString()); });
    connect(ui_->cmdScan, &QPushButton::clicked, this, &frmLane::cmdScan_Click);
    connect(ui_->txtLabel, &QLineEdit::returnPressed, this, &frmLane::cmdScan_Click);
    connect(ui_->cmdPower, &QPushButton::clicked, this, [this] { ExecuteAtPort("power"); });
    connect(ui_->cmdRefuse, &QPushButton::clicked, this, [this] { ExecuteAtPort("refuse"); });
    connect(ui_->cmdBlock, &QPushButton::clicked, this, &frmLane::cmdBlock_Click);
    connect(ui_->cmdWeigh, &QPushButton::clicked, this, &frmLane::Weigh);
    connect(ui_->txtWeight, &QLineEdit::returnPressed, this, &frmLane::Weigh);
    connect(ui_->lstUnit, &QComboBox::activated, this, &frmLane::Weigh);
    connect(ui_->sldWeight, &QSlider::valueChanged, this, &frmLane::sldWeight_Change);
    connect(ui_->chkUnstable, &QCheckBox::clicked, this, &frmLane::chkUnstable_Click);
    connect(ui_->chkMute, &QCheckBox::clicked, this, [this](bool on) { ExecuteAtPort("mute", on ? "on" : "off"); });
    connect(ui_->cmdUnplug, &QPushButton::clicked, this, &frmLane::cmdUnplug_Click);
    connect(ui_->chkPace, &QCheckBox::clicked, this, [this](bool on) { Execute(on ? "pace on" : "pace off"); });
}

QString frmLane::ChosenPort() const {
    const QListWidgetItem* const item = ui_->lstPorts->currentItem();
    return item != nullptr ? item->data(Qt::UserRole).toString() : QString();
}

bool frmLane::ExecuteAtPort(const QString& name, const QString& rest) {
    return Execute(name + " " + ChosenPort() + (rest.isEmpty() ? "" : " " + rest));
}

void frmLane::ShowState() {
    state_ = lane_.State();
    QListWidget& list = *ui_->lstPorts;
    while (list.count() > int(state_.size())) {
        delete list.takeItem(list.count() - 1);
    }
    while (list.count() < int(state_.size())) {
        list.addItem(QString());
    }
    for (int row = 0; row < list.count(); ++row) {
        const LanePortState& port = state_[std::size_t(row)];
        list.item(row)->setText(Describe(port));
        list.item(row)->setData(Qt::UserRole, QString::number(port.port));
    }
    if (list.currentRow() < 0 && list.count() > 0) {
        list.setCurrentRow(0);
    }
    ShowChosenPort();
}

void frmLane::ShowChosenPort() {
    const int row = ui_->lstPorts->currentRow();
    const LanePortState port = row >= 0 && row < int(state_.size()) ? state_[std::size_t(row)] : LanePortState{};
    ui_->fraScanner->setEnabled(port.pluggedIn && port.scannerClass >= 0);
    ui_->fraScale->setEnabled(port.pluggedIn && port.hasScale);
    ui_->cmdUnplug->setEnabled(port.port != 0);
    ui_->cmdUnplug->setText(port.port != 0 && !port.pluggedIn ? tr("Plug &In Again") : tr("Un&plug"));
    ui_->chkMute->setEnabled(port.pluggedIn);
    ui_->chkMute->setChecked(port.muted);
    ui_->chkUnstable->setChecked(port.unstable);
}

void frmLane::Weigh() {
    ExecuteAtPort("weight", ui_->txtWeight->text().trimmed() + " " + ui_->lstUnit->currentText());
}

void frmLane::LaneHappened(const QString& event) {
    ui_->txtEvents->appendPlainText(event);
    ShowState();
}

void frmLane::cmdScanner_Click() {
    Execute(QString("scanner %1 %2 %3")
                .arg(ui_->spnPort->value())
                .arg(ui_->lstClass->currentData().toInt())
                .arg(ui_->txtFirmware->text().trimmed()));
}

void frmLane::cmdScale_Click() {
    Execute(QString("scale %1").arg(ui_->spnPort->value()));
}

void frmLane::cmdScan_Click() {
    ExecuteAtPort("scan", ui_->txtLabel->text());
}

void frmLane::cmdBlock_Click() {
    const QString block = QString::fromStdString(lane_.Execute(("block " + ChosenPort()).toStdString()));
    ui_->txtEvents->appendPlainText(QString("COM%1: %2").arg(ChosenPort(), block.mid(3)));
}

void frmLane::cmdUnplug_Click() {
    const int row = ui_->lstPorts->currentRow();
    ExecuteAtPort(state_[std::size_t(row)].pluggedIn ? "unplug" : "plug");
}

void frmLane::chkUnstable_Click(bool checked) {
    if (checked) {
        ExecuteAtPort("unstable");
    } else {
        Weigh();
    }
}

void frmLane::sldWeight_Change(int hundredths) {
    ui_->txtWeight->setText(QString::number(hundredths / 100.0, 'f', 2));
    Weigh();
}
