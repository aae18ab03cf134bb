#include "app/frmAbout.h"

#include "ui_frmAbout.h"

#include <QIcon>

frmAbout::frmAbout(QWidget* parent) : QDialog(parent), ui_(std::make_unique<Ui::frmAbout>()) {
    ui_->setupUi(this);
    const QString title = QCoreApplication::applicationName();
    setWindowTitle("About " + title);
    ui_->lblTitle->setText(title);
    ui_->lblVersion->setText("Version " + QCoreApplication::applicationVersion());
    ui_->lblDescription->setText(RAVLIN_DESCRIPTION);
    ui_->imgIcon->setPixmap(QApplication::windowIcon().pixmap(QSize(64, 64), devicePixelRatio()));
    connect(ui_->cmdOK, &QPushButton::clicked, this, &QDialog::accept);
}

frmAbout::~frmAbout() = default;
