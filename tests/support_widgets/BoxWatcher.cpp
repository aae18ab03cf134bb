#include "support_widgets/BoxWatcher.h"

#include <QAbstractButton>
#include <QEvent>
#include <QPointer>
#include <QTest>
#include <QTimer>

#include <gtest/gtest.h>

#include <algorithm>
#include <deque>
#include <vector>

namespace {

// What the running test expects; one test runs at a time, on one thread.
std::deque<ExpectBox*>& ExpectedBoxes() {
    static std::deque<ExpectBox*> boxes;
    return boxes;
}

std::vector<WhenShown*>& AwaitedWindows() {
    static std::vector<WhenShown*> windows;
    return windows;
}

} // namespace

ExpectBox::ExpectBox(const QString& title, const QString& text, QMessageBox::StandardButton answer)
    : title_(title), text_(text), answer_(answer) {
    ExpectedBoxes().push_back(this);
}

ExpectBox::~ExpectBox() {
    std::erase(ExpectedBoxes(), this);
    if (!shown_)
        ADD_FAILURE() << "no message box \"" << title_.toStdString() << "\" was shown: " << text_.toStdString();
}

WhenShown::WhenShown(const QString& objectName, std::function<void(QWidget&)> work)
    : objectName_(objectName), work_(std::move(work)) {
    AwaitedWindows().push_back(this);
}

WhenShown::~WhenShown() {
    std::erase(AwaitedWindows(), this);
    if (!shown_)
        ADD_FAILURE() << "no window " << objectName_.toStdString() << " was shown";
}

BoxWatcher::BoxWatcher(QObject* application) : QObject(application) {
    application->installEventFilter(this);
}

BoxWatcher::~BoxWatcher() = default;

bool BoxWatcher::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Show && watched->isWidgetType()) {
        // Once the box has entered its own event loop.
        if (QPointer<QMessageBox> box = qobject_cast<QMessageBox*>(watched))
            QTimer::singleShot(0, this, [box] {
                if (box)
                    Answer(*box);
            });
        else if (QPointer<QWidget> window = static_cast<QWidget*>(watched); window->isWindow())
            QTimer::singleShot(0, this, [window] {
                if (window)
                    Work(*window);
            });
    }
    return QObject::eventFilter(watched, event);
}

void BoxWatcher::Answer(QMessageBox& box) {
    auto& boxes = ExpectedBoxes();
    const auto next = std::ranges::find(boxes, false, &ExpectBox::shown_);
    if (next == boxes.end() || (*next)->title_ != box.windowTitle() || (*next)->text_ != box.text()) {
        ADD_FAILURE() << "unexpected message box \"" << box.windowTitle().toStdString()
                      << "\": " << box.text().toStdString()
                      << (next == boxes.end() ? std::string()
                                              : "\nexpected \"" + (*next)->title_.toStdString() +
                                                    "\": " + (*next)->text_.toStdString());
        box.reject();
        return;
    }
    (*next)->shown_ = true;
    if ((*next)->answer_ == ExpectBox::Escape || (*next)->answer_ == ExpectBox::Enter) {
        QTest::keyClick(&box, (*next)->answer_ == ExpectBox::Escape ? Qt::Key_Escape : Qt::Key_Return);
        return;
    }
    QAbstractButton* button = box.button((*next)->answer_);
    if (button == nullptr) {
        ADD_FAILURE() << "the message box \"" << box.windowTitle().toStdString() << "\" lacks the expected button";
        box.reject();
        return;
    }
    button->click();
}

void BoxWatcher::Work(QWidget& window) {
    auto& windows = AwaitedWindows();
    const auto found = std::ranges::find_if(windows, [&window](const WhenShown* when) {
        return !when->shown_ && when->objectName_ == window.objectName();
    });
    if (found == windows.end())
        return;
    (*found)->shown_ = true;
    try {
        (*found)->work_(window);
    } catch (const std::exception& error) {
        ADD_FAILURE() << error.what();
        window.close();
    }
}
