#include "widgets/MessageBox.h"

#include <QCoreApplication>
#include <QMessageBox>

namespace {

QMessageBox::StandardButtons StandardButtons(MsgBoxButtons buttons) {
    switch (buttons) {
    case MsgBoxButtons::YesNo:
        return QMessageBox::Yes | QMessageBox::No;
    case MsgBoxButtons::RetryCancel:
        return QMessageBox::Retry | QMessageBox::Cancel;
    case MsgBoxButtons::Ok:
        break;
    }
    return QMessageBox::Ok;
}

MsgBoxResult Result(int answer, MsgBoxButtons buttons) {
    switch (answer) {
    case QMessageBox::Yes:
        return MsgBoxResult::Yes;
    case QMessageBox::Retry:
        return MsgBoxResult::Retry;
    default:
        break;
    }
    switch (buttons) {
    case MsgBoxButtons::YesNo:
        return MsgBoxResult::No;
    case MsgBoxButtons::RetryCancel:
        return MsgBoxResult::Cancel;
    case MsgBoxButtons::Ok:
        break;
    }
    return MsgBoxResult::Ok;
}

} // namespace

MsgBoxResult MsgBox(QWidget* owner, const QString& text, MsgBoxButtons buttons, const QString& title, MsgBoxIcon icon) {
    QMessageBox box(owner);
    box.setWindowTitle(title.isEmpty() ? QCoreApplication::applicationName() : title);
    box.setTextFormat(Qt::PlainText);
    box.setText(text);
    box.setStandardButtons(StandardButtons(buttons));
    box.setIcon(icon == MsgBoxIcon::Exclamation ? QMessageBox::Warning : QMessageBox::NoIcon);
    if (buttons == MsgBoxButtons::YesNo) // without a Cancel button, Escape and the close box would be dead
        box.setEscapeButton(QMessageBox::No);
    return Result(box.exec(), buttons);
}

bool IsMessageBox(const QObject& object) {
    return qobject_cast<const QMessageBox*>(&object) != nullptr;
}
