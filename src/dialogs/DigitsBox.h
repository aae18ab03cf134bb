// A text box for a number that is not negative.
#pragma once

#include <QLineEdit>

// Takes the digits 0 to 9 only, however they come in. Becoming active it selects its whole text; leaving it empty makes
// it "0".
class DigitsBox : public QLineEdit {
    Q_OBJECT

public:
    explicit DigitsBox(QWidget* parent = nullptr);

    // Makes an empty text "0".
    void Validate();

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
};
