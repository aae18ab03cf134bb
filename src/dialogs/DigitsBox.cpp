#include "dialogs/DigitsBox.h"

#include <QFocusEvent>
#include <QRegularExpressionValidator>
#include <QTimer>

DigitsBox::DigitsBox(QWidget* parent) : QLineEdit(parent) {
    setValidator(new QRegularExpressionValidator(QRegularExpression(QStringLiteral("[0-9]*")), this));
}

void DigitsBox::Validate() {
    if (text().isEmpty())
        setText(QStringLiteral("0"));
}

void DigitsBox::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    selectAll();
    // The mouse press that brought the focus places the cursor after this, which would undo the selection.
    if (event->reason() == Qt::MouseFocusReason)
        QTimer::singleShot(0, this, &QLineEdit::selectAll);
}

void DigitsBox::focusOutEvent(QFocusEvent* event) {
    // A menu or another program only borrows the focus.
    if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason)
        Validate();
    QLineEdit::focusOutEvent(event);
}
