// A label for a value that a device gave, which may be long or hold anything.
#pragma once

#include <QLabel>

// Shows its text as it stands, never as markup, in a sunken field of a fixed number of lines, broken where the line
// ends; what does not fit ends in an ellipsis and is in the tool tip. Control characters show as symbols. The
// text never changes the size of the window.
class ValueLabel : public QLabel {
    Q_OBJECT
    Q_PROPERTY(int lines READ Lines WRITE SetLines)

public:
    explicit ValueLabel(QWidget* parent = nullptr);

    [[nodiscard]] int Lines() const { return lines_; }
    // At least 1.
    void SetLines(int lines);
    // Whether the text does not fit.
    [[nodiscard]] bool IsCut() const;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    // The text as it is drawn, line by line.
    [[nodiscard]] QStringList DrawnLines(bool& cut) const;

    int lines_ = 1;
};
