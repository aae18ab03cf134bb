// Answers the real message boxes and works the real dialogs that a test expects. A box that no test expects fails the
// test and is closed, so that nothing hangs.
#pragma once

#include <QMessageBox>
#include <QObject>
#include <QString>

#include <functional>

// Expects one message box, with exactly this title and text, and presses the button. Boxes are expected in the order in
// which these objects were made; the box must have been shown before the object's end.
class ExpectBox {
public:
    // Stand for the keys instead of a button.
    static constexpr QMessageBox::StandardButton Escape = QMessageBox::NoButton;
    static constexpr QMessageBox::StandardButton Enter = QMessageBox::Default;

    ExpectBox(const QString& title, const QString& text, QMessageBox::StandardButton answer = QMessageBox::Ok);
    ~ExpectBox();
    ExpectBox(const ExpectBox&) = delete;
    ExpectBox& operator=(const ExpectBox&) = delete;

    [[nodiscard]] bool Shown() const { return shown_; }

private:
    friend class BoxWatcher;
    QString title_;
    QString text_;
    QMessageBox::StandardButton answer_;
    bool shown_ = false;
};

// Runs work once a window of that object name has been shown; for modal dialogs, which return only when they are
// closed. The window must have been shown before the object's end.
class WhenShown {
public:
    WhenShown(const QString& objectName, std::function<void(QWidget&)> work);
    ~WhenShown();
    WhenShown(const WhenShown&) = delete;
    WhenShown& operator=(const WhenShown&) = delete;

private:
    friend class BoxWatcher;
    QString objectName_;
    std::function<void(QWidget&)> work_;
    bool shown_ = false;
};

// Watches the application for both; one per test program.
class BoxWatcher : public QObject {
public:
    explicit BoxWatcher(QObject* application);
    ~BoxWatcher() override;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static void Answer(QMessageBox& box);
    static void Work(QWidget& window);
};
